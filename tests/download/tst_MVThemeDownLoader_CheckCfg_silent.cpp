// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "download/CoordinatorTrace.h"
#include "support/TestMain.h"

using namespace CheckLines;

/// Tests a check that sends no end signal. It counts as in progress for the rest of the process, so
/// it has a program of its own, and its steps have a fixed order.
class tst_MVThemeDownLoader_CheckCfg_silent : public QObject
{
    Q_OBJECT

private slots:
    void hostIsToldOnce();
};

void tst_MVThemeDownLoader_CheckCfg_silent::hostIsToldOnce()
{
    CheckWorld world;
    world.fresh();
    world.publishWithoutSums();
    world.serve("/display/VideoFilters/f1.jpg", "image");
    auto& coordinator = *MVThemeDownLoader_CheckCfg::instance();
    const CoordinatorTrace trace;

    QVERIFY(coordinator.startDownloadXML());
    QTRY_COMPARE(trace.checks(), 1);
    QVERIFY(trace.contains(noSums()));
    QVERIFY(trace.contains(QStringLiteral("check 5")));
    // Once the thread is joined, everything it has sent has arrived.
    coordinator.waitThreadFinished();
    QCoreApplication::processEvents();
    QVERIFY(!trace.contains(trace.checkEnded()));
    QVERIFY(!trace.contains(trace.runStarted()));

    // No further check is accepted, although the server has recovered.
    world.publish("1.0.2", "<d/>", "<c/>");
    QVERIFY(!coordinator.startDownloadXML());
    QVERIFY(trace.contains(trace.checkRefused()));
    // Cancelling finds a worker and does no harm.
    coordinator.cancelCfgAndDisplayXML();
    // Previews can still be fetched.
    QVERIFY(coordinator.startDownloadThumbAndGif());
    QTRY_COMPARE(trace.count(trace.runEnded()), 1);
    QVERIFY(trace.contains(QStringLiteral("previews 1 0 0 1")));
}

MV_TEST_MAIN(tst_MVThemeDownLoader_CheckCfg_silent)

#include "tst_MVThemeDownLoader_CheckCfg_silent.moc"
