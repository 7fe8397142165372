// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/UpdateTrace.h"
#include "support/TestMain.h"

/// Tests an update whose check sends no end signal. The coordinator accepts no other check
/// afterwards, so this has a program of its own, and its steps have a fixed order.
class tst_CatalogueUpdate_silent : public QObject
{
    Q_OBJECT

private slots:
    void updateComesToItsEndAllTheSame();
};

void tst_CatalogueUpdate_silent::updateComesToItsEndAllTheSame()
{
    CheckWorld world;
    world.fresh();
    world.publishWithoutSums();
    world.serve("/display/VideoFilters/f1.jpg", "image");
    CatalogueUpdate update;
    const UpdateTrace trace(update);

    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), UpdateTrace::whole());
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Failed);
    QCOMPARE(trace.results().constFirst().m_check.m_eEnd, eCatalogueCheck_Rejected);
    QCOMPARE(trace.results().constFirst().m_previews.m_nFetched, 1);

    QVERIFY(!update.start());
    QVERIFY(update.isRefused());
    QVERIFY(!update.isRunning());
    QVERIFY(update.shutDown());
}

MV_TEST_MAIN(tst_CatalogueUpdate_silent)

#include "tst_CatalogueUpdate_silent.moc"
