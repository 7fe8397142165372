// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/UpdateTrace.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"

#include <QThread>

/// An update that is cancelled just as its check ends without an end signal. The coordinator takes
/// no other check afterwards, so this has a program of its own.
class tst_CatalogueUpdate_silentCancel : public QObject
{
    Q_OBJECT

private slots:
    void updateComesToItsEndAllTheSame();
};

void tst_CatalogueUpdate_silentCancel::updateComesToItsEndAllTheSame()
{
    CheckWorld world;
    world.fresh();
    world.publishWithoutSums();
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    const LogCapture log;

    QVERIFY(update.start());
    // No events meanwhile: the end of the check is known to the worker only.
    while (log.countContaining("will return!") == 0)
        QThread::msleep(1);
    update.cancel();
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), UpdateTrace::whole());
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Cancelled);
    QCOMPARE(trace.results().constFirst().m_check.m_eEnd, eCatalogueCheck_Rejected);
    QCOMPARE(world.targets(), QByteArrayList{CheckWorld::versionTarget}); // no previews
    QVERIFY(!update.isRunning());
}

MV_TEST_MAIN(tst_CatalogueUpdate_silentCancel)

#include "tst_CatalogueUpdate_silentCancel.moc"
