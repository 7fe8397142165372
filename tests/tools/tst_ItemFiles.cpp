#include "catalogue/MVThemeMgr.h"
#include "ItemFiles.h"
#include "ItemIndex.h"
#include "support/CatalogueFiles.h"
#include "support/Growth.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"

using Files = CatalogueFiles;

/// What mvres finds of an item, and how long that takes in a large catalogue.
class tst_ItemFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void eachFileAndDependencyOnce();
    void listingGrowsWithTheFiles();
    void findingGrowsWithTheCatalogue();

private:
    void load(int filters) const;
    static double listingTime(int dependencies);
    double findingTime(int items) const;
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

/// A theme that uses these filters and nothing else, and has no files of its own.
SCfg_Item themeOf(QVector<SCfg_Item>& filters, SThemes_a& parsed)
{
    SCfg_Item theme;
    theme.m_eType = eCfgItem_Theme;
    for (SCfg_Item& used : filters) {
        SThemes_a::SDependArray element;
        element[eDependType_Filter].m_pItem = &used;
        parsed.m_vecItems.append(element);
    }
    theme.m_pThemes_a = &parsed;
    return theme;
}

} // namespace

void tst_ItemFiles::initTestCase()
{
    MVThemeMgr::init()->setResourceSaveRootPath(TestHome::path() + QStringLiteral("/root"));
}

void tst_ItemFiles::eachFileAndDependencyOnce()
{
    QVector<SCfg_Item> filters{filter(2), filter(1), filter(2)};
    filters[2].m_vecResource.append(filter(3).m_vecResource);
    SThemes_a parsed;
    SCfg_Item theme = themeOf(filters, parsed);
    parsed.m_aStart[eDependType_Text].m_pItem = &filters[1];
    const ItemFiles files(theme);
    QCOMPARE(files.dependencies(), (QVector<SCfg_Item*>{&filters[0], &filters[1], &filters[2]}));
    QStringList urls;
    for (const ItemFiles::Entry& entry : files.entries())
        urls.append(entry.url);
    QCOMPARE(urls,
             (QStringList{QStringLiteral("config/file2"), QStringLiteral("config/file1"),
                          QStringLiteral("config/file3")}));
    QCOMPARE(files.missing(), 3);
}

double tst_ItemFiles::listingTime(int dependencies)
{
    QVector<SCfg_Item> filters;
    for (int number = 0; number < dependencies; ++number)
        filters.append(filter(number));
    SThemes_a parsed;
    SCfg_Item theme = themeOf(filters, parsed);
    int entries = 0;
    const double seconds =
        ProcessorTime::least([&] { entries = ItemFiles(theme).entries().size(); });
    return entries == dependencies ? seconds : -1;
}

void tst_ItemFiles::listingGrowsWithTheFiles()
{
    QCOMPARE(Growth::excess(listingTime, 250), QString());
}

/// Shown filters; without the name of a thumbnail each counts as having its own.
void tst_ItemFiles::load(int filters) const
{
    QVector<Files::CfgItem> items;
    QVector<Files::DisplayItem> shown;
    for (int number = 0; number < filters; ++number) {
        items.append({Files::guid(number), QString(), {}});
        shown.append({Files::guid(number), QString::number(number), QString()});
    }
    MVThemeMgr* const manager = MVThemeMgr::init();
    const QString kind = manager->getCfgItemTypeStr(eCfgItem_Filter);
    Files::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config),
        Files::document(Files::cfgGroup(kind, items)));
    Files::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Display),
        Files::document(Files::displayCategory(kind, shown)));
    manager->load(true);
}

double tst_ItemFiles::findingTime(int items) const
{
    load(items);
    const QVector<SCfg_Item>& config = MVThemeMgr::init()->getCfgXML().vecFilter;
    const QVector<SCfg_Item>& shown = MVThemeMgr::init()->getDisplayXML().vecFilter;
    int right = 0;
    const double seconds = ProcessorTime::least([&] {
        ItemIndex index;
        right = 0;
        for (int i = 0; i < items; ++i) {
            const bool isFound = index.find(config.at(i).m_qsGUID) == &shown.at(i);
            right += isFound && index.nameOf(config.at(i)) == shown.at(i).m_qsName ? 1 : 0;
        }
    });
    return right == items ? seconds : -1;
}

void tst_ItemFiles::findingGrowsWithTheCatalogue()
{
    // There is no other work than searching, so quadratic work takes 256 times as long.
    constexpr double max = 120;
    constexpr int few = 2000;
    const auto measure = [this](int items) { return findingTime(items); };
    QCOMPARE(Growth::excess(measure, few, Growth::times * few, max), QString());
}

MV_TEST_MAIN(tst_ItemFiles)
#include "tst_ItemFiles.moc"
