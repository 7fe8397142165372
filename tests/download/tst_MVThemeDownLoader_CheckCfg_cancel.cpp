// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CoordinatorTrace.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

/// Tests cancelling through the coordinator while transfers stall.
class tst_MVThemeDownLoader_CheckCfg_cancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void stalledCheck_data();
    void stalledCheck();
    void stalledPreview();
    void checkThatHasNotBegun();
    void previewsThatHaveNotBegun();
    void behindAnEarlyEndSignal();
    void checkAfterACancelledOne();

private:
    static MVThemeDownLoader_CheckCfg& coordinator()
    {
        return *MVThemeDownLoader_CheckCfg::instance();
    }
    void stallAt(int request)
    {
        m_world.setFault([request](HttpExchange& exchange, int number) {
            if (number < request)
                return false;
            exchange.stall();
            return true;
        });
    }

    CheckWorld m_world;
};

namespace {

constexpr qint64 aSecond = 1000; // ms
constexpr int longWait = 30000;

} // namespace

void tst_MVThemeDownLoader_CheckCfg_cancel::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
    m_world.publish("1.0.2", CheckWorld::displayCatalogue({}, {}),
                    CheckWorld::configCatalogue({}, {}));
    m_world.install("1.0.2", "1", "1");
}

void tst_MVThemeDownLoader_CheckCfg_cancel::cleanup()
{
    coordinator().waitThreadFinished();
}

void tst_MVThemeDownLoader_CheckCfg_cancel::stalledCheck_data()
{
    QTest::addColumn<int>("request");
    QTest::newRow("version") << 1;
    QTest::newRow("display") << 2;
    QTest::newRow("config") << 3;
}

void tst_MVThemeDownLoader_CheckCfg_cancel::stalledCheck()
{
    QFETCH(int, request);
    stallAt(request);
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QTRY_COMPARE(m_world.targets().size(), request);
    QElapsedTimer sinceCancel;
    sinceCancel.start();
    coordinator().cancelCfgAndDisplayXML();
    QTRY_COMPARE(trace.checks(), 1);
    QVERIFY(sinceCancel.elapsed() < aSecond);
    QCOMPARE(trace.count(QStringLiteral("check 6")), 1);
    QCOMPARE(
        trace.count(trace.called("start call MVThemeDownLoader_CheckCfg::cancelCfgAndDisplayXML")),
        1);
    QTRY_VERIFY_WITH_TIMEOUT(trace.isIdle(), longWait);
}

void tst_MVThemeDownLoader_CheckCfg_cancel::stalledPreview()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {}, {1});
    stallAt(1);
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadThumbAndGif());
    QTRY_COMPARE(m_world.targets().size(), 1);
    QElapsedTimer sinceCancel;
    sinceCancel.start();
    coordinator().cancelThumbAndGif();
    QTRY_VERIFY(trace.isIdle());
    QVERIFY(sinceCancel.elapsed() < aSecond);
    QCOMPARE(trace.count(QStringLiteral("previews 0 0 1 1")), 1);
    QCOMPARE(trace.count(trace.called("start call MVThemeDownLoader_CheckCfg::cancelThumbAndGif")),
             1);
}

/// The cancellation is not lost, however late the thread starts.
void tst_MVThemeDownLoader_CheckCfg_cancel::checkThatHasNotBegun()
{
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    coordinator().cancelCfgAndDisplayXML();
    QTRY_COMPARE(trace.checks(), 1);
    QCOMPARE(trace.count(QStringLiteral("check 6")), 1);
    QTRY_VERIFY_WITH_TIMEOUT(trace.isIdle(), longWait);
    // On a busy machine, the thread may have sent its first request before the cancel.
    QVERIFY(m_world.targets().size() <= 1);
}

/// A host ends a check together with the previews that follow it.
void tst_MVThemeDownLoader_CheckCfg_cancel::previewsThatHaveNotBegun()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {}, {1});
    const CoordinatorTrace trace;
    const auto connection =
        connect(&coordinator(), &MVThemeDownLoader_CheckCfg::sig_startDownloadThumbAndGif, this,
                [] { coordinator().cancelThumbAndGif(); });
    QVERIFY(coordinator().startDownloadThumbAndGif());
    QTRY_VERIFY_WITH_TIMEOUT(trace.isIdle(), longWait);
    disconnect(connection);
    QCOMPARE(trace.count(QStringLiteral("previews 0 0 0 0")), 1);
    QCOMPARE(m_world.targets().size(), 0);
}

/// A failed display catalogue ends the check for the coordinator while the worker still fetches the
/// config catalogue.
void tst_MVThemeDownLoader_CheckCfg_cancel::behindAnEarlyEndSignal()
{
    m_world.setFault([](HttpExchange& exchange, int number) {
        if (number == 2)
            exchange.answer(HttpAnswer(404).body("no"));
        else if (number > 2)
            exchange.stall();
        return number >= 2;
    });
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QTRY_COMPARE(m_world.targets().size(), 3);
    QTRY_COMPARE(trace.count(trace.checkEnded()), 1);
    QCOMPARE(trace.checks(), 0);
    QElapsedTimer sinceCancel;
    sinceCancel.start();
    coordinator().cancelCfgAndDisplayXML();
    QTRY_COMPARE(trace.checks(), 1);
    QVERIFY(sinceCancel.elapsed() < aSecond);
    QTRY_VERIFY_WITH_TIMEOUT(trace.isIdle(), longWait);
}

void tst_MVThemeDownLoader_CheckCfg_cancel::checkAfterACancelledOne()
{
    stallAt(1);
    const CoordinatorTrace trace;
    QVERIFY(coordinator().startDownloadXML());
    QTRY_COMPARE(m_world.targets().size(), 1);
    coordinator().cancelCfgAndDisplayXML();
    QTRY_VERIFY_WITH_TIMEOUT(trace.isIdle(), longWait);
    m_world.setFault(nullptr);
    QVERIFY(coordinator().startDownloadXML());
    QTRY_VERIFY_WITH_TIMEOUT(trace.isIdle(), longWait);
    QCOMPARE(trace.count(QStringLiteral("check 6")), 1);
    QCOMPARE(trace.count(QStringLiteral("check 0")), 1);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_CheckCfg_cancel)

#include "tst_MVThemeDownLoader_CheckCfg_cancel.moc"
