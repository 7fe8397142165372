// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "download/UpdateTrace.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"
#include "support/TransfersSideBySide.h"

/// Tests updates that are cancelled or shut down.
class tst_CatalogueUpdate_cancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void cancelEndsBothPhases_data();
    void cancelEndsBothPhases();
    void cancelledUpdateGivesNoReason();
    void cancelBeforeAnythingCameHolds();
    void cancelWithoutAnUpdateDoesNothing();
    void updateAfterACancelledOneIsWhole();
    void shutDownReportsNothing();
    void shutDownWithoutAnUpdate();

private:
    CheckWorld m_world;
};

namespace {

void stall(HttpExchange& exchange)
{
    exchange.stall();
}

} // namespace

void tst_CatalogueUpdate_cancel::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
    m_world.publish("1.0.2", CheckWorld::displayCatalogue({1}, {}),
                    CheckWorld::configCatalogue({1}, {}));
    m_world.install("1.0.2", "1", "1");
    m_world.serve("/display/Themes/t1.jpg", "image");
    m_world.serve("/display/Themes/t1.gif", "image");
}

void tst_CatalogueUpdate_cancel::cleanup()
{
    MVThemeDownLoader_CheckCfg::instance()->waitThreadFinished();
}

void tst_CatalogueUpdate_cancel::cancelEndsBothPhases_data()
{
    QTest::addColumn<QByteArray>("stalling");
    QTest::addColumn<bool>("contentArrived");
    QTest::newRow("version file") << QByteArray(CheckWorld::versionTarget) << false;
    QTest::newRow("catalogue file") << QByteArray(CheckWorld::configTarget) << false;
    QTest::newRow("thumbnail") << QByteArray("/display/Themes/t1.jpg") << true;
    QTest::newRow("preview") << QByteArray("/display/Themes/t1.gif") << true;
}

void tst_CatalogueUpdate_cancel::cancelEndsBothPhases()
{
    QFETCH(QByteArray, stalling);
    m_world.route(stalling, stall);
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QTRY_VERIFY(m_world.targets().contains(stalling));
    const int requests = m_world.targets().size();
    update.cancel();
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.entries(), UpdateTrace::whole());
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Cancelled);
    QCOMPARE(trace.results().constFirst().cause(), eFailure_Cancelled);
    QTEST(trace.results().constFirst().m_bContentArrived, "contentArrived");
    if (!TransfersSideBySide::isOn()) // the others may be on their way
        QCOMPARE(m_world.targets().size(), requests);
}

/// Not even the failure of a file before the cancel.
void tst_CatalogueUpdate_cancel::cancelledUpdateGivesNoReason()
{
    m_world.route("/display/Themes/t1.jpg",
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    m_world.route("/display/Themes/t1.gif", stall);
    const LogCapture log;
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QTRY_VERIFY(m_world.targets().contains("/display/Themes/t1.gif"));
    // Side by side, that request may overtake the failure.
    QTRY_COMPARE(log.countContaining("Thumb download template is error!"), 1);
    update.cancel();
    QVERIFY(trace.hasFinished());
    const SCatalogueUpdateResult& result = trace.results().constFirst();
    QCOMPARE(result.m_eEnd, eCatalogueUpdate_Cancelled);
    QVERIFY(!result.m_previews.m_vecFailures.isEmpty());
    QCOMPARE(result.reason(), QString());
    QCOMPARE(result.cause(), eFailure_Cancelled);
}

void tst_CatalogueUpdate_cancel::cancelBeforeAnythingCameHolds()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    update.cancel();
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Cancelled);
    QVERIFY(!m_world.targets().contains("/display/Themes/t1.jpg"));
}

void tst_CatalogueUpdate_cancel::cancelWithoutAnUpdateDoesNothing()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    update.cancel();
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished());
    QCOMPARE(trace.results().constFirst().m_eEnd, eCatalogueUpdate_Complete);
}

void tst_CatalogueUpdate_cancel::updateAfterACancelledOneIsWhole()
{
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    update.cancel();
    QVERIFY(trace.hasFinished());
    QVERIFY(update.start());
    QVERIFY(trace.hasFinished(2));
    QCOMPARE(trace.results().constLast().m_eEnd, eCatalogueUpdate_Complete);
    QCOMPARE(trace.results().constLast().m_previews.m_nFetched, 2);
}

void tst_CatalogueUpdate_cancel::shutDownReportsNothing()
{
    m_world.route("/display/Themes/t1.jpg", stall);
    CatalogueUpdate update;
    const UpdateTrace trace(update);
    QVERIFY(update.start());
    QTRY_COMPARE(update.phase(), CatalogueUpdate::Phase::Previews);
    QVERIFY(update.shutDown());
    QVERIFY(!update.isRunning());
    QCOMPARE(trace.entries(),
             (QStringList{QStringLiteral("Catalogue"), QStringLiteral("Previews")}));
    QVERIFY(!update.start());
    QVERIFY(!update.isRefused());
}

void tst_CatalogueUpdate_cancel::shutDownWithoutAnUpdate()
{
    CatalogueUpdate update;
    QVERIFY(update.shutDown());
    QVERIFY(!update.start());
}

MV_TEST_MAIN(tst_CatalogueUpdate_cancel)

#include "tst_CatalogueUpdate_cancel.moc"
