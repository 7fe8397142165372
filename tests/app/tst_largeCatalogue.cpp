// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/FavouritesFile.h"
#include "catalogue/MVThemeMgr.h"
#include "ItemFacts.h"
#include "support/CatalogueFiles.h"
#include "support/Growth.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"
#include "support/ThemeUsing.h"

using Files = CatalogueFiles;

/// Tests that the editor's look-ups take time in proportion to the size of the catalogue.
class tst_largeCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void factsOfAnItemThatUsesMany();
    void favouritesWrittenAndRead();

private:
    static void load(int transitions, int filters);
    static double factsTime(int used);
    static double favouritesTime(int count);
};

void tst_largeCatalogue::initTestCase()
{
    MVThemeMgr::init()->setResourceSaveRootPath(TestHome::path() + QStringLiteral("/root"));
}

/// Loads kinds that have no preview files to look for.
void tst_largeCatalogue::load(int transitions, int filters)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    QByteArray config;
    QByteArray display;
    const auto add = [&](ECfgItemType kind, int count) {
        const QString name = manager->getCfgItemTypeStr(kind);
        config += Files::cfgGroup(name, Files::cfgItems(count));
        display += Files::displayCategory(name, Files::displayItems(count));
    };
    add(eCfgItem_Transition, transitions);
    add(eCfgItem_Filter, filters);
    Files::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config),
        Files::document(config));
    Files::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Display),
        Files::document(display));
    manager->load(true);
}

double tst_largeCatalogue::factsTime(int used)
{
    load(used, 0);
    QVector<SCfg_Item*> transitions;
    for (const SCfg_Item& item : MVThemeMgr::init()->getCfgXML().vecTransition)
        transitions.append(const_cast<SCfg_Item*>(&item));
    SThemes_a parsed;
    SCfg_Item theme = themeUsing(transitions, eDependType_Transition, parsed);
    QString last;
    const double seconds =
        ProcessorTime::least([&] { last = ItemFacts(theme).used().last().name; });
    return last == QString::number(used - 1) ? seconds : -1;
}

void tst_largeCatalogue::factsOfAnItemThatUsesMany()
{
    QCOMPARE(Growth::excess(factsTime, 2000), QString());
}

double tst_largeCatalogue::favouritesTime(int count)
{
    load(0, count);
    MVThemeMgr* const manager = MVThemeMgr::init();
    for (SCfg_Item& item : manager->getFilters_Display()) {
        item.m_bCollected = true;
        manager->setItemCollected(&item);
    }
    const QString path = TestHome::path() + QStringLiteral("/favourites.json");
    bool isDone = true;
    const double seconds = ProcessorTime::least([&] {
        FavouritesFile file;
        isDone = file.write(path) && file.read(path) && file.count() == count && file.unknown() == 0
            && isDone;
    });
    return isDone ? seconds : -1;
}

void tst_largeCatalogue::favouritesWrittenAndRead()
{
    QCOMPARE(Growth::excess(favouritesTime, 2000), QString());
}

MV_TEST_MAIN(tst_largeCatalogue)
#include "tst_largeCatalogue.moc"
