// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CoordinatorTrace.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>

namespace tst_MVThemeDownLoader_CheckCfg_repeat {

/// Tests many checks in a row: each one runs, and nothing accumulates.
class tst_MVThemeDownLoader_CheckCfg_repeat : public QObject
{
    Q_OBJECT

private slots:
    void twentyChecksInARow();
    void nextCheckFromTheEndOfTheLast();

private:
    bool checkOnce(const CoordinatorTrace& trace, int number);
    void startNext();

    CheckWorld m_world;
};

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true; // freed memory stays in quarantine
#else
constexpr bool sanitized = false;
#endif
constexpr int manyChecks = 40;
constexpr int longWait = 30000;
constexpr int workers = 2;             // threads of the coordinator
constexpr qint64 allowedGrowth = 2048; // kB

int threads()
{
    return QDir(QStringLiteral("/proc/self/task"))
        .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
        .size();
}

qint64 residentKilobytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray text = status.readAll();
    const int at = text.indexOf("VmRSS:") + 6;
    return text.mid(at, text.indexOf("kB", at) - at).trimmed().toLongLong();
}

} // namespace

bool tst_MVThemeDownLoader_CheckCfg_repeat::checkOnce(const CoordinatorTrace& trace, int number)
{
    // Every second catalogue is new.
    const QVector<int> filters{number / 2 + 1};
    m_world.publish("1.0.2", CheckWorld::displayCatalogue({}, filters),
                    CheckWorld::configCatalogue({}, filters));
    return MVThemeDownLoader_CheckCfg::instance()->startDownloadXML()
        && QTest::qWaitFor([&] { return trace.isIdle(); }, longWait);
}

void tst_MVThemeDownLoader_CheckCfg_repeat::twentyChecksInARow()
{
    m_world.fresh();
    m_world.install("1.0.2", "1", "1");
    m_world.setFault([](HttpExchange& exchange, int) {
        if (!exchange.request().target.startsWith("/display/"))
            return false;
        exchange.answer(HttpAnswer(200).body("image"));
        return true;
    });
    const CoordinatorTrace trace;
    // The first checks fill what is retained: buffers, connections, pools.
    for (int number = 0; number < 6; ++number)
        QVERIFY(checkOnce(trace, number));
    const int serverThreads = m_world.server().connectionCount();
    const int threadsBefore = threads();
    const qint64 memoryBefore = residentKilobytes();
    for (int number = 6; number < 26; ++number)
        QVERIFY(checkOnce(trace, number));

    QCOMPARE(trace.checks(), 26);
    QCOMPARE(trace.count(QStringLiteral("check 0")), 13);
    QCOMPARE(trace.count(QStringLiteral("check 1")), 13);
    // The server's own threads end with their connections.
    QVERIFY(m_world.server().connectionCount() > serverThreads);
    QTRY_VERIFY(threads() <= threadsBefore + workers);
    const qint64 growth = residentKilobytes() - memoryBefore;
    QVERIFY2(sanitized || growth < allowedGrowth, qPrintable(QString::number(growth)));
}

/// The coordinator accepts a check as soon as the previous one's end signal has arrived.
void tst_MVThemeDownLoader_CheckCfg_repeat::startNext()
{
    if (MVThemeDownLoader_CheckCfg::instance()->startDownloadXML())
        return;
    QMetaObject::invokeMethod(
        this, [this] { startNext(); }, Qt::QueuedConnection);
}

/// The catalogue thread is still finishing then.
void tst_MVThemeDownLoader_CheckCfg_repeat::nextCheckFromTheEndOfTheLast()
{
    m_world.fresh();
    m_world.install("1.0.2", "1", "1");
    m_world.publish("1.0.2", CheckWorld::displayCatalogue({}, {}),
                    CheckWorld::configCatalogue({}, {}));
    const CoordinatorTrace trace;
    QVector<int> ends;
    MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback([&](const SCatalogueCheckResult& result) {
        ends.append(result.m_eEnd);
        if (ends.size() < manyChecks)
            startNext();
    });
    QVERIFY(MVThemeDownLoader_CheckCfg::instance()->startDownloadXML());
    QTRY_COMPARE_WITH_TIMEOUT(ends.size(), manyChecks, longWait);
    QTRY_VERIFY_WITH_TIMEOUT(trace.count(trace.runEnded()) == trace.count(trace.runStarted()),
                             longWait);
    QCOMPARE(ends.count(eCatalogueCheck_Changed), 1);
    QCOMPARE(ends.count(eCatalogueCheck_Current), manyChecks - 1);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_CheckCfg_repeat)

} // namespace tst_MVThemeDownLoader_CheckCfg_repeat

#include "tst_MVThemeDownLoader_CheckCfg_repeat.moc"
