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

#include <atomic>
#include <memory>

namespace tst_editor_items {

/// Tests what the window tells of the files of items, and what it does with them: updates,
/// downloads and removals, on a server with releases.
class tst_editor_items : public QObject
{
    Q_OBJECT

private slots:
    void updateIsOfferedAndFetched();
    void damagedItemIsFetchedAgain();
    void allAreUpdatedAtOnce();
    void markAppearsWithItsCell();
    void updateCanBeCancelled();
    void failedUpdateIsTriedAgain();
    void changedThemeUsesWhatItsNewDefinitionNames();
    void sizeIsToldBeforeTheDownload();
    void menuOfACellShowsDetails();
    void removedItemCanBeBroughtBack();
    void removalIsAskedForFirst();
    void removedFilesAreGoneAfterTheNextStart();
    void serverWithoutReleaseHasNoUpdates();

private:
    /// Fills the downloads as if themes had been fetched from a server with the release 10.
    static void fill(EditorWorld& world, const QStringList& themes);
    /// Lets the editor download themes from a server with the release 10.
    static void fetch(EditorWorld& world, const QStringList& themes);
};

namespace {

const QString alpha = QStringLiteral("Alpha");
const QString beta = QStringLiteral("Beta");
const QByteArray changed = "PK\x03\x04 a changed archive";
const EditorWorld::Tree changedAlpha{{QStringLiteral("config/Themes/alpha/theme.zip"), changed}};

QByteArray contentTarget(const QByteArray& content)
{
    return ReleasePaths::content(ContentDigest::ofBytes(content)).toUtf8();
}

} // namespace

void tst_editor_items::fill(EditorWorld& world, const QStringList& themes)
{
    world.publishRelease({alpha, beta}, 10);
    world.fillRoot({alpha, beta});
    for (const QString& theme : {alpha, beta}) {
        if (!themes.contains(theme))
            QVERIFY(QFile::remove(world.themeFile(theme)));
    }
}

void tst_editor_items::fetch(EditorWorld& world, const QStringList& themes)
{
    world.publishRelease({alpha, beta}, 10);
    QString script = QStringLiteral("wait status \"Catalogue updated\"\nwait quiet\n");
    for (const QString& theme : themes)
        script += QStringLiteral("click cell %1\nwait applied %1\n").arg(theme);
    VERIFY_ENDED_WELL(Editor(world).run(script));
}

void tst_editor_items::updateIsOfferedAndFetched()
{
    EditorWorld world;
    fill(world, {alpha});
    world.publishRelease({alpha, beta}, 11, changedAlpha);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait text updatesAvailable "1 update available"
        wait outdated Alpha
        click cell Alpha
        wait applied Alpha
        wait text itemState "Update available, 22 bytes"
        screenshot update
        rightclick cell Alpha
        click action itemUpdate
        wait text itemState "Up to date"
        wait message "1 item fetched"
        wait uptodate Alpha
        wait gone updateItem
        wait applied Alpha
        wait reloads 1
    )")));
    QCOMPARE(CatalogueFiles::read(world.themeFile(alpha)), changed);
}

void tst_editor_items::damagedItemIsFetchedAgain()
{
    EditorWorld world;
    fetch(world, {alpha});
    const QByteArray published = CatalogueFiles::read(world.themeFile(alpha));
    CatalogueFiles::write(world.themeFile(alpha), "PK\x03\x04 something else");
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait applied Alpha
        wait text itemState "Damaged: fetch it again, "
        click widget updateItem
        wait text itemState "Up to date"
    )")));
    QCOMPARE(CatalogueFiles::read(world.themeFile(alpha)), published);
}

void tst_editor_items::allAreUpdatedAtOnce()
{
    EditorWorld world;
    fill(world, {alpha, beta});
    EditorWorld::Tree both = changedAlpha;
    both.insert(QStringLiteral("config/Themes/beta/theme.zip"), changed);
    world.publishRelease({alpha, beta}, 11, both);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait text updatesAvailable "2 updates available"
        click action resources
        screenshot update-all
        click action updateAll
        wait message "2 items fetched"
        wait uptodate Alpha
    )")));
    QCOMPARE(CatalogueFiles::read(world.themeFile(alpha)), changed);
    QCOMPARE(CatalogueFiles::read(world.themeFile(beta)), changed);
}

/// A list has cells for what is visible only.
void tst_editor_items::markAppearsWithItsCell()
{
    EditorWorld world;
    QStringList themes;
    for (int number = 10; number < 70; ++number)
        themes.append(QStringLiteral("Theme %1").arg(number));
    world.fillRoot(themes);
    world.publishRelease(themes, 10,
                         {{QStringLiteral("config/Themes/theme-69/theme.zip"), changed}});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait text updatesAvailable "1 update available"
        reveal "Theme 69"
        wait outdated "Theme 69"
        screenshot mark
    )")));
}

void tst_editor_items::updateCanBeCancelled()
{
    EditorWorld world;
    fill(world, {alpha});
    const QByteArray before = CatalogueFiles::read(world.themeFile(alpha));
    world.publishRelease({alpha, beta}, 11, changedAlpha);
    world.setFault([](HttpExchange& exchange, int) {
        if (!exchange.request().target.endsWith(contentTarget(changed)))
            return false;
        exchange.stall();
        return true;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait outdated Alpha
        press Ctrl+U
        wait text updateBarText "Fetching 1 item"
        wait spoken updateBarAction Cancel
        screenshot updating
        click widget updateBarAction
        wait message "Cancelled; what has arrived is kept"
        wait gone updateBarText
        wait outdated Alpha
        press Ctrl+U
        wait text updateBarText "Fetching 1 item"
        press Ctrl+U
        wait gone updateBarText
    )")));
    QCOMPARE(CatalogueFiles::read(world.themeFile(alpha)), before);
}

void tst_editor_items::failedUpdateIsTriedAgain()
{
    EditorWorld world;
    fill(world, {alpha});
    world.publishRelease({alpha, beta}, 11, changedAlpha);
    auto failed = std::make_shared<std::atomic<bool>>(false);
    world.setFault([failed](HttpExchange& exchange, int) {
        if (!exchange.request().target.endsWith(contentTarget(changed)) || failed->exchange(true))
            return false;
        exchange.answer(HttpAnswer(500).body("out of order"));
        return true;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait outdated Alpha
        press Ctrl+U
        wait text updateBarText "Not everything could be fetched: the server reports an error"
        click widget updateBarAction
        wait message "1 item fetched"
        wait gone updateBarText
        wait uptodate Alpha
    )")));
    QCOMPARE(CatalogueFiles::read(world.themeFile(alpha)), changed);
}

void tst_editor_items::changedThemeUsesWhatItsNewDefinitionNames()
{
    EditorWorld world;
    fill(world, {alpha});
    world.publishRelease(
        {alpha, beta}, 11,
        {{QStringLiteral("config/Themes/alpha.xml"), CatalogueFiles::document("<Item/>")}});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait applied Alpha
        wait row appliedFiles "Definition"
        click widget fileNames
        wait row appliedFiles sepia.xml
        wait outdated Alpha
        press Ctrl+U
        wait reloads 1
        wait norow appliedFiles sepia.xml
        wait text itemState "Up to date"
    )")));
}

void tst_editor_items::sizeIsToldBeforeTheDownload()
{
    EditorWorld world;
    world.publishRelease({alpha, beta}, 10);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait status "Catalogue updated"
        wait quiet
        press Home
        wait current Alpha
        press Ctrl+I
        wait text appliedName Alpha
        wait text itemState "Not downloaded yet, at least "
        wait lacking Alpha
        wait spoken updateItem Download
        screenshot size
        click widget updateItem
        wait ready Alpha
        wait text itemState "Up to date"
        wait text itemUse "On this computer: "
        click tab 2
        click cell Blue
        wait applied Blue
        wait text itemState "Up to date"
        wait text itemUse "On this computer: 13 bytes"
    )")));
}

void tst_editor_items::menuOfACellShowsDetails()
{
    EditorWorld world;
    fill(world, {alpha});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        rightclick cell Beta
        click action itemDetails
        wait text appliedName Beta
        wait text itemState "Not downloaded yet, "
        wait lacking Beta
        click tab 1
        click tab 0
        wait text appliedName "Nothing applied yet"
        wait gone itemState
    )")));
}

void tst_editor_items::removedItemCanBeBroughtBack()
{
    EditorWorld world;
    fill(world, {alpha, beta});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait applied Alpha
        wait text itemUse "of which other items share "
        click widget removeItem
        click widget confirmRemoval
        wait text undoBarText "Alpha"
        wait lacking Alpha
        wait ready Beta
        wait text itemState "Not downloaded yet, "
        screenshot removed
        click widget undoBarAction
        wait ready Alpha
        wait message "is back"
        wait gone undoBarText
        wait text itemState "Up to date"
    )")));
    QVERIFY(QFile::exists(world.themeFile(alpha)));
}

void tst_editor_items::removalIsAskedForFirst()
{
    EditorWorld world;
    fill(world, {alpha, beta});
    const QString bytes = QStringLiteral("This frees ");
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait applied Alpha
        click widget removeItem
        wait text qt_msgbox_label "Remove “Alpha” from this computer? %1"
        press Esc
        wait gone confirmRemoval
        wait ready Alpha
        wait text itemState "Up to date"
    )")
                                            .arg(bytes)));
    QVERIFY(QFile::exists(world.themeFile(alpha)));
}

void tst_editor_items::removedFilesAreGoneAfterTheNextStart()
{
    EditorWorld world;
    fill(world, {alpha});
    const QString remove = QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait applied Alpha
        click widget removeItem
        click widget confirmRemoval
        wait lacking Alpha
        wait text undoBarText Alpha
    )");
    VERIFY_ENDED_WELL(Editor(world).run(remove));
    const auto removed = [&world] {
        return CatalogueFiles::filesBelow(world.root()).filter(QStringLiteral("/removed/"));
    };
    QVERIFY(!removed().isEmpty());
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait quiet\nwait lacking Alpha\n")));
    QCOMPARE(removed(), QStringList());
}

void tst_editor_items::serverWithoutReleaseHasNoUpdates()
{
    EditorWorld world;
    world.fillRoot({alpha});
    world.publish({alpha});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait applied Alpha
        wait text itemState "Ready to use"
        wait text itemUse "On this computer: "
        wait gone updateItem
        wait uptodate Alpha
    )")));
}

MV_TEST_MAIN(tst_editor_items)

} // namespace tst_editor_items

#include "tst_editor_items.moc"
