// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "Mvpublish.h"
#include "ReleaseFaults.h"
#include "server/TreeServer.h"
#include "support/CatalogueFiles.h"
#include "support/FaultServer.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QUrl>

#include <csignal>
#include <memory>

namespace tst_mvpublish_verifyServer {

namespace {

constexpr int longestMs = 20000;

} // namespace

/// Tests mvpublish verify with a server.
class TestMvpublishVerifyServer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void soundServerIsClean_data();
    void soundServerIsClean();
    void findsWhatDoesNotFit_data();
    void findsWhatDoesNotFit();
    void answerWithoutTheFileIsAFinding_data();
    void answerWithoutTheFileIsAFinding();
    void largeFileIsNotFetchedToItsEnd();
    void serverThatCannotBeReachedIsAFailure();
    void lostConnectionIsAFailure();
    void interruptEndsWhatIsStalled();

private:
    /// Serves the tree, except for the files for which `handler` is to answer.
    std::unique_ptr<FaultServer> serveBut(const QString& name,
                                          const FaultServer::Handler& handler) const;
    static Outcome verify(const QString& address)
    {
        return Mvpublish::run(
            {text("verify"), address, text("--key"), ReleaseFaults::key() + text(".pub")});
    }

    const QString m_song = text("config/ThemesBgm/Slow Song.mp3");
    std::unique_ptr<ReleasedTree> m_tree;
};

void TestMvpublishVerifyServer::initTestCase()
{
    QCOMPARE(ReleaseFaults::makeKey(), QString());
}

void TestMvpublishVerifyServer::init()
{
    qputenv("TMPDIR", QFile::encodeName(home("tmp")));
    QDir().mkpath(home("tmp"));
    m_tree = std::make_unique<ReleasedTree>(home("tree"));
    QCOMPARE(ReleaseFaults::makeSigned(*m_tree), QString());
}

std::unique_ptr<FaultServer> TestMvpublishVerifyServer::serveBut(
    const QString& name, const FaultServer::Handler& handler) const
{
    return std::make_unique<FaultServer>([this, name, handler](HttpExchange& exchange) {
        const QString asked = QUrl::fromPercentEncoding(exchange.request().target).mid(1);
        if (asked == name)
            handler(exchange);
        else if (QFile::exists(m_tree->file(asked)))
            exchange.answer(HttpAnswer(200).body(m_tree->read(asked)));
        else
            exchange.answer(HttpAnswer(404).body("no such file"));
    });
}

void TestMvpublishVerifyServer::soundServerIsClean_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("root with a slash") << text("/");
    QTest::newRow("root without one") << QString();
}

void TestMvpublishVerifyServer::soundServerIsClean()
{
    QFETCH(QString, suffix);
    TreeServer server;
    QVERIFY2(server.start(m_tree->folder()), qPrintable(server.errorText()));
    const Outcome outcome = verify(server.url().chopped(1) + suffix);
    QCOMPARE(outcome.err, QByteArray());
    QVERIFY2(outcome.out.contains("signed by key "), outcome.out.constData());
    QCOMPARE(outcome.lines().constLast(), text("clean"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(QDir(home("tmp")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestMvpublishVerifyServer::findsWhatDoesNotFit_data()
{
    ReleaseFaults::columns();
    ReleaseFaults::rows();
}

void TestMvpublishVerifyServer::findsWhatDoesNotFit()
{
    QFETCH(ReleaseChange, change);
    QFETCH(QStringList, expected);
    change(*m_tree);
    TreeServer server;
    QVERIFY2(server.start(m_tree->folder()), qPrintable(server.errorText()));
    const Outcome outcome = Mvpublish::run({text("verify"), server.url()});
    QCOMPARE(ReleaseFaults::findings(outcome.out), expected);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err, QByteArray());
}

void TestMvpublishVerifyServer::answerWithoutTheFileIsAFinding_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("not there") << 404 << QByteArray("is missing [release-file]");
    QTest::newRow("gone") << 410 << QByteArray("is missing [release-file]");
    QTest::newRow("forbidden") << 403 << QByteArray("cannot be fetched: ");
}

void TestMvpublishVerifyServer::answerWithoutTheFileIsAFinding()
{
    QFETCH(int, status);
    QFETCH(QByteArray, reason);
    const auto server = serveBut(m_song, [status](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(status).body("no"));
    });
    const Outcome outcome = verify(server->url(text("/")));
    QVERIFY2(outcome.out.contains(m_song.toUtf8() + ": " + reason), outcome.out.constData());
    QCOMPARE(ReleaseFaults::findings(outcome.out), QStringList{text("release-file ") + m_song});
    QCOMPARE(outcome.status, 1);
}

void TestMvpublishVerifyServer::largeFileIsNotFetchedToItsEnd()
{
    for (const QString& name : {m_song, ReleasePaths::release()}) {
        // Its end never comes.
        const auto server = serveBut(name, [](HttpExchange& exchange) {
            exchange.answer(HttpAnswer(200)
                                .field("Content-Length", "1000000000000")
                                .bareBody(QByteArray(1 << 16, 'x')));
            exchange.stall();
        });
        const Outcome outcome = verify(server->url(text("/")));
        QVERIFY2(outcome.out.contains(name.toUtf8() + ": has more than "), outcome.out.constData());
        QCOMPARE(outcome.status, 1);
    }
}

/// Says nothing about the tree.
void TestMvpublishVerifyServer::serverThatCannotBeReachedIsAFailure()
{
    const Outcome outcome = verify(text("http://127.0.0.1:%1/").arg(FaultServer::refusingPort()));
    QVERIFY2(outcome.err.contains("ResourceConfig/release.json"), outcome.err.constData());
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishVerifyServer::lostConnectionIsAFailure()
{
    const auto server = serveBut(m_song, [](HttpExchange& exchange) { exchange.reset(); });
    const Outcome outcome = verify(server->url(text("/")));
    QVERIFY2(outcome.err.contains("Slow Song.mp3: "), outcome.err.constData());
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishVerifyServer::interruptEndsWhatIsStalled()
{
    const auto server = serveBut(m_song, [](HttpExchange& exchange) { exchange.stall(); });
    QProcess process;
    process.start(Mvpublish::program(), {text("verify"), server->url(text("/"))});
    QTRY_VERIFY_WITH_TIMEOUT(server->requestCount("/config/ThemesBgm/Slow%20Song.mp3") > 0,
                             longestMs);
    ConsoleProgram::signal(process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray("mvpublish: interrupted\n"));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(QDir(home("tmp")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

MV_TEST_MAIN(TestMvpublishVerifyServer)

} // namespace tst_mvpublish_verifyServer

#include "tst_mvpublish_verifyServer.moc"
