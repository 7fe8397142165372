// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSemaphore>
#include <QThread>

using namespace CheckLines;

using Files = CatalogueFiles;

/// Tests cancelling a check before, during and after each of its transfers.
class tst_CheckWorker_CfgAndDisplayXML_cancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void beforeTheCheck();
    void duringAStalledTransfer_data();
    void duringAStalledTransfer();
    void justBeforeATransfer_data();
    void justBeforeATransfer();
    void justAfterATransfer_data();
    void justAfterATransfer();
    void afterTheLastTransfer();
    void byTheTokenAlone();
    void cancelledWorkerStaysCancelled();

private:
    QString url(const char* name) const { return m_world.catalogueUrl(name); }
    QString temp(const char* name) const { return m_world.temporaryFile(name); }
    void publishAll();
    /// Returns whether the download tree has received no file.
    bool treeIsEmpty() const
    {
        return Files::filesBelow(m_world.root() + QStringLiteral("/Themes/ResourceConfig"))
            .isEmpty();
    }

    CheckWorld m_world;
};

namespace {

constexpr qint64 prompt = 200; // ms, from the cancellation to the end

/// Extra time granted on a busy machine or under a sanitizer.
constexpr qint64 slack = 800; // ms

const QByteArray displayBody = "<Resource>display</Resource>";
const QByteArray configBody = "<Resource>config</Resource>";
const QByteArray sum = "00112233445566778899aabbccddeeff";

} // namespace

void tst_CheckWorker_CfgAndDisplayXML_cancel::init()
{
    m_world.fresh();
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::publishAll()
{
    m_world.publish("1.0.2", displayBody, configBody);
    m_world.install("1.0.2", sum, sum);
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::beforeTheCheck()
{
    publishAll();
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    worker.cancel();
    CheckWorld::check(worker, trace);
    QCOMPARE(trace.entries().mid(1),
             (QStringList{
                 versionCancelled(2, url("resource_version_v3.xml"), temp("resource_version.xml")),
                 QStringLiteral("result 6"), QStringLiteral("end 1")}));
    QCOMPARE(m_world.targets().size(), 0);
    QVERIFY(treeIsEmpty());
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::duringAStalledTransfer_data()
{
    QTest::addColumn<int>("stalling"); // number of the request
    QTest::newRow("version") << 1;
    QTest::newRow("display") << 2;
    QTest::newRow("config") << 3;
}

/// The transfer ends at once, as a failed one. The check ends instead of starting the next one.
void tst_CheckWorker_CfgAndDisplayXML_cancel::duringAStalledTransfer()
{
    QFETCH(int, stalling);
    publishAll();
    CheckWorker_CfgAndDisplayXML worker;
    QElapsedTimer sinceCancel;
    QSemaphore cancelled; // the worker must outlive the call
    m_world.stallRequest(stalling, "<Res", [&] {
        sinceCancel.start();
        worker.cancel();
        cancelled.release();
    });
    DownloadTrace trace;
    CheckWorld::check(worker, trace);
    cancelled.acquire();
    QVERIFY(sinceCancel.elapsed() < prompt + slack);
    QCOMPARE(m_world.targets().size(), stalling);
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
    QTest::addColumn<QString>("line"); // the last line before the transfer
    QTest::addColumn<int>("transfer");
    QTest::newRow("version") << QStringLiteral("url_path = [") << 1;
    QTest::newRow("display") << QStringLiteral("bNeedUpdate_display = 1") << 2;
    QTest::newRow("config") << QStringLiteral("sType_XML_Info.eType_XML = 1") << 3;
}

/// No transfer begins after the cancellation: the check ends instead, with one end signal.
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
    QCOMPARE(trace.countContaining(QStringLiteral("hasError")), 0);
    QCOMPARE(m_world.targets().size(), transfer - 1);
    QVERIFY(treeIsEmpty());
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::justAfterATransfer_data()
{
    QTest::addColumn<int>("transfer");
    QTest::addColumn<int>("level"); // of the line that says so
    QTest::newRow("version") << 1 << 2;
    QTest::newRow("display") << 2 << 1;
    QTest::newRow("config") << 3 << 1;
}

/// The file has arrived, and the check ignores it.
void tst_CheckWorker_CfgAndDisplayXML_cancel::justAfterATransfer()
{
    QFETCH(int, transfer);
    QFETCH(int, level);
    publishAll();
    const QByteArray files[] = {
        CheckWorld::version("1.0.2", CheckWorld::md5(displayBody), CheckWorld::md5(configBody)),
        displayBody, configBody};
    qint64 bytes = 0;
    for (int i = 0; i < transfer; ++i)
        bytes += files[i].size();
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    worker.setProgressCallback([&](const SUpdateProgress& progress) {
        QThread::msleep(50); // the callback of a slow host misses nothing
        if (progress.m_nBytes == bytes)
            worker.cancel();
    });
    CheckWorld::check(worker, trace);
    const char* const names[] = {"resource_version_v3.xml", "resource_display.xml",
                                 "resource_config.xml"};
    const QString file = transfer == 1 ? temp("resource_version.xml") : temp(names[transfer - 1]);
    const QStringList entries = trace.entries();
    QCOMPARE(entries.mid(entries.size() - 3),
             (QStringList{versionCancelled(level, url(names[transfer - 1]), file),
                          QStringLiteral("result 6"), QStringLiteral("end 1")}));
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
    QCOMPARE(m_world.targets().size(), transfer);
    QVERIFY(treeIsEmpty());
}

/// Files verified by then are still stored: the tree is consistent either way.
void tst_CheckWorker_CfgAndDisplayXML_cancel::afterTheLastTransfer()
{
    publishAll();
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    trace.onLine(QStringLiteral("hasError = 0"), [&] { worker.cancel(); });
    CheckWorld::check(worker, trace);
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
    QCOMPARE(Files::read(m_world.downloadedFile("resource_config.xml")), configBody);
}

/// A token's holder needs no pointer to a worker, which may no longer exist.
void tst_CheckWorker_CfgAndDisplayXML_cancel::byTheTokenAlone()
{
    publishAll();
    CancelToken token;
    QElapsedTimer sinceCancel;
    QSemaphore cancelled;
    m_world.setFault([&](HttpExchange& exchange, int) {
        sinceCancel.start();
        token.cancel();
        cancelled.release();
        exchange.stall();
        return true;
    });
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker(token);
    CheckWorld::check(worker, trace);
    cancelled.acquire();
    QVERIFY(sinceCancel.elapsed() < prompt + slack);
    QCOMPARE(trace.count(QStringLiteral("result 6")), 1);
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
}

void tst_CheckWorker_CfgAndDisplayXML_cancel::cancelledWorkerStaysCancelled()
{
    publishAll();
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    trace.onLine(QStringLiteral("url_path = ["), [&] { worker.cancel(); });
    CheckWorld::check(worker, trace);
    worker.onStartDownloadXML(QString());
    QCOMPARE(trace.count(QStringLiteral("result 6")), 2);
    QCOMPARE(m_world.targets().size(), 0);
    QVERIFY(treeIsEmpty());
}

MV_TEST_MAIN(tst_CheckWorker_CfgAndDisplayXML_cancel)

#include "tst_CheckWorker_CfgAndDisplayXML_cancel.moc"
