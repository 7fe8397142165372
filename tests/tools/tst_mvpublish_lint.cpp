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
    row("malformed config catalogue", replace(configFile, text("</ResourceConfig>"), QString()),
        "malformed", configFile);
    row("malformed display catalogue", replace(displayFile, text("</BgMaterial>"), QString()),
        "malformed", displayFile);
    row("malformed version file", replace(versionFile, text("<config"), text("<config<")),
        "malformed", versionFile);
    row("entities",
        replace(configFile, text("<ResourceConfig>"),
                text("<!DOCTYPE a [<!ENTITY b \"c\">]><ResourceConfig>")),
        "malformed", configFile);
    row("missing config catalogue", remove(configFile), "missing-file", configFile);
    row("missing display catalogue", remove(displayFile), "missing-file", displayFile);
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
    row("config catalogue is a link out of the tree", linkOut(configFile), "outside", configFile);
    row("display catalogue is a link out of the tree", linkOut(displayAffFile), "outside",
        displayAffFile);
    row("version file is a link out of the tree", linkOut(versionFile), "outside", versionFile);
    row("list of definitions is a link out of the tree",
        linkOut(text("config/Motions/Motions.xml")), "outside", text("config/Motions/Motions.xml"));
    row("sum under another name", replace(versionFile, text("dislplay"), text("display")),
        "version", versionFile);
    row("version is no number", replace(versionFile, text("1.2.0"), text("1.x")), "version",
        versionFile);
    row(
        "version file too large",
        [](const BrokenTree& tree) {
            tree.write(versionFile,
                       tree.read(versionFile) + "<!--" + QByteArray(70000, 'x') + "-->");
        },
        "version", versionFile);
    row("malformed list of definitions",
        write(text("config/Motions/Motions.xml"), "<Motions><Item></Motions>"), "malformed",
        text("config/Motions/Motions.xml"));
    row("theme type", replace(displayAffFile, text("\"travel\""), text("\"Travel\"")), "theme-type",
        displayAffFile);
}

void TestMvpublishLint::editionRows()
{
    row("unknown item in one edition",
        replace(displayFile, text("</Transition>"),
                text("<Item><GUID>%1</GUID><Name>x</Name></Item></Transition>")
                    .arg(CatalogueFiles::guid(99))),
        "guid-unknown", displayFile, CatalogueFiles::guid(99));
    row(
        "item missing in an edition",
        [](const BrokenTree& tree) {
            QString content = QString::fromUtf8(tree.read(displayAffFile));
            content.remove(
                QRegularExpression(text("<Item>\\s*<GUID>\\%1</GUID>.*?</Item>").arg(guid("fade")),
                                   QRegularExpression::DotMatchesEverythingOption));
            tree.write(displayAffFile, content.toUtf8());
        },
        "editions", displayAffFile, guid("fade"));
    row("item with another thumbnail in an edition",
        replace(displayAffFile, text("look 1.png"), text("title 1.png")), "editions",
        displayAffFile, guid("look"));
    row("text in one edition only", replace(displayAffFile, text("<IsText>1"), text("<IsText>0")),
        "editions", displayAffFile, guid("title"));
    row("versions differ",
        replace(text("ResourceConfig/resource_version_aff_de_v2.xml"), text("1.2.0"),
                text("1.3.0")),
        "editions", text("ResourceConfig/resource_version_aff_de_v2.xml"));
    row("display catalogue without a version file",
        remove(text("ResourceConfig/resource_version_aff_v2.xml")), "unused-file", displayAffFile);
    row(
        "no \"none\" entry in an edition",
        [](const BrokenTree& tree) {
            QString content = QString::fromUtf8(tree.read(displayAffFile));
            const int at = content.indexOf(text("<Filter>"));
            const int end = content.indexOf(text("</Item>"), at);
            tree.write(displayAffFile,
                       (content.left(at) + text("<Filter>") + content.mid(end + 7)).toUtf8());
        },
        "none-missing", displayAffFile, noneGuid);
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
    row("missing file of a built-in item", remove(zoom + text("/pack.zip")), "missing-file",
        configFile, guid("zoom"));
    row("missing definition of a built-in item", remove(zoom + text(".xml")), "missing-file",
        configFile, guid("zoom"));
    row("missing preview", remove(text("display/Themes/film.gif")), "missing-file", displayFile,
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
        replace(configFile, text(">/Themes/") + encoded("film") + text("/pack.zip<"), text(">/<")),
        "no-name", configFile, guid("film"));
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
    const QVector<QPair<QString, int>> catalogues{{displayFile, 1}, {configFile, 3}};
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
    const QString sum = Utils::getMD5(tree.file(configFile));
    tree.replace(versionFile, sum, sum.toUpper());
    QCOMPARE(BrokenTree::findings(tree.folder()), QJsonArray());
}

void TestMvpublishLint::textNamesPlaceItemAndRemedy()
{
    const BrokenTree tree(BrokenTree::cleanServer());
    tree.remove(text("display/VideoFilters/look 1.png"));
    const Outcome outcome = Mvpublish::run({text("lint"), tree.folder()});
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err, QByteArray());
    const QByteArray before = tree.read(displayFile);
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
        if (places.constLast() == displayFile) {
            QVERIFY(finding.value(text("line")).toInt() > last);
            last = finding.value(text("line")).toInt();
        }
    }
    QCOMPARE(places,
             (QStringList{displayFile, displayFile, text("config/a.zip"), text("display/z.png")}));
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
