// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "support/UnusualFiles.h"

namespace tst_hostileNames {

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests whole catalogues whose names lead out of the root, and very large catalogues.
class tst_hostileNames : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void namesCreateNothingOutside_data();
    void namesCreateNothingOutside();
    void linksOutOfTheTreesCountForNothing_data();
    void linksOutOfTheTreesCountForNothing();
    void linksWithinATreeCount();
    void loadShowsNoItemWithAPreviewBehindALink();
    void longNameIsMissingEveryTime();
    void aConfigBehindALinkIsNotRead();
    void tenThousandItems();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    void writeCatalogue(const QString& guid, const QString& name) const;
    QVector<SFileInfo*> needed() const;

    CatalogueFixture m_fixture;
    QString m_outside; ///< a unique name
};

namespace {

const char* const kinds[] = {"Filter", "Transition", "Motion", "Theme", "BgMaterial"};

QVector<QVector<SCfg_Item>*> lists(const Mgr::SResourceXML& catalogue)
{
    auto& c = const_cast<Mgr::SResourceXML&>(catalogue);
    return {&c.vecFilter, &c.vecTransition, &c.vecMotion, &c.vecTheme, &c.vecBgMaterial};
}

} // namespace

void tst_hostileNames::initTestCase()
{
    m_outside = QStringLiteral("outside-%1").arg(QCoreApplication::applicationPid());
}

void tst_hostileNames::init()
{
    m_fixture.fresh();
    CatalogueFixture::setParam("hasMV", "1");
}

/// Writes one item of every kind that uses the name for each of its files.
void tst_hostileNames::writeCatalogue(const QString& guid, const QString& name) const
{
    QByteArray config;
    QByteArray display;
    for (const char* kind : kinds) {
        const QString tag = QString::fromLatin1(kind);
        config += Files::cfgGroup(tag, {{guid, name, {name, QStringLiteral("deep/") + name}}});
        const Files::DisplayItem item{guid, name, name, name};
        display += tag == QLatin1String("Theme") ? Files::displayThemes({{name, {item}}})
                                                 : Files::displayCategory(tag, {item});
    }
    Files::write(m_fixture.configXml(), Files::document(config));
    Files::write(m_fixture.displayXml(), Files::document(display));
}

/// Returns the files that the items of both catalogues lack.
QVector<SFileInfo*> tst_hostileNames::needed() const
{
    QVector<SFileInfo*> files;
    const auto all = lists(mgr().getCfgXML()) + lists(mgr().getDisplayXML());
    for (QVector<SCfg_Item>* list : all) {
        for (SCfg_Item& item : *list)
            mgr().getNeedDownLoadFiles(&item, files);
    }
    return files;
}

void tst_hostileNames::namesCreateNothingOutside_data()
{
    QTest::addColumn<QString>("guid");
    QTest::addColumn<QString>("name"); // OUT is replaced by a unique name
    const QString guid = Files::guid(1);
    for (int levels = 1; levels <= 14; ++levels) {
        for (const char* up : {"../", "/..", "/%2e%2e", "/.%2E", "..\\", "/..%2f", "/..%5c"}) {
            const QString ups = QString::fromLatin1(up).repeated(levels);
            QTest::addRow("%d times %s", levels, up) << guid << ups + QStringLiteral("/OUT/a.zip");
        }
        QTest::addRow("GUID, %d times ../", levels) << guid + QLatin1Char('/')
                + QStringLiteral("../").repeated(levels)
                + QStringLiteral("OUT") << QStringLiteral("a.zip");
    }
    for (const char* name : {"",
                             ".",
                             "..",
                             "/",
                             "/.",
                             "/..",
                             "//",
                             "//OUT/a",
                             "///../OUT/a",
                             " ",
                             "/ ",
                             "%00",
                             "/%00",
                             "/OUT%00/a",
                             "/%00/../../../OUT/a",
                             "/%",
                             "/%zz",
                             "/%2",
                             "%2e%2e/%2e%2e/OUT/a",
                             "~/OUT/a",
                             "C:/OUT/a",
                             "C:\\OUT\\a",
                             "\\\\OUT\\a",
                             "file:///OUT/a",
                             "a b/OUT",
                             "/a\tb/OUT/c",
                             "/\xe2\x80\xae/OUT/a",
                             "/%ff%fe/OUT/a",
                             "$HOME/OUT",
                             "%1/OUT",
                             "/%1/OUT/%2",
                             "a/../../../../../../../../OUT/a",
                             "/OUT/a/"})
        QTest::newRow(name) << guid << QString::fromUtf8(name);
    QTest::newRow("very long name") << guid << QLatin1Char('/') + QString(5000, QLatin1Char('x'));
    QTest::newRow("very long folder")
        << guid << QString(5000, QLatin1Char('x')) + QStringLiteral("/a");
    QTest::newRow("empty GUID") << QString() << QStringLiteral("/new/a");
    QTest::newRow("GUID is ..") << QStringLiteral("..") << QStringLiteral("../../OUT/a");
    QTest::newRow("GUID with backslashes")
        << guid + QStringLiteral("\\..\\..\\OUT") << QStringLiteral("a");
    QTest::newRow("GUID with %2e")
        << guid + QStringLiteral("/%2e%2e/%2e%2e/OUT") << QStringLiteral("a");
}

void tst_hostileNames::namesCreateNothingOutside()
{
    QFETCH(QString, guid);
    QFETCH(QString, name);
    guid.replace(QLatin1String("OUT"), m_outside);
    name.replace(QLatin1String("OUT"), m_outside);
    writeCatalogue(guid, name);
    const QStringList outside = m_fixture.entriesOutsideRoot();
    const QStringList home = QDir(TestHome::path()).entryList();

    mgr().load(true);
    const QVector<SFileInfo*> files = needed();
    mgr().parseThemes();
    for (int kind = 0; kind < 5; ++kind)
        QCOMPARE(lists(mgr().getCfgXML()).at(kind)->size(), 1);
    QCOMPARE(m_fixture.entriesOutsideRoot(), outside);
    QCOMPARE(QDir(TestHome::path()).entryList(), home);
    for (const char* folder : {"/", "/tmp/", "/etc/"})
        QVERIFY(!QFileInfo::exists(QString::fromLatin1(folder) + m_outside));
    // Nothing new has appeared in the root except the trees.
    QCOMPARE(
        QDir(m_fixture.root()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        (QStringList{QStringLiteral("imgThumb"), QStringLiteral("Themes")}));
    // Whatever a download may write is also in the root by its clean name.
    const QString inside = m_fixture.root() + QLatin1Char('/');
    for (const SFileInfo* file : files) {
        if (mgr().isDownloadPath(file->m_qsFile))
            QVERIFY2(QDir::cleanPath(file->m_qsFile).startsWith(inside),
                     qPrintable(file->m_qsFile));
    }
}

void tst_hostileNames::linksOutOfTheTreesCountForNothing_data()
{
    QTest::addColumn<bool>("isInstalled");
    QTest::newRow("download root") << false;
    QTest::newRow("installed tree") << true;
}

/// An attacker may have placed the links to have a user's file shown or overwritten.
void tst_hostileNames::linksOutOfTheTreesCountForNothing()
{
    QFETCH(bool, isInstalled);
    const QString folder = isInstalled ? m_fixture.installedFile("display", "Themes", QString())
                                       : m_fixture.downloaded("display", "Themes", QString());
    const QString outside = m_fixture.base() + QStringLiteral("/outside");
    Files::write(outside + QStringLiteral("/a.png"), "secret");
    QVERIFY(QDir().mkpath(folder));
    MV_LINK(outside, folder + QStringLiteral("/folder"));
    if (UnusualFiles::hasFileLinks)
        MV_LINK(outside + QStringLiteral("/a.png"), folder + QStringLiteral("/file.png"));
    for (const char* name : {"/file.png", "/folder/a.png"}) {
        SCfg_Item theme;
        theme.m_eType = eCfgItem_Theme;
        theme.m_qsGUID = Files::guid(1);
        theme.m_info_Gif.m_qsUrl = QString::fromLatin1(name);
        QVERIFY2(!mgr().doItem_Info_Gif(theme), name);
        QVERIFY(theme.m_info_Gif.m_qsFile.startsWith(m_fixture.root()));
    }
}

void tst_hostileNames::linksWithinATreeCount()
{
    const QString folder = m_fixture.installedFile("display", "Themes", QString());
    Files::write(folder + QStringLiteral("/a.gif"), "animation");
    MV_LINK(folder + QStringLiteral("/a.gif"), folder + QStringLiteral("/link.gif"));
    SCfg_Item theme;
    theme.m_eType = eCfgItem_Theme;
    theme.m_qsGUID = Files::guid(1);
    theme.m_info_Gif.m_qsUrl = QStringLiteral("/link.gif");
    QVERIFY(mgr().doItem_Info_Gif(theme));
    QCOMPARE(QFileInfo(theme.m_info_Gif.m_qsFile).canonicalFilePath(),
             QFileInfo(folder + QStringLiteral("/a.gif")).canonicalFilePath());
}

/// A load resolves each folder once, but looks at every file.
void tst_hostileNames::loadShowsNoItemWithAPreviewBehindALink()
{
    const QString folder = m_fixture.downloaded("display", "Themes", QString());
    const QString outside = m_fixture.base() + QStringLiteral("/outside");
    Files::write(outside + QStringLiteral("/a.gif"), "secret");
    for (const char* name : {"/1.gif", "/4.gif", "/1.png", "/2.png", "/3.png", "/4.png"})
        Files::write(folder + QString::fromLatin1(name), "picture");
    if (UnusualFiles::hasFileLinks)
        MV_LINK(outside + QStringLiteral("/a.gif"), folder + QStringLiteral("/2.gif"));
    MV_LINK(outside, folder + QStringLiteral("/folder"));
    QVector<Files::CfgItem> items;
    QVector<Files::DisplayItem> shown;
    for (int number = 1; number <= 4; ++number) {
        const QString name =
            number == 3 ? QStringLiteral("folder/a.gif") : QStringLiteral("%1.gif").arg(number);
        items.append({Files::guid(number), QString(), {}});
        shown.append({Files::guid(number), QString::number(number),
                      QStringLiteral("%1.png").arg(number), name, QString()});
    }
    Files::write(m_fixture.configXml(),
                 Files::document(Files::cfgGroup(QStringLiteral("Theme"), items)));
    Files::write(m_fixture.displayXml(),
                 Files::document(Files::displayThemes({{QStringLiteral("travel"), shown}})));
    mgr().load(true);
    QStringList names;
    for (const SCfg_Item& theme : qAsConst(mgr().getThemes_Display()))
        names.append(theme.m_qsName);
    QCOMPARE(names, (QStringList{QStringLiteral("1"), QStringLiteral("4")}));
}

/// The first look-up creates those folders that it can.
void tst_hostileNames::longNameIsMissingEveryTime()
{
    SCfg_Item filter;
    filter.m_eType = eCfgItem_Filter;
    filter.m_qsGUID = Files::guid(1);
    filter.m_vecResource.resize(1);
    filter.m_vecResource[0].m_qsUrl = QString(300, QLatin1Char('x')) + QStringLiteral("/a.zip");
    for (int look = 1; look <= 3; ++look)
        QVERIFY2(!mgr().doItem_Info_DependRes(filter), qPrintable(QString::number(look)));
}

/// This must hold even without an installation, where there is no second tree to search.
void tst_hostileNames::aConfigBehindALinkIsNotRead()
{
    QVERIFY(!QFileInfo::exists(mgr().Path_resource_RootDir(Mgr::eLoadDir_Local)));
    const QString users = m_fixture.base() + QStringLiteral("/users.xml");
    const QString link = m_fixture.downloaded("config", "Themes", QStringLiteral("t.xml"));
    Files::write(users, Files::document("<Name>of the user</Name>"));
    MV_LINK(users, link);
    const QString guid = Files::guid(1);
    Files::write(m_fixture.configXml(),
                 Files::document(Files::cfgGroup(QStringLiteral("Theme"),
                                                 {{guid, QStringLiteral("/Themes/t.xml"), {}}})));
    Files::write(m_fixture.displayXml(),
                 Files::document(Files::displayThemes(
                     {{QStringLiteral("travel"), {{guid, QStringLiteral("Theme"), QString()}}}})));
    mgr().load(true);
    SCfg_Item* const theme = mgr().findItemByIDFromDisplay(eCfgItem_Theme, guid);
    QVERIFY(theme);
    mgr().ensureThemeParsed(*theme);
    QVERIFY(!theme->parsedTheme());

    QVERIFY(QFile::remove(link) && QFile::copy(users, link));
    QVERIFY(mgr().ensureThemeParsed(*theme));
    QCOMPARE(theme->parsedTheme()->m_qsName, QStringLiteral("of the user"));
}

void tst_hostileNames::tenThousandItems()
{
    constexpr int count = 10000;
    QVector<Files::CfgItem> config;
    QVector<Files::DisplayItem> display;
    for (int i = 0; i < count; ++i) {
        // Every third GUID occurs twice, every hundredth is empty.
        const QString guid = i % 100 == 0 ? QString() : Files::guid(i % 3 == 0 ? i + 1 : i);
        config.append({guid, QString(), {}});
        display.append({guid, QString::number(i), QString()});
    }
    Files::write(m_fixture.configXml(),
                 Files::document(Files::cfgGroup(QStringLiteral("Filter"), config)
                                 + Files::cfgGroup(QStringLiteral("Theme"), config)));
    Files::write(m_fixture.displayXml(),
                 Files::document(Files::displayCategory(QStringLiteral("Filter"), display)
                                 + Files::displayThemes({{QStringLiteral("travel"), display}})));
    mgr().load(true);
    QCOMPARE(mgr().getCfgXML().vecFilter.size(), count);
    QCOMPARE(mgr().getCfgXML().vecTheme.size(), count);
    QCOMPARE(mgr().getFilters_Display().size(), count);
    QCOMPARE(mgr().getThemes_Display().size(), count);
    QCOMPARE(mgr().getThemes_Display().last().m_qsName, QString::number(count - 1));
}

MV_TEST_MAIN(tst_hostileNames)

} // namespace tst_hostileNames

#include "tst_hostileNames.moc"
