// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/TestMain.h"

namespace tst_editor_keyboard {

/// Tests keyboard-only operation and what screen readers are told.
class tst_editor_keyboard : public QObject
{
    Q_OBJECT

private slots:
    void tabWalksThroughTheWindow();
    void keysActOnTheCurrentCell();
    void moreOpensItsAddress();
    void widgetsHaveNames();
};

namespace {

const QStringList themes{QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")};

} // namespace

void tst_editor_keyboard::tabWalksThroughTheWindow()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait focus list0
        wait disabled favourite
        press Enter
        wait applied Alpha
        wait enabled removeItem
        press Tab
        wait focus largePreview
        press Tab
        wait focus removeItem
        press Tab
        wait focus appliedFiles
        press Tab
        wait focus fileNames
        press Tab
        wait focus favourite
        press Space
        wait favourite Alpha
        press Tab
        wait focus showFolder
        press Space
        wait opened /Themes
        press Tab
        wait focus tabs
        press Right
        wait gone themeType
        press Left
        press Tab
        wait focus check
        press Tab
        wait focus search
        press Tab
        wait focus themeType
        press Tab
        wait focus onlyFavourites
        press Tab
        wait focus onlyOnDisk
        press Tab
        wait focus onlyOutdated
        press Tab
        wait focus order
        press Tab
        wait focus list0
    )"),
                                        false));
}

void tst_editor_keyboard::keysActOnTheCurrentCell()
{
    EditorWorld world;
    world.install(themes);
    world.publish(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait focus list0
        wait current Alpha
        press Right
        wait current Beta
        press Space
        wait playing Beta
        press Space
        wait still Beta
        press Enter
        wait applied Beta
        press F
        wait favourite Beta
        press F
        wait plain Beta
        press Right
        wait current Gamma
        press Left
        press Left
        wait current Alpha
        screenshot keyboard
    )")));
}

void tst_editor_keyboard::moreOpensItsAddress()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait focus list0\n"
                                                       "press End\n"
                                                       "press Enter\n"
                                                       "wait opened http://127.0.0.1:1/more\n"),
                                        false));
}

void tst_editor_keyboard::widgetsHaveNames()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait spoken list0 Themes
        wait spoken tabs Themes
        wait spoken themeType "Theme type"
        wait spoken order "Order"
        wait spoken search "Search by name"
        wait spoken check "Check now"
        wait spoken largePreview Preview
        wait spoken favourite "Add to favorites"
        wait spoken showFolder "Show files in folder"
        click cell Alpha
        hover cell Beta
        wait spoken btnCollect_No "Add to Favorites"
        wait spoken btnMore "More>>"
    )"),
                                        false));
}

MV_TEST_MAIN(tst_editor_keyboard)

} // namespace tst_editor_keyboard

#include "tst_editor_keyboard.moc"
