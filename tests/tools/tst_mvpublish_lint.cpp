// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrokenTree.h"
#include "host/Utils.h"
#include "Mvpublish.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Broken;

/// Tests that mvpublish lint gives one finding for every fault.
class TestMvpublishLint : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void cleanTree_data();
    void cleanTree();
    void brokenTree_data();
    void brokenTree();
    void brokenInstallation_data();
    void brokenInstallation();
    void wrongSum();
    void sumInCapitalsIsRight();
    void textNamesPlaceItemAndRemedy();
    void findingsStandInOrder();
    void jsonDescribesTheTree();
    void anythingButATreeIsAFailure();
    void nothingIsWritten();

private:
    static void catalogueRows();
    static void editionRows();
};

void TestMvpublishLint::initTestCase()
{
    QCOMPARE(BrokenTree::makeClean(), QString());
}

void TestMvpublishLint::cleanTree_data()
{
    QTest::addColumn<QString>("tree");
    QTest::newRow("server") << BrokenTree::cleanServer();
    QTest::newRow("installation") << BrokenTree::cleanInstallation();
    QTest::newRow("folder of an installation") << home("installed");
    QTest::newRow("server of the samples") << text(MV_SAMPLES "/server");
    QTest::newRow("installation of the samples") << text(MV_SAMPLES "/installed");
}

void TestMvpublishLint::cleanTree()
{
    QFETCH(QString, tree);
    const Outcome outcome = Mvpublish::run({text("lint"), tree});
    QCOMPARE(outcome.out, QByteArray("clean\n"));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvpublishLint::catalogueRows()
{
    row("malformed config catalogue", replace(config, text("</ResourceConfig>"), QString()),
        "malformed", config);
    row("malformed display catalogue", replace(display, text("</BgMaterial>"), QString()),
        "malformed", display);
    row("malformed version file", replace(version, text("<config"), text("<config<")), "malformed",
        version);
    row("entities",
        replace(config, text("<ResourceConfig>"),
                text("<!DOCTYPE a [<!ENTITY b \"c\">]><ResourceConfig>")),
        "malformed", config);
    row("missing config catalogue", remove(config), "missing-file", config);
    row("missing display catalogue", remove(display), "missing-file", display);
    row(
        "no version file",
        [](const BrokenTree& tree) {
            for (const char* name : {"v3", "aff_v2", "aff_de_v2"})
                tree.remove(text("ResourceConfig/resource_version_%1.xml").arg(text(name)));
        },
        "missing-file", text("ResourceConfig"));
    row("version file of an installation in a server's tree",
        write(text("ResourceConfig/resource_version.xml"), "<a/>"), "unused-file",
        text("ResourceConfig/resource_version.xml"));
    row("config catalogue is a link out of the tree", linkOut(config), "outside", config);
    row("display catalogue is a link out of the tree", linkOut(displayAff), "outside", displayAff);
    row("version file is a link out of the tree", linkOut(version), "outside", version);
    row("list of definitions is a link out of the tree",
        linkOut(text("config/Motions/Motions.xml")), "outside", text("config/Motions/Motions.xml"));
    row("sum under another name", replace(version, text("dislplay"), text("display")), "version",
        version);
    row("version is no number", replace(version, text("1.2.0"), text("1.x")), "version", version);
    row(
        "version file too large",
        [](const BrokenTree& tree) {
            tree.write(version, tree.read(version) + "<!--" + QByteArray(70000, 'x') + "-->");
        },
        "version", version);
    row("malformed list of definitions",
        write(text("config/Motions/Motions.xml"), "<Motions><Item></Motions>"), "malformed",
        text("config/Motions/Motions.xml"));
    row("theme type", replace(displayAff, text("\"travel\""), text("\"Travel\"")), "theme-type",
        displayAff);
}

void TestMvpublishLint::editionRows()
{
    row("unknown item in one edition",
        replace(display, text("</Transition>"),
                text("<Item><GUID>%1</GUID><Name>x</Name></Item></Transition>")
                    .arg(CatalogueFiles::guid(99))),
        "guid-unknown", display, CatalogueFiles::guid(99));
    row(
        "item missing in an edition",
        [](const BrokenTree& tree) {
            QString content = QString::fromUtf8(tree.read(displayAff));
            content.remove(
                QRegularExpression(text("<Item>\\s*<GUID>\\%1</GUID>.*?</Item>").arg(guid("fade")),
                                   QRegularExpression::DotMatchesEverythingOption));
            tree.write(displayAff, content.toUtf8());
        },
        "editions", displayAff, guid("fade"));
    row("item with another thumbnail in an edition",
        replace(displayAff, text("look 1.png"), text("title 1.png")), "editions", displayAff,
        guid("look"));
    row("text in one edition only", replace(displayAff, text("<IsText>1"), text("<IsText>0")),
        "editions", displayAff, guid("title"));
    row("versions differ",
        replace(text("ResourceConfig/resource_version_aff_de_v2.xml"), text("1.2.0"),
                text("1.3.0")),
        "editions", text("ResourceConfig/resource_version_aff_de_v2.xml"));
    row("display catalogue without a version file",
        remove(text("ResourceConfig/resource_version_aff_v2.xml")), "unused-file", displayAff);
    row(
        "no \"none\" entry in an edition",
        [](const BrokenTree& tree) {
            QString content = QString::fromUtf8(tree.read(displayAff));
            const int at = content.indexOf(text("<Filter>"));
            const int end = content.indexOf(text("</Item>"), at);
            tree.write(displayAff,
                       (content.left(at) + text("<Filter>") + content.mid(end + 7)).toUtf8());
        },
        "none-missing", displayAff, none);
}

void TestMvpublishLint::brokenTree_data()
{
    columns();
    catalogueRows();
    editionRows();
}

void TestMvpublishLint::brokenTree()
{
    if (isRowImpossible())
        QSKIP("This system has no such link or name.");
    QCOMPARE(check(BrokenTree::cleanServer()), QString());
}

void TestMvpublishLint::brokenInstallation_data()
{
    columns();
    const QString zoom = text("Motions/") + guid("zoom");
    row("missing file of a built-in item", remove(zoom + text("/pack.zip")), "missing-file", config,
        guid("zoom"));
    row("missing definition of a built-in item", remove(zoom + text(".xml")), "missing-file",
        config, guid("zoom"));
    row("missing preview", remove(text("display/Themes/film.gif")), "missing-file", display,
        guid("film"));
    row("malformed theme types", write(text("ResourceConfig/ThemeType.json"), "{\n]"), "malformed",
        text("ResourceConfig/ThemeType.json"));
    const QString types = text("ResourceConfig/ThemeType.json");
    const auto typed = [=](const char* lists) { return write(types, lists); };
    row("theme types in a list", typed("[]"), "malformed", types);
    row("themes of a type are no list", typed("{\"travel\": {}}"), "malformed", types);
    row("theme is no text", typed("{\"travel\": [1]}"), "malformed", types);
    row("unknown type of themes", typed("{\"Travel\": []}"), "theme-type", types);
    row("theme is no GUID", typed("{\"travel\": [\"film\"]}"), "guid-malformed", types,
        text("film"));
    row("theme in small letters", replace(types, guid("film"), guid("film").toLower()),
        "guid-lower-case", types, guid("film").toLower());
    row("unknown theme", replace(types, guid("film"), CatalogueFiles::guid(99)), "guid-unknown",
        types, CatalogueFiles::guid(99));
    row("type of a filter", replace(types, guid("film"), guid("look")), "guid-wrong-kind", types,
        guid("look"));
    row("theme types are a link out of the tree", linkOut(types), "outside", types);
    row("fetched file named by a slash",
        replace(config, text(">/Themes/") + encoded("film") + text("/pack.zip<"), text(">/<")),
        "no-name", config, guid("film"));
    row("unused file", write(text("Themes/old.zip"), "old"), "unused-file", text("Themes/old.zip"));
    row("version",
        replace(text("ResourceConfig/resource_version.xml"), text("dislplay"), text("display")),
        "version", text("ResourceConfig/resource_version.xml"));
}

void TestMvpublishLint::brokenInstallation()
{
    if (isRowImpossible())
        QSKIP("This system has no such link or name.");
    QCOMPARE(check(BrokenTree::cleanInstallation()), QString());
}

void TestMvpublishLint::wrongSum()
{
    const QVector<QPair<QString, int>> catalogues{{display, 1}, {config, 3}};
    for (const auto& catalogue : catalogues) {
        const BrokenTree tree(BrokenTree::cleanServer());
        tree.write(catalogue.first, tree.read(catalogue.first) + '\n');
        const QJsonArray findings = BrokenTree::findings(tree.folder());
        QCOMPARE(findings.size(), catalogue.second); // once per edition that has it
        for (const QJsonValue& finding : findings)
            QCOMPARE(finding.toObject().value(text("code")).toString(), text("checksum"));
    }
}

void TestMvpublishLint::sumInCapitalsIsRight()
{
    const BrokenTree tree(BrokenTree::cleanServer());
    const QString sum = Utils::getMD5(tree.file(config));
    tree.replace(version, sum, sum.toUpper());
    QCOMPARE(BrokenTree::findings(tree.folder()), QJsonArray());
}

void TestMvpublishLint::textNamesPlaceItemAndRemedy()
{
    const BrokenTree tree(BrokenTree::cleanServer());
    tree.remove(text("display/VideoFilters/look 1.png"));
    const Outcome outcome = Mvpublish::run({text("lint"), tree.folder()});
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err, QByteArray());
    const QByteArray before = tree.read(display);
    const int line = before.left(before.indexOf(guid("look").toUtf8())).count('\n');
    QCOMPARE(outcome.lines(),
             (QStringList{text("ResourceConfig/resource_display.xml:%1: %2 My look: "
                               "display/VideoFilters/look 1.png is missing [missing-file]")
                              .arg(line)
                              .arg(guid("look")),
                          text("    publish the file, or take its name away"), text("1 error")}));
}

void TestMvpublishLint::findingsStandInOrder()
{
    const BrokenTree tree(BrokenTree::cleanServer());
    tree.write(text("display/z.png"), "z");
    tree.write(text("config/a.zip"), "a");
    tree.remove(text("display/VideoFilters/title 1.png"));
    tree.remove(text("display/VideoFilters/look 1.png"));
    QStringList places;
    const QJsonArray findings = BrokenTree::findings(tree.folder());
    int last = 0;
    for (const QJsonValue& value : findings) {
        const QJsonObject finding = value.toObject();
        places.append(finding.value(text("file")).toString());
        if (places.constLast() == display) {
            QVERIFY(finding.value(text("line")).toInt() > last);
            last = finding.value(text("line")).toInt();
        }
    }
    QCOMPARE(places, (QStringList{display, display, text("config/a.zip"), text("display/z.png")}));
}

void TestMvpublishLint::jsonDescribesTheTree()
{
    const auto parse = [](const QString& tree) {
        const Outcome outcome = Mvpublish::run({text("lint"), tree, text("--json")});
        return QJsonDocument::fromJson(outcome.out).object();
    };
    QJsonObject expected{{text("tree"), BrokenTree::cleanServer()},
                         {text("kind"), text("server")},
                         {text("findings"), QJsonArray()}};
    QCOMPARE(parse(BrokenTree::cleanServer()), expected);
    expected.insert(text("tree"), BrokenTree::cleanInstallation());
    expected.insert(text("kind"), text("installation"));
    QCOMPARE(parse(home("installed")), expected);
}

void TestMvpublishLint::anythingButATreeIsAFailure()
{
    const Outcome missing = Mvpublish::run({text("lint"), home("nowhere")});
    QCOMPARE(QString::fromUtf8(missing.err),
             text("mvpublish: no such folder: ") + home("nowhere") + QLatin1Char('\n'));
    QCOMPARE(missing.status, 2);
    const Outcome foreign = Mvpublish::run({text("lint"), home("source")});
    QCOMPARE(QString::fromUtf8(foreign.err),
             text("mvpublish: ") + home("source") + text(" holds no folder ResourceConfig\n"));
    QCOMPARE(foreign.status, 2);
    QCOMPARE(foreign.out, QByteArray());
}

/// Lint writes neither into the tree nor into the user's folders.
void TestMvpublishLint::nothingIsWritten()
{
    const BrokenTree tree(BrokenTree::cleanServer());
    tree.remove(text("display/VideoFilters/look 1.png"));
    QVERIFY(QDir(tree.file(text("display/Transitions"))).removeRecursively());
    const QStringList before = CatalogueFiles::filesBelow(TestHome::path());
    Mvpublish::run({text("lint"), tree.folder()});
    QCOMPARE(CatalogueFiles::filesBelow(TestHome::path()), before);
    QVERIFY(!QFileInfo::exists(tree.file(text("display/Transitions"))));
}

MV_TEST_MAIN(TestMvpublishLint)
#include "tst_mvpublish_lint.moc"
