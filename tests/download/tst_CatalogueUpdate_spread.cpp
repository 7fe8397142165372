// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/HeldAnswer.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "download/UpdateTrace.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

#include <algorithm>

/// Tests updates that a program starts by itself and that wait a random time.
class tst_CatalogueUpdate_spread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutASpreadItBeginsAtOnce();
    void itWaitsAndThenRuns();
    void nothingIsRequestedMeanwhile();
    void waitsDiffer();
    void aCheckOfTheUserDoesNotWait();
    void aCheckOfTheUserEndsTheWait();
    void cancelEndsTheWaitAtOnce();
    void startAfterACancelIsOneUpdate();
    void secondStartIsRefusedMeanwhile();
    void aRunningUpdateIsNotStartedAgain();
    void shutDownEndsTheWait();
    void aDestroyedUpdateNeverBegins();
    void itMayBeRefusedAfterTheWait();

private:
    static QStringList waited(const QStringList& entries)
    {
        return QStringList{QStringLiteral("Waiting")} + entries;
    }

    CheckWorld m_world;
};

namespace {

constexpr int longSpread = HostSettings::maxCheckSpreadSeconds;
constexpr int shortSpread = 1;
constexpr int meanwhileMs = 300;   // the wait of a long spread ends earlier once in 288,000 runs
constexpr int afterShortMs = 1200; // later than any wait of a short spread

} // namespace

void tst_CatalogueUpdate_spread::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
    m_world.publishWithPreviews();
    hostSettings().checkSpreadSeconds = longSpread;
}

void tst_CatalogueUpdate_spread::cleanup()
{
    MVThemeDownLoader_CheckCfg::instance()->waitThreadFinished();
    hostSettings().checkSpreadSeconds = 0;
}

void tst_CatalogueUpdate_spread::withoutASpreadItBeginsAtOnce()
{
    hostSettings().checkSpreadSeconds = 0;
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    QVERIFY(update.isRunning());
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), UpdateTrace::whole());
}

void tst_CatalogueUpdate_spread::itWaitsAndThenRuns()
{
    hostSettings().checkSpreadSeconds = shortSpread;
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), waited(UpdateTrace::whole()));
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Complete);
    QCOMPARE(trace.results().constFirst().m_previews.m_nFetched, 3);
}

void tst_CatalogueUpdate_spread::nothingIsRequestedMeanwhile()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    QTest::qWait(meanwhileMs);
    QCOMPARE(update.phase(), CatalogueUpdate::Phase::Waiting);
    QVERIFY(update.isWaiting());
    QVERIFY(!update.isRunning());
    QVERIFY(!update.hasResult());
    QVERIFY(!MVThemeDownLoader_CheckCfg::instance()->isChecking());
    QCOMPARE(m_world.targets(), QByteArrayList());
    QCOMPARE(trace.entries(), waited({}));
}

/// Eight random times are within a tenth of the spread once in a million runs.
void tst_CatalogueUpdate_spread::waitsDiffer()
{
    hostSettings().checkSpreadSeconds = shortSpread;
    QVector<qint64> waits;
    CatalogueUpdate update;
    QElapsedTimer timer;
    connect(&update, &CatalogueUpdate::phaseChanged, this, [&](CatalogueUpdate::Phase phase) {
        if (phase == CatalogueUpdate::Phase::Catalogue)
            waits.append(timer.elapsed());
    });
    const UpdateTrace trace(update);
    for (int run = 1; run <= 8; ++run) {
        timer.start();
        QVERIFY(update.startSpread());
        QVERIFY(trace.hasFinished(run));
    }
    const auto ends = std::minmax_element(waits.cbegin(), waits.cend());
    QVERIFY2(*ends.second - *ends.first > shortSpread * 1000 / 10,
             qPrintable(QStringLiteral("%1 to %2 ms").arg(*ends.first).arg(*ends.second)));
}

void tst_CatalogueUpdate_spread::aCheckOfTheUserDoesNotWait()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), UpdateTrace::whole());
}

void tst_CatalogueUpdate_spread::aCheckOfTheUserEndsTheWait()
{
    hostSettings().checkSpreadSeconds = shortSpread;
    HeldAnswer held; // so that the end of the wait would find a running update
    m_world.route("/display/Themes/t1.gif", held.handler(HttpAnswer(200).body("image")));
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    QVERIFY(update.start());
    QCOMPARE(update.phase(), CatalogueUpdate::Phase::Catalogue);
    QTest::qWait(afterShortMs);
    held.release();
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), waited(UpdateTrace::whole()));
    QCOMPARE(m_world.targets().count(CheckWorld::versionTarget), 1);
}

void tst_CatalogueUpdate_spread::cancelEndsTheWaitAtOnce()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    update.cancel();
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), waited({QStringLiteral("Idle"), QStringLiteral("finished")}));
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Cancelled);
    QCOMPARE(trace.results().constFirst().m_check.m_eEnd, eCatalogueCheck_Cancelled);
    QCOMPARE(trace.results().constFirst().cause(), eFailure_Cancelled);
    QVERIFY(!trace.results().constFirst().m_bContentArrived);
    QVERIFY(update.hasResult());
    QCOMPARE(m_world.targets(), QByteArrayList());
    QVERIFY(update.startSpread());
    QVERIFY(update.isWaiting());
}

void tst_CatalogueUpdate_spread::startAfterACancelIsOneUpdate()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    update.cancel();
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), waited(UpdateTrace::whole()));
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Complete);
}

void tst_CatalogueUpdate_spread::secondStartIsRefusedMeanwhile()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    QVERIFY(!update.startSpread());
    QVERIFY(!update.isRefused());
    QCOMPARE(trace.entries(), waited({}));
}

void tst_CatalogueUpdate_spread::aRunningUpdateIsNotStartedAgain()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QVERIFY(!update.startSpread());
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), UpdateTrace::whole());
}

void tst_CatalogueUpdate_spread::shutDownEndsTheWait()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    QVERIFY(update.shutDown());
    QVERIFY(!update.isWaiting());
    QVERIFY(!update.startSpread());
    QCOMPARE(update.result().m_eEnd, eCatalogueUpdate_Cancelled);
    QCoreApplication::processEvents();
    QCOMPARE(trace.entries(), waited({}));
    QCOMPARE(m_world.targets(), QByteArrayList());
}

void tst_CatalogueUpdate_spread::aDestroyedUpdateNeverBegins()
{
    hostSettings().checkSpreadSeconds = shortSpread;
    {
        CatalogueUpdate update;
        QVERIFY(update.startSpread());
    }
    QTest::qWait(afterShortMs);
    QCOMPARE(m_world.targets(), QByteArrayList());
}

/// Another update has begun by then.
void tst_CatalogueUpdate_spread::itMayBeRefusedAfterTheWait()
{
    hostSettings().checkSpreadSeconds = shortSpread;
    HeldAnswer held;
    m_world.route(CheckWorld::versionTarget, held.handler(HttpAnswer(404).body("no")));
    CatalogueUpdate other;
    const UpdateTrace otherTrace(other);
    QVERIFY(other.start());
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.startSpread());
    QTRY_VERIFY(update.isRefused());
    QCOMPARE(trace.entries(), waited({QStringLiteral("Idle")}));
    held.release();
    QVERIFY(otherTrace.hasFinished());
    QCOMPARE(trace.entries(), waited({QStringLiteral("Idle")}));
}

MV_TEST_MAIN(tst_CatalogueUpdate_spread)

#include "tst_CatalogueUpdate_spread.moc"
