// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrokenTree.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Broken;

namespace {

QString themeFile()
{
    return text("config/Themes/") + guid("film") + text(".xml");
}

} // namespace

/// Tests that mvpublish lint gives one finding for every fault in GUIDs and themes.
class TestMvpublishLintItems : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void brokenTree_data();
    void brokenTree();

private:
    static void guidRows();
    static void themeRows();
};

void TestMvpublishLintItems::initTestCase()
{
    QCOMPARE(BrokenTree::makeClean(), QString());
}

void TestMvpublishLintItems::guidRows()
{
    const auto everywhere = [](const QString& to) -> Break {
        return [to](const BrokenTree& tree) {
            tree.replace(configFile, text("<GUID>") + guid("paper"), text("<GUID>") + to);
            tree.replaceShown(text("<GUID>") + guid("paper"), text("<GUID>") + to);
        };
    };
    const QString tail = guid("paper") + text("/../x");
    row("malformed GUID", everywhere(text("{PAPER}")), "guid-malformed", configFile,
        text("{PAPER}"));
    row("GUID with a tail", everywhere(tail), "guid-malformed", configFile, tail);
    row("GUID of zeros", everywhere(text("{00000000-0000-0000-0000-000000000000}")),
        "guid-malformed", configFile, text("{00000000-0000-0000-0000-000000000000}"));
    row("GUID in small letters", everywhere(guid("paper").toLower()), "guid-lower-case", configFile,
        guid("paper").toLower());
    row("GUID in small letters in a display catalogue",
        replace(displayFile, guid("fade"), guid("fade").toLower()), "guid-lower-case", displayFile,
        guid("fade").toLower());
    row("malformed GUID in a display catalogue",
        replace(displayFile, text("</Motion>"), entry(text("zoom"), "") + text("</Motion>")),
        "guid-malformed", displayFile, text("zoom"));
    row("same GUID twice",
        replace(configFile, text("</BgMaterial>"),
                entry(guid("fade"), "<UrlCnf>/Transitions/%7B1%7D.xml</UrlCnf>")
                        .replace(text("%7B1%7D"), encoded("fade"))
                    + text("</BgMaterial>")),
        "guid-duplicate", configFile, guid("fade"));
    row(
        "same entry twice",
        [](const BrokenTree& tree) {
            tree.replace(displayFile, text("</Transition>"),
                         text("<Item><GUID>%1</GUID><Name>x</Name><UrlThumb>fade "
                              "1.png</UrlThumb></Item></Transition>")
                             .arg(guid("fade")));
        },
        "guid-duplicate", displayFile, guid("fade"));
    row("unknown GUID",
        replace(displayFile, text("</Motion>"),
                entry(CatalogueFiles::guid(99), "<Name>x</Name>") + text("</Motion>")),
        "guid-unknown", displayFile, CatalogueFiles::guid(99));
    row("GUID of another kind",
        replace(displayFile, text("</Motion>"),
                entry(guid("fade"), "<Name>x</Name>") + text("</Motion>")),
        "guid-wrong-kind", displayFile, guid("fade"));
    row(
        "reserved GUID",
        [everywhere](const BrokenTree& tree) {
            const QString reserved = text("{20A63E69-32DC-415E-AA04-6A3D705F8290}");
            everywhere(reserved)(tree);
            QDir(tree.file(text("config/BgMaterial")))
                .rename(guid("paper") + text(".xml"), reserved + text(".xml"));
        },
        "guid-reserved", configFile, text("{20A63E69-32DC-415E-AA04-6A3D705F8290}"));
    row("\"none\" among motions",
        replace(displayFile, text("</Motion>"),
                entry(noneGuid, "<Name>x</Name>") + text("</Motion>")),
        "none-misplaced", displayFile, noneGuid);
    row("\"none\" among themes",
        replace(displayFile, text("<Group Type=\"travel\">"),
                text("<Group Type=\"travel\">") + entry(noneGuid, "<Name>x</Name>")),
        "none-misplaced", displayFile, noneGuid);
    row("\"none\" in the config catalogue",
        replace(configFile, text("</Filter>"), entry(noneGuid, "") + text("</Filter>")),
        "none-misplaced", configFile, noneGuid);
    row("item without a name", replace(displayFile, text("<Name>My paper</Name>"), QString()),
        "no-name", displayFile, guid("paper"));
    row("item with a long name",
        replace(displayFile, text("<Name>My paper</Name>"),
                text("<Name>%1</Name>").arg(text("n").repeated(500))),
        "name", displayFile, guid("paper"));
    row("item with a control character in its name",
        replace(displayFile, text("<Name>My paper</Name>"), text("<Name>My\tpaper</Name>")), "name",
        displayFile, guid("paper"));
}

void TestMvpublishLintItems::themeRows()
{
    const auto slot = [](const QString& from, const QString& to) {
        return replace(themeFile(), text(">") + from + text("<"), text(">") + to + text("<"));
    };
    row("malformed theme", cut(themeFile(), 200), "malformed", themeFile(), guid("film"));
    row("missing theme", remove(themeFile()), "missing-file", configFile, guid("film"));
    row("theme of another GUID",
        replace(themeFile(), text("<GUID>") + guid("film"), text("<GUID>") + guid("look")),
        "theme-guid", themeFile(), guid("film"));
    row("dependency on nothing", slot(guid("zoom"), CatalogueFiles::guid(99)), "dependency-unknown",
        themeFile(), guid("film"));
    row("dependency of the wrong kind", slot(guid("zoom"), guid("fade")), "guid-wrong-kind",
        themeFile(), guid("film"));
    row("dependency in small letters", slot(guid("zoom"), guid("zoom").toLower()),
        "guid-lower-case", themeFile(), guid("zoom").toLower());
    row("malformed dependency", slot(guid("zoom"), text("zoom")), "guid-malformed", themeFile(),
        text("zoom"));
    row("theme that depends on itself", slot(guid("zoom"), guid("film")), "theme-self", themeFile(),
        guid("film"));
    row(
        "theme without a config name",
        [](const BrokenTree& tree) {
            tree.replace(configFile,
                         text("<UrlCnf>/Themes/") + encoded("film") + text(".xml</UrlCnf>"),
                         QString());
            tree.remove(themeFile());
        },
        "no-name", configFile, guid("film"));
    row(
        "theme without an animation",
        [](const BrokenTree& tree) {
            tree.replaceShown(text("<UrlGif>film.gif</UrlGif>"), QString());
            tree.remove(text("display/Themes/film.gif"));
        },
        "no-name", displayFile, guid("film"));
}

void TestMvpublishLintItems::brokenTree_data()
{
    columns();
    guidRows();
    themeRows();
}

void TestMvpublishLintItems::brokenTree()
{
    QCOMPARE(check(BrokenTree::cleanServer()), QString());
}

MV_TEST_MAIN(TestMvpublishLintItems)
#include "tst_mvpublish_lintItems.moc"
