// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/TestMain.h"

namespace tst_editor_menu {

/// Tests the context menu of a cell, favorites before a download, and selection without applying.
class tst_editor_menu : public QObject
{
    Q_OBJECT

private slots:
    void menuOfAMissingItem();
    void menuOfAnItemOnDisk();
    void menuKeyOpensTheMenuOfTheCurrentCell();
    void favoriteBeforeTheDownloadAndBack();
    void aClickCanSelectOnly();
    void aboutTellsAndCopies();
    void keysAreExplained();
};

namespace {

const QStringList themes{QStringLiteral("Alpha"), QStringLiteral("Beta")};

} // namespace

void tst_editor_menu::menuOfAMissingItem()
{
    EditorWorld world;
    world.install(themes);
    world.publish(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        rightclick cell Alpha
        screenshot menu
        click action itemDownload
        wait message "1 item fetched"
        wait ready Alpha
        wait text appliedName "Nothing applied yet"
        rightclick cell Beta
        click action itemApply
        wait applied Beta
    )")));
}

void tst_editor_menu::menuOfAnItemOnDisk()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        rightclick cell Alpha
        click action itemApply
        wait applied Alpha
        wait enabled removeItem
        rightclick cell Alpha
        click action itemCopyGuid
        wait clipboard %1
        rightclick cell Alpha
        click action itemCopyName
        wait clipboard Alpha
        rightclick cell Alpha
        click action itemFolder
        wait opened /config/
        rightclick cell Beta
        click action itemDetails
        wait text appliedName Beta
        wait enabled removeItem
        rightclick cell Beta
        click action itemRemove
        click widget confirmRemoval
        wait lacking Beta
        wait text undoBarText Beta
    )")
                                            .arg(EditorWorld::themeGuid(QStringLiteral("Alpha"))),
                                        false));
}

void tst_editor_menu::menuKeyOpensTheMenuOfTheCurrentCell()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait focus list0
        press Home
        press Right
        press Menu
        click action itemDetails
        wait text appliedName Beta
    )"),
                                        false));
}

void tst_editor_menu::favoriteBeforeTheDownloadAndBack()
{
    EditorWorld world;
    world.install(themes);
    world.publish(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait focus list0
        press Home
        press F
        wait favourite Alpha
        wait lacking Alpha
        click widget onlyFavourites
        wait shown 1
        click widget onlyFavourites
        rightclick cell Alpha
        click action itemFavourite
        wait plain Alpha
        wait text favouriteBarText "“Alpha” was removed from the favorites"
        click widget favouriteBarAction
        wait favourite Alpha
        wait gone favouriteBarText
        click tab 2
        rightclick cell Blue
        click action itemFavourite
        wait favourite Blue
    )")));
}

void tst_editor_menu::aClickCanSelectOnly()
{
    EditorWorld world;
    world.install(themes);
    world.publish(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click action file
        click action preferences
        click widget settingsClick
        press Down
        press Enter
        click widget settingsOk
        wait gone settingsOk
        click cell Beta
        wait text appliedName Beta
        wait lacking Beta
        press Left
        wait text appliedName Alpha
        screenshot selected
        click widget applyShown
        wait applied Alpha
        wait gone applyShown
        wait lacking Beta
    )")));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Beta
        wait text appliedName Beta
        wait lacking Beta
        press Enter
        wait applied Beta
    )")));
}

void tst_editor_menu::aboutTellsAndCopies()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click action help
        click action aboutProgram
        wait text aboutVersion "mveditor "
        wait text aboutLicence "MIT, © The mvresource contributors"
        wait text aboutFolders %1
        screenshot about
        click widget aboutCopy
        wait clipboard "downloads: %1, writable"
        wait clipboard "themes: 2"
        click widget aboutClose
        wait gone aboutVersion
    )")
                                            .arg(world.root()),
                                        false));
}

void tst_editor_menu::keysAreExplained()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("press F1\n"
                                                       "wait text qt_msgbox_label \"favorites\"\n"
                                                       "screenshot keys\n"
                                                       "press Esc\n"
                                                       "wait gone qt_msgbox_label\n"),
                                        false));
}

MV_TEST_MAIN(tst_editor_menu)

} // namespace tst_editor_menu

#include "tst_editor_menu.moc"
