// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsMove.h"

#include "host/FileLock.h"
#include "MoveJournal.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <chrono>
#include <memory>

/// Tests moving the downloads to another folder, on one file system and from one to another.
class tst_DownloadsMove : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyFileArrives_data();
    void everyFileArrives();
    void originalsStayUntilTheyAreRemoved();
    void cancelLeavesEverythingAsItWas_data() { everyFileArrives_data(); }
    void cancelLeavesEverythingAsItWas();
    void otherFilesAreNotReplaced_data() { everyFileArrives_data(); }
    void otherFilesAreNotReplaced();
    void unwritableFolderChangesNothing();
    void foldersWithinEachOtherAreRefused_data();
    void foldersWithinEachOtherAreRefused();
    void whatIsNotDownloadedStays();
    void linksInTheNewFolderAreRefused_data();
    void linksInTheNewFolderAreRefused();
    void refusalCreatesNoFolder();
    void emptyFoldersThatWereThereStay();
    void unreadableFileIsNamed();
    void anotherProgramsUpdateIsRespected();
    void changedOriginalsStay_data() { everyFileArrives_data(); }
    void changedOriginalsStay();
    void oneFolderIsKnownByTwoNames();

private:
    using Files = QMap<QString, QByteArray>;

    QString from() const { return m_here->path() + QStringLiteral("/old"); }
    static Files filesOf(const QString& root);

    std::unique_ptr<QTemporaryDir> m_here;
    std::unique_ptr<QTemporaryDir> m_there; // on another file system
    Files m_files;
};

namespace {

using End = DownloadsMove::End;

const DownloadsMove::Progress noProgress = [](qint64, qint64) {};

} // namespace

void tst_DownloadsMove::init()
{
    m_here = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/move-XXXXXX"));
    // The memory's file system, or that of the build if the tests work in memory.
    for (const char* other : {"/dev/shm", MV_BUILD_FOLDER}) {
        if (QStorageInfo(QLatin1String(other)) != QStorageInfo(m_here->path()))
            m_there = std::make_unique<QTemporaryDir>(QLatin1String(other)
                                                      + QStringLiteral("/move-XXXXXX"));
    }
    m_files = {{QStringLiteral("Themes/config/Themes/a.xml"), QByteArray(3000000, 'a')},
               {QStringLiteral("Themes/config/Themes/ä ö.zip"), QByteArray("PK")},
               {QStringLiteral("Themes/ResourceConfig/.hidden"), QByteArray(1000, 'h')},
               {QStringLiteral("Themes/display/empty.png"), QByteArray()}};
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it)
        CatalogueFiles::write(from() + QLatin1Char('/') + it.key(), it.value());
}

tst_DownloadsMove::Files tst_DownloadsMove::filesOf(const QString& root)
{
    Files files;
    QDirIterator each(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        if (each.fileName() != MoveJournal::fileName())
            files.insert(path.mid(root.size() + 1), CatalogueFiles::read(path));
    }
    return files;
}

void tst_DownloadsMove::everyFileArrives_data()
{
    QTest::addColumn<bool>("isElsewhere");
    QTest::newRow("on one file system") << false;
    QTest::newRow("to another file system") << true;
}

#define MV_FETCH_TARGET(to)                                                                        \
    QFETCH(bool, isElsewhere);                                                                     \
    if (isElsewhere && !m_there)                                                                   \
        QSKIP("this machine has one writable file system");                                        \
    const QString to = (isElsewhere ? m_there : m_here)->path() + QStringLiteral("/new")

void tst_DownloadsMove::everyFileArrives()
{
    MV_FETCH_TARGET(to);
    const QString name = m_files.firstKey();
    const QDateTime time = QFileInfo(from() + QLatin1Char('/') + name).lastModified().addDays(-3);
    QFile file(from() + QLatin1Char('/') + name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    qint64 done = -1;
    qint64 total = 0;
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(),
                        [&](qint64 doneBytes, qint64 totalBytes) {
                            QVERIFY(doneBytes >= done);
                            done = doneBytes;
                            total = totalBytes;
                        }),
             End::Complete);
    QCOMPARE(move.removeOriginals(), 0);
    QCOMPARE(filesOf(to), m_files);
    QCOMPARE(filesOf(from()), Files());
    QVERIFY(!QFile::exists(from() + QStringLiteral("/Themes")));
    QVERIFY(!QFile::exists(to + QStringLiteral("/Themes/") + MoveJournal::fileName()));
    QCOMPARE(done, qint64(3001002));
    QCOMPARE(total, done);
    // By which the digests are known that files had when they came.
    QCOMPARE(QFileInfo(to + QLatin1Char('/') + name).lastModified(), time);
}

void tst_DownloadsMove::originalsStayUntilTheyAreRemoved()
{
    const QString to = m_here->path() + QStringLiteral("/new");
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Complete);
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it)
        QCOMPARE(CatalogueFiles::read(from() + QLatin1Char('/') + it.key()), it.value());
    move.takeBack();
    QCOMPARE(filesOf(from()), m_files);
    QCOMPARE(filesOf(to), Files());
}

void tst_DownloadsMove::cancelLeavesEverythingAsItWas()
{
    MV_FETCH_TARGET(to);
    CancelToken cancel;
    DownloadsMove move(from(), to);
    // In the middle of the largest file, or after it.
    QCOMPARE(move.bring(cancel, [&cancel](qint64, qint64) { cancel.cancel(); }), End::Cancelled);
    QCOMPARE(filesOf(from()), m_files);
    QCOMPARE(filesOf(to), Files());
    QVERIFY(!QFile::exists(to + QStringLiteral("/Themes")));
}

void tst_DownloadsMove::otherFilesAreNotReplaced()
{
    MV_FETCH_TARGET(to);
    const QString theirs = QStringLiteral("Themes/display/empty.png");
    CatalogueFiles::write(to + QLatin1Char('/') + theirs, "theirs");
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
    QVERIFY2(move.errorText().contains(theirs), qPrintable(move.errorText()));
    QVERIFY2(move.errorText().contains(QStringLiteral("choose an empty folder")),
             qPrintable(move.errorText()));
    QCOMPARE(filesOf(from()), m_files);
    QCOMPARE(filesOf(to), (Files{{theirs, "theirs"}}));
}

void tst_DownloadsMove::unwritableFolderChangesNothing()
{
    // Not even the superuser can write there.
    DownloadsMove move(from(), QStringLiteral("/proc/none"));
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
    QVERIFY(!move.errorText().isEmpty());
    QCOMPARE(filesOf(from()), m_files);
}

void tst_DownloadsMove::foldersWithinEachOtherAreRefused_data()
{
    QTest::addColumn<QString>("to");
    QTest::newRow("the same") << QStringLiteral("/old");
    QTest::newRow("the same by a link") << QStringLiteral("/link");
    QTest::newRow("within the downloads") << QStringLiteral("/old/Themes/config");
}

void tst_DownloadsMove::foldersWithinEachOtherAreRefused()
{
    QFETCH(QString, to);
    MV_LINK(from(), m_here->path() + QStringLiteral("/link"));
    DownloadsMove move(from(), m_here->path() + to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
    QCOMPARE(filesOf(from()), m_files);
}

/// The user's own files beside the downloads, and what a link leads to.
void tst_DownloadsMove::whatIsNotDownloadedStays()
{
    const QString own = from() + QStringLiteral("/letter.txt");
    CatalogueFiles::write(own, "mine");
    const QString outside = m_here->path() + QStringLiteral("/installed/a.xml");
    CatalogueFiles::write(outside, "installed");
    MV_LINK(QFileInfo(outside).path(), from() + QStringLiteral("/Themes/linked"));
    const QString to = m_here->path() + QStringLiteral("/new");
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Complete);
    QCOMPARE(move.removeOriginals(), 0);
    QCOMPARE(filesOf(to), m_files);
    QVERIFY(QFile::exists(own));
    QCOMPARE(CatalogueFiles::read(outside), QByteArray("installed"));
    QVERIFY(UnusualFiles::isLink(from() + QStringLiteral("/Themes/linked")));
}

void tst_DownloadsMove::linksInTheNewFolderAreRefused_data()
{
    QTest::addColumn<QString>("link");   // below the new folder
    QTest::addColumn<QString>("target"); // below the temporary one
    QTest::newRow("a folder, to the original")
        << QStringLiteral("Themes/config") << QStringLiteral("old/Themes/config");
    QTest::newRow("a file, to the original") << QStringLiteral("Themes/config/Themes/a.xml")
                                             << QStringLiteral("old/Themes/config/Themes/a.xml");
    QTest::newRow("a folder, elsewhere")
        << QStringLiteral("Themes/display") << QStringLiteral("elsewhere");
    QTest::newRow("all, elsewhere") << QStringLiteral("Themes") << QStringLiteral("elsewhere");
    QTest::newRow("to nothing") << QStringLiteral("Themes/display/empty.png")
                                << QStringLiteral("elsewhere/none");
}

/// Downloads are read and stored inside their root only, and a linked original is the only one.
void tst_DownloadsMove::linksInTheNewFolderAreRefused()
{
    QFETCH(QString, link);
    QFETCH(QString, target);
    const QString to = m_here->path() + QStringLiteral("/new");
    const QString elsewhere = m_here->path() + QStringLiteral("/elsewhere");
    const QString path = to + QLatin1Char('/') + link;
    QVERIFY(QDir().mkpath(elsewhere) && QDir().mkpath(QFileInfo(path).path()));
    MV_LINK(m_here->path() + QLatin1Char('/') + target, path);
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
    QVERIFY2(move.errorText().contains(QStringLiteral("links")), qPrintable(move.errorText()));
    QVERIFY2(move.errorText().contains(path), qPrintable(move.errorText()));
    QCOMPARE(filesOf(from()), m_files);
    QCOMPARE(filesOf(elsewhere), Files());
}

void tst_DownloadsMove::refusalCreatesNoFolder()
{
    const QString to = from() + QStringLiteral("/Themes/config/new/inner");
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
    QVERIFY(!QFile::exists(QFileInfo(to).path()));
}

void tst_DownloadsMove::emptyFoldersThatWereThereStay()
{
    const QString to = m_here->path() + QStringLiteral("/new");
    const QString theirs = to + QStringLiteral("/Themes/config/theirs");
    QVERIFY(QDir().mkpath(theirs));
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Complete);
    QVERIFY(QFile::exists(to + QStringLiteral("/Themes/display")));
    move.takeBack();
    QVERIFY(QFile::exists(theirs));
    QVERIFY(!QFile::exists(to + QStringLiteral("/Themes/display")));
}

void tst_DownloadsMove::unreadableFileIsNamed()
{
    const QString to = m_here->path() + QStringLiteral("/new");
    // Not even the superuser can read it.
    const QString folder = to + QLatin1Char('/') + m_files.firstKey();
    QVERIFY(QDir().mkpath(folder));
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
    QCOMPARE(move.errorText(), folder + QStringLiteral(" cannot be read"));
    QCOMPARE(filesOf(from()), m_files);
}

void tst_DownloadsMove::anotherProgramsUpdateIsRespected()
{
    const QString to = m_here->path() + QStringLiteral("/new");
    const QString lockFile = from() + QStringLiteral("/Themes/ResourceConfig/updates.lock");
    {
        FileLock other(lockFile);
        QCOMPARE(other.lock(std::chrono::seconds(0)), FileLock::Result::Locked);
        DownloadsMove move(from(), to);
        QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
        QVERIFY2(move.errorText().contains(QStringLiteral("Another program")),
                 qPrintable(move.errorText()));
    }
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Complete);
    FileLock other(lockFile);
    QCOMPARE(other.lock(std::chrono::seconds(0)), FileLock::Result::Busy);
    QCOMPARE(move.removeOriginals(), 0);
    QCOMPARE(filesOf(to), m_files);
    QVERIFY(!QFile::exists(from() + QStringLiteral("/Themes")));
}

void tst_DownloadsMove::changedOriginalsStay()
{
    MV_FETCH_TARGET(to);
    const QString changed = m_files.firstKey();
    const QString added = QStringLiteral("Themes/config/Themes/new.xml");
    DownloadsMove move(from(), to);
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Complete);
    QVERIFY(QFile::remove(from() + QLatin1Char('/') + changed));
    for (const QString& name : {changed, added})
        CatalogueFiles::write(from() + QLatin1Char('/') + name, "newer");
    QCOMPARE(move.removeOriginals(), 1);
    QCOMPARE(filesOf(from()), (Files{{changed, "newer"}, {added, "newer"}}));
    QCOMPARE(filesOf(to), m_files);
}

void tst_DownloadsMove::oneFolderIsKnownByTwoNames()
{
    const QString link = m_here->path() + QStringLiteral("/link");
    MV_LINK(from(), link);
    QVERIFY(DownloadsMove::isSame(from(), link + QLatin1Char('/')));
    QVERIFY(
        DownloadsMove::isSame(from() + QStringLiteral("/none"), link + QStringLiteral("/none")));
    QVERIFY(!DownloadsMove::isSame(from(), m_here->path()));
}

MV_TEST_MAIN(tst_DownloadsMove)
#include "tst_DownloadsMove.moc"
