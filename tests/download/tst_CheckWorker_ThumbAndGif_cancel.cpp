#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSemaphore>
#include <QThread>

using namespace CheckLines;

/// Cancelling a preview run before, during and after each of its transfers.
class tst_CheckWorker_ThumbAndGif_cancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void beforeTheRun();
    void afterATransfer_data();
    void afterATransfer();
    void duringATransfer_data();
    void duringATransfer();
    void whenNothingSucceedsAnyMore();
    void whenEverythingIsPresent();
    void interruptedThreadEndsTheRun();

private:
    CheckWorld m_world;
};

namespace {

constexpr qint64 aSecond = 1000; // ms
const char* const files[] = {"t1.jpg", "t1.gif", "t2.jpg", "t2.gif"};

bool stallEverything(HttpExchange& exchange, int)
{
    exchange.stall();
    return true;
}

} // namespace

void tst_CheckWorker_ThumbAndGif_cancel::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {1, 2}, {});
    for (const char* name : files)
        m_world.serve(CheckWorld::previewTarget("Themes", name), name);
}

void tst_CheckWorker_ThumbAndGif_cancel::beforeTheRun()
{
    DownloadTrace trace;
    CheckWorker_ThumbAndGif worker;
    CheckWorld::watch(worker, trace);
    worker.cancel();
    QVERIFY(!worker.onStartDownload_ThumbAndGif());
    QCOMPARE(trace.count(previewsCancelled(1119)), 1);
    QVERIFY(trace.contains(QStringLiteral("result 1 0 0 0")));
    QCOMPARE(trace.count(QStringLiteral("end 0")), 1);
    QCOMPARE(m_world.targets().size(), 1);
}

void tst_CheckWorker_ThumbAndGif_cancel::afterATransfer_data()
{
    QTest::addColumn<QString>("line"); // that of the transfer's success
    QTest::addColumn<int>("transfer");
    QTest::addColumn<int>("point");
    const QString ok = QStringLiteral("%1 download template is ok!, i = %2");
    const QString thumb = QStringLiteral("Thumb");
    const QString gif = QStringLiteral("Gif");
    QTest::newRow("first thumbnail") << ok.arg(thumb).arg(0) << 1 << 1119;
    QTest::newRow("first preview") << ok.arg(gif).arg(0) << 2 << 1151;
    QTest::newRow("second thumbnail") << ok.arg(thumb).arg(1) << 3 << 1119;
    QTest::newRow("second preview") << ok.arg(gif).arg(1) << 4 << 1151;
}

void tst_CheckWorker_ThumbAndGif_cancel::afterATransfer()
{
    QFETCH(QString, line);
    QFETCH(int, transfer);
    QFETCH(int, point);
    DownloadTrace trace;
    CheckWorker_ThumbAndGif worker;
    CheckWorld::watch(worker, trace);
    trace.onLine(line, [&] { worker.cancel(); });
    QVERIFY(!worker.onStartDownload_ThumbAndGif());
    const QStringList entries = trace.entries();
    QCOMPARE(entries.mid(entries.size() - 3),
             (QStringList{previewsCancelled(point), QStringLiteral("result %1 0 0 0").arg(transfer),
                          QStringLiteral("end 0")}));
    QCOMPARE(m_world.targets().size(), transfer);
}

void tst_CheckWorker_ThumbAndGif_cancel::duringATransfer_data()
{
    QTest::addColumn<int>("stalling"); // number of the request
    QTest::addColumn<int>("point");    // where the next one ends the run; 0: there is none
    QTest::newRow("first thumbnail") << 1 << 1151;
    QTest::newRow("first preview") << 2 << 1119;
    QTest::newRow("second thumbnail") << 3 << 1151;
    QTest::newRow("second preview") << 4 << 0;
}

void tst_CheckWorker_ThumbAndGif_cancel::duringATransfer()
{
    QFETCH(int, stalling);
    QFETCH(int, point);
    CheckWorker_ThumbAndGif worker;
    QElapsedTimer sinceCancel;
    QSemaphore cancelled; // the worker must outlive the call
    m_world.setFault([&](HttpExchange& exchange, int number) {
        if (number != stalling)
            return false;
        exchange.answer(HttpAnswer(200).field("Content-Length", "100000").bareBody("GIF"));
        sinceCancel.start();
        worker.cancel();
        cancelled.release();
        exchange.stall();
        return true;
    });
    DownloadTrace trace;
    CheckWorld::watch(worker, trace);
    const bool ok = worker.onStartDownload_ThumbAndGif();
    cancelled.acquire();
    QVERIFY(sinceCancel.elapsed() < aSecond);
    QCOMPARE(ok, point == 0);
    QCOMPARE(trace.countContaining(QStringLiteral("template is error! will return!")), 1);
    QCOMPARE(trace.countContaining(QStringLiteral("will return![line")), int(point != 0));
    if (point != 0)
        QCOMPARE(trace.count(previewsCancelled(point)), 1);
    QCOMPARE(trace.entries().constLast(), ok ? QStringLiteral("end 1") : QStringLiteral("end 0"));
    QVERIFY(!QFile::exists(m_world.preview("Themes", files[stalling - 1])));
}

/// A server that has gone silent does not hold a cancelled run up file by file.
void tst_CheckWorker_ThumbAndGif_cancel::whenNothingSucceedsAnyMore()
{
    QVector<int> many;
    for (int number = 1; number <= 50; ++number)
        many.append(number);
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, many, {});
    CheckWorker_ThumbAndGif worker;
    QElapsedTimer sinceCancel;
    QSemaphore cancelled; // the worker must outlive the call
    m_world.setFault([&](HttpExchange& exchange, int number) {
        if (number == 1) {
            sinceCancel.start();
            worker.cancel();
            cancelled.release();
        }
        return stallEverything(exchange, number);
    });
    DownloadTrace trace;
    CheckWorld::watch(worker, trace);
    QVERIFY(worker.onStartDownload_ThumbAndGif());
    cancelled.acquire();
    QVERIFY2(sinceCancel.elapsed() < 2 * aSecond,
             qPrintable(QString::number(sinceCancel.elapsed())));
    QCOMPARE(trace.count(QStringLiteral("result 0 0 100 1")), 1);
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
}

void tst_CheckWorker_ThumbAndGif_cancel::whenEverythingIsPresent()
{
    for (const char* name : files)
        CatalogueFiles::write(m_world.preview("Themes", name), "here");
    DownloadTrace trace;
    CheckWorker_ThumbAndGif worker;
    CheckWorld::watch(worker, trace);
    worker.cancel();
    QVERIFY(worker.onStartDownload_ThumbAndGif());
    QCOMPARE(trace.count(QStringLiteral("result 0 4 0 1")), 1);
}

void tst_CheckWorker_ThumbAndGif_cancel::interruptedThreadEndsTheRun()
{
    m_world.setFault(&stallEverything);
    DownloadTrace trace;
    auto* const worker = new CheckWorker_ThumbAndGif;
    CheckWorld::watch(*worker, trace);
    QThread thread;
    worker->moveToThread(&thread);
    connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
    thread.start();
    QMetaObject::invokeMethod(worker, &CheckWorker_ThumbAndGif::onStartDownload_ThumbAndGif,
                              Qt::QueuedConnection);
    QTRY_COMPARE(m_world.targets().size(), 1);
    QElapsedTimer sinceRequest;
    sinceRequest.start();
    thread.requestInterruption();
    thread.quit();
    QVERIFY(thread.wait(30000));
    QVERIFY(sinceRequest.elapsed() < aSecond);
    QCOMPARE(trace.count(QStringLiteral("end 0")), 1);
    QCOMPARE(m_world.targets().size(), 1);
}

MV_TEST_MAIN(tst_CheckWorker_ThumbAndGif_cancel)

#include "tst_CheckWorker_ThumbAndGif_cancel.moc"
