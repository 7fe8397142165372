// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "PoolRun.h"

#include <QDateTime>
#include <QFileInfo>

namespace tst_TransferPool_conditional {

namespace {

const QByteArray tag = "\"v1\"";
const QByteArray weakTag = "W/\"v1\"";
const QByteArray date = "Wed, 21 Oct 2015 07:28:00 GMT";
const QByteArray newTag = "\"v2\"";
const QByteArray newDate = "Thu, 22 Oct 2015 07:28:00 GMT";
const QString name = QStringLiteral("file.xml");

/// Sends a version of the file, or 304 to a request that knows it.
FaultServer::Handler serving(const SValidators& version, const QByteArray& body)
{
    return [version, body](HttpExchange& exchange) {
        const QMap<QByteArray, QByteArray> fields = exchange.request().fields;
        const bool isKnown = fields.contains("if-none-match")
            ? fields.value("if-none-match") == version.m_etag
            : fields.contains("if-modified-since")
                && fields.value("if-modified-since") == version.m_lastModified;
        HttpAnswer answer(isKnown ? 304 : 200);
        if (!version.m_etag.isEmpty())
            answer.field("ETag", version.m_etag);
        if (!version.m_lastModified.isEmpty())
            answer.field("Last-Modified", version.m_lastModified);
        exchange.answer(isKnown ? answer : answer.body(body));
    };
}

} // namespace

} // namespace tst_TransferPool_conditional

Q_DECLARE_METATYPE(SValidators)

namespace tst_TransferPool_conditional {

/// Tests requests for a file only if the server has another version of it.
class TestTransferPoolConditional : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings().retryPauseMs = 10; }
    void cleanup() { hostSettings() = m_settings; }

    void knownVersionIsNotSent_data();
    void knownVersionIsNotSent();
    void otherVersionIsFetched_data();
    void otherVersionIsFetched();
    void successTellsTheVersion_data();
    void successTellsTheVersion();
    void serverWithoutConditionsSendsTheFile();
    void notModifiedWithoutAskingIsAFailure();
    void conditionSurvives_data();
    void conditionSurvives();
    void connectionIsReusedAfterNotModified();
    void eachHasItsOwnCondition();
    void resumedFileKeepsItsVersion();

private:
    /// Puts an older file in place and requests it unless it is of the known version.
    static void fetch(PoolRun& run, const QString& url, const SValidators& known);

    const HostSettings m_settings = hostSettings();
};

void TestTransferPoolConditional::fetch(PoolRun& run, const QString& url, const SValidators& known)
{
    CatalogueFiles::write(run.path(name), "present");
    QFile file(run.path(name));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::fromSecsSinceEpoch(1000000000),
                             QFileDevice::FileModificationTime));
    file.close();
    TransferPool::Job job = run.job(url, name);
    job.known = known;
    run.pool().start(job);
    QVERIFY(run.finish());
}

void TestTransferPoolConditional::knownVersionIsNotSent_data()
{
    QTest::addColumn<SValidators>("version");

    QTest::newRow("entity tag") << SValidators{tag, {}};
    QTest::newRow("weak entity tag") << SValidators{weakTag, {}};
    QTest::newRow("date") << SValidators{{}, date};
    QTest::newRow("both") << SValidators{tag, date};
}

void TestTransferPoolConditional::knownVersionIsNotSent()
{
    QFETCH(SValidators, version);

    FaultServer server(serving(version, "new"));
    PoolRun run(2);
    fetch(run, server.url(QStringLiteral("/file")), version);

    const STransferOutcome outcome = run.outcome(name);
    QCOMPARE(outcome.m_eResult, eTransfer_Success);
    QVERIFY(outcome.m_bNotModified);
    QVERIFY(!outcome.m_failure.isFailure());
    QCOMPARE(outcome.m_validators.m_etag, version.m_etag);
    QCOMPARE(outcome.m_validators.m_lastModified, version.m_lastModified);
    QCOMPARE(run.content(name), QByteArray("present"));
    QCOMPARE(QFileInfo(run.path(name)).lastModified().toSecsSinceEpoch(), qint64{1000000000});
    QCOMPARE(run.files(), QStringList{name});
    // Validators are sent back unchanged.
    const HttpRequest request = server.requests().constFirst();
    QCOMPARE(request.fields.value("if-none-match"), version.m_etag);
    QCOMPARE(request.fields.value("if-modified-since"), version.m_lastModified);
    QCOMPARE(request.fields.contains("if-none-match"), !version.m_etag.isEmpty());
    QCOMPARE(request.fields.contains("if-modified-since"), !version.m_lastModified.isEmpty());
    QCOMPARE(server.requestCount(), 1);
}

void TestTransferPoolConditional::otherVersionIsFetched_data()
{
    knownVersionIsNotSent_data();
}

void TestTransferPoolConditional::otherVersionIsFetched()
{
    QFETCH(SValidators, version);

    FaultServer server(serving({newTag, newDate}, "new"));
    PoolRun run(2);
    fetch(run, server.url(QStringLiteral("/file")), version);
    const STransferOutcome outcome = run.outcome(name);
    QCOMPARE(outcome.m_eResult, eTransfer_Success);
    QVERIFY(!outcome.m_bNotModified);
    QCOMPARE(outcome.m_validators.m_etag, newTag);
    QCOMPARE(outcome.m_validators.m_lastModified, newDate);
    QCOMPARE(run.content(name), QByteArray("new"));
}

void TestTransferPoolConditional::successTellsTheVersion_data()
{
    knownVersionIsNotSent_data();
    QTest::newRow("none") << SValidators{};
}

void TestTransferPoolConditional::successTellsTheVersion()
{
    QFETCH(SValidators, version);

    FaultServer server(serving(version, "new"));
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file")), {});
    const STransferOutcome outcome = run.outcome(name);
    QCOMPARE(outcome.m_validators.m_etag, version.m_etag);
    QCOMPARE(outcome.m_validators.m_lastModified, version.m_lastModified);
    QVERIFY(!outcome.m_bNotModified);
    QCOMPARE(run.content(name), QByteArray("new"));
    const HttpRequest request = server.requests().constFirst();
    QVERIFY(!request.fields.contains("if-none-match"));
    QVERIFY(!request.fields.contains("if-modified-since"));
}

void TestTransferPoolConditional::serverWithoutConditionsSendsTheFile()
{
    FaultServer server(answering(HttpAnswer(200).field("ETag", tag).body("the same again")));
    PoolRun run(2);
    fetch(run, server.url(QStringLiteral("/file")), {tag, date});
    QCOMPARE(run.result(name), 0);
    QVERIFY(!run.outcome(name).m_bNotModified);
    QCOMPARE(run.outcome(name).m_validators.m_etag, tag);
    QVERIFY(run.outcome(name).m_validators.m_lastModified.isEmpty());
    QCOMPARE(run.content(name), QByteArray("the same again"));
}

void TestTransferPoolConditional::notModifiedWithoutAskingIsAFailure()
{
    FaultServer server(answering(HttpAnswer(304).field("ETag", tag)));
    PoolRun run(2);
    fetch(run, server.url(QStringLiteral("/file")), {});
    QCOMPARE(run.result(name), 4);
    QVERIFY(!run.outcome(name).m_bNotModified);
    QVERIFY(run.outcome(name).m_validators.isEmpty());
    QCOMPARE(run.content(name), QByteArray("present"));
    QCOMPARE(server.requestCount(), 1);
}

void TestTransferPoolConditional::conditionSurvives_data()
{
    QTest::addColumn<FaultServer::Handler>("first");

    const HttpAnswer half =
        HttpAnswer(200).field("Content-Length", "8").field("ETag", newTag).bareBody("half");
    QTest::newRow("a retry") << answering(HttpAnswer(503).body("later"));
    QTest::newRow("a reset") << FaultServer::Handler(
        [](HttpExchange& exchange) { exchange.reset(); });
    QTest::newRow("a redirect") << answering(redirectTo("/there"));
    QTest::newRow("half of another version, which the server withdraws")
        << answeringAndClosing(half);
}

void TestTransferPoolConditional::conditionSurvives()
{
    QFETCH(FaultServer::Handler, first);

    FaultServer server(inTurn({first, serving({tag, {}}, "new")}));
    PoolRun run(2);
    fetch(run, server.url(QStringLiteral("/file")), {tag, {}});
    QCOMPARE(run.result(name), 0);
    QVERIFY(run.outcome(name).m_bNotModified);
    QCOMPARE(run.outcome(name).m_validators.m_etag, tag);
    QCOMPARE(run.content(name), QByteArray("present"));
    QCOMPARE(run.files(), QStringList{name});
    QCOMPARE(server.requestCount(), 2);
}

void TestTransferPoolConditional::connectionIsReusedAfterNotModified()
{
    FaultServer server(serving({tag, date}, "new"));
    PoolRun run(1);
    for (int i = 0; i < 3; ++i) {
        fetch(run, server.url(QStringLiteral("/file")), {tag, {}});
        QVERIFY(run.outcome(name).m_bNotModified);
        fetch(run, server.url(QStringLiteral("/file")), {});
        QVERIFY(!run.outcome(name).m_bNotModified);
    }
    QCOMPARE(server.connectionCount(), 1);
}

void TestTransferPoolConditional::eachHasItsOwnCondition()
{
    FaultServer server(serving({tag, {}}, "new"));
    PoolRun run(3);
    const QStringList names = numbered(QStringLiteral("f"), 9);
    for (int i = 0; i < names.size(); ++i) {
        CatalogueFiles::write(run.path(names.at(i)), "present");
        TransferPool::Job job = run.job(server.url(QStringLiteral("/file")), names.at(i));
        if (i % 3 != 0)
            job.known = {i % 3 == 1 ? tag : newTag, {}};
        run.pool().start(job);
    }
    QVERIFY(run.finish());
    for (int i = 0; i < names.size(); ++i) {
        QCOMPARE(run.result(names.at(i)), 0);
        QCOMPARE(run.outcome(names.at(i)).m_bNotModified, i % 3 == 1);
        QCOMPARE(run.content(names.at(i)), QByteArray(i % 3 == 1 ? "present" : "new"));
    }
}

/// An answer with the rest of a file may leave out the date that its beginning had.
void TestTransferPoolConditional::resumedFileKeepsItsVersion()
{
    const QByteArray range = "bytes 4-7/8";
    FaultServer server(
        inTurn({answeringAndClosing(HttpAnswer(200)
                                        .field("Last-Modified", date)
                                        .field("Content-Length", "8")
                                        .bareBody("half")),
                answering(HttpAnswer(206).field("Content-Range", range).body("rest"))}));
    PoolRun run(2);
    fetch(run, server.url(QStringLiteral("/file")), {});
    QCOMPARE(run.content(name), QByteArray("halfrest"));
    QCOMPARE(run.outcome(name).m_validators.m_lastModified, date);
    QVERIFY(run.outcome(name).m_validators.m_etag.isEmpty());
}

MV_TEST_MAIN(TestTransferPoolConditional)

} // namespace tst_TransferPool_conditional

#include "tst_TransferPool_conditional.moc"
