// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>

namespace tst_editor_favourites {

/// Tests favourites: set by key and by button, kept over restarts, moved between computers.
class tst_editor_favourites : public QObject
{
    Q_OBJECT

private slots:
    void surviveARestart();
    void surviveAKill();
    void aRemovedFavouriteLeavesTheirList();
    void changesAreUndone();
    void undoRestoresTheMark();
    void removalsAndFavouritesAreUndoneInTurn();
    void areThoseOfMvresInOneDataFolder();
    void travelInAFile();
    void unknownFavouritesAreExportedToo();
    void wrongFilesAreRefused_data();
    void wrongFilesAreRefused();
};

namespace {

const QStringList themes{QStringLiteral("Alpha"), QStringLiteral("Beta")};

/// Returns the script steps that choose a file in the dialog opened by a menu entry.
QString chosen(const char* entry, const QString& file)
{
    return QStringLiteral("click action file\n"
                          "click action %1\n"
                          "wait focus fileNameEdit\n"
                          "press Ctrl+A\n"
                          "type %2\n"
                          "press Enter\n")
        .arg(QLatin1String(entry), file);
}

} // namespace

void tst_editor_favourites::surviveARestart()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click cell Alpha
        wait applied Alpha
        wait text favourite "Add to favorites"
        press F
        wait favourite Alpha
        wait text favourite "Remove favorite"
        wait plain Beta
        click tab 1
        click cell Sepia
        wait applied Sepia
        click widget favourite
        wait favourite Sepia
    )"),
                                        false));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("click tab 0\n"
                                                       "wait favourite Alpha\n"
                                                       "wait plain Beta\n"
                                                       "click tab 1\n"
                                                       "wait favourite Sepia\n"),
                                        false));
}

void tst_editor_favourites::surviveAKill()
{
    EditorWorld world;
    world.fillRoot(themes);
    Editor editor(world);
    const QString marked = world.folder() + QStringLiteral("/marked");
    editor.start(QStringLiteral("click cell Beta\n"
                                "wait applied Beta\n"
                                "press F\n"
                                "wait text favourite \"Remove favorite\"\n"
                                "touch %1\n"
                                "awaitfile /none\n")
                     .arg(marked),
                 false);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(marked), 20000);
    editor.kill();
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait favourite Beta\n"), false));
}

void tst_editor_favourites::aRemovedFavouriteLeavesTheirList()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click cell Beta
        wait applied Beta
        press F
        wait favourite Beta
        click widget onlyFavourites
        wait shown 1
        click widget favourite
        wait shown 0
        wait text whyEmpty "No favorites yet"
        click widget whyEmptyAction
        wait shown 3
        wait gone whyEmpty
    )"),
                                        false));
}

/// By key, the last change first, whichever control made it.
void tst_editor_favourites::changesAreUndone()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click cell Alpha
        wait applied Alpha
        press F
        wait favourite Alpha
        press F
        wait plain Alpha
        wait text favouriteBarText Alpha
        press Ctrl+Z
        wait favourite Alpha
        wait gone favouriteBarText
        hover cell Beta
        click heart Beta
        wait favourite Beta
        click heart Beta
        wait plain Beta
        wait text favouriteBarText Beta
        click widget favouriteBarAction
        wait favourite Beta
        press Ctrl+Z
        wait plain Beta
        wait favourite Alpha
        press Ctrl+Z
        wait plain Alpha
    )"),
                                        false));
}

/// Even if the item has become a favorite again by other means. Without a window manager, a click
/// gives the keyboard back to the window after a dialog.
void tst_editor_favourites::undoRestoresTheMark()
{
    EditorWorld world;
    world.fillRoot(themes);
    const QString file = world.folder() + QStringLiteral("/alpha.json");
    CatalogueFiles::write(file,
                          R"({"format": 1, "favourites": [{"kind": "theme", "guid": ")"
                              + EditorWorld::themeGuid(themes.first()).toUtf8() + R"("}]})");
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("click cell Alpha\n"
                                                       "wait applied Alpha\n"
                                                       "press F\n"
                                                       "wait favourite Alpha\n"
                                                       "press F\n"
                                                       "wait plain Alpha\n")
                                            + chosen("import", file)
                                            + QStringLiteral("wait favourite Alpha\n"
                                                             "click cell Beta\n"
                                                             "wait applied Beta\n"
                                                             "press Ctrl+Z\n"
                                                             "wait gone favouriteBarText\n"
                                                             "wait favourite Alpha\n"
                                                             "press Ctrl+Z\n"
                                                             "wait plain Alpha\n"),
                                        false));
}

void tst_editor_favourites::removalsAndFavouritesAreUndoneInTurn()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait applied Alpha
        press F
        wait favourite Alpha
        click widget removeItem
        click widget confirmRemoval
        wait lacking Alpha
        wait text undoBarText Alpha
        click cell Beta
        wait applied Beta
        press Ctrl+Z
        wait ready Alpha
        wait gone undoBarText
        wait favourite Alpha
        press Ctrl+Z
        wait plain Alpha
    )"),
                                        false));
}

/// Whichever program marks an item, both see it.
void tst_editor_favourites::areThoseOfMvresInOneDataFolder()
{
    EditorWorld world;
    world.publish(themes);
    world.install(themes);
    const QString data = world.folder() + QStringLiteral("/shared");
    QVERIFY(QDir().mkpath(data));
    QVERIFY(QDir().rename(world.folder() + QStringLiteral("/installed"),
                          data + QStringLiteral("/resources")));
    CatalogueFiles::write(
        data + QStringLiteral("/settings.ini"),
        "[params]\nurl_themeRootDir=" + world.server().url(QStringLiteral("/")).toUtf8() + '\n');
    const auto mvres = [&](const QStringList& arguments) {
        return ConsoleProgram::run(QStringLiteral(MVRES_PROGRAM),
                                   QStringList{QStringLiteral("--data"), data} + arguments);
    };
    QCOMPARE(mvres({QStringLiteral("favourite"), EditorWorld::themeGuid(themes.at(1))}).status, 0);

    const QString script = world.folder() + QStringLiteral("/marks.script");
    CatalogueFiles::write(script,
                          "pace 1\nwait favourite Beta\nclick cell Alpha\nwait applied Alpha\n"
                          "press F\nwait favourite Alpha\n");
    VERIFY_ENDED_WELL(Editor(world).runDemo(
        {QStringLiteral("--data"), data, QStringLiteral("--settings"),
         data + QStringLiteral("/settings.ini"), QStringLiteral("--script"), script}));
    const QString listed = QString::fromUtf8(mvres({QStringLiteral("list")}).out);
    QCOMPARE(listed.count(QStringLiteral("favourite")), 2);
    QVERIFY(QFile::exists(data + QStringLiteral("/download")));
}

void tst_editor_favourites::travelInAFile()
{
    EditorWorld from;
    from.fillRoot(themes);
    const QString file = from.folder() + QStringLiteral("/carried.json");
    VERIFY_ENDED_WELL(Editor(from).run(
        QStringLiteral("click cell Beta\n"
                       "wait applied Beta\n"
                       "press F\n"
                       "wait favourite Beta\n")
            + chosen("export", file) + QStringLiteral("wait message \"1 favorite written\"\n"),
        false));
    const QByteArray written = CatalogueFiles::read(file);
    QVERIFY2(written.contains(EditorWorld::themeGuid(QStringLiteral("Beta")).toUtf8()), written);
    QVERIFY2(written.contains("\"kind\": \"theme\""), written);

    EditorWorld to;
    to.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(to).run(QStringLiteral("wait plain Beta\n") + chosen("import", file)
                                         + QStringLiteral("wait message \"1 favorite added\"\n"
                                                          "wait favourite Beta\n"
                                                          "wait plain Alpha\n"),
                                     false));
}

/// An export passes on favourites that this computer's catalogue lacks.
void tst_editor_favourites::unknownFavouritesAreExportedToo()
{
    const QByteArray other = "{ABCDEF01-2345-4678-9ABC-DEF012345678}";
    EditorWorld world;
    world.fillRoot(themes);
    const QString in = world.folder() + QStringLiteral("/in.json");
    const QString out = world.folder() + QStringLiteral("/out");
    CatalogueFiles::write(
        in, R"({"format": 1, "favourites": [{"kind": "theme", "guid": ")" + other + R"("}]})");
    VERIFY_ENDED_WELL(Editor(world).run(
        chosen("import", in)
            + QStringLiteral("wait message \"1 favorite added, 1 of them not in the catalogue\"\n")
            + chosen("export", out) + QStringLiteral("wait message \"1 favorite written\"\n"),
        false));
    const QByteArray written = CatalogueFiles::read(out + QStringLiteral(".json"));
    QVERIFY2(written.contains(other), written);
}

void tst_editor_favourites::wrongFilesAreRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("favourites");
    QTest::newRow("other JSON") << QByteArray("{\"format\": 2, \"favourites\": []}");
    QTest::newRow("no GUID") << QByteArray(
        R"({"format": 1, "favourites": [{"kind": "theme", "guid": "Beta"}]})");
    const QByteArray alpha = EditorWorld::themeGuid(QStringLiteral("Alpha")).toUtf8();
    QTest::newRow("wrong behind a right one")
        << QByteArray(R"({"format": 1, "favourites": [{"kind": "theme", "guid": ")" + alpha
                      + R"("}, {"kind": "x", "guid": ")" + alpha + R"("}]})");
    QTest::newRow("unknown kind") << QByteArray(
        R"({"format": 1, "favourites": [{"kind": "x", "guid": "{AAAAAAAA-0000-0000-0000-000000000001}"}]})");
}

void tst_editor_favourites::wrongFilesAreRefused()
{
    QFETCH(QByteArray, content);
    EditorWorld world;
    world.fillRoot(themes);
    const QString file = world.folder() + QStringLiteral("/wrong.json");
    CatalogueFiles::write(file, content);
    VERIFY_ENDED_WELL(
        Editor(world).run(chosen("import", file)
                              + QStringLiteral("wait text qt_msgbox_label wrong.json\n"
                                               "press Enter\n"
                                               "wait gone qt_msgbox_label\n"
                                               "wait plain Alpha\n"),
                          false));
}

MV_TEST_MAIN(tst_editor_favourites)

} // namespace tst_editor_favourites

#include "tst_editor_favourites.moc"
