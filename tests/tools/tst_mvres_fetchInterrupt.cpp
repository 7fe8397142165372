// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "Routes.h"
#include "SmallCatalogue.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tst_mvres_fetchInterrupt {

namespace {

constexpr int longestMs = 20000;
// Far below the time limit of a stalled transfer.
constexpr int promptMs = 10000;

/// A named pipe that is full and that nobody reads: a program that writes to it waits.
class FullPipe
{
public:
    FullPipe()
    {
        const QByteArray name = QFile::encodeName(path());
        if (::mkfifo(name.constData(), S_IRUSR | S_IWUSR) != 0)
            return;
        m_descriptor = ::open(name.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        const char byte = '.';
        while (::write(m_descriptor, &byte, 1) == 1) { }
        m_full = errno == EAGAIN;
    }
    ~FullPipe()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Q_DISABLE_COPY_MOVE(FullPipe)

    bool isFull() const { return m_full; }
    QString path() const { return m_folder.filePath(text("out")); }

private:
    QTemporaryDir m_folder;
    int m_descriptor = -1;
    bool m_full = false;
};

/// Returns whether @p process handles SIGINT itself, by its mask of caught signals.
bool catchesInterrupts(const QProcess& process)
{
    QFile status(text("/proc/%1/status").arg(process.processId()));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QByteArray all = status.readAll();
    const QByteArray key("SigCgt:");
    const QByteArray mask = all.mid(all.indexOf(key) + key.size(), 17).trimmed();
    return (mask.toULongLong(nullptr, 16) & (1ULL << (SIGINT - 1))) != 0;
}

} // namespace

/// Tests interrupting mvres fetch while a transfer stalls.
class TestMvresFetchInterrupt : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void endsAtOnceAndTidily_data();
    void endsAtOnceAndTidily();
    void itemsBehindAreNotTried();
    void endsInTheSimulatedPhase();
    void secondInterruptEndsTheProcess();
    void goesOnTheNextTime();

private:
    void start(QProcess& process, const QStringList& guids, const QStringList& options = {}) const;
    bool stalls() const;
    static QString configStalls() { return CatalogueFiles::guid(1); }
    static QString archiveStalls() { return CatalogueFiles::guid(2); }
    static QString filter() { return CatalogueFiles::guid(3); }

    Mvres m_mvres;
    std::unique_ptr<FaultServer> m_server;
};

void TestMvresFetchInterrupt::init()
{
    m_mvres = Mvres();
    SmallCatalogue catalogue;
    catalogue.addTheme(1, text("Config"), text("/Themes/stalls.xml"));
    catalogue.addTheme(2, text("Archive"), text("/Themes/two.xml"),
                       {text("/Themes/two.zip"), text("/Themes/stalls.zip")});
    catalogue.addFilter(3, text("Filter"), QString(), {text("/VideoFilters/three.zip")});
    catalogue.writeTo(m_mvres.installed());
    m_server = std::make_unique<FaultServer>(Routes::by({
        {"/config/Themes/stalls.xml", Routes::stall()},
        {"/config/Themes/two.xml", Routes::body(SmallCatalogue::themeConfig({}))},
        {"/config/Themes/two.zip", Routes::archive()},
        {"/config/Themes/stalls.zip", Routes::stall()},
        {"/config/VideoFilters/three.zip", Routes::archive()},
    }));
    m_mvres.setServer(m_server->url(text("/")));
}

void TestMvresFetchInterrupt::start(QProcess& process, const QStringList& guids,
                                    const QStringList& options) const
{
    m_mvres.start(process, QStringList{text("fetch")} + guids + options);
}

/// Returns whether the stalling file has been requested and the files beside it are complete.
bool TestMvresFetchInterrupt::stalls() const
{
    if (m_server->requestCount("/config/Themes/stalls.xml") > 0)
        return true;
    return m_server->requestCount("/config/Themes/stalls.zip") > 0
        && !m_mvres.downloaded().filter(text("two.zip")).isEmpty();
}

void TestMvresFetchInterrupt::endsAtOnceAndTidily_data()
{
    QTest::addColumn<QString>("guid");
    QTest::addColumn<int>("signal");
    QTest::addColumn<QStringList>("left");
    const QStringList complete{text("Themes/config/PQD/Download/Themes/two.xml"),
                               text("Themes/config/PQD/Download/Themes/two.zip")};
    QTest::newRow("SIGINT in a config file") << configStalls() << SIGINT << QStringList();
    QTest::newRow("SIGTERM in a config file") << configStalls() << SIGTERM << QStringList();
    QTest::newRow("SIGINT in a resource") << archiveStalls() << SIGINT << complete;
    QTest::newRow("SIGTERM in a resource") << archiveStalls() << SIGTERM << complete;
}

void TestMvresFetchInterrupt::endsAtOnceAndTidily()
{
    QFETCH(QString, guid);
    QFETCH(int, signal);
    QFETCH(QStringList, left);

    QProcess process;
    start(process, {guid});
    QTRY_VERIFY_WITH_TIMEOUT(stalls(), longestMs);
    QElapsedTimer timer;
    timer.start();
    ConsoleProgram::signal(process, signal);
    const Outcome outcome = ConsoleProgram::end(process);
    QVERIFY(timer.elapsed() < promptMs);

    QCOMPARE(outcome.status, 14);
    QVERIFY2(outcome.err.startsWith("mvres: " + guid.toUtf8() + ": cancelled\nmvres: missing: "),
             outcome.err.constData());
    QVERIFY2(outcome.lines().constLast().contains(text(": cancelled, ")), outcome.out.constData());
    QCOMPARE(m_mvres.downloaded(), left);
}

void TestMvresFetchInterrupt::itemsBehindAreNotTried()
{
    QProcess process;
    start(process, {configStalls(), archiveStalls()}, {text("--json")});
    QTRY_VERIFY_WITH_TIMEOUT(stalls(), longestMs);
    ConsoleProgram::signal(process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.status, 14);
    const QJsonArray items = QJsonDocument::fromJson(outcome.out).array();
    QCOMPARE(items.size(), 1);
    QCOMPARE(items.at(0)[text("result")].toString(), text("cancelled"));
    QCOMPARE(items.at(0)[text("resultText")].toString(), text("cancelled"));
    QCOMPARE(m_server->requestCount("/config/Themes/two.xml"), 0);
}

/// Items other than themes begin with a phase without transfers.
void TestMvresFetchInterrupt::endsInTheSimulatedPhase()
{
    m_mvres.set("network/downloadStepMs", text("500")); // without a pace, it takes no time
    QProcess process;
    start(process, {filter()});
    QVERIFY(process.waitForReadyRead(longestMs));
    QVERIFY(process.readAllStandardOutput().startsWith("Filter:   "));
    ConsoleProgram::signal(process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.status, 14);
    QCOMPARE(m_server->requestCount(), 0);
}

/// A second interrupt ends the process immediately. The first cannot end it here: nobody reads its
/// output, so it waits where it would tell what it does.
void TestMvresFetchInterrupt::secondInterruptEndsTheProcess()
{
    const FullPipe pipe;
    QVERIFY(pipe.isFull());
    QProcess process;
    process.setStandardOutputFile(pipe.path());
    start(process, {filter()});
    QVERIFY(process.waitForStarted(longestMs));
    QTRY_VERIFY_WITH_TIMEOUT(catchesInterrupts(process), longestMs);
    ConsoleProgram::signal(process, SIGINT);
    QTRY_VERIFY_WITH_TIMEOUT(!catchesInterrupts(process), longestMs);
    QCOMPARE(process.state(), QProcess::Running);
    ConsoleProgram::signal(process, SIGINT);
    QVERIFY(process.waitForFinished(longestMs));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), SIGINT);
}

void TestMvresFetchInterrupt::goesOnTheNextTime()
{
    QProcess process;
    start(process, {archiveStalls()});
    QTRY_VERIFY_WITH_TIMEOUT(stalls(), longestMs);
    ConsoleProgram::signal(process, SIGINT);
    QCOMPARE(ConsoleProgram::end(process).status, 14);

    FaultServer repaired(Routes::by({{"/config/Themes/stalls.zip", Routes::archive()}}));
    const Outcome outcome =
        m_mvres.run({text("fetch"), archiveStalls(), text("--server"), repaired.url(QString())});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(repaired.requestCount(), 1);
    QCOMPARE(CatalogueFiles::read(m_mvres.downloadedFile(text("/Themes/stalls.zip"))),
             Routes::archiveBytes());
}

MV_TEST_MAIN(TestMvresFetchInterrupt)

} // namespace tst_mvres_fetchInterrupt

#include "tst_mvres_fetchInterrupt.moc"
