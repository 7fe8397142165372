// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/SideBySideWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

namespace tst_MVThemeDownLoader_sideBySide {

using namespace DownloadLines;

namespace {

constexpr int atOnce = SideBySideWorld::atOnce;

QString progressEntry(double value)
{
    return QStringLiteral("progress %1").arg(value);
}

} // namespace

/// Tests downloads that fetch several files at a time: files, log lines, failures, pace.
class tst_MVThemeDownLoader_sideBySide : public QObject
{
    Q_OBJECT

private slots:
    void sixFilesAtATime();
    void linesOfAFileAreTogether();
    void fileNeededTwiceIsFetchedOnce();
    void fileNeededTwiceThatFailsIsTriedTwice();
    void failuresDoNotStopTheOthers_data();
    void failuresDoNotStopTheOthers();
    void firstFailureIsReported();
    void fileWithoutAPlaceFailsAlone();
    void currentFileIsTheLastOneBegun();
    void paceIsKeptBetweenBeginnings();
};

void tst_MVThemeDownLoader_sideBySide::sixFilesAtATime()
{
    constexpr int count = 2 * atOnce;
    SideBySideWorld world;
    std::atomic<int> arrived{0};
    std::atomic<int> present{0};
    std::atomic<int> tooMany{0};
    world.routeAll(count, [&](HttpExchange& exchange) {
        tooMany += ++present > atOnce;
        const int groupEnd = (arrived++ / atOnce + 1) * atOnce;
        SideBySideWorld::hold(exchange, [&] { return arrived >= groupEnd; });
        --present;
        exchange.answer(HttpAnswer(200).body(exchange.request().target));
    });
    SCfg_Item filter = SideBySideWorld::filter(count);
    MVThemeDownLoader downloader(nullptr);
    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(downloader.outcome().m_eEnd, eItemDownload_Complete);
    QCOMPARE(tooMany.load(), 0);
    QCOMPARE(world.server().connectionCount(), atOnce);
    QCOMPARE(world.server().requestCount(), count);
    for (int number = 0; number < count; ++number) {
        QCOMPARE(CatalogueFiles::read(world.file(number)),
                 SideBySideWorld::target(number).toUtf8());
        QVERIFY(!SideBySideWorld::isTaken(filter.m_vecResource.at(number)));
    }
}

/// The files end in the reverse order: each answer waits for the end of the file behind it.
void tst_MVThemeDownLoader_sideBySide::linesOfAFileAreTogether()
{
    SideBySideWorld world;
    DownloadTrace trace;
    world.serveWhen(atOnce, [&](int number) {
        return number == atOnce - 1 || trace.contains(released(number + 1, world.file(number + 1)));
    });
    SCfg_Item filter = SideBySideWorld::filter(atOnce);
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));

    QStringList expected = simulatedPhase();
    for (int number = atOnce - 1; number >= 0; --number)
        expected << progressEntry(10.0 + (atOnce - number) * 15.0) << world.linesOf(number);
    expected << QStringLiteral("finish 5") << end();
    QCOMPARE(trace.entries(), expected);
}

void tst_MVThemeDownLoader_sideBySide::fileNeededTwiceIsFetchedOnce()
{
    SideBySideWorld world;
    world.serveAll(3);
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1,
                                           {SideBySideWorld::name(0), SideBySideWorld::name(1),
                                            SideBySideWorld::name(0), SideBySideWorld::name(0),
                                            SideBySideWorld::name(2)});
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(world.server().requestCount(), 3);
    QCOMPARE(world.requests(SideBySideWorld::target(0)), 1);
    for (const int index : {0, 2, 3}) {
        QCOMPARE(trace.count(fileOk(index, world.url(0), world.file(0))), 1);
        QCOMPARE(trace.count(released(index, world.file(0))), 1);
    }
    QCOMPARE(trace.progress().constLast(), 100.0);
}

/// One after the other: they would write into the same file.
void tst_MVThemeDownLoader_sideBySide::fileNeededTwiceThatFailsIsTriedTwice()
{
    SideBySideWorld world;
    std::atomic<int> present{0};
    std::atomic<int> together{0};
    world.route(SideBySideWorld::target(0), [&](HttpExchange& exchange) {
        together += ++present > 1;
        exchange.pause(std::chrono::milliseconds(20));
        --present;
        exchange.answer(HttpAnswer(404).body("none"));
    });
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1,
                                           {SideBySideWorld::name(0), SideBySideWorld::name(0)});
    MVThemeDownLoader downloader(nullptr);
    QVERIFY(DownloadWorld::run(downloader, filter));
    QCOMPARE(downloader.outcome().m_eEnd, eItemDownload_Failed);
    QCOMPARE(world.requests(SideBySideWorld::target(0)), 2);
    QCOMPARE(together.load(), 0);
}

void tst_MVThemeDownLoader_sideBySide::failuresDoNotStopTheOthers_data()
{
    QTest::addColumn<QVector<int>>("failing");
    QTest::newRow("the first") << QVector<int>{0};
    QTest::newRow("the last") << QVector<int>{8};
    QTest::newRow("several") << QVector<int>{1, 2, 3, 7};
    QTest::newRow("six at once") << QVector<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("all") << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8};
}

void tst_MVThemeDownLoader_sideBySide::failuresDoNotStopTheOthers()
{
    QFETCH(QVector<int>, failing);
    constexpr int count = 9;
    SideBySideWorld world;
    world.serveAll(count);
    for (const int number : qAsConst(failing)) {
        world.route(SideBySideWorld::target(number), [number](HttpExchange& exchange) {
            if (number % 2 == 0)
                exchange.reset();
            else
                exchange.answer(HttpAnswer(404).body("none"));
        });
    }
    SCfg_Item filter = SideBySideWorld::filter(count);
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
    for (int number = 0; number < count; ++number) {
        const bool fails = failing.contains(number);
        const QString file = world.file(number);
        const int at = trace.entries().indexOf(taken(number, file));
        QStringList lines = world.linesOf(number);
        if (fails)
            lines[2] = fileError(number, world.url(number), file, number % 2 == 0 ? 3 : 4);
        QCOMPARE(trace.entries().mid(at, lines.size()), lines);
        QCOMPARE(CatalogueFiles::read(file),
                 fails ? QByteArray() : SideBySideWorld::content(number));
    }
    QCOMPARE(CatalogueFiles::filesBelow(world.root()).size(), count - failing.size());
    QCOMPARE(trace.progress().constLast(), 100.0);
    QVERIFY(trace.contains(end()));
}

/// The fifth file fails first, the second one when that has been logged.
void tst_MVThemeDownLoader_sideBySide::firstFailureIsReported()
{
    SideBySideWorld world;
    DownloadTrace trace;
    world.serveAll(atOnce);
    world.route(SideBySideWorld::target(4),
                [](HttpExchange& exchange) { exchange.answer(HttpAnswer(410).body("gone")); });
    world.route(SideBySideWorld::target(1), [&](HttpExchange& exchange) {
        SideBySideWorld::hold(exchange, [&] { return trace.contains(released(4, world.file(4))); });
        exchange.reset();
    });
    SCfg_Item filter = SideBySideWorld::filter(atOnce);
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));
    QCOMPARE(downloader.failure().m_qsFile, world.file(4));
    QCOMPARE(downloader.failure().m_eCause, eFailure_NotOnServer);
    QCOMPARE(trace.countContaining(QStringLiteral("is error!")), 2);
}

void tst_MVThemeDownLoader_sideBySide::fileWithoutAPlaceFailsAlone()
{
    SideBySideWorld world;
    world.serveAll(2);
    const QString outside = QStringLiteral("/../../../../../outside.zip");
    SCfg_Item filter = DownloadWorld::item(
        eCfgItem_Filter, 1, {SideBySideWorld::name(0), outside, SideBySideWorld::name(1)});
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
    QCOMPARE(world.server().requestCount(), 2);
    QCOMPARE(CatalogueFiles::filesBelow(world.root()).size(), 2);
    const QStringList entries = trace.entries();
    const int at = entries.indexOf(noPath());
    QVERIFY(entries.at(at - 2).contains(QStringLiteral("index = [1]")));
    QVERIFY(entries.at(at - 1).startsWith(QStringLiteral("start download template, i = 1,")));
    QCOMPARE(trace.progress().constLast(), 100.0);
}

void tst_MVThemeDownLoader_sideBySide::currentFileIsTheLastOneBegun()
{
    SideBySideWorld world;
    std::atomic<bool> isReleased{false};
    world.serveWhen(8, [&](int) { return isReleased.load(); });
    SCfg_Item filter = SideBySideWorld::filter(8);
    MVThemeDownLoader downloader(nullptr);
    downloader.download(&filter);
    QTRY_COMPARE(world.server().requestCount(), atOnce);
    QCOMPARE(downloader.downloadedUrl(), world.url(atOnce - 1));
    QCOMPARE(downloader.downloadedFile(), world.file(atOnce - 1));
    isReleased = true;
    QVERIFY(DownloadWorld::ends(downloader));
    QCOMPARE(downloader.downloadedUrl(), world.url(7));
    QCOMPARE(downloader.downloadedFile(), world.file(7));
}

/// File number k begins k + 1 steps after the ten of the first phase, while the others run.
void tst_MVThemeDownLoader_sideBySide::paceIsKeptBetweenBeginnings()
{
    constexpr int stepMs = 40;
    SideBySideWorld world;
    DownloadPacing::setStep(std::chrono::milliseconds(stepMs));
    QElapsedTimer timer;
    std::atomic<int> arrived{0};
    std::atomic<int> tooEarly{0};
    world.routeAll(atOnce, [&](HttpExchange& exchange) {
        const int before = arrived++;
        tooEarly += timer.elapsed() < (10 + before + 1) * stepMs - 2; // rounding
        SideBySideWorld::hold(exchange, [&] { return arrived >= atOnce; });
        exchange.answer(HttpAnswer(200).body("the file"));
    });
    SCfg_Item filter = SideBySideWorld::filter(atOnce);
    MVThemeDownLoader downloader(nullptr);
    timer.start();
    QVERIFY(DownloadWorld::run(downloader, filter));
    QCOMPARE(arrived.load(), atOnce);
    QCOMPARE(tooEarly.load(), 0);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_sideBySide)

} // namespace tst_MVThemeDownLoader_sideBySide

#include "tst_MVThemeDownLoader_sideBySide.moc"
