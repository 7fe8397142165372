// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "SourceFault.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <functional>

using namespace SourceFault;

namespace {

QJsonObject slot(const char* name, const QString& item)
{
    return {{text(name), QJsonObject{{text("item"), item}}}};
}

} // namespace

/// Tests mvpublish build with faults in the source.
class TestMvpublishFaults : public QObject
{
    Q_OBJECT

private slots:
    void sourceIsRefused_data();
    void sourceIsRefused();
    void everyFaultIsReported();
    void refusedSourceLeavesTheTree();
    void failedWriteLeavesTheTree();

private:
    static void manifestRows();
    static void themeRows();
};

void TestMvpublishFaults::manifestRows()
{
    const auto row = [](const char* name, const Change& change, const QByteArray& message) {
        QTest::newRow(name) << change << message;
    };
    const QString longName = text("\xf0\x9f\x8e\x89").repeated(201);
    row("no GUID", set("look", "guid", nothing()), "look/item.json: \"guid\" is missing");
    row("small letters", set("look", "guid", text("{abcdef01-2345-4789-ABCD-000000000001}")),
        "look/item.json: \"guid\" is not a GUID in braces and capitals");
    row("no braces", set("look", "guid", text("ABCDEF01-2345-4789-ABCD-000000000001")),
        "look/item.json: \"guid\" is not a GUID in braces and capitals");
    row("tail", set("look", "guid", text("{ABCDEF01-2345-4789-ABCD-000000000001}/../x")),
        "look/item.json: \"guid\" is not a GUID in braces and capitals");
    row("zeros", set("look", "guid", text("{00000000-0000-0000-0000-000000000000}")),
        "look/item.json: \"guid\" is not a GUID in braces and capitals");
    row("same GUID", set("paper", "guid", SmallSource::guid(text("look"))),
        "paper: has the GUID of look; take a fresh one");
    row("GUID of none", set("paper", "guid", text("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}")),
        "paper: has the GUID of the \"none\" entry; take a fresh one");
    row("no kind", set("look", "kind", nothing()), "look/item.json: \"kind\" is missing");
    row("unknown kind", set("look", "kind", text("effect")),
        "look/item.json: \"kind\" is none of filter, transition, motion, theme, bgmaterial");
    row("empty name", set("look", "name", QString()), "look/item.json: \"name\" is empty");
    row("name is a number", set("look", "name", 7), "look/item.json: \"name\" is not a text");
    row("name with a tab", set("look", "name", text("a\tb")),
        "look/item.json: a name holds characters that cannot be shown");
    row("name with half a character", set("look", "name", QString(QChar(0xd83d))),
        "look/item.json: a name holds characters that cannot be shown");
    row("name with what is no character", set("look", "name", QString(QChar(0xffff))),
        "look/item.json: a name holds characters that cannot be shown");
    row("name that could not be decoded", set("look", "name", text("a\xef\xbf\xbd")),
        "look/item.json: a name holds characters that cannot be shown");
    row("long name", set("look", "name", longName),
        "look/item.json: a name has 201 characters, and at most 200 are accepted");
    row("long name for an audience", set("look", "names", QJsonObject{{text("aff"), longName}}),
        "look/item.json: a name has 201 characters, and at most 200 are accepted");
    row("family with a control character", set("look", "family", text("a\x01")),
        "look/item.json: \"family\" holds characters that XML cannot hold");
    row("parameter with a control character",
        set("look", "parameters", QJsonObject{{text("Tone"), text("\x1b[1m")}}),
        "look/item.json: \"parameters\" holds characters that XML cannot hold");
    row("parameter's name with a control character",
        set("look", "parameters", QJsonObject{{text("\x07"), text("1")}}),
        "look/item.json: \"parameters\" holds characters that XML cannot hold");
    row(
        "definition beside parameters",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("look/own.xml")), "<a/>");
            source.set(text("look"), "definition", text("own.xml"));
            source.set(text("look"), "family", nothing());
        },
        "look/item.json: \"parameters\" means nothing beside \"definition\"");
    row("names for nobody", set("look", "names", QJsonObject{{text("fr"), text("x")}}),
        "look/item.json: \"names\": \"fr\" is none of standard, aff, aff_de, installed");
    row("title that is a text", set("look", "text", text("yes")),
        "look/item.json: \"text\" is not true or false");
    row("title of another kind", set("zoom", "text", true),
        "zoom/item.json: \"text\" means nothing here");
    row("order with a fraction", set("zoom", "order", 1.5),
        "zoom/item.json: \"order\" is not a whole number");
    row("files is a text", set("zoom", "files", text("a.zip")),
        "zoom/item.json: \"files\" is not a list");
    row("files holds a number", set("zoom", "files", QJsonArray{7}),
        "zoom/item.json: \"files\" is not a list of texts");
    row("parameters hold a number", set("zoom", "parameters", QJsonObject{{text("a"), 7}}),
        "zoom/item.json: \"parameters\" is not an object of texts");
    row("unknown field", set("zoom", "thumbnial", text("x")),
        "zoom/item.json: \"thumbnial\" means nothing here");
    row("field of another kind", set("zoom", "scenes", QJsonArray()),
        "zoom/item.json: \"scenes\" means nothing here");
    row(
        "no JSON",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("zoom/item.json")),
                                  "{\n  \"guid\": \"\",\n  x\n}");
        },
        "zoom/item.json:3: unterminated object");
    row(
        "a list",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("zoom/item.json")), "[]");
        },
        "zoom/item.json: is not a JSON object");
    row(
        "no manifest of the source",
        [](const SmallSource& source) { QFile::remove(source.file(text("catalogue.json"))); },
        "catalogue.json: is missing; write the version of the installed catalogue into "
            + home("source/catalogue.json").toUtf8() + ", for example {\"version\": \"1.2.0\"}");
    if (UnusualFiles::hasFileLinks)
        row(
            "manifest of the source is a link to nothing",
            [](const SmallSource& source) {
                QFile::remove(source.file(text("catalogue.json")));
                UnusualFiles::link(home("nowhere"), source.file(text("catalogue.json")));
            },
            "catalogue.json: cannot be read");
    row("no version", set("", "version", nothing()), "catalogue.json: \"version\" is missing");
    row("version with a letter", set("", "version", text("1.2b")),
        "catalogue.json: \"version\" is not numbers with dots, as in 1.0.2");
    row("name of none with a tab", set("", "noneNames", QJsonObject{{text("aff"), text("a\tb")}}),
        "catalogue.json: \"noneNames\": a name holds characters that cannot be shown");
    row("long name of none", set("", "noneNames", QJsonObject{{text("aff"), longName}}),
        "catalogue.json: \"noneNames\": a name has 201 characters, and at most 200 are accepted");
    row("name of none for nobody", set("", "noneNames", QJsonObject{{text("de"), text("Ohne")}}),
        "catalogue.json: \"noneNames\": \"de\" is none of standard, aff, aff_de, installed");
    row(
        "item in the source's own folder",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("item.json")), "{}");
        },
        "item.json: an item needs its own folder below the source");
    row("unknown field of the source", set("", "edition", text("1")),
        "catalogue.json: \"edition\" means nothing here");
}

void TestMvpublishFaults::themeRows()
{
    const auto row = [](const char* name, const Change& change, const char* message) {
        QTest::newRow(name) << change << QByteArray(message);
    };
    row("no type", set("film", "type", nothing()), "film/item.json: \"type\" is missing");
    row("unknown type", set("film", "type", text("Travel")),
        "film/item.json: \"type\" is none of festivals, travel, banquets, others");
    row("scene is a text", set("film", "scenes", QJsonArray{text("x")}),
        "film/item.json: scene 1 is not an object");
    row("unknown slot", set("film", "scenes", QJsonArray{QJsonObject(), slot("Sound", text("x"))}),
        "film/item.json: scene 2: \"Sound\" means nothing here");
    row("slot without an item",
        set("film", "scenes", QJsonArray{QJsonObject{{text("Filter"), QJsonObject()}}}),
        "film/item.json: scene 1: Filter: \"item\" is missing");
    row("unknown item", set("film", "mask", slot("Filter", text("blur"))),
        "film: uses \"blur\", which is not an item");
    row("item of another kind", set("film", "scenes", QJsonArray{slot("Filter", text("zoom"))}),
        "film: uses \"zoom\" as a filter, but it is a motion");
    row("itself", set("film", "scenes", QJsonArray{slot("Filter", text("film"))}),
        "film: uses \"film\" as a filter, but it is a theme");
    const auto attribute = [](const char* name, const QString& value) {
        const QJsonObject attributes{{QString::fromUtf8(name), value}};
        return set("film", "scenes",
                   QJsonArray{QJsonObject{{text("Filter"),
                                           QJsonObject{{text("item"), text("look")},
                                                       {text("attributes"), attributes}}}}});
    };
    row("attribute with a blank", attribute("a b", text("1")),
        "film/item.json: scene 1: Filter: \"attributes\": \"a b\" is not an attribute name");
    row("attribute that begins another", attribute("a=\"\" b", text("1")),
        "film/item.json: scene 1: Filter: \"attributes\": \"a=\"\" b\" is not an attribute name");
    row("attribute with a digit in front", attribute("1a", text("1")),
        "film/item.json: scene 1: Filter: \"attributes\": \"1a\" is not an attribute name");
    row("attribute of XML's own", attribute("xmlns", text("1")),
        "film/item.json: scene 1: Filter: \"attributes\": \"xmlns\" is not an attribute name");
    row("attribute with a control character", attribute("a", text("\x02")),
        "film/item.json: scene 1: Filter: \"attributes\" holds characters that XML cannot hold");
    row(
        "definition beside scenes",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("film/own.xml")), "<Theme/>");
            source.set(text("film"), "definition", text("own.xml"));
            for (const char* key : {"start", "end", "mask"})
                source.set(text("film"), key, nothing());
        },
        "film/item.json: \"scenes\" means nothing beside \"definition\"");
    row("filter at the start", set("film", "start", slot("Filter", text("look"))),
        "film/item.json: \"start\" has slots that are never read");
    row("text in the mask", set("film", "mask", slot("Text", text("text/title"))),
        "film/item.json: \"mask\" has slots that are never read");
}

void TestMvpublishFaults::sourceIsRefused_data()
{
    addColumns();
    manifestRows();
    themeRows();
}

void TestMvpublishFaults::sourceIsRefused()
{
    verifyRefusal();
}

void TestMvpublishFaults::everyFaultIsReported()
{
    const SmallSource source(home("source"));
    source.set(text("look"), "name", nothing());
    source.set(text("zoom"), "order", text("first"));
    const Outcome outcome = Mvpublish::run({text("build"), source.folder(), home("out")});
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: look/item.json: \"name\" is missing\n"
                        "mvpublish: zoom/item.json: \"order\" is not a whole number\n"));
    QCOMPARE(outcome.status, 1);
}

void TestMvpublishFaults::refusedSourceLeavesTheTree()
{
    const SmallSource source(home("source"));
    const QString out = home("kept");
    QCOMPARE(Mvpublish::build(source.folder(), out), QString());
    const QStringList before = CatalogueFiles::filesBelow(out);
    source.set(text("look"), "name", nothing());
    QVERIFY(!Mvpublish::build(source.folder(), out).isEmpty());
    QCOMPARE(CatalogueFiles::filesBelow(out), before);
}

/// An empty archive is found when it is packed: the new tree is removed, the old one kept.
void TestMvpublishFaults::failedWriteLeavesTheTree()
{
    const SmallSource source(home("source"));
    const QString out = home("whole");
    QCOMPARE(Mvpublish::build(source.folder(), out), QString());
    const QStringList before = CatalogueFiles::filesBelow(out);
    QVERIFY(QDir(source.file(text("zoom/pack"))).removeRecursively());
    QVERIFY(QDir().mkpath(source.file(text("zoom/pack"))));
    const Outcome outcome = Mvpublish::run({text("build"), source.folder(), out});
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: ") + source.file(text("zoom/pack")) + text(" holds no files\n"));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(CatalogueFiles::filesBelow(out), before);
    QVERIFY(!QFileInfo::exists(home(".whole.new")));
}

MV_TEST_MAIN(TestMvpublishFaults)
#include "tst_mvpublish_faults.moc"
