// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/TestMain.h"

/// Tests the window with five hundred themes.
class tst_editor_many : public QObject
{
    Q_OBJECT

private slots:
    void areShownSearchedAndApplied();
};

void tst_editor_many::areShownSearchedAndApplied()
{
    QStringList themes;
    for (int number = 100; number < 600; ++number)
        themes.append(QStringLiteral("Theme %1").arg(number));
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait shown 501
        wheel -5
        wait scrolled yes
        wheel 5
        wait scrolled no
        press Ctrl+F
        type "theme 51"
        wait shown 15
        type 9
        wait shown 1
        press Down
        wait focus list0
        press End
        wait current "Theme 519"
        press Enter
        wait applied "Theme 519"
        press Ctrl+F
        press Esc
        wait shown 501
        reveal "Theme 519"
        wait applied "Theme 519"
        screenshot many
    )"),
                                        false));
}

MV_TEST_MAIN(tst_editor_many)
#include "tst_editor_many.moc"
