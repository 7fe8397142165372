// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "RawClient.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QRegularExpression>

#include <csignal>

namespace {

constexpr int longestMs = 20000;

} // namespace

/// Tests mvpublish serve.
class TestMvpublishServe : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void servesTheTreeAndPrintsRequests();
    void quiet();
    void busyPort();
    void noFolder();

private:
    void start(const QStringList& options = {});

    QProcess m_process;
    quint16 m_port = 0;
    QString m_tree;
};

void TestMvpublishServe::init()
{
    m_tree = TestHome::path() + text("/base/tree");
    CatalogueFiles::write(m_tree + text("/a.txt"), "content of a");
    CatalogueFiles::write(TestHome::path() + text("/base/secret.txt"), "secret");
}

void TestMvpublishServe::cleanup()
{
    ConsoleProgram::signal(m_process, SIGTERM);
    ConsoleProgram::end(m_process);
}

void TestMvpublishServe::start(const QStringList& options)
{
    m_process.start(Mvpublish::program(), QStringList{text("serve"), m_tree} + options);
    QTRY_VERIFY_WITH_TIMEOUT(m_process.canReadLine(), longestMs);
    const QString line = QString::fromUtf8(m_process.readLine().replace("\r\n", "\n"));
    const QRegularExpressionMatch match =
        QRegularExpression(text("^serving (.*) at http://127\\.0\\.0\\.1:(\\d+)/\n$")).match(line);
    QVERIFY2(match.hasMatch(), qPrintable(line));
    QCOMPARE(match.captured(1), m_tree);
    m_port = match.captured(2).toUShort();
}

void TestMvpublishServe::servesTheTreeAndPrintsRequests()
{
    start();
    QCOMPARE(RawClient::body(RawClient(m_port).get("//a.txt")), QByteArray("content of a"));
    QCOMPARE(RawClient::status(RawClient(m_port).get("/a.txt", "Range: bytes=0-1\r\n")), 206);
    QCOMPARE(RawClient::status(RawClient(m_port).get("/%2e%2e/secret.txt")), 404);
    ConsoleProgram::signal(m_process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(m_process);
    if (ConsoleProgram::hasSignals)
        QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines(),
             (QStringList{text("GET //a.txt 200"), text("GET /a.txt 206"),
                          text("GET /../secret.txt 404")}));
}

void TestMvpublishServe::quiet()
{
    start({text("--quiet")});
    QCOMPARE(RawClient::status(RawClient(m_port).get("/a.txt")), 200);
    ConsoleProgram::signal(m_process, SIGTERM);
    QCOMPARE(ConsoleProgram::end(m_process).out, QByteArray());
}

void TestMvpublishServe::busyPort()
{
    start();
    const Outcome outcome =
        Mvpublish::run({text("serve"), m_tree, text("--port"), QString::number(m_port)});
    QCOMPARE(outcome.err,
             "mvpublish: port " + QByteArray::number(m_port) + " of 127.0.0.1 is not free\n");
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishServe::noFolder()
{
    const Outcome outcome = Mvpublish::run({text("serve"), m_tree + text("/none")});
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: ") + m_tree + text("/none is not a folder\n"));
    QCOMPARE(outcome.status, 2);
}

MV_TEST_MAIN(TestMvpublishServe)
#include "tst_mvpublish_serve.moc"
