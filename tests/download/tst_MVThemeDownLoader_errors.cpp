// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TransfersSideBySide.h"

#include <QFileInfo>
#include <QMutexLocker>

using namespace DownloadLines;

namespace {

/// The ways in which a transfer fails.
enum class Fault { Status, Refused, Reset, Truncated, Stalled, TooLarge, NotHttp, NoFolder };

bool isTaken(const SFileInfo& info)
{
    const QMutexLocker lock(info.m_pMutex.get());
    return info.m_bDownloaded;
}

/// Makes a transfer of `target` fail.
void fail(DownloadWorld& world, const QString& target, Fault fault)
{
    HostSettings& settings = hostSettings();
    const auto setServer = [&settings](const QString& root) {
        settings.productParams.insert(QStringLiteral("url_themeRootDir"), root);
    };
    switch (fault) {
    case Fault::Status:
    case Fault::NoFolder:
        break;
    case Fault::Refused:
        setServer(QStringLiteral("http://127.0.0.1:%1/").arg(FaultServer::refusingPort()));
        break;
    case Fault::Reset:
        world.route(target, [](HttpExchange& exchange) { exchange.reset(); });
        break;
    case Fault::Truncated:
        world.route(target, [](HttpExchange& exchange) {
            exchange.send(HttpAnswer(200).field("Content-Length", "100").bareBody("ab").bytes());
            exchange.close();
        });
        break;
    case Fault::Stalled:
        settings.stallTimeoutMs = 100;
        world.route(target, [](HttpExchange& exchange) { exchange.stall(); });
        break;
    case Fault::TooLarge:
        settings.maxDownloadBytes = 10;
        world.serve(target, "more than ten bytes");
        break;
    case Fault::NotHttp:
        setServer(QStringLiteral("ftp://127.0.0.1/"));
        break;
    }
}

} // namespace

/// Tests failures, how they are reported, and what they leave behind.
class tst_MVThemeDownLoader_errors : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void configTransferFails_data();
    void configTransferFails();
    void configOutsideTheRoot();
    void configWithoutPath();
    void fileTransferFails_data();
    void fileTransferFails();
    void fileInPlaceOfAFailedOneIsDeleted_data();
    void fileInPlaceOfAFailedOneIsDeleted();
    void failedFileWithoutSuffix();
    void theOthersAreStillFetched();
    void aSecondDownloadFetchesWhatFailed();
};

void tst_MVThemeDownLoader_errors::cleanup()
{
    const HostSettings fresh;
    hostSettings().stallTimeoutMs = fresh.stallTimeoutMs;
    hostSettings().maxDownloadBytes = fresh.maxDownloadBytes;
}

void tst_MVThemeDownLoader_errors::configTransferFails_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<int>("transferResult");
    QTest::addColumn<int>("code");

    const auto row = [](const char* name, Fault fault, int result, EMVThemeDownLoadError code) {
        QTest::newRow(name) << static_cast<int>(fault) << result << static_cast<int>(code);
    };
    row("refused", Fault::Refused, 3, eDownLoadError_Internet);
    row("reset", Fault::Reset, 3, eDownLoadError_Internet);
    row("truncated", Fault::Truncated, 3, eDownLoadError_Internet);
    row("stalled", Fault::Stalled, 3, eDownLoadError_Internet);
    row("not an http address", Fault::NotHttp, 1, eDownLoadError_Unknown);
    row("no folder", Fault::NoFolder, 2, eDownLoadError_Unknown);
    row("status 404", Fault::Status, 4, eDownLoadError_Unknown);
    row("too large", Fault::TooLarge, 6, eDownLoadError_Unknown);
}

void tst_MVThemeDownLoader_errors::configTransferFails()
{
    QFETCH(int, fault);
    QFETCH(int, transferResult);
    QFETCH(int, code);
    DownloadWorld world;
    const QString name = static_cast<Fault>(fault) == Fault::NoFolder
        ? QStringLiteral("/nowhere/t.xml")
        : QStringLiteral("/Themes/t.xml");
    fail(world, QStringLiteral("/config") + name, static_cast<Fault>(fault));
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/r.zip")});
    theme.m_info_CfgXML.m_qsUrl = name;
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    const QString url = downloader.downloadedUrl();
    const QString file = downloader.downloadedFile();
    QStringList expected = {start(), QStringLiteral("progress 0"), configStart(url, file),
                            configError(url, file, transferResult),
                            QStringLiteral("finish %1").arg(code)};
    QStringList entries = trace.entries();
    entries.removeAll(QStringLiteral("progress 0.2")); // of a truncated file, if it arrived
    QCOMPARE(entries, expected);
    QVERIFY(url.endsWith(QStringLiteral("config") + name));
    QVERIFY(!QFileInfo::exists(file));
    QVERIFY(!isTaken(theme.m_info_CfgXML));
    QVERIFY(!theme.m_pThemes_a);
    QCOMPARE(CatalogueFiles::filesBelow(world.root()), QStringList());
}

void tst_MVThemeDownLoader_errors::configOutsideTheRoot()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/../../../../../t.xml");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    const QStringList expected = {
        start(), QStringLiteral("progress 0"),
        configStart(downloader.downloadedUrl(), downloader.downloadedFile()), noPath(),
        QStringLiteral("finish 1")};
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(world.server().connectionCount(), 0);
    QVERIFY(!isTaken(theme.m_info_CfgXML));
}

/// The item is resolved again between this download's first look and its turn.
void tst_MVThemeDownLoader_errors::configWithoutPath()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    SFileInfo& config = theme.m_info_CfgXML;
    config.m_qsUrl = QStringLiteral("/Themes/t.xml");
    config.m_bDownloaded = true; // another download holds it
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    downloader.download(&theme);
    const auto isResolved = [&config] {
        const QMutexLocker lock(config.m_pMutex.get());
        return !config.m_qsFile.isEmpty();
    };
    QTRY_VERIFY(isResolved());
    {
        const QMutexLocker lock(config.m_pMutex.get());
        config.m_qsFile.clear();
        config.m_bDownloaded = false;
    }

    QVERIFY(DownloadWorld::ends(downloader));

    const QStringList expected = {
        start(), QStringLiteral("progress 0"),
        configStart(world.server().url(QStringLiteral("/config/Themes/t.xml")), QString()),
        noPath(), QStringLiteral("finish 1")};
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(world.server().connectionCount(), 0);
}

void tst_MVThemeDownLoader_errors::fileTransferFails_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<int>("transferResult");

    const auto row = [](const char* name, Fault fault, int result) {
        QTest::newRow(name) << static_cast<int>(fault) << result;
    };
    row("refused", Fault::Refused, 3);
    row("reset", Fault::Reset, 3);
    row("truncated", Fault::Truncated, 3);
    row("stalled", Fault::Stalled, 3);
    row("not an http address", Fault::NotHttp, 1);
    row("status 404", Fault::Status, 4);
    row("too large", Fault::TooLarge, 6);
}

void tst_MVThemeDownLoader_errors::fileTransferFails()
{
    QFETCH(int, fault);
    QFETCH(int, transferResult);
    DownloadWorld world;
    fail(world, QStringLiteral("/config/VideoFilters/a.zip"), static_cast<Fault>(fault));
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/a.zip")});
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    const QString url = downloader.downloadedUrl();
    const QString file = world.folder(eCfgItem_Filter) + QStringLiteral("/a.zip");
    QStringList expected = simulatedPhase();
    expected << taken(0, file) << fileStart(0, url, file) << fileError(0, url, file, transferResult)
             << released(0, file) << QStringLiteral("finish 2") << end();
    QStringList entries = trace.entries();
    entries.removeAll(QStringLiteral("progress 11.8")); // of a truncated file, if it arrived
    QCOMPARE(comparable(entries), comparable(expected));
    QVERIFY(!isTaken(filter.m_vecResource.first()));
    QVERIFY(QFileInfo(world.folder(eCfgItem_Filter) + QStringLiteral("/a")).isDir());
    QCOMPARE(CatalogueFiles::filesBelow(world.root()), QStringList());
}

void tst_MVThemeDownLoader_errors::fileInPlaceOfAFailedOneIsDeleted_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("code");
    QTest::newRow("theme's config") << int(eCfgItem_Theme) << int(eDownLoadError_Unknown);
    QTest::newRow("filter's config") << int(eCfgItem_Filter) << int(eDownLoadError_Element);
}

/// Another program writes there meanwhile: its file cannot be told from a partial one.
void tst_MVThemeDownLoader_errors::fileInPlaceOfAFailedOneIsDeleted()
{
    QFETCH(int, kind);
    QFETCH(int, code);
    DownloadWorld world;
    SCfg_Item item = DownloadWorld::item(static_cast<ECfgItemType>(kind), 1);
    item.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/c.xml");
    const QString file = world.folder(eCfgItem_Theme) + QStringLiteral("/c.xml");
    world.route(QStringLiteral("/config/Themes/c.xml"), [&file](HttpExchange& exchange) {
        CatalogueFiles::write(file, "partial");
        exchange.answer(HttpAnswer(404).body("gone"));
    });
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, item));

    QCOMPARE(trace.results(), QVector<int>{code});
    // Side by side, a failed transfer keeps what others have stored.
    const bool isKept = TransfersSideBySide::isOn() && kind == eCfgItem_Filter;
    QCOMPARE(QFileInfo::exists(file), isKept);
}

/// A folder beside it would take its name, and the file would count as present from then on.
void tst_MVThemeDownLoader_errors::failedFileWithoutSuffix()
{
    DownloadWorld world;
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/plain")});
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));
    world.serve(QStringLiteral("/config/VideoFilters/plain"), "plain");
    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), (QVector<int>{eDownLoadError_Element, eDownLoadError_None}));
    QCOMPARE(CatalogueFiles::read(world.folder(eCfgItem_Filter) + QStringLiteral("/plain")),
             QByteArray("plain"));
}

void tst_MVThemeDownLoader_errors::theOthersAreStillFetched()
{
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(
        eCfgItem_Filter, 1,
        {QStringLiteral("/VideoFilters/missing.zip"), QStringLiteral("/../../../../../outside.zip"),
         QStringLiteral("/VideoFilters/forgotten.zip"), QStringLiteral("/VideoFilters/good.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/good.zip"), "good");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    SFileInfo& forgotten = filter.m_vecResource[2];
    trace.onLine(QStringLiteral("index = [1]"), [&forgotten] {
        const QMutexLocker lock(forgotten.m_pMutex.get());
        forgotten.m_qsFile.clear();
    });

    QVERIFY(DownloadWorld::run(downloader, filter));

    const auto url = [&world](const QString& name) {
        return world.server().url(QStringLiteral("/config") + name);
    };
    const QString missing = world.folder(eCfgItem_Filter) + QStringLiteral("/missing.zip");
    const QString outside = filter.m_vecResource.at(1).m_qsFile;
    const QString good = world.folder(eCfgItem_Filter) + QStringLiteral("/good.zip");
    const QString missingUrl = url(QStringLiteral("/VideoFilters/missing.zip"));
    const QString goodUrl = url(QStringLiteral("/VideoFilters/good.zip"));
    QStringList expected = simulatedPhase();
    expected << taken(0, missing) << fileStart(0, missingUrl, missing)
             << fileError(0, missingUrl, missing, 4) << released(0, missing);
    expected << taken(1, outside)
             << fileStart(1, url(QStringLiteral("/../../../../../outside.zip")), outside)
             << noPath();
    expected << taken(2, QString())
             << fileStart(2, url(QStringLiteral("/VideoFilters/forgotten.zip")), QString())
             << noPath();
    expected << taken(3, good) << fileStart(3, goodUrl, good) << QStringLiteral("progress 100")
             << fileOk(3, goodUrl, good) << released(3, good) << QStringLiteral("finish 2")
             << end();
    QCOMPARE(comparable(trace.entries()), comparable(expected));
    for (const SFileInfo& info : qAsConst(filter.m_vecResource))
        QVERIFY(!isTaken(info));
    QCOMPARE(CatalogueFiles::read(good), QByteArray("good"));
    QCOMPARE(world.server().requestCount(), 2);
}

void tst_MVThemeDownLoader_errors::aSecondDownloadFetchesWhatFailed()
{
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(
        eCfgItem_Filter, 1,
        {QStringLiteral("/VideoFilters/a.zip"), QStringLiteral("/VideoFilters/b.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/a.zip"), "a");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));
    world.serve(QStringLiteral("/config/VideoFilters/b.zip"), "b");
    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), (QVector<int>{eDownLoadError_Element, eDownLoadError_None}));
    QCOMPARE(world.requests(QStringLiteral("/config/VideoFilters/a.zip")), 1);
    QCOMPARE(world.requests(QStringLiteral("/config/VideoFilters/b.zip")), 2);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_errors)

#include "tst_MVThemeDownLoader_errors.moc"
