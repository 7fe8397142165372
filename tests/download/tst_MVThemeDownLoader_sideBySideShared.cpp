// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "download/SideBySideWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

namespace tst_MVThemeDownLoader_sideBySideShared {

using namespace DownloadLines;

namespace {

constexpr int atOnce = SideBySideWorld::atOnce;

/// Sends half of a file, and the rest when a waiting download has shown the first half in its own
/// progress, or breaks then.
FaultServer::Handler halfUntil(const std::function<bool()>& isMirrored, bool breaks = false)
{
    return [isMirrored, breaks](HttpExchange& exchange) {
        const QByteArray content = SideBySideWorld::content(0);
        exchange.answer(HttpAnswer(200)
                            .field("Content-Length", QByteArray::number(content.size()))
                            .bareBody(content.left(500)));
        SideBySideWorld::hold(exchange, isMirrored);
        if (breaks)
            exchange.close();
        else
            exchange.send(content.mid(500));
    };
}

/// Returns the code with which a download ends; -1 before.
int resultOf(const DownloadTrace& trace)
{
    return trace.results().isEmpty() ? -1 : trace.results().constFirst();
}

} // namespace

/// Tests downloads side by side that need files which another download is fetching.
class tst_MVThemeDownLoader_sideBySideShared : public QObject
{
    Q_OBJECT

private slots:
    void theSecondWaits_data();
    void theSecondWaits();
    void dependencyOfTwoThemes();
    void otherFilesArriveMeanwhile();
    void severalFilesOfOthers();
    void waitingNeedsNoRoom();
};

void tst_MVThemeDownLoader_sideBySideShared::theSecondWaits_data()
{
    QTest::addColumn<bool>("breaks");
    QTest::newRow("and the first succeeds") << false;
    QTest::newRow("and the first fails") << true;
}

/// The waiting download does not ask how the other one ended.
void tst_MVThemeDownLoader_sideBySideShared::theSecondWaits()
{
    QFETCH(bool, breaks);
    SideBySideWorld world;
    SCfg_Item filter = SideBySideWorld::filter(1);
    DownloadTrace trace; // of the second; lines of both
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    trace.watch(second);
    world.route(SideBySideWorld::target(0),
                halfUntil([&] { return trace.contains(QStringLiteral("progress 55")); }, breaks));

    first.download(&filter);
    QTRY_COMPARE(world.server().requestCount(), 1);
    second.download(&filter);
    QVERIFY(DownloadWorld::ends(first));
    QVERIFY(DownloadWorld::ends(second));

    QCOMPARE(world.server().requestCount(), 1);
    QCOMPARE(first.outcome().m_eError, breaks ? eDownLoadError_Element : eDownLoadError_None);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QVERIFY(trace.progress().contains(55.0));
    QCOMPARE(trace.progress().constLast(), 100.0);
    const QString file = world.file(0);
    const int count = trace.count(waiting(0, file));
    QVERIFY(count >= 1);
    QCOMPARE(trace.count(waited(0, file)), 1);
    QCOMPARE(trace.entries().indexOf(waited(0, file)),
             trace.entries().indexOf(waiting(0, file)) + count);
    QCOMPARE(trace.count(taken(0, file)), 1);
    QCOMPARE(trace.count(released(0, file)), 1);
    QCOMPARE(CatalogueFiles::read(file), breaks ? QByteArray() : SideBySideWorld::content(0));
    QVERIFY(!SideBySideWorld::isTaken(filter.m_vecResource.first()));
}

/// The file is second in one list and first in the other.
void tst_MVThemeDownLoader_sideBySideShared::dependencyOfTwoThemes()
{
    SideBySideWorld world;
    QVERIFY(world.catalogueFilter(7, {SideBySideWorld::name(0)}));
    SCfg_Item one = DownloadWorld::item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/one.zip")});
    SCfg_Item two = DownloadWorld::item(eCfgItem_Theme, 2);
    one.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/one.xml");
    two.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/two.xml");
    world.serve(QStringLiteral("/config/Themes/one.xml"), DownloadWorld::themeConfig({7}));
    world.serve(QStringLiteral("/config/Themes/two.xml"), DownloadWorld::themeConfig({7}));
    world.serve(QStringLiteral("/config/Themes/one.zip"), "one");
    DownloadTrace trace;
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    trace.watch(second);
    world.route(SideBySideWorld::target(0),
                halfUntil([&] { return trace.contains(QStringLiteral("progress 55")); }));

    first.download(&one);
    QTRY_COMPARE(world.requests(SideBySideWorld::target(0)), 1);
    second.download(&two);
    QVERIFY(DownloadWorld::ends(first));
    QVERIFY(DownloadWorld::ends(second));

    QCOMPARE(world.requests(SideBySideWorld::target(0)), 1);
    QCOMPARE(first.outcome().m_eEnd, eItemDownload_Complete);
    QCOMPARE(second.outcome().m_eEnd, eItemDownload_Complete);
    QCOMPARE(CatalogueFiles::read(world.file(0)), SideBySideWorld::content(0));
}

void tst_MVThemeDownLoader_sideBySideShared::otherFilesArriveMeanwhile()
{
    constexpr int count = 10;
    SideBySideWorld world;
    world.serveAll(count);
    SCfg_Item filter = SideBySideWorld::filter(count);
    SFileInfo& held = filter.m_vecResource[3];
    SideBySideWorld::setTaken(held, true); // another download has it
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    downloader.download(&filter);
    QVERIFY(trace.waitFor(QStringLiteral("progress 91"))); // nine of ten files
    QCOMPARE(resultOf(trace), -1);
    QCOMPARE(trace.count(waiting(3, world.file(3))), 0); // not before the file has ended
    SideBySideWorld::setTaken(held, false);
    QVERIFY(DownloadWorld::ends(downloader));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(trace.count(waited(3, world.file(3))), 1);
    QCOMPARE(world.requests(SideBySideWorld::target(3)), 0);
    QCOMPARE(world.server().requestCount(), count - 1);
    QCOMPARE(trace.progress().constLast(), 100.0);
    // Its lines are the last ones of a file.
    const QStringList entries = trace.entries();
    const int at = entries.indexOf(waited(3, world.file(3)));
    QCOMPARE(entries.mid(at + 1),
             QStringList({QStringLiteral("progress 100"), QStringLiteral("finish 5"), end()}));
}

void tst_MVThemeDownLoader_sideBySideShared::severalFilesOfOthers()
{
    constexpr int count = 8;
    SideBySideWorld world;
    world.serveAll(count);
    SCfg_Item filter = SideBySideWorld::filter(count);
    for (const int number : {0, 2, 7})
        SideBySideWorld::setTaken(filter.m_vecResource[number], true);
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    downloader.download(&filter);
    for (const int number : {7, 0, 2}) {
        QTRY_COMPARE(world.server().requestCount(), count - 3);
        QCOMPARE(trace.count(waited(number, world.file(number))), 0);
        SideBySideWorld::setTaken(filter.m_vecResource[number], false);
        QVERIFY(trace.waitFor(waited(number, world.file(number))));
    }
    QVERIFY(DownloadWorld::ends(downloader));
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(trace.progress().constLast(), 100.0);
}

/// Six transfers run although another download has the first six files.
void tst_MVThemeDownLoader_sideBySideShared::waitingNeedsNoRoom()
{
    constexpr int count = 2 * atOnce;
    SideBySideWorld world;
    world.serveWhen(count, [&](int) { return world.server().requestCount() >= atOnce; });
    SCfg_Item filter = SideBySideWorld::filter(count);
    for (int number = 0; number < atOnce; ++number)
        SideBySideWorld::setTaken(filter.m_vecResource[number], true);
    MVThemeDownLoader downloader(nullptr);
    downloader.download(&filter);
    for (int number = atOnce; number < count; ++number)
        QTRY_VERIFY(QFile::exists(world.file(number)));
    for (int number = 0; number < atOnce; ++number)
        SideBySideWorld::setTaken(filter.m_vecResource[number], false);
    QVERIFY(DownloadWorld::ends(downloader));
    QCOMPARE(downloader.outcome().m_eEnd, eItemDownload_Complete);
    QCOMPARE(world.server().requestCount(), atOnce);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_sideBySideShared)

} // namespace tst_MVThemeDownLoader_sideBySideShared

#include "tst_MVThemeDownLoader_sideBySideShared.moc"
