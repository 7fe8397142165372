// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

/// Tests mvpublish diff.
class TestMvpublishDiff : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void sameTree();
    void renamedItem();
    void addedItem();
    void removedItem();
    void changedFile();
    void changedDefinitionNeedsAnotherGuid();
    void unfetchedFilesDoNotCount();
    void fileOfABuiltInItemIsNotFetched();
    void catalogueOfAnotherEditionDoesNotCount();
    void changeInOneEditionOnly();
    void changeInAllEditionsIsListedOnce();
    void lostEdition();
    void otherVersion_data();
    void otherVersion();
    void bytesAreThoseOfTheFiles();
    void anythingButATreeIsAFailure();

private:
    static void build(const SmallSource& source, const QStringList& options = {});
    /// Builds the old tree for the editions standard and 3, and returns its source.
    static SmallSource twoEditions();
    static QStringList twoEditionOptions()
    {
        return {text("--edition"), text("standard"), text("--edition"), text("3")};
    }
    static Outcome diff() { return Mvpublish::run({text("diff"), home("old"), home("new")}); }
    /// Returns the lines, except for those for clients that use releases.
    static QStringList withoutReleases(const Outcome& outcome);
    /// Returns the lines with this beginning, without the text in brackets.
    static QStringList lines(const Outcome& outcome, const char* beginning);
};

void TestMvpublishDiff::init()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), home("old")), QString());
}

void TestMvpublishDiff::build(const SmallSource& source, const QStringList& options)
{
    QCOMPARE(Mvpublish::build(source.folder(), home("new"), options), QString());
}

QStringList TestMvpublishDiff::lines(const Outcome& outcome, const char* beginning)
{
    QStringList result;
    const QStringList all = outcome.lines();
    for (const QString& line : all) {
        if (line.startsWith(text(beginning)))
            result.append(QString(line).remove(QRegularExpression(text(" \\([^)]*\\)$"))));
    }
    return result;
}

QStringList TestMvpublishDiff::withoutReleases(const Outcome& outcome)
{
    QStringList lines = outcome.lines();
    const QRegularExpression releases(text("^(update |to transfer with releases: )"));
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [&](const QString& line) { return line.contains(releases); }),
                lines.end());
    return lines;
}

void TestMvpublishDiff::sameTree()
{
    build(SmallSource(home("source")));
    const Outcome outcome = diff();
    QCOMPARE(outcome.out, QByteArray("no difference\n"));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvpublishDiff::renamedItem()
{
    const SmallSource source(home("source"));
    source.set(text("fade"), "name", text("Slow fade"));
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(lines(outcome, "renamed"),
             QStringList{text("renamed transition ") + SmallSource::guid(text("fade"))
                         + text(" My fade -> Slow fade")});
    QCOMPARE(lines(outcome, "catalogue"),
             (QStringList{text("catalogue ResourceConfig/resource_display.xml"),
                          text("catalogue ResourceConfig/resource_version_v3.xml")}));
    // Both lines name the item, too.
    QCOMPARE(lines(outcome, "changed"),
             QStringList{text("changed definition config/Transitions/")
                         + SmallSource::guid(text("fade")) + text(".xml")});
    QCOMPARE(lines(outcome, "unfetched"),
             QStringList{text("unfetched file config/Transitions/Transitions.xml")});
    QCOMPARE(lines(outcome, "added") + lines(outcome, "removed") + lines(outcome, "new"),
             QStringList());
}

void TestMvpublishDiff::addedItem()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::run(
                 {text("new"), text("bgmaterial"), text("Stone"), text("--in"), source.folder()})
                 .status,
             0);
    build(source);
    const Outcome outcome = diff();
    const QString guid = source.manifest(text("stone")).value(text("guid")).toString();
    QCOMPARE(lines(outcome, "added"),
             QStringList{text("added bgmaterial ") + guid + text(" Stone")});
    QCOMPARE(lines(outcome, "new file"),
             (QStringList{text("new file config/BgMaterial/") + guid + text(".xml"),
                          text("new file config/BgMaterial/") + guid + text("/background.png")}));
    QCOMPARE(lines(outcome, "unfetched file"),
             QStringList{text("unfetched file display/BgMaterial/stone.png")});
    QCOMPARE(lines(outcome, "catalogue").size(), 3);
    QCOMPARE(lines(outcome, "changed"), QStringList());
}

void TestMvpublishDiff::removedItem()
{
    const SmallSource source(home("source"));
    QVERIFY(QDir(source.file(text("paper"))).removeRecursively());
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(lines(outcome, "removed bgmaterial"),
             QStringList{text("removed bgmaterial ") + SmallSource::guid(text("paper"))
                         + text(" My paper")});
    QCOMPARE(lines(outcome, "removed file").size(), 4);
    QVERIFY(outcome.lines().constLast().endsWith(text(", 0 bytes of new files)")));
}

/// A client keeps a file once it has it: only presence is compared.
void TestMvpublishDiff::changedFile()
{
    const SmallSource source(home("source"));
    CatalogueFiles::write(source.file(text("zoom/notes/read me.txt")), "Other notes");
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(
        withoutReleases(outcome),
        (QStringList{text("changed file config/Motions/") + SmallSource::guid(text("zoom"))
                         + text("/notes/read me.txt (11 bytes)"),
                     text("note: clients that have a changed file keep the old one; publish it "
                          "under another name to replace it"),
                     text("to transfer: 0 bytes (0 bytes of catalogues, 0 bytes of new "
                          "files)")}));
}

void TestMvpublishDiff::changedDefinitionNeedsAnotherGuid()
{
    const SmallSource source(home("source"));
    source.set(text("zoom"), "family", text("zoom"));
    build(source);
    const QStringList lines = withoutReleases(diff());
    QVERIFY(lines.constFirst().startsWith(text("changed definition config/Motions/")
                                          + SmallSource::guid(text("zoom")) + text(".xml")));
    QCOMPARE(lines.mid(1),
             (QStringList{text("note: whoever has a changed definition keeps the old one; only an "
                               "item with a fresh GUID brings a new one"),
                          text("to transfer: 0 bytes (0 bytes of catalogues, 0 bytes of new "
                               "files)")}));
}

/// Covers pictures of transitions, motions and backgrounds, and animations of filters.
void TestMvpublishDiff::unfetchedFilesDoNotCount()
{
    const SmallSource source(home("source"));
    for (const char* item : {"fade", "zoom", "look"}) {
        CatalogueFiles::write(source.file(text(item) + text("/moving.gif")),
                              SmallSource::animation());
        source.set(text(item), "animation", text("moving.gif"));
    }
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(lines(outcome, "unfetched file"),
             (QStringList{text("unfetched file display/Motions/moving.gif"),
                          text("unfetched file display/Transitions/moving.gif"),
                          text("unfetched file display/VideoFilters/moving.gif")}));
    QCOMPARE(lines(outcome, "new file"), QStringList());
    QVERIFY(outcome.lines().constLast().endsWith(text(", 0 bytes of new files)")));
}

void TestMvpublishDiff::fileOfABuiltInItemIsNotFetched()
{
    const SmallSource source(home("source"));
    source.set(text("zoom"), "builtIn", true);
    QCOMPARE(Mvpublish::build(source.folder(), home("old")), QString());
    CatalogueFiles::write(source.file(text("zoom/notes/read me.txt")), "Other notes");
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(lines(outcome, "unfetched file"),
             QStringList{text("unfetched file config/Motions/") + SmallSource::guid(text("zoom"))
                         + text("/notes/read me.txt")});
    QCOMPARE(lines(outcome, "note"), QStringList());
}

void TestMvpublishDiff::catalogueOfAnotherEditionDoesNotCount()
{
    build(SmallSource(home("source")),
          {text("--edition"), text("standard"), text("--edition"), text("1")});
    QCOMPARE(diff().out, QByteArray("no difference\n"));
}

SmallSource TestMvpublishDiff::twoEditions()
{
    SmallSource source(home("source"));
    Mvpublish::build(source.folder(), home("old"), twoEditionOptions());
    return source;
}

void TestMvpublishDiff::changeInOneEditionOnly()
{
    const SmallSource source = twoEditions();
    source.set(text("paper"), "names", QJsonObject{{text("aff_de"), text("Papier")}});
    build(source, twoEditionOptions());
    const QString display = text("ResourceConfig/resource_display_aff_de.xml");
    const QStringList lines = diff().lines();
    QCOMPARE(lines.constFirst(),
             text("renamed bgmaterial %1 My paper -> Papier (%2)")
                 .arg(SmallSource::guid(text("paper")), display));
    QCOMPARE(lines.filter(QRegularExpression(text("^catalogue "))).size(), 2);
    QVERIFY(lines.at(1).startsWith(text("catalogue ") + display));
}

void TestMvpublishDiff::changeInAllEditionsIsListedOnce()
{
    const SmallSource source = twoEditions();
    source.set(text("fade"), "name", text("Slow fade"));
    build(source, twoEditionOptions());
    const Outcome outcome = diff();
    QCOMPARE(outcome.lines().filter(text("renamed")),
             QStringList{text("renamed transition ") + SmallSource::guid(text("fade"))
                         + text(" My fade -> Slow fade")});
    QCOMPARE(lines(outcome, "catalogue").size(), 4);
    // No client fetches the catalogues of two editions.
    const QString folder = home("new/ResourceConfig/resource_");
    const qint64 most = QFileInfo(folder + text("version_v3.xml")).size()
        + std::max(QFileInfo(folder + text("display.xml")).size(),
                   QFileInfo(folder + text("display_aff_de.xml")).size());
    QVERIFY(outcome.lines().constLast().startsWith(
        text("to transfer: %1 kB ").arg(static_cast<double>(most) / 1000.0, 0, 'f', 1)));
}

void TestMvpublishDiff::lostEdition()
{
    build(twoEditions());
    const Outcome outcome = diff();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(withoutReleases(outcome),
             (QStringList{text("lost edition 3, 4 (ResourceConfig/resource_version_aff_de_v2.xml)"),
                          text("note: users of a lost edition keep what they have and fetch "
                               "nothing new"),
                          text("to transfer: 0 bytes (0 bytes of catalogues, 0 bytes of new "
                               "files)")}));
}

void TestMvpublishDiff::otherVersion_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("isOther");
    QTest::newRow("higher") << text("1.3.0") << true;
    QTest::newRow("lower") << text("1.1.0") << true;
    QTest::newRow("same with other dots") << text("12.0") << false;
}

/// Clients use only catalogues of the version that they know.
void TestMvpublishDiff::otherVersion()
{
    QFETCH(QString, version);
    QFETCH(bool, isOther);
    const SmallSource source(home("source"));
    source.set(QString(), "version", version);
    CatalogueFiles::write(source.file(text("zoom/more.bin")), QByteArray(123, 'x'));
    source.set(text("zoom"), "files", QJsonValue::fromVariant(QStringList{text("more.bin")}));
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(lines(outcome, "version"),
             isOther ? QStringList{text("version ResourceConfig/resource_version_v3.xml 1.2.0 -> ")
                                   + version}
                     : QStringList());
    QCOMPARE(lines(outcome, "note: a client fetches only").size(), isOther ? 1 : 0);
    QCOMPARE(lines(outcome, "catalogue").size(), isOther ? 1 : 2);
    QVERIFY(outcome.lines().constLast().endsWith(isOther ? text(" 0 bytes of new files)")
                                                         : text(" 123 bytes of new files)")));
}

void TestMvpublishDiff::bytesAreThoseOfTheFiles()
{
    const SmallSource source(home("source"));
    CatalogueFiles::write(source.file(text("zoom/more.bin")), QByteArray(123, 'x'));
    QJsonObject zoom = source.manifest(text("zoom"));
    zoom.insert(text("files"),
                QJsonValue::fromVariant(
                    QStringList{text("pack.zip"), text("notes/read me.txt"), text("more.bin")}));
    source.setManifest(text("zoom"), zoom);
    build(source);
    const qint64 catalogues = QFileInfo(home("new/ResourceConfig/resource_version_v3.xml")).size()
        + QFileInfo(home("new/ResourceConfig/resource_config.xml")).size();
    const auto kilo = [](qint64 bytes) {
        return text("%1 kB").arg(static_cast<double>(bytes) / 1000.0, 0, 'f', 1);
    };
    QCOMPARE(diff().lines().constLast(),
             text("to transfer: %1 (%2 of catalogues, 123 bytes of new files)")
                 .arg(kilo(catalogues + 123), kilo(catalogues)));
}

void TestMvpublishDiff::anythingButATreeIsAFailure()
{
    const Outcome outcome = Mvpublish::run({text("diff"), home("old"), home("source")});
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: ") + home("source") + text(" holds no folder ResourceConfig\n"));
    QCOMPARE(outcome.status, 2);
}

MV_TEST_MAIN(TestMvpublishDiff)
#include "tst_mvpublish_diff.moc"
