// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

#include <QDomDocument>

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests reading the flat categories of the display catalogue.
class tst_MVThemeMgr_display : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void itemIsACopyOfTheConfigItem();
    void presentationOverridesTheConfigItem();
    void isText_data();
    void isText();
    void isTextOfTheConfigItemIsOverwritten();
    void orderAndDuplicatesOfTheFile();
    void firstOfEqualGuidsIsCopied();
    void unknownGuidIsLoggedAndSkipped();
    void previewsDecideWhatIsShown();
    void keepAllShowsEverything();
    void everyFileIsResolved();
    void listsAreAppendedTo();
    void kindComesFromTheCaller();
    void missingCategoryIsSilent();

    void noneEntryIsMade_data();
    void noneEntryIsMade();
    void noneEntryOfTheConfigCatalogueIsAnItem();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }

    /// Reads one flat category of a display document against `cfg`.
    static QVector<SCfg_Item> readFlat(const QByteArray& content, ECfgItemType kind,
                                       QVector<SCfg_Item>& cfg, bool keepAll)
    {
        QDomDocument doc;
        if (!doc.setContent(Files::document(content)))
            qFatal("the test's own document is malformed");
        QVector<SCfg_Item> items;
        mgr().read_resource_display_xml_a(doc.documentElement(), kind,
                                          mgr().getCfgItemTypeStr(kind), cfg, items, keepAll);
        return items;
    }
    void putThumb(const QString& name) const
    {
        Files::write(m_fixture.downloaded("display", "VideoFilters", name), "x");
    }

    CatalogueFixture m_fixture;
};

namespace {

const QString noneGuid = QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");

SCfg_Item cfgItem(int number, ECfgItemType kind = eCfgItem_Filter)
{
    SCfg_Item item;
    item.m_eType = kind;
    item.m_qsGUID = Files::guid(number);
    item.m_qsName = QStringLiteral("config name");
    return item;
}

QByteArray filters(const QVector<Files::DisplayItem>& items)
{
    return Files::displayCategory(QStringLiteral("Filter"), items);
}

QByteArray notFound(const QString& guid)
{
    return CatalogueFixture::line(1, "not findItemByID [" + guid.toUtf8() + "]");
}

} // namespace

void tst_MVThemeMgr_display::itemIsACopyOfTheConfigItem()
{
    SThemes_a theme;
    QVector<SCfg_Item> cfg{cfgItem(1)};
    cfg[0].m_info_CfgXML.m_qsUrl = QStringLiteral("/VideoFilters/a.xml");
    cfg[0].m_vecResource.resize(2);
    cfg[0].m_pThemes_a = &theme;
    cfg[0].m_nThemeType = 7;
    cfg[0].m_bCollected = true;
    const auto items =
        readFlat(filters({{Files::guid(1), QString(), QString()}}), eCfgItem_Filter, cfg, true);
    QCOMPARE(items.size(), 1);
    const SCfg_Item& item = items.first();
    QCOMPARE(item.m_info_CfgXML.m_qsUrl, QStringLiteral("/VideoFilters/a.xml"));
    QCOMPARE(item.m_info_CfgXML.m_pMutex.get(), cfg[0].m_info_CfgXML.m_pMutex.get());
    QCOMPARE(item.m_vecResource.size(), 2);
    QCOMPARE(item.m_pThemes_a, &theme);
    QCOMPARE(item.m_nThemeType, 7);
    QVERIFY(item.m_bCollected);
    QVERIFY(&item != &cfg[0]);
}

void tst_MVThemeMgr_display::presentationOverridesTheConfigItem()
{
    QVector<SCfg_Item> cfg{cfgItem(1), cfgItem(2)};
    cfg[0].m_info_Thumb.m_qsUrl = QStringLiteral("config.png");
    cfg[1].m_info_Thumb.m_qsUrl = QStringLiteral("config.png");
    cfg[0].m_info_Gif.m_qsUrl = QStringLiteral("config.gif");
    const auto items = readFlat("<Filter><Item><UrlGif>no.gif</UrlGif><UrlThumb>a.png</UrlThumb>"
                                "<Name>Sea &amp; sky</Name><GUID>"
                                    + Files::guid(1).toLatin1() + "</GUID></Item><Item><GUID>"
                                    + Files::guid(2).toLatin1() + "</GUID></Item></Filter>",
                                eCfgItem_Filter, cfg, true);
    QCOMPARE(guidsOf(items), (QStringList{Files::guid(1), Files::guid(2)}));
    QCOMPARE(items.at(0).m_qsName, QStringLiteral("Sea & sky"));
    QCOMPARE(items.at(0).m_info_Thumb.m_qsUrl, QStringLiteral("a.png"));
    QCOMPARE(items.at(0).m_info_Gif.m_qsUrl, QStringLiteral("config.gif"));
    QCOMPARE(items.at(1).m_qsName, QString());
    QCOMPARE(items.at(1).m_info_Thumb.m_qsUrl, QString());
    QCOMPARE(cfg.at(0).m_qsName, QStringLiteral("config name"));
    QCOMPARE(cfg.at(0).m_info_Thumb.m_qsUrl, QStringLiteral("config.png"));
}

void tst_MVThemeMgr_display::isText_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<bool>("expected");
    QTest::newRow("1") << QByteArray("<IsText>1</IsText>") << true;
    QTest::newRow("2") << QByteArray("<IsText>2</IsText>") << true;
    QTest::newRow("-1") << QByteArray("<IsText>-1</IsText>") << true;
    QTest::newRow("0") << QByteArray("<IsText>0</IsText>") << false;
    QTest::newRow("abc") << QByteArray("<IsText>abc</IsText>") << false;
    QTest::newRow("true") << QByteArray("<IsText>true</IsText>") << false;
    QTest::newRow("hexadecimal") << QByteArray("<IsText>0x1</IsText>") << false;
    QTest::newRow("empty") << QByteArray("<IsText/>") << false;
    QTest::newRow("absent") << QByteArray() << false;
}

void tst_MVThemeMgr_display::isText()
{
    QFETCH(QByteArray, element);
    QFETCH(bool, expected);
    QVector<SCfg_Item> cfg{cfgItem(1)};
    const auto items = readFlat("<Filter><Item><GUID>" + Files::guid(1).toLatin1() + "</GUID>"
                                    + element + "</Item></Filter>",
                                eCfgItem_Filter, cfg, true);
    QCOMPARE(items.first().m_bIsText, expected);
    QCOMPARE(cfg.first().m_bIsText, expected);
}

void tst_MVThemeMgr_display::isTextOfTheConfigItemIsOverwritten()
{
    QVector<SCfg_Item> cfg{cfgItem(1), cfgItem(2)};
    cfg[0].m_bIsText = true;
    cfg[1].m_bIsText = true;
    const auto items =
        readFlat(filters({{Files::guid(1), QString(), QString()}}), eCfgItem_Filter, cfg, true);
    QCOMPARE(items.first().m_bIsText, false);
    QCOMPARE(cfg.at(0).m_bIsText, false);
    QVERIFY2(cfg.at(1).m_bIsText, "an item that is not listed stays");

    // This also holds for an item that is hidden for lack of a thumbnail.
    QVERIFY(readFlat(filters({{Files::guid(1), QString(), QStringLiteral("missing.png"), QString(),
                               QStringLiteral("1")}}),
                     eCfgItem_Filter, cfg, false)
                .isEmpty());
    QVERIFY(cfg.at(0).m_bIsText);
}

void tst_MVThemeMgr_display::orderAndDuplicatesOfTheFile()
{
    QVector<SCfg_Item> cfg{cfgItem(1), cfgItem(2), cfgItem(3)};
    const auto items = readFlat(filters({{Files::guid(3), QStringLiteral("c"), QString()},
                                         {Files::guid(1), QStringLiteral("a"), QString()},
                                         {Files::guid(3), QStringLiteral("again"), QString()}}),
                                eCfgItem_Filter, cfg, false);
    QCOMPARE(guidsOf(items), (QStringList{Files::guid(3), Files::guid(1), Files::guid(3)}));
    QCOMPARE(items.at(2).m_qsName, QStringLiteral("again"));
}

void tst_MVThemeMgr_display::firstOfEqualGuidsIsCopied()
{
    QVector<SCfg_Item> cfg{cfgItem(1), cfgItem(1)};
    cfg[0].m_info_CfgXML.m_qsUrl = QStringLiteral("first");
    const auto items =
        readFlat(filters({{Files::guid(1), QString(), QString(), QString(), QStringLiteral("1")}}),
                 eCfgItem_Filter, cfg, true);
    QCOMPARE(items.first().m_info_CfgXML.m_qsUrl, QStringLiteral("first"));
    QVERIFY(cfg.at(0).m_bIsText && !cfg.at(1).m_bIsText);
}

void tst_MVThemeMgr_display::unknownGuidIsLoggedAndSkipped()
{
    QVector<SCfg_Item> cfg{cfgItem(1)};
    const QString lower = Files::guid(1).toLower();
    const QString foreign = QString::fromUtf8("\xc3\xa9 100%s");
    const LogCapture log;
    const auto items = readFlat(filters({{lower, QString(), QString()},
                                         {foreign, QString(), QString()},
                                         {QString(), QString(), QString()},
                                         {Files::guid(1), QString(), QString()}}),
                                eCfgItem_Filter, cfg, true);
    QCOMPARE(guidsOf(items), QStringList{Files::guid(1)});
    QCOMPARE(m_fixture.described(log),
             (QByteArrayList{notFound(lower), notFound(foreign), notFound(QString())}));
}

void tst_MVThemeMgr_display::previewsDecideWhatIsShown()
{
    QVector<SCfg_Item> cfg{cfgItem(1), cfgItem(2), cfgItem(3)};
    putThumb(QStringLiteral("here.png"));
    Files::write(m_fixture.installedFile("display", "VideoFilters", QStringLiteral("there.png")),
                 "x");
    const LogCapture log;
    const auto items = readFlat(filters({{Files::guid(1), QString(), QStringLiteral("here.png")},
                                         {Files::guid(2), QString(), QStringLiteral("missing.png")},
                                         {Files::guid(3), QString(), QStringLiteral("there.png")}}),
                                eCfgItem_Filter, cfg, false);
    QCOMPARE(guidsOf(items), (QStringList{Files::guid(1), Files::guid(3)}));
    QVERIFY2(log.lines().isEmpty(), "an item without previews is left out silently");

    // The flat form checks the GIF of every item whose kind is theme.
    QVector<SCfg_Item> themes{cfgItem(1, eCfgItem_Theme)};
    themes[0].m_info_Gif.m_qsUrl = QStringLiteral("missing.gif");
    QVERIFY(readFlat("<Theme><Item><GUID>" + Files::guid(1).toLatin1() + "</GUID></Item></Theme>",
                     eCfgItem_Theme, themes, false)
                .isEmpty());
}

void tst_MVThemeMgr_display::keepAllShowsEverything()
{
    QVector<SCfg_Item> cfg{cfgItem(1)};
    const auto items =
        readFlat(filters({{Files::guid(1), QString(), QStringLiteral("missing.png")}}),
                 eCfgItem_Filter, cfg, true);
    QCOMPARE(guidsOf(items), QStringList{Files::guid(1)});
    QCOMPARE(items.first().m_info_Thumb.m_qsFile,
             m_fixture.downloaded("display", "VideoFilters", QStringLiteral("missing.png")));
}

void tst_MVThemeMgr_display::everyFileIsResolved()
{
    QVector<SCfg_Item> cfg{cfgItem(1, eCfgItem_Theme)};
    cfg[0].m_info_Gif.m_qsUrl = QStringLiteral("missing.gif");
    cfg[0].m_vecResource.resize(1);
    cfg[0].m_vecResource[0].m_qsUrl = QStringLiteral("a.zip");
    // The thumbnail is missing; the GIF and the resources are resolved all the same.
    const auto items = readFlat("<Theme><Item><GUID>" + Files::guid(1).toLatin1()
                                    + "</GUID><UrlThumb>missing.png</UrlThumb></Item></Theme>",
                                eCfgItem_Theme, cfg, true);
    const SCfg_Item& item = items.first();
    QCOMPARE(item.m_info_Gif.m_qsFile,
             m_fixture.downloaded("display", "Themes", QStringLiteral("missing.gif")));
    QCOMPARE(item.m_vecResource.at(0).m_qsFile,
             m_fixture.downloaded("config", "Themes", Files::guid(1) + QStringLiteral("/a.zip")));
    QVERIFY(QDir(m_fixture.downloaded("config", "Themes", Files::guid(1))).exists());
    QCOMPARE(cfg.at(0).m_vecResource.at(0).m_qsFile, QString());
}

void tst_MVThemeMgr_display::listsAreAppendedTo()
{
    QDomDocument doc;
    QVERIFY(doc.setContent(Files::document(filters({{Files::guid(1), QString(), QString()}}))));
    QVector<SCfg_Item> cfg{cfgItem(1)};
    QVector<SCfg_Item> items{cfgItem(9)};
    mgr().read_resource_display_xml_a(doc.documentElement(), eCfgItem_Filter,
                                      QStringLiteral("Filter"), cfg, items, true);
    QCOMPARE(guidsOf(items), (QStringList{Files::guid(9), Files::guid(1)}));
}

void tst_MVThemeMgr_display::kindComesFromTheCaller()
{
    QVector<SCfg_Item> cfg{cfgItem(1, eCfgItem_Theme)};
    const auto items =
        readFlat(filters({{Files::guid(1), QString(), QString()}}), eCfgItem_Filter, cfg, true);
    QCOMPARE(items.first().m_eType, eCfgItem_Filter);
    QCOMPARE(cfg.first().m_eType, eCfgItem_Theme);
}

void tst_MVThemeMgr_display::missingCategoryIsSilent()
{
    QVector<SCfg_Item> cfg{cfgItem(1)};
    const LogCapture log;
    QVERIFY(readFlat("<filter><Item/></filter><Other/>", eCfgItem_Filter, cfg, true).isEmpty());
    QVERIFY(readFlat("<Filter><item/><Group><Item/></Group></Filter>", eCfgItem_Filter, cfg, true)
                .isEmpty());
    QVERIFY(log.lines().isEmpty());
}

void tst_MVThemeMgr_display::noneEntryIsMade_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("made");
    QTest::newRow("Filter") << int(eCfgItem_Filter) << true;
    QTest::newRow("Transition") << int(eCfgItem_Transition) << false;
    QTest::newRow("Motion") << int(eCfgItem_Motion) << false;
    QTest::newRow("Theme") << int(eCfgItem_Theme) << false;
    QTest::newRow("BgMaterial") << int(eCfgItem_BgMaterial) << true;
}

void tst_MVThemeMgr_display::noneEntryIsMade()
{
    QFETCH(int, kind);
    QFETCH(bool, made);
    hostSettings().currentSkin = QStringLiteral("Plain");
    const QString tag = mgr().getCfgItemTypeStr(ECfgItemType(kind));
    QVector<SCfg_Item> cfg{cfgItem(1)};
    const LogCapture log;
    const auto items = readFlat(
        Files::displayCategory(tag,
                               {{noneGuid, QStringLiteral("None"), QStringLiteral("none.png"),
                                 QString(), QStringLiteral("1")},
                                {noneGuid.toLower(), QStringLiteral("no"), QString()}}),
        ECfgItemType(kind), cfg, true);
    QCOMPARE(m_fixture.described(log),
             (QByteArrayList{notFound(noneGuid), notFound(noneGuid.toLower())}));
    QCOMPARE(items.size(), made ? 1 : 0);
    if (!made)
        return;
    const SCfg_Item& item = items.first();
    QCOMPARE(int(item.m_eType), kind);
    QCOMPARE(item.m_qsGUID, noneGuid);
    QCOMPARE(item.m_qsName, QStringLiteral("None"));
    QCOMPARE(item.m_info_Thumb.m_qsUrl, QStringLiteral("none.png"));
    QCOMPARE(item.m_bIsText, false);
    QCOMPARE(item.m_info_CfgXML.m_qsUrl, QString());
    QVERIFY(item.m_vecResource.isEmpty());
    QVERIFY2(
        readFlat(Files::displayCategory(tag, {{noneGuid, QString(), QStringLiteral("none.png")}}),
                 ECfgItemType(kind), cfg, false)
            .isEmpty(),
        "its thumbnail must be there like any other");
}

void tst_MVThemeMgr_display::noneEntryOfTheConfigCatalogueIsAnItem()
{
    QVector<SCfg_Item> cfg{cfgItem(1)};
    cfg[0].m_qsGUID = noneGuid;
    cfg[0].m_vecResource.resize(1);
    const LogCapture log;
    const auto items =
        readFlat(filters({{noneGuid, QString(), QString(), QString(), QStringLiteral("1")}}),
                 eCfgItem_Filter, cfg, true);
    QCOMPARE(items.first().m_bIsText, true);
    QCOMPARE(items.first().m_vecResource.size(), 1);
    QVERIFY(log.lines().isEmpty());
}

MV_TEST_MAIN(tst_MVThemeMgr_display)
#include "tst_MVThemeMgr_display.moc"
