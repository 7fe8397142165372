#include "catalogue/FavouritesFile.h"
#include "catalogue/MVThemeMgr.h"
#include "ItemFacts.h"
#include "support/CatalogueFiles.h"
#include "support/Growth.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"

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
        QVector<Files::CfgItem> items;
        QVector<Files::DisplayItem> shown;
        for (int number = 0; number < count; ++number) {
            items.append({Files::guid(number), QString(), {}});
            shown.append({Files::guid(number), QString::number(number), QString()});
        }
        config += Files::cfgGroup(manager->getCfgItemTypeStr(kind), items);
        display += Files::displayCategory(manager->getCfgItemTypeStr(kind), shown);
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
    SThemes_a parsed;
    for (int number = 0; number < used; ++number) {
        SThemes_a::SDependArray element;
        element[eDependType_Transition].m_pItem =
            const_cast<SCfg_Item*>(&MVThemeMgr::init()->getCfgXML().vecTransition.at(number));
        parsed.m_vecItems.append(element);
    }
    SCfg_Item theme;
    theme.m_eType = eCfgItem_Theme;
    theme.m_pThemes_a = &parsed;
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
