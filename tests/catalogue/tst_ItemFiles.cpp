#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "support/CatalogueFiles.h"
#include "support/Growth.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"

using Files = CatalogueFiles;

/// Tests listing the files of an item and its dependencies, in time proportional to their number.
class tst_ItemFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void eachFileAndDependencyOnce();
    void listingGrowsWithTheFiles();

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

/// Returns a theme that uses these filters and has no files of its own.
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

MV_TEST_MAIN(tst_ItemFiles)
#include "tst_ItemFiles.moc"
