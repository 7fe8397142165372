// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "Editor.h"
#include "EditorWorld.h"
#include "host/ContentDigest.h"
#include "support/CatalogueFiles.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QFile>

/// Tests opening project files: what is said of their items, and fetching what they lack.
class tst_editor_project : public QObject
{
    Q_OBJECT

private slots:
    void missingItemsAreFetchedTogether();
    void downloadCanBeCancelled();
    void catalogueThatArrivesIsTakenIntoAccount();
    void projectIsChosenFromTheMenu();
    void damagedProjectIsExplained();
    void helpNamesTheOperand();

private:
    static QString write(const EditorWorld& world, const QByteArray& text);
    static QByteArray project();
    static Outcome open(const EditorWorld& world, const QByteArray& steps, const QString& file);
};

namespace {

const QString alphaTheme = QStringLiteral("Alpha");
const QString betaTheme = QStringLiteral("Beta");
const QString gammaTheme = QStringLiteral("Gamma");

} // namespace

QString tst_editor_project::write(const EditorWorld& world, const QByteArray& text)
{
    QString file = world.folder() + QStringLiteral("/trip.json");
    CatalogueFiles::write(file, text);
    return file;
}

/// Returns a project with Alpha, Beta, Gamma and an item that no catalogue has.
QByteArray tst_editor_project::project()
{
    QByteArray text = "{\"items\": [";
    for (const QString& theme : {alphaTheme, betaTheme, gammaTheme})
        text += "\"" + EditorWorld::themeGuid(theme).toUtf8() + "\", ";
    return text + R"({"guid": "{00000000-0000-4000-8000-00000000ffff}", "name": "Old one"}]})";
}

/// Runs a script on the editor that opens a project by its command line.
Outcome tst_editor_project::open(const EditorWorld& world, const QByteArray& steps,
                                 const QString& file)
{
    const QString script = world.folder() + QStringLiteral("/steps.txt");
    CatalogueFiles::write(script, "pace 1\n" + steps);
    return Editor(world).runDemo(world.arguments()
                                 + QStringList{QStringLiteral("--script"), script,
                                               QStringLiteral("--screenshot"),
                                               world.folder() + QStringLiteral("/pictures"), file});
}

void tst_editor_project::missingItemsAreFetchedTogether()
{
    EditorWorld world;
    world.fillRoot({alphaTheme});
    world.publishRelease({alphaTheme, betaTheme, gammaTheme}, 10);
    const QString file = write(world, project());
    VERIFY_ENDED_WELL(open(world, R"(
        wait quiet
        wait text projectSummary "Ready: 1 of 4 items"
        wait text projectSummary "Missing: 2; to be fetched: at least "
        wait text projectSummary "Not in the catalogue: 1"
        wait row projectItems Alpha
        wait row projectItems "Old one"
        wait row projectItems "not in the catalogue"
        screenshot project
        click widget projectDownload
        wait gone projectSummary
        wait message "2 items fetched"
        wait ready Beta
        wait ready Gamma
    )",
                           file));
    QVERIFY(QFile::exists(world.themeFile(betaTheme)));
    QVERIFY(QFile::exists(world.themeFile(gammaTheme)));
    VERIFY_ENDED_WELL(open(world, R"(
        wait quiet
        wait text projectSummary "Ready: 3 of 4 items"
        wait spoken projectItems "Items of the project"
        click widget projectClose
        wait gone projectSummary
    )",
                           file));
}

void tst_editor_project::downloadCanBeCancelled()
{
    EditorWorld world;
    world.publishRelease({alphaTheme, betaTheme, gammaTheme}, 10);
    const QByteArray archive =
        ReleasePaths::content(ContentDigest::ofBytes("PK\x03\x04 archive of Beta")).toUtf8();
    world.setFault([archive](HttpExchange& exchange, int) {
        if (!exchange.request().target.endsWith(archive))
            return false;
        exchange.stall();
        return true;
    });
    VERIFY_ENDED_WELL(open(world, R"(
        wait quiet
        wait text projectSummary "Missing: 3"
        click widget projectDownload
        wait text updateBarText "Fetching 3 items: "
        click widget updateBarAction
        wait gone updateBarText
        wait lacking Alpha
        wait lacking Beta
    )",
                           write(world, project())));
    QVERIFY(!QFile::exists(world.themeFile(alphaTheme)));
}

void tst_editor_project::catalogueThatArrivesIsTakenIntoAccount()
{
    EditorWorld world;
    world.fillRoot({alphaTheme});
    world.publishRelease({alphaTheme, betaTheme, gammaTheme}, 10);
    const QString seen = world.folder() + QStringLiteral("/seen");
    world.setFault([seen](HttpExchange& exchange, int number) {
        constexpr int mostTurns = 2000;
        for (int turn = 0; number == 1 && !QFile::exists(seen) && turn < mostTurns; ++turn)
            exchange.pause(std::chrono::milliseconds(10));
        return false;
    });
    VERIFY_ENDED_WELL(open(world,
                           QStringLiteral(R"(
        wait text projectSummary "Ready: 1 of 4 items"
        wait text projectSummary "Not in the catalogue: 3"
        touch %1
        wait text projectSummary "Not in the catalogue: 1"
        wait text projectSummary "Missing: 2"
        wait row projectItems Gamma
    )")
                               .arg(seen)
                               .toUtf8(),
                           write(world, project())));
}

void tst_editor_project::projectIsChosenFromTheMenu()
{
    EditorWorld world;
    world.fillRoot({alphaTheme});
    const QString file = write(world, "[\"" + EditorWorld::themeGuid(alphaTheme).toUtf8() + "\"]");
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click action file
        click action openProject
        wait focus fileNameEdit
        type %1
        press Enter
        wait text projectSummary "Ready: 1 of 1 items"
        press Esc
        wait gone projectSummary
    )")
                                            .arg(file),
                                        false));
}

void tst_editor_project::damagedProjectIsExplained()
{
    EditorWorld world;
    world.fillRoot({alphaTheme});
    VERIFY_ENDED_WELL(open(world, R"(
        wait text qt_msgbox_label "trip.json cannot be opened: line 2, column "
        screenshot damaged
        press Enter
        wait gone qt_msgbox_label
        wait quiet
    )",
                           write(world, "[\n\"a\" \"b\"]")));
    VERIFY_ENDED_WELL(open(world, R"(
        wait text qt_msgbox_label "none.json cannot be opened: No such file"
        press Enter
        wait gone qt_msgbox_label
    )",
                           world.folder() + QStringLiteral("/none.json")));
}

void tst_editor_project::helpNamesTheOperand()
{
    const Outcome outcome = Editor(EditorWorld()).runBare({QStringLiteral("--help")});
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.out.contains("a project file to open"), outcome.out.constData());
}

MV_TEST_MAIN(tst_editor_project)
#include "tst_editor_project.moc"
