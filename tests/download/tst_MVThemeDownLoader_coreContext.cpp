// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "host/CoreContext.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QUrl>

#include <memory>
#include <mutex>

namespace {

/// Records its calls as "OPERATION NAME".
class RecordingContext : public CoreContext
{
public:
    void addVideoFilter(const std::wstring& name) override { add("filter ", name); }
    void addTransition(const std::wstring& name) override { add("transition ", name); }
    void addMotion(const std::wstring& name) override { add("motion ", name); }

    QStringList calls() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_calls;
    }

private:
    void add(const char* operation, const std::wstring& name)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.append(QString::fromLatin1(operation) + QString::fromStdWString(name));
    }

    mutable std::mutex m_mutex; // guards m_calls
    QStringList m_calls;
};

} // namespace

/// Tests which downloaded files the host's editing core is told about, and as what.
class tst_MVThemeDownLoader_coreContext : public QObject
{
    Q_OBJECT

private slots:
    void definitionsArePassedOn_data();
    void definitionsArePassedOn();
    void kindFolderDecides_data();
    void kindFolderDecides();
    void themeConfigIsNot();
    void failedFileIsNot();
    void presentFileIsNot();
    void nobodyToTell();
    void contextIsReplaced();
};

void tst_MVThemeDownLoader_coreContext::definitionsArePassedOn_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("call"); // empty: none

    const auto row = [](const char* tag, const char* name, const char* call) {
        QTest::newRow(tag) << QString::fromUtf8(name) << QString::fromUtf8(call);
    };
    row("filter", "/VideoFilters/f.xml", "filter f");
    row("transition", "/Transitions/t.xml", "transition t");
    row("motion", "/Motions/m.xml", "motion m");
    row("another folder", "/Themes/x.xml", "");
    row("material", "/BgMaterial/x.xml", "");
    row("upper-case suffix", "/Motions/m.XML", "motion m");
    row("mixed-case suffix", "/Motions/m.xMl", "motion m");
    row("image", "/VideoFilters/f.png", "");
    row("archive of a definition", "/VideoFilters/f.xml.zip", "");
    row("no suffix", "/VideoFilters/xml", "");
    row("complete base name", "/Transitions/a.b.c.xml", "transition a.b.c");
    row("GUID", "/Motions/{ABCDEF01-2345-4789-ABCD-000000000001}.xml",
        "motion {ABCDEF01-2345-4789-ABCD-000000000001}");
    row("name beyond ASCII", "/Motions/\xC3\xA9t\xC3\xA9.xml", "motion \xC3\xA9t\xC3\xA9");
    row("filters before transitions", "/Transitions/VideoFilters/x.xml", "filter x");
    row("filters before motions", "/Motions/VideoFilters/x.xml", "filter x");
    row("transitions before motions", "/Motions/Transitions/x.xml", "transition x");
    row("all three", "/Motions/Transitions/VideoFilters/x.xml", "filter x");
    row("part of a folder's name", "/MyMotions2/x.xml", "motion x");
    row("in the file's name", "/Themes/Transitions.xml", "transition Transitions");
    row("other case", "/videofilters/transitions/MOTIONS/x.xml", "");
}

void tst_MVThemeDownLoader_coreContext::definitionsArePassedOn()
{
    QFETCH(QString, name);
    QFETCH(QString, call);
    DownloadWorld world;
    const auto context = std::make_shared<RecordingContext>();
    MVThemeDownLoader::setCoreContextPtr(context);
    // A theme's own folder does not affect the path: the names are absolute.
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1, {name});
    world.serve(QString::fromLatin1(QUrl::toPercentEncoding(QStringLiteral("/config") + name, "/")),
                "content");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(context->calls().join(QLatin1Char('|')), call);
}

void tst_MVThemeDownLoader_coreContext::kindFolderDecides_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("call");

    QTest::newRow("filter") << int(eCfgItem_Filter) << QStringLiteral("filter d");
    QTest::newRow("transition") << int(eCfgItem_Transition) << QStringLiteral("transition d");
    QTest::newRow("motion") << int(eCfgItem_Motion) << QStringLiteral("motion d");
    QTest::newRow("theme") << int(eCfgItem_Theme) << QString();
}

/// A relative name resolves to the folder of its item's kind.
void tst_MVThemeDownLoader_coreContext::kindFolderDecides()
{
    QFETCH(int, kind);
    QFETCH(QString, call);
    DownloadWorld world;
    const auto context = std::make_shared<RecordingContext>();
    MVThemeDownLoader::setCoreContextPtr(context);
    SCfg_Item item =
        DownloadWorld::item(static_cast<ECfgItemType>(kind), 1, {QStringLiteral("d.xml")});
    world.serve(QStringLiteral("/configd.xml"), "content");
    MVThemeDownLoader downloader(nullptr);

    QVERIFY(DownloadWorld::run(downloader, item));

    QCOMPARE(context->calls().join(QLatin1Char('|')), call);
}

void tst_MVThemeDownLoader_coreContext::themeConfigIsNot()
{
    DownloadWorld world;
    const auto context = std::make_shared<RecordingContext>();
    MVThemeDownLoader::setCoreContextPtr(context);
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Motions/t.xml");
    world.serve(QStringLiteral("/config/Motions/t.xml"), DownloadWorld::themeConfig({}));
    MVThemeDownLoader downloader(nullptr);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QVERIFY(theme.m_pThemes_a);
    QCOMPARE(context->calls(), QStringList());
}

void tst_MVThemeDownLoader_coreContext::failedFileIsNot()
{
    DownloadWorld world;
    const auto context = std::make_shared<RecordingContext>();
    MVThemeDownLoader::setCoreContextPtr(context);
    SCfg_Item motion = DownloadWorld::item(eCfgItem_Motion, 1, {QStringLiteral("/Motions/m.xml")});
    MVThemeDownLoader downloader(nullptr);

    QVERIFY(DownloadWorld::run(downloader, motion));

    QCOMPARE(world.requests(QStringLiteral("/config/Motions/m.xml")), 1);
    QCOMPARE(context->calls(), QStringList());
}

/// The download that fetched the file has already passed it on.
void tst_MVThemeDownLoader_coreContext::presentFileIsNot()
{
    DownloadWorld world;
    const auto context = std::make_shared<RecordingContext>();
    MVThemeDownLoader::setCoreContextPtr(context);
    const QString name = QStringLiteral("/Motions/m.xml");
    SCfg_Item motion = DownloadWorld::item(eCfgItem_Motion, 1, {name, name});
    world.serve(QStringLiteral("/config/Motions/m.xml"), "content");
    MVThemeDownLoader downloader(nullptr);

    QVERIFY(DownloadWorld::run(downloader, motion));

    QCOMPARE(context->calls(), QStringList{QStringLiteral("motion m")});
}

void tst_MVThemeDownLoader_coreContext::nobodyToTell()
{
    DownloadWorld world;
    MVThemeDownLoader::setCoreContextPtr(nullptr);
    SCfg_Item motion = DownloadWorld::item(eCfgItem_Motion, 1, {QStringLiteral("/Motions/m.xml")});
    world.serve(QStringLiteral("/config/Motions/m.xml"), "content");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, motion));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
}

void tst_MVThemeDownLoader_coreContext::contextIsReplaced()
{
    DownloadWorld world;
    auto old = std::make_shared<RecordingContext>();
    const std::weak_ptr<RecordingContext> oldLife = old;
    const auto fresh = std::make_shared<RecordingContext>();
    MVThemeDownLoader::setCoreContextPtr(old);
    old.reset();
    QVERIFY(!oldLife.expired());
    MVThemeDownLoader::setCoreContextPtr(fresh);
    QVERIFY(oldLife.expired());
    SCfg_Item motion = DownloadWorld::item(eCfgItem_Motion, 1, {QStringLiteral("/Motions/m.xml")});
    world.serve(QStringLiteral("/config/Motions/m.xml"), "content");
    MVThemeDownLoader downloader(nullptr);

    QVERIFY(DownloadWorld::run(downloader, motion));

    QCOMPARE(fresh->calls(), QStringList{QStringLiteral("motion m")});
    MVThemeDownLoader::setCoreContextPtr(nullptr);
    QCOMPARE(fresh.use_count(), 1L);
}

MV_TEST_MAIN(tst_MVThemeDownLoader_coreContext)

#include "tst_MVThemeDownLoader_coreContext.moc"
