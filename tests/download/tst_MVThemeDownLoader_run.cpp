// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QFileInfo>

#include <algorithm>
#include <atomic>

using namespace DownloadLines;

namespace {

QByteArrayList targets(FaultServer& server)
{
    QByteArrayList result;
    const QVector<HttpRequest> requests = server.requests();
    for (const HttpRequest& request : requests)
        result.append(request.target);
    if (TransfersSideBySide::isOn()) // in any order after the config
        std::sort(result.begin() + 1, result.end());
    return result;
}

bool isFolder(const QString& path)
{
    return QFileInfo(path).isDir();
}

} // namespace

/// Tests the normal course of a download: its order, its log lines, its results on disk.
class tst_MVThemeDownLoader_run : public QObject
{
    Q_OBJECT

private slots:
    void nothingToFetch_data();
    void nothingToFetch();
    void presentConfigCountsWithThemesOnly();
    void configThatCameByOtherMeansIsParsed();
    void themeConfigComesFirst();
    void unreadableConfigLeavesNoDependencies();
    void thumbnailResourcesAndConfigInOrder();
    void namesAreSentAsTheHalvesWantThem();
    void foldersBesideTheFiles_data();
    void foldersBesideTheFiles();
    void folderOfAFileIsCreated();
    void currentFile();
};

void tst_MVThemeDownLoader_run::nothingToFetch_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("guid");

    const QString guid = CatalogueFiles::guid(1);
    QTest::newRow("filter") << int(eCfgItem_Filter) << guid;
    QTest::newRow("transition") << int(eCfgItem_Transition) << guid;
    QTest::newRow("motion") << int(eCfgItem_Motion) << guid;
    QTest::newRow("background material") << int(eCfgItem_BgMaterial) << guid;
    QTest::newRow("theme without config file") << int(eCfgItem_Theme) << guid;
    QTest::newRow("no GUID") << int(eCfgItem_Filter) << QStringLiteral("none of it");
}

void tst_MVThemeDownLoader_run::nothingToFetch()
{
    QFETCH(int, kind);
    QFETCH(QString, guid);
    DownloadWorld world;
    SCfg_Item item = DownloadWorld::item(static_cast<ECfgItemType>(kind), 1);
    item.m_qsGUID = guid;
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, item));

    QCOMPARE(trace.entries(), emptyRun());
    QCOMPARE(world.server().connectionCount(), 0);
    QCOMPARE(downloader.downloadedUrl(), QString());
}

void tst_MVThemeDownLoader_run::presentConfigCountsWithThemesOnly()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    CatalogueFiles::write(world.folder(eCfgItem_Theme) + QStringLiteral("/t.xml"),
                          DownloadWorld::themeConfig({}));
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(trace.entries(), emptyRun());
    QVERIFY(!theme.m_pThemes_a);
}

/// A second program, or a copy, may have added the config after the catalogue was loaded.
void tst_MVThemeDownLoader_run::configThatCameByOtherMeansIsParsed()
{
    DownloadWorld world;
    hostSettings().productParams.insert(QStringLiteral("hasMV"), QStringLiteral("1"));
    const QString resource = QStringLiteral("/VideoFilters/f.zip");
    QVERIFY(world.catalogueFilter(7, {resource}));
    world.serve(QStringLiteral("/config") + resource, "filter");
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    CatalogueFiles::write(world.folder(eCfgItem_Theme) + QStringLiteral("/t.xml"),
                          DownloadWorld::themeConfig({7}));
    MVThemeDownLoader downloader(nullptr);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QVERIFY(theme.m_pThemes_a);
    QCOMPARE(world.requests(QStringLiteral("/config") + resource), 1);
    QCOMPARE(downloader.outcome().m_eEnd, eItemDownload_Complete);
}

void tst_MVThemeDownLoader_run::themeConfigComesFirst()
{
    DownloadWorld world;
    const SCfg_Item* const filter =
        world.catalogueFilter(7, {QStringLiteral("/VideoFilters/f.zip")});
    QVERIFY(filter);
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/r.zip")});
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    world.serve(QStringLiteral("/config/Themes/t.xml"), DownloadWorld::themeConfig({7}));
    world.serve(QStringLiteral("/config/Themes/r.zip"), "resource");
    world.serve(QStringLiteral("/config/VideoFilters/f.zip"), "filter");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    std::atomic<int> operatorQueries{0};
    connect(
        &downloader, &MVThemeDownLoader::queryOperator, &downloader,
        [&operatorQueries] { ++operatorQueries; }, Qt::DirectConnection);

    QVERIFY(DownloadWorld::run(downloader, theme));

    const QString configUrl = world.server().url(QStringLiteral("/config/Themes/t.xml"));
    const QString configFile = world.folder(eCfgItem_Theme) + QStringLiteral("/t.xml");
    const QString url0 = world.server().url(QStringLiteral("/config/Themes/r.zip"));
    const QString file0 = world.folder(eCfgItem_Theme) + QStringLiteral("/r.zip");
    const QString url1 = world.server().url(QStringLiteral("/config/VideoFilters/f.zip"));
    const QString file1 = world.folder(eCfgItem_Filter) + QStringLiteral("/f.zip");
    const QStringList expected = {
        start(),
        QStringLiteral("progress 0"),
        configStart(configUrl, configFile),
        QStringLiteral("progress 10"),
        configOk(configUrl, configFile),
        QStringLiteral("MVThemeMgr 1: checkXml [%1] is [1]!").arg(configFile),
        QStringLiteral("MVThemeMgr 1: read [%1] is ok!").arg(configFile),
        taken(0, file0),
        fileStart(0, url0, file0),
        QStringLiteral("progress 55"),
        fileOk(0, url0, file0),
        released(0, file0),
        taken(1, file1),
        fileStart(1, url1, file1),
        QStringLiteral("progress 100"),
        fileOk(1, url1, file1),
        released(1, file1),
        QStringLiteral("finish 5"),
        end(),
    };
    QCOMPARE(comparable(trace.entries()), comparable(expected));
    QCOMPARE(targets(world.server()),
             (QByteArrayList{"/config/Themes/t.xml", "/config/Themes/r.zip",
                             "/config/VideoFilters/f.zip"}));
    QVERIFY(theme.m_pThemes_a);
    QCOMPARE(theme.m_pThemes_a->m_vecItems.size(), 1);
    QCOMPARE(theme.m_pThemes_a->m_vecItems.first()[eDependType_Filter].m_pItem, filter);
    QCOMPARE(CatalogueFiles::read(file1), QByteArray("filter"));
    QCOMPARE(operatorQueries.load(), 0);
    // The config file gets no folder beside it: nothing is unpacked from it.
    QVERIFY(!QFileInfo::exists(world.folder(eCfgItem_Theme) + QStringLiteral("/t")));
    QVERIFY(!theme.m_info_CfgXML.m_bDownloaded);
}

void tst_MVThemeDownLoader_run::unreadableConfigLeavesNoDependencies()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    world.serve(QStringLiteral("/config/Themes/t.xml"), "<broken");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QVERIFY(trace.contains(QStringLiteral("MVThemeMgr 1: read [%1/t.xml] is error!")
                               .arg(world.folder(eCfgItem_Theme))));
    QVERIFY(!theme.m_pThemes_a);
}

void tst_MVThemeDownLoader_run::thumbnailResourcesAndConfigInOrder()
{
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(
        eCfgItem_Filter, 1,
        {QStringLiteral("/VideoFilters/a.zip"), QStringLiteral("/VideoFilters/b.zip")});
    filter.m_info_Thumb.m_qsUrl = QStringLiteral("t.png");
    filter.m_info_CfgXML.m_qsUrl = QStringLiteral("/VideoFilters/c.xml");
    const QStringList names = {
        QStringLiteral("/display/VideoFilters/t.png"), QStringLiteral("/config/VideoFilters/a.zip"),
        QStringLiteral("/config/VideoFilters/b.zip"), QStringLiteral("/config/VideoFilters/c.xml")};
    const QStringList files = {world.displayFolder(eCfgItem_Filter) + QStringLiteral("/t.png"),
                               world.folder(eCfgItem_Filter) + QStringLiteral("/a.zip"),
                               world.folder(eCfgItem_Filter) + QStringLiteral("/b.zip"),
                               world.folder(eCfgItem_Filter) + QStringLiteral("/c.xml")};
    QStringList expected = simulatedPhase();
    for (int i = 0; i < names.size(); ++i) {
        world.serve(names.at(i), names.at(i).toUtf8());
        const QString url = world.server().url(names.at(i));
        expected << taken(i, files.at(i)) << fileStart(i, url, files.at(i))
                 << QStringLiteral("progress %1").arg(10 + (i + 1) * 22.5)
                 << fileOk(i, url, files.at(i)) << released(i, files.at(i));
    }
    expected << QStringLiteral("finish 5") << end();
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(comparable(trace.entries()), comparable(expected));
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(CatalogueFiles::read(files.at(i)), names.at(i).toUtf8());
    QVERIFY(world.server().connectionCount() <= TransfersSideBySide::count());
    for (const SFileInfo& info : qAsConst(filter.m_vecResource))
        QVERIFY(!info.m_bDownloaded);
}

void tst_MVThemeDownLoader_run::namesAreSentAsTheHalvesWantThem()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/a%20b.zip")});
    theme.m_info_Thumb.m_qsUrl = QStringLiteral("t 1.png");
    theme.m_info_Gif.m_qsUrl = QStringLiteral("g.gif");
    world.serve(QStringLiteral("/config/Themes/a%20b.zip"), "r");
    world.serve(QStringLiteral("/display/Themes/t%201.png"), "t");
    world.serve(QStringLiteral("/display/Themes/g.gif"), "g");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(CatalogueFiles::read(world.folder(eCfgItem_Theme) + QStringLiteral("/a b.zip")),
             QByteArray("r"));
    QCOMPARE(CatalogueFiles::read(world.displayFolder(eCfgItem_Theme) + QStringLiteral("/t 1.png")),
             QByteArray("t"));
    QCOMPARE(CatalogueFiles::read(world.displayFolder(eCfgItem_Theme) + QStringLiteral("/g.gif")),
             QByteArray("g"));
}

void tst_MVThemeDownLoader_run::foldersBesideTheFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("folder"); // empty: none

    QTest::newRow("archive") << QStringLiteral("a.zip") << QStringLiteral("a");
    QTest::newRow("two suffixes") << QStringLiteral("a.tar.gz") << QStringLiteral("a.tar");
    QTest::newRow("definition") << QStringLiteral("d.xml") << QStringLiteral("d");
    QTest::newRow("image") << QStringLiteral("i.png") << QStringLiteral("i");
    // The folder would take the file's own name.
    QTest::newRow("no suffix") << QStringLiteral("plain") << QString();
}

void tst_MVThemeDownLoader_run::foldersBesideTheFiles()
{
    QFETCH(QString, name);
    QFETCH(QString, folder);
    DownloadWorld world;
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/") + name});
    world.serve(QStringLiteral("/config/VideoFilters/") + name, "content");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    const QDir place(world.folder(eCfgItem_Filter));
    QCOMPARE(place.entryList(QDir::Dirs | QDir::NoDotAndDotDot).join(QLatin1Char(',')), folder);
    QCOMPARE(CatalogueFiles::read(place.filePath(name)), QByteArray("content"));
}

/// The resolver creates no folder for an item's own config file.
void tst_MVThemeDownLoader_run::folderOfAFileIsCreated()
{
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1);
    filter.m_info_CfgXML.m_qsUrl = QStringLiteral("/new/deep/c.xml");
    world.serve(QStringLiteral("/config/new/deep/c.xml"), "definition");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(CatalogueFiles::read(filter.m_info_CfgXML.m_qsFile), QByteArray("definition"));
    QVERIFY(isFolder(QFileInfo(filter.m_info_CfgXML.m_qsFile).path() + QStringLiteral("/c")));
}

void tst_MVThemeDownLoader_run::currentFile()
{
    MV_SKIP_SIDE_BY_SIDE("several files are current",
                         "tst_MVThemeDownLoader_sideBySide::currentFileIsTheLastOneBegun");
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(
        eCfgItem_Filter, 1,
        {QStringLiteral("/VideoFilters/a.zip"), QStringLiteral("/VideoFilters/b.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/a.zip"), "a");
    world.serve(QStringLiteral("/config/VideoFilters/b.zip"), "b");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(downloader.downloadedUrl().isEmpty());
    QVERIFY(downloader.downloadedFile().isEmpty());
    QString url;
    QString file;
    trace.onLine(QStringLiteral("start download template, i = 0"), [&] {
        url = downloader.downloadedUrl();
        file = downloader.downloadedFile();
    });

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(url, world.server().url(QStringLiteral("/config/VideoFilters/a.zip")));
    QCOMPARE(file, world.folder(eCfgItem_Filter) + QStringLiteral("/a.zip"));
    QCOMPARE(downloader.downloadedUrl(),
             world.server().url(QStringLiteral("/config/VideoFilters/b.zip")));
    QCOMPARE(downloader.downloadedFile(), world.folder(eCfgItem_Filter) + QStringLiteral("/b.zip"));
}

MV_TEST_MAIN(tst_MVThemeDownLoader_run)

#include "tst_MVThemeDownLoader_run.moc"
