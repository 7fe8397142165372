// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#ifndef Q_OS_WIN
#include "FolderEvents.h"
#endif
#include "support/UnusualFiles.h"

using Mgr = MVThemeMgr;

/// Tests every path in the two trees, by its full text.
class tst_MVThemeMgr_paths : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { m_fixture.fresh(); }

    void rootDir_data();
    void rootDir();
    void halfDir_data();
    void halfDir();
    void kindDir_data();
    void kindDir();
    void catalogueFile_data();
    void catalogueFile();
    void versionFile();
    void savePaths();
    void themeTypePathIsEmpty();
    void installedPathsFollowTheSettings();

    void settingTheRootIsLogged();
    void settingTheRootCreatesItsFolders();
    void foldersAreCreatedKindByKindConfigFirst();
    void rootIsUsedUnchanged();
    void rootThatCannotBeCreatedIsTakenAllTheSame();
    void noFolderIsCreatedBehindALink_data();
    void noFolderIsCreatedBehindALink();
    void settingAnotherRootMovesEveryPath();

    void typeNames_data();
    void typeNames();

private:
    /// Expands the first letter of a path: installed resources (A) or root (R).
    QString placed(const QString& path) const
    {
        if (path.startsWith(QLatin1String("A/")))
            return m_fixture.installed() + path.mid(1);
        return path.startsWith(QLatin1String("R/")) ? m_fixture.root() + path.mid(1) : path;
    }

    CatalogueFixture m_fixture;
};

namespace {

Mgr& mgr()
{
    return CatalogueFixture::manager();
}

const char* const kindFolders[] = {"VideoFilters", "Transitions", "Motions", "Themes",
                                   "BgMaterial"};

} // namespace

/// Runs before a root is set.
void tst_MVThemeMgr_paths::initTestCase()
{
    const auto download = Mgr::eLoadDir_Download;
    QCOMPARE(mgr().Path_resource_RootDir(download), QStringLiteral("/Themes"));
    QCOMPARE(mgr().Path_resource_Dir(download, Mgr::eDirTag_Config),
             QStringLiteral("/Themes/config/PQD/Download"));
    QCOMPARE(mgr().Path_resource_Dir(download, Mgr::eDirTag_Display, eCfgItem_Theme),
             QStringLiteral("/Themes/display/PQD/Download/Themes"));
    QCOMPARE(mgr().Path_resource_xml(download, Mgr::eDirTag_Config),
             QStringLiteral("/Themes/ResourceConfig/resource_config.xml"));
    QCOMPARE(mgr().Path_resource_version_xml(download),
             QStringLiteral("/Themes/ResourceConfig/resource_version.xml"));
    QCOMPARE(mgr().saveResourcePath(), QStringLiteral("/ResourceConfig"));
    QCOMPARE(mgr().saveThemePath(), QStringLiteral("/Themes/config"));
    QVERIFY(!mgr().isDownloadPath(QStringLiteral("/Themes/config/PQD/Download/Themes/a.zip")));

    const bool there = QDir(QStringLiteral("/Themes/display")).exists();
    SCfg_Item theme;
    theme.m_eType = eCfgItem_Theme;
    theme.m_qsGUID = CatalogueFiles::guid(1);
    theme.m_info_Thumb.m_qsUrl = QStringLiteral("none.png");
    QVERIFY(!mgr().doItem_Info_Thumb(theme));
    QCOMPARE(theme.m_info_Thumb.m_qsFile,
             QStringLiteral("/Themes/display/PQD/Download/Themes/none.png"));
    QCOMPARE(QDir(QStringLiteral("/Themes/display")).exists(), there);
}

void tst_MVThemeMgr_paths::rootDir_data()
{
    QTest::addColumn<int>("dir");
    QTest::addColumn<QString>("expected");
    QTest::newRow("installed") << 0 << QStringLiteral("A/Resource");
    QTest::newRow("download") << 1 << QStringLiteral("R/Themes");
    QTest::newRow("2") << 2 << QString();
    QTest::newRow("-1") << -1 << QString();
}

void tst_MVThemeMgr_paths::rootDir()
{
    QFETCH(int, dir);
    QFETCH(QString, expected);
    expected = placed(expected);
    QCOMPARE(mgr().Path_resource_RootDir(Mgr::ELoadDir(dir)), expected);
}

void tst_MVThemeMgr_paths::halfDir_data()
{
    QTest::addColumn<int>("dir");
    QTest::addColumn<int>("tag");
    QTest::addColumn<QString>("expected");
    QTest::newRow("download config") << 1 << 0 << QStringLiteral("R/Themes/config/PQD/Download");
    QTest::newRow("download display") << 1 << 1 << QStringLiteral("R/Themes/display/PQD/Download");
    QTest::newRow("download 2") << 1 << 2 << QStringLiteral("R/Themes//PQD/Download");
    QTest::newRow("installed config") << 0 << 0 << QStringLiteral("A/Resource");
    QTest::newRow("installed display") << 0 << 1 << QStringLiteral("A/Resource/display");
    QTest::newRow("installed 2") << 0 << 2 << QString();
    QTest::newRow("unknown tree config") << 2 << 0 << QStringLiteral("/config/PQD/Download");
    QTest::newRow("unknown tree 2") << 2 << 2 << QStringLiteral("//PQD/Download");
}

void tst_MVThemeMgr_paths::halfDir()
{
    QFETCH(int, dir);
    QFETCH(int, tag);
    QFETCH(QString, expected);
    expected = placed(expected);
    QCOMPARE(mgr().Path_resource_Dir(Mgr::ELoadDir(dir), Mgr::EDirTag(tag)), expected);
}

void tst_MVThemeMgr_paths::kindDir_data()
{
    QTest::addColumn<int>("dir");
    QTest::addColumn<int>("tag");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");
    const struct
    {
        const char* row;
        int dir;
        int tag;
        const char* folder;
    } halves[] = {
        {"installed config", 0, 0, "A/Resource//"},
        {"installed display", 0, 1, "A/Resource/display/"},
        {"installed 2", 0, 2, "A/Resource//"},
        {"download config", 1, 0, "R/Themes/config/PQD/Download/"},
        {"download display", 1, 1, "R/Themes/display/PQD/Download/"},
        {"download 2", 1, 2, "R/Themes//PQD/Download/"},
        {"unknown tree config", 2, 0, "/config/PQD/Download/"},
    };
    for (const auto& half : halves) {
        for (int kind = 0; kind < 5; ++kind) {
            QTest::addRow("%s %s", half.row, kindFolders[kind])
                << half.dir << half.tag << kind
                << QString::fromLatin1(half.folder) + QString::fromLatin1(kindFolders[kind]);
        }
        for (const int kind : {-1, 5, 6})
            QTest::addRow("%s, kind %d", half.row, kind)
                << half.dir << half.tag << kind << QString();
    }
}

void tst_MVThemeMgr_paths::kindDir()
{
    QFETCH(int, dir);
    QFETCH(int, tag);
    QFETCH(int, kind);
    QFETCH(QString, expected);
    expected = placed(expected);
    QCOMPARE(mgr().Path_resource_Dir(Mgr::ELoadDir(dir), Mgr::EDirTag(tag), ECfgItemType(kind)),
             expected);
}

void tst_MVThemeMgr_paths::catalogueFile_data()
{
    QTest::addColumn<int>("dir");
    QTest::addColumn<int>("tag");
    QTest::addColumn<QString>("expected");
    const QString folder = QStringLiteral("/ResourceConfig/");
    QTest::newRow("installed config")
        << 0 << 0 << QStringLiteral("A/Resource") + folder + QStringLiteral("resource_config.xml");
    QTest::newRow("installed display")
        << 0 << 1 << QStringLiteral("A/Resource") + folder + QStringLiteral("resource_display.xml");
    QTest::newRow("installed 2") << 0 << 2 << QString();
    QTest::newRow("download config")
        << 1 << 0 << QStringLiteral("R/Themes") + folder + QStringLiteral("resource_config.xml");
    QTest::newRow("download display")
        << 1 << 1 << QStringLiteral("R/Themes") + folder + QStringLiteral("resource_display.xml");
    QTest::newRow("download 2") << 1 << 2 << QString();
    QTest::newRow("unknown tree") << 2 << 0 << folder + QStringLiteral("resource_config.xml");
}

void tst_MVThemeMgr_paths::catalogueFile()
{
    QFETCH(int, dir);
    QFETCH(int, tag);
    QFETCH(QString, expected);
    expected = placed(expected);
    QCOMPARE(mgr().Path_resource_xml(Mgr::ELoadDir(dir), Mgr::EDirTag(tag)), expected);
}

void tst_MVThemeMgr_paths::versionFile()
{
    QCOMPARE(mgr().Path_resource_version_xml(Mgr::eLoadDir_Local),
             m_fixture.installed()
                 + QStringLiteral("/Resource/ResourceConfig/resource_version.xml"));
    QCOMPARE(mgr().Path_resource_version_xml(Mgr::eLoadDir_Download),
             m_fixture.root() + QStringLiteral("/Themes/ResourceConfig/resource_version.xml"));
    QCOMPARE(mgr().Path_resource_version_xml(Mgr::ELoadDir(2)),
             QStringLiteral("/ResourceConfig/resource_version.xml"));
}

void tst_MVThemeMgr_paths::savePaths()
{
    QCOMPARE(mgr().saveResourcePath(), m_fixture.root() + QStringLiteral("/ResourceConfig"));
    QCOMPARE(mgr().saveThemePath(), m_fixture.root() + QStringLiteral("/Themes/config"));
}

void tst_MVThemeMgr_paths::themeTypePathIsEmpty()
{
    QCOMPARE(mgr().Path_ThemeType(), QString());
}

void tst_MVThemeMgr_paths::installedPathsFollowTheSettings()
{
    hostSettings().resourcesPath = QStringLiteral("/opt/app");
    QCOMPARE(mgr().Path_resource_Dir(Mgr::eLoadDir_Local, Mgr::eDirTag_Config, eCfgItem_Theme),
             QStringLiteral("/opt/app/Resource//Themes"));
}

void tst_MVThemeMgr_paths::settingTheRootIsLogged()
{
    const QString root = m_fixture.base() + QString::fromUtf8("/d\xc3\xa9p\xc3\xb4t 100%s");
    const LogCapture log;
    mgr().setResourceSaveRootPath(root);
    QCOMPARE(CatalogueFixture::described(log),
             QByteArrayList{CatalogueFixture::line(2, "Resource root path: " + root.toUtf8())});
}

void tst_MVThemeMgr_paths::settingTheRootCreatesItsFolders()
{
    QStringList expected{QStringLiteral("Themes/"), QStringLiteral("imgThumb/")};
    for (const char* half : {"Themes/config/", "Themes/display/"}) {
        for (const char* part : {"", "PQD/", "PQD/Download/"})
            expected.append(QString::fromLatin1(half) + QString::fromLatin1(part));
        for (const char* kind : kindFolders)
            expected.append(QString::fromLatin1(half) + QStringLiteral("PQD/Download/")
                            + QString::fromLatin1(kind) + QLatin1Char('/'));
    }
    expected.sort();
    QCOMPARE(CatalogueFixture::entriesBelow(m_fixture.root()), expected);
}

void tst_MVThemeMgr_paths::foldersAreCreatedKindByKindConfigFirst()
{
#ifdef Q_OS_WIN
    QSKIP("This system tells the changes of a folder in another way.");
#else
    const QString root = m_fixture.base() + QStringLiteral("/ordered");
    const QString config = root + QStringLiteral("/Themes/config/PQD/Download");
    const QString display = root + QStringLiteral("/Themes/display/PQD/Download");
    QVERIFY(QDir().mkpath(config) && QDir().mkpath(display));
    FolderEvents events;
    QVERIFY(events.watch(config, QStringLiteral("config")));
    QVERIFY(events.watch(display, QStringLiteral("display")));
    QVERIFY(events.watch(root, QStringLiteral("root")));
    mgr().setResourceSaveRootPath(root);

    QStringList expected;
    for (const char* kind : kindFolders) {
        expected.append(QStringLiteral("config/") + QString::fromLatin1(kind));
        expected.append(QStringLiteral("display/") + QString::fromLatin1(kind));
    }
    expected.append(QStringLiteral("root/imgThumb"));
    QCOMPARE(events.appeared(), expected);
#endif
}

void tst_MVThemeMgr_paths::rootIsUsedUnchanged()
{
    const QString root = m_fixture.base() + QStringLiteral("/slash/");
    mgr().setResourceSaveRootPath(root);
    QCOMPARE(mgr().Path_resource_RootDir(Mgr::eLoadDir_Download), root + QStringLiteral("/Themes"));
    QCOMPARE(mgr().saveResourcePath(), root + QStringLiteral("/ResourceConfig"));
    QVERIFY(QDir(root + QStringLiteral("imgThumb")).exists());
}

void tst_MVThemeMgr_paths::rootThatCannotBeCreatedIsTakenAllTheSame()
{
    const QString file = m_fixture.base() + QStringLiteral("/file");
    CatalogueFiles::write(file, "x");
    const LogCapture log;
    mgr().setResourceSaveRootPath(file + QStringLiteral("/below"));
    QCOMPARE(mgr().saveThemePath(), file + QStringLiteral("/below/Themes/config"));
    QCOMPARE(log.lines().size(), 1);
}

void tst_MVThemeMgr_paths::noFolderIsCreatedBehindALink_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("other"); // a folder that is not behind the link
    const QString config = QStringLiteral("Themes/config/PQD/Download/Motions");
    const QString display = QStringLiteral("Themes/display/PQD/Download/Motions");
    const auto row = [](const char* link, const QString& other) {
        QTest::newRow(link) << QString::fromLatin1(link) << other;
    };
    row("Themes", QStringLiteral("imgThumb"));
    row("Themes/config", display);
    row("Themes/display", config);
    row("Themes/config/PQD", display);
    row("Themes/display/PQD/Download", config);
}

void tst_MVThemeMgr_paths::noFolderIsCreatedBehindALink()
{
    QFETCH(QString, link);
    QFETCH(QString, other);
    const QString root = m_fixture.base() + QStringLiteral("/planted");
    const QString outside = m_fixture.base() + QStringLiteral("/outside");
    const QString path = root + QLatin1Char('/') + link;
    QVERIFY(QDir().mkpath(outside) && QDir().mkpath(QFileInfo(path).path()));
    MV_LINK(outside, path);
    mgr().setResourceSaveRootPath(root);
    QCOMPARE(CatalogueFixture::entriesBelow(outside), QStringList());
    QVERIFY(UnusualFiles::isLink(path));
    QVERIFY(QFileInfo(root + QLatin1Char('/') + other).isDir());
}

void tst_MVThemeMgr_paths::settingAnotherRootMovesEveryPath()
{
    const QString other = m_fixture.base() + QStringLiteral("/other");
    mgr().setResourceSaveRootPath(other);
    QCOMPARE(mgr().Path_resource_RootDir(Mgr::eLoadDir_Download),
             other + QStringLiteral("/Themes"));
    QVERIFY(QDir(other + QStringLiteral("/Themes/display/PQD/Download/BgMaterial")).exists());
    QVERIFY(!mgr().isDownloadPath(m_fixture.root() + QStringLiteral("/Themes/x")));
    QVERIFY(mgr().isDownloadPath(other + QStringLiteral("/Themes/x")));
}

void tst_MVThemeMgr_paths::typeNames_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("0") << 0 << QStringLiteral("Filter");
    QTest::newRow("1") << 1 << QStringLiteral("Transition");
    QTest::newRow("2") << 2 << QStringLiteral("Motion");
    QTest::newRow("3") << 3 << QStringLiteral("Theme");
    QTest::newRow("4") << 4 << QStringLiteral("BgMaterial");
    QTest::newRow("resource file") << 5 << QStringLiteral("error");
    QTest::newRow("6") << 6 << QStringLiteral("error");
    QTest::newRow("-1") << -1 << QStringLiteral("error");
}

void tst_MVThemeMgr_paths::typeNames()
{
    QFETCH(int, kind);
    QFETCH(QString, expected);
    QCOMPARE(mgr().getCfgItemTypeStr(ECfgItemType(kind)), expected);
}

MV_TEST_MAIN(tst_MVThemeMgr_paths)
#include "tst_MVThemeMgr_paths.moc"
