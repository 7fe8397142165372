// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"
#include "NamedParts.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QProcess>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

using namespace std::chrono_literals;

namespace {

using Handler = FaultServer::Handler;

/// With this argument the program is the child, which downloads an address into a file.
const char* const childArgument = "--download";

bool isPart(const QString& name)
{
    return name.startsWith(QLatin1String(".mv-")) && name.endsWith(QLatin1String(".part"));
}

/// Sends the first half of a file and never the rest.
void sendHalf(HttpExchange& exchange)
{
    exchange.answer(HttpAnswer(200).field("Content-Length", "2000").bareBody(pattern(1000)));
    exchange.stall();
}

/// A separate process that is downloading into a folder, where its file has a temporary name.
class Child
{
public:
    Child(const QString& url, const Download& into)
        : m_folder(into.folder())
    {
        m_process.setProcessEnvironment(withNamedParts());
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QString::fromLatin1(childArgument), url, into.target()});
    }
    ~Child() { kill(); }
    Q_DISABLE_COPY_MOVE(Child)

    /// Waits until the child has the first half; returns the name of its part file.
    QString part() const
    {
        const auto halfThere = [&] {
            const QStringList parts =
                CatalogueFiles::filesBelow(m_folder).filter(QStringLiteral(".part"));
            return !parts.isEmpty()
                && QFile(m_folder + QLatin1Char('/') + parts.last()).size() == 1000;
        };
        if (!QTest::qWaitFor(halfThere, 20000))
            return QString();
        return CatalogueFiles::filesBelow(m_folder).filter(QStringLiteral(".part")).last();
    }

    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QString m_folder;
    QProcess m_process;
};

/// With this argument the child has no standard input, so that the file gets its number.
const char* const withoutInputArgument = "--download-without-input";
/// With this one it closes its standard input when everything has come.
const char* const closingInputArgument = "--download-closing-input";

void closeInput()
{
#ifdef Q_OS_WIN
    ::_close(0);
#else
    ::close(STDIN_FILENO);
#endif
}

bool closeInputAtTheEnd(qint64 received, qint64 total, void*)
{
    if (received > 0 && received == total)
        closeInput();
    return true;
}

bool isChild(const char* argument)
{
    return qstrcmp(argument, childArgument) == 0 || qstrcmp(argument, withoutInputArgument) == 0
        || qstrcmp(argument, closingInputArgument) == 0;
}

int downloadAsChild(const char* argument, const char* url, const char* file)
{
    CurWrapper wrapper; // holds files of its own, so it comes first
    if (qstrcmp(argument, withoutInputArgument) == 0)
        closeInput();
    if (qstrcmp(argument, closingInputArgument) == 0)
        wrapper.setDownloadProgressCallback(&closeInputAtTheEnd, nullptr);
    wrapper.download(QString::fromLocal8Bit(url), QString::fromLocal8Bit(file), false);
    return wrapper.result();
}

} // namespace

/// Tests that a download leaves the whole file or nothing in the target's folder.
class TestCurWrapperLeftovers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { hostSettings() = m_settings; }

    void failureLeavesNothing_data();
    void failureLeavesNothing();
    void failureKeepsAnOlderFile_data();
    void failureKeepsAnOlderFile();
    void targetAppearsWholeAtTheEnd();
    void killLeavesNoTarget();
    void nextDownloadRemovesWhatAKillLeft_data();
    void nextDownloadRemovesWhatAKillLeft();
    void nextDownloadRemovesWhatManyKillsLeft();
    void livingDownloadIsLeftAlone();
    void downloadInTheSameProcessIsLeftAlone();
    void otherFilesAreLeftAlone();
    void worksWithoutStandardInput_data();
    void worksWithoutStandardInput();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperLeftovers::init()
{
    hostSettings().retryPauseMs = 10;
}

void TestCurWrapperLeftovers::failureLeavesNothing_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("result");

    const QByteArray half = pattern(1000);
    const HttpAnswer shortBody =
        HttpAnswer(200).field("Content-Length", "2000").field("ETag", "\"1\"").bareBody(half);
    const HttpAnswer chunks = HttpAnswer(200).field("Transfer-Encoding", "chunked");
    QTest::newRow("not found") << answering(HttpAnswer(404).body("none")) << 4;
    QTest::newRow("unavailable") << answering(HttpAnswer(503).body("later")) << 4;
    QTest::newRow("redirect elsewhere") << answering(redirectTo("ftp://127.0.0.1/")) << 1;
    QTest::newRow("loop") << answering(redirectTo("/file")) << 1;
    QTest::newRow("short body") << answeringAndClosing(shortBody) << 3;
    QTest::newRow("short body, then not found")
        << inTurn({answeringAndClosing(shortBody), answering(HttpAnswer(404).body("none"))}) << 4;
    QTest::newRow("cut chunks") << answeringAndClosing(
        HttpAnswer(chunks).bareBody(HttpAnswer::chunk(half)))
                                << 3;
    QTest::newRow("no length") << answeringAndClosing(HttpAnswer(200).bareBody(half)) << 3;
    QTest::newRow("reset") << Handler([shortBody](HttpExchange& exchange) {
        exchange.answer(shortBody);
        exchange.reset();
    }) << 3;
    QTest::newRow("stall") << Handler(sendHalf) << 3;
    QTest::newRow("too large") << answering(HttpAnswer(200).body(pattern(6000))) << 6;
    QTest::newRow("too large in chunks") << answering(HttpAnswer(chunks).bareBody(
        HttpAnswer::chunk(half + half + half) + HttpAnswer::chunk(half + half + half)))
                                         << 6;
    QTest::newRow("cancelled") << answering(HttpAnswer(200).body("cancel")) << 5;
}

void TestCurWrapperLeftovers::failureLeavesNothing()
{
    QFETCH(Handler, handler);
    QFETCH(int, result);

    hostSettings().maxDownloadBytes = 5000;
    hostSettings().stallTimeoutMs = 200;
    FaultServer server(handler);
    Download download;
    ProgressWatch watch(download.wrapper(),
                        [](const ProgressWatch::Call& call) { return call.total != 6; });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), result);
    QCOMPARE(download.files(), QStringList());
}

void TestCurWrapperLeftovers::failureKeepsAnOlderFile_data()
{
    failureLeavesNothing_data();
}

void TestCurWrapperLeftovers::failureKeepsAnOlderFile()
{
    QFETCH(Handler, handler);
    QFETCH(int, result);

    hostSettings().maxDownloadBytes = 5000;
    hostSettings().stallTimeoutMs = 200;
    FaultServer server(handler);
    Download download;
    ProgressWatch watch(download.wrapper(),
                        [](const ProgressWatch::Call& call) { return call.total != 6; });
    const QByteArray older = pattern(700, 5);
    CatalogueFiles::write(download.target(), older);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), result);
    QCOMPARE(download.files(), QStringList{QStringLiteral("file.bin")});
    QCOMPARE(download.content(), older);
}

void TestCurWrapperLeftovers::targetAppearsWholeAtTheEnd()
{
    FaultServer server(answering(HttpAnswer(200).body(pattern(500000))));
    Download download;
    bool targetSeen = false;
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call&) {
        targetSeen = targetSeen || QFile::exists(download.target());
        return true;
    });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QVERIFY(!targetSeen);
    QCOMPARE(download.content(), pattern(500000));
}

void TestCurWrapperLeftovers::killLeavesNoTarget()
{
    FaultServer server(sendHalf);
    Download download;
    Child child(server.url(QStringLiteral("/file")), download);
    const QString part = child.part();
    QVERIFY(isPart(part));
    child.kill();
    QCOMPARE(download.files(), QStringList{part});
}

void TestCurWrapperLeftovers::nextDownloadRemovesWhatAKillLeft_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("files");
    QTest::newRow("that succeeds") << 200 << QStringList{QStringLiteral("other.bin")};
    QTest::newRow("that fails") << 404 << QStringList();
}

void TestCurWrapperLeftovers::nextDownloadRemovesWhatAKillLeft()
{
    QFETCH(int, status);
    QFETCH(QStringList, files);

    FaultServer halves(sendHalf);
    FaultServer server(answering(HttpAnswer(status).body("the file")));
    Download download;
    Child child(halves.url(QStringLiteral("/file")), download);
    QVERIFY(isPart(child.part()));
    child.kill();

    // Remains are recognised by folder, not by name.
    const QString other = download.folder() + QStringLiteral("/other.bin");
    download.wrapper().download(server.url(QStringLiteral("/file")), other, false);
    QCOMPARE(download.files(), files);
}

void TestCurWrapperLeftovers::nextDownloadRemovesWhatManyKillsLeft()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    for (int i = 0; i < 20; ++i) {
        CatalogueFiles::write(download.folder()
                                  + QStringLiteral("/.mv-%1.part").arg(i, 16, 16, QLatin1Char('0')),
                              pattern(i));
    }
    download.wrapper().download(server.url(QStringLiteral("/file")), download.target(), false);
    QCOMPARE(download.files(), QStringList{QStringLiteral("file.bin")});
}

void TestCurWrapperLeftovers::livingDownloadIsLeftAlone()
{
    std::atomic<bool> goOn{false};
    FaultServer slow([&](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Content-Length", "2000").bareBody(pattern(1000)));
        for (int i = 0; !goOn && i < 3000; ++i)
            exchange.pause(10ms);
        exchange.send(pattern(2000).mid(1000));
    });
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    Child child(slow.url(QStringLiteral("/file")), download);
    const QString part = child.part();

    const QString other = download.folder() + QStringLiteral("/other.bin");
    download.wrapper().download(server.url(QStringLiteral("/file")), other, false);
    goOn = true;
    QVERIFY(isPart(part));
    QCOMPARE(download.wrapper().result(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(
        download.files(), (QStringList{QStringLiteral("file.bin"), QStringLiteral("other.bin")}),
        20000);
    QCOMPARE(download.content(), pattern(2000));
}

void TestCurWrapperLeftovers::downloadInTheSameProcessIsLeftAlone()
{
    FaultServer server(answering(HttpAnswer(200).body(pattern(1000))));
    Download download;
    QVector<int> inner;
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call&) {
        CurWrapper second;
        second.download(server.url(QStringLiteral("/file")),
                        download.folder() + QStringLiteral("/other.bin"), false);
        inner.append(second.result());
        return true;
    });
    download.wrapper().download(server.url(QStringLiteral("/file")), download.target(), false);
    QCOMPARE(download.wrapper().result(), 0);
    QCOMPARE(inner, QVector<int>(inner.size(), 0));
    QVERIFY(inner.size() >= 2);
    QCOMPARE(download.files(),
             (QStringList{QStringLiteral("file.bin"), QStringLiteral("other.bin")}));
    QCOMPARE(download.content(), pattern(1000));
}

void TestCurWrapperLeftovers::otherFilesAreLeftAlone()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    const QStringList names = {
        QStringLiteral(".hidden"),           QStringLiteral(".mv-1.part.old"),
        QStringLiteral("deeper/.mv-1.part"), QStringLiteral("file.part"),
        QStringLiteral("mv-1.part"),
    };
    for (const QString& name : names)
        CatalogueFiles::write(download.folder() + QLatin1Char('/') + name, "precious");
    const QString link = download.folder() + QStringLiteral("/.mv-link.part");
    if (UnusualFiles::hasFileLinks)
        MV_LINK(download.folder() + QStringLiteral("/file.part"), link);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    for (const QString& name : names)
        QCOMPARE(CatalogueFiles::read(download.folder() + QLatin1Char('/') + name),
                 QByteArray("precious"));
}

void TestCurWrapperLeftovers::worksWithoutStandardInput_data()
{
    QTest::addColumn<QByteArray>("argument");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("result");
    for (const char* argument : {withoutInputArgument, closingInputArgument}) {
        QTest::addRow("%s, whole file", argument) << QByteArray(argument) << 200 << 0;
        QTest::addRow("%s, not found", argument) << QByteArray(argument) << 404 << 4;
    }
}

/// The number 0 of an open file is one like any other.
void TestCurWrapperLeftovers::worksWithoutStandardInput()
{
    QFETCH(QByteArray, argument);
    QFETCH(int, status);
    QFETCH(int, result);

    FaultServer server(answering(HttpAnswer(status).body("the file")));
    Download download;
    CatalogueFiles::write(download.folder() + QStringLiteral("/.mv-0123456789abcdef.part"), "left");
    QProcess child;
    child.start(
        QCoreApplication::applicationFilePath(),
        {QString::fromLatin1(argument), server.url(QStringLiteral("/file")), download.target()});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitCode(), result);
    QCOMPARE(download.files(),
             result == 0 ? QStringList{QStringLiteral("file.bin")} : QStringList());
    QCOMPARE(download.content(), result == 0 ? QByteArray("the file") : QByteArray());
}

int main(int argc, char** argv)
{
    if (argc == 4 && isChild(argv[1]))
        return downloadAsChild(argv[1], argv[2], argv[3]);
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    TestCurWrapperLeftovers test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CurWrapper_leftovers.moc"
