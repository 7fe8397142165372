// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "download/DownloadPacing.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

#include <memory>

namespace tst_MVThemeDownLoader_destroy {

using namespace DownloadLines;

namespace {

/// A second plus a margin for a busy machine and a sanitizer. No operation below ends by itself in
/// under ten.
constexpr qint64 promptMs = 3000;

/// The state in which a download is interrupted.
enum class State {
    WaitingForConfig,
    StalledConfig,
    Simulating,
    StalledFile,
    HalfAFile,
    WaitingForFile,
    BetweenFiles
};

} // namespace

/// Tests downloaders that are cancelled for good, and those destroyed while working.
class tst_MVThemeDownLoader_destroy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void beforeTheStart();
    void staysCancelled();
    void destroyedWhileRunning_data();
    void destroyedWhileRunning();

private:
    std::unique_ptr<DownloadWorld> m_world;
};

void tst_MVThemeDownLoader_destroy::init()
{
    m_world.reset();
    m_world = std::make_unique<DownloadWorld>();
}

void tst_MVThemeDownLoader_destroy::beforeTheStart()
{
    SCfg_Item filter = m_world->filterWithTwoFiles();
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    downloader.cancel();

    QVERIFY(DownloadWorld::run(downloader, filter));

    const QStringList expected = {start(), QStringLiteral("progress 0"), cancelled(208),
                                  QStringLiteral("finish 4")};
    QCOMPARE(trace.entries(), expected);
}

void tst_MVThemeDownLoader_destroy::staysCancelled()
{
    SCfg_Item filter = m_world->filterWithTwoFiles();
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    downloader.cancel();

    QVERIFY(DownloadWorld::run(downloader, filter));
    QVERIFY(DownloadWorld::run(downloader, filter));
    QCOMPARE(trace.results(), (QVector<int>{eDownLoadError_Cancel, eDownLoadError_Cancel}));

    MVThemeDownLoader fresh(nullptr);
    trace.watch(fresh);
    QVERIFY(DownloadWorld::run(fresh, filter));
    QCOMPARE(trace.results().constLast(), int(eDownLoadError_None));
}

void tst_MVThemeDownLoader_destroy::destroyedWhileRunning_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("seen"); // the entry that shows that the download has got there
    QTest::addColumn<int>("code");

    const auto row = [](const char* name, State state, const char* seen, int code) {
        QTest::newRow(name) << static_cast<int>(state) << QString::fromLatin1(seen) << code;
    };
    row("waiting for another's config", State::WaitingForConfig, "progress 0", 4);
    row("stalled config", State::StalledConfig, "start download template(theme cfg xml)", 3);
    row("simulated phase", State::Simulating, "progress 1", 4);
    row("stalled file", State::StalledFile, "start download template, i = 0", 4);
    row("half a file", State::HalfAFile, "progress 32.5", 4);
    row("waiting for another's file", State::WaitingForFile, "and it is downloading!", 4);
    row("between two files", State::BetweenFiles, "end Download!", 4);
}

void tst_MVThemeDownLoader_destroy::destroyedWhileRunning()
{
    QFETCH(int, state);
    QFETCH(QString, seen);
    QFETCH(int, code);
    const auto is = [state](State other) { return static_cast<State>(state) == other; };
    if (is(State::StalledFile) || is(State::HalfAFile) || is(State::WaitingForFile)
        || is(State::BetweenFiles)) {
        MV_SKIP_SIDE_BY_SIDE("both files are fetched at once",
                             "tst_MVThemeDownLoader_sideBySideEnds::destroyed");
    }
    const bool inConfig = is(State::WaitingForConfig) || is(State::StalledConfig);
    SCfg_Item item = inConfig ? m_world->themeWithConfig() : m_world->filterWithTwoFiles();
    item.m_info_CfgXML.m_bDownloaded = is(State::WaitingForConfig);
    item.m_vecResource.first().m_bDownloaded = is(State::WaitingForFile);
    const FaultServer::Handler stall = [](HttpExchange& exchange) { exchange.stall(); };
    if (is(State::StalledConfig))
        m_world->route(QStringLiteral("/config/Themes/t.xml"), stall);
    if (is(State::StalledFile))
        m_world->route(QStringLiteral("/config/VideoFilters/a.zip"), stall);
    if (is(State::HalfAFile)) {
        m_world->route(QStringLiteral("/config/VideoFilters/a.zip"), [](HttpExchange& exchange) {
            exchange.send(HttpAnswer(200).field("Content-Length", "2").bareBody("x").bytes());
            exchange.stall();
        });
    }
    DownloadTrace trace;
    auto downloader = std::make_unique<MVThemeDownLoader>(nullptr);
    trace.watch(*downloader);
    // Far longer than ending may take: pauses are cut short.
    const auto slowDown = [] { DownloadPacing::setStep(std::chrono::seconds(30)); };
    if (is(State::Simulating))
        slowDown();
    if (is(State::BetweenFiles))
        trace.onLine(seen, slowDown);

    downloader->download(&item);
    QVERIFY(trace.waitForPart(seen));
    if (is(State::StalledConfig) || is(State::StalledFile))
        QTRY_COMPARE(m_world->server().requestCount(), 1);
    QElapsedTimer timer;
    timer.start();
    downloader.reset();

    QVERIFY(timer.elapsed() < promptMs);
    QCOMPARE(trace.results(), QVector<int>{code});
    QVERIFY(!trace.contains(end()));
}

MV_TEST_MAIN(tst_MVThemeDownLoader_destroy)

} // namespace tst_MVThemeDownLoader_destroy

#include "tst_MVThemeDownLoader_destroy.moc"
