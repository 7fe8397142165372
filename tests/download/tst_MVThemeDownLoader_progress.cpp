// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "support/TestMain.h"

#include <QMutexLocker>

#include <algorithm>
#include <cmath>

using namespace DownloadLines;

namespace {

constexpr int bodySize = 1000;

/// Sends part of the body, waits until the download has reported it, and sends the rest.
FaultServer::Handler inTwoParts(const DownloadTrace& trace, int firstPart, const QString& entry)
{
    return [&trace, firstPart, entry](HttpExchange& exchange) {
        exchange.send(HttpAnswer(200)
                          .field("Content-Length", QByteArray::number(bodySize))
                          .bareBody(QByteArray(firstPart, 'x'))
                          .bytes());
        trace.waitFor(entry);
        exchange.send(QByteArray(bodySize - firstPart, 'x'));
    };
}

QString progressEntry(double value)
{
    return QStringLiteral("progress %1").arg(value);
}

/// Removes repetitions, since a waiting transfer reports the same value again.
QVector<double> withoutRepetitions(QVector<double> values)
{
    values.erase(std::unique(values.begin(), values.end()), values.end());
    return values;
}

/// Returns the values that follow the ten steps of the first phase.
QVector<double> ofSecondPhase(const DownloadTrace& trace)
{
    return withoutRepetitions(trace.progress().mid(11));
}

} // namespace

/// Tests the progress values of a running download.
class tst_MVThemeDownLoader_progress : public QObject
{
    Q_OBJECT

private slots:
    void ofTheConfig();
    void ofTheFiles_data();
    void ofTheFiles();
    void failedFilesKeepTheirShare();
    void countsStandInTheRecord();
    void unknownTotal();
    void bytesOfAllFilesAreCounted();
    void emptyFile();
    void staysWithinBounds();
};

void tst_MVThemeDownLoader_progress::ofTheConfig()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    world.route(QStringLiteral("/config/Themes/t.xml"), inTwoParts(trace, 250, progressEntry(2.5)));

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(withoutRepetitions(trace.progress()), (QVector<double>{0.0, 2.5, 10.0}));
}

void tst_MVThemeDownLoader_progress::ofTheFiles_data()
{
    QTest::addColumn<int>("files");
    QTest::addColumn<int>("firstPart");

    QTest::newRow("one file") << 1 << 500;
    QTest::newRow("two files") << 2 << 100;
    QTest::newRow("three files") << 3 << 250;
    QTest::newRow("seven files") << 7 << 999;
}

void tst_MVThemeDownLoader_progress::ofTheFiles()
{
    MV_SKIP_SIDE_BY_SIDE("the files progress together",
                         "tst_MVThemeDownLoader_sideBySideProgress::progressIncreasesToTheEnd");
    QFETCH(int, files);
    QFETCH(int, firstPart);
    DownloadWorld world;
    DownloadTrace trace;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1);
    QVector<double> expected;
    const double share = 90.0 / files;
    for (int i = 0; i < files; ++i) {
        const QString name = QStringLiteral("/VideoFilters/%1.zip").arg(i);
        filter.m_vecResource.append(DownloadWorld::resource(name));
        const double partial = 10.0 + i * share + static_cast<double>(firstPart) / bodySize * share;
        expected << partial << 10.0 + i * share + share;
        world.route(QStringLiteral("/config") + name,
                    inTwoParts(trace, firstPart, progressEntry(partial)));
    }
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(ofSecondPhase(trace), expected);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
}

void tst_MVThemeDownLoader_progress::failedFilesKeepTheirShare()
{
    MV_SKIP_SIDE_BY_SIDE("the files progress together",
                         "tst_MVThemeDownLoader_sideBySideProgress::progressIncreasesToTheEnd");
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1,
                                           {QStringLiteral("/VideoFilters/a.zip"),
                                            QStringLiteral("/VideoFilters/b.zip"),
                                            QStringLiteral("/VideoFilters/c.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/a.zip"), "a");
    world.serve(QStringLiteral("/config/VideoFilters/c.zip"), "c");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(ofSecondPhase(trace), (QVector<double>{40.0, 100.0}));
}

void tst_MVThemeDownLoader_progress::countsStandInTheRecord()
{
    DownloadWorld world;
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/a.zip")});
    SFileInfo& info = filter.m_vecResource.first();
    info.m_nReceived = 7; // from an earlier download
    info.m_nTotal = 8;
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    QVector<qint64> atStart;
    QVector<qint64> inTheMiddle;
    const auto look = [&info](QVector<qint64>& counts) {
        const QMutexLocker lock(info.m_pMutex.get());
        counts = {info.m_nReceived, info.m_nTotal};
    };
    trace.onLine(QStringLiteral("start download template, i = 0"), [&] { look(atStart); });
    const FaultServer::Handler answer = inTwoParts(trace, 250, progressEntry(32.5));
    connect(
        &downloader, &MVThemeDownLoader::progress, &downloader,
        [&](double value) {
            if (value > 30.0 && inTheMiddle.isEmpty())
                look(inTheMiddle);
        },
        Qt::DirectConnection);
    world.route(QStringLiteral("/config/VideoFilters/a.zip"), answer);

    QVERIFY(DownloadWorld::run(downloader, filter));

    if (!TransfersSideBySide::isOn()) // where the line is written at the end
        QCOMPARE(atStart, (QVector<qint64>{0, 0}));
    QCOMPARE(inTheMiddle, (QVector<qint64>{250, 1000}));
    QCOMPARE(info.m_nReceived, qint64{1000});
    QCOMPARE(info.m_nTotal, qint64{1000});
}

/// A chunked body shows no progress until its last byte, when its length is known.
void tst_MVThemeDownLoader_progress::unknownTotal()
{
    DownloadWorld world;
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/a.zip")});
    SFileInfo& info = filter.m_vecResource.first();
    const auto received = [&info] {
        const QMutexLocker lock(info.m_pMutex.get());
        return info.m_nReceived;
    };
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    bool shown = false;
    world.route(QStringLiteral("/config/VideoFilters/a.zip"), [&](HttpExchange& exchange) {
        exchange.send(HttpAnswer(200).field("Transfer-Encoding", "chunked").bytes());
        exchange.send(HttpAnswer::chunk(QByteArray(250, 'x')));
        while (received() == 0) // the callback has seen the first chunk
            exchange.pause(std::chrono::milliseconds(1));
        shown = trace.progress().size() > 11;
        exchange.send(HttpAnswer::chunk(QByteArray(750, 'x')) + HttpAnswer::lastChunk());
    });

    QVERIFY(DownloadWorld::run(downloader, filter));

    QVERIFY(!shown);
    QCOMPARE(ofSecondPhase(trace), QVector<double>{100.0});
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
}

/// Also those whose total is unknown, so that progress() does not change while they arrive.
void tst_MVThemeDownLoader_progress::bytesOfAllFilesAreCounted()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(
        eCfgItem_Theme, 1, {QStringLiteral("/Themes/a.zip"), QStringLiteral("/Themes/b.zip")});
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    MVThemeDownLoader downloader(nullptr);
    qint64 inTheMiddle = 0;
    world.serve(QStringLiteral("/config/Themes/t.xml"), QByteArray(20, 'x'));
    world.serve(QStringLiteral("/config/Themes/a.zip"), QByteArray(300, 'x'));
    world.route(QStringLiteral("/config/Themes/b.zip"), [&](HttpExchange& exchange) {
        exchange.send(HttpAnswer(200).field("Transfer-Encoding", "chunked").bytes());
        exchange.send(HttpAnswer::chunk(QByteArray(4000, 'x')));
        while (inTheMiddle < 4000 + 300 + 20 && exchange.isOpen()) {
            exchange.pause(std::chrono::milliseconds(1));
            inTheMiddle = downloader.receivedBytes();
        }
        exchange.send(HttpAnswer::chunk(QByteArray(1, 'x')) + HttpAnswer::lastChunk());
    });

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(inTheMiddle, qint64{4320});
    QCOMPARE(downloader.receivedBytes(), qint64{4321});
    QVERIFY(DownloadWorld::run(downloader, theme));
    QCOMPARE(downloader.receivedBytes(), qint64{0}); // everything is on disk
}

void tst_MVThemeDownLoader_progress::emptyFile()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/empty.zip")});
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    world.serve(QStringLiteral("/config/Themes/t.xml"), QByteArray());
    world.serve(QStringLiteral("/config/Themes/empty.zip"), QByteArray());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QVector<double> expected{0.0};
    if (TransfersSideBySide::isOn())
        expected.append(100.0); // a file that has ended counts, whatever its size
    QCOMPARE(trace.progress(), expected);
}

/// Progress stays in range for a body longer than announced, a broken one or an error page.
void tst_MVThemeDownLoader_progress::staysWithinBounds()
{
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1);
    const QVector<QByteArray> answers = {
        HttpAnswer(200).field("Content-Length", "10").bareBody(QByteArray(500, 'x')).bytes(),
        HttpAnswer(200).field("Content-Length", "500").bareBody("xxx").bytes(),
        HttpAnswer(404).body(QByteArray(500, 'x')).bytes(),
        HttpAnswer(200).field("Content-Length", "-5").bareBody("xxx").bytes(),
        HttpAnswer(200).body("last").bytes(),
    };
    for (int i = 0; i < answers.size(); ++i) {
        const QString name = QStringLiteral("/VideoFilters/%1.zip").arg(i);
        filter.m_vecResource.append(DownloadWorld::resource(name));
        world.route(QStringLiteral("/config") + name,
                    [bytes = answers.at(i)](HttpExchange& exchange) {
                        exchange.send(bytes);
                        exchange.close();
                    });
    }
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    const QVector<double> values = trace.progress();
    QVERIFY(std::all_of(values.cbegin(), values.cend(), [](double value) {
        return std::isfinite(value) && value >= 0.0 && value <= 100.0;
    }));
    QVERIFY(std::is_sorted(values.cbegin(), values.cend()));
    QCOMPARE(values.last(), 100.0);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_progress)

#include "tst_MVThemeDownLoader_progress.moc"
