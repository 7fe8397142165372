// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <atomic>

namespace tst_MVThemeDownLoader_shared {

using namespace DownloadLines;

namespace {

constexpr int bodySize = 1000;
const QString sharedTarget = QStringLiteral("/config/VideoFilters/f.zip");
const QString sharedName = QStringLiteral("/VideoFilters/f.zip");

/// Holds the answer back until the trace has an entry that contains `part`.
FaultServer::Handler after(const DownloadTrace& trace, const QString& part,
                           const HttpAnswer& answer)
{
    return [&trace, part, answer](HttpExchange& exchange) {
        trace.waitForPart(part);
        exchange.answer(answer);
    };
}

} // namespace

/// Tests downloads that need the same file at the same time.
class tst_MVThemeDownLoader_shared : public QObject
{
    Q_OBJECT

private slots:
    void theSecondWaits();
    void theSecondMirrorsTheFirst();
    void nothingToMirrorYet();
    void theFirstFails();
    void dependencyOfTwoThemes();
    void twiceInOneList();
    void twiceInOneListAndMissing();
    void configOfOneTheme();
    void configIsGivenBackBeforeTheOtherFiles();
    void configFailsForTheFirst();
    void recordWithoutMutex();

private:
    /// Downloads the filter twice at once: `second` starts when `first` reaches the file.
    void runBoth(DownloadTrace& trace, MVThemeDownLoader& first, MVThemeDownLoader& second,
                 SCfg_Item& item);
};

void tst_MVThemeDownLoader_shared::runBoth(DownloadTrace& trace, MVThemeDownLoader& first,
                                           MVThemeDownLoader& second, SCfg_Item& item)
{
    first.download(&item);
    QVERIFY(trace.waitForPart(QStringLiteral("start download template, i = 0")));
    second.download(&item);
    QVERIFY(DownloadWorld::ends(first));
    QVERIFY(DownloadWorld::ends(second));
}

void tst_MVThemeDownLoader_shared::theSecondWaits()
{
    MV_SKIP_SIDE_BY_SIDE("the lines about waiting are written when it ends",
                         "tst_MVThemeDownLoader_sideBySideShared");
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1, {sharedName});
    const QString file = world.folder(eCfgItem_Filter) + QStringLiteral("/f.zip");
    DownloadTrace trace;
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    trace.watch(second);
    world.route(sharedTarget, after(trace, waiting(0, file), HttpAnswer(200).body("content")));

    runBoth(trace, first, second, filter);

    QCOMPARE(world.requests(sharedTarget), 1);
    QVERIFY(trace.count(waiting(0, file)) >= 1);
    QCOMPARE(trace.count(waited(0, file)), 1);
    QCOMPARE(trace.count(taken(0, file)), 1);
    QCOMPARE(trace.count(released(0, file)), 1);
    const QStringList entries = trace.entries();
    QVERIFY(entries.indexOf(waited(0, file)) > entries.lastIndexOf(waiting(0, file)));
    QVERIFY(entries.indexOf(waited(0, file))
            > entries.indexOf(fileOk(0, world.server().url(sharedTarget), file)));
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
}

void tst_MVThemeDownLoader_shared::theSecondMirrorsTheFirst()
{
    MV_SKIP_SIDE_BY_SIDE("the lines about waiting are written when it ends",
                         "tst_MVThemeDownLoader_sideBySideShared");
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1,
                                           {sharedName, QStringLiteral("/VideoFilters/g.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/g.zip"), "g");
    const QString file = world.folder(eCfgItem_Filter) + QStringLiteral("/f.zip");
    DownloadTrace trace;
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    trace.watch(second);
    const QString line = mirrored(0, file, 123, 1000, QStringLiteral("15.535"));
    world.route(sharedTarget, [&](HttpExchange& exchange) {
        exchange.send(HttpAnswer(200)
                          .field("Content-Length", QByteArray::number(bodySize))
                          .bareBody(QByteArray(123, 'x'))
                          .bytes());
        trace.waitFor(line);
        exchange.send(QByteArray(bodySize - 123, 'x'));
    });

    runBoth(trace, first, second, filter);

    const QStringList entries = trace.entries();
    const int at = entries.indexOf(line);
    QVERIFY(at > 0);
    QVERIFY(entries.mid(0, at).contains(waiting(0, file)));
    QVERIFY(entries.mid(at).contains(QStringLiteral("progress 15.535")));
    QVERIFY(!entries.mid(0, at).contains(QStringLiteral("progress 15.535")));
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(world.requests(sharedTarget), 1);
}

void tst_MVThemeDownLoader_shared::nothingToMirrorYet()
{
    MV_SKIP_SIDE_BY_SIDE("the lines about waiting are written when it ends",
                         "tst_MVThemeDownLoader_sideBySideShared");
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1, {sharedName});
    const QString file = world.folder(eCfgItem_Filter) + QStringLiteral("/f.zip");
    filter.m_vecResource.first().m_nReceived = 5; // without a total
    filter.m_vecResource.first().m_bDownloaded = true;
    DownloadTrace trace;
    MVThemeDownLoader second(nullptr);
    trace.watch(second);
    trace.onLine(waiting(0, file), [&filter] {
        SFileInfo& info = filter.m_vecResource.first();
        info.m_nReceived = 0; // and the other way round
        info.m_nTotal = 5;
        info.m_bDownloaded = false;
    });

    QVERIFY(DownloadWorld::run(second, filter));

    QStringList expected = simulatedPhase();
    expected << waiting(0, file) << waited(0, file) << QStringLiteral("finish 5") << end();
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(world.server().connectionCount(), 0);
}

/// A waiting download does not ask how the other one ended.
void tst_MVThemeDownLoader_shared::theFirstFails()
{
    MV_SKIP_SIDE_BY_SIDE("the lines about waiting are written when it ends",
                         "tst_MVThemeDownLoader_sideBySideShared");
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1, {sharedName});
    const QString file = world.folder(eCfgItem_Filter) + QStringLiteral("/f.zip");
    DownloadTrace trace;
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    QVector<int> results(2);
    const auto note = [&results](int which) {
        return [&results, which](EMVThemeDownLoadError result) { results[which] = result; };
    };
    connect(&first, &MVThemeDownLoader::sigDownloadFinish, this, note(0));
    connect(&second, &MVThemeDownLoader::sigDownloadFinish, this, note(1));
    world.route(sharedTarget, after(trace, waiting(0, file), HttpAnswer(404).body("gone")));

    runBoth(trace, first, second, filter);

    QTRY_COMPARE(results, (QVector<int>{eDownLoadError_Element, eDownLoadError_None}));
    QCOMPARE(world.requests(sharedTarget), 1);
    QCOMPARE(trace.count(waited(0, file)), 1);
}

void tst_MVThemeDownLoader_shared::dependencyOfTwoThemes()
{
    MV_SKIP_SIDE_BY_SIDE("the lines about waiting are written when it ends",
                         "tst_MVThemeDownLoader_sideBySideShared");
    DownloadWorld world;
    QVERIFY(world.catalogueFilter(7, {sharedName}));
    SCfg_Item one = DownloadWorld::item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/one.zip")});
    SCfg_Item two = DownloadWorld::item(eCfgItem_Theme, 2);
    one.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/one.xml");
    two.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/two.xml");
    world.serve(QStringLiteral("/config/Themes/one.xml"), DownloadWorld::themeConfig({7}));
    world.serve(QStringLiteral("/config/Themes/two.xml"), DownloadWorld::themeConfig({7}));
    world.serve(QStringLiteral("/config/Themes/one.zip"), "one");
    const QString file = world.folder(eCfgItem_Filter) + QStringLiteral("/f.zip");
    DownloadTrace trace;
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    trace.watch(first);
    trace.watch(second);
    // The file is second in one list and first in the other.
    world.route(sharedTarget, after(trace, waiting(0, file), HttpAnswer(200).body("filter")));

    first.download(&one);
    QVERIFY(trace.waitForPart(QStringLiteral("start download template, i = 1")));
    second.download(&two);
    QVERIFY(DownloadWorld::ends(first));
    QVERIFY(DownloadWorld::ends(second));

    QCOMPARE(world.requests(sharedTarget), 1);
    QCOMPARE(trace.results(), (QVector<int>{eDownLoadError_None, eDownLoadError_None}));
    QCOMPARE(CatalogueFiles::read(file), QByteArray("filter"));
}

void tst_MVThemeDownLoader_shared::twiceInOneList()
{
    DownloadWorld world;
    QVERIFY(world.catalogueFilter(7, {sharedName}));
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    world.serve(QStringLiteral("/config/Themes/t.xml"), DownloadWorld::themeConfig({7, 7}));
    world.serve(sharedTarget, "filter");
    const QString url = world.server().url(sharedTarget);
    const QString file = world.folder(eCfgItem_Filter) + QStringLiteral("/f.zip");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    const QStringList expected = {taken(0, file),
                                  fileStart(0, url, file),
                                  QStringLiteral("progress 55"),
                                  fileOk(0, url, file),
                                  released(0, file),
                                  taken(1, file),
                                  fileStart(1, url, file),
                                  QStringLiteral("progress 100"),
                                  fileOk(1, url, file),
                                  released(1, file),
                                  QStringLiteral("finish 5"),
                                  end()};
    QCOMPARE(comparable(trace.entries().mid(trace.entries().indexOf(taken(0, file)))),
             comparable(expected));
    QCOMPARE(world.requests(sharedTarget), 1);
}

void tst_MVThemeDownLoader_shared::twiceInOneListAndMissing()
{
    DownloadWorld world;
    QVERIFY(world.catalogueFilter(7, {sharedName}));
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    world.serve(QStringLiteral("/config/Themes/t.xml"), DownloadWorld::themeConfig({7, 7}));
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(world.requests(sharedTarget), 2);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
}

void tst_MVThemeDownLoader_shared::configOfOneTheme()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    const QString target = QStringLiteral("/config/Themes/t.xml");
    DownloadTrace trace;
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    trace.watch(first);
    std::atomic<bool> secondIsThere{false};
    world.route(target, [&](HttpExchange& exchange) {
        while (!secondIsThere)
            exchange.pause(std::chrono::milliseconds(1));
        exchange.answer(HttpAnswer(200).body(DownloadWorld::themeConfig({})));
    });
    connect(
        &second, &MVThemeDownLoader::progress, &second, [&] { secondIsThere = true; },
        Qt::DirectConnection);

    first.download(&theme);
    QVERIFY(trace.waitForPart(QStringLiteral("start download template(theme cfg xml)")));
    second.download(&theme);
    QVERIFY(DownloadWorld::ends(first));
    QVERIFY(DownloadWorld::ends(second));

    QCOMPARE(world.requests(target), 1);
    QCOMPARE(trace.countContaining(QStringLiteral("download template is ok!(theme cfg xml)")), 2);
    QVERIFY(theme.m_pThemes_a);
    QCOMPARE(trace.count(end()), 2);
}

/// The second download, which waits for the config, then gets as far as the first one.
void tst_MVThemeDownLoader_shared::configIsGivenBackBeforeTheOtherFiles()
{
    MV_SKIP_SIDE_BY_SIDE("the lines about waiting are written when it ends",
                         "tst_MVThemeDownLoader_sideBySideShared");
    DownloadWorld world;
    SCfg_Item theme = world.themeWithConfig();
    const QString file = world.folder(eCfgItem_Theme) + QStringLiteral("/r.zip");
    const DownloadTrace trace;
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    std::atomic<bool> secondIsThere{false};
    connect(
        &second, &MVThemeDownLoader::progress, &second, [&] { secondIsThere = true; },
        Qt::DirectConnection);
    world.route(QStringLiteral("/config/Themes/t.xml"), [&](HttpExchange& exchange) {
        while (!secondIsThere)
            exchange.pause(std::chrono::milliseconds(1));
        exchange.answer(HttpAnswer(200).body(DownloadWorld::themeConfig({})));
    });
    world.route(QStringLiteral("/config/Themes/r.zip"),
                after(trace, waiting(0, file), HttpAnswer(200).body("content")));
    first.download(&theme);
    QVERIFY(trace.waitForPart(QStringLiteral("start download template(theme cfg xml)")));
    second.download(&theme);
    QVERIFY(DownloadWorld::ends(first));
    QVERIFY(DownloadWorld::ends(second));
    QVERIFY(trace.contains(waiting(0, file)));
}

/// A config is required: a download that has waited for it in vain tries again itself.
void tst_MVThemeDownLoader_shared::configFailsForTheFirst()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    const QString target = QStringLiteral("/config/Themes/t.xml");
    DownloadTrace trace;
    MVThemeDownLoader first(nullptr);
    MVThemeDownLoader second(nullptr);
    trace.watch(first);
    std::atomic<bool> secondIsThere{false};
    std::atomic<int> calls{0};
    world.route(target, [&](HttpExchange& exchange) {
        while (!secondIsThere)
            exchange.pause(std::chrono::milliseconds(1));
        if (++calls == 1)
            exchange.answer(HttpAnswer(500).body("no"));
        else
            exchange.answer(HttpAnswer(200).body(DownloadWorld::themeConfig({})));
    });
    connect(
        &second, &MVThemeDownLoader::progress, &second, [&] { secondIsThere = true; },
        Qt::DirectConnection);

    first.download(&theme);
    QVERIFY(trace.waitForPart(QStringLiteral("start download template(theme cfg xml)")));
    second.download(&theme);
    QVERIFY(DownloadWorld::ends(first));
    QVERIFY(DownloadWorld::ends(second));

    QCOMPARE(calls.load(), 2);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Unknown});
    QCOMPARE(trace.count(end()), 1);
    QVERIFY(theme.m_pThemes_a);
}

void tst_MVThemeDownLoader_shared::recordWithoutMutex()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/r.zip")});
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    theme.m_info_Thumb.m_qsUrl = QStringLiteral("t.png");
    for (SFileInfo* info : {&theme.m_info_CfgXML, &theme.m_info_Thumb, &theme.m_info_Gif,
                            &theme.m_vecResource.first()})
        info->m_pMutex.reset();
    world.serve(QStringLiteral("/config/Themes/t.xml"), DownloadWorld::themeConfig({}));
    world.serve(QStringLiteral("/config/Themes/r.zip"), "r");
    world.serve(QStringLiteral("/display/Themes/t.png"), "t");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(world.server().requestCount(), 3);
    QVERIFY(theme.m_pThemes_a);
    QVERIFY(!theme.m_vecResource.first().m_bDownloaded);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_shared)

} // namespace tst_MVThemeDownLoader_shared

#include "tst_MVThemeDownLoader_shared.moc"
