// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "download/DownloadPacing.h"
#include "host/HostSettings.h"
#include "support/MetaTypes.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

#include <atomic>

using namespace DownloadLines;

namespace {

/// Makes the protected operation accessible.
class OpenDownLoader : public MVThemeDownLoader
{
    Q_OBJECT

public:
    using MVThemeDownLoader::doProgress;
    using MVThemeDownLoader::MVThemeDownLoader;
};

} // namespace

/// Tests the downloader object: its values, its signals, reuse, its pace.
class tst_MVThemeDownLoader_object : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void userDataIsTheCallers();
    void progressTellsWhetherToGoOn();
    void signalsTravelThroughQueues();
    void anObjectServesOneItemAfterTheOther();
    void theEndSignalMayStartTheNext();
    void downloadIsIgnoredWhileOneRuns();
    void paceIsKept();
};

void tst_MVThemeDownLoader_object::initTestCase()
{
    using namespace std::chrono_literals;
    QCOMPARE(DownloadPacing::step(), std::chrono::milliseconds(500ms));
    hostSettings().downloadStepMs = 0;
    QCOMPARE(DownloadPacing::step(), std::chrono::milliseconds(0ms));
    DownloadPacing::setStep(3ms); // takes precedence
    QCOMPARE(DownloadPacing::step(), std::chrono::milliseconds(3ms));
    DownloadPacing::setStep(-1ms);
    QCOMPARE(DownloadPacing::step(), std::chrono::milliseconds(0ms));
}

void tst_MVThemeDownLoader_object::userDataIsTheCallers()
{
    MVThemeDownLoader downloader(nullptr);
    QVERIFY(!downloader.userData());
    int value = 0;
    downloader.setUserData(&value);
    QCOMPARE(downloader.userData(), static_cast<void*>(&value));
}

void tst_MVThemeDownLoader_object::progressTellsWhetherToGoOn()
{
    DownloadTrace trace;
    OpenDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(downloader.doProgress(12.5));
    downloader.cancel();
    QVERIFY(!downloader.doProgress(13.0));
    QCOMPARE(trace.progress(), (QVector<double>{12.5, 13.0}));
}

void tst_MVThemeDownLoader_object::signalsTravelThroughQueues()
{
    DownloadWorld world;
    SCfg_Item item = DownloadWorld::item(eCfgItem_Filter, 1);
    MVThemeDownLoader downloader(nullptr);
    QVERIFY(isMetaType("EMVThemeDownLoadError"));
    QVector<int> results;
    QVector<double> values;
    connect(&downloader, &MVThemeDownLoader::progress, this,
            [&values](double value) { values.append(value); });
    connect(&downloader, &MVThemeDownLoader::sigDownloadFinish, this,
            [&results](EMVThemeDownLoadError result) { results.append(result); });

    QVERIFY(DownloadWorld::run(downloader, item));
    QVERIFY(results.isEmpty()); // nothing is delivered before the event loop runs

    QTRY_COMPARE(results, QVector<int>{eDownLoadError_None});
    QCOMPARE(values, (QVector<double>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

void tst_MVThemeDownLoader_object::anObjectServesOneItemAfterTheOther()
{
    DownloadWorld world;
    SCfg_Item first =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/a.zip")});
    SCfg_Item second = DownloadWorld::item(eCfgItem_Motion, 2, {QStringLiteral("/Motions/b.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/a.zip"), "a");
    world.serve(QStringLiteral("/config/Motions/b.zip"), "b");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, first));
    const QStringList firstRun = trace.entries();
    trace.clear();
    QVERIFY(DownloadWorld::run(downloader, second));

    QCOMPARE(trace.entries().size(), firstRun.size());
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QVERIFY(trace.contains(taken(0, world.folder(eCfgItem_Motion) + QStringLiteral("/b.zip"))));
    QCOMPARE(trace.progress().constLast(), 100.0);
}

void tst_MVThemeDownLoader_object::theEndSignalMayStartTheNext()
{
    DownloadWorld world;
    SCfg_Item first = DownloadWorld::item(eCfgItem_Filter, 1);
    SCfg_Item second =
        DownloadWorld::item(eCfgItem_Filter, 2, {QStringLiteral("/VideoFilters/b.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/b.zip"), "b");
    MVThemeDownLoader downloader(nullptr);
    int ends = 0;
    connect(&downloader, &MVThemeDownLoader::sigDownloadFinish, this, [&] {
        if (++ends == 1)
            downloader.download(&second);
    });

    downloader.download(&first);

    QTRY_COMPARE(ends, 2);
    QCOMPARE(world.requests(QStringLiteral("/config/VideoFilters/b.zip")), 1);
}

void tst_MVThemeDownLoader_object::downloadIsIgnoredWhileOneRuns()
{
    DownloadWorld world;
    SCfg_Item first =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/a.zip")});
    SCfg_Item second =
        DownloadWorld::item(eCfgItem_Filter, 2, {QStringLiteral("/VideoFilters/b.zip")});
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    std::atomic<bool> asked{false};
    world.serve(QStringLiteral("/config/VideoFilters/b.zip"), "b");
    world.route(QStringLiteral("/config/VideoFilters/a.zip"), [&](HttpExchange& exchange) {
        while (!asked)
            exchange.pause(std::chrono::milliseconds(1));
        exchange.answer(HttpAnswer(200).body("a"));
    });

    downloader.download(&first);
    downloader.download(&second);
    QTRY_COMPARE(world.server().requestCount(), 1);
    downloader.download(&second);
    asked = true;
    QVERIFY(DownloadWorld::ends(downloader));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(world.server().requestCount(), 1);
    QCOMPARE(world.requests(QStringLiteral("/config/VideoFilters/a.zip")), 1);
    QCOMPARE(trace.count(start()), 1);
}

/// Expects one pause after each of the ten steps and one before each file.
void tst_MVThemeDownLoader_object::paceIsKept()
{
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(
        eCfgItem_Filter, 1,
        {QStringLiteral("/VideoFilters/a.zip"), QStringLiteral("/VideoFilters/b.zip")});
    DownloadPacing::setStep(std::chrono::milliseconds(20));
    MVThemeDownLoader downloader(nullptr);
    QElapsedTimer timer;
    timer.start();

    QVERIFY(DownloadWorld::run(downloader, filter));

    QVERIFY(timer.elapsed() >= 12 * 20);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_object)

#include "tst_MVThemeDownLoader_object.moc"
