// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/MVThemeDownLoader.h"
#include "host/HostSettings.h"
#include "host/WindowsName.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFileInfo>

using Files = CatalogueFiles;

/// Tests the whole way of a catalogue, from the server to the files of an item, whose names mean
/// something else to Windows, or that leads through links: nothing outside the download root is
/// touched.
class tst_foreignNames : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void names_data();
    void names();
    void links_data();
    void links();
    void otherCaseIsOneFileAtMost();

private:
    void publish(const QString& name);
    QStringList outside() const;
    bool fetchAll();
    QString themes() const { return m_world.root() + text("/Themes/"); }

    CheckWorld m_world;
};

namespace {

const QByteArray served("<Theme/>");

} // namespace

void tst_foreignNames::init()
{
    m_world.fresh();
    m_world.install("1.0.2", "1", "1");
    hostSettings().downloadStepMs = 0;
    MVThemeMgr::init()->load(true); // which creates the files of the favourites
    Files::write(m_world.base() + text("/outside/kept.txt"), "kept");
    m_world.setFault([](HttpExchange& exchange, int) {
        if (exchange.request().target.startsWith("//ResourceConfig/"))
            return false;
        exchange.answer(HttpAnswer(200).body(served));
        return true;
    });
}

/// Publishes a theme and a filter all of whose files have that name; the server has every file.
void tst_foreignNames::publish(const QString& name)
{
    const QString theme = Files::guid(1);
    const QString filter = Files::guid(2);
    const QByteArray config = Files::document(
        Files::cfgGroup(text("Filter"), {{filter, QString(), {name, text("/ok.zip")}}})
        + Files::cfgGroup(text("Theme"), {{theme, name, {name}}}));
    const QByteArray display =
        Files::document(Files::displayCategory(text("Filter"), {{filter, text("Filter"), name}})
                        + Files::displayThemes(
                            {{text("travel"), {{theme, text("Theme"), name, name, QString()}}}}));
    m_world.publish("1.0.2", display, config);
}

/// Returns the files outside the root with their contents, except what a check keeps for itself.
QStringList tst_foreignNames::outside() const
{
    QStringList contents;
    const QString home = TestHome::path() + QLatin1Char('/');
    const QStringList files = Files::filesBelow(TestHome::path());
    for (const QString& file : files) {
        const QString path = home + file;
        if (!path.startsWith(m_world.root() + QLatin1Char('/')) && !path.startsWith(m_world.temp()))
            contents.append(file + text(": ") + QString::fromLatin1(Files::read(path).toHex()));
    }
    return contents;
}

/// Checks, fetches the previews and downloads both items. Returns whether the check has succeeded.
bool tst_foreignNames::fetchAll()
{
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML check;
    CheckWorld::check(check, trace);
    MVThemeMgr& manager = *MVThemeMgr::init();
    manager.load(true);
    CheckWorker_ThumbAndGif previews;
    previews.onStartDownload_ThumbAndGif();
    SCfg_Item* const theme = manager.findItemByIDFromConfig(eCfgItem_Theme, Files::guid(1));
    SCfg_Item* const filter = manager.findItemByIDFromConfig(eCfgItem_Filter, Files::guid(2));
    for (SCfg_Item* const item : {theme, filter}) {
        MVThemeDownLoader downloader(nullptr);
        if (item)
            DownloadWorld::run(downloader, *item);
    }
    return trace.contains(text("result 0"));
}

void tst_foreignNames::names_data()
{
    QTest::addColumn<QString>("name");
    const auto row = [](const char* tag, const char* name) { QTest::newRow(tag) << text(name); };
    row("device", "/Themes/nul");
    row("device with a suffix", "/Themes/CON.zip");
    row("device as a folder", "/aux/a.zip");
    row("port", "/Themes/com1.xml");
    row("port with a raised digit", "/Themes/lpt\u00b2.xml");
    row("console", "/Themes/conout$");
    row("alternate stream", "/Themes/a.zip:hidden");
    row("main stream", "/Themes/a.zip::$DATA");
    row("stream of a folder", "/Themes::$INDEX_ALLOCATION/a.zip");
    row("dot at the end", "/Themes/a.zip.");
    row("dots at the end of a folder", "/Themes.../a.zip");
    row("blank at the end", "/Themes/a.zip ");
    row("blank at the end of a folder", "/Themes /a.zip");
    row("drive", "C:/outside.zip");
    row("drive below the root", "/C:/outside.zip");
    row("current folder of a drive", "C:outside.zip");
    row("file of a drive within the root", "/Themes/C:outside.zip");
    row("encoded colon", "/Themes/C%3aoutside.zip");
    row("encoded stream", "/Themes/a.zip%3Ahidden");
    row("server", "//localhost/share/outside.zip");
    row("server with backslashes", "\\\\localhost\\share\\outside.zip");
    row("device path", "//./C:/outside.zip");
    row("path without a limit", "//?/C:/outside.zip");
    row("up with backslashes", "/Themes\\..\\..\\..\\..\\..\\outside.zip");
    row("up with encoded backslashes", "/Themes/..%5c..%5c..%5c..%5c..%5coutside.zip");
    row("up behind dots that Windows drops", "/.. /.. /.. /.. /.. /outside.zip");
    row("wildcards", "/Themes/*?.zip");
    row("redirection", "/Themes/a<b>|c.zip");
}

void tst_foreignNames::names()
{
    QFETCH(QString, name);
    publish(name);
    const QStringList before = outside();
    QVERIFY(fetchAll());
    QCOMPARE(outside(), before);
    // On Windows the root holds only names that mean nothing else.
    const QStringList inside = Files::filesBelow(m_world.root());
    QVERIFY(inside.contains(text("Themes/config/PQD/Download/ok.zip")));
    for (const QString& file : inside)
        QVERIFY2(WindowsName::isStorablePath(file) || QDir::separator() == QLatin1Char('/'),
                 qPrintable(file));
}

void tst_foreignNames::links_data()
{
    QTest::addColumn<QString>("link"); // below the folder "Themes" of the root
    for (const char* link :
         {"ResourceConfig", "config", "config/PQD/Download/Themes", "config/PQD/Download/inner",
          "config/PQD/Download/inner/deep", "display", "display/PQD/Download/Themes",
          "display/PQD/Download/inner"})
        QTest::newRow(link) << text(link);
}

/// The user, or another program, has made a link within the root.
void tst_foreignNames::links()
{
    QFETCH(QString, link);
    publish(text("/inner/deep/a.zip"));
    const QString path = themes() + link;
    QDir(path).removeRecursively();
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    MV_LINK(m_world.base() + text("/outside"), path);
    const QStringList before = outside();
    const bool isChecked = fetchAll();
    QCOMPARE(isChecked, link != text("ResourceConfig"));
    QCOMPARE(outside(), before);
    QVERIFY(UnusualFiles::isLink(path));
}

/// Names that differ in case are two files, or one to a file system that ignores it.
void tst_foreignNames::otherCaseIsOneFileAtMost()
{
    publish(text("/THEMES/A.zip"));
    Files::write(themes() + text("config/PQD/Download/Themes/a.zip"), "earlier");
    const QStringList before = outside();
    QVERIFY(fetchAll());
    QCOMPARE(outside(), before);
    const bool ignoresCase = QFileInfo::exists(themes() + text("CONFIG/PQD/Download/ok.ZIP"));
    QCOMPARE(Files::read(themes() + text("config/PQD/Download/THEMES/A.zip")),
             ignoresCase ? QByteArray("earlier") : served);
    QCOMPARE(Files::read(themes() + text("config/PQD/Download/Themes/a.zip")),
             QByteArray("earlier"));
}

MV_TEST_MAIN(tst_foreignNames)

#include "tst_foreignNames.moc"
