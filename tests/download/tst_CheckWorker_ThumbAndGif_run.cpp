// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "host/HostSettings.h"
#include "records/SCfg_Item.h"
#include "support/MetaTypes.h"
#include "support/TestMain.h"
#include "support/TransfersSideBySide.h"

#include <QFile>

using namespace CheckLines;

using Files = CatalogueFiles;

/// Tests the course of a preview run: what it reads, fetches, logs and reports.
class tst_CheckWorker_ThumbAndGif_run : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void itemsAreAMetaType();
    void themesThenFilters();
    void presentFilesAreNotFetched();
    void nextRunCountsAnew();
    void installedPreviewsArePresent();
    void kindsByProductParameter_data();
    void kindsByProductParameter();
    void backgroundMaterialsAreNeverFetched();
    void installedCatalogueWhenTheDownloadedIsUnusable_data();
    void installedCatalogueWhenTheDownloadedIsUnusable();
    void noConfigCatalogue();
    void noDisplayCatalogue();
    void namesAreEncoded();
    void emptyCatalogue();
    void oneConnectionServesAll();
    void catalogueOfTheHostIsNotTouched();

private:
    QString config(MVThemeMgr::ELoadDir d) const
    {
        return MVThemeMgr::init()->Path_resource_xml(d, MVThemeMgr::eDirTag_Config);
    }
    QString display(MVThemeMgr::ELoadDir d) const
    {
        return MVThemeMgr::init()->Path_resource_xml(d, MVThemeMgr::eDirTag_Display);
    }
    void servePreview(const char* kind, const char* name)
    {
        m_world.serve(CheckWorld::previewTarget(kind, name), QByteArray("content of ") + name);
    }
    bool run()
    {
        DownloadTrace trace;
        CheckWorker_ThumbAndGif worker;
        CheckWorld::watch(worker, trace);
        const bool ok = worker.onStartDownload_ThumbAndGif();
        m_entries = trace.entries();
        return ok;
    }

    QStringList start() const
    {
        return {previews(QStringLiteral("onStartDownload_ThumbAndGif start!"))};
    }
    static QString end() { return previews(QStringLiteral("onStartDownload_ThumbAndGif end!")); }

    mutable CheckWorld m_world;
    QStringList m_entries;
};

namespace {

constexpr auto download = MVThemeMgr::eLoadDir_Download;
constexpr auto local = MVThemeMgr::eLoadDir_Local;

} // namespace

void tst_CheckWorker_ThumbAndGif_run::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
}

void tst_CheckWorker_ThumbAndGif_run::itemsAreAMetaType()
{
    const CheckWorker_ThumbAndGif worker;
    QVERIFY(isMetaType("SCfg_Item"));
}

void tst_CheckWorker_ThumbAndGif_run::themesThenFilters()
{
    if (TransfersSideBySide::isOn())
        QSKIP("expects the files one after the other");
    m_world.writeCatalogue(download, {1, 2}, {3});
    for (const char* name : {"t1.jpg", "t1.gif", "t2.jpg", "t2.gif"})
        servePreview("Themes", name);
    servePreview("VideoFilters", "f3.jpg");
    QVERIFY(run());

    const auto ok = [&](const char* what, int i, const char* kind, const char* name) {
        return previewOk(what, i, m_world.previewUrl(kind, name), m_world.preview(kind, name));
    };
    const QString noGif = MVThemeMgr::init()->downLoadUrl_Thumb(MVThemeMgr::eDirTag_Display,
                                                                SFileInfo().m_eType, QString());
    QStringList expected = start();
    expected << checkXml(config(download), 1) << checkXml(display(download), 1)
             << ok("Thumb", 0, "Themes", "t1.jpg") << ok("Gif", 0, "Themes", "t1.gif")
             << ok("Thumb", 1, "Themes", "t2.jpg") << ok("Gif", 1, "Themes", "t2.gif")
             << ok("Thumb", 2, "VideoFilters", "f3.jpg")
             << previewPresent("Gif", 2, noGif, QString()) << end()
             << QStringLiteral("result 5 0 0 1 0") << QStringLiteral("end 1");
    QCOMPARE(m_entries, expected);
    QCOMPARE(m_world.targets(),
             (QByteArrayList{"/display/Themes/t1.jpg", "/display/Themes/t1.gif",
                             "/display/Themes/t2.jpg", "/display/Themes/t2.gif",
                             "/display/VideoFilters/f3.jpg"}));
    QCOMPARE(Files::read(m_world.preview("Themes", "t2.gif")), QByteArray("content of t2.gif"));
    QCOMPARE(Files::read(m_world.preview("VideoFilters", "f3.jpg")),
             QByteArray("content of f3.jpg"));
}

void tst_CheckWorker_ThumbAndGif_run::presentFilesAreNotFetched()
{
    m_world.writeCatalogue(download, {1}, {});
    Files::write(m_world.preview("Themes", "t1.jpg"), "here");
    Files::write(m_world.preview("Themes", "t1.gif"), "here");
    QVERIFY(run());
    QStringList expected = start();
    expected << checkXml(config(download), 1) << checkXml(display(download), 1)
             << previewPresent("Thumb", 0, m_world.previewUrl("Themes", "t1.jpg"),
                               m_world.preview("Themes", "t1.jpg"))
             << previewPresent("Gif", 0, m_world.previewUrl("Themes", "t1.gif"),
                               m_world.preview("Themes", "t1.gif"))
             << end() << QStringLiteral("result 0 2 0 1 0") << QStringLiteral("end 1");
    QCOMPARE(m_entries, expected);
    QCOMPARE(m_world.targets(), QByteArrayList());
}

void tst_CheckWorker_ThumbAndGif_run::nextRunCountsAnew()
{
    m_world.writeCatalogue(download, {1}, {});
    servePreview("Themes", "t1.jpg");
    servePreview("Themes", "t1.gif");
    DownloadTrace trace;
    CheckWorker_ThumbAndGif worker;
    CheckWorld::watch(worker, trace);
    QVERIFY(worker.onStartDownload_ThumbAndGif());
    QVERIFY(trace.contains(QStringLiteral("result 2 0 0 1 0")));
    QVERIFY(worker.onStartDownload_ThumbAndGif());
    QVERIFY(trace.contains(QStringLiteral("result 0 2 0 1 0")));
}

void tst_CheckWorker_ThumbAndGif_run::installedPreviewsArePresent()
{
    m_world.writeCatalogue(download, {1}, {});
    const QString folder = m_world.installed() + QStringLiteral("/Resource/display/Themes/");
    Files::write(folder + QStringLiteral("t1.jpg"), "here");
    servePreview("Themes", "t1.gif");
    QVERIFY(run());
    QVERIFY(m_entries.contains(previewPresent("Thumb", 0, m_world.previewUrl("Themes", "t1.jpg"),
                                              folder + QStringLiteral("t1.jpg"))));
    QVERIFY(m_entries.contains(QStringLiteral("result 1 1 0 1 0")));
    QCOMPARE(m_world.targets(), (QByteArrayList{"/display/Themes/t1.gif"}));
}

void tst_CheckWorker_ThumbAndGif_run::kindsByProductParameter_data()
{
    QTest::addColumn<QString>("hasMV"); // null: not set
    QTest::addColumn<bool>("themes");
    QTest::newRow("not set") << QString() << false;
    QTest::newRow("empty") << QString(QLatin1String("")) << false;
    QTest::newRow("0") << QStringLiteral("0") << false;
    QTest::newRow("1") << QStringLiteral("1") << true;
    QTest::newRow("-1") << QStringLiteral("-1") << true;
    QTest::newRow("20") << QStringLiteral("20") << true;
    QTest::newRow("yes") << QStringLiteral("yes") << false;
    QTest::newRow("0x1") << QStringLiteral("0x1") << false;
}

void tst_CheckWorker_ThumbAndGif_run::kindsByProductParameter()
{
    QFETCH(QString, hasMV);
    QFETCH(bool, themes);
    hostSettings().productParams.remove(QStringLiteral("hasMV"));
    if (!hasMV.isNull())
        hostSettings().productParams.insert(QStringLiteral("hasMV"), hasMV);
    m_world.writeCatalogue(download, {1}, {3});
    QVERIFY(run());
    QByteArrayList expected;
    if (themes)
        expected << "/display/Themes/t1.jpg"
                 << "/display/Themes/t1.gif";
    expected << "/display/VideoFilters/f3.jpg";
    QCOMPARE(m_world.comparableTargets(), CheckWorld::comparable(expected));
}

void tst_CheckWorker_ThumbAndGif_run::backgroundMaterialsAreNeverFetched()
{
    CheckWorld::setParam("hasSplit", "1");
    const QString group = QStringLiteral("BgMaterial");
    const QString guid = Files::guid(7);
    Files::write(config(download), Files::document(Files::cfgGroup(group, {{guid, {}, {}}})));
    // Items missing from the config catalogue are logged as warnings, which proves that both
    // catalogues were read, in groups as for themes.
    const QString unknown = Files::guid(8);
    const QByteArray grouped =
        Files::displayThemes({{QStringLiteral("others"),
                               {{guid, QStringLiteral("Paper"), QStringLiteral("p.jpg")},
                                {unknown, QStringLiteral("Silk"), QStringLiteral("s.jpg")}}}});
    Files::write(display(download),
                 Files::document(QByteArray(grouped).replace("Theme>", "BgMaterial>")));
    const QString missed =
        line("MVThemeMgr", 1, QStringLiteral("not findItemByID [%1]").arg(unknown));
    QVERIFY(run());
    QCOMPARE(m_entries.count(missed), 1);
    QVERIFY(!m_entries.contains(
        line("MVThemeMgr", 1, QStringLiteral("not findItemByID [%1]").arg(guid))));
    QCOMPARE(m_world.targets(), QByteArrayList());

    CheckWorld::setParam("hasSplit", "0");
    QVERIFY(run());
    QCOMPARE(m_entries.count(missed), 0);
}

void tst_CheckWorker_ThumbAndGif_run::installedCatalogueWhenTheDownloadedIsUnusable_data()
{
    QTest::addColumn<QByteArray>("content"); // null: none
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("malformed") << QByteArray("<Resource>");
}

void tst_CheckWorker_ThumbAndGif_run::installedCatalogueWhenTheDownloadedIsUnusable()
{
    QFETCH(QByteArray, content);
    m_world.writeCatalogue(local, {}, {5});
    if (!content.isNull()) {
        Files::write(config(download), content);
        Files::write(display(download), content);
    }
    servePreview("VideoFilters", "f5.jpg");
    QVERIFY(run());
    QStringList expected = start();
    expected << checkXml(config(download), 0)
             << previews(QStringLiteral("path_Cfg_Download checkXml [%1],is error!")
                             .arg(config(download)))
             << checkXml(config(local), 1) << checkXml(display(download), 0)
             << previews(QStringLiteral("path_display_Download checkXml[%1],is error!,will return!")
                             .arg(display(download)))
             << checkXml(display(local), 1);
    QCOMPARE(m_entries.mid(0, expected.size()), expected);
    QCOMPARE(m_entries.last(), QStringLiteral("end 1"));
    QVERIFY(QFile::exists(m_world.preview("VideoFilters", "f5.jpg")));
}

void tst_CheckWorker_ThumbAndGif_run::noConfigCatalogue()
{
    QVERIFY(!run());
    QStringList expected = start();
    expected << checkXml(config(download), 0)
             << previews(QStringLiteral("path_Cfg_Download checkXml [%1],is error!")
                             .arg(config(download)))
             << checkXml(config(local), 0)
             << previews(QStringLiteral("path_Cfg_local checkXml[%1],is error!").arg(config(local)))
             << QStringLiteral("result 0 0 0 0 1") << QStringLiteral("end 0");
    QCOMPARE(m_entries, expected);
}

void tst_CheckWorker_ThumbAndGif_run::noDisplayCatalogue()
{
    m_world.writeCatalogue(download, {1}, {2});
    QVERIFY(QFile::remove(display(download)));
    QVERIFY(!run());
    QStringList expected = start();
    expected << checkXml(config(download), 1) << checkXml(display(download), 0)
             << previews(QStringLiteral("path_display_Download checkXml[%1],is error!,will return!")
                             .arg(display(download)))
             << checkXml(display(local), 0)
             << previews(
                    QStringLiteral("path_display_local checkXml[%1],is error!").arg(display(local)))
             << QStringLiteral("result 0 0 0 0 1") << QStringLiteral("end 0");
    QCOMPARE(m_entries, expected);
    QCOMPARE(m_world.targets(), QByteArrayList());
}

void tst_CheckWorker_ThumbAndGif_run::namesAreEncoded()
{
    const QString guid = Files::guid(1);
    Files::write(config(download),
                 Files::document(Files::cfgGroup(QStringLiteral("Filter"), {{guid, {}, {}}})));
    Files::write(display(download),
                 Files::document(Files::displayCategory(
                     QStringLiteral("Filter"),
                     {{guid, QStringLiteral("x"), QStringLiteral("Golden Hour \u00e9.jpg")}})));
    m_world.serve("/display/VideoFilters/Golden%20Hour%20%C3%A9.jpg", "image");
    QVERIFY(run());
    QCOMPARE(Files::read(m_world.preview("VideoFilters", "Golden Hour \xc3\xa9.jpg")),
             QByteArray("image"));
}

void tst_CheckWorker_ThumbAndGif_run::emptyCatalogue()
{
    m_world.writeCatalogue(download, {}, {});
    QVERIFY(run());
    QStringList expected = start();
    expected << checkXml(config(download), 1) << checkXml(display(download), 1) << end()
             << QStringLiteral("result 0 0 0 1 0") << QStringLiteral("end 1");
    QCOMPARE(m_entries, expected);
}

void tst_CheckWorker_ThumbAndGif_run::oneConnectionServesAll()
{
    m_world.writeCatalogue(download, {1, 2, 3, 4, 5}, {});
    for (const int number : {1, 2, 3, 4, 5}) {
        for (const char* suffix : {"jpg", "gif"})
            m_world.serve("/display/Themes/t" + QByteArray::number(number) + '.' + suffix, "x");
    }
    const int before = m_world.server().connectionCount();
    QVERIFY(run());
    QCOMPARE(m_world.targets().size(), 10);
    QVERIFY(m_world.server().connectionCount() <= before + TransfersSideBySide::count());
}

void tst_CheckWorker_ThumbAndGif_run::catalogueOfTheHostIsNotTouched()
{
    m_world.writeCatalogue(download, {1}, {2});
    servePreview("Themes", "t1.jpg");
    servePreview("Themes", "t1.gif");
    QVERIFY(run());
    QVERIFY(MVThemeMgr::init()->getThemes_Display().isEmpty());
    QVERIFY(MVThemeMgr::init()->getCfgXML().vecTheme.isEmpty());
    // A loaded catalogue shows what has arrived.
    MVThemeMgr::init()->load(true);
    QCOMPARE(MVThemeMgr::init()->getThemes_Display().size(), 1);
}

MV_TEST_MAIN(tst_CheckWorker_ThumbAndGif_run)

#include "tst_CheckWorker_ThumbAndGif_run.moc"
