// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ConsoleProgram.h"
#include "RawClient.h"
#include "server/OpenFiles.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <csignal>
#include <memory>
#include <vector>

namespace tst_mvserve {

namespace {

using Clients = std::vector<std::unique_ptr<RawClient>>;

constexpr int longestMs = 20000;

} // namespace

/// Tests mvserve.
class TestMvserve : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void servesFiles_data();
    void servesFiles();
    void answers404();
    void servesNothingOutside_data();
    void servesNothingOutside();
    void listensOnLoopbackOnly();
    void printsRequests();
    void printsNothingForged_data();
    void printsNothingForged();
    void quietPrintsOneLine();
    void takesThePortItIsTold();
    void busyPortIsAFailure();
    void servesBesideManyQuietClients();
    void servesWithFewOpenFiles();
    void endsOnASignal_data();
    void endsOnASignal();
    void failsForAnythingButAFolder_data();
    void failsForAnythingButAFolder();
    void refuses_data();
    void refuses();
    void helpNamesTheArguments();

private:
    void start(const QStringList& options = {});
    void startWithOpenFiles(const char* limit);
    void startProgram(const QString& program, const QStringList& arguments);
    void connectClients(Clients& clients, int count, const QByteArray& bytes) const;
    QByteArray get(const QByteArray& target) const { return RawClient(m_port).get(target); }

    QString m_tree;
    std::unique_ptr<QProcess> m_process;
    quint16 m_port = 0;
    QByteArray m_firstLine;
};

void TestMvserve::initTestCase()
{
    m_tree = TestHome::path() + text("/base/tree");
    CatalogueFiles::write(m_tree + text("/a.txt"), "content of a");
    CatalogueFiles::write(m_tree + text("/folder/{B} c.xml"), "content of b");
    CatalogueFiles::write(m_tree + text("/folder/theme.zip"), "archive");
    CatalogueFiles::write(TestHome::path() + text("/base/secret.txt"), "secret");
    CatalogueFiles::write(TestHome::path() + text("/base/tree2/secret.txt"), "secret");
}

void TestMvserve::init()
{
    m_process = std::make_unique<QProcess>();
    m_port = 0;
}

void TestMvserve::cleanup()
{
    if (m_process->state() == QProcess::NotRunning)
        return;
    ConsoleProgram::signal(*m_process, SIGTERM);
    ConsoleProgram::end(*m_process);
}

/// Starts the server on the tree and reads its port from the line that it prints.
void TestMvserve::start(const QStringList& options)
{
    startProgram(text(MVSERVE_PROGRAM), QStringList{m_tree} + options);
}

/// Starts the server under a limit of open files, given as options of the shell's ulimit.
void TestMvserve::startWithOpenFiles(const char* limit)
{
    const QString command = text("ulimit %1 && exec \"$@\"").arg(text(limit));
    startProgram(text("sh"), {text("-c"), command, text("sh"), text(MVSERVE_PROGRAM), m_tree});
}

void TestMvserve::startProgram(const QString& program, const QStringList& arguments)
{
    m_process->start(program, arguments);
    QTRY_VERIFY_WITH_TIMEOUT(m_process->canReadLine(), longestMs);
    m_firstLine = m_process->readLine().replace("\r\n", "\n");
    const QRegularExpression form(text("^serving (.*) at http://127\\.0\\.0\\.1:(\\d+)/\n$"));
    const QRegularExpressionMatch match = form.match(QString::fromUtf8(m_firstLine));
    QVERIFY2(match.hasMatch(), m_firstLine.constData());
    QCOMPARE(match.captured(1), m_tree);
    m_port = match.captured(2).toUShort();
    QVERIFY(m_port != 0);
}

/// Adds clients that send some bytes and stay connected.
void TestMvserve::connectClients(Clients& clients, int count, const QByteArray& bytes) const
{
    for (int i = 0; i < count; ++i) {
        clients.push_back(std::make_unique<RawClient>(m_port));
        QVERIFY(clients.back()->isConnected() && clients.back()->send(bytes));
    }
}

void TestMvserve::servesFiles_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("file") << QByteArray("/a.txt") << QByteArray("content of a");
    QTest::newRow("doubled slash") << QByteArray("//a.txt") << QByteArray("content of a");
    QTest::newRow("doubled slash within")
        << QByteArray("//folder//theme.zip") << QByteArray("archive");
    QTest::newRow("encoded name") << QByteArray("/folder/%7BB%7D%20c.xml")
                                  << QByteArray("content of b");
    QTest::newRow("up and down again")
        << QByteArray("/folder/../a.txt") << QByteArray("content of a");
}

void TestMvserve::servesFiles()
{
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, body);
    start();
    const QByteArray answer = get(target);
    QCOMPARE(RawClient::status(answer), 200);
    QCOMPARE(RawClient::body(answer), body);
}

void TestMvserve::answers404()
{
    start();
    QCOMPARE(RawClient::status(get("/b.txt")), 404);
    QCOMPARE(RawClient::status(get("/folder")), 404);
}

void TestMvserve::servesNothingOutside_data()
{
    QTest::addColumn<QByteArray>("target");
    for (const char* target :
         {"/../secret.txt", "/folder/../../secret.txt", "/%2e%2e/secret.txt", "/..%2fsecret.txt",
          "/%2e%2e%2fsecret.txt", "//../secret.txt", "/./../secret.txt",
          "/folder/..//../secret.txt", "/../tree2/secret.txt", "../secret.txt", "/..\\secret.txt"})
        QTest::newRow(target) << QByteArray(target);
}

void TestMvserve::servesNothingOutside()
{
    QFETCH(QByteArray, target);
    start();
    const QByteArray answer = get(target);
    QVERIFY(RawClient::status(answer) >= 400);
    QVERIFY2(!RawClient::body(answer).contains("secret"), answer.constData());
    QCOMPARE(RawClient::status(get("/a.txt")), 200); // and keeps serving
}

void TestMvserve::listensOnLoopbackOnly()
{
    if (!QFileInfo::exists(text("/proc/net/tcp")))
        QSKIP("This system does not list sockets in a file.");
    start();
    QFile table(text("/proc/net/tcp"));
    QVERIFY(table.open(QIODevice::ReadOnly));
    const QByteArray port = QByteArray::number(m_port, 16).toUpper().rightJustified(4, '0');
    const QByteArray sockets = table.readAll();
    QVERIFY(sockets.contains(" 0100007F:" + port + " 00000000:0000 0A "));
    QVERIFY(!sockets.contains(" 00000000:" + port + " 00000000:0000 0A "));
}

void TestMvserve::printsRequests()
{
    start();
    get("/a.txt");
    get("//folder/%7BB%7D%20c.xml");
    get("/none.txt");
    ConsoleProgram::signal(*m_process, SIGTERM);
    const Outcome outcome = ConsoleProgram::end(*m_process);
    QCOMPARE(outcome.lines(),
             (QStringList{text("GET /a.txt 200"), text("GET //folder/{B} c.xml 200"),
                          text("GET /none.txt 404")}));
}

void TestMvserve::printsNothingForged_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QString>("line");
    QTest::newRow("place marker") << QByteArray("/%251") << text("GET /%1 404");
    QTest::newRow("place markers") << QByteArray("/%253/%252/%2599") << text("GET /%3/%2/%99 404");
    QTest::newRow("line break") << QByteArray("/x%20200%0D%0AGET%20/a.txt")
                                << text("GET /x 200??GET /a.txt 404");
    QTest::newRow("terminal control") << QByteArray("/%1B%5B2J%07") << text("GET /?[2J? 404");
    QTest::newRow("other line break")
        << QByteArray("/a%E2%80%A8b%C2%85c") << text("GET /a?b?c 404");
    QTest::newRow("text from right to left") << QByteArray("/a%E2%80%AEb") << text("GET /a?b 404");
}

void TestMvserve::printsNothingForged()
{
    QFETCH(QByteArray, target);
    QFETCH(QString, line);
    start();
    get(target);
    ConsoleProgram::signal(*m_process, SIGTERM);
    QCOMPARE(ConsoleProgram::end(*m_process).lines(), QStringList{line});
}

void TestMvserve::quietPrintsOneLine()
{
    start({text("--quiet")});
    QCOMPARE(RawClient::status(get("/a.txt")), 200);
    ConsoleProgram::signal(*m_process, SIGTERM);
    const Outcome outcome = ConsoleProgram::end(*m_process);
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.err, QByteArray());
}

void TestMvserve::takesThePortItIsTold()
{
    start();
    const quint16 port = m_port;
    cleanup();
    init();
    start({text("--port"), QString::number(port)});
    QCOMPARE(m_port, port);
    QCOMPARE(RawClient::status(get("/a.txt")), 200);
}

void TestMvserve::busyPortIsAFailure()
{
    start();
    const Outcome outcome = ConsoleProgram::run(text(MVSERVE_PROGRAM),
                                                {m_tree, text("--port"), QString::number(m_port)});
    QCOMPARE(outcome.err,
             "mvserve: port " + QByteArray::number(m_port) + " of 127.0.0.1 is not free\n");
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
    QCOMPARE(RawClient::status(get("/a.txt")), 200);
}

/// Others are served although none of the quiet clients is cut off, and few of these occupy a
/// thread. The default limit of open files is too low for them all: the server raises it.
void TestMvserve::servesBesideManyQuietClients()
{
    if (!ConsoleProgram::hasSignals)
        QSKIP("This system has no limit of open files.");
    constexpr int usualLimit = 1024;
    OpenFiles::raiseLimit(2 * usualLimit);
    QVERIFY(OpenFiles::limit() >= 2 * usualLimit);
    QFile big(m_tree + text("/big.zip"));
    QVERIFY(big.open(QIODevice::WriteOnly) && big.resize(32 * 1024 * 1024));
    startWithOpenFiles("-S -n 1024");

    Clients clients;
    connectClients(clients, 1000, QByteArray());
    connectClients(clients, 64, "GET /a.txt HTTP/1.1\r\nHost: ");
    connectClients(clients, 64, "GET /big.zip HTTP/1.1\r\n\r\n");
    for (int i = 0; i < 5; ++i)
        QCOMPARE(RawClient::body(get("/a.txt")), QByteArray("content of a"));
    const auto isEnded = [](const auto& client) { return client->isEnded(); };
    QVERIFY(std::none_of(clients.begin(), clients.end(), isEnded));
    QVERIFY(QDir(text("/proc/%1/task").arg(m_process->processId())).count() < 300);
}

/// If the limit of open files cannot be raised, idle connections are closed to make room.
void TestMvserve::servesWithFewOpenFiles()
{
    if (!ConsoleProgram::hasSignals)
        QSKIP("This system has no limit of open files.");
    startWithOpenFiles("-n 100");
    Clients clients;
    connectClients(clients, 200, QByteArray());
    QCOMPARE(RawClient::body(get("/a.txt")), QByteArray("content of a"));
    QVERIFY(clients.front()->isEnded());
    QVERIFY(!clients.back()->isEnded());
}

void TestMvserve::endsOnASignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void TestMvserve::endsOnASignal()
{
    QFETCH(int, signal);
    if (!ConsoleProgram::hasSignals)
        QSKIP("This system cannot interrupt a program.");
    start();
    RawClient waiting(m_port); // over a persistent connection
    QCOMPARE(RawClient::status(waiting.begin("/a.txt")), 200);
    ConsoleProgram::signal(*m_process, signal);
    const Outcome outcome = ConsoleProgram::end(*m_process);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.err, QByteArray());
    QVERIFY(!RawClient(m_port).isConnected());
}

void TestMvserve::failsForAnythingButAFolder_data()
{
    QTest::addColumn<QString>("tree");
    QTest::newRow("nothing there") << TestHome::path() + text("/none");
    QTest::newRow("a file") << m_tree + text("/a.txt");
    QTest::newRow("empty") << QString();
}

void TestMvserve::failsForAnythingButAFolder()
{
    QFETCH(QString, tree);
    const Outcome outcome = ConsoleProgram::run(text(MVSERVE_PROGRAM), {tree});
    QCOMPARE(outcome.err, "mvserve: " + tree.toUtf8() + " is not a folder\n");
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
}

void TestMvserve::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const QByteArray port = "--port takes a number from 0 to 65535";
    const QString option = text("--port");
    QTest::newRow("no folder") << QStringList() << QByteArray("name one folder to serve");
    QTest::newRow("two folders") << QStringList{m_tree, m_tree}
                                 << QByteArray("name one folder to serve");
    QTest::newRow("no number") << QStringList{m_tree, option, text("http")} << port;
    QTest::newRow("too large a number") << QStringList{m_tree, option, text("65536")} << port;
    QTest::newRow("negative number") << QStringList{m_tree, text("--port=-1")} << port;
    QTest::newRow("no value") << QStringList{m_tree, option}
                              << QByteArray("Missing value after '--port'.");
    QTest::newRow("unknown option")
        << QStringList{m_tree, text("--public")} << QByteArray("Unknown option 'public'.");
}

void TestMvserve::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const Outcome outcome = ConsoleProgram::run(text(MVSERVE_PROGRAM), arguments);
    QCOMPARE(outcome.err, "mvserve: " + message + '\n');
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 2);
}

void TestMvserve::helpNamesTheArguments()
{
    const Outcome outcome = ConsoleProgram::run(text(MVSERVE_PROGRAM), {text("--help")});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.err, QByteArray());
    for (const char* part : {"TREE", "--port <N>", "--quiet", "-h, --help"})
        QVERIFY2(outcome.out.contains(part), part);
}

MV_TEST_MAIN(TestMvserve)

} // namespace tst_mvserve

#include "tst_mvserve.moc"
