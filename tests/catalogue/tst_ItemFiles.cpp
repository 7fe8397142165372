// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "download/FileStates.h"
#include "support/CatalogueFiles.h"
#include "support/Growth.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"
#include "support/ThemeUsing.h"
#include "support/UnusualFiles.h"

namespace tst_ItemFiles {

using Files = CatalogueFiles;

/// Tests listing the files of an item and its dependencies, in time proportional to their number.
class tst_ItemFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void eachFileAndDependencyOnce();
    void listingGrowsWithTheFiles();
    void countsManyAsOneByOne();
    void countsManyInLessTimeThanOneByOne();
    void statesOfManyTakeLessTimeThanOneByOne();

private:
    static double listingTime(int dependencies);
};

namespace {

SCfg_Item filter(int number)
{
    SCfg_Item item;
    item.m_qsGUID = Files::guid(number);
    SFileInfo resource;
    resource.m_qsUrl = QStringLiteral("/file%1").arg(number);
    item.m_vecResource.append(resource);
    return item;
}

QVector<SCfg_Item*> pointersTo(QVector<SCfg_Item>& items)
{
    QVector<SCfg_Item*> pointers;
    for (SCfg_Item& item : items)
        pointers.append(&item);
    return pointers;
}

/// Returns the folder to which the addresses of resources relate.
QString configFolder()
{
    return MVThemeMgr::init()->Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                 MVThemeMgr::eDirTag_Config);
}

} // namespace

void tst_ItemFiles::init()
{
    MVThemeMgr::init()->setResourceSaveRootPath(TestHome::path() + QStringLiteral("/root"));
}

void tst_ItemFiles::eachFileAndDependencyOnce()
{
    QVector<SCfg_Item> filters{filter(2), filter(1), filter(2)};
    filters[2].m_vecResource.append(filter(3).m_vecResource);
    SThemes_a parsed;
    SCfg_Item theme = themeUsing(pointersTo(filters), eDependType_Filter, parsed);
    parsed.m_aStart[eDependType_Text].m_pItem = &filters[1];
    const ItemFiles files(theme);
    QCOMPARE(files.uses(), (QVector<SCfg_Item*>{&filters[0], &filters[1], &filters[2]}));
    QStringList urls;
    for (const ItemFiles::Entry& entry : files.entries())
        urls.append(entry.url);
    QCOMPARE(urls,
             (QStringList{QStringLiteral("config/file2"), QStringLiteral("config/file1"),
                          QStringLiteral("config/file3")}));
    QCOMPARE(files.missingCount(), 3);
}

double tst_ItemFiles::listingTime(int dependencies)
{
    QVector<SCfg_Item> filters;
    for (int number = 0; number < dependencies; ++number)
        filters.append(filter(number));
    SThemes_a parsed;
    SCfg_Item theme = themeUsing(pointersTo(filters), eDependType_Filter, parsed);
    int entries = 0;
    const double seconds =
        ProcessorTime::least([&] { entries = ItemFiles(theme).entries().size(); });
    return entries == dependencies ? seconds : -1;
}

void tst_ItemFiles::listingGrowsWithTheFiles()
{
    QCOMPARE(Growth::excess(listingTime, 250), QString());
}

/// A present file, a missing one, one behind a link out of the root and, again, a present one.
void tst_ItemFiles::countsManyAsOneByOne()
{
    const QString folder = configFolder();
    Files::write(folder + QStringLiteral("/file1"), "content");
    Files::write(folder + QStringLiteral("/file4"), "content");
    Files::write(TestHome::path() + QStringLiteral("/outside/a"), "secret");
    MV_LINK(TestHome::path() + QStringLiteral("/outside"), folder + QStringLiteral("/link"));
    QVector<SCfg_Item> filters{filter(1), filter(2), filter(3), filter(4)};
    filters[2].m_vecResource[0].m_qsUrl = QStringLiteral("/link/a");
    QCOMPARE(ItemFiles::countNeeded(pointersTo(filters)), (QVector<int>{0, 1, 1, 0}));
    for (int i = 0; i < filters.size(); ++i)
        QCOMPARE(ItemFiles::countNeeded(filters[i]), i == 1 || i == 2 ? 1 : 0);
    QCOMPARE(ItemFiles::countNeeded(QVector<SCfg_Item*>()), QVector<int>());
}

/// Resolving a folder takes time in proportion to its depth.
void tst_ItemFiles::countsManyInLessTimeThanOneByOne()
{
#ifdef Q_OS_WIN
    QSKIP("The time of a thread is known there in steps of 10 ms.");
#endif
    MVThemeMgr::init()->setResourceSaveRootPath(TestHome::path() + QStringLiteral("/deep")
                                                + QStringLiteral("/d").repeated(100));
    QVector<SCfg_Item> filters;
    for (int number = 0; number < 100; ++number) {
        filters.append(filter(number));
        Files::write(configFolder() + QStringLiteral("/file%1").arg(number), "content");
    }
    const QVector<SCfg_Item*> items = pointersTo(filters);
    const QVector<int> nothing(items.size(), 0);
    const double together =
        ProcessorTime::least([&] { QCOMPARE(ItemFiles::countNeeded(items), nothing); });
    const double oneByOne = ProcessorTime::least([&] {
        for (SCfg_Item* const item : items)
            QCOMPARE(ItemFiles::countNeeded(*item), 0);
    });
    QVERIFY2(together * 2 < oneByOne,
             qPrintable(QStringLiteral("%1 s, one by one %2 s").arg(together).arg(oneByOne)));
}

void tst_ItemFiles::statesOfManyTakeLessTimeThanOneByOne()
{
#ifdef Q_OS_WIN
    QSKIP("The time of a thread is known there in steps of 10 ms.");
#endif
    MVThemeMgr::init()->setResourceSaveRootPath(TestHome::path() + QStringLiteral("/deeper")
                                                + QStringLiteral("/d").repeated(100));
    QVector<SCfg_Item> filters;
    for (int number = 0; number < 100; ++number) {
        filters.append(filter(number));
        Files::write(configFolder() + QStringLiteral("/file%1").arg(number), "content");
    }
    const QVector<SCfg_Item*> items = pointersTo(filters);
    const FileStates states(FileStates::Depth::Quick);
    const double together =
        ProcessorTime::least([&] { QCOMPARE(states.of(items).size(), items.size()); });
    const double oneByOne = ProcessorTime::least([&] {
        for (SCfg_Item* const item : items)
            QCOMPARE(states.of(*item).m_nNeeded, 0);
    });
    QVERIFY2(together * 2 < oneByOne,
             qPrintable(QStringLiteral("%1 s, one by one %2 s").arg(together).arg(oneByOne)));
}

MV_TEST_MAIN(tst_ItemFiles)

} // namespace tst_ItemFiles

#include "tst_ItemFiles.moc"
