// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests reading the display catalogue as a whole.
class tst_MVThemeMgr_displayFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void categoriesFillTheirLists();
    void categoriesAreReadInTheirOrder();
    void itemsWithoutPreviewsAreNotShown();
    void downloadedFileWins();
    void missingDownloadFallsBack();
    void bothBadLeavesTheLists();
    void fewFilters_data();
    void fewFilters();
    void otherListsAreNeverCut();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }

    CatalogueFixture m_fixture;
};

namespace {

/// Returns a config and a display document with `count` items, numbered from `first`, per category.
QByteArray configItems(int first, int count)
{
    QVector<Files::CfgItem> items;
    for (int number = first; number < first + count; ++number)
        items.append({Files::guid(number), QString(), {}});
    QByteArray content;
    for (const char* tag : {"Filter", "Transition", "Motion", "Theme", "BgMaterial"})
        content += Files::cfgGroup(QString::fromLatin1(tag), items);
    return Files::document(content);
}

QByteArray displayItems(int first, int count)
{
    QVector<Files::DisplayItem> items;
    for (int number = first; number < first + count; ++number)
        items.append({Files::guid(number), QString::number(number), QString()});
    QByteArray content;
    for (const char* tag : {"Filter", "Transition", "Motion", "BgMaterial"})
        content += Files::displayCategory(QString::fromLatin1(tag), items);
    return Files::document(content + Files::displayThemes({{QStringLiteral("travel"), items}}));
}

QStringList guids(int first, int count)
{
    QStringList list;
    for (int number = first; number < first + count; ++number)
        list.append(Files::guid(number));
    return list;
}

} // namespace

void tst_MVThemeMgr_displayFile::categoriesFillTheirLists()
{
    QByteArray cfg;
    QByteArray display;
    for (int kind = 0; kind < 5; ++kind) {
        const QString tag = mgr().getCfgItemTypeStr(ECfgItemType(kind));
        cfg += Files::cfgGroup(tag, {{Files::guid(kind), QString(), {}}, {Files::guid(9), {}, {}}});
        const Files::DisplayItem item{Files::guid(kind), QString(), QString()};
        display += kind == eCfgItem_Theme
            ? Files::displayThemes({{QStringLiteral("travel"), {item}}})
            : Files::displayCategory(tag, {item});
    }
    Files::write(m_fixture.configXml(), Files::document(cfg));
    Files::write(m_fixture.displayXml(), Files::document(display));
    mgr().read_resource_config_xml();
    mgr().read_resource_display_xml();
    const Mgr::SResourceXML& shown = mgr().getDisplayXML();
    const QVector<SCfg_Item>* const lists[] = {&shown.vecFilter, &shown.vecTransition,
                                               &shown.vecMotion, &shown.vecTheme,
                                               &shown.vecBgMaterial};
    for (int kind = 0; kind < 5; ++kind) {
        QCOMPARE(guidsOf(*lists[kind]), QStringList{Files::guid(kind)});
        QCOMPARE(int(lists[kind]->first().m_eType), kind);
    }
    QCOMPARE(shown.vecTheme.first().m_nThemeType, 3);
}

void tst_MVThemeMgr_displayFile::categoriesAreReadInTheirOrder()
{
    QByteArray content;
    for (const char* tag : {"BgMaterial", "Motion", "Transition", "Filter"})
        content += Files::displayCategory(QString::fromLatin1(tag),
                                          {{QString::fromLatin1(tag), QString(), QString()}});
    content = Files::displayThemes({{QString(), {{QStringLiteral("Theme"), {}, {}}}}}) + content;
    Files::write(m_fixture.displayXml(), Files::document(content));
    const LogCapture log;
    mgr().read_resource_display_xml();
    QByteArrayList expected{m_fixture.checked(m_fixture.displayXml(), 1)};
    for (const char* tag : {"Filter", "Transition", "Motion", "Theme", "BgMaterial"})
        expected.append(m_fixture.line(1, QByteArray("not findItemByID [") + tag + ']'));
    QCOMPARE(m_fixture.described(log), expected);
}

void tst_MVThemeMgr_displayFile::itemsWithoutPreviewsAreNotShown()
{
    Files::write(m_fixture.configXml(), configItems(0, 2));
    Files::write(m_fixture.displayXml(),
                 Files::document(Files::displayCategory(
                     QStringLiteral("Filter"),
                     {{Files::guid(0), QString(), QStringLiteral("missing.png")},
                      {Files::guid(1), QString(), QString()}})));
    mgr().read_resource_config_xml();
    mgr().read_resource_display_xml();
    QCOMPARE(guidsOf(mgr().getFilters_Display()), QStringList{Files::guid(1)});
}

void tst_MVThemeMgr_displayFile::downloadedFileWins()
{
    Files::write(m_fixture.configXml(), configItems(0, 9));
    Files::write(m_fixture.displayXml(Mgr::eLoadDir_Local), displayItems(1, 1));
    Files::write(m_fixture.displayXml(), displayItems(2, 1));
    mgr().read_resource_config_xml();
    const LogCapture log;
    mgr().read_resource_display_xml();
    QCOMPARE(guidsOf(mgr().getFilters_Display()), guids(2, 1));
    QCOMPARE(m_fixture.described(log),
             QByteArrayList{m_fixture.checked(m_fixture.displayXml(), 1)});
}

void tst_MVThemeMgr_displayFile::missingDownloadFallsBack()
{
    Files::write(m_fixture.configXml(), configItems(0, 9));
    Files::write(m_fixture.displayXml(Mgr::eLoadDir_Local), displayItems(1, 1));
    mgr().read_resource_config_xml();
    const LogCapture log;
    mgr().read_resource_display_xml();
    QCOMPARE(guidsOf(mgr().getFilters_Display()), guids(1, 1));
    QCOMPARE(m_fixture.described(log),
             (QByteArrayList{m_fixture.checked(m_fixture.displayXml(), 0),
                             m_fixture.checked(m_fixture.displayXml(Mgr::eLoadDir_Local), 1)}));
}

void tst_MVThemeMgr_displayFile::bothBadLeavesTheLists()
{
    Files::write(m_fixture.configXml(), configItems(0, 9));
    Files::write(m_fixture.displayXml(), displayItems(1, 1));
    mgr().read_resource_config_xml();
    mgr().read_resource_display_xml();
    Files::write(m_fixture.displayXml(), "<");
    const LogCapture log;
    mgr().read_resource_display_xml();
    QCOMPARE(m_fixture.described(log),
             (QByteArrayList{m_fixture.checked(m_fixture.displayXml(), 0),
                             m_fixture.checked(m_fixture.displayXml(Mgr::eLoadDir_Local), 0),
                             m_fixture.line(1, "read_resource_display_xml is error!")}));
    QCOMPARE(guidsOf(mgr().getFilters_Display()), guids(1, 1));
    QCOMPARE(mgr().getCfgXML().vecFilter.size(), 9);
}

void tst_MVThemeMgr_displayFile::fewFilters_data()
{
    QTest::addColumn<QByteArray>("value"); // null: not set
    QTest::addColumn<int>("listed");
    QTest::addColumn<int>("shown");
    QTest::newRow("1") << QByteArray("1") << 20 << 12;
    QTest::newRow("1, 13 listed") << QByteArray("1") << 13 << 12;
    QTest::newRow("1, 12 listed") << QByteArray("1") << 12 << 12;
    QTest::newRow("1, 3 listed") << QByteArray("1") << 3 << 3;
    QTest::newRow("true") << QByteArray("true") << 20 << 20;
    QTest::newRow("01") << QByteArray("01") << 20 << 20;
    QTest::newRow("0") << QByteArray("0") << 20 << 20;
    QTest::newRow("empty") << QByteArray("") << 20 << 20;
    QTest::newRow("not set") << QByteArray() << 20 << 20;
}

void tst_MVThemeMgr_displayFile::fewFilters()
{
    QFETCH(QByteArray, value);
    QFETCH(int, listed);
    QFETCH(int, shown);
    if (!value.isNull())
        CatalogueFixture::setParam("disableDownloadFiter", value.constData());
    Files::write(m_fixture.configXml(), configItems(0, listed));
    Files::write(m_fixture.displayXml(), displayItems(0, listed));
    mgr().read_resource_config_xml();
    mgr().read_resource_display_xml();
    QCOMPARE(guidsOf(mgr().getFilters_Display()), guids(0, shown));
}

void tst_MVThemeMgr_displayFile::otherListsAreNeverCut()
{
    CatalogueFixture::setParam("disableDownloadFiter", "1");
    Files::write(m_fixture.configXml(), configItems(0, 20));
    Files::write(m_fixture.displayXml(), displayItems(0, 20));
    mgr().read_resource_config_xml();
    mgr().read_resource_display_xml();
    const Mgr::SResourceXML& shown = mgr().getDisplayXML();
    QCOMPARE(shown.vecFilter.size(), 12);
    for (const auto* list :
         {&shown.vecTransition, &shown.vecMotion, &shown.vecTheme, &shown.vecBgMaterial})
        QCOMPARE(guidsOf(*list), guids(0, 20));
    QCOMPARE(mgr().getCfgXML().vecFilter.size(), 20);
}

MV_TEST_MAIN(tst_MVThemeMgr_displayFile)
#include "tst_MVThemeMgr_displayFile.moc"
