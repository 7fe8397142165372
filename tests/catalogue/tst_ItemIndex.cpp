// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/ItemIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "support/CatalogueFiles.h"
#include "support/Growth.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"

using Files = CatalogueFiles;

/// Tests finding items by GUID, in time proportional to the size of the catalogue.
class tst_ItemIndex : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void findingGrowsWithTheCatalogue();

private:
    void load(int filters) const;
    double findingTime(int items) const;
};

void tst_ItemIndex::initTestCase()
{
    MVThemeMgr::init()->setResourceSaveRootPath(TestHome::path() + QStringLiteral("/root"));
}

/// Loads shown filters; without a thumbnail's name each counts as having its own.
void tst_ItemIndex::load(int filters) const
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

double tst_ItemIndex::findingTime(int items) const
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

void tst_ItemIndex::findingGrowsWithTheCatalogue()
{
    // Searching is the only work here, so quadratic work takes 256 times as long.
    constexpr double max = 120;
    constexpr int few = 2000;
    const auto measure = [this](int items) { return findingTime(items); };
    QCOMPARE(Growth::excess(measure, few, Growth::times * few, max), QString());
}

MV_TEST_MAIN(tst_ItemIndex)
#include "tst_ItemIndex.moc"
