// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrokenTree.h"
#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QJsonObject parsed(const Outcome& outcome)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(outcome.out, &error);
    return error.error == QJsonParseError::NoError ? document.object() : QJsonObject();
}

Outcome build(const QString& source, const QString& out, const QStringList& options = {})
{
    return Mvpublish::run(QStringList{text("build"), source, out, text("--json")} + options);
}

QJsonObject diff()
{
    return parsed(Mvpublish::run({text("diff"), home("old"), home("new"), text("--json")}));
}

} // namespace

/// Tests the JSON documents of mvpublish build and diff, and those of failures.
class TestMvpublishJson : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void buildDescribesTheTree();
    void buildOfAnInstallation();
    void buildHasItsWarnings();
    void buildOfAFaultySource();
    void buildOfATreeWithErrors();
    void failures_data();
    void failures();
    void diffOfTheSameTree();
    void diffOfItems();
    void diffOfFiles();
    void diffOfEditionsAndVersions();

private:
    SmallSource m_source{home("source")};
};

void TestMvpublishJson::init()
{
    for (const char* folder : {"old", "new", "out"})
        QDir(home(folder)).removeRecursively();
    m_source = SmallSource(home("source"));
    QCOMPARE(Mvpublish::build(m_source.folder(), home("old")), QString());
}

void TestMvpublishJson::buildDescribesTheTree()
{
    const Outcome outcome = build(m_source.folder(), home("out"), {text("--edition"), text("2")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QJsonObject told = parsed(outcome);
    const QString printed =
        QString::fromUtf8(Mvpublish::run({text("build"), m_source.folder(), home("out"),
                                          text("--edition"), text("2")})
                              .out);
    QCOMPARE(printed,
             text("%1: %2 items, %3 files, %4 kB, for 2, release %5\n")
                 .arg(told[text("tree")].toString())
                 .arg(told[text("items")].toInt())
                 .arg(told[text("files")].toInt())
                 .arg(told[text("bytes")].toDouble() / 1000, 0, 'f', 1)
                 .arg(told[text("release")].toDouble(), 0, 'f', 0));
    QCOMPARE(told[text("items")], QJsonValue(6));
    QCOMPARE(told[text("editions")].toArray(), QJsonArray{text("2")});
    QCOMPARE(told[text("isInstallation")], QJsonValue(false));
    QCOMPARE(told[text("warnings")].toArray(), QJsonArray());
}

void TestMvpublishJson::buildOfAnInstallation()
{
    const QJsonObject told = parsed(build(m_source.folder(), home("out"), {text("--installed")}));
    QCOMPARE(told[text("isInstallation")], QJsonValue(true));
    QCOMPARE(told[text("editions")].toArray(), QJsonArray());
    QCOMPARE(told[text("release")], QJsonValue());
}

void TestMvpublishJson::buildHasItsWarnings()
{
    QCOMPARE(Mvpublish::run(
                 {text("new"), text("filter"), text("Fresh"), text("--in"), m_source.folder()})
                 .status,
             0);
    const Outcome outcome = build(m_source.folder(), home("out"));
    const QString warning =
        text("fresh: fresh.png is still the placeholder that the item began with");
    QCOMPARE(parsed(outcome)[text("warnings")].toArray(), QJsonArray{warning});
    QCOMPARE(outcome.err, "mvpublish: warning: " + warning.toUtf8() + '\n');
}

void TestMvpublishJson::buildOfAFaultySource()
{
    m_source.set(text("look"), "files", QJsonArray{text("other.zip")});
    m_source.set(text("zoom"), "definition", text("no.xml"));
    const Outcome outcome = build(m_source.folder(), home("out"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: look: other.zip is missing\n"
                        "mvpublish: zoom: no.xml is missing\n"));
    QCOMPARE(parsed(outcome)[text("error")].toObject(),
             (QJsonObject{{text("status"), 1},
                          {text("text"), text("the source has 2 faults")},
                          {text("faults"),
                           QJsonArray{text("look: other.zip is missing"),
                                      text("zoom: no.xml is missing")}}}));
}

/// A definition of the publisher's own can be wrong, which only lint finds.
void TestMvpublishJson::buildOfATreeWithErrors()
{
    CatalogueFiles::write(m_source.file(text("film/own.xml")), "<broken");
    for (const char* key : {"scenes", "start", "end", "mask"})
        m_source.set(text("film"), key, QJsonValue(QJsonValue::Undefined));
    m_source.set(text("film"), "definition", text("own.xml"));
    const Outcome outcome = build(m_source.folder(), home("out"));
    QCOMPARE(outcome.status, 1);
    const QJsonObject error = parsed(outcome)[text("error")].toObject();
    QCOMPARE(error[text("status")], QJsonValue(1));
    QVERIFY(outcome.err.endsWith(error[text("text")].toString().toUtf8() + '\n'));
    QVERIFY(error[text("findings")].toArray().size() > 0);
    QCOMPARE(error[text("findings")][0][text("severity")].toString(), text("error"));
}

void TestMvpublishJson::failures_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* arguments, const char* message) {
        QTest::newRow(arguments) << text(arguments) << text(message);
    };
    row("build none out --json", "no such folder: none");
    row("--json build a", "build takes SOURCE and OUT");
    row("serve a --json", "--json does not go with serve");
    row("--json", "no command; see mvpublish --help");
}

void TestMvpublishJson::failures()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    const Outcome outcome = Mvpublish::run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(outcome.err, "mvpublish: " + message.toUtf8() + '\n');
    QCOMPARE(outcome.status, 2);
    QCOMPARE(
        parsed(outcome),
        (QJsonObject{{text("error"), QJsonObject{{text("status"), 2}, {text("text"), message}}}}));
}

void TestMvpublishJson::diffOfTheSameTree()
{
    const Outcome outcome =
        Mvpublish::run({text("diff"), home("old"), home("old"), text("--json")});
    QCOMPARE(outcome.status, 0);
    const QJsonObject told = parsed(outcome);
    QCOMPARE(told[text("isDifferent")], QJsonValue(false));
    for (const char* list :
         {"added", "removed", "renamed", "lostEditions", "versions", "catalogues", "newFiles",
          "changedFiles", "changedDefinitions", "unfetchedFiles", "removedFiles", "updates"})
        QCOMPARE(told[text(list)], QJsonValue(QJsonArray()));
    QCOMPARE(told[text("listBytes")], QJsonValue(0));
}

void TestMvpublishJson::diffOfItems()
{
    m_source.set(text("look"), "name", text("New look"));
    QVERIFY(QDir(m_source.file(text("paper"))).removeRecursively());
    QCOMPARE(
        Mvpublish::run({text("new"), text("motion"), text("Sway"), text("--in"), m_source.folder()})
            .status,
        0);
    QCOMPARE(Mvpublish::build(m_source.folder(), home("new")), QString());
    const QJsonObject told = diff();
    QCOMPARE(told[text("isDifferent")], QJsonValue(true));
    QCOMPARE(told[text("renamed")].toArray(),
             (QJsonArray{QJsonObject{{text("kind"), text("filter")},
                                     {text("guid"), SmallSource::guid(text("look"))},
                                     {text("name"), text("New look")},
                                     {text("oldName"), text("My look")},
                                     {text("catalogue"), QJsonValue()}}}));
    QCOMPARE(told[text("added")].toArray().size(), 1);
    QCOMPARE(told[text("added")][0][text("kind")].toString(), text("motion"));
    QCOMPARE(told[text("removed")][0][text("guid")].toString(), SmallSource::guid(text("paper")));
}

void TestMvpublishJson::diffOfFiles()
{
    CatalogueFiles::write(m_source.file(text("shared/ThemesBgm/Slow Song.mp3")),
                          "a song of another length");
    QCOMPARE(Mvpublish::build(m_source.folder(), home("new")), QString());
    const QJsonObject told = diff();
    QCOMPARE(told[text("changedFiles")].toArray(),
             (QJsonArray{QJsonObject{{text("name"), text("config/ThemesBgm/Slow Song.mp3")},
                                     {text("size"), 24}}}));
    QCOMPARE(told[text("changedFileBytes")], QJsonValue(24));
    QCOMPARE(told[text("newFileBytes")], QJsonValue(0));
    QVERIFY(told[text("listBytes")].toInt() > 0);
    const QJsonObject update = told[text("updates")][0].toObject();
    QCOMPARE(update,
             (QJsonObject{{text("kind"), text("theme")},
                          {text("guid"), SmallSource::guid(text("film"))},
                          {text("name"), text("My film")},
                          {text("files"), 1},
                          {text("bytes"), 24}}));
}

void TestMvpublishJson::diffOfEditionsAndVersions()
{
    const QStringList both{text("--edition"), text("standard"), text("--edition"), text("3")};
    QCOMPARE(Mvpublish::build(m_source.folder(), home("old"), both), QString());
    m_source.set(QString(), "version", text("1.3.0"));
    QCOMPARE(Mvpublish::build(m_source.folder(), home("new")), QString());
    const QJsonObject told = diff();
    QCOMPARE(told[text("lostEditions")].toArray().size(), 1);
    QCOMPARE(told[text("lostEditions")][0][text("editions")].toArray(),
             (QJsonArray{text("3"), text("4")}));
    QCOMPARE(told[text("versions")].toArray().size(), 1);
    QCOMPARE(told[text("versions")][0][text("before")].toString(), text("1.2.0"));
    QCOMPARE(told[text("versions")][0][text("after")].toString(), text("1.3.0"));
}

MV_TEST_MAIN(TestMvpublishJson)
#include "tst_mvpublish_json.moc"
