// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/HeldAnswer.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "download/UpdateTrace.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QFile>
#include <QSignalSpy>

namespace tst_CatalogueUpdate_run {

/// Tests updates that run to their end.
class tst_CatalogueUpdate_run : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void checkAndPreviewsAreOneOperation();
    void nothingNewIsComplete();
    void previewsAloneAreContent();
    void aCatalogueThatIsNotThePublishedOneIsRefused();
    void ends_data();
    void ends();
    void reasonOfAFailedCheckIsTheChecks();
    void previewsBesideTheCheckCount_data();
    void previewsBesideTheCheckCount();
    void numbersGrowToTheWhole();
    void secondStartIsRefusedMeanwhile();
    void nextUpdateMayStartInFinished();
    void nextUpdateMayStartWithTheIdlePhase();
    void destroyedUpdateReportsNothing();
    void hostMayStillUseTheCallbacks();

private:
    CheckWorld m_world;
};

namespace {

const QByteArray sum = "00112233445566778899aabbccddeeff";

void refuse(HttpExchange& exchange)
{
    exchange.answer(HttpAnswer(404).body("no"));
}

} // namespace

void tst_CatalogueUpdate_run::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
}

void tst_CatalogueUpdate_run::cleanup()
{
    MVThemeDownLoader_CheckCfg::instance()->waitThreadFinished();
}

void tst_CatalogueUpdate_run::checkAndPreviewsAreOneOperation()
{
    m_world.publishWithPreviews();
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(!update.isRunning());
    QVERIFY(update.start());
    QVERIFY(update.isRunning());
    QVERIFY(trace.hasFinished());

    QCOMPARE(trace.entries(), UpdateTrace::whole());
    const SCatalogueUpdateResult& result = trace.results().constFirst();
    QCOMPARE(result.m_eEnd, eCatalogueUpdate_Complete);
    QVERIFY(result.m_bContentArrived);
    QCOMPARE(result.m_check.m_eEnd, eCatalogueCheck_Changed);
    QCOMPARE(result.m_previews.m_nFetched, 3);
    QCOMPARE(result.reason(), QString());
    QCOMPARE(result.cause(), eFailure_None);
    QVERIFY(update.hasResult());
    QVERIFY(!update.isRunning());
    QVERIFY(QFile::exists(m_world.preview("VideoFilters", "f2.jpg")));
}

void tst_CatalogueUpdate_run::nothingNewIsComplete()
{
    m_world.publishWithPreviews();
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished(2));
    const SCatalogueUpdateResult& result = trace.results().constLast();
    QCOMPARE(result.m_eEnd, eCatalogueUpdate_Complete);
    QVERIFY(!result.m_bContentArrived);
    QCOMPARE(result.m_check.m_eEnd, eCatalogueCheck_Current);
    QCOMPARE(result.m_previews.m_nPresent, 3);
}

void tst_CatalogueUpdate_run::previewsAloneAreContent()
{
    m_world.publishWithPreviews();
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    QVERIFY(QFile::remove(m_world.preview("Themes", "t1.gif")));
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished(2));
    QCOMPARE(trace.results().constLast().m_check.m_eEnd, eCatalogueCheck_Current);
    QCOMPARE(trace.results().constLast().m_previews.m_nFetched, 1);
    QVERIFY(trace.results().constLast().m_bContentArrived);
}

void tst_CatalogueUpdate_run::aCatalogueThatIsNotThePublishedOneIsRefused()
{
    m_world.publishWithPreviews();
    m_world.serve(CheckWorld::displayTarget, "<other/>");
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    const SCatalogueUpdateResult& result = trace.results().constFirst();
    QCOMPARE(result.m_eEnd, eCatalogueUpdate_Failed);
    QCOMPARE(result.m_check.m_eEnd, eCatalogueCheck_Rejected);
    QCOMPARE(result.cause(), eFailure_Damaged);
    QVERIFY(!result.m_bContentArrived);
}

void tst_CatalogueUpdate_run::ends_data()
{
    QTest::addColumn<QByteArray>("missing");
    QTest::addColumn<QByteArray>("installed");
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("cause");
    QTest::addColumn<bool>("contentArrived");
    QTest::addColumn<QString>("reason");

    const QByteArray nothing;
    QTest::newRow("a preview") << QByteArray("/display/Themes/t1.gif") << QByteArray("1.0.2")
                               << int(eCatalogueUpdate_PreviewsMissing) << int(eFailure_NotOnServer)
                               << true << QStringLiteral("t1.gif");
    QTest::newRow("the version file, with a catalogue on disk")
        << QByteArray(CheckWorld::versionTarget) << QByteArray("1.0.2")
        << int(eCatalogueUpdate_Failed) << int(eFailure_NotOnServer) << true
        << QStringLiteral("resource_version_v3.xml");
    QTest::newRow("a catalogue file") << QByteArray(CheckWorld::configTarget) << QByteArray("1.0.2")
                                      << int(eCatalogueUpdate_Failed) << int(eFailure_NotOnServer)
                                      << true << QStringLiteral("resource_config.xml");
    QTest::newRow("newer server") << nothing << QByteArray("1.0.1") << int(eCatalogueUpdate_Failed)
                                  << int(eFailure_None) << true
                                  << QStringLiteral("needs a newer application");
    QTest::newRow("older server") << nothing << QByteArray("1.0.3") << int(eCatalogueUpdate_Failed)
                                  << int(eFailure_None) << true
                                  << QStringLiteral("older than the application");
}

void tst_CatalogueUpdate_run::ends()
{
    QFETCH(QByteArray, missing);
    QFETCH(QByteArray, installed);
    m_world.publishWithPreviews();
    m_world.install(installed, sum, sum);
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Local, {1}, {2});
    if (!missing.isEmpty())
        m_world.route(missing, refuse);
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    const SCatalogueUpdateResult& result = trace.results().constFirst();
    QTEST(int(result.m_eEnd), "end");
    QTEST(int(result.cause()), "cause");
    QTEST(result.m_bContentArrived, "contentArrived");
    QFETCH(QString, reason);
    QVERIFY2(result.reason().contains(reason), qPrintable(result.reason()));
    QCOMPARE(trace.entries().contains(QStringLiteral("newer application")),
             result.m_check.m_eEnd == eCatalogueCheck_ServerNewer);
}

void tst_CatalogueUpdate_run::reasonOfAFailedCheckIsTheChecks()
{
    m_world.publishWithPreviews();
    m_world.route(CheckWorld::versionTarget, refuse); // nor is there a catalogue on disk
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    const SCatalogueUpdateResult& result = trace.results().constFirst();
    QCOMPARE(result.m_eEnd, eCatalogueUpdate_Failed);
    QCOMPARE(result.m_previews.m_eEnd, ePreviewRun_NoCatalogue);
    QCOMPARE(result.reason(), result.m_check.m_qsReason);
    QVERIFY(!result.m_bContentArrived);
}

void tst_CatalogueUpdate_run::previewsBesideTheCheckCount_data()
{
    QTest::addColumn<bool>("otherFails");
    QTest::newRow("the other file fails, too") << true;
    QTest::newRow("the other file arrives") << false;
}

/// A catalogue file that fails starts the previews while the check tries the other one. More
/// previews follow the check, and the update waits for them.
void tst_CatalogueUpdate_run::previewsBesideTheCheckCount()
{
    QFETCH(bool, otherFails);
    m_world.publishWithPreviews();
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Local, {}, {2});
    HeldAnswer held;
    m_world.route(CheckWorld::displayTarget, refuse);
    m_world.route(CheckWorld::configTarget,
                  held.handler(otherFails
                                   ? HttpAnswer(404).body("no")
                                   : HttpAnswer(200).body(CheckWorld::configCatalogue({1}, {2}))));
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    const QSignalSpy runs(MVThemeDownLoader_CheckCfg::instance(),
                          &MVThemeDownLoader_CheckCfg::sig_startDownloadThumbAndGif);
    int runsAtTheEnd = 0;
    connect(&update, &CatalogueUpdate::finished, this, [&] { runsAtTheEnd = runs.size(); });
    QVERIFY(update.start());
    QVERIFY(held.hasArrived());
    QTRY_VERIFY(QFile::exists(m_world.preview("VideoFilters", "f2.jpg")));
    QTRY_VERIFY(!MVThemeDownLoader_CheckCfg::instance()->isFetchingPreviews());
    QCOMPARE(update.phase(), CatalogueUpdate::Phase::Catalogue);
    held.release();
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), UpdateTrace::whole());
    QCOMPARE(trace.results().constFirst().m_previews.m_nFetched, 1);
    QVERIFY(trace.results().constFirst().m_bContentArrived);
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Failed);

    MVThemeDownLoader_CheckCfg::instance()->waitThreadFinished(); // it has sent all its ends
    QCoreApplication::processEvents();
    QCOMPARE(runs.size(), runsAtTheEnd);
}

void tst_CatalogueUpdate_run::numbersGrowToTheWhole()
{
    m_world.publishWithPreviews();
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    const QVector<SUpdateProgress>& progress = trace.progress();
    SUpdateProgress last;
    for (int i = 0; i < progress.size(); ++i) {
        const bool isFirst = i == 0 || trace.progressPhases()[i] != trace.progressPhases()[i - 1];
        QCOMPARE(progress[i].m_nFiles,
                 trace.progressPhases()[i] == CatalogueUpdate::Phase::Catalogue ? 3 : 4);
        QVERIFY(isFirst || progress[i].m_nFilesDone >= last.m_nFilesDone);
        QVERIFY(isFirst || progress[i].m_nBytes >= last.m_nBytes);
        last = progress[i];
    }
    QCOMPARE(trace.progressPhases().first(), CatalogueUpdate::Phase::Catalogue);
    QCOMPARE(trace.progressPhases().last(), CatalogueUpdate::Phase::Previews);
    QCOMPARE(last.m_nFilesDone, 4);
    QCOMPARE(last.m_nBytes, qint64(3 * 5)); // "image"
    QCOMPARE(update.progress().m_nFiles, 0);
}

void tst_CatalogueUpdate_run::secondStartIsRefusedMeanwhile()
{
    m_world.publishWithPreviews();
    HeldAnswer held;
    m_world.route("/display/Themes/t1.gif", held.handler(HttpAnswer(200).body("image")));
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(!update.start());
    QTRY_COMPARE(update.phase(), CatalogueUpdate::Phase::Previews);
    QVERIFY(held.hasArrived());
    QVERIFY(!update.start());
    QVERIFY(!update.isRefused());
    QVERIFY(!update.hasResult());
    QCOMPARE(update.result().m_check.m_eEnd, eCatalogueCheck_Changed);
    held.release();
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), UpdateTrace::whole());
}

void tst_CatalogueUpdate_run::nextUpdateMayStartInFinished()
{
    m_world.publishWithPreviews();
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    bool started = false;
    connect(&update, &CatalogueUpdate::finished, &update, [&] {
        if (!started)
            started = update.start();
    });
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished(2));
    QVERIFY(started);
    QCOMPARE(trace.entries(), UpdateTrace::whole() + UpdateTrace::whole());
}

void tst_CatalogueUpdate_run::nextUpdateMayStartWithTheIdlePhase()
{
    m_world.publishWithPreviews();
    CatalogueUpdate update;
    bool started = false;
    connect(&update, &CatalogueUpdate::phaseChanged, &update, [&](CatalogueUpdate::Phase phase) {
        if (phase == CatalogueUpdate::Phase::Idle && !started)
            started = update.start();
    });
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished(2));
    QVERIFY(started);
    // The first outcome is that of the first update.
    QCOMPARE(trace.results().constFirst().m_check.m_eEnd, eCatalogueCheck_Changed);
    QCOMPARE(trace.results().constFirst().m_previews.m_nFetched, 3);
    QCOMPARE(trace.results().constLast().m_check.m_eEnd, eCatalogueCheck_Current);
}

void tst_CatalogueUpdate_run::destroyedUpdateReportsNothing()
{
    m_world.publishWithPreviews();
    {
        CatalogueUpdate update;
        QVERIFY(update.start());
    }
    CatalogueUpdate other; // it has nothing to do with the run in progress
    const UpdateTrace trace(other);
    QTRY_VERIFY(!MVThemeDownLoader_CheckCfg::instance()->isChecking());
    QTRY_VERIFY(!MVThemeDownLoader_CheckCfg::instance()->isFetchingPreviews());
    QCOMPARE(trace.entries(), QStringList());
    QVERIFY(!other.hasResult());
}

void tst_CatalogueUpdate_run::hostMayStillUseTheCallbacks()
{
    m_world.publishWithPreviews();
    int told = 0;
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback([&](const SPreviewRunResult&) { ++told; });
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback({});
    QCOMPARE(told, 1);
}

MV_TEST_MAIN(tst_CatalogueUpdate_run)

} // namespace tst_CatalogueUpdate_run

#include "tst_CatalogueUpdate_run.moc"
