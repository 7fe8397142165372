// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QMutexLocker>
#include <QSemaphore>

#include <memory>

namespace tst_MVThemeDownLoader_cancel {

using namespace DownloadLines;

namespace {

/// A second plus a margin for a busy machine and a sanitizer. No operation below ends by itself in
/// under ten.
constexpr qint64 promptMs = 3000;

bool isTaken(const SFileInfo& info)
{
    const QMutexLocker lock(info.m_pMutex.get());
    return info.m_bDownloaded;
}

} // namespace

/// Tests every cancellation point by its number, and what a cancelled download leaves behind.
class tst_MVThemeDownLoader_cancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void beforeTheConfig();
    void waitingForAnothersConfig();
    void afterTheConfig();
    void simulatedPhase_data();
    void simulatedPhase();
    void beforeTheList();
    void beforeAFile_data();
    void beforeAFile();
    void waitingForAnothersFile();
    void duringTheConfig();
    void duringAFile_data();
    void duringAFile();

private:
    std::unique_ptr<DownloadWorld> m_world;
};

void tst_MVThemeDownLoader_cancel::init()
{
    m_world.reset();
    m_world = std::make_unique<DownloadWorld>();
}

void tst_MVThemeDownLoader_cancel::beforeTheConfig()
{
    SCfg_Item theme = m_world->themeWithConfig();
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    trace.onLine(QStringLiteral("start download template(theme cfg xml)"),
                 [&downloader] { downloader.cancel(); });

    QVERIFY(DownloadWorld::run(downloader, theme));

    const QStringList expected = {
        start(), QStringLiteral("progress 0"),
        configStart(downloader.downloadedUrl(), downloader.downloadedFile()), cancelled(179),
        QStringLiteral("finish 4")};
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(m_world->server().connectionCount(), 0);
    QVERIFY(!isTaken(theme.m_info_CfgXML));
}

void tst_MVThemeDownLoader_cancel::waitingForAnothersConfig()
{
    SCfg_Item theme = m_world->themeWithConfig();
    theme.m_info_CfgXML.m_bDownloaded = true;
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    downloader.download(&theme);
    QVERIFY(trace.waitFor(QStringLiteral("progress 0")));
    downloader.cancel();

    QVERIFY(DownloadWorld::ends(downloader));

    const QStringList expected = {start(), QStringLiteral("progress 0"), cancelled(179),
                                  QStringLiteral("finish 4")};
    QCOMPARE(trace.entries(), expected);
    QVERIFY(isTaken(theme.m_info_CfgXML)); // the other download still holds it
}

void tst_MVThemeDownLoader_cancel::afterTheConfig()
{
    SCfg_Item theme = m_world->themeWithConfig();
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    trace.onLine(QStringLiteral("download template is ok!(theme cfg xml)"),
                 [&downloader] { downloader.cancel(); });

    QVERIFY(DownloadWorld::run(downloader, theme));

    const QString url = downloader.downloadedUrl();
    const QString file = downloader.downloadedFile();
    const QStringList expected = {start(),
                                  QStringLiteral("progress 0"),
                                  configStart(url, file),
                                  QStringLiteral("progress 10"),
                                  configOk(url, file),
                                  QStringLiteral("MVThemeMgr 1: checkXml [%1] is [1]!").arg(file),
                                  QStringLiteral("MVThemeMgr 1: read [%1] is ok!").arg(file),
                                  cancelled(202),
                                  QStringLiteral("finish 4")};
    QCOMPARE(trace.entries(), expected);
    QVERIFY(theme.m_pThemes_a);
    QVERIFY(QFileInfo::exists(file));
    QVERIFY(!isTaken(theme.m_info_CfgXML));
}

void tst_MVThemeDownLoader_cancel::simulatedPhase_data()
{
    QTest::addColumn<int>("step");
    QTest::newRow("before the first step") << 0;
    QTest::newRow("in the middle") << 4;
    QTest::newRow("before the last step") << 9;
}

void tst_MVThemeDownLoader_cancel::simulatedPhase()
{
    QFETCH(int, step);
    SCfg_Item filter = m_world->filterWithTwoFiles();
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    connect(
        &downloader, &MVThemeDownLoader::progress, &downloader,
        [&downloader, step](double value) {
            if (qRound(value) == step)
                downloader.cancel();
        },
        Qt::DirectConnection);

    QVERIFY(DownloadWorld::run(downloader, filter));

    const QStringList expected = DownloadLines::simulatedPhase().mid(0, step + 2)
        << cancelled(208) << QStringLiteral("finish 4");
    QCOMPARE(trace.entries(), expected);
}

void tst_MVThemeDownLoader_cancel::beforeTheList()
{
    SCfg_Item filter = m_world->filterWithTwoFiles();
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    connect(
        &downloader, &MVThemeDownLoader::progress, &downloader,
        [&downloader](double value) {
            if (qRound(value) == 10)
                downloader.cancel();
        },
        Qt::DirectConnection);

    QVERIFY(DownloadWorld::run(downloader, filter));

    const QStringList expected = DownloadLines::simulatedPhase()
        << cancelled(218) << QStringLiteral("finish 4");
    QCOMPARE(trace.entries(), expected);
    QVERIFY(filter.m_vecResource.first().m_qsFile.isEmpty()); // it was never resolved
}

void tst_MVThemeDownLoader_cancel::beforeAFile_data()
{
    QTest::addColumn<int>("stall");
    QTest::newRow("after a whole file") << 0;
    QTest::newRow("after a broken transfer") << 1;
}

void tst_MVThemeDownLoader_cancel::beforeAFile()
{
    QFETCH(int, stall);
    MV_SKIP_SIDE_BY_SIDE("both files are fetched at once",
                         "tst_MVThemeDownLoader_sideBySideEnds::cancelledBetweenFiles");
    SCfg_Item filter = m_world->filterWithTwoFiles();
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    const QString file = m_world->folder(eCfgItem_Filter) + QStringLiteral("/a.zip");
    const QString url = m_world->server().url(QStringLiteral("/config/VideoFilters/a.zip"));
    QStringList expected = DownloadLines::simulatedPhase();
    expected << taken(0, file) << fileStart(0, url, file);
    if (stall != 0) {
        m_world->route(QStringLiteral("/config/VideoFilters/a.zip"),
                       [&downloader](HttpExchange& exchange) {
                           downloader.cancel();
                           exchange.stall();
                       });
        expected << fileError(0, url, file, 5);
    } else {
        trace.onLine(QStringLiteral("download template is ok!"),
                     [&downloader] { downloader.cancel(); });
        expected << QStringLiteral("progress 55") << fileOk(0, url, file);
    }
    expected << released(0, file) << cancelled(231) << QStringLiteral("finish 4");

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.entries(), expected);
    QCOMPARE(QFileInfo::exists(file), stall == 0);
    QCOMPARE(m_world->requests(QStringLiteral("/config/VideoFilters/b.zip")), 0);
    QVERIFY(!isTaken(filter.m_vecResource.first()));
}

void tst_MVThemeDownLoader_cancel::waitingForAnothersFile()
{
    MV_SKIP_SIDE_BY_SIDE("the lines of a file are written when it ends",
                         "tst_MVThemeDownLoader_sideBySideEnds::cancelled");
    SCfg_Item filter = m_world->filterWithTwoFiles();
    filter.m_vecResource.first().m_bDownloaded = true;
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    trace.onLine(QStringLiteral("start Download!,and it is downloading!"),
                 [&downloader] { downloader.cancel(); });

    QVERIFY(DownloadWorld::run(downloader, filter));

    const QString file = m_world->folder(eCfgItem_Filter) + QStringLiteral("/a.zip");
    const QStringList expected = DownloadLines::simulatedPhase()
        << waiting(0, file) << cancelled(240) << QStringLiteral("finish 4");
    QCOMPARE(trace.entries(), expected);
    QVERIFY(isTaken(filter.m_vecResource.first())); // the other download still holds it
}

/// The transfer ends as a failed one, and a failed config ends the download before point 202.
void tst_MVThemeDownLoader_cancel::duringTheConfig()
{
    SCfg_Item theme = m_world->themeWithConfig();
    DownloadTrace trace;
    QSemaphore isCancelled;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    m_world->route(QStringLiteral("/config/Themes/t.xml"), [&](HttpExchange& exchange) {
        downloader.cancel();
        isCancelled.release();
        exchange.stall();
    });
    QElapsedTimer timer;
    timer.start();

    QVERIFY(DownloadWorld::run(downloader, theme));

    QVERIFY(timer.elapsed() < promptMs);
    isCancelled.acquire(); // the server's thread still uses the downloader until then
    const QString url = downloader.downloadedUrl();
    const QString file = downloader.downloadedFile();
    const QStringList expected = {start(), QStringLiteral("progress 0"), configStart(url, file),
                                  configError(url, file, 5), QStringLiteral("finish 3")};
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(CatalogueFiles::filesBelow(m_world->root()), QStringList());
    QVERIFY(!isTaken(theme.m_info_CfgXML));
}

void tst_MVThemeDownLoader_cancel::duringAFile_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("before the answer") << QByteArray();
    QTest::newRow("in the body")
        << HttpAnswer(200).field("Content-Length", "1000").bareBody(QByteArray(250, 'x')).bytes();
}

/// The transfer ends as a failed one; no cancellation point follows the last file.
void tst_MVThemeDownLoader_cancel::duringAFile()
{
    QFETCH(QByteArray, sent);
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/a.zip")});
    DownloadTrace trace;
    QSemaphore isCancelled;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    m_world->route(QStringLiteral("/config/VideoFilters/a.zip"), [&](HttpExchange& exchange) {
        exchange.send(sent);
        if (!sent.isEmpty())
            trace.waitFor(QStringLiteral("progress 32.5"));
        downloader.cancel();
        isCancelled.release();
        exchange.stall();
    });
    QElapsedTimer timer;
    timer.start();

    QVERIFY(DownloadWorld::run(downloader, filter));

    QVERIFY(timer.elapsed() < promptMs);
    isCancelled.acquire(); // the server's thread still uses the downloader until then
    QVERIFY(
        trace.contains(fileError(0, downloader.downloadedUrl(), downloader.downloadedFile(), 5)));
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
    QCOMPARE(CatalogueFiles::filesBelow(m_world->root()), QStringList());
    QVERIFY(!isTaken(filter.m_vecResource.first()));
}

MV_TEST_MAIN(tst_MVThemeDownLoader_cancel)

} // namespace tst_MVThemeDownLoader_cancel

#include "tst_MVThemeDownLoader_cancel.moc"
