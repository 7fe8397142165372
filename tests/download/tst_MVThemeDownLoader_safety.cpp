// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

using namespace DownloadLines;

namespace {

/// Lists everything below the test's home except one folder: names, kinds, link targets, contents.
QStringList everythingBut(const QString& excluded)
{
    QStringList entries;
    QDirIterator it(TestHome::path(),
                    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (path.startsWith(excluded + QLatin1Char('/')))
            continue;
        const QFileInfo info(path);
        QString entry = path;
        if (info.isSymLink())
            entry += QStringLiteral(" -> ") + QFile::symLinkTarget(path);
        else if (info.isFile())
            entry +=
                QStringLiteral(" = ") + QString::fromLatin1(CatalogueFiles::read(path).toHex());
        entries.append(entry);
    }
    entries.sort();
    return entries;
}

} // namespace

/// Tests that a download touches nothing outside the download root, whatever a catalogue says.
class tst_MVThemeDownLoader_safety : public QObject
{
    Q_OBJECT

private slots:
    void resourceNames_data();
    void resourceNames();
    void presentOutside();
    void encodedNul();
    void thumbnailName();
    void configNames_data();
    void configNames();
    void guidWithATail_data();
    void guidWithATail();
    void links_data();
    void links();
    void folderBesideTheFileIsALink();
    void rootMayBeALink();
};

void tst_MVThemeDownLoader_safety::resourceNames_data()
{
    QTest::addColumn<QString>("name");

    const auto row = [](const char* tag, const char* name) {
        QTest::newRow(tag) << QString::fromLatin1(name);
    };
    row("out of the root", "/../../../../../outside.zip");
    row("into a new folder", "/../../../../../evil/outside.zip");
    row("relative", "../../../../../../../outside.zip");
    row("relative into a new folder", "../../../../../../../evil/outside.zip");
    row("percent-encoded dots", "/%2e%2e/%2e%2e/%2e%2e/%2e%2e/%2E%2E/evil/outside.zip");
    row("percent-encoded slashes", "/..%2f..%2F..%2f..%2f../evil/outside.zip");
    row("through a folder that is there", "/VideoFilters/../../../../../../outside.zip");
    row("through a folder that is not", "/new/../../../../../../outside.zip");
    row("up within the root", "/VideoFilters/../Motions/x.zip");
    row("backslashes", "/..\\..\\..\\x.zip");
}

void tst_MVThemeDownLoader_safety::resourceNames()
{
    QFETCH(QString, name);
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1, {name});
    const QStringList outside = everythingBut(world.root());
    const QStringList inside = CatalogueFiles::filesBelow(world.root());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(everythingBut(world.root()), outside);
    QCOMPARE(CatalogueFiles::filesBelow(world.root()), inside);
    QCOMPARE(world.server().connectionCount(), 0);
    QCOMPARE(trace.count(noPath()), 1);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
}

/// A name that leads out of the root never counts as present; the file there is neither read nor
/// changed.
void tst_MVThemeDownLoader_safety::presentOutside()
{
    DownloadWorld world;
    CatalogueFiles::write(world.root() + QStringLiteral("-outside/old.zip"), "old");
    SCfg_Item filter = DownloadWorld::item(eCfgItem_Filter, 1,
                                           {QStringLiteral("/../../../../../%1-outside/old.zip")
                                                .arg(QFileInfo(world.root()).fileName()),
                                            QStringLiteral("/..")});
    const QStringList outside = everythingBut(world.root());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(everythingBut(world.root()), outside);
    QCOMPARE(world.server().connectionCount(), 0);
    QCOMPARE(trace.count(noPath()), 2);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
}

void tst_MVThemeDownLoader_safety::encodedNul()
{
    DownloadWorld world;
    SCfg_Item filter = DownloadWorld::item(
        eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/a%00/../../../../../../../b.zip")});
    const QStringList outside = everythingBut(world.root());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(everythingBut(world.root()), outside);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
}

void tst_MVThemeDownLoader_safety::thumbnailName()
{
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_Thumb.m_qsUrl = QStringLiteral("/../../../../../evil/t.png");
    theme.m_info_Gif.m_qsUrl = QStringLiteral("../../../../../../evil/g.gif");
    const QStringList outside = everythingBut(world.root());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(everythingBut(world.root()), outside);
    QCOMPARE(trace.count(noPath()), 2);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
}

void tst_MVThemeDownLoader_safety::configNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("dots") << QStringLiteral("/../../../../../t.xml");
    QTest::newRow("encoded dots") << QStringLiteral("/%2e%2e/%2e%2e/%2e%2e/%2e%2e/%2e%2e/t.xml");
}

void tst_MVThemeDownLoader_safety::configNames()
{
    QFETCH(QString, name);
    DownloadWorld world;
    SCfg_Item theme = DownloadWorld::item(eCfgItem_Theme, 1);
    theme.m_info_CfgXML.m_qsUrl = name;
    const QStringList outside = everythingBut(world.root());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, theme));

    QCOMPARE(everythingBut(world.root()), outside);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Path});
    QCOMPARE(world.server().connectionCount(), 0);
}

void tst_MVThemeDownLoader_safety::guidWithATail_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("result");
    QTest::newRow("theme's config") << int(eCfgItem_Theme) << int(eDownLoadError_Path);
    QTest::newRow("filter's resource") << int(eCfgItem_Filter) << int(eDownLoadError_Element);
}

void tst_MVThemeDownLoader_safety::guidWithATail()
{
    QFETCH(int, kind);
    QFETCH(int, result);
    DownloadWorld world;
    SCfg_Item item =
        DownloadWorld::item(static_cast<ECfgItemType>(kind), 1, {QStringLiteral("r.zip")});
    item.m_qsGUID += QStringLiteral("/../../../../../../../evil");
    QVERIFY(!QUuid(item.m_qsGUID).isNull());
    item.m_info_CfgXML.m_qsUrl = QStringLiteral("c.xml");
    const QStringList outside = everythingBut(world.root());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, item));

    QCOMPARE(everythingBut(world.root()), outside);
    QCOMPARE(trace.results(), QVector<int>{result});
    QCOMPARE(world.server().connectionCount(), 0);
}

void tst_MVThemeDownLoader_safety::links_data()
{
    QTest::addColumn<QString>("link");   // below the filters' folder
    QTest::addColumn<QString>("target"); // below the outside folder
    QTest::addColumn<QString>("name");   // of the file to fetch, below the filters' folder

    const auto row = [](const char* tag, const char* link, const char* target, const char* name) {
        QTest::newRow(tag) << QString::fromLatin1(link) << QString::fromLatin1(target)
                           << QString::fromLatin1(name);
    };
    row("the file is a link to a new file", "f.zip", "new.zip", "f.zip");
    row("the file is a link to an old file", "f.zip", "old.zip", "f.zip");
    row("the folder is a link", "linked", "folder", "linked/f.zip");
    row("a folder above is a link", "linked", "folder", "linked/deep/f.zip");
    row("the folder is a link to nothing", "linked", "nothing", "linked/f.zip");
}

void tst_MVThemeDownLoader_safety::links()
{
    QFETCH(QString, link);
    QFETCH(QString, target);
    QFETCH(QString, name);
    DownloadWorld world;
    const QString folder = world.root() + QStringLiteral("-outside/");
    CatalogueFiles::write(folder + QStringLiteral("old.zip"), "old");
    CatalogueFiles::write(folder + QStringLiteral("folder/kept.txt"), "kept");
    MV_LINK(folder + target, world.folder(eCfgItem_Filter) + QLatin1Char('/') + link);
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/") + name});
    world.serve(QStringLiteral("/config/VideoFilters/") + name, "content");
    const QStringList outside = everythingBut(world.root());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(everythingBut(world.root()), outside);
    QCOMPARE(world.server().connectionCount(), 0);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_Element});
}

void tst_MVThemeDownLoader_safety::folderBesideTheFileIsALink()
{
    DownloadWorld world;
    const QString folder = world.root() + QStringLiteral("-outside/");
    QVERIFY(QDir().mkpath(folder));
    MV_LINK(folder + QStringLiteral("new"), world.folder(eCfgItem_Filter) + QStringLiteral("/f"));
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/f.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/f.zip"), "content");
    const QStringList outside = everythingBut(world.root());
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(everythingBut(world.root()), outside);
    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
}

void tst_MVThemeDownLoader_safety::rootMayBeALink()
{
    DownloadWorld world;
    const QString real = world.root() + QStringLiteral("-real");
    const QString link = world.root() + QStringLiteral("-link");
    QVERIFY(QDir().mkpath(real));
    MV_LINK(real, link);
    MVThemeMgr::init()->setResourceSaveRootPath(link);
    SCfg_Item filter =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/VideoFilters/f.zip")});
    world.serve(QStringLiteral("/config/VideoFilters/f.zip"), "content");
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);

    QVERIFY(DownloadWorld::run(downloader, filter));

    QCOMPARE(trace.results(), QVector<int>{eDownLoadError_None});
    QCOMPARE(CatalogueFiles::filesBelow(real),
             QStringList{QStringLiteral("Themes/config/PQD/Download/VideoFilters/f.zip")});
}

MV_TEST_MAIN(tst_MVThemeDownLoader_safety)

#include "tst_MVThemeDownLoader_safety.moc"
