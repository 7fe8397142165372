// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/SideBySideWorld.h"
#include "support/TestMain.h"

#include <algorithm>
#include <functional>
#include <memory>

namespace tst_MVThemeDownLoader_sideBySideProgress {

namespace {

constexpr int atOnce = SideBySideWorld::atOnce;

QString progressEntry(double value)
{
    return QStringLiteral("progress %1").arg(value);
}

/// Returns the progress after the ten steps of the first phase.
QVector<double> ofSecondPhase(const DownloadTrace& trace)
{
    return trace.progress().mid(11);
}

bool increases(const QVector<double>& values)
{
    return std::adjacent_find(values.cbegin(), values.cend(), std::greater_equal<double>())
        == values.cend();
}

/// Sends half of a file, waits for a condition and sends the rest.
template <class Condition>
FaultServer::Handler inHalves(int number, Condition condition)
{
    return [number, condition](HttpExchange& exchange) {
        const QByteArray content = SideBySideWorld::content(number);
        const int half = content.size() / 2;
        exchange.answer(HttpAnswer(200)
                            .field("Content-Length", QByteArray::number(content.size()))
                            .bareBody(content.left(half)));
        SideBySideWorld::hold(exchange, condition);
        exchange.send(content.mid(half));
    };
}

} // namespace

/// Tests the progress of downloads that fetch several files at a time.
class tst_MVThemeDownLoader_sideBySideProgress : public QObject
{
    Q_OBJECT

private slots:
    void progressOfAllFiles();
    void progressIncreasesToTheEnd_data();
    void progressIncreasesToTheEnd();
    void whatHasArrivedStaysCounted();
};

/// Half of every file is 45 of 90 per cent; the rest comes when that has been reported.
void tst_MVThemeDownLoader_sideBySideProgress::progressOfAllFiles()
{
    SideBySideWorld world;
    DownloadTrace trace;
    for (int number = 0; number < atOnce; ++number) {
        world.route(SideBySideWorld::target(number),
                    inHalves(number, [&] { return trace.contains(progressEntry(55)); }));
    }
    SCfg_Item filter = SideBySideWorld::filter(atOnce);
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));

    const QVector<double> values = ofSecondPhase(trace);
    QCOMPARE(values.count(55.0), 1);
    QVERIFY(values.first() > 10.0);
    QCOMPARE(values.last(), 100.0);
    QVERIFY(increases(values));
    for (const SFileInfo& info : qAsConst(filter.m_vecResource)) {
        QCOMPARE(info.m_nReceived, qint64{1000});
        QCOMPARE(info.m_nTotal, qint64{1000});
    }
}

void tst_MVThemeDownLoader_sideBySideProgress::progressIncreasesToTheEnd_data()
{
    QTest::addColumn<FaultServer::Handler>("third");
    QTest::addColumn<int>("code");

    const int none = eDownLoadError_None;
    const int element = eDownLoadError_Element;
    QTest::newRow("all arrive") << FaultServer::Handler([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).body("third"));
    }) << none;
    QTest::newRow("one is missing") << FaultServer::Handler([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("none"));
    }) << element;
    QTest::newRow("one breaks in its middle") << FaultServer::Handler([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Content-Length", "1000").bareBody("beginning"));
        exchange.close();
    }) << element;
    const auto requests = std::make_shared<std::atomic<int>>(0);
    QTest::newRow("a retry starts over")
        << FaultServer::Handler([requests](HttpExchange& exchange) {
               const bool isFirst = (*requests)++ == 0;
               exchange.answer(HttpAnswer(200)
                                   .field("Content-Length", "1000")
                                   .bareBody(QByteArray(isFirst ? 900 : 1000, 'x')));
               if (isFirst)
                   exchange.close();
           })
        << none;
    QTest::newRow("one has an unknown total") << FaultServer::Handler([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200)
                            .field("Transfer-Encoding", "chunked")
                            .bareBody(HttpAnswer::chunk("third") + HttpAnswer::lastChunk()));
    }) << none;
    QTest::newRow("one is empty") << FaultServer::Handler([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).body(""));
    }) << none;
}

void tst_MVThemeDownLoader_sideBySideProgress::progressIncreasesToTheEnd()
{
    QFETCH(FaultServer::Handler, third);
    QFETCH(int, code);
    constexpr int count = 10;
    SideBySideWorld world;
    hostSettings().downloadRetries = code == eDownLoadError_None ? 1 : 0;
    world.serveAll(count);
    world.route(SideBySideWorld::target(2), third);
    SCfg_Item filter = SideBySideWorld::filter(count);
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), QVector<int>{code});
    const QVector<double> values = ofSecondPhase(trace);
    QVERIFY(values.size() >= 2);
    QVERIFY(values.first() > 10.0);
    QVERIFY(increases(values));
    QCOMPARE(values.last(), 100.0);
}

/// While a file starts over, the progress of another one still shows.
void tst_MVThemeDownLoader_sideBySideProgress::whatHasArrivedStaysCounted()
{
    SideBySideWorld world;
    hostSettings().downloadRetries = 1;
    SCfg_Item filter = SideBySideWorld::filter(2);
    const SFileInfo& first = filter.m_vecResource.first();
    DownloadTrace trace;
    const QString together = progressEntry(10 + 90 * (0.9 + 0.5) / 2);
    std::atomic<int> requests{0};
    world.route(SideBySideWorld::target(0), [&](HttpExchange& exchange) {
        const bool isFirst = requests++ == 0;
        const QByteArray content = SideBySideWorld::content(0);
        const int part = isFirst ? 900 : 100;
        exchange.answer(
            HttpAnswer(200).field("Content-Length", "1000").bareBody(content.left(part)));
        if (isFirst) {
            const QString alone = progressEntry(10 + 90 * 0.9 / 2);
            SideBySideWorld::hold(exchange, [&] { return trace.contains(alone); });
            exchange.close();
            return;
        }
        SideBySideWorld::hold(exchange, [&] { return trace.contains(together); });
        exchange.send(content.mid(part));
    });
    world.route(SideBySideWorld::target(1), [&](HttpExchange& exchange) {
        SideBySideWorld::hold(exchange, [&] {
            return requests == 2 && FileView(first).counts().receivedBytes == 100;
        });
        inHalves(1, [&] { return trace.contains(together); })(exchange);
    });
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVERIFY(DownloadWorld::run(downloader, filter));
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QVERIFY(trace.contains(together));
    QVERIFY(increases(ofSecondPhase(trace)));
    QCOMPARE(trace.progress().constLast(), 100.0);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_sideBySideProgress)

} // namespace tst_MVThemeDownLoader_sideBySideProgress

#include "tst_MVThemeDownLoader_sideBySideProgress.moc"
