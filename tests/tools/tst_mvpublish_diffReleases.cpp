// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>

/// Tests what mvpublish diff tells about clients that use releases.
class TestMvpublishDiffReleases : public QObject
{
    Q_OBJECT

private slots:
    void changedFilesCountForTheirItem_data();
    void changedFilesCountForTheirItem();
    void newPreviewCountsForItsItem();
    void sharedFileCountsOnceInTotal();
    void listsAreComparedIfBothTreesHaveOne();
    void otherVersionIsNotFetched();

private:
    static void build(const SmallSource& source, const char* tree, const QStringList& options = {})
    {
        QCOMPARE(
            Mvpublish::build(source.folder(), home(tree), options + QStringList{text("--force")}),
            QString());
    }
    static Outcome diff() { return Mvpublish::run({text("diff"), home("old"), home("new")}); }
    static QStringList updates(const Outcome& outcome)
    {
        return outcome.lines().filter(QRegularExpression(text("^update ")));
    }
    /// Returns the total, from which the total of the other clients follows.
    static QString total(const Outcome& outcome)
    {
        return outcome.lines().value(outcome.lines().size() - 2);
    }
    static QString label(const char* kind, const char* item)
    {
        return text("update %1 %2 My %3 ")
            .arg(text(kind), SmallSource::guid(text(item)), text(item));
    }
};

void TestMvpublishDiffReleases::changedFilesCountForTheirItem_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("isReleased");
    QTest::newRow("by the lists") << QStringList() << true;
    QTest::newRow("by the files") << QStringList{text("--no-release")} << false;
}

void TestMvpublishDiffReleases::changedFilesCountForTheirItem()
{
    QFETCH(QStringList, options);
    QFETCH(bool, isReleased);
    const SmallSource source(home("source"));
    build(source, "old", options);
    // The size stays the same, so only the content shows the change.
    const QByteArray notes = CatalogueFiles::read(source.file(text("zoom/notes/read me.txt")));
    CatalogueFiles::write(source.file(text("zoom/notes/read me.txt")),
                          QByteArray(notes.size(), '!'));
    build(source, "new", options);
    const Outcome outcome = diff();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(updates(outcome),
             QStringList{label("motion", "zoom") + text("(1 file, %1 bytes)").arg(notes.size())});
    const qint64 list = isReleased ? QFileInfo(home("new/ResourceConfig/files.txt")).size() : 0;
    QVERIFY(!isReleased || list > 1000);
    const auto shown = [](qint64 bytes) {
        return bytes < 1000 ? text("%1 bytes").arg(bytes)
                            : text("%1 kB").arg(static_cast<double>(bytes) / 1000.0, 0, 'f', 1);
    };
    QCOMPARE(total(outcome),
             text("to transfer with releases: %1 (0 bytes of catalogues, %2 of the list, %3 of new "
                  "and changed files)")
                 .arg(shown(list + notes.size()), shown(list), shown(notes.size())));
    QCOMPARE(outcome.lines().constLast(),
             text("to transfer: 0 bytes (0 bytes of catalogues, 0 bytes of new files)"));
}

void TestMvpublishDiffReleases::newPreviewCountsForItsItem()
{
    const SmallSource source(home("source"));
    build(source, "old");
    CatalogueFiles::write(source.file(text("look/new.png")), SmallSource::thumbnail());
    source.set(text("look"), "thumbnail", text("new.png"));
    build(source, "new");
    const Outcome outcome = diff();
    QCOMPARE(updates(outcome), QStringList{label("filter", "look") + text("(1 file, 1.9 kB)")});
}

void TestMvpublishDiffReleases::sharedFileCountsOnceInTotal()
{
    const SmallSource source(home("source"));
    const QString song = text("shared/ThemesBgm/New.mp3");
    build(source, "old");
    CatalogueFiles::write(source.file(song), QByteArray(500, 'x'));
    for (const char* item : {"fade", "zoom"})
        source.set(text(item), "shared", QJsonArray{text("ThemesBgm/New.mp3")});
    build(source, "new");
    const Outcome outcome = diff();
    QCOMPARE(updates(outcome),
             (QStringList{label("transition", "fade") + text("(1 file, 500 bytes)"),
                          label("motion", "zoom") + text("(1 file, 500 bytes)")}));
    QVERIFY(total(outcome).endsWith(text(" 500 bytes of new and changed files)")));
}

/// Files on disk that no list names are not part of a release.
void TestMvpublishDiffReleases::listsAreComparedIfBothTreesHaveOne()
{
    const SmallSource source(home("source"));
    build(source, "old");
    build(source, "new");
    CatalogueFiles::write(home("new/config/notes.txt"), "not published");
    QCOMPARE(diff().out, QByteArray("no difference\n"));
    QVERIFY(QFile::remove(home("new/ResourceConfig/release.json")));
    QCOMPARE(diff().lines().constFirst(), text("new file config/notes.txt (13 bytes)"));
}

void TestMvpublishDiffReleases::otherVersionIsNotFetched()
{
    const SmallSource source(home("source"));
    build(source, "old");
    CatalogueFiles::write(source.file(text("zoom/notes/read me.txt")), "Other notes");
    source.set(QString(), "version", text("1.3.0"));
    build(source, "new");
    const Outcome outcome = diff();
    QCOMPARE(updates(outcome), QStringList());
    QVERIFY(total(outcome).endsWith(text(" 0 bytes of new and changed files)")));
}

MV_TEST_MAIN(TestMvpublishDiffReleases)
#include "tst_mvpublish_diffReleases.moc"
