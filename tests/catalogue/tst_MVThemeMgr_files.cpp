// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

namespace tst_MVThemeMgr_files {

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests the rules by which each kind of file of an item is located.
class tst_MVThemeMgr_files : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }

    void configIsNamedAfterTheGuid_data();
    void configIsNamedAfterTheGuid();
    void configSetsKindAndHalf();
    void configWithNothingToFetch_data();
    void configWithNothingToFetch();
    void configNeverCreatesFolders();

    void thumbnailOfEveryKind_data();
    void thumbnailOfEveryKind();
    void thumbnailWithoutGuid();
    void thumbnailNameDoesNotGoUp();
    void emptyThumbnailNameIsTheKindFolder();

    void gifOfAThemeOnly_data();
    void gifOfAThemeOnly();
    void gifWithoutGuid();
    void gifNameWithSlashIsNotAbsolute();

    void resourcesLieInAFolderPerItem_data();
    void resourcesLieInAFolderPerItem();
    void resourcesWithoutGuid();
    void resourcesAreAllLookedAt();
    void missingResourcesAreAppended();
    void noResources();

    void noneEntryFollowsTheSkin_data();
    void noneEntryFollowsTheSkin();
    void onlyFiltersAndBackgroundsHaveANoneEntry();

    void nothingIsLogged();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }

    CatalogueFixture m_fixture;
};

namespace {

const QString noneGuid = QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");
const char* const folders[] = {"VideoFilters", "Transitions", "Motions", "Themes", "BgMaterial"};

SCfg_Item itemOf(int kind, const QString& guid = Files::guid(1))
{
    SCfg_Item item;
    item.m_eType = ECfgItemType(kind);
    item.m_qsGUID = guid;
    return item;
}

void addKinds()
{
    QTest::addColumn<int>("kind");
    for (int kind = 0; kind < 5; ++kind)
        QTest::newRow(folders[kind]) << kind;
}

/// GUID texts for which nothing can be fetched.
const QString noGuids[] = {QString(), QStringLiteral("text"),
                           QStringLiteral("{00000000-0000-0000-0000-000000000000}")};

QVector<SFileInfo> resources(const QStringList& urls)
{
    QVector<SFileInfo> records;
    for (const QString& url : urls) {
        records.append(SFileInfo());
        records.last().m_qsUrl = url;
    }
    return records;
}

} // namespace

void tst_MVThemeMgr_files::configIsNamedAfterTheGuid_data()
{
    addKinds();
}

void tst_MVThemeMgr_files::configIsNamedAfterTheGuid()
{
    QFETCH(int, kind);
    SCfg_Item item = itemOf(kind);
    item.m_info_CfgXML.m_qsUrl = QStringLiteral("built-in name.xml");
    const QString name = Files::guid(1) + QStringLiteral(".xml");
    QVERIFY(!mgr().doItem_Info_CfgXML(item));
    QCOMPARE(item.m_info_CfgXML.m_qsFile, m_fixture.downloaded("config", folders[kind], name));
    Files::write(m_fixture.installedFile("config", folders[kind], name), "x");
    QVERIFY(mgr().doItem_Info_CfgXML(item));
    QCOMPARE(item.m_info_CfgXML.m_qsFile, m_fixture.installedFile("config", folders[kind], name));
    QVERIFY(item.m_info_CfgXML.m_qsFile.contains(QLatin1String("/Resource//")));
}

void tst_MVThemeMgr_files::configSetsKindAndHalf()
{
    for (const QString& guid : {Files::guid(1), QString()}) {
        SCfg_Item item = itemOf(eCfgItem_Motion, guid);
        item.m_info_CfgXML.m_bThumbDir = true;
        mgr().doItem_Info_CfgXML(item);
        QCOMPARE(item.m_info_CfgXML.m_eType, eCfgItem_Motion);
        QCOMPARE(item.m_info_CfgXML.m_bThumbDir, false);
    }
}

void tst_MVThemeMgr_files::configWithNothingToFetch_data()
{
    QTest::addColumn<QString>("guid");
    QTest::addColumn<QString>("url");
    const QString url = QStringLiteral("/Themes/missing.xml");
    QTest::newRow("no GUID") << QString() << url;
    QTest::newRow("text for a GUID") << QStringLiteral("text") << url;
    QTest::newRow("zero GUID") << noGuids[2] << url;
    QTest::newRow("installed with the application")
        << QStringLiteral("{05424433-FB6F-41CD-96E4-ECD6D1C2C841}") << url;
    QTest::newRow("no name") << Files::guid(1) << QString();
}

void tst_MVThemeMgr_files::configWithNothingToFetch()
{
    QFETCH(QString, guid);
    QFETCH(QString, url);
    SCfg_Item item = itemOf(eCfgItem_Theme, guid);
    item.m_info_CfgXML.m_qsUrl = url;
    item.m_info_CfgXML.m_qsFile = QStringLiteral("/old");
    QVERIFY(mgr().doItem_Info_CfgXML(item));
    QCOMPARE(item.m_info_CfgXML.m_qsFile, QString());
    QCOMPARE(item.m_info_CfgXML.m_qsUrl, url);
}

void tst_MVThemeMgr_files::configNeverCreatesFolders()
{
    const QStringList before = CatalogueFixture::entriesBelow(m_fixture.base());
    for (const char* url : {"/new/folder/a.xml", "a.xml", "new/folder/a.xml"}) {
        SCfg_Item item = itemOf(eCfgItem_Theme, Files::guid(1) + QStringLiteral("/tail"));
        item.m_info_CfgXML.m_qsUrl = QString::fromLatin1(url);
        QVERIFY(!mgr().doItem_Info_CfgXML(item));
    }
    QCOMPARE(CatalogueFixture::entriesBelow(m_fixture.base()), before);
}

void tst_MVThemeMgr_files::thumbnailOfEveryKind_data()
{
    addKinds();
}

void tst_MVThemeMgr_files::thumbnailOfEveryKind()
{
    QFETCH(int, kind);
    const bool none = kind == eCfgItem_Transition || kind == eCfgItem_Motion;
    SCfg_Item item = itemOf(kind);
    item.m_info_Thumb.m_qsUrl = QStringLiteral("new/a.png");
    item.m_info_Thumb.m_qsFile = QStringLiteral("/old");
    const QString expected =
        m_fixture.downloaded("display", folders[kind], QStringLiteral("new/a.png"));
    QCOMPARE(mgr().doItem_Info_Thumb(item), none);
    QCOMPARE(int(item.m_info_Thumb.m_eType), kind);
    QCOMPARE(item.m_info_Thumb.m_bThumbDir, true);
    QCOMPARE(item.m_info_Thumb.m_qsFile, none ? QString() : expected);
    QCOMPARE(QDir(m_fixture.downloaded("display", folders[kind], QStringLiteral("new"))).exists(),
             !none);
}

void tst_MVThemeMgr_files::thumbnailWithoutGuid()
{
    for (const QString& guid : noGuids) {
        SCfg_Item item = itemOf(eCfgItem_Filter, guid);
        item.m_info_Thumb.m_qsUrl = QStringLiteral("new/a.png");
        item.m_info_Thumb.m_qsFile = QStringLiteral("/old");
        QVERIFY(mgr().doItem_Info_Thumb(item));
        QCOMPARE(item.m_info_Thumb.m_qsFile, QString());
        QCOMPARE(item.m_info_Thumb.m_bThumbDir, true);
    }
    QVERIFY(!QDir(m_fixture.downloaded("display", "VideoFilters", QStringLiteral("new"))).exists());
}

void tst_MVThemeMgr_files::thumbnailNameDoesNotGoUp()
{
    const QString name = QStringLiteral("a.png");
    CatalogueFiles::write(m_fixture.downloaded("display", "VideoFilters", name), "picture");
    SCfg_Item item = itemOf(eCfgItem_Theme);
    item.m_info_Thumb.m_qsUrl = QStringLiteral("../VideoFilters/") + name;
    QVERIFY(!mgr().doItem_Info_Thumb(item));
}

void tst_MVThemeMgr_files::emptyThumbnailNameIsTheKindFolder()
{
    SCfg_Item item = itemOf(eCfgItem_Filter);
    QVERIFY(mgr().doItem_Info_Thumb(item));
    QCOMPARE(item.m_info_Thumb.m_qsFile,
             m_fixture.downloaded("display", "VideoFilters", QString()));
}

void tst_MVThemeMgr_files::gifOfAThemeOnly_data()
{
    addKinds();
}

void tst_MVThemeMgr_files::gifOfAThemeOnly()
{
    QFETCH(int, kind);
    const bool theme = kind == eCfgItem_Theme;
    SCfg_Item item = itemOf(kind);
    item.m_info_Gif.m_eType = eCfgItem_Resource;
    item.m_info_Gif.m_qsUrl = QStringLiteral("a.gif");
    item.m_info_Gif.m_qsFile = QStringLiteral("/old");
    QCOMPARE(mgr().doItem_Info_Gif(item), !theme);
    QCOMPARE(item.m_info_Gif.m_eType, theme ? eCfgItem_Theme : eCfgItem_Resource);
    QCOMPARE(item.m_info_Gif.m_bThumbDir, theme);
    QCOMPARE(item.m_info_Gif.m_qsUrl, QStringLiteral("a.gif"));
    QCOMPARE(item.m_info_Gif.m_qsFile,
             theme ? m_fixture.downloaded("display", "Themes", QStringLiteral("a.gif"))
                   : QString());
    if (theme)
        return;
    item.m_info_Gif.m_eType = eCfgItem_Motion;
    item.m_info_Gif.m_bThumbDir = true;
    QVERIFY(mgr().doItem_Info_Gif(item));
    QCOMPARE(item.m_info_Gif.m_eType, eCfgItem_Motion);
    QCOMPARE(item.m_info_Gif.m_bThumbDir, true);
}

void tst_MVThemeMgr_files::gifWithoutGuid()
{
    for (const QString& guid : noGuids) {
        SCfg_Item item = itemOf(eCfgItem_Theme, guid);
        item.m_info_Gif.m_qsUrl = QStringLiteral("new/a.gif");
        item.m_info_Gif.m_qsFile = QStringLiteral("/old");
        QVERIFY(mgr().doItem_Info_Gif(item));
        QCOMPARE(item.m_info_Gif.m_qsFile, QString());
        QCOMPARE(item.m_info_Gif.m_eType, eCfgItem_Theme);
        QCOMPARE(item.m_info_Gif.m_bThumbDir, true);
    }
}

void tst_MVThemeMgr_files::gifNameWithSlashIsNotAbsolute()
{
    SCfg_Item item = itemOf(eCfgItem_Theme);
    item.m_info_Gif.m_qsUrl = QStringLiteral("/sub/a%20b.gif");
    QVERIFY(!mgr().doItem_Info_Gif(item));
    QCOMPARE(item.m_info_Gif.m_qsFile,
             m_fixture.downloaded("display", "Themes", QStringLiteral("/sub/a%20b.gif")));
    QVERIFY(item.m_info_Gif.m_qsFile.contains(QLatin1String("/Themes//sub/")));
    QVERIFY(QDir(m_fixture.downloaded("display", "Themes", QStringLiteral("sub"))).exists());
}

void tst_MVThemeMgr_files::resourcesLieInAFolderPerItem_data()
{
    addKinds();
}

void tst_MVThemeMgr_files::resourcesLieInAFolderPerItem()
{
    QFETCH(int, kind);
    SCfg_Item item = itemOf(kind);
    item.m_vecResource = resources({QStringLiteral("sub/a.zip")});
    item.m_vecResource[0].m_bThumbDir = true;
    const QString name = Files::guid(1) + QStringLiteral("/sub/a.zip");
    QVERIFY(!mgr().doItem_Info_DependRes(item));
    const SFileInfo& info = item.m_vecResource.first();
    QCOMPARE(int(info.m_eType), kind);
    QCOMPARE(info.m_bThumbDir, false);
    QCOMPARE(info.m_qsFile, m_fixture.downloaded("config", folders[kind], name));
    QVERIFY(QFileInfo(info.m_qsFile).dir().exists());
    Files::write(m_fixture.installedFile("config", folders[kind], name), "x");
    QVERIFY(mgr().doItem_Info_DependRes(item));
    QCOMPARE(info.m_qsFile, m_fixture.installedFile("config", folders[kind], name));
}

void tst_MVThemeMgr_files::resourcesWithoutGuid()
{
    for (const QString& guid : noGuids) {
        SCfg_Item item = itemOf(eCfgItem_Theme, guid);
        item.m_vecResource = resources({QStringLiteral("a"), QStringLiteral("/b")});
        item.m_vecResource[0].m_qsFile = QStringLiteral("/old");
        QVector<SFileInfo*> missing;
        QVERIFY(mgr().doItem_Info_DependRes(item, missing));
        QVERIFY(missing.isEmpty());
        for (const SFileInfo& info : qAsConst(item.m_vecResource)) {
            QCOMPARE(info.m_qsFile, QString());
            QCOMPARE(info.m_eType, eCfgItem_Theme);
        }
    }
}

void tst_MVThemeMgr_files::resourcesAreAllLookedAt()
{
    SCfg_Item item = itemOf(eCfgItem_Theme);
    item.m_vecResource =
        resources({QStringLiteral("1.zip"), QStringLiteral("2.zip"), QStringLiteral("3.zip")});
    const QString folder = Files::guid(1) + QLatin1Char('/');
    for (const char* name : {"1.zip", "3.zip"})
        Files::write(m_fixture.downloaded("config", "Themes", folder + QString::fromLatin1(name)),
                     "x");
    QVector<SFileInfo*> missing;
    QVERIFY(!mgr().doItem_Info_DependRes(item, missing));
    QCOMPARE(missing, QVector<SFileInfo*>{&item.m_vecResource[1]});
    for (int i = 0; i < 3; ++i)
        QCOMPARE(item.m_vecResource.at(i).m_qsFile,
                 m_fixture.downloaded("config", "Themes",
                                      folder + QString::number(i + 1) + QStringLiteral(".zip")));
}

void tst_MVThemeMgr_files::missingResourcesAreAppended()
{
    SCfg_Item item = itemOf(eCfgItem_Theme);
    item.m_vecResource = resources({QStringLiteral("1.zip"), QStringLiteral("2.zip")});
    SFileInfo other;
    QVector<SFileInfo*> missing{&other};
    QVERIFY(!mgr().doItem_Info_DependRes(item, missing));
    QCOMPARE(missing,
             (QVector<SFileInfo*>{&other, &item.m_vecResource[0], &item.m_vecResource[1]}));
}

void tst_MVThemeMgr_files::noResources()
{
    SCfg_Item item = itemOf(eCfgItem_Theme);
    QVERIFY(mgr().doItem_Info_DependRes(item));
    QVERIFY(!QDir(m_fixture.downloaded("config", "Themes", Files::guid(1))).exists());
}

void tst_MVThemeMgr_files::noneEntryFollowsTheSkin_data()
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Classical") << QStringLiteral("Classical") << QStringLiteral("Classical.png");
    QTest::newRow("Elegance") << QStringLiteral("Elegance") << QStringLiteral("Elegance.png");
    QTest::newRow("Simplicity") << QStringLiteral("Simplicity") << QStringLiteral("Elegance.png");
    QTest::newRow("Calm") << QStringLiteral("Calm") << QStringLiteral("Calm.png");
    QTest::newRow("another") << QStringLiteral("Night") << QStringLiteral("/own.png");
    QTest::newRow("other case") << QStringLiteral("calm") << QStringLiteral("/own.png");
    QTest::newRow("no skin") << QString() << QStringLiteral("/own.png");
}

void tst_MVThemeMgr_files::noneEntryFollowsTheSkin()
{
    QFETCH(QString, skin);
    QFETCH(QString, expected);
    hostSettings().currentSkin = skin;
    for (const int kind : {eCfgItem_Filter, eCfgItem_BgMaterial}) {
        SCfg_Item item = itemOf(kind, noneGuid);
        item.m_info_Thumb.m_qsUrl = QStringLiteral("/own.png");
        QVERIFY(!mgr().doItem_Info_Thumb(item));
        QCOMPARE(item.m_info_Thumb.m_qsUrl, expected);
        const bool absolute = expected.startsWith(QLatin1Char('/'));
        QCOMPARE(item.m_info_Thumb.m_qsFile,
                 absolute
                     ? m_fixture.root() + QStringLiteral("/Themes/display/PQD/Download/own.png")
                     : m_fixture.downloaded("display", folders[kind], expected));
        if (absolute)
            continue;
        const QString installed = m_fixture.installedFile("display", folders[kind], expected);
        Files::write(installed, "x");
        QVERIFY(mgr().doItem_Info_Thumb(item));
        QCOMPARE(item.m_info_Thumb.m_qsFile, installed);
    }
}

void tst_MVThemeMgr_files::onlyFiltersAndBackgroundsHaveANoneEntry()
{
    for (const int kind : {eCfgItem_Transition, eCfgItem_Motion, eCfgItem_Theme}) {
        SCfg_Item item = itemOf(kind, noneGuid);
        item.m_info_Thumb.m_qsUrl = QStringLiteral("own.png");
        mgr().doItem_Info_Thumb(item);
        QCOMPARE(item.m_info_Thumb.m_qsUrl, QStringLiteral("own.png"));
    }
    SCfg_Item lower = itemOf(eCfgItem_Filter, noneGuid.toLower());
    lower.m_info_Thumb.m_qsUrl = QStringLiteral("own.png");
    mgr().doItem_Info_Thumb(lower);
    QCOMPARE(lower.m_info_Thumb.m_qsUrl, QStringLiteral("own.png"));
}

void tst_MVThemeMgr_files::nothingIsLogged()
{
    const LogCapture log;
    SCfg_Item item = itemOf(eCfgItem_Theme);
    item.m_info_CfgXML.m_qsUrl = QStringLiteral("/a.xml");
    item.m_vecResource = resources({QStringLiteral("a"), QStringLiteral("../../b")});
    mgr().doItem_Info_CfgXML(item);
    mgr().doItem_Info_Thumb(item);
    mgr().doItem_Info_Gif(item);
    mgr().doItem_Info_DependRes(item);
    QVERIFY(log.lines().isEmpty());
}

MV_TEST_MAIN(tst_MVThemeMgr_files)

} // namespace tst_MVThemeMgr_files

#include "tst_MVThemeMgr_files.moc"
