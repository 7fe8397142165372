// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/SideBySideWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

#include <memory>

namespace tst_MVThemeDownLoader_sideBySideEnds {

using namespace DownloadLines;
using namespace std::chrono_literals;

namespace {

constexpr int atOnce = SideBySideWorld::atOnce;
/// A second plus a margin for a busy machine and a sanitizer. No operation below ends by itself in
/// under ten.
constexpr qint64 promptMs = 3000;
constexpr int noPoint = 0;

/// How far a download has come when it is ended.
enum class State {
    Stalled,       ///< its transfers wait for an answer
    HalfBodies,    ///< its transfers wait for the rest
    Pausing,       ///< its transfers pause before a retry
    Waiting,       ///< another download has its file
    Both,          ///< another download has one of its files, the others are stalled
    BeforeTheFirst ///< its pace keeps it from beginning a file
};

FaultServer::Handler handlerOf(State state)
{
    if (state == State::HalfBodies) {
        return [](HttpExchange& exchange) {
            exchange.answer(HttpAnswer(200).field("Content-Length", "1000").bareBody("half"));
            exchange.stall();
        };
    }
    if (state == State::Pausing) {
        return [](HttpExchange& exchange) { exchange.answer(HttpAnswer(503).body("later")); };
    }
    return [](HttpExchange& exchange) { exchange.stall(); };
}

/// Cancels on the download's own thread, as soon as its progress shows that a file has ended.
void cancelByProgress(MVThemeDownLoader& downloader)
{
    QObject::connect(
        &downloader, &MVThemeDownLoader::progress, &downloader,
        [&downloader](double value) {
            if (value > 10.5)
                downloader.cancel();
        },
        Qt::DirectConnection);
}

} // namespace

} // namespace tst_MVThemeDownLoader_sideBySideEnds

Q_DECLARE_METATYPE(tst_MVThemeDownLoader_sideBySideEnds::State)

namespace tst_MVThemeDownLoader_sideBySideEnds {

/// Tests downloads side by side that are cancelled, or destroyed, before their end.
class tst_MVThemeDownLoader_sideBySideEnds : public QObject
{
    Q_OBJECT

private slots:
    void cancelled_data();
    void cancelled();
    void destroyed_data();
    void destroyed();
    void cancelledBetweenFiles();
    void cancelledByTheProgressOfAFile();
    void cancelledWhileFilesBegin();
    void cancelledAfterAFailure();

private:
    static void slowDownBehindTheConfig(SideBySideWorld& world, MVThemeDownLoader& downloader,
                                        SCfg_Item& item);
    /// Starts a download that gets into a state and stays there; returns whether it does.
    static bool start(SideBySideWorld& world, MVThemeDownLoader& downloader, SCfg_Item& item,
                      State state);
    /// Verifies what an ended download leaves; `requests` is their number before the end.
    static void checkWhatIsLeft(SideBySideWorld& world, const SCfg_Item& item, State state,
                                int requests);
};

/// Makes the item a theme, whose config takes the place of the simulated steps and their pauses.
void tst_MVThemeDownLoader_sideBySideEnds::slowDownBehindTheConfig(SideBySideWorld& world,
                                                                   MVThemeDownLoader& downloader,
                                                                   SCfg_Item& item)
{
    item.m_eType = eCfgItem_Theme;
    item.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    world.serve(QStringLiteral("/config/Themes/t.xml"), DownloadWorld::themeConfig({}));
    connect(
        &downloader, &MVThemeDownLoader::progress, &downloader,
        [](double) { DownloadPacing::setStep(60s); }, Qt::DirectConnection);
}

bool tst_MVThemeDownLoader_sideBySideEnds::start(SideBySideWorld& world,
                                                 MVThemeDownLoader& downloader, SCfg_Item& item,
                                                 State state)
{
    const int count = item.m_vecResource.size();
    const bool isHeld = state == State::Waiting || state == State::Both;
    world.routeAll(count, handlerOf(state));
    SideBySideWorld::setTaken(item.m_vecResource.first(), isHeld);
    if (state == State::Pausing) {
        hostSettings().downloadRetries = 2;
        hostSettings().retryPauseMs = 60000;
        hostSettings().retryPauseMaxMs = 60000;
    }
    if (state == State::BeforeTheFirst)
        slowDownBehindTheConfig(world, downloader, item);
    downloader.download(&item);
    const int expected = state == State::BeforeTheFirst ? 1 : qMin(count - int(isHeld), atOnce);
    const auto isListed = [&] { return !FileView(item.m_vecResource.first()).file().isEmpty(); };
    return QTest::qWaitFor([&] { return world.server().requestCount() == expected && isListed(); },
                           20000);
}

void tst_MVThemeDownLoader_sideBySideEnds::checkWhatIsLeft(SideBySideWorld& world,
                                                           const SCfg_Item& item, State state,
                                                           int requests)
{
    const bool isHeld = state == State::Waiting || state == State::Both;
    QCOMPARE(world.server().requestCount(), requests);
    QCOMPARE(CatalogueFiles::filesBelow(world.root()).size(), int(state == State::BeforeTheFirst));
    for (int number = 0; number < item.m_vecResource.size(); ++number) {
        QCOMPARE(SideBySideWorld::isTaken(item.m_vecResource.at(number)),
                 number == 0 && isHeld); // the other download's
    }
}

void tst_MVThemeDownLoader_sideBySideEnds::cancelled_data()
{
    QTest::addColumn<State>("state");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("point");
    QTest::addColumn<int>("code");

    const int element = eDownLoadError_Element;
    const int cancel = eDownLoadError_Cancel;
    QTest::newRow("six stalled, two to come") << State::Stalled << 8 << 231 << cancel;
    QTest::newRow("six half bodies, two to come") << State::HalfBodies << 8 << 231 << cancel;
    QTest::newRow("six pausing, two to come") << State::Pausing << 8 << 231 << cancel;
    QTest::newRow("waiting for another's file") << State::Waiting << 1 << 240 << cancel;
    QTest::newRow("waiting, and five stalled") << State::Both << 6 << 240 << cancel;
    QTest::newRow("waiting, six stalled, three to come") << State::Both << 10 << 240 << cancel;
    QTest::newRow("before the first") << State::BeforeTheFirst << 8 << 231 << cancel;
    // As with one at a time: the transfers end as failed ones, and no point follows.
    QTest::newRow("all stalled") << State::Stalled << 6 << noPoint << element;
    QTest::newRow("the only one stalled") << State::Stalled << 1 << noPoint << element;
    QTest::newRow("all half bodies") << State::HalfBodies << 6 << noPoint << element;
    QTest::newRow("all pausing") << State::Pausing << 6 << noPoint << element;
}

void tst_MVThemeDownLoader_sideBySideEnds::cancelled()
{
    QFETCH(State, state);
    QFETCH(int, count);
    QFETCH(int, point);
    QFETCH(int, code);
    SideBySideWorld world;
    SCfg_Item filter = SideBySideWorld::filter(count);
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(start(world, downloader, filter, state));
    const int requests = world.server().requestCount();
    QElapsedTimer timer;
    timer.start();
    downloader.cancel();
    QVERIFY(DownloadWorld::ends(downloader));

    QVERIFY(timer.elapsed() < promptMs);
    QCOMPARE(trace.results(), QVector<int>{code});
    QCOMPARE(downloader.outcome().m_eEnd, eItemDownload_Cancelled);
    const QString finish = QStringLiteral("finish %1").arg(code);
    const QStringList lastLines = point == noPoint
        ? QStringList({finish, end()})
        : QStringList({DownloadLines::cancelled(point), finish});
    QCOMPARE(trace.entries().mid(trace.entries().size() - 2), lastLines);
    QCOMPARE(trace.countContaining(QStringLiteral("m_bWillCancel")), int(point != noPoint));
    QCOMPARE(trace.countContaining(QStringLiteral("m_CurWrapper.result() = 5")),
             state == State::BeforeTheFirst ? 0 : requests);
    // The other download's file has been waited for, and that is logged at its end.
    QCOMPARE(trace.count(waiting(0, world.file(0))) > 0, point == 240);
    QVERIFY(trace.progress().constLast() < 15); // a file that was cancelled has not arrived
    checkWhatIsLeft(world, filter, state, requests);
}

void tst_MVThemeDownLoader_sideBySideEnds::destroyed_data()
{
    cancelled_data();
}

void tst_MVThemeDownLoader_sideBySideEnds::destroyed()
{
    QFETCH(State, state);
    QFETCH(int, count);
    QFETCH(int, code);
    SideBySideWorld world;
    SCfg_Item filter = SideBySideWorld::filter(count);
    DownloadTrace trace;
    auto downloader = std::make_unique<MVThemeDownLoader>(nullptr);
    trace.watch(*downloader);
    QVERIFY(start(world, *downloader, filter, state));
    const int requests = world.server().requestCount();
    QElapsedTimer timer;
    timer.start();
    downloader.reset();

    QVERIFY(timer.elapsed() < promptMs);
    QCOMPARE(trace.results(), QVector<int>{code});
    checkWhatIsLeft(world, filter, state, requests);
}

void tst_MVThemeDownLoader_sideBySideEnds::cancelledBetweenFiles()
{
    SideBySideWorld world;
    world.serveAll(3);
    SCfg_Item filter = SideBySideWorld::filter(3);
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    // The second file would begin when the first one has long ended.
    connect(
        &downloader, &MVThemeDownLoader::progress, &downloader,
        [](double value) {
            if (value > 9.5 && value < 10.5)
                DownloadPacing::setStep(1500ms);
        },
        Qt::DirectConnection);
    downloader.download(&filter);
    QVERIFY(trace.waitFor(released(0, world.file(0))));
    downloader.cancel();
    QVERIFY(DownloadWorld::ends(downloader));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Cancel});
    QStringList expected = simulatedPhase();
    expected << QStringLiteral("progress 40") << world.linesOf(0) << DownloadLines::cancelled(231)
             << QStringLiteral("finish 4");
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(world.server().requestCount(), 1);
    QCOMPARE(CatalogueFiles::read(world.file(0)), SideBySideWorld::content(0));
}

/// A cancel from within the download's own thread keeps files that could begin from beginning.
void tst_MVThemeDownLoader_sideBySideEnds::cancelledByTheProgressOfAFile()
{
    constexpr int count = 20;
    SideBySideWorld world;
    world.serveAll(count);
    SCfg_Item filter = SideBySideWorld::filter(count);
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    cancelByProgress(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Cancel});
    QCOMPARE(trace.count(DownloadLines::cancelled(231)), 1);
    QVERIFY(world.server().requestCount() <= atOnce);
    QCOMPARE(trace.countContaining(QStringLiteral("start download template, i = 6,")), 0);
    const int arrived = trace.countContaining(QStringLiteral("download template is ok!"));
    QVERIFY(arrived >= 1);
    QCOMPARE(CatalogueFiles::filesBelow(world.root()).size(), arrived);
}

/// The first file ends as soon as it begins, since it has no place; its progress cancels.
void tst_MVThemeDownLoader_sideBySideEnds::cancelledWhileFilesBegin()
{
    SideBySideWorld world;
    world.serveAll(2);
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1,
                                           {QStringLiteral("/../../../../../outside.zip"),
                                            SideBySideWorld::name(0), SideBySideWorld::name(1)});
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    cancelByProgress(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Cancel});
    QCOMPARE(trace.countContaining(QStringLiteral("index = [0]")), 1);
    QCOMPARE(trace.countContaining(QStringLiteral("index = [1]")), 0);
    QCOMPARE(trace.count(DownloadLines::cancelled(231)), 1);
    QCOMPARE(world.server().requestCount(), 0);
}

void tst_MVThemeDownLoader_sideBySideEnds::cancelledAfterAFailure()
{
    SideBySideWorld world;
    world.routeAll(2, [](HttpExchange& exchange) { exchange.stall(); });
    SCfg_Item filter = SideBySideWorld::filter(3);
    MVThemeDownLoader downloader(nullptr);
    downloader.download(&filter);
    QTRY_VERIFY(downloader.failure().isFailure());
    QCOMPARE(downloader.failure().m_qsFile, world.file(2));
    downloader.cancel();
    QVERIFY(DownloadWorld::ends(downloader));
    QVERIFY(!downloader.failure().isFailure());
    QCOMPARE(downloader.outcome().m_eEnd, eItemDownload_Cancelled);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_sideBySideEnds)

} // namespace tst_MVThemeDownLoader_sideBySideEnds

#include "tst_MVThemeDownLoader_sideBySideEnds.moc"
