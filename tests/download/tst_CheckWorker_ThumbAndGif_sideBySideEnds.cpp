// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CatalogueUpdate.h"
#include "download/CheckFixture.h"
#include "download/UpdateTrace.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>

#include <atomic>
#include <thread>

namespace tst_CheckWorker_ThumbAndGif_sideBySideEnds {

using Files = CatalogueFiles;

/// Tests how preview runs with several files at a time end, and the catalogue meanwhile.
class tst_CheckWorker_ThumbAndGif_sideBySideEnds : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cancelEndsEveryTransfer_data();
    void cancelEndsEveryTransfer();
    void cancelKeepsWhatOthersHaveStored();
    void cancelDuringPresentPictures();
    void cancelBeforeTheRun();
    void cancelWhenNothingIsLeftToBegin();
    void catalogueIsReloadedMeanwhile();
    void contentArrivesBeforeThePreviews();
    void unchangedCatalogueNeedsNoReload();

private:
    void publishThemes(int count);

    CheckWorld m_world;
};

namespace {

constexpr int atOnce = 6;
constexpr int soonMs = 2000; // generous; the run ends within 200 ms

} // namespace

void tst_CheckWorker_ThumbAndGif_sideBySideEnds::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
    hostSettings().transfersSideBySide = atOnce;
    hostSettings().showWithoutPreviews = true;
}

void tst_CheckWorker_ThumbAndGif_sideBySideEnds::publishThemes(int count)
{
    const QByteArray display = CheckWorld::displayCatalogue(CheckWorld::numbers(count), {});
    const QByteArray config = CheckWorld::configCatalogue(CheckWorld::numbers(count), {});
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", "1", "1");
    for (int number = 1; number <= count; ++number) {
        for (const char* suffix : {".jpg", ".gif"})
            m_world.serve("/display/Themes/t" + QByteArray::number(number) + suffix, "x");
    }
}

void tst_CheckWorker_ThumbAndGif_sideBySideEnds::cancelEndsEveryTransfer_data()
{
    QTest::addColumn<bool>("isSilent"); // the server does not answer at all
    QTest::newRow("silent server") << true;
    QTest::newRow("half a file") << false;
}

void tst_CheckWorker_ThumbAndGif_sideBySideEnds::cancelEndsEveryTransfer()
{
    QFETCH(bool, isSilent);
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, CheckWorld::numbers(10), {});
    m_world.setFault([isSilent](HttpExchange& exchange, int) {
        if (!isSilent) {
            exchange.send(HttpAnswer(200).field("Content-Length", "100").bareBody("half").bytes());
        }
        exchange.stall();
        return true;
    });
    CheckWorker_ThumbAndGif worker;
    SPreviewRunResult result;
    worker.setResultCallback([&](const SPreviewRunResult& ended) { result = ended; });
    QElapsedTimer sinceCancel;
    std::thread canceller([&] {
        while (m_world.targets().size() < atOnce)
            std::this_thread::yield();
        sinceCancel.start();
        worker.cancel();
    });
    const bool isComplete = worker.onStartDownload_ThumbAndGif();
    canceller.join();
    QVERIFY(sinceCancel.elapsed() < soonMs);
    QVERIFY(!isComplete);
    QCOMPARE(result.m_eEnd, ePreviewRun_Cancelled);
    QVERIFY(!result.m_bWorkedThrough);
    QCOMPARE(m_world.targets().size(), atOnce);
    QCOMPARE(Files::filesBelow(m_world.root() + QStringLiteral("/Themes/display")), QStringList());
}

/// A download of the item may have brought its picture meanwhile.
void tst_CheckWorker_ThumbAndGif_sideBySideEnds::cancelKeepsWhatOthersHaveStored()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, CheckWorld::numbers(1), {});
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.stall();
        return true;
    });
    CheckWorker_ThumbAndGif worker;
    const QString picture = m_world.preview("Themes", "t1.gif");
    std::thread other([&] {
        while (m_world.targets().size() < 2)
            std::this_thread::yield();
        Files::write(picture, "stored by another");
        worker.cancel();
    });
    worker.onStartDownload_ThumbAndGif();
    other.join();
    QCOMPARE(Files::read(picture), QByteArray("stored by another"));
}

/// A walk over what is on disk must not delay the end.
void tst_CheckWorker_ThumbAndGif_sideBySideEnds::cancelDuringPresentPictures()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, CheckWorld::numbers(300), {});
    for (int number = 1; number <= 300; ++number) {
        for (const char* suffix : {"jpg", "gif"}) {
            const QByteArray name = "t" + QByteArray::number(number) + '.' + suffix;
            Files::write(m_world.preview("Themes", name.constData()), "here");
        }
    }
    CheckWorker_ThumbAndGif worker;
    SPreviewRunResult result;
    worker.setResultCallback([&](const SPreviewRunResult& ended) { result = ended; });
    worker.setProgressCallback([&](const SUpdateProgress&) { worker.cancel(); });
    QVERIFY(!worker.onStartDownload_ThumbAndGif());
    QCOMPARE(result.m_eEnd, ePreviewRun_Cancelled);
    QVERIFY(result.m_nPresent < 600);
    QCOMPARE(m_world.targets(), QByteArrayList());
}

void tst_CheckWorker_ThumbAndGif_sideBySideEnds::cancelBeforeTheRun()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, CheckWorld::numbers(2), {});
    CheckWorker_ThumbAndGif worker;
    DownloadTrace trace;
    worker.cancel();
    QVERIFY(!worker.onStartDownload_ThumbAndGif());
    QCOMPARE(trace.countContaining(QStringLiteral("m_bWillCancel == true")), 1);
    QCOMPARE(m_world.targets(), QByteArrayList());
}

/// As with one file at a time: the run was worked through, and its last files failed.
void tst_CheckWorker_ThumbAndGif_sideBySideEnds::cancelWhenNothingIsLeftToBegin()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, CheckWorld::numbers(2), {});
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.stall();
        return true;
    });
    CheckWorker_ThumbAndGif worker;
    SPreviewRunResult result;
    worker.setResultCallback([&](const SPreviewRunResult& ended) { result = ended; });
    std::thread canceller([&] {
        while (m_world.targets().size() < 4)
            std::this_thread::yield();
        worker.cancel();
    });
    const bool isComplete = worker.onStartDownload_ThumbAndGif();
    canceller.join();
    QVERIFY(isComplete);
    QCOMPARE(result.m_eEnd, ePreviewRun_Cancelled);
    QCOMPARE(result.m_nFailed, 4);
}

void tst_CheckWorker_ThumbAndGif_sideBySideEnds::catalogueIsReloadedMeanwhile()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, CheckWorld::numbers(30), {});
    for (int number = 1; number <= 30; ++number) {
        for (const char* suffix : {".jpg", ".gif"})
            m_world.serve("/display/Themes/t" + QByteArray::number(number) + suffix, "x");
    }
    std::atomic<bool> isOver{false};
    bool isComplete = false;
    std::thread runner([&] {
        CheckWorker_ThumbAndGif worker;
        isComplete = worker.onStartDownload_ThumbAndGif();
        isOver = true;
    });
    do
        QVERIFY(MVThemeMgr::init()->tryReload());
    while (!isOver);
    runner.join();
    QVERIFY(isComplete);
    MVThemeMgr::init()->load(true);
    QCOMPARE(MVThemeMgr::init()->getDisplayXML().vecTheme.size(), 30);
}

void tst_CheckWorker_ThumbAndGif_sideBySideEnds::contentArrivesBeforeThePreviews()
{
    publishThemes(3);
    MVThemeMgr::init()->load(true);
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVector<CatalogueUpdate::Phase> phases;
    connect(&update, &CatalogueUpdate::contentArrived, this, [&] {
        phases.append(update.phase());
        MVThemeMgr::init()->load(true);
        QCOMPARE(MVThemeMgr::init()->getDisplayXML().vecTheme.size(), 3);
    });
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    QCOMPARE(phases, QVector<CatalogueUpdate::Phase>{CatalogueUpdate::Phase::Previews});
    QVERIFY(trace.results().constFirst().m_bContentArrived);
    QCOMPARE(trace.results().constFirst().m_previews.m_nFetched, 6);
}

/// The arriving previews replace their placeholders.
void tst_CheckWorker_ThumbAndGif_sideBySideEnds::unchangedCatalogueNeedsNoReload()
{
    publishThemes(1);
    for (const bool isShown : {true, false}) {
        QDir(m_world.root() + QStringLiteral("/Themes/display")).removeRecursively();
        hostSettings().showWithoutPreviews = isShown;
        CatalogueUpdate update;
        const UpdateTrace trace(update);
        QVERIFY(update.start());
        QVERIFY(trace.hasFinished());
        const QSignalSpy arrived(&update, &CatalogueUpdate::contentArrived);
        QVERIFY(QFile::remove(m_world.preview("Themes", "t1.jpg")));
        QVERIFY(update.start());
        QTRY_COMPARE(trace.results().size(), 2);
        QCOMPARE(trace.results().constLast().m_previews.m_nFetched, 1);
        QCOMPARE(arrived.count(), isShown ? 0 : 1);
    }
}

MV_TEST_MAIN(tst_CheckWorker_ThumbAndGif_sideBySideEnds)

} // namespace tst_CheckWorker_ThumbAndGif_sideBySideEnds

#include "tst_CheckWorker_ThumbAndGif_sideBySideEnds.moc"
