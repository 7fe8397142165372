#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSemaphore>
#include <QThread>

using namespace CheckLines;

using Files = CatalogueFiles;

/// Cancelling a check before, during and after each of its transfers.
class tst_CheckWorker_CfgAndDisplayXML_cancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void beforeTheCheckIsForgotten();
    void duringAStalledTransfer_data();
    void duringAStalledTransfer();
    void justBeforeATransfer_data();
    void justBeforeATransfer();
    void justBeforeATransferThatStalls();
    void afterTheLastTransfer();
    void interruptedThreadEndsTheCheck();
    void cancelledWorkerChecksAgain();

private:
    QString url(const char* name) const
    {
        return m_world.server().url(QStringLiteral("//ResourceConfig/") + QLatin1String(name));
    }
    QString temp(const char* name) const
    {
        return m_world.temp() + QStringLiteral("//") + QLatin1String(name);
    }
    void publishAll();
    /// Nothing has arrived in the download tree.
    bool treeIsEmpty() const
    {
        return Files::filesBelow(m_world.root() + QStringLiteral("/Themes/ResourceConfig"))
            .isEmpty();
    }

    mutable CheckWorld m_world;
};

namespace {

constexpr qint64 aSecond = 1000; // ms
const QByteArray display = "<Resource>display</Resource>";
const QByteArray config = "<Resource>config</Resource>";
const QByteArray sum = "00112233445566778899aabbccddeeff";

} // namespace

void tst_CheckWorker_CfgAndDisplayXML_cancel::init()
{
    m_world.fresh();
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::publishAll()
{
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", sum, sum);
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::beforeTheCheckIsForgotten()
{
    publishAll();
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    worker.cancel();
    CheckWorld::check(worker, trace);
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::duringAStalledTransfer_data()
{
    QTest::addColumn<int>("stalling"); // number of the request
    QTest::newRow("version") << 1;
    QTest::newRow("display") << 2;
    QTest::newRow("config") << 3;
}

/// The transfer ends at once. After one that ended so the next one is still tried, and its success
/// ends the check.
void tst_CheckWorker_CfgAndDisplayXML_cancel::duringAStalledTransfer()
{
    QFETCH(int, stalling);
    publishAll();
    CheckWorker_CfgAndDisplayXML worker;
    QElapsedTimer sinceCancel;
    QSemaphore cancelled; // the worker must outlive the call
    m_world.setFault([&](HttpExchange& exchange, int number) {
        if (number != stalling)
            return false;
        exchange.answer(HttpAnswer(200).field("Content-Length", "100000").bareBody("<Res"));
        sinceCancel.start();
        worker.cancel();
        cancelled.release();
        exchange.stall();
        return true;
    });
    DownloadTrace trace;
    CheckWorld::check(worker, trace);
    cancelled.acquire();
    QVERIFY(sinceCancel.elapsed() < aSecond);
    const QStringList entries = trace.entries();
    if (stalling == 1) {
        QCOMPARE(
            entries.mid(1),
            (QStringList{versionError(url("resource_version_v3.xml"), temp("resource_version.xml")),
                         QStringLiteral("result 6"), QStringLiteral("end 1")}));
    } else if (stalling == 2) {
        const int from = entries.indexOf(needed(1, 1).at(1)) + 1;
        QCOMPARE(entries.mid(from),
                 (QStringList{
                     QStringLiteral("end 1"),
                     fileError(1, url("resource_display.xml"), temp("resource_display.xml")),
                     versionCancelled(1, url("resource_config.xml"), temp("resource_config.xml")),
                     QStringLiteral("result 6"), QStringLiteral("end 1")}));
    } else {
        QCOMPARE(entries.mid(entries.size() - 5),
                 (QStringList{QStringLiteral("end 1"),
                              fileError(2, url("resource_config.xml"), temp("resource_config.xml")),
                              hasError(1), QStringLiteral("result 6"), QStringLiteral("end 1")}));
    }
    QVERIFY(treeIsEmpty());
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::justBeforeATransfer_data()
{
    QTest::addColumn<QString>("line"); // the last one before the transfer
    QTest::addColumn<int>("transfer");
    QTest::newRow("version") << QStringLiteral("url_path = [") << 1;
    QTest::newRow("display") << QStringLiteral("bNeedUpdate_display = 1") << 2;
    QTest::newRow("config") << QStringLiteral("sType_XML_Info.eType_XML = 1") << 3;
}

/// A transfer that begins just after the cancellation may bring its file; then the check ends.
void tst_CheckWorker_CfgAndDisplayXML_cancel::justBeforeATransfer()
{
    QFETCH(QString, line);
    QFETCH(int, transfer);
    publishAll();
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    trace.onLine(line, [&] { worker.cancel(); });
    CheckWorld::check(worker, trace);
    const char* const names[] = {"resource_version_v3.xml", "resource_display.xml",
                                 "resource_config.xml"};
    const QString file = transfer == 1 ? temp("resource_version.xml") : temp(names[transfer - 1]);
    const QStringList entries = trace.entries();
    QCOMPARE(entries.mid(entries.size() - 3),
             (QStringList{versionCancelled(transfer == 1 ? 2 : 1, url(names[transfer - 1]), file),
                          QStringLiteral("result 6"), QStringLiteral("end 1")}));
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
    QCOMPARE(m_world.targets().size(), transfer);
    QVERIFY(treeIsEmpty());
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::justBeforeATransferThatStalls()
{
    publishAll();
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.stall();
        return true;
    });
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    QElapsedTimer sinceCancel;
    trace.onLine(QStringLiteral("url_path = ["), [&] {
        sinceCancel.start();
        worker.cancel();
    });
    CheckWorld::check(worker, trace);
    QVERIFY(sinceCancel.elapsed() < aSecond);
    QCOMPARE(trace.count(QStringLiteral("result 6")), 1);
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
}

/// What has been verified by then is still stored: the tree is whole either way.
void tst_CheckWorker_CfgAndDisplayXML_cancel::afterTheLastTransfer()
{
    publishAll();
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    trace.onLine(QStringLiteral("hasError = 0"), [&] { worker.cancel(); });
    CheckWorld::check(worker, trace);
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
    QCOMPARE(Files::read(m_world.downloadedFile("resource_config.xml")), config);
}

/// What coordinators do at the process's end: nothing more is waited for.
void tst_CheckWorker_CfgAndDisplayXML_cancel::interruptedThreadEndsTheCheck()
{
    publishAll();
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.stall();
        return true;
    });
    DownloadTrace trace;
    auto* const worker = new CheckWorker_CfgAndDisplayXML;
    CheckWorld::watch(*worker, trace);
    QThread thread;
    worker->moveToThread(&thread);
    connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
    thread.start();
    QMetaObject::invokeMethod(
        worker, [worker] { worker->onStartDownloadXML(QString()); }, Qt::QueuedConnection);
    QTRY_COMPARE(m_world.targets().size(), 1);
    QElapsedTimer sinceRequest;
    sinceRequest.start();
    thread.requestInterruption();
    thread.quit();
    QVERIFY(thread.wait(30000));
    QVERIFY(sinceRequest.elapsed() < aSecond);
    QCOMPARE(trace.count(QStringLiteral("result 6")), 1);
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::cancelledWorkerChecksAgain()
{
    publishAll();
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    trace.onLine(QStringLiteral("url_path = ["), [&] { worker.cancel(); });
    CheckWorld::check(worker, trace);
    worker.onStartDownloadXML(QString());
    QCOMPARE(trace.count(QStringLiteral("result 6")), 1);
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
    QVERIFY(!treeIsEmpty());
}

MV_TEST_MAIN(tst_CheckWorker_CfgAndDisplayXML_cancel)

#include "tst_CheckWorker_CfgAndDisplayXML_cancel.moc"
