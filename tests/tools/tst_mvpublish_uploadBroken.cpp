// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "console/PreparedProcess.h"
#include "DavServer.h"
#include "Mvpublish.h"
#include "ReleaseClient.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "TinyRelease.h"
#include "WatchedRclone.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>

#include <atomic>
#include <chrono>
#include <csignal>
#include <future>
#include <memory>
#include <set>
#include <thread>
#include <vector>

#include <unistd.h>

namespace {

constexpr int longestMs = 20000;

/// A client that reads the release again and again on a thread of its own.
class Reader
{
public:
    explicit Reader(quint16 port)
        : m_thread([this, port] { read(port); })
    {
    }
    ~Reader() { stop(); }
    Q_DISABLE_COPY_MOVE(Reader)

    void stop()
    {
        m_isStopped = true;
        if (m_thread.joinable())
            m_thread.join();
    }
    /// Return what it has met; after stop().
    QStringList faults() const { return m_faults; }
    const std::set<qint64>& serials() const { return m_serials; }

private:
    void read(quint16 port)
    {
        constexpr std::chrono::milliseconds pause(3); // leaves the processor to the upload
        while (!m_isStopped) {
            ReleaseClient client(port);
            const QString fault = client.read();
            if (!fault.isEmpty())
                m_faults.append(fault);
            m_serials.insert(client.serial());
            std::this_thread::sleep_for(pause);
        }
    }

    std::atomic<bool> m_isStopped{false};
    QStringList m_faults;
    std::set<qint64> m_serials;
    std::thread m_thread;
};

/// A program with a process group of its own.
class GroupProcess : public PreparedProcess
{
public:
    GroupProcess()
        : PreparedProcess([] { ::setpgid(0, 0); })
    {
    }
    void killGroup()
    {
        if (processId() > 0)
            ::kill(-static_cast<pid_t>(processId()), SIGKILL);
    }
};

/// Brings release 5 into force in a web space.
void begin(DavServer& server, const QString& folder, const QString& work)
{
    for (const QString& old : {folder, work})
        QDir(old).removeRecursively();
    const TinyRelease space(folder);
    space.write(5);
    space.record(QDateTime::currentDateTimeUtc());
    if (!server.start(folder, work))
        qFatal("%s", qPrintable(server.errorText()));
}

/// Starts an upload, and kills it if it lasts longer. Returns whether it was killed.
bool breakUpload(const QStringList& arguments, qint64 longestUploadMs)
{
    GroupProcess process;
    process.start(Mvpublish::program(), arguments);
    if (process.waitForFinished(static_cast<int>(longestUploadMs)))
        return false;
    process.killGroup();
    process.waitForFinished(longestMs);
    return true;
}

/// Breaks uploads to one of several web spaces at every so many of 20 moments. Returns what clients
/// have met that is not a whole release, and what else went wrong.
QStringList killAtMoments(int space, int spaces, qint64 durationMs)
{
    constexpr int moments = 20;
    const QString place = TestHome::path() + text("/space%1").arg(space);
    const TinyRelease tree(place + text("-tree"));
    DavServer server;
    begin(server, place, place + text("-nginx"));
    const QStringList arguments{text("upload"), tree.folder(), server.remote()};
    Reader reader(server.port());
    ReleaseClient client(server.port());
    QStringList faults;
    qint64 serial = 5;
    int broken = 0;
    for (int moment = space; moment < moments; moment += spaces) {
        if (moment / spaces % 2 == 0)
            tree.write(++serial);
        broken += breakUpload(arguments, durationMs * moment / moments) ? 1 : 0;
        faults += client.read();
        if (client.serial() < 5 || client.serial() > serial)
            faults += text("release %1 of %2").arg(client.serial()).arg(serial);
    }
    faults += QString::fromUtf8(Mvpublish::run(arguments).err);
    faults += client.read();
    if (client.serial() != serial || broken == 0)
        faults += text("%1 broken, release %2 of %3").arg(broken).arg(client.serial()).arg(serial);
    reader.stop();
    faults += reader.faults();
    faults.removeAll(QString());
    return faults;
}

} // namespace

/// Tests what clients see while mvpublish upload runs, and after one that was broken.
class TestMvpublishUploadBroken : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void clientsSeeOneReleaseWholeAtAnyMoment();
    void killedUploadsLeaveOneReleaseWhole();
    void interruptEndsRcloneAndTellsWhatIsInForce();
    void interruptWaitsForTheSwitch();
    void killEndsRclone();

private:
    QStringList arguments() const { return {text("upload"), m_tree.folder(), m_server->remote()}; }
    /// Starts an upload that stops before it sends the file of that name.
    void startUntil(QProcess& process, const WatchedRclone& rclone, const QString& name) const;

    std::unique_ptr<DavServer> m_server;
    TinyRelease m_tree{home("tree")};
};

void TestMvpublishUploadBroken::init()
{
    m_server = std::make_unique<DavServer>();
    begin(*m_server, home("space"), home("nginx"));
    m_tree.write(6);
}

void TestMvpublishUploadBroken::clientsSeeOneReleaseWholeAtAnyMoment()
{
    Reader reader(m_server->port());
    for (const qint64 serial : {6, 7}) {
        m_tree.write(serial);
        const Outcome outcome = Mvpublish::run(arguments());
        QCOMPARE(outcome.err, QByteArray());
        QCOMPARE(outcome.status, 0);
    }
    ReleaseClient client(m_server->port());
    QCOMPARE(client.read(), QString());
    QCOMPARE(client.serial(), 7);
    reader.stop();
    QCOMPARE(reader.faults(), QStringList());
    QVERIFY(reader.serials().count(5) == 1 && reader.serials().count(6) == 1);
}

/// Four web spaces at a time. Some releases are broken twice, some are overtaken by the next one,
/// and the last one is completed.
void TestMvpublishUploadBroken::killedUploadsLeaveOneReleaseWhole()
{
    constexpr int spaces = 4;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(Mvpublish::run(arguments()).err, QByteArray());
    std::vector<std::future<QStringList>> results;
    for (int space = 0; space < spaces; ++space)
        results.push_back(
            std::async(std::launch::async, &killAtMoments, space, spaces, timer.elapsed()));
    for (std::future<QStringList>& result : results)
        QCOMPARE(result.get().join(QLatin1Char('\n')), QString());
}

void TestMvpublishUploadBroken::startUntil(QProcess& process, const WatchedRclone& rclone,
                                           const QString& name) const
{
    rclone.stopAt(name);
    process.setProcessEnvironment(rclone.environment());
    process.start(Mvpublish::program(), arguments());
    QTRY_VERIFY_WITH_TIMEOUT(rclone.hasStopped(), longestMs);
}

void TestMvpublishUploadBroken::interruptEndsRcloneAndTellsWhatIsInForce()
{
    const WatchedRclone rclone(home("watched"));
    QProcess process;
    startUntil(process, rclone, text("ResourceConfig/resource_version_v3.xml"));
    ConsoleProgram::signal(process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: cancelled; release 5 of 2026-11-22T11:00:00Z is still in "
                        "force\n"));
    QCOMPARE(outcome.status, 2);
    const int commands = rclone.commands().size();
    ReleaseClient client(m_server->port());
    QCOMPARE(client.read(), QString());
    QCOMPARE(client.serial(), 5);
    QCOMPARE(rclone.commands().size(), commands);
}

/// Half a release.json would be worse than a moment's wait.
void TestMvpublishUploadBroken::interruptWaitsForTheSwitch()
{
    const WatchedRclone rclone(home("watched"));
    QProcess process;
    startUntil(process, rclone, text("ResourceConfig/release.json"));
    ConsoleProgram::signal(process, SIGINT);
    rclone.goOn();
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    ReleaseClient client(m_server->port());
    QCOMPARE(client.read(), QString());
    QCOMPARE(client.serial(), 6);
}

void TestMvpublishUploadBroken::killEndsRclone()
{
    const WatchedRclone rclone(home("watched"));
    QProcess process;
    startUntil(process, rclone, text("ResourceConfig/release.json"));
    ConsoleProgram::signal(process, SIGKILL);
    QCOMPARE(ConsoleProgram::end(process).status, -1);
    rclone.goOn();
    const Outcome outcome =
        Mvpublish::run({text("upload"), text("--dry-run"), m_tree.folder(), m_server->remote()});
    QVERIFY(outcome.out.startsWith("before: release 5 "));
}

MV_TEST_MAIN(TestMvpublishUploadBroken)
#include "tst_mvpublish_uploadBroken.moc"
