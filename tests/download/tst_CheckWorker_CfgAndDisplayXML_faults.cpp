// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFile>

namespace tst_CheckWorker_CfgAndDisplayXML_faults {

using namespace CheckLines;

using Files = CatalogueFiles;

/// Tests servers, files and folders that fail a check: what is logged, reported and left on disk.
class tst_CheckWorker_CfgAndDisplayXML_faults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void versionFileFails_data();
    void versionFileFails();
    void versionFileTooLarge_data();
    void versionFileTooLarge();
    void everyRequestFailsOnce_data();
    void everyRequestFailsOnce();
    void bothCatalogueFilesFail();
    void reasonsAreThoseOfTheFirstFailure_data();
    void reasonsAreThoseOfTheFirstFailure();
    void catalogueChangesBehindTheVersionFile_data();
    void catalogueChangesBehindTheVersionFile();
    void malformedCatalogueIsRejected_data();
    void malformedCatalogueIsRejected();
    void emptyCatalogueReplacesTheOther();
    void failedCopyKeepsTheVersionFile();
    void linkInTheTreeIsNotFollowed();
    void temporaryFolderCannotBeMade();
    void nothingIsWrittenOutsideTheFolders();

private:
    QString url(const char* name) const { return m_world.catalogueUrl(name); }
    QString temp(const char* name) const { return m_world.temporaryFile(name); }
    void publishAll();
    SCatalogueCheckResult check();
    /// Returns the content of the three files in the download tree.
    QByteArrayList stored() const;

    mutable CheckWorld m_world;
    QStringList m_entries; // entries of the last check()
};

namespace {

const QByteArray display = "<Resource>display</Resource>";
const QByteArray config = "<Resource>config</Resource>";
const QByteArray sum = "00112233445566778899aabbccddeeff";
const QByteArrayList oldFiles{"old version", "old display", "old config"};

using Handler = FaultServer::Handler;

Handler status(int code)
{
    return [code](HttpExchange& exchange) { exchange.answer(HttpAnswer(code).body("no")); };
}

Handler breakOff()
{
    return [](HttpExchange& exchange) { exchange.reset(); };
}

Handler cut()
{
    return [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Content-Length", "1000").bareBody("<Resource>"));
        exchange.close();
    };
}

} // namespace

void tst_CheckWorker_CfgAndDisplayXML_faults::init()
{
    m_world.fresh();
}

void tst_CheckWorker_CfgAndDisplayXML_faults::publishAll()
{
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", sum, sum);
    Files::write(m_world.downloadedFile("resource_version.xml"), oldFiles.at(0));
    Files::write(m_world.downloadedFile("resource_display.xml"), oldFiles.at(1));
    Files::write(m_world.downloadedFile("resource_config.xml"), oldFiles.at(2));
}

SCatalogueCheckResult tst_CheckWorker_CfgAndDisplayXML_faults::check()
{
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::watch(worker, trace);
    SCatalogueCheckResult result;
    int results = 0;
    worker.setResultCallback([&](const SCatalogueCheckResult& told) {
        result = told;
        ++results;
    });
    worker.onStartDownloadXML(QString());
    m_entries = trace.entries();
    return results == 1 ? result : SCatalogueCheckResult();
}

QByteArrayList tst_CheckWorker_CfgAndDisplayXML_faults::stored() const
{
    return {Files::read(m_world.downloadedFile("resource_version.xml")),
            Files::read(m_world.downloadedFile("resource_display.xml")),
            Files::read(m_world.downloadedFile("resource_config.xml"))};
}

void tst_CheckWorker_CfgAndDisplayXML_faults::versionFileFails_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::newRow("not found") << status(404);
    QTest::newRow("server error") << status(500);
    QTest::newRow("connection reset") << breakOff();
    QTest::newRow("cut off") << cut();
}

void tst_CheckWorker_CfgAndDisplayXML_faults::versionFileFails()
{
    QFETCH(Handler, handler);
    publishAll();
    m_world.route(CheckWorld::versionTarget, handler);
    const SCatalogueCheckResult result = check();
    QCOMPARE(result.m_eEnd, eCatalogueCheck_Unreachable);
    QVERIFY2(result.m_qsReason.contains(url("resource_version_v3.xml")),
             qPrintable(result.m_qsReason));
    QCOMPARE(
        m_entries,
        (QStringList{versionUrl(url("resource_version_v3.xml")),
                     versionError(url("resource_version_v3.xml"), temp("resource_version.xml")),
                     QStringLiteral("end 1")}));
    QCOMPARE(m_world.targets().size(), 1);
    QCOMPARE(stored(), oldFiles);
    QCOMPARE(Files::filesBelow(m_world.temp()), QStringList());
}

void tst_CheckWorker_CfgAndDisplayXML_faults::versionFileTooLarge_data()
{
    QTest::addColumn<int>("excess");
    QTest::addColumn<bool>("chunked");
    QTest::newRow("as large as allowed") << 0 << false;
    QTest::newRow("one byte more") << 1 << false;
    QTest::newRow("one byte more, in chunks") << 1 << true;
    QTest::newRow("many times as large") << 20000000 << false;
}

void tst_CheckWorker_CfgAndDisplayXML_faults::versionFileTooLarge()
{
    QFETCH(int, excess);
    QFETCH(bool, chunked);
    publishAll();
    QByteArray content =
        CheckWorld::version("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config));
    content += QByteArray(64 * 1024 - content.size() + excess, ' ');
    if (chunked) {
        m_world.route(CheckWorld::versionTarget, [content](HttpExchange& exchange) {
            exchange.answer(HttpAnswer(200)
                                .field("Transfer-Encoding", "chunked")
                                .bareBody(HttpAnswer::chunk(content) + HttpAnswer::lastChunk()));
        });
    } else {
        m_world.serve(CheckWorld::versionTarget, content);
    }
    const SCatalogueCheckResult result = check();
    if (excess == 0) {
        QCOMPARE(result.m_eEnd, eCatalogueCheck_Changed);
        return;
    }
    QCOMPARE(result.m_eEnd, eCatalogueCheck_Rejected);
    QCOMPARE(result.m_qsReason,
             url("resource_version_v3.xml") + QStringLiteral(": larger than 65536 bytes"));
    QVERIFY(m_entries.contains(
        versionError(url("resource_version_v3.xml"), temp("resource_version.xml"))));
    QCOMPARE(m_entries.count(QStringLiteral("end 1")), 1);
    QCOMPARE(stored(), oldFiles);
    QCOMPARE(Files::filesBelow(m_world.temp()), QStringList());
}

void tst_CheckWorker_CfgAndDisplayXML_faults::everyRequestFailsOnce_data()
{
    QTest::addColumn<int>("failing");
    QTest::addColumn<int>("ends");
    QTest::newRow("version") << 1 << 1;
    QTest::newRow("display") << 2 << 2;
    QTest::newRow("config") << 3 << 2;
}

void tst_CheckWorker_CfgAndDisplayXML_faults::everyRequestFailsOnce()
{
    QFETCH(int, failing);
    QFETCH(int, ends);
    publishAll();
    m_world.setFault([failing](HttpExchange& exchange, int number) {
        if (number == failing)
            cut()(exchange);
        return number == failing;
    });
    QCOMPARE(check().m_eEnd, eCatalogueCheck_Unreachable);
    QCOMPARE(m_entries.count(QStringLiteral("end 1")), ends);
    QCOMPARE(m_entries.last(), QStringLiteral("end 1"));
    QCOMPARE(m_world.targets().size(), failing == 1 ? 1 : 3);
    QCOMPARE(stored(), oldFiles);
    if (failing > 1) {
        const char* const name = failing == 2 ? "resource_display.xml" : "resource_config.xml";
        const int at = m_entries.indexOf(fileError(failing - 1, url(name), temp(name)));
        QVERIFY(at > 0);
        QCOMPARE(m_entries.at(at - 1), QStringLiteral("end 1"));
        QCOMPARE(m_entries.at(m_entries.size() - 2), hasError(1));
        QVERIFY(!QFile::exists(temp(name)));
    }
    // The server has recovered, and so does the catalogue.
    QCOMPARE(check().m_eEnd, eCatalogueCheck_Changed);
    QCOMPARE(stored().at(1), display);
    QCOMPARE(stored().at(2), config);
}

void tst_CheckWorker_CfgAndDisplayXML_faults::bothCatalogueFilesFail()
{
    publishAll();
    m_world.route(CheckWorld::displayTarget, status(404));
    m_world.route(CheckWorld::configTarget, status(404));
    check();
    const int from = m_entries.indexOf(needed(1, 1).at(1)) + 1;
    QCOMPARE(m_entries.mid(from),
             (QStringList{QStringLiteral("end 1"),
                          fileError(1, url("resource_display.xml"), temp("resource_display.xml")),
                          QStringLiteral("end 1"),
                          fileError(2, url("resource_config.xml"), temp("resource_config.xml")),
                          hasError(1), QStringLiteral("end 1")}));
    QCOMPARE(stored(), oldFiles);
}

void tst_CheckWorker_CfgAndDisplayXML_faults::reasonsAreThoseOfTheFirstFailure_data()
{
    QTest::addColumn<Handler>("displayHandler");
    QTest::addColumn<Handler>("configHandler");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("part");
    const QString first = QStringLiteral("resource_display.xml");
    QTest::newRow("status, then network")
        << status(404) << breakOff() << int(eCatalogueCheck_Rejected) << first;
    QTest::newRow("network, then status")
        << breakOff() << status(404) << int(eCatalogueCheck_Unreachable) << first;
}

void tst_CheckWorker_CfgAndDisplayXML_faults::reasonsAreThoseOfTheFirstFailure()
{
    QFETCH(Handler, displayHandler);
    QFETCH(Handler, configHandler);
    QFETCH(int, end);
    QFETCH(QString, part);
    publishAll();
    m_world.route(CheckWorld::displayTarget, displayHandler);
    m_world.route(CheckWorld::configTarget, configHandler);
    const SCatalogueCheckResult result = check();
    QCOMPARE(int(result.m_eEnd), end);
    QVERIFY2(result.m_qsReason.contains(part), qPrintable(result.m_qsReason));
}

void tst_CheckWorker_CfgAndDisplayXML_faults::catalogueChangesBehindTheVersionFile_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("display") << QByteArray(CheckWorld::displayTarget);
    QTest::newRow("config") << QByteArray(CheckWorld::configTarget);
}

void tst_CheckWorker_CfgAndDisplayXML_faults::catalogueChangesBehindTheVersionFile()
{
    QFETCH(QByteArray, target);
    publishAll();
    m_world.serve(target, "<Resource>newer</Resource>");
    const SCatalogueCheckResult result = check();
    QCOMPARE(result.m_eEnd, eCatalogueCheck_Rejected);
    QCOMPARE(result.m_qsReason,
             m_world.server().url(QString::fromLatin1(target))
                 + QStringLiteral(" does not have the checksum that the version file announces"));
    // Both were fetched, neither failed as a transfer.
    QCOMPARE(m_entries.mid(m_entries.size() - 4),
             (QStringList{fileOk(1, url("resource_display.xml"), temp("resource_display.xml")),
                          fileOk(2, url("resource_config.xml"), temp("resource_config.xml")),
                          hasError(1), QStringLiteral("end 1")}));
    QCOMPARE(m_entries.count(QStringLiteral("end 1")), 1);
    QCOMPARE(stored(), oldFiles);
    QVERIFY(QFile::exists(temp("resource_display.xml")));
    QVERIFY(QFile::exists(temp("resource_config.xml")));
}

void tst_CheckWorker_CfgAndDisplayXML_faults::malformedCatalogueIsRejected_data()
{
    QTest::addColumn<bool>("isDisplay");
    QTest::addColumn<QByteArray>("content");
    for (const bool isDisplay : {true, false}) {
        const char* const name = isDisplay ? "display" : "config";
        QTest::addRow("%s: a page", name) << isDisplay << QByteArray("<p>Welcome<br></p>");
        QTest::addRow("%s: text", name) << isDisplay << QByteArray("not here");
        QTest::addRow("%s: cut off", name) << isDisplay << QByteArray("<Resource><Theme>");
        QTest::addRow("%s: nothing", name) << isDisplay << QByteArray();
        QTest::addRow("%s: entities", name)
            << isDisplay << QByteArray("<!DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>");
    }
}

/// The published checksum is right, but no client could read the file: the present catalogue is
/// kept.
void tst_CheckWorker_CfgAndDisplayXML_faults::malformedCatalogueIsRejected()
{
    QFETCH(bool, isDisplay);
    QFETCH(QByteArray, content);
    publishAll();
    m_world.publish("1.0.2", isDisplay ? content : display, isDisplay ? config : content);
    const SCatalogueCheckResult result = check();
    QCOMPARE(result.m_eEnd, eCatalogueCheck_Rejected);
    QCOMPARE(result.m_eCause, eFailure_Damaged);
    const char* const target = isDisplay ? CheckWorld::displayTarget : CheckWorld::configTarget;
    QCOMPARE(result.m_qsReason,
             m_world.server().url(QString::fromLatin1(target))
                 + QStringLiteral(" is not a catalogue: malformed"));
    QVERIFY(m_entries.contains(hasError(1)));
    QCOMPARE(m_entries.count(QStringLiteral("end 1")), 1);
    QCOMPARE(stored(), oldFiles);
}

/// An empty catalogue is valid: the publisher has withdrawn everything.
void tst_CheckWorker_CfgAndDisplayXML_faults::emptyCatalogueReplacesTheOther()
{
    publishAll();
    m_world.publish("1.0.2", "<Resource/>", "<Resource/>");
    QCOMPARE(check().m_eEnd, eCatalogueCheck_Changed);
    QCOMPARE(stored().at(1), QByteArray("<Resource/>"));
}

/// A version file that names a catalogue not on disk would keep later checks from fetching it.
void tst_CheckWorker_CfgAndDisplayXML_faults::failedCopyKeepsTheVersionFile()
{
    publishAll();
    const QString target = m_world.downloadedFile("resource_display.xml");
    QVERIFY(QFile::remove(target));
    Files::write(target + QStringLiteral("/in the way"), "x");
    const SCatalogueCheckResult result = check();
    QCOMPARE(result.m_eEnd, eCatalogueCheck_NotStored);
    QCOMPARE(result.m_eCause, eFailure_LocalFile);
    QCOMPARE(result.m_qsReason, target + QStringLiteral(": is a folder, not a file name"));
    // Nothing else is tried.
    QCOMPARE(m_entries.mid(m_entries.size() - 3),
             (QStringList{hasError(0), displayCopied(temp("resource_display.xml"), 0),
                          QStringLiteral("end 1")}));
    QCOMPARE(stored().at(0), oldFiles.at(0));

    QVERIFY(QDir(target).removeRecursively());
    QCOMPARE(check().m_eEnd, eCatalogueCheck_Changed);
    QCOMPARE(stored().at(1), display);
    QCOMPARE(stored().at(2), config);
}

void tst_CheckWorker_CfgAndDisplayXML_faults::linkInTheTreeIsNotFollowed()
{
    publishAll();
    const QString folder = m_world.root() + QStringLiteral("/Themes/ResourceConfig");
    const QString outside = m_world.base() + QStringLiteral("/outside");
    QVERIFY(QDir().rename(folder, outside));
    MV_LINK(outside, folder);
    QCOMPARE(check().m_eEnd, eCatalogueCheck_NotStored);
    QCOMPARE(stored(), oldFiles);
    QCOMPARE(Files::filesBelow(outside).size(), 3);
}

void tst_CheckWorker_CfgAndDisplayXML_faults::temporaryFolderCannotBeMade()
{
    publishAll();
    Files::write(m_world.base() + QStringLiteral("/appdata"), "a file");
    const SCatalogueCheckResult result = check();
    QCOMPARE(result.m_eEnd, eCatalogueCheck_NotStored);
    QVERIFY(m_entries.contains(versionError(url("resource_version_v3.xml"), QString())));
    QCOMPARE(m_entries.count(QStringLiteral("end 1")), 1);
    QCOMPARE(stored(), oldFiles);
}

void tst_CheckWorker_CfgAndDisplayXML_faults::nothingIsWrittenOutsideTheFolders()
{
    publishAll();
    const QStringList before = Files::filesBelow(m_world.base());
    QCOMPARE(check().m_eEnd, eCatalogueCheck_Changed);
    QStringList after = Files::filesBelow(m_world.base());
    for (const char* name : {"resource_version.xml", "resource_display.xml", "resource_config.xml"})
        QVERIFY(after.removeOne(QStringLiteral("appdata/MVTheme/DownloadTemp/")
                                + QString::fromLatin1(name)));
    QCOMPARE(after, before);
}

MV_TEST_MAIN(tst_CheckWorker_CfgAndDisplayXML_faults)

} // namespace tst_CheckWorker_CfgAndDisplayXML_faults

#include "tst_CheckWorker_CfgAndDisplayXML_faults.moc"
