// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "console/PreparedProcess.h"
#include "DavServer.h"
#include "Mvpublish.h"
#include "RcloneServer.h"
#include "ReleaseClient.h"
#include "ReleaseReader.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "TinyRelease.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <csignal>
#include <functional>
#include <future>
#include <vector>

#include <unistd.h>

namespace tst_mvpublish_uploadKilled {

namespace {

constexpr int longestMs = 20000;

/// How many moments are tried at one kind of server.
struct Extent
{
    int moments;
    int spaces; // at a time, each with its share of the moments
};

/// Returns what is chosen by MV_FAULTS. In a sample, too, some uploads are killed twice or
/// overtaken.
Extent chosen(const Extent& every, const Extent& sample)
{
    return qgetenv("MV_FAULTS") == "every" ? every : sample;
}

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

/// One web space to which uploads are killed, each at another moment.
class Uploads
{
public:
    /// `isAtomic`: clients meet one release whole at any moment.
    Uploads(QString folder, QString remote, quint16 port, bool isAtomic)
        : m_tree(std::move(folder))
        , m_arguments{text("upload"), m_tree.folder(), std::move(remote)}
        , m_client(port)
        , m_isAtomic(isAtomic)
    {
    }

    /// Uploads the first release, which tells how long that takes.
    void begin();
    /// Breaks the upload of another release at a moment of 0 to 1.
    void breakAt(double moment);
    /// Breaks the upload of the same release again.
    void breakAgainAt(double moment);
    /// Uploads the release to the end, which clients then see whole.
    void complete();

    int brokenCount() const { return m_broken; }
    const QStringList& faults() const { return m_faults; }

private:
    void fault(const QString& text) { m_faults.append(m_place + text); }

    TinyRelease m_tree;
    QStringList m_arguments;
    ReleaseClient m_client;
    bool m_isAtomic;
    qint64 m_serial = 0;      // of the tree
    qint64 m_inForce = 0;     // of the last upload that was completed
    qint64 m_durationMs = -1; // of an upload
    int m_broken = 0;
    QString m_place; // in what follows
    QStringList m_faults;
};

void Uploads::begin()
{
    m_tree.write(++m_serial);
    QElapsedTimer timer;
    timer.start();
    complete();
    m_durationMs = timer.elapsed();
}

void Uploads::breakAt(double moment)
{
    m_tree.write(++m_serial);
    breakAgainAt(moment);
}

void Uploads::breakAgainAt(double moment)
{
    const int longestUploadMs = static_cast<int>(static_cast<double>(m_durationMs) * moment);
    m_place = text("release %1, killed after %2 ms: ").arg(m_serial).arg(longestUploadMs);
    GroupProcess process;
    process.start(Mvpublish::program(), m_arguments);
    if (!process.waitForFinished(longestUploadMs)) {
        process.killGroup();
        process.waitForFinished(longestMs);
        ++m_broken;
    }
    const QString reason = m_client.read();
    if (!m_isAtomic && (!reason.isEmpty() || m_client.serial() == 0))
        return; // clients refuse what is torn
    if (!reason.isEmpty())
        fault(reason);
    if (m_client.serial() < m_inForce || m_client.serial() > m_serial)
        fault(text("clients see release %1").arg(m_client.serial()));
}

void Uploads::complete()
{
    const Outcome outcome = Mvpublish::run(m_arguments);
    if (outcome.status != 0)
        fault(QString::fromUtf8(outcome.err));
    const QString reason = m_client.read();
    if (!reason.isEmpty() || m_client.serial() != m_serial)
        fault(text("after the next upload clients see release %1 %2")
                  .arg(m_client.serial())
                  .arg(reason));
    m_inForce = m_serial;
}

/// Kills uploads at every so many of some moments. Every third release is killed twice, and every
/// third is overtaken by the next one; then the upload is completed.
QStringList killAtMoments(Uploads& uploads, int space, const Extent& extent)
{
    const int last = extent.moments - 1;
    const auto part = [&extent](int moment) { return (moment + 0.5) / extent.moments; };
    uploads.begin();
    for (int moment = space; moment <= last && uploads.faults().isEmpty();
         moment += extent.spaces) {
        uploads.breakAt(part(moment));
        if (moment % 3 == 1)
            uploads.breakAgainAt(part(last - moment));
        else if (moment % 3 == 2)
            uploads.breakAt(part(last - moment));
        uploads.complete();
    }
    QStringList faults = uploads.faults();
    if (uploads.brokenCount() == 0)
        faults.append(text("no upload was killed"));
    return faults;
}

QStringList killAtNginx(int space, const Extent& extent)
{
    const QString place = TestHome::path() + text("/nginx%1").arg(space);
    DavServer server;
    if (!server.start(place, place + text("-work")))
        return {server.errorText()};
    Uploads uploads(place + text("-tree"), server.remote(), server.port(), true);
    ReleaseReader reader(server.port());
    QStringList faults = killAtMoments(uploads, space, extent);
    reader.stop();
    return faults + reader.faults();
}

QStringList killAtRclone(int space, const Extent& extent)
{
    const QString place = TestHome::path() + text("/rclone%1").arg(space);
    RcloneServer server;
    if (!server.start(place))
        return {server.errorText()};
    Uploads uploads(place + text("-tree"), server.remote(), server.port(), false);
    return killAtMoments(uploads, space, extent);
}

/// Returns what goes wrong in all spaces.
QString inAllSpaces(const std::function<QStringList(int space, const Extent& extent)>& work,
                    const Extent& extent)
{
    std::vector<std::future<QStringList>> results;
    for (int space = 0; space < extent.spaces; ++space)
        results.push_back(std::async(std::launch::async, work, space, extent));
    QStringList faults;
    for (std::future<QStringList>& result : results)
        faults += result.get();
    return faults.join(QLatin1Char('\n'));
}

} // namespace

/// Tests that uploads that are killed are completed by the next one.
class TestMvpublishUploadKilled : public QObject
{
    Q_OBJECT

private slots:
    void clientsSeeOneReleaseWholeAndTheNextUploadCompletesIt();
    void nextUploadCompletesItAtAServerThatTearsFiles();
    void tornFilesAreReplaced();
};

void TestMvpublishUploadKilled::clientsSeeOneReleaseWholeAndTheNextUploadCompletesIt()
{
    QCOMPARE(inAllSpaces(&killAtNginx, chosen({20, 4}, {6, 2})), QString());
}

void TestMvpublishUploadKilled::nextUploadCompletesItAtAServerThatTearsFiles()
{
    QCOMPARE(inAllSpaces(&killAtRclone, chosen({4, 4}, {3, 1})), QString());
}

/// Two archives exchange their names, so that nothing but names is sent.
void TestMvpublishUploadKilled::tornFilesAreReplaced()
{
    constexpr int bytes = 300000;
    const QString one = text("config/Motions/1.zip");
    const QString two = text("config/Motions/2.zip");
    const TinyRelease tree(home("tree"));
    const TinyRelease space(home("space"));
    RcloneServer server;
    QVERIFY2(server.start(space.folder()), qPrintable(server.errorText()));
    const QStringList arguments{text("upload"), tree.folder(), server.remote()};
    tree.write(1, {{one, QByteArray(bytes, '1')}, {two, QByteArray(bytes, '2')}});
    QCOMPARE(Mvpublish::run(arguments).err, QByteArray());

    tree.write(2, {{one, QByteArray(bytes, '2')}, {two, QByteArray(bytes, '1')}});
    GroupProcess process;
    process.start(Mvpublish::program(), arguments + QStringList{text("--"), text("--bwlimit=50k")});
    const auto isTorn = [&] { return QFileInfo(space.file(one)).size() < bytes; };
    QTRY_VERIFY_WITH_TIMEOUT(isTorn(), longestMs);
    process.killGroup();
    QVERIFY(process.waitForFinished(longestMs));
    QVERIFY(isTorn());
    ReleaseClient client(server.port());
    QCOMPARE(client.read(), QString());
    QCOMPARE(client.serial(), 1);

    QCOMPARE(Mvpublish::run(arguments).err, QByteArray());
    QCOMPARE(client.read(), QString());
    QCOMPARE(client.serial(), 2);
    for (const QString& name : {one, two})
        QCOMPARE(CatalogueFiles::read(space.file(name)), CatalogueFiles::read(tree.file(name)));
}

MV_TEST_MAIN(TestMvpublishUploadKilled)

} // namespace tst_mvpublish_uploadKilled

#include "tst_mvpublish_uploadKilled.moc"
