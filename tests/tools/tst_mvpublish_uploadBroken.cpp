// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DavServer.h"
#include "Mvpublish.h"
#include "ReleaseClient.h"
#include "ReleaseReader.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "TinyRelease.h"
#include "WatchedRclone.h"

#include <QDateTime>
#include <QDir>
#include <QProcess>

#include <csignal>
#include <memory>

namespace tst_mvpublish_uploadBroken {

namespace {

constexpr int longestMs = 20000;

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

} // namespace

/// Tests what clients see while mvpublish upload runs, and after one that was broken.
class TestMvpublishUploadBroken : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void clientsSeeOneReleaseWholeAtAnyMoment();
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
    ReleaseReader reader(m_server->port());
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

} // namespace tst_mvpublish_uploadBroken

#include "tst_mvpublish_uploadBroken.moc"
