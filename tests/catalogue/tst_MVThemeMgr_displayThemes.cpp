// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

#include <QDomDocument>

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests reading the grouped category of the display catalogue.
class tst_MVThemeMgr_displayThemes : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void presentation();
    void groupsGiveTheThemeType_data();
    void groupsGiveTheThemeType();
    void groupWithoutType();
    void orderIsGroupByGroup();
    void onlyGroupsOfTheFirstCategoryAreRead();
    void isTextIsCleared();
    void unknownGuidIsLoggedAndSkipped();
    void noNoneEntryInThisForm();
    void bothPreviewsMustBeThere_data();
    void bothPreviewsMustBeThere();
    void gifIsNotLookedAtWithoutThumbnail();
    void resourcesAreNotLookedAt();
    void keepAllResolvesNothing();
    void listsAreAppendedTo();

private:
    static QVector<SCfg_Item> readGrouped(const QByteArray& content, QVector<SCfg_Item>& cfg,
                                          bool keepAll, ECfgItemType kind = eCfgItem_Theme)
    {
        QDomDocument doc;
        if (!doc.setContent(Files::document(content)))
            qFatal("the test's own document is malformed");
        QVector<SCfg_Item> items;
        CatalogueFixture::manager().read_resource_display_xml_a_theme(
            doc.documentElement(), kind, QStringLiteral("Theme"), cfg, items, keepAll);
        return items;
    }

    CatalogueFixture m_fixture;
};

namespace {

SCfg_Item cfgTheme(int number)
{
    SCfg_Item item;
    item.m_eType = eCfgItem_Theme;
    item.m_qsGUID = Files::guid(number);
    return item;
}

Files::DisplayItem shown(int number)
{
    return {Files::guid(number), QString(), QString()};
}

QByteArray oneTheme(const Files::DisplayItem& item)
{
    return Files::displayThemes({{QStringLiteral("travel"), {item}}});
}

} // namespace

void tst_MVThemeMgr_displayThemes::presentation()
{
    QVector<SCfg_Item> cfg{cfgTheme(1)};
    cfg[0].m_qsName = QStringLiteral("config name");
    cfg[0].m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/a.xml");
    cfg[0].m_info_Gif.m_qsUrl = QStringLiteral("config.gif");
    const auto items = readGrouped(oneTheme({Files::guid(1), QStringLiteral("Sea"),
                                             QStringLiteral("a.png"), QStringLiteral("a.gif")}),
                                   cfg, true);
    QCOMPARE(items.size(), 1);
    const SCfg_Item& item = items.first();
    QCOMPARE(item.m_eType, eCfgItem_Theme);
    QCOMPARE(item.m_qsGUID, Files::guid(1));
    QCOMPARE(item.m_qsName, QStringLiteral("Sea"));
    QCOMPARE(item.m_info_Thumb.m_qsUrl, QStringLiteral("a.png"));
    QCOMPARE(item.m_info_Gif.m_qsUrl, QStringLiteral("a.gif"));
    QCOMPARE(item.m_info_CfgXML.m_qsUrl, QStringLiteral("/Themes/a.xml"));
    QCOMPARE(cfg.at(0).m_qsName, QStringLiteral("config name"));
    QCOMPARE(cfg.at(0).m_info_Gif.m_qsUrl, QStringLiteral("config.gif"));

    // Whatever the file omits is empty.
    const auto bare = readGrouped("<Theme><Group><Item><GUID>" + Files::guid(1).toLatin1()
                                      + "</GUID></Item></Group></Theme>",
                                  cfg, true);
    QCOMPARE(bare.first().m_qsName, QString());
    QCOMPARE(bare.first().m_info_Gif.m_qsUrl, QString());
    const auto other = readGrouped(oneTheme(shown(1)), cfg, true, eCfgItem_BgMaterial);
    QCOMPARE(other.first().m_eType, eCfgItem_BgMaterial);
}

void tst_MVThemeMgr_displayThemes::groupsGiveTheThemeType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("expected");
    QTest::newRow("festivals") << QStringLiteral("festivals") << 2;
    QTest::newRow("travel") << QStringLiteral("travel") << 3;
    QTest::newRow("banquets") << QStringLiteral("banquets") << 4;
    QTest::newRow("others") << QStringLiteral("others") << 0;
    QTest::newRow("unknown") << QStringLiteral("Travel") << 0;
    QTest::newRow("empty") << QString() << 0;
}

void tst_MVThemeMgr_displayThemes::groupsGiveTheThemeType()
{
    QFETCH(QString, type);
    QFETCH(int, expected);
    QVector<SCfg_Item> cfg{cfgTheme(1), cfgTheme(2)};
    cfg[0].m_nThemeType = 9;
    const auto items = readGrouped(Files::displayThemes({{type, {shown(1), shown(2)}}}), cfg, true);
    QCOMPARE(items.at(0).m_nThemeType, expected);
    QCOMPARE(items.at(1).m_nThemeType, expected);
    QCOMPARE(cfg.at(0).m_nThemeType, 9);
}

void tst_MVThemeMgr_displayThemes::groupWithoutType()
{
    QVector<SCfg_Item> cfg{cfgTheme(1)};
    cfg[0].m_nThemeType = 9;
    const auto items =
        readGrouped("<Theme Type=\"travel\"><Group type=\"travel\"><Item><GUID>"
                        + Files::guid(1).toLatin1() + "</GUID></Item></Group></Theme>",
                    cfg, true);
    QCOMPARE(items.first().m_nThemeType, 0);
}

void tst_MVThemeMgr_displayThemes::orderIsGroupByGroup()
{
    QVector<SCfg_Item> cfg{cfgTheme(1), cfgTheme(2), cfgTheme(3)};
    const auto items =
        readGrouped(Files::displayThemes({{QStringLiteral("travel"), {shown(3), shown(1)}},
                                          {QStringLiteral("festivals"), {}},
                                          {QStringLiteral("festivals"), {shown(2), shown(3)}}}),
                    cfg, false);
    QCOMPARE(guidsOf(items),
             (QStringList{Files::guid(3), Files::guid(1), Files::guid(2), Files::guid(3)}));
    QCOMPARE(items.at(0).m_nThemeType, 3);
    QCOMPARE(items.at(3).m_nThemeType, 2);
}

void tst_MVThemeMgr_displayThemes::onlyGroupsOfTheFirstCategoryAreRead()
{
    QVector<SCfg_Item> cfg{cfgTheme(1), cfgTheme(2)};
    const QByteArray loose = "<Theme><Item><GUID>" + Files::guid(1).toLatin1()
        + "</GUID></Item><group><Item/></group></Theme>";
    const LogCapture log;
    QVERIFY(readGrouped(loose + oneTheme(shown(2)), cfg, true).isEmpty());
    QVERIFY(log.lines().isEmpty());
}

void tst_MVThemeMgr_displayThemes::isTextIsCleared()
{
    QVector<SCfg_Item> cfg{cfgTheme(1), cfgTheme(2)};
    cfg[0].m_bIsText = true;
    cfg[1].m_bIsText = true;
    Files::DisplayItem item = shown(1);
    item.isText = QStringLiteral("1");
    const auto items = readGrouped(oneTheme(item), cfg, true);
    QVERIFY(!items.first().m_bIsText);
    QVERIFY(!cfg.at(0).m_bIsText);
    QVERIFY(cfg.at(1).m_bIsText);
}

void tst_MVThemeMgr_displayThemes::unknownGuidIsLoggedAndSkipped()
{
    QVector<SCfg_Item> cfg{cfgTheme(1)};
    const LogCapture log;
    const auto items = readGrouped(
        Files::displayThemes({{QString(), {shown(7), shown(1)}}, {QString(), {shown(7)}}}), cfg,
        true);
    QCOMPARE(guidsOf(items), QStringList{Files::guid(1)});
    const QByteArray line =
        CatalogueFixture::line(1, "not findItemByID [" + Files::guid(7).toLatin1() + "]");
    QCOMPARE(m_fixture.described(log), (QByteArrayList{line, line}));
}

void tst_MVThemeMgr_displayThemes::noNoneEntryInThisForm()
{
    QVector<SCfg_Item> cfg;
    const QString none = QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");
    for (const ECfgItemType kind : {eCfgItem_Theme, eCfgItem_Filter, eCfgItem_BgMaterial})
        QVERIFY(readGrouped(oneTheme({none, QString(), QString()}), cfg, true, kind).isEmpty());
}

void tst_MVThemeMgr_displayThemes::bothPreviewsMustBeThere_data()
{
    QTest::addColumn<bool>("thumb");
    QTest::addColumn<bool>("gif");
    QTest::newRow("both") << true << true;
    QTest::newRow("thumbnail only") << true << false;
    QTest::newRow("GIF only") << false << true;
    QTest::newRow("neither") << false << false;
}

void tst_MVThemeMgr_displayThemes::bothPreviewsMustBeThere()
{
    QFETCH(bool, thumb);
    QFETCH(bool, gif);
    if (thumb)
        Files::write(m_fixture.downloaded("display", "Themes", QStringLiteral("a.png")), "x");
    if (gif)
        Files::write(m_fixture.installedFile("display", "Themes", QStringLiteral("a.gif")), "x");
    QVector<SCfg_Item> cfg{cfgTheme(1)};
    const QByteArray content =
        oneTheme({Files::guid(1), QString(), QStringLiteral("a.png"), QStringLiteral("a.gif")});
    const LogCapture log;
    QCOMPARE(readGrouped(content, cfg, false).size(), thumb && gif ? 1 : 0);
    QCOMPARE(readGrouped(content, cfg, true).size(), 1);
    QVERIFY(log.lines().isEmpty());
}

void tst_MVThemeMgr_displayThemes::gifIsNotLookedAtWithoutThumbnail()
{
    QVector<SCfg_Item> cfg{cfgTheme(1)};
    readGrouped(oneTheme({Files::guid(1), QString(), QStringLiteral("thumbs/a.png"),
                          QStringLiteral("gifs/a.gif")}),
                cfg, false);
    QVERIFY(QDir(m_fixture.downloaded("display", "Themes", QStringLiteral("thumbs"))).exists());
    QVERIFY(!QDir(m_fixture.downloaded("display", "Themes", QStringLiteral("gifs"))).exists());
}

void tst_MVThemeMgr_displayThemes::resourcesAreNotLookedAt()
{
    QVector<SCfg_Item> cfg{cfgTheme(1)};
    cfg[0].m_vecResource.resize(1);
    cfg[0].m_vecResource[0].m_qsUrl = QStringLiteral("a.zip");
    const auto items = readGrouped(oneTheme(shown(1)), cfg, false);
    QCOMPARE(items.size(), 1);
    QCOMPARE(items.first().m_vecResource.first().m_qsFile, QString());
    QCOMPARE(items.first().m_vecResource.first().m_eType, eCfgItem_Resource);
    QVERIFY(!QDir(m_fixture.downloaded("config", "Themes", Files::guid(1))).exists());
}

void tst_MVThemeMgr_displayThemes::keepAllResolvesNothing()
{
    QVector<SCfg_Item> cfg{cfgTheme(1)};
    const QStringList before = CatalogueFixture::entriesBelow(m_fixture.base());
    const auto items =
        readGrouped(oneTheme({Files::guid(1), QString(), QStringLiteral("thumbs/a.png"),
                              QStringLiteral("gifs/a.gif")}),
                    cfg, true);
    QCOMPARE(items.first().m_info_Thumb.m_qsFile, QString());
    QCOMPARE(items.first().m_info_Gif.m_qsFile, QString());
    QCOMPARE(CatalogueFixture::entriesBelow(m_fixture.base()), before);
}

void tst_MVThemeMgr_displayThemes::listsAreAppendedTo()
{
    QDomDocument doc;
    QVERIFY(doc.setContent(Files::document(oneTheme(shown(1)))));
    QVector<SCfg_Item> cfg{cfgTheme(1)};
    QVector<SCfg_Item> items{cfgTheme(9)};
    CatalogueFixture::manager().read_resource_display_xml_a_theme(
        doc.documentElement(), eCfgItem_Theme, QStringLiteral("Theme"), cfg, items, false);
    QCOMPARE(guidsOf(items), (QStringList{Files::guid(9), Files::guid(1)}));
}

MV_TEST_MAIN(tst_MVThemeMgr_displayThemes)
#include "tst_MVThemeMgr_displayThemes.moc"
