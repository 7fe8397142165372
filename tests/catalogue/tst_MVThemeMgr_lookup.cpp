// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "support/UnusualFiles.h"

namespace tst_MVThemeMgr_lookup {

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests locating an item's files: the look-up in the two trees that all rules share, and names
/// that lead out of them.
class tst_MVThemeMgr_lookup : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void twoTrees_data();
    void twoTrees();
    void absoluteNames_data();
    void absoluteNames();
    void relativeNamesAreNotDecoded();
    void presenceIsTheOnlyTest();
    void unsafeNames_data();
    void unsafeNames();
    void linkedFoldersAreNotExtended();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }

    CatalogueFixture m_fixture;
};

namespace {

enum Rule { config, thumb, gif, resource };

SFileInfo& record(SCfg_Item& item, int rule)
{
    switch (rule) {
    case config:
        return item.m_info_CfgXML;
    case thumb:
        return item.m_info_Thumb;
    case gif:
        return item.m_info_Gif;
    default:
        return item.m_vecResource[0];
    }
}

bool resolve(SCfg_Item& item, int rule)
{
    Mgr& mgr = CatalogueFixture::manager();
    switch (rule) {
    case config:
        return mgr.doItem_Info_CfgXML(item);
    case thumb:
        return mgr.doItem_Info_Thumb(item);
    case gif:
        return mgr.doItem_Info_Gif(item);
    default:
        return mgr.doItem_Info_DependRes(item);
    }
}

SCfg_Item themeWith(int rule, const QString& url, const QString& guid = Files::guid(1))
{
    SCfg_Item item;
    item.m_eType = eCfgItem_Theme;
    item.m_qsGUID = guid;
    item.m_vecResource.resize(1);
    record(item, rule).m_qsUrl = url;
    return item;
}

} // namespace

void tst_MVThemeMgr_lookup::twoTrees_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("below"); // both folders of the kind
    const QString guid = Files::guid(1);
    QTest::newRow("config") << int(config) << QStringLiteral("x") << guid + QStringLiteral(".xml");
    QTest::newRow("thumbnail") << int(thumb) << QStringLiteral("a.png") << QStringLiteral("a.png");
    QTest::newRow("GIF") << int(gif) << QStringLiteral("a.gif") << QStringLiteral("a.gif");
    QTest::newRow("resource") << int(resource) << QStringLiteral("a.zip")
                              << guid + QStringLiteral("/a.zip");
}

void tst_MVThemeMgr_lookup::twoTrees()
{
    QFETCH(int, rule);
    QFETCH(QString, url);
    QFETCH(QString, below);
    const char* const half = rule == config || rule == resource ? "config" : "display";
    const QString downloaded = m_fixture.downloaded(half, "Themes", below);
    const QString installed = m_fixture.installedFile(half, "Themes", below);
    SCfg_Item item = themeWith(rule, url);
    const SFileInfo& info = record(item, rule);

    QVERIFY(!resolve(item, rule));
    QCOMPARE(info.m_qsFile, downloaded);
    QVERIFY2(!QFile::exists(QFileInfo(installed).path()), "the installed tree is left alone");

    Files::write(installed, "x");
    QVERIFY(resolve(item, rule));
    QCOMPARE(info.m_qsFile, installed);

    Files::write(downloaded, "x");
    QVERIFY(resolve(item, rule));
    QCOMPARE(info.m_qsFile, downloaded);

    QVERIFY(QFile::remove(downloaded) && QFile::remove(installed));
    QVERIFY(!resolve(item, rule));
    QCOMPARE(info.m_qsFile, downloaded);
    QCOMPARE(info.m_qsUrl, url);
}

void tst_MVThemeMgr_lookup::absoluteNames_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("below"); // the folder of the half
    const struct
    {
        const char* title;
        int rule;
    } rules[] = {{"config", config}, {"thumbnail", thumb}, {"resource", resource}};
    for (const auto& rule : rules) {
        const auto row = [&](const char* name, const char* url, const char* below) {
            QTest::addRow("%s, %s", rule.title, name)
                << rule.rule << QString::fromUtf8(url) << QString::fromUtf8(below);
        };
        row("plain", "/sub/a.png", "/sub/a.png");
        row("escaped blank", "/sub/x%20y.png", "/sub/x y.png");
        row("UTF-8", "/\xc3\xa9/%E6%B5%B7.png", "/\xc3\xa9/\xe6\xb5\xb7.png");
        row("escaped slash", "/sub%2Fdeep%2fa.png", "/sub/deep/a.png");
        row("decoded once", "/a%2520b.png", "/a%20b.png");
        row("plus stays", "/a+b.png", "/a+b.png");
        row("at the top", "/a.png", "/a.png");
    }
}

void tst_MVThemeMgr_lookup::absoluteNames()
{
    QFETCH(int, rule);
    QFETCH(QString, url);
    QFETCH(QString, below);
    const QString half = rule == thumb ? QStringLiteral("display") : QStringLiteral("config");
    const QString downloaded = m_fixture.root() + QStringLiteral("/Themes/") + half
        + QStringLiteral("/PQD/Download") + below;
    const QString installed = m_fixture.installed() + QStringLiteral("/Resource")
        + (rule == thumb ? QStringLiteral("/display") : QString()) + below;
    SCfg_Item item = themeWith(rule, url);
    const SFileInfo& info = record(item, rule);

    const bool folderWasThere = QFileInfo(downloaded).dir().exists();
    QVERIFY(!resolve(item, rule));
    QCOMPARE(info.m_qsFile, downloaded);
    QCOMPARE(QFileInfo(downloaded).dir().exists(), folderWasThere || rule != config);
    Files::write(installed, "x");
    QVERIFY(resolve(item, rule));
    QCOMPARE(info.m_qsFile, installed);
    Files::write(downloaded, "x");
    QVERIFY(resolve(item, rule));
    QCOMPARE(info.m_qsFile, downloaded);
}

void tst_MVThemeMgr_lookup::relativeNamesAreNotDecoded()
{
    SCfg_Item item = themeWith(thumb, QStringLiteral("a%20b/c%2Fd.png"));
    QVERIFY(!resolve(item, thumb));
    QCOMPARE(item.m_info_Thumb.m_qsFile,
             m_fixture.downloaded("display", "Themes", QStringLiteral("a%20b/c%2Fd.png")));
}

void tst_MVThemeMgr_lookup::presenceIsTheOnlyTest()
{
    SCfg_Item item = themeWith(thumb, QStringLiteral("a.png"));
    Files::write(m_fixture.downloaded("display", "Themes", QStringLiteral("a.png")), QByteArray());
    QVERIFY2(resolve(item, thumb), "an empty file is a file");
    item.m_info_Thumb.m_bDownloaded = true;
    QVERIFY(resolve(item, thumb));
    QVERIFY2(item.m_info_Thumb.m_bDownloaded, "the state of a download is not touched");
}

void tst_MVThemeMgr_lookup::unsafeNames_data()
{
    QTest::addColumn<QString>("guid");
    QTest::addColumn<QString>("url");
    const QString guid = Files::guid(1);
    const auto row = [&](const char* title, const char* url) {
        QTest::newRow(title) << guid << QString::fromUtf8(url);
    };
    row("up", "../../../../../../../outside/a");
    row("up, absolute", "/../../../../../outside/a");
    row("up, percent encoded", "/%2e%2e/%2E%2e/%2e%2e/%2e%2e/%2e%2e/outside/a");
    row("up, encoded slashes", "/..%2f..%2F..%2f..%2f..%2foutside/a");
    row("up and back into the root", "/../../../../Themes/escaped/a");
    row("up inside the root", "new/../other/a");
    row("backslashes", "/..\\..\\..\\..\\outside\\a/b");
    row("encoded backslashes", "/..%5c..%5c..%5coutside/a");
    row("NUL", "/new%00/../../outside/a");
    row("NUL at the end", "/a%00.png");
    QTest::newRow("GUID with a tail")
        << guid + QStringLiteral("/../../../../../../../outside") << QStringLiteral("deep/a");
    QTest::newRow("GUID with a tail, backslashes")
        << guid + QStringLiteral("\\..\\..\\outside") << QStringLiteral("deep/a");
}

void tst_MVThemeMgr_lookup::unsafeNames()
{
    QFETCH(QString, guid);
    QFETCH(QString, url);
    const QStringList before = CatalogueFixture::entriesBelow(m_fixture.base());
    // The GIF rule does not decode, so an encoded name is harmless there.
    for (const Rule rule : {config, thumb, resource}) {
        if (guid != Files::guid(1) && rule == thumb)
            continue; // the name of a thumbnail does not contain the GUID
        SCfg_Item item = themeWith(rule, url, guid);
        QVERIFY(!resolve(item, rule));
        QVERIFY(!record(item, rule).m_qsFile.isEmpty());
        if (rule != config || url.startsWith(QLatin1Char('/')))
            QVERIFY2(!mgr().isDownloadPath(record(item, rule).m_qsFile),
                     qPrintable(record(item, rule).m_qsFile));
    }
    SCfg_Item item = themeWith(gif, QStringLiteral("../../../../../../outside/a"));
    QVERIFY(!resolve(item, gif));
    QCOMPARE(CatalogueFixture::entriesBelow(m_fixture.base()), before);
}

void tst_MVThemeMgr_lookup::linkedFoldersAreNotExtended()
{
    const QString outside = m_fixture.base() + QStringLiteral("/outside");
    QVERIFY(QDir().mkpath(outside));
    for (const char* half : {"config", "display"})
        MV_LINK(outside, m_fixture.downloaded(half, "Themes", QStringLiteral("link")));
    MV_LINK(outside, m_fixture.downloaded("config", "Themes", Files::guid(1)));
    for (const Rule rule : {thumb, gif, resource}) {
        SCfg_Item item = themeWith(
            rule, rule == resource ? QStringLiteral("new/a") : QStringLiteral("link/new/a"));
        QVERIFY(!resolve(item, rule));
        QVERIFY(!mgr().isDownloadPath(record(item, rule).m_qsFile));
    }
    QVERIFY(CatalogueFixture::entriesBelow(outside).isEmpty());
}

MV_TEST_MAIN(tst_MVThemeMgr_lookup)

} // namespace tst_MVThemeMgr_lookup

#include "tst_MVThemeMgr_lookup.moc"
