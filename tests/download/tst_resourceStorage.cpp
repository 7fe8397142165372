// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueUse.h"
#include "download/FileStates.h"
#include "download/ResourceStorage.h"
#include "download/StorageWorld.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

/// Tests disk use, removal of items with undo, and cleaning.
class tst_resourceStorage : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void useTellsOwnAndShared();
    void usedBytesCountAFileOnce();
    void onlyItemsOnDiskAreListed();
    void removalKeepsWhatOthersNeed();
    void removalOfTheLastUserTakesHiddenItemsAlong();
    void sharedResourcePutsNoItemOnDisk();
    void removedItemIsMissing();
    void undoBringsEverythingBack();
    void undoKeepsNewerFiles();
    void purgedRemovalCannotBeUndone();
    void previewsStay();
    void installedFilesStay();
    void nothingIsRemovedWhileADownloadWorks();
    void nothingIsJudgedByAStandInCatalogue_data();
    void nothingIsJudgedByAStandInCatalogue();
    void failedRemovalChangesNothing();
    void leftoversAreWhatNoCatalogueNames();
    void nothingIsLeftOverWithoutACatalogue();
    void unpackedArchivesBelongToTheirArchives();
    void cleaningFreesLeftoversOnly();
    void cleaningSortsTheLedger();
    void cleaningRemovesFoldersOfAnInterruptedOne();
    void whatAThemeThatCannotBeReadMayUseStays();
    void linksAreNotFollowed();

private:
    QString removed() const { return m_world.downloadedFile("removed"); }

    StorageWorld m_world;
    const ResourceStorage m_storage;
};

namespace {

qint64 sizeOf(const StorageWorld& world, const QVector<const char*>& names)
{
    qint64 bytes = 0;
    for (const char* const name : names)
        bytes += world.content(name).size();
    return bytes;
}

} // namespace

void tst_resourceStorage::init()
{
    m_world.freshStorage();
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
}

void tst_resourceStorage::useTellsOwnAndShared()
{
    const ResourceStorage::Use use = m_storage.diskUse(StorageWorld::theme(1));
    QCOMPARE(use.ownBytes, sizeOf(m_world, {"Themes/1.xml", "Themes/1.zip"}));
    QCOMPARE(use.sharedBytes,
             sizeOf(m_world,
                    {"VideoFilters/11.xml", "VideoFilters/11.zip", "VideoFilters/12.xml",
                     "VideoFilters/12.zip"}));
    QCOMPARE(use.bytes(), use.ownBytes + use.sharedBytes);
}

void tst_resourceStorage::usedBytesCountAFileOnce()
{
    qint64 bytes = 0;
    const QStringList files = m_world.files();
    for (const QString& name : files)
        bytes += m_world.content(name.toUtf8().constData()).size();
    QCOMPARE(m_storage.usedBytes(), bytes);
}

void tst_resourceStorage::onlyItemsOnDiskAreListed()
{
    QStringList guids;
    const QVector<ResourceStorage::Use> uses = m_storage.diskUse();
    for (const ResourceStorage::Use& use : uses)
        guids.append(use.item->m_qsGUID);
    guids.sort();
    QStringList expected{CatalogueFiles::guid(1), CatalogueFiles::guid(2),
                         CatalogueFiles::guid(11)};
    expected.sort();
    QCOMPARE(guids, expected); // filter 12 is hidden, filter 13 not on disk
}

void tst_resourceStorage::removalKeepsWhatOthersNeed()
{
    const qint64 own = sizeOf(m_world, {"Themes/1.xml", "Themes/1.zip"});
    const ResourceStorage::Removal removal = m_storage.removeItem(StorageWorld::theme(1));
    QVERIFY2(removal.isComplete(), qPrintable(removal.error));
    QCOMPARE(removal.bytes, own);
    QCOMPARE(m_world.files(),
             (QStringList{text("Themes/2.xml"), text("Themes/2.zip"), text("VideoFilters/11.xml"),
                          text("VideoFilters/11.zip"), text("VideoFilters/12.xml"),
                          text("VideoFilters/12.zip")}));
    QVERIFY(removal.files.first().path.endsWith(text("1.xml"))); // the definition goes first
}

void tst_resourceStorage::removalOfTheLastUserTakesHiddenItemsAlong()
{
    m_storage.removeItem(StorageWorld::theme(1));
    m_storage.removeItem(StorageWorld::theme(2));
    QCOMPARE(m_world.files(),
             (QStringList{text("VideoFilters/11.xml"), text("VideoFilters/11.zip")}));
    m_storage.removeItem(StorageWorld::filter(11));
    QCOMPARE(m_world.files(), QStringList());
}

/// Music is a resource of several themes, of which some may never have been fetched.
void tst_resourceStorage::sharedResourcePutsNoItemOnDisk()
{
    const QString catalogue = m_world.downloadedFile("resource_config.xml");
    QByteArray config = CatalogueFiles::read(catalogue);
    for (const QByteArray& archive : {QByteArray("/Themes/1.zip"), QByteArray("/Themes/2.zip")})
        config.replace(archive, archive + "</Url><Url>/ThemesBgm/song.mp3");
    CatalogueFiles::write(catalogue, config);
    MVThemeMgr::init()->load(true);
    CatalogueFiles::write(m_world.file("ThemesBgm/song.mp3"), "song");

    QCOMPARE(m_storage.diskUse().size(), 3);
    QCOMPARE(m_storage.diskUse(StorageWorld::theme(2)).sharedBytes,
             sizeOf(m_world, {"VideoFilters/12.xml", "VideoFilters/12.zip", "ThemesBgm/song.mp3"}));
    m_storage.removeItem(StorageWorld::theme(2));
    QVERIFY(m_world.files().contains(text("ThemesBgm/song.mp3")));
    QCOMPARE(m_storage.diskUse().size(), 2);
    m_storage.removeItem(StorageWorld::theme(1));
    QVERIFY(!m_world.files().contains(text("ThemesBgm/song.mp3")));
}

void tst_resourceStorage::removedItemIsMissing()
{
    m_storage.removeItem(StorageWorld::theme(1));
    QCOMPARE(FileStates(FileStates::Depth::Quick).of(StorageWorld::theme(1)).m_eState,
             eFile_Missing);
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    QCOMPARE(m_world.files().size(), 8);
}

void tst_resourceStorage::undoBringsEverythingBack()
{
    const QStringList before = m_world.files();
    const ResourceStorage::Removal removal = m_storage.removeItem(StorageWorld::theme(1));
    QVERIFY(m_world.files() != before);
    QVERIFY(ResourceStorage::undo(removal));
    QCOMPARE(m_world.files(), before);
    QCOMPARE(m_world.content("Themes/1.zip"), StorageWorld::archive(1));
    QCOMPARE(FileStates(FileStates::Depth::Quick).of(StorageWorld::theme(1)).m_eState,
             eFile_Current);
}

void tst_resourceStorage::undoKeepsNewerFiles()
{
    const ResourceStorage::Removal removal = m_storage.removeItem(StorageWorld::theme(1));
    CatalogueFiles::write(m_world.file("Themes/1.zip"), "newer");
    QVERIFY(!ResourceStorage::undo(removal));
    QCOMPARE(m_world.content("Themes/1.zip"), QByteArray("newer"));
}

void tst_resourceStorage::purgedRemovalCannotBeUndone()
{
    const ResourceStorage::Removal removal = m_storage.removeItem(StorageWorld::theme(1));
    QVERIFY(QFileInfo::exists(removed()));
    ResourceStorage::purge();
    QVERIFY(!QFileInfo::exists(removed()));
    QVERIFY(!ResourceStorage::undo(removal));
}

void tst_resourceStorage::previewsStay()
{
    const QString thumbnail = m_world.preview("Themes", "t.jpg");
    CatalogueFiles::write(thumbnail, "picture");
    m_storage.removeItem(StorageWorld::theme(1));
    QVERIFY(QFileInfo::exists(thumbnail));
}

void tst_resourceStorage::installedFilesStay()
{
    const QString installed = StorageWorld::installed("VideoFilters/13.zip");
    CatalogueFiles::write(installed, "own");
    const ResourceStorage::Removal removal = m_storage.removeItem(StorageWorld::filter(13));
    QVERIFY(removal.isComplete());
    QVERIFY(removal.files.isEmpty());
    QVERIFY(QFileInfo::exists(installed));
}

void tst_resourceStorage::nothingIsRemovedWhileADownloadWorks()
{
    const QStringList before = m_world.files();
    const CatalogueUse use;
    const ResourceStorage::Removal removal = m_storage.removeItem(StorageWorld::theme(1));
    QVERIFY(!removal.isComplete());
    QCOMPARE(removal.error, text("a download or an update is working"));
    QCOMPARE(m_world.files(), before);
}

void tst_resourceStorage::nothingIsJudgedByAStandInCatalogue_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("config") << QByteArray("resource_config.xml");
    QTest::newRow("display") << QByteArray("resource_display.xml");
}

/// If the downloaded catalogue cannot be read, the installed one is shown: it does not know what
/// the items on disk need.
void tst_resourceStorage::nothingIsJudgedByAStandInCatalogue()
{
    QFETCH(QByteArray, file);
    const QStringList before = m_world.files();
    const QString path = m_world.downloadedFile(file.constData());
    const QByteArray content = CatalogueFiles::read(path);
    CatalogueFiles::write(m_world.installedFile(file.constData()), content);
    CatalogueFiles::write(path, "<Resource>");
    MVThemeMgr::init()->load(true);
    QVERIFY(!MVThemeMgr::init()->isCatalogueRead());
    CatalogueFiles::write(m_world.file("Themes/old.zip"), "old");
    QCOMPARE(m_storage.removeItem(StorageWorld::theme(1)).error,
             text("the downloaded catalogue cannot be read"));
    QCOMPARE(m_storage.leftovers(), QStringList());
    QVERIFY(QFile::remove(m_world.file("Themes/old.zip")));
    QCOMPARE(m_world.files(), before);

    CatalogueFiles::write(path, content);
    MVThemeMgr::init()->load(true);
    QVERIFY(MVThemeMgr::init()->isCatalogueRead());
    QVERIFY(m_storage.removeItem(StorageWorld::theme(1)).isComplete());
}

void tst_resourceStorage::failedRemovalChangesNothing()
{
    const QStringList before = m_world.files();
    CatalogueFiles::write(removed(), "a file where the folder should be");
    const ResourceStorage::Removal removal = m_storage.removeItem(StorageWorld::theme(1));
    QVERIFY(!removal.isComplete());
    QVERIFY2(removal.error.endsWith(text("cannot be removed")), qPrintable(removal.error));
    QCOMPARE(m_world.files(), before);
}

void tst_resourceStorage::leftoversAreWhatNoCatalogueNames()
{
    QCOMPARE(m_storage.leftovers(), QStringList());
    CatalogueFiles::write(m_world.file("Themes/old/old.zip"), "old");
    CatalogueFiles::write(m_world.preview("Themes", "old.jpg"), "old");
    QCOMPARE(
        m_storage.leftovers(),
        (QStringList{m_world.file("Themes/old/old.zip"), m_world.preview("Themes", "old.jpg")}));
}

void tst_resourceStorage::nothingIsLeftOverWithoutACatalogue()
{
    const QStringList before = m_world.files();
    const QString picture = m_world.preview("Themes", "t.jpg");
    CatalogueFiles::write(picture, "picture");
    for (const char* const name : {"resource_display.xml", "resource_config.xml"}) {
        CatalogueFiles::write(m_world.downloadedFile(name), "<R/>");
        MVThemeMgr::init()->load(true);
        QCOMPARE(m_storage.leftovers(), QStringList());
        QCOMPARE(m_storage.clean(), qint64(0));
        QVERIFY(QFileInfo::exists(picture));
    }
    QCOMPARE(m_world.files(), before);
}

void tst_resourceStorage::unpackedArchivesBelongToTheirArchives()
{
    CatalogueFiles::write(m_world.file("Themes/1/unpacked/a.png"), "a");
    CatalogueFiles::write(m_world.file("Themes/11/a.png"), "a");
    CatalogueFiles::write(m_world.preview("Themes", "t/a.png"), "a"); // beside a picture, t.jpg
    QCOMPARE(m_storage.leftovers(),
             (QStringList{m_world.file("Themes/11/a.png"), m_world.preview("Themes", "t/a.png")}));
}

void tst_resourceStorage::cleaningFreesLeftoversOnly()
{
    const QStringList before = m_world.files();
    CatalogueFiles::write(m_world.file("Themes/old/deep/old.zip"), "old");
    const ResourceStorage::Removal removal = m_storage.removeItem(StorageWorld::theme(2));
    QVERIFY(ResourceStorage::undo(removal));
    CatalogueFiles::write(removed() + text("/1/0"), "removed");
    CatalogueFiles::write(m_world.downloadedFile("updates") + text("/x"), "part");
    QCOMPARE(
        m_storage.remains(),
        (QStringList{removed() + text("/1/0"), m_world.downloadedFile("updates") + text("/x")}));
    QCOMPARE(m_storage.clean(), qint64(3 + 7 + 4));
    QCOMPARE(m_storage.remains(), QStringList());
    QCOMPARE(m_world.files(), before);
    QVERIFY(!QFileInfo::exists(m_world.file("Themes/old")));
    QVERIFY(!QFileInfo::exists(removed()));
    QVERIFY(!QFileInfo::exists(m_world.downloadedFile("updates")));
    QCOMPARE(FileStates(FileStates::Depth::Quick).of(StorageWorld::theme(1)).m_eState,
             eFile_Current);
}

/// It then has one line for each file on disk.
void tst_resourceStorage::cleaningSortsTheLedger()
{
    m_storage.removeItem(StorageWorld::theme(1));
    m_storage.clean();
    QByteArrayList lines = CatalogueFiles::read(m_world.downloadedFile("ledger.txt")).split('\n');
    QCOMPARE(lines.takeLast(), QByteArray());
    QStringList names;
    for (const QByteArray& line : qAsConst(lines)) {
        const QString name = QString::fromUtf8(line.split('\t').last());
        if (name.contains(text("/config/")))
            names.append(name.section(QLatin1Char('/'), -2));
    }
    QCOMPARE(names, m_world.files());
}

void tst_resourceStorage::cleaningRemovesFoldersOfAnInterruptedOne()
{
    QVERIFY(QDir().mkpath(m_world.file("Themes/old/deep")));
    QVERIFY(QDir().mkpath(m_world.file("Themes/1"))); // beside 1.zip
    m_storage.clean();
    QVERIFY(!QFileInfo::exists(m_world.file("Themes/old")));
    QVERIFY(QFileInfo::exists(m_world.file("Themes/1")));
    QVERIFY(QFileInfo::exists(m_world.file("VideoFilters")));
}

void tst_resourceStorage::whatAThemeThatCannotBeReadMayUseStays()
{
    CatalogueFiles::write(m_world.file("Themes/2.xml"), "<Resource>");
    MVThemeMgr::init()->load(true);
    QVERIFY(m_storage.removeItem(StorageWorld::theme(1)).isComplete());
    QVERIFY(m_world.files().contains(text("VideoFilters/12.zip")));
    QVERIFY(!m_world.files().contains(text("Themes/1.zip")));
}

void tst_resourceStorage::linksAreNotFollowed()
{
    const QString outside = m_world.base() + text("/outside");
    CatalogueFiles::write(outside + text("/precious"), "x");
    MV_LINK(outside, m_world.file("Themes/link"));
    MV_LINK(m_world.file("Themes"), m_world.file("Themes/around"));
    if (UnusualFiles::hasFileLinks)
        MV_LINK(outside + text("/precious"), m_world.file("Themes/file"));
    QCOMPARE(m_storage.leftovers(), QStringList());
    m_storage.clean();
    QVERIFY(QFileInfo::exists(outside + text("/precious")));
}

MV_TEST_MAIN(tst_resourceStorage)
#include "tst_resourceStorage.moc"
