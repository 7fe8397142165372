// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "download/CoordinatorTrace.h"
#include "download/HeldAnswer.h"
#include "support/TestMain.h"

#include <QFile>
#include <QSignalSpy>

namespace tst_MVThemeDownLoader_CheckCfg_run {

using namespace CheckLines;

using Files = CatalogueFiles;

/// Tests how the coordinator runs checks and preview runs.
class tst_MVThemeDownLoader_CheckCfg_run : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void waitingWithoutARun();
    void cancellingWithoutARun();
    void checkIsFollowedByPreviews();
    void previewsAlone();
    void secondCheckIsRefused();
    void secondRunIsRefused();
    void failedCheckIsFollowedByPreviews();
    void serverNewerIsForwarded();
    void severalEndSignalsStartOneRun();
    void lateEndSignalLeavesTheNextCheckAlone();
    void endHandlersWithoutARun();
    void withoutCallbacks();
    void callbackCanReplaceItself();
    void nextRunMayStartInTheCallback();
    void waitingForRunsThatGoOn();
    void checkAfterWaiting();
    void hostAsksTheCatalogueMeanwhile();

private:
    static MVThemeDownLoader_CheckCfg& coordinator()
    {
        return *MVThemeDownLoader_CheckCfg::instance();
    }
    bool endsIdle(const CoordinatorTrace& trace) const
    {
        return QTest::qWaitFor([&] { return trace.isIdle(); }, 30000);
    }

    CheckWorld m_world;
};

namespace {

const QByteArray sum = "00112233445566778899aabbccddeeff";

} // namespace

void tst_MVThemeDownLoader_CheckCfg_run::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
}

void tst_MVThemeDownLoader_CheckCfg_run::cleanup()
{
    coordinator().waitThreadFinished();
}

void tst_MVThemeDownLoader_CheckCfg_run::waitingWithoutARun()
{
    const CoordinatorTrace trace;
    coordinator().waitThreadFinished();
    QCOMPARE(
        trace.entries(),
        (QStringList{trace.called("start call MVThemeDownLoader_CheckCfg::waitThreadFinished"),
                     trace.called("end call MVThemeDownLoader_CheckCfg::waitThreadFinished")}));
}

void tst_MVThemeDownLoader_CheckCfg_run::cancellingWithoutARun()
{
    const CoordinatorTrace trace;
    coordinator().cancelCfgAndDisplayXML();
    coordinator().cancelThumbAndGif();
    QCOMPARE(trace.entries(), QStringList());
}

void tst_MVThemeDownLoader_CheckCfg_run::checkIsFollowedByPreviews()
{
    m_world.publishWithPreviews();
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(endsIdle(trace));

    QStringList own; // without the entries of the threads
    const QStringList entries = trace.entries();
    for (const QString& entry : entries) {
        if (entry.contains(QLatin1String("CheckCfg ")) || entry.startsWith(QLatin1String("start "))
            || entry.startsWith(QLatin1String("check "))
            || entry.startsWith(QLatin1String("previews ")))
            own.append(entry);
    }
    QCOMPARE(own,
             (QStringList{QStringLiteral("start XML start!"), trace.checkStarted(),
                          QStringLiteral("check 0"), trace.checkEnded(),
                          QStringLiteral("start previews start!"), trace.runStarted(),
                          trace.runEnded(), QStringLiteral("previews 3 0 0 1")}));
    QVERIFY(!trace.contains(QStringLiteral("end XML")));
    QVERIFY(!trace.contains(QStringLiteral("update")));
    QVERIFY(QFile::exists(m_world.downloadedFile("resource_version.xml")));
    QVERIFY(QFile::exists(m_world.preview("VideoFilters", "f2.jpg")));
}

void tst_MVThemeDownLoader_CheckCfg_run::previewsAlone()
{
    m_world.publishWithPreviews();
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {}, {2});
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadThumbAndGif());
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.count(QStringLiteral("previews 1 0 0 1")), 1);
    QCOMPARE(trace.checks(), 0);
    QCOMPARE(m_world.targets(), (QByteArrayList{"/display/VideoFilters/f2.jpg"}));
}

void tst_MVThemeDownLoader_CheckCfg_run::secondCheckIsRefused()
{
    m_world.publishWithPreviews();
    HeldAnswer held;
    m_world.route(CheckWorld::versionTarget, held.handler(HttpAnswer(404).body("no")));
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(!coordinator().startDownloadXML());
    QCOMPARE(trace.count(trace.checkRefused()), 1);
    QVERIFY(held.hasArrived());
    QVERIFY(!coordinator().startDownloadXML());
    QCOMPARE(trace.count(trace.checkRefused()), 2);
    held.release();
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.count(QStringLiteral("start XML start!")), 1);
    QCOMPARE(trace.checks(), 1);
}

void tst_MVThemeDownLoader_CheckCfg_run::secondRunIsRefused()
{
    m_world.publishWithPreviews();
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {}, {2});
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadThumbAndGif());
    QVERIFY(!coordinator().startDownloadThumbAndGif());
    QCOMPARE(trace.count(trace.runRefused()), 1);
    QVERIFY(endsIdle(trace));
    QVERIFY(coordinator().startDownloadThumbAndGif());
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.count(QStringLiteral("previews 1 0 0 1")), 1);
    QCOMPARE(trace.count(QStringLiteral("previews 0 1 0 1")), 1);
}

void tst_MVThemeDownLoader_CheckCfg_run::failedCheckIsFollowedByPreviews()
{
    m_world.publishWithPreviews();
    m_world.route(CheckWorld::versionTarget,
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Local, {1}, {});
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.count(QStringLiteral("check 4")), 1);
    QCOMPARE(trace.count(QStringLiteral("previews 2 0 0 1")), 1);
}

void tst_MVThemeDownLoader_CheckCfg_run::serverNewerIsForwarded()
{
    m_world.publishWithPreviews();
    m_world.install("1.0.1", sum, sum);
    const CoordinatorTrace trace;
    QSignalSpy needUpdate(&coordinator(), &MVThemeDownLoader_CheckCfg::sig_NeedUpdateApp);
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(endsIdle(trace));
    QCOMPARE(needUpdate.size(), 1);
    QCOMPARE(trace.count(QStringLiteral("check 2")), 1);
    QVERIFY(trace.entries().indexOf(QStringLiteral("update"))
            < trace.entries().indexOf(trace.checkEnded()));
}

void tst_MVThemeDownLoader_CheckCfg_run::severalEndSignalsStartOneRun()
{
    m_world.publishWithPreviews();
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Local, {}, {2});
    HeldAnswer held; // the run continues until the check has sent all its signals
    m_world.route("/display/VideoFilters/f2.jpg", held.handler(HttpAnswer(200).body("image")));
    m_world.route(CheckWorld::displayTarget,
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QTRY_COMPARE(trace.count(trace.runRefused()), 1);
    held.release();
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.count(QStringLiteral("start previews start!")), 1);
    QCOMPARE(trace.count(trace.checkEnded()), 1);
    QCOMPARE(trace.count(QStringLiteral("check 5")), 1);
}

/// The first of two failing files ends a check for the coordinator; the other is still being
/// transferred when the host starts the next check.
void tst_MVThemeDownLoader_CheckCfg_run::lateEndSignalLeavesTheNextCheckAlone()
{
    m_world.publishWithPreviews();
    HeldAnswer held;
    m_world.setFault([&](HttpExchange& exchange, int number) {
        if (number == 2)
            exchange.answer(HttpAnswer(404).body("no"));
        if (number == 3)
            held.handler(HttpAnswer(404).body("no"))(exchange);
        return number == 2 || number == 3;
    });
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(held.hasArrived());
    QTRY_COMPARE(trace.count(trace.checkEnded()), 1);
    QVERIFY(coordinator().startDownloadXML());
    held.release();
    QTRY_COMPARE_WITH_TIMEOUT(trace.checks(), 2, 30000);
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.count(QStringLiteral("check 5")), 1);
    QCOMPARE(trace.count(QStringLiteral("check 0")), 1);
    QCOMPARE(trace.count(trace.checkEnded()), 2);
}

void tst_MVThemeDownLoader_CheckCfg_run::endHandlersWithoutARun()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Local, {}, {});
    const CoordinatorTrace trace;
    coordinator().onEndDownloadThumbAndGif(true);
    QCOMPARE(trace.entries(), QStringList());
    coordinator().onEndDownloadXML(false);
    QCOMPARE(trace.count(trace.checkEnded()), 0);
    QCOMPARE(trace.count(trace.runStarted()), 1);
    QTRY_COMPARE(trace.count(trace.runEnded()), 1);
}

void tst_MVThemeDownLoader_CheckCfg_run::withoutCallbacks()
{
    m_world.publishWithPreviews();
    const CoordinatorTrace trace;
    MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback({});
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback({});
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.checks(), 0);
}

void tst_MVThemeDownLoader_CheckCfg_run::callbackCanReplaceItself()
{
    m_world.publishWithPreviews();
    const CoordinatorTrace trace;
    int told = 0;
    MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback([&](const SCatalogueCheckResult&) {
        MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback({});
        ++told;
    });
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(endsIdle(trace));
    QCOMPARE(told, 1);
}

void tst_MVThemeDownLoader_CheckCfg_run::nextRunMayStartInTheCallback()
{
    m_world.publishWithPreviews();
    const CoordinatorTrace trace;
    QVector<bool> started;
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback([&](const SPreviewRunResult&) {
        if (started.isEmpty())
            started.append(coordinator().startDownloadThumbAndGif());
    });
    QVERIFY(coordinator().startDownloadThumbAndGif());
    QTRY_COMPARE_WITH_TIMEOUT(trace.count(trace.runEnded()), 2, 30000);
    QCOMPARE(started, QVector<bool>{true});
}

void tst_MVThemeDownLoader_CheckCfg_run::waitingForRunsThatGoOn()
{
    m_world.publishWithPreviews();
    HeldAnswer held;
    m_world.route(CheckWorld::configTarget,
                  held.handler(HttpAnswer(200).body(CheckWorld::configCatalogue({1}, {2}))));
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(held.hasArrived());
    held.release();
    coordinator().waitThreadFinished();
    // The thread has ended, which the event loop reports.
    QVERIFY(trace.contains(hasError(0)));
    QCOMPARE(trace.checks(), 0);
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.count(QStringLiteral("check 0")), 1);
    QCOMPARE(trace.count(QStringLiteral("previews 3 0 0 1")), 1);
}

void tst_MVThemeDownLoader_CheckCfg_run::checkAfterWaiting()
{
    m_world.publishWithPreviews();
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(endsIdle(trace));
    coordinator().waitThreadFinished();
    QVERIFY(coordinator().startDownloadXML());
    QVERIFY(endsIdle(trace));
    QCOMPARE(trace.count(QStringLiteral("check 0")), 1);
    QCOMPARE(trace.count(QStringLiteral("check 1")), 1);
    QCOMPARE(trace.count(QStringLiteral("previews 0 3 0 1")), 1);
}

void tst_MVThemeDownLoader_CheckCfg_run::hostAsksTheCatalogueMeanwhile()
{
    m_world.publishWithPreviews();
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Local, {1}, {2});
    MVThemeMgr* const manager = MVThemeMgr::init();
    manager->load(true);
    SCfg_Item* const theme = manager->findItemByIDFromConfig(eCfgItem_Theme, Files::guid(1));
    QVERIFY(theme);
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    while (!trace.isIdle()) {
        QVector<SFileInfo*> missing;
        manager->getNeedDownLoadFiles(theme, missing);
        QVERIFY(manager->findItemByIDFromConfig(eCfgItem_Filter, Files::guid(2)));
        QVERIFY(!manager->Path_resource_version_xml(MVThemeMgr::eLoadDir_Download).isEmpty());
        QCoreApplication::processEvents();
    }
    QCOMPARE(trace.count(QStringLiteral("check 0")), 1);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_CheckCfg_run)

} // namespace tst_MVThemeDownLoader_CheckCfg_run

#include "tst_MVThemeDownLoader_CheckCfg_run.moc"
