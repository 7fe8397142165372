// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

namespace tst_MVThemeMgr_urls {

using Mgr = MVThemeMgr;

/// Tests addresses on the server.
class tst_MVThemeMgr_urls : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void configHalf_data();
    void configHalf();
    void thumbnails_data();
    void thumbnails();
    void serverRootIsReadForEveryAddress();
    void withoutServerRootAddressesHaveNoPrefix();

private:
    CatalogueFixture m_fixture;
};

namespace {

Mgr& mgr()
{
    return CatalogueFixture::manager();
}

} // namespace

void tst_MVThemeMgr_urls::configHalf_data()
{
    QTest::addColumn<int>("tag");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* title, int tag, const char* name, const char* expected) {
        QTest::newRow(title) << tag << QString::fromUtf8(name) << QString::fromUtf8(expected);
    };
    row("config", 0, "/Themes/a.xml", "http://s/r/config/Themes/a.xml");
    row("display", 1, "/x.png", "http://s/r/display/x.png");
    row("other tag", 2, "/x.png", "http://s/r//x.png");
    row("no separator is added", 0, "a.xml", "http://s/r/configa.xml");
    row("empty name", 0, "", "http://s/r/config");
    row("blank stays", 0, "/Themes/a b.zip", "http://s/r/config/Themes/a b.zip");
    row("blank in background music", 0, "/ThemesBgm/a b.mp3",
        "http://s/r/config/ThemesBgm/a%20b.mp3");
    row("slashes stay, the rest is encoded", 0, "/ThemesBgm/a/b c&d#e+\xc3\xa9%20.mp3",
        "http://s/r/config/ThemesBgm/a/b%20c%26d%23e%2B%C3%A9%2520.mp3");
    row("unreserved characters stay", 0, "/ThemesBgm/a-b._~ c",
        "http://s/r/config/ThemesBgm/a-b._~%20c");
    row("background music without blank", 0, "/ThemesBgm/\xc3\xa9&.mp3",
        "http://s/r/config/ThemesBgm/\xc3\xa9&.mp3");
    row("tab is no blank", 0, "/ThemesBgm/a\tb", "http://s/r/config/ThemesBgm/a\tb");
    row("other case", 0, "/themesbgm/a b.mp3", "http://s/r/config/themesbgm/a b.mp3");
    row("inside another word", 0, "/MyThemesBgmOld/a b", "http://s/r/config/MyThemesBgmOld/a%20b");
    row("the blank may come first", 0, "/a b/ThemesBgm", "http://s/r/config/a%20b/ThemesBgm");
}

void tst_MVThemeMgr_urls::configHalf()
{
    QFETCH(int, tag);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    CatalogueFixture::setParam("url_themeRootDir", "http://s/r/");
    QCOMPARE(mgr().downLoadUrl(Mgr::EDirTag(tag), name), expected);
}

void tst_MVThemeMgr_urls::thumbnails_data()
{
    QTest::addColumn<int>("tag");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* title, int tag, int kind, const char* name,
                        const char* expected) {
        QTest::newRow(title) << tag << kind << QString::fromUtf8(name)
                             << QString::fromUtf8(expected);
    };
    row("filter", 1, 0, "a.png", "http://s/r/display/VideoFilters/a.png");
    row("transition", 1, 1, "a.png", "http://s/r/display/Transitions/a.png");
    row("motion", 1, 2, "a.png", "http://s/r/display/Motions/a.png");
    row("theme", 1, 3, "a.png", "http://s/r/display/Themes/a.png");
    row("background", 1, 4, "a.png", "http://s/r/display/BgMaterial/a.png");
    row("config half", 0, 3, "a.png", "http://s/r/config/Themes/a.png");
    row("other tag", 2, 3, "a.png", "http://s/r//Themes/a.png");
    row("slash", 1, 3, "x/y.png", "http://s/r/display/Themes/x%2Fy.png");
    row("leading slash", 1, 3, "/y.png", "http://s/r/display/Themes/%2Fy.png");
    row("blank", 1, 0, "a b.png", "http://s/r/display/VideoFilters/a%20b.png");
    row("reserved", 1, 0, "a&b?c#d+e%20.png",
        "http://s/r/display/VideoFilters/a%26b%3Fc%23d%2Be%2520.png");
    row("not ASCII", 1, 0, "\xe6\xb5\xb7.png", "http://s/r/display/VideoFilters/%E6%B5%B7.png");
    row("unreserved", 1, 0, "a-b._~.png", "http://s/r/display/VideoFilters/a-b._~.png");
    row("empty name", 1, 0, "", "http://s/r/display/VideoFilters/");
    row("resource file", 1, 5, "a b.png", "/a%20b.png");
    row("kind 6", 1, 6, "a.png", "/a.png");
    row("kind -1", 1, -1, "a.png", "/a.png");
}

void tst_MVThemeMgr_urls::thumbnails()
{
    QFETCH(int, tag);
    QFETCH(int, kind);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    CatalogueFixture::setParam("url_themeRootDir", "http://s/r/");
    QCOMPARE(mgr().downLoadUrl_Thumb(Mgr::EDirTag(tag), ECfgItemType(kind), name), expected);
}

void tst_MVThemeMgr_urls::serverRootIsReadForEveryAddress()
{
    for (const char* server : {"http://one/", "http://two/"}) {
        CatalogueFixture::setParam("url_themeRootDir", server);
        QCOMPARE(mgr().downLoadUrl(Mgr::eDirTag_Config, QStringLiteral("/a")),
                 QString::fromLatin1(server) + QStringLiteral("config/a"));
        QCOMPARE(
            mgr().downLoadUrl_Thumb(Mgr::eDirTag_Display, eCfgItem_Motion, QStringLiteral("a")),
            QString::fromLatin1(server) + QStringLiteral("display/Motions/a"));
    }
}

void tst_MVThemeMgr_urls::withoutServerRootAddressesHaveNoPrefix()
{
    QCOMPARE(mgr().downLoadUrl(Mgr::eDirTag_Config, QStringLiteral("/a")),
             QStringLiteral("config/a"));
    QCOMPARE(mgr().downLoadUrl_Thumb(Mgr::eDirTag_Display, eCfgItem_Theme, QStringLiteral("a")),
             QStringLiteral("display/Themes/a"));
}

MV_TEST_MAIN(tst_MVThemeMgr_urls)

} // namespace tst_MVThemeMgr_urls

#include "tst_MVThemeMgr_urls.moc"
