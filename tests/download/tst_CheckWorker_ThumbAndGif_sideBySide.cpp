// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/PreviewExchange.h"
#include "download/SUpdateProgress.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

#include <QSignalSpy>

#include <atomic>
#include <chrono>
#include <mutex>

namespace tst_CheckWorker_ThumbAndGif_sideBySide {

using Files = CatalogueFiles;

/// Tests preview runs that fetch several files at a time.
class tst_CheckWorker_ThumbAndGif_sideBySide : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void sixAtATime();
    void orderOfTheList();
    void visibleItemsComeFirst();
    void wishesDuringTheRunCount();
    void sharedPictureIsFetchedOnce_data();
    void sharedPictureIsFetchedOnce();
    void sharedPictureThatFailsIsTriedAgain();
    void presentPicturesAreNotFetched();
    void failuresAreCountedAndTheOthersArrive();
    void progressCountsEveryFile();
    void arrivalsAreTold();
    void backgroundsAreFetchedIfShown_data();
    void backgroundsAreFetchedIfShown();

private:
    void writeThemes(int count);
    bool run();

    CheckWorld m_world;
    DownloadTrace m_trace;
    SPreviewRunResult m_result;
    QVector<SUpdateProgress> m_progress;
    QStringList m_shown; // GUIDs, told before the run
};

namespace {

constexpr int atOnce = 6;

void holdUntil(const HttpExchange& exchange, const std::function<bool()>& condition)
{
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (!condition() && std::chrono::steady_clock::now() < end)
        exchange.pause(1ms);
}

QByteArray picture(int theme, const char* suffix = "jpg")
{
    return "/display/Themes/t" + QByteArray::number(theme) + '.' + suffix;
}

} // namespace

void tst_CheckWorker_ThumbAndGif_sideBySide::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
    hostSettings().transfersSideBySide = atOnce;
    m_shown.clear();
}

void tst_CheckWorker_ThumbAndGif_sideBySide::cleanup()
{
    PreviewExchange::instance()->setShown(this, {});
}

/// Writes themes with the numbers 1 to `count`, whose pictures are served.
void tst_CheckWorker_ThumbAndGif_sideBySide::writeThemes(int count)
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, CheckWorld::numbers(count), {});
    for (int number = 1; number <= count; ++number) {
        for (const char* suffix : {"jpg", "gif"})
            m_world.serve(picture(number, suffix), "content of " + picture(number, suffix));
    }
}

bool tst_CheckWorker_ThumbAndGif_sideBySide::run()
{
    PreviewExchange::instance()->setShown(this, m_shown);
    m_progress.clear();
    CheckWorker_ThumbAndGif worker;
    worker.setResultCallback([this](const SPreviewRunResult& result) { m_result = result; });
    worker.setProgressCallback(
        [this](const SUpdateProgress& progress) { m_progress.append(progress); });
    return worker.onStartDownload_ThumbAndGif();
}

void tst_CheckWorker_ThumbAndGif_sideBySide::sixAtATime()
{
    writeThemes(10);
    std::atomic<int> current{0};
    std::atomic<int> most{0};
    m_world.setFault([&](HttpExchange& exchange, int number) {
        int seen = most;
        const int now = ++current;
        while (now > seen && !most.compare_exchange_weak(seen, now)) { }
        if (number <= atOnce)
            holdUntil(exchange, [&] { return most == atOnce; });
        --current;
        return false;
    });
    QVERIFY(run());
    QCOMPARE(most.load(), atOnce);
    QCOMPARE(m_result.m_nFetched, 20);
    QCOMPARE(m_world.targets().size(), 20);
    QCOMPARE(Files::read(m_world.preview("Themes", "t7.gif")), "content of " + picture(7, "gif"));
}

/// With a single slot left, what nobody looks at is fetched in the order of the list.
void tst_CheckWorker_ThumbAndGif_sideBySide::orderOfTheList()
{
    hostSettings().transfersSideBySide = 2;
    writeThemes(3);
    m_world.route(picture(1), [this](HttpExchange& exchange) {
        holdUntil(exchange, [this] { return m_world.targets().size() == 6; });
        exchange.answer(HttpAnswer(200).body("slow"));
    });
    QVERIFY(run());
    const QByteArrayList others = {picture(1, "gif"), picture(2), picture(2, "gif"), picture(3),
                                   picture(3, "gif")};
    QByteArrayList targets = m_world.targets();
    QVERIFY(targets.removeOne(picture(1)));
    QCOMPARE(targets, others);
}

void tst_CheckWorker_ThumbAndGif_sideBySide::visibleItemsComeFirst()
{
    writeThemes(40);
    m_shown = QStringList{Files::guid(31), Files::guid(32), Files::guid(33)};
    m_world.setFault([this](HttpExchange& exchange, int) {
        holdUntil(exchange, [this] { return m_world.targets().size() >= atOnce; });
        return false;
    });
    QVERIFY(run());
    QByteArrayList first = m_world.targets().mid(0, atOnce);
    std::sort(first.begin(), first.end());
    const QByteArrayList expected = {picture(31, "gif"), picture(31),        picture(32, "gif"),
                                     picture(32),        picture(33, "gif"), picture(33)};
    QCOMPARE(first, expected);
    QCOMPARE(m_result.m_nFetched, 80);
}

void tst_CheckWorker_ThumbAndGif_sideBySide::wishesDuringTheRunCount()
{
    writeThemes(40);
    std::atomic<bool> isWished{false};
    m_world.setFault([&](HttpExchange& exchange, int number) {
        if (number == atOnce) {
            PreviewExchange::instance()->setShown(this, {Files::guid(40)});
            isWished = true;
        }
        holdUntil(exchange, [&] { return isWished.load(); });
        return false;
    });
    QVERIFY(run());
    const QByteArrayList targets = m_world.targets();
    // Each of the six transfers may have begun another one before the wish was read.
    QVERIFY(targets.indexOf(picture(40)) < 3 * atOnce);
    QVERIFY(targets.indexOf(picture(40)) < targets.indexOf(picture(20)));
}

void tst_CheckWorker_ThumbAndGif_sideBySide::sharedPictureIsFetchedOnce_data()
{
    QTest::addColumn<int>("transfers");
    QTest::newRow("side by side") << atOnce;
    QTest::newRow("in order") << 1;
}

void tst_CheckWorker_ThumbAndGif_sideBySide::sharedPictureIsFetchedOnce()
{
    QFETCH(int, transfers);
    hostSettings().transfersSideBySide = transfers;
    const QString folder = QStringLiteral("Filter");
    QVector<CatalogueFiles::CfgItem> items;
    QVector<CatalogueFiles::DisplayItem> shown;
    for (int number = 1; number <= 5; ++number) {
        items.append({Files::guid(number), {}, {}});
        shown.append({Files::guid(number), QStringLiteral("Filter"), QStringLiteral("same.jpg")});
    }
    Files::write(m_world.downloadedFile("resource_config.xml"),
                 Files::document(Files::cfgGroup(folder, items)));
    Files::write(m_world.downloadedFile("resource_display.xml"),
                 Files::document(Files::displayCategory(folder, shown)));
    m_world.route("/display/VideoFilters/same.jpg", [](HttpExchange& exchange) {
        exchange.pause(std::chrono::milliseconds(200)); // so that the others have to wait
        exchange.answer(HttpAnswer(200).body("the same"));
    });
    const QSignalSpy arrivals(PreviewExchange::instance(), &PreviewExchange::pictureArrived);
    QVERIFY(run());
    QCOMPARE(m_world.targets(), QByteArrayList{"/display/VideoFilters/same.jpg"});
    QCOMPARE(m_result.m_nFetched, 1);
    QCOMPARE(m_result.m_nPresent, 4);
    // Each item is told once, although some looked at the file while it was being written.
    QStringList guids;
    for (const QList<QVariant>& arrival : arrivals)
        guids.append(arrival.constFirst().toString());
    guids.sort();
    QCOMPARE(guids,
             (QStringList{Files::guid(1), Files::guid(2), Files::guid(3), Files::guid(4),
                          Files::guid(5)}));
}

void tst_CheckWorker_ThumbAndGif_sideBySide::sharedPictureThatFailsIsTriedAgain()
{
    const QString folder = QStringLiteral("Filter");
    Files::write(m_world.downloadedFile("resource_config.xml"),
                 Files::document(Files::cfgGroup(
                     folder, {{Files::guid(1), {}, {}}, {Files::guid(2), {}, {}}})));
    Files::write(m_world.downloadedFile("resource_display.xml"),
                 Files::document(Files::displayCategory(
                     folder,
                     {{Files::guid(1), QStringLiteral("A"), QStringLiteral("same.jpg")},
                      {Files::guid(2), QStringLiteral("B"), QStringLiteral("same.jpg")}})));
    QVERIFY(run());
    QCOMPARE(m_world.targets().size(), 2);
    QCOMPARE(m_result.m_nFailed, 2);
}

void tst_CheckWorker_ThumbAndGif_sideBySide::presentPicturesAreNotFetched()
{
    writeThemes(2);
    Files::write(m_world.preview("Themes", "t1.jpg"), "here");
    QVERIFY(run());
    QVERIFY(!m_world.targets().contains(picture(1)));
    QCOMPARE(m_world.targets().size(), 3);
    QCOMPARE(Files::read(m_world.preview("Themes", "t1.jpg")), QByteArray("here"));
    QCOMPARE(m_result.m_nPresent, 1);
    QCOMPARE(m_result.m_nFetched, 3);
}

void tst_CheckWorker_ThumbAndGif_sideBySide::failuresAreCountedAndTheOthersArrive()
{
    writeThemes(8);
    for (const int number : {1, 4, 8}) {
        m_world.route(picture(number), [](HttpExchange& exchange) {
            exchange.answer(HttpAnswer(404).body("no such file"));
        });
    }
    QVERIFY(run());
    QCOMPARE(m_result.m_eEnd, ePreviewRun_Complete);
    QCOMPARE(m_result.m_nFailed, 3);
    QCOMPARE(m_result.m_nFetched, 13);
    QCOMPARE(m_result.m_vecFailures.size(), 3);
    QVERIFY(!QFile::exists(m_world.preview("Themes", "t4.jpg")));
    QVERIFY(QFile::exists(m_world.preview("Themes", "t5.jpg")));
}

void tst_CheckWorker_ThumbAndGif_sideBySide::progressCountsEveryFile()
{
    writeThemes(8);
    QVERIFY(run());
    qint64 bytes = 0;
    for (int number = 1; number <= 8; ++number)
        bytes += 2 * ("content of " + picture(number)).size();
    for (int i = 1; i < m_progress.size(); ++i) {
        QVERIFY(m_progress.at(i).m_nFilesDone >= m_progress.at(i - 1).m_nFilesDone);
        QVERIFY(m_progress.at(i).m_nBytes >= m_progress.at(i - 1).m_nBytes);
    }
    QCOMPARE(m_progress.constFirst().m_nFiles, 16);
    QCOMPARE(m_progress.constLast().m_nFilesDone, 16);
    QCOMPARE(m_progress.constLast().m_nBytes, bytes);
}

void tst_CheckWorker_ThumbAndGif_sideBySide::arrivalsAreTold()
{
    writeThemes(2);
    Files::write(m_world.preview("Themes", "t1.jpg"), "here");
    m_world.route(picture(2, "gif"), [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("no such file"));
    });
    const QSignalSpy arrivals(PreviewExchange::instance(), &PreviewExchange::pictureArrived);
    QVERIFY(run());
    QStringList guids;
    for (const QList<QVariant>& arrival : arrivals)
        guids.append(arrival.constFirst().toString());
    guids.sort();
    QCOMPARE(guids, (QStringList{Files::guid(1), Files::guid(2)}));
}

void tst_CheckWorker_ThumbAndGif_sideBySide::backgroundsAreFetchedIfShown_data()
{
    QTest::addColumn<bool>("isShown");
    QTest::addColumn<int>("transfers");
    for (const int transfers : {1, atOnce}) {
        QTest::addRow("shown, %d at a time", transfers) << true << transfers;
        QTest::addRow("not shown, %d at a time", transfers) << false << transfers;
    }
}

void tst_CheckWorker_ThumbAndGif_sideBySide::backgroundsAreFetchedIfShown()
{
    QFETCH(bool, isShown);
    QFETCH(int, transfers);
    hostSettings().showWithoutPreviews = isShown;
    hostSettings().transfersSideBySide = transfers;
    CheckWorld::setParam("hasSplit", "1");
    const QString kind = QStringLiteral("BgMaterial");
    Files::write(m_world.downloadedFile("resource_config.xml"),
                 Files::document(Files::cfgGroup(kind, {{Files::guid(1), {}, {}}})));
    Files::write(m_world.downloadedFile("resource_display.xml"),
                 Files::document(Files::displayCategory(
                     kind, {{Files::guid(1), QStringLiteral("Silk"), QStringLiteral("b1.jpg")}})));
    m_world.serve("/display/BgMaterial/b1.jpg", "silk");
    QVERIFY(run());
    QCOMPARE(m_world.targets().size(), isShown ? 1 : 0);
    QCOMPARE(m_result.m_nFetched, isShown ? 1 : 0);
    QCOMPARE(m_progress.constLast().m_nFilesDone, isShown ? 2 : 0);
}

MV_TEST_MAIN(tst_CheckWorker_ThumbAndGif_sideBySide)

} // namespace tst_CheckWorker_ThumbAndGif_sideBySide

#include "tst_CheckWorker_ThumbAndGif_sideBySide.moc"
