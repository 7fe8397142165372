// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseList.h"
#include "download/ReleasePaths.h"
#include "download/SRelease.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

const QByteArray digest = QByteArray(64, 'a');

SRelease sample()
{
    SRelease release;
    release.m_serial = 1795345200;
    release.m_qsCatalogueVersion = text("1.0.2");
    release.m_published = QDateTime::fromSecsSinceEpoch(1795345200, Qt::UTC);
    release.m_expires = release.m_published.addDays(90);
    release.m_listBytes = 48213;
    release.m_listDigest = digest;
    return release;
}

QJsonObject sampleJson()
{
    return QJsonDocument::fromJson(sample().toJson()).object();
}

QByteArray with(const QString& key, const QJsonValue& value)
{
    QJsonObject json = sampleJson();
    json[key] = value;
    return QJsonDocument(json).toJson();
}

QByteArray withInList(const QString& key, const QJsonValue& value)
{
    QJsonObject list = sampleJson()[text("list")].toObject();
    list[key] = value;
    return with(text("list"), list);
}

QByteArray without(const QString& key)
{
    QJsonObject json = sampleJson();
    json.remove(key);
    return QJsonDocument(json).toJson();
}

} // namespace

/// Tests release.json: what is written, what is read, and what is refused.
class TestSRelease : public QObject
{
    Q_OBJECT

private slots:
    void textIsStable();
    void writtenIsRead();
    void expiryMayBeMissing();
    void unknownMembersAreIgnored();
    void serialUpTo2To53IsExact();
    void refused_data();
    void refused();
    void refusedLeavesTheValueUnchanged();
    void names();
};

void TestSRelease::textIsStable()
{
    QCOMPARE(sample().toJson(),
             QByteArray("{\n"
                        "    \"catalogue\": \"1.0.2\",\n"
                        "    \"expires\": \"2027-02-20T11:00:00Z\",\n"
                        "    \"format\": 1,\n"
                        "    \"list\": {\n"
                        "        \"sha256\": \""
                        + digest
                        + "\",\n"
                          "        \"size\": 48213\n"
                          "    },\n"
                          "    \"published\": \"2026-11-22T11:00:00Z\",\n"
                          "    \"serial\": 1795345200\n"
                          "}\n"));
}

void TestSRelease::writtenIsRead()
{
    SRelease release;
    QString error;
    QVERIFY2(SRelease::parse(sample().toJson(), release, error), qPrintable(error));
    QCOMPARE(release.m_serial, sample().m_serial);
    QCOMPARE(release.m_qsCatalogueVersion, sample().m_qsCatalogueVersion);
    QCOMPARE(release.m_published, sample().m_published);
    QCOMPARE(release.m_expires, sample().m_expires);
    QCOMPARE(release.m_listBytes, sample().m_listBytes);
    QCOMPARE(release.m_listDigest, digest);
}

void TestSRelease::expiryMayBeMissing()
{
    SRelease release;
    QString error;
    QVERIFY(SRelease::parse(without(text("expires")), release, error));
    QVERIFY(!release.m_expires.isValid());
    QVERIFY(!release.toJson().contains("expires"));
}

void TestSRelease::unknownMembersAreIgnored()
{
    SRelease release;
    QString error;
    QVERIFY(SRelease::parse(with(text("later"), 1), release, error));
}

void TestSRelease::serialUpTo2To53IsExact()
{
    SRelease release = sample();
    release.m_serial = SRelease::maxSerial;
    SRelease read;
    QString error;
    QVERIFY(SRelease::parse(release.toJson(), read, error));
    QCOMPARE(read.m_serial, Q_INT64_C(9007199254740991));
}

void TestSRelease::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("reason");
    const QByteArray whole = sample().toJson();
    const auto row = [](const char* name, const QByteArray& json, const char* reason) {
        QTest::newRow(name) << json << QString::fromLatin1(reason);
    };
    row("empty", "", "not a JSON object");
    row("cut off", whole.left(whole.size() - 3), "not a JSON object");
    row("array", "[]", "not a JSON object");
    row("larger than 4 KiB", whole + QByteArray(4097 - whole.size(), ' '), "larger than 4096");
    row("other format", with(text("format"), 2), "format 1");
    row("no format", without(text("format")), "format 1");
    row("serial 0", with(text("serial"), 0), "serial");
    row("negative serial", with(text("serial"), -1), "serial");
    row("fractional serial", with(text("serial"), 1.5), "serial");
    row("serial above 2^53", with(text("serial"), 9007199254740992.0), "serial");
    row("serial as a text", with(text("serial"), text("12")), "serial");
    row("no serial", without(text("serial")), "serial");
    row("long version", with(text("catalogue"), QString(65, QLatin1Char('1'))), "version");
    row("no time", without(text("published")), "publication");
    row("local time", with(text("published"), text("2026-11-22T11:00:00")), "publication");
    row("time with an offset", with(text("published"), text("2026-11-22T11:00:00+01:00")),
        "publication");
    row("unreadable expiry", with(text("expires"), text("never")), "expiry");
    row("no list", without(text("list")), "list");
    row("negative size", withInList(text("size"), -1), "size");
    row("size above the limit", withInList(text("size"), double(ReleaseList::maxBytes + 1)),
        "size");
    row("digest in capitals", withInList(text("sha256"), QString(64, QLatin1Char('A'))), "SHA-256");
    row("short digest", withInList(text("sha256"), QString(63, QLatin1Char('a'))), "SHA-256");
}

void TestSRelease::refused()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, reason);
    SRelease release;
    QString error;
    QVERIFY(!SRelease::parse(json, release, error));
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void TestSRelease::refusedLeavesTheValueUnchanged()
{
    SRelease release = sample();
    QString error;
    QVERIFY(!SRelease::parse(with(text("serial"), 0), release, error));
    QCOMPARE(release.m_serial, sample().m_serial);
}

void TestSRelease::names()
{
    QCOMPARE(ReleasePaths::release(), text("ResourceConfig/release.json"));
    QCOMPARE(ReleasePaths::signature(), text("ResourceConfig/release.json.minisig"));
    QCOMPARE(ReleasePaths::list(), text("ResourceConfig/files.txt"));
    const QByteArray name = "0123" + QByteArray(60, 'f');
    QCOMPARE(ReleasePaths::content(name), text("content/01/") + QString::fromLatin1(name));
    QCOMPARE(ReleasePaths::signatureOf(name),
             text("content/01/") + QString::fromLatin1(name) + text(".minisig"));
}

MV_TEST_MAIN(TestSRelease)
#include "tst_SRelease.moc"
