// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSemaphore>

namespace tst_CheckWorker_ThumbAndGif_cancel {

using namespace CheckLines;

/// Tests cancelling a preview run before, between, during and after its transfers.
class tst_CheckWorker_ThumbAndGif_cancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void beforeTheRun();
    void betweenTransfers_data();
    void betweenTransfers();
    void afterATransfer_data();
    void afterATransfer();
    void duringATransfer_data();
    void duringATransfer();
    void whenTheServerIsSilent();
    void whenEverythingIsPresent();
    void byTheTokenAlone();

private:
    CheckWorld m_world;
};

namespace {

const char* const files[] = {"t1.jpg", "t1.gif", "t2.jpg", "t2.gif"};

constexpr qint64 prompt = 200; // ms, from the cancellation to the end

/// Extra time granted on a busy machine or under a sanitizer.
constexpr qint64 slack = 800; // ms

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
    QVERIFY(trace.contains(QStringLiteral("result 0 0 0 0 2")));
    QCOMPARE(trace.count(QStringLiteral("end 0")), 1);
    QCOMPARE(trace.countContaining(QStringLiteral("template is")), 0);
    QCOMPARE(m_world.targets().size(), 0);
}

void tst_CheckWorker_ThumbAndGif_cancel::betweenTransfers_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("line"); // the last line before the transfer that does not begin
    QTest::addColumn<int>("point");
    const QString have =
        QStringLiteral("m_info_%1.m_bDownloaded = true! not need download!, i = %2");
    const QString thumb = QStringLiteral("Thumb");
    const QString gif = QStringLiteral("Gif");
    QTest::newRow("first preview")
        << QStringList{QStringLiteral("t1.jpg")} << have.arg(thumb).arg(0) << 1151;
    QTest::newRow("second thumbnail")
        << QStringList{QStringLiteral("t1.jpg"), QStringLiteral("t1.gif")} << have.arg(gif).arg(0)
        << 1119;
}

/// A run cancelled between transfers begins no other transfer.
void tst_CheckWorker_ThumbAndGif_cancel::betweenTransfers()
{
    QFETCH(QStringList, present);
    QFETCH(QString, line);
    QFETCH(int, point);
    for (const QString& name : present)
        CatalogueFiles::write(m_world.preview("Themes", name.toLatin1().constData()), "here");
    DownloadTrace trace;
    CheckWorker_ThumbAndGif worker;
    CheckWorld::watch(worker, trace);
    trace.onLine(line, [&] { worker.cancel(); });
    QVERIFY(!worker.onStartDownload_ThumbAndGif());
    QCOMPARE(trace.count(previewsCancelled(point)), 1);
    QVERIFY(trace.contains(QStringLiteral("result 0 %1 0 0 2").arg(present.size())));
    QCOMPARE(m_world.targets().size(), 0);
}

void tst_CheckWorker_ThumbAndGif_cancel::afterATransfer_data()
{
    QTest::addColumn<QString>("line"); // the line that reports the transfer's success
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
    QCOMPARE(
        entries.mid(entries.size() - 3),
        (QStringList{previewsCancelled(point), QStringLiteral("result %1 0 0 0 2").arg(transfer),
                     QStringLiteral("end 0")}));
    QCOMPARE(m_world.targets().size(), transfer);
}

void tst_CheckWorker_ThumbAndGif_cancel::duringATransfer_data()
{
    QTest::addColumn<int>("stalling"); // number of the request
    QTest::addColumn<int>("point");    // next cancellation point, which ends the run; 0: none
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
    m_world.stallRequest(stalling, "GIF", [&] {
        sinceCancel.start();
        worker.cancel();
        cancelled.release();
    });
    DownloadTrace trace;
    CheckWorld::watch(worker, trace);
    const bool ok = worker.onStartDownload_ThumbAndGif();
    cancelled.acquire();
    QVERIFY(sinceCancel.elapsed() < prompt + slack);
    QCOMPARE(ok, point == 0);
    QCOMPARE(trace.countContaining(QStringLiteral(" %1 2").arg(int(ok))), 1);
    QCOMPARE(trace.countContaining(QStringLiteral("template is error! will return!")), 1);
    QCOMPARE(trace.countContaining(QStringLiteral("will return![line")), int(point != 0));
    if (point != 0)
        QCOMPARE(trace.count(previewsCancelled(point)), 1);
    QCOMPARE(trace.entries().constLast(), ok ? QStringLiteral("end 1") : QStringLiteral("end 0"));
    QVERIFY(!QFile::exists(m_world.preview("Themes", files[stalling - 1])));
}

/// Only the transfer in progress counts as failed; nothing else is requested.
void tst_CheckWorker_ThumbAndGif_cancel::whenTheServerIsSilent()
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
    QVERIFY(!worker.onStartDownload_ThumbAndGif());
    cancelled.acquire();
    QVERIFY2(sinceCancel.elapsed() < prompt + slack,
             qPrintable(QString::number(sinceCancel.elapsed())));
    QCOMPARE(trace.count(QStringLiteral("result 0 0 1 0 2")), 1);
    QCOMPARE(trace.count(previewsCancelled(1151)), 1);
    QCOMPARE(trace.count(QStringLiteral("end 0")), 1);
    QCOMPARE(m_world.targets().size(), 1);
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
    QCOMPARE(trace.count(QStringLiteral("result 0 4 0 1 0")), 1);
}

/// A token's holder needs no pointer to a worker, which may no longer exist.
void tst_CheckWorker_ThumbAndGif_cancel::byTheTokenAlone()
{
    CancelToken token;
    QElapsedTimer sinceCancel;
    QSemaphore cancelled;
    m_world.setFault([&](HttpExchange& exchange, int number) {
        sinceCancel.start();
        token.cancel();
        cancelled.release();
        return stallEverything(exchange, number);
    });
    DownloadTrace trace;
    CheckWorker_ThumbAndGif worker(token);
    CheckWorld::watch(worker, trace);
    QVERIFY(!worker.onStartDownload_ThumbAndGif());
    cancelled.acquire();
    QVERIFY(sinceCancel.elapsed() < prompt + slack);
    QCOMPARE(trace.count(QStringLiteral("end 0")), 1);
    QCOMPARE(m_world.targets().size(), 1);
}

MV_TEST_MAIN(tst_CheckWorker_ThumbAndGif_cancel)

} // namespace tst_CheckWorker_ThumbAndGif_cancel

#include "tst_CheckWorker_ThumbAndGif_cancel.moc"
