// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

#include <QMetaMethod>
#include <QThread>

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests the catalogue as a whole: loading, clearing, looking up.
class tst_MVThemeMgr_manager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { m_fixture.fresh(); }
    void thereIsOneManager();
    void signalsStandInTheirOrder();

    void loadReadsInItsOrder();
    void secondLoadDoesNothing();
    void reloadRereadsEverything();
    void failedLoadCountsAsLoaded();
    void loadReadsNeitherBackgroundFavouritesNorThemeTypes();
    void loadKeepsTheThemeAppliedLast();
    void hasMV_data();
    void hasMV();
    void parseThemesSetsTheKind();
    void clearForgetsItems();

    void listsAreReferences();
    void findItemByID();
    void findByKind_data();
    void findByKind();
    void isLocalTheme_data();
    void isLocalTheme();
    void currentTheme();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    void writeCatalogue(int number) const;
    QByteArrayList loaded() const;

    CatalogueFixture m_fixture;
};

namespace {

const char* const kinds[] = {"Filter", "Transition", "Motion", "Theme", "BgMaterial"};

QVector<const QVector<SCfg_Item>*> vectorsOf(const Mgr::SResourceXML& catalogue)
{
    return {&catalogue.vecFilter, &catalogue.vecTransition, &catalogue.vecMotion,
            &catalogue.vecTheme, &catalogue.vecBgMaterial};
}

/// The ten vectors of the catalogue.
QVector<const QVector<SCfg_Item>*> allVectors()
{
    MVThemeMgr& manager = CatalogueFixture::manager();
    return vectorsOf(manager.getCfgXML()) + vectorsOf(manager.getDisplayXML());
}

} // namespace

/// Writes one item of that number per kind to both catalogues, and downloads the theme's config.
void tst_MVThemeMgr_manager::writeCatalogue(int number) const
{
    QByteArray config;
    QByteArray display;
    for (const char* kind : kinds) {
        const QString tag = QString::fromLatin1(kind);
        config += Files::cfgGroup(tag, {{Files::guid(number), QStringLiteral("/a.xml"), {}}});
        const Files::DisplayItem item{Files::guid(number), tag, QString()};
        display += tag == QLatin1String("Theme")
            ? Files::displayThemes({{QStringLiteral("travel"), {item}}})
            : Files::displayCategory(tag, {item});
    }
    Files::write(m_fixture.configXml(), Files::document(config));
    Files::write(m_fixture.displayXml(), Files::document(display));
    Files::write(m_fixture.root() + QStringLiteral("/Themes/config/PQD/Download/a.xml"),
                 "<Theme><Name>Sea</Name></Theme>");
}

/// Returns the log of load(false).
QByteArrayList tst_MVThemeMgr_manager::loaded() const
{
    const LogCapture log;
    mgr().load(false);
    return CatalogueFixture::described(log);
}

/// Runs before anything is set: a new manager is empty and reads no file.
void tst_MVThemeMgr_manager::initTestCase()
{
    const LogCapture log;
    const auto vectors = allVectors();
    for (const auto* items : vectors)
        QVERIFY(items->isEmpty());
    QVERIFY(!mgr().getCurApplyTheme());
    QVERIFY(mgr().festivals().isEmpty() && mgr().travel().isEmpty() && mgr().banquets().isEmpty());
    QVERIFY(!mgr().parent());
    QVERIFY(log.lines().isEmpty());
    QVERIFY(!QFile::exists(TestHome::path() + QStringLiteral("/data")));
}

void tst_MVThemeMgr_manager::thereIsOneManager()
{
    QCOMPARE(Mgr::init(), Mgr::init());
    QCOMPARE(Mgr::init()->thread(), QThread::currentThread());
}

void tst_MVThemeMgr_manager::signalsStandInTheirOrder()
{
    const QMetaObject& meta = Mgr::staticMetaObject;
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QByteArrayList own;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Signal);
        own.append(meta.method(i).methodSignature());
    }
    QCOMPARE(own,
             (QByteArrayList{"sigThemesCollected(const SCfg_Item*)",
                             "sigFilterCollected(const SCfg_Item*)",
                             "sigBgMaterialCollected(const SCfg_Item*)"}));
    QCOMPARE(meta.method(meta.methodOffset()).parameterNames(), QByteArrayList{"pSCfg_Item"});
}

void tst_MVThemeMgr_manager::loadReadsInItsOrder()
{
    writeCatalogue(1);
    CatalogueFixture::setParam("hasMV", "1");
    // Unreadable favourites are reported when they are read.
    for (const char* name : {"ThemeCollect", "FilterCollect"}) {
        QVERIFY(QFile::remove(m_fixture.collectFile(name)));
        QVERIFY(QDir().mkpath(m_fixture.collectFile(name)));
    }
    const QString theme = m_fixture.root() + QStringLiteral("/Themes/config/PQD/Download/a.xml");
    QCOMPARE(
        loaded(),
        (QByteArrayList{m_fixture.line(1, "readThemeCollect open file[%1] error!"),
                        m_fixture.line(1, "readFilterCollect open file[%1] error!", "MVFilterMgr"),
                        m_fixture.checked(m_fixture.configXml(), 1),
                        m_fixture.checked(m_fixture.displayXml(), 1), m_fixture.checked(theme, 1),
                        m_fixture.line(1, "read [" + theme.toUtf8() + "] is ok!")}));
}

void tst_MVThemeMgr_manager::secondLoadDoesNothing()
{
    writeCatalogue(1);
    mgr().load(false);
    const SCfg_Item* const held = mgr().getCfgXML().vecTheme.constData();
    writeCatalogue(2);
    QCOMPARE(loaded(), QByteArrayList());
    QCOMPARE(mgr().getCfgXML().vecTheme.constData(), held);
    QCOMPARE(guidsOf(mgr().getThemes_Display()), QStringList{Files::guid(1)});
}

void tst_MVThemeMgr_manager::reloadRereadsEverything()
{
    writeCatalogue(1);
    mgr().load(true); // it also works as the first call
    QCOMPARE(guidsOf(mgr().getThemes_Display()), QStringList{Files::guid(1)});
    writeCatalogue(2);
    Files::write(m_fixture.collectFile("ThemeCollect"),
                 "{\"" + Files::guid(2).toLatin1() + "\": true}");
    Files::write(m_fixture.collectFile("FilterCollect"),
                 "{\"" + Files::guid(2).toLatin1() + "\": true}");
    mgr().load(true);
    const auto vectors = allVectors();
    for (const auto* items : vectors)
        QCOMPARE(guidsOf(*items), QStringList{Files::guid(2)});
    QVERIFY(mgr().isThemeCollect(&mgr().getThemes_Display().first()));
    QVERIFY(mgr().isFilterCollect(&mgr().getFilters_Display().first()));
    QCOMPARE(loaded(), QByteArrayList());
}

void tst_MVThemeMgr_manager::failedLoadCountsAsLoaded()
{
    QCOMPARE(loaded(),
             (QByteArrayList{m_fixture.checked(m_fixture.configXml(), 0),
                             m_fixture.checked(m_fixture.configXml(Mgr::eLoadDir_Local), 0),
                             m_fixture.line(1, "read_resource_config_xml is error!"),
                             m_fixture.checked(m_fixture.displayXml(), 0),
                             m_fixture.checked(m_fixture.displayXml(Mgr::eLoadDir_Local), 0),
                             m_fixture.line(1, "read_resource_display_xml is error!")}));
    QCOMPARE(loaded(), QByteArrayList());
}

void tst_MVThemeMgr_manager::loadReadsNeitherBackgroundFavouritesNorThemeTypes()
{
    Files::write(m_fixture.collectFile("BgMaterialCollect"), "no JSON");
    Files::write(m_fixture.themeTypeFile(), "{\"travel\": [1]}");
    const LogCapture log;
    mgr().load(false);
    QCOMPARE(log.countContaining("parseJson"), 0);
    QVERIFY(mgr().travel().isEmpty());
}

void tst_MVThemeMgr_manager::loadKeepsTheThemeAppliedLast()
{
    SCfg_Item theme;
    mgr().setCurApplyTheme(&theme);
    mgr().load(false);
    mgr().load(true);
    QCOMPARE(mgr().getCurApplyTheme(), &theme);
    mgr().setCurApplyTheme(nullptr);
}

void tst_MVThemeMgr_manager::hasMV_data()
{
    QTest::addColumn<QByteArray>("value"); // null: not set
    QTest::addColumn<bool>("parsed");
    QTest::newRow("1") << QByteArray("1") << true;
    QTest::newRow("-2") << QByteArray("-2") << true;
    QTest::newRow("01") << QByteArray("01") << true;
    QTest::newRow("0") << QByteArray("0") << false;
    QTest::newRow("true") << QByteArray("true") << false;
    QTest::newRow("hexadecimal") << QByteArray("0x1") << false;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("not set") << QByteArray() << false;
}

void tst_MVThemeMgr_manager::hasMV()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, parsed);
    if (!value.isNull())
        CatalogueFixture::setParam("hasMV", value.constData());
    writeCatalogue(1);
    mgr().load(false);
    const SThemes_a* const theme = mgr().getThemes_Display().first().m_pThemes_a;
    QCOMPARE(theme != nullptr, parsed);
    if (theme)
        QCOMPARE(theme->m_qsName, QStringLiteral("Sea"));
    QVERIFY2(!mgr().getCfgXML().vecTheme.first().m_pThemes_a, "themes that are shown are parsed");
}

void tst_MVThemeMgr_manager::parseThemesSetsTheKind()
{
    writeCatalogue(1);
    mgr().load(false);
    SCfg_Item& theme = mgr().getThemes_Display().first();
    theme.m_eType = eCfgItem_Motion;
    mgr().parseThemes();
    QCOMPARE(theme.m_eType, eCfgItem_Theme);
    QVERIFY(theme.m_pThemes_a);

    // Without its config on disk a theme is left unchanged, without an attempt to read it.
    theme.m_pThemes_a = nullptr;
    QVERIFY(QFile::remove(theme.m_info_CfgXML.m_qsFile));
    const LogCapture log;
    mgr().parseThemes();
    QVERIFY(!theme.m_pThemes_a);
    QVERIFY(log.lines().isEmpty());

    // A malformed config leaves it unchanged, too.
    Files::write(theme.m_info_CfgXML.m_qsFile, "<");
    mgr().parseThemes();
    QVERIFY(!theme.m_pThemes_a);
}

void tst_MVThemeMgr_manager::clearForgetsItems()
{
    writeCatalogue(1);
    mgr().load(false);
    mgr().setCurApplyTheme(&mgr().getThemes_Display().first());
    mgr().getThemes_Display().first().m_bCollected = true;
    mgr().setThemesCollected(&mgr().getThemes_Display().first());
    mgr().clear();
    const auto vectors = allVectors();
    for (const auto* items : vectors)
        QVERIFY(items->isEmpty());
    QVERIFY(!mgr().getCurApplyTheme());
    QCOMPARE(mgr().saveThemePath(), m_fixture.root() + QStringLiteral("/Themes/config"));
    SCfg_Item asked;
    asked.m_qsGUID = Files::guid(1);
    QVERIFY2(mgr().isThemeCollect(&asked), "favourites stay");
    QVERIFY(!loaded().isEmpty());
    QCOMPARE(guidsOf(mgr().getThemes_Display()), QStringList{Files::guid(1)});
}

void tst_MVThemeMgr_manager::listsAreReferences()
{
    const Mgr::SResourceXML& shown = mgr().getDisplayXML();
    QCOMPARE(&mgr().getFilters_Display(), &shown.vecFilter);
    QCOMPARE(&mgr().getThemes_Display(), &shown.vecTheme);
    QCOMPARE(&mgr().getBgMaterial_Display(), &shown.vecBgMaterial);
    QCOMPARE(&mgr().getCfgXML(), &mgr().getCfgXML());
    QVERIFY(&mgr().getCfgXML() != &shown);
}

void tst_MVThemeMgr_manager::findItemByID()
{
    QVector<SCfg_Item> items(4);
    items[1].m_qsGUID = Files::guid(1);
    items[2].m_qsGUID = Files::guid(2);
    items[3].m_qsGUID = Files::guid(1);
    const SCfg_Item* const first = items.constData();
    QCOMPARE(mgr().findItemByID(items, Files::guid(1)), first + 1);
    QCOMPARE(mgr().findItemByID(items, Files::guid(2)), first + 2);
    QCOMPARE(mgr().findItemByID(items, QString()), first);
    for (const QString& other : {Files::guid(1).toLower(), Files::guid(1).mid(1, 36),
                                 Files::guid(1) + QLatin1Char(' '), Files::guid(3)})
        QVERIFY2(!mgr().findItemByID(items, other), qPrintable(other));
    QVERIFY(!mgr().findItemByID(QVector<SCfg_Item>(), QString()));
}

void tst_MVThemeMgr_manager::findByKind_data()
{
    QTest::addColumn<int>("kind");
    for (const int kind : {0, 1, 2, 3, 4, 5, 6, -1})
        QTest::addRow("%d", kind) << kind;
}

void tst_MVThemeMgr_manager::findByKind()
{
    QFETCH(int, kind);
    writeCatalogue(1);
    mgr().load(false);
    const bool known = kind >= 0 && kind < 5;
    const auto expected = [&](const Mgr::SResourceXML& catalogue) {
        return known ? vectorsOf(catalogue).at(kind)->constData() : nullptr;
    };
    const auto k = ECfgItemType(kind);
    QCOMPARE(mgr().findItemByIDFromConfig(k, Files::guid(1)), expected(mgr().getCfgXML()));
    QCOMPARE(mgr().findItemByIDFromDisplay(k, Files::guid(1)), expected(mgr().getDisplayXML()));
    for (const QString& other : {Files::guid(2), Files::guid(1).toLower(), QString()}) {
        QVERIFY(!mgr().findItemByIDFromConfig(k, other));
        QVERIFY(!mgr().findItemByIDFromDisplay(k, other));
    }
}

void tst_MVThemeMgr_manager::isLocalTheme_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<int>("expected");
    QTest::newRow("server name") << QStringLiteral("/Themes/a.xml") << 1;
    QTest::newRow("slash") << QStringLiteral("/") << 1;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("drive") << QStringLiteral("C:/x.xml") << 0;
    QTest::newRow("relative") << QStringLiteral("a/b.xml") << 0;
    QTest::newRow("blank first") << QStringLiteral(" /a.xml") << 0;
    QTest::newRow("backslash") << QStringLiteral("\\a.xml") << 0;
}

void tst_MVThemeMgr_manager::isLocalTheme()
{
    QFETCH(QString, url);
    QFETCH(int, expected);
    SCfg_Item item;
    item.m_info_CfgXML.m_qsUrl = url;
    QCOMPARE(int(mgr().isLocal_Theme(item)), expected);
}

void tst_MVThemeMgr_manager::currentTheme()
{
    SCfg_Item theme;
    mgr().setCurApplyTheme(&theme);
    QCOMPARE(mgr().getCurApplyTheme(), &theme);
    mgr().setCurApplyTheme(nullptr);
    QVERIFY(!mgr().getCurApplyTheme());
}

MV_TEST_MAIN(tst_MVThemeMgr_manager)
#include "tst_MVThemeMgr_manager.moc"
