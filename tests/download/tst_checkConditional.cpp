// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

#include <QDir>

namespace tst_checkConditional {

using Files = CatalogueFiles;

/// Tests checks that ask whether the version file has changed instead of fetching it again.
class tst_checkConditional : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void unchangedVersionIsNotSent_data();
    void unchangedVersionIsNotSent();
    void installedCatalogueCountsAsWell();
    void changedVersionIsFetched();
    void damagedCatalogueHealsWithoutABody();
    void nothingIsAskedByDefault();
    void unusableCacheIsIgnored_data();
    void unusableCacheIsIgnored();
    void cacheOfAnotherServerIsIgnored();
    void serverWithoutValidators();
    void recentDateProvesNothing_data();
    void recentDateProvesNothing();
    void malformedVersionIsNotRemembered();
    void answerWithoutAQuestionIsAFailure();

private:
    int check();
    void answerIfChanged(const QByteArray& field, const QByteArray& validator);
    QString cache() const { return m_world.downloadedFile("version-cache.json"); }

    CheckWorld m_world;
    QByteArray m_version;
    QByteArray m_date;          // of the server's answers
    QByteArrayList m_questions; // the conditions of the requests for the version file
    int m_bodies = 0;           // how many times it was sent
};

namespace {

const QByteArray display = "<Resource>display</Resource>";
const QByteArray config = "<Resource>config</Resource>";
const QByteArray tag = "\"v1\"";
const QByteArray date = "Sun, 06 Nov 2022 08:49:37 GMT";

QByteArray versionOf(const QByteArray& value)
{
    return CheckWorld::version(value, CheckWorld::md5(display), CheckWorld::md5(config));
}

} // namespace

void tst_checkConditional::init()
{
    m_world.fresh();
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", "1", "1");
    hostSettings().conditionalRequests = true;
    m_version = versionOf("1.0.2");
    m_date = "Mon, 07 Nov 2022 08:49:37 GMT";
    answerIfChanged("ETag", tag);
}

int tst_checkConditional::check()
{
    CheckWorker_CfgAndDisplayXML worker;
    int end = -1;
    worker.setResultCallback([&](const SCatalogueCheckResult& result) { end = result.m_eEnd; });
    worker.onStartDownloadXML(QString());
    return end;
}

/// Serves the version file with that validator; sends no body to a client that has it.
void tst_checkConditional::answerIfChanged(const QByteArray& field, const QByteArray& validator)
{
    m_questions.clear();
    m_bodies = 0;
    m_world.route(CheckWorld::versionTarget, [this, field, validator](HttpExchange& exchange) {
        const auto& fields = exchange.request().fields;
        const QByteArray question =
            fields.value("if-none-match") + '|' + fields.value("if-modified-since");
        m_questions.append(question);
        if (question.split('|').contains(validator)) {
            exchange.answer(HttpAnswer(304).field(field, validator));
            return;
        }
        ++m_bodies;
        HttpAnswer answer = HttpAnswer(200).field(field, validator);
        if (!m_date.isEmpty())
            answer.field("Date", m_date);
        exchange.answer(answer.body(m_version));
    });
}

void tst_checkConditional::unchangedVersionIsNotSent_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("validator");
    QTest::addColumn<QByteArray>("question");
    QTest::newRow("strong tag") << QByteArray("ETag") << tag << tag + '|';
    QTest::newRow("weak tag") << QByteArray("ETag") << QByteArray("W/\"1\"")
                              << QByteArray("W/\"1\"|");
    QTest::newRow("date") << QByteArray("Last-Modified") << date << '|' + date;
}

void tst_checkConditional::unchangedVersionIsNotSent()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, validator);
    QFETCH(QByteArray, question);
    answerIfChanged(field, validator);
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    for (int round = 0; round < 2; ++round) {
        const int requests = m_world.targets().size();
        QCOMPARE(check(), int(eCatalogueCheck_Current));
        QCOMPARE(m_world.targets().size(), requests + 1);
    }
    QCOMPARE(m_questions, (QByteArrayList{"|", question, question}));
    QCOMPARE(m_bodies, 1);
}

void tst_checkConditional::installedCatalogueCountsAsWell()
{
    m_world.install("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config));
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(m_bodies, 1);
}

void tst_checkConditional::changedVersionIsFetched()
{
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    const QByteArray newer = "<Resource>newer</Resource>";
    m_world.publish("1.0.2", newer, config);
    m_version = CheckWorld::version("1.0.2", CheckWorld::md5(newer), CheckWorld::md5(config));
    answerIfChanged("ETag", "\"v2\"");
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(Files::read(m_world.downloadedFile("resource_display.xml")), newer);
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(m_questions, (QByteArrayList{tag + '|', "\"v2\"|"}));
    QCOMPARE(m_bodies, 1);
}

void tst_checkConditional::damagedCatalogueHealsWithoutABody()
{
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    Files::write(m_world.downloadedFile("resource_config.xml"), "<Resource>con");
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(Files::read(m_world.downloadedFile("resource_config.xml")), config);
    QCOMPARE(m_bodies, 1);
}

void tst_checkConditional::nothingIsAskedByDefault()
{
    hostSettings().conditionalRequests = HostSettings().conditionalRequests;
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(m_questions, (QByteArrayList{"|", "|"}));
    QVERIFY(!QFile::exists(cache()));
}

void tst_checkConditional::unusableCacheIsIgnored_data()
{
    QTest::addColumn<QByteArray>("from"); // replaced; empty: the whole file
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("emptied") << QByteArray() << QByteArray();
    QTest::newRow("not JSON") << QByteArray() << QByteArray("\"v1\"");
    QTest::newRow("another tag") << QByteArray("v1") << QByteArray("v0");
    QTest::newRow("another content")
        << versionOf("1.0.2").toBase64() << versionOf("1.0.1").toBase64();
    QTest::newRow("no digest") << QByteArray("sha256") << QByteArray("sha512");
}

void tst_checkConditional::unusableCacheIsIgnored()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QByteArray content = Files::read(cache());
    if (from.isEmpty())
        content = to;
    QVERIFY(from.isEmpty() || content.contains(from));
    Files::write(cache(), from.isEmpty() ? content : content.replace(from, to));
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(m_questions, (QByteArrayList{"|", "|"}));
    QCOMPARE(check(), int(eCatalogueCheck_Current)); // it has been replaced
    QCOMPARE(m_questions.last(), tag + '|');
}

/// A partner edition has another version file.
void tst_checkConditional::cacheOfAnotherServerIsIgnored()
{
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QByteArray content = Files::read(cache());
    Files::write(cache(), content.replace("resource_version_v3.xml", "resource_version_v2.xml"));
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(m_questions, (QByteArrayList{"|", "|"}));
}

void tst_checkConditional::serverWithoutValidators()
{
    answerIfChanged("Server", "plain");
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(m_questions, (QByteArrayList{"|", "|"}));
    QVERIFY(!QFile::exists(cache()));
}

void tst_checkConditional::recentDateProvesNothing_data()
{
    QTest::addColumn<QByteArray>("answered");
    QTest::addColumn<bool>("isAsked");
    QTest::newRow("in the same second") << date << false;
    QTest::newRow("a minute later, less a second")
        << QByteArray("Sun, 06 Nov 2022 08:50:36 GMT") << false;
    QTest::newRow("a minute later") << QByteArray("Sun, 06 Nov 2022 08:50:37 GMT") << true;
    QTest::newRow("before") << QByteArray("Sun, 06 Nov 2022 08:49:30 GMT") << false;
    QTest::newRow("no date") << QByteArray() << false;
    QTest::newRow("not a date") << QByteArray("today") << false;
}

/// Two versions may have been published in one second.
void tst_checkConditional::recentDateProvesNothing()
{
    QFETCH(QByteArray, answered);
    QFETCH(bool, isAsked);
    m_date = answered;
    answerIfChanged("Last-Modified", date);
    QCOMPARE(check(), int(eCatalogueCheck_Changed));
    QCOMPARE(check(), int(eCatalogueCheck_Current));
    QCOMPARE(m_questions.last(), isAsked ? '|' + date : QByteArray("|"));
}

/// Otherwise the server could not mend it under the same validator.
void tst_checkConditional::malformedVersionIsNotRemembered()
{
    m_version = "<Resource>";
    QCOMPARE(check(), int(eCatalogueCheck_Rejected));
    QCOMPARE(check(), int(eCatalogueCheck_Rejected));
    QCOMPARE(m_questions, (QByteArrayList{"|", "|"}));
}

void tst_checkConditional::answerWithoutAQuestionIsAFailure()
{
    m_world.route(CheckWorld::versionTarget,
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(304)); });
    QCOMPARE(check(), int(eCatalogueCheck_Unreachable));
}

MV_TEST_MAIN(tst_checkConditional)

} // namespace tst_checkConditional

#include "tst_checkConditional.moc"
