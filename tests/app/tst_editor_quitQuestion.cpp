// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/TestMain.h"

#include <atomic>
#include <memory>

/// Tests what the editor asks before it quits.
class tst_editor_quitQuestion : public QObject
{
    Q_OBJECT

private slots:
    void runningDownloadsAreAskedAbout();
};

void tst_editor_quitQuestion::runningDownloadsAreAskedAbout()
{
    EditorWorld world;
    world.install({QStringLiteral("Alpha")});
    world.publish({QStringLiteral("Alpha"), QStringLiteral("Beta")});
    auto isReleased = std::make_shared<std::atomic<bool>>(false);
    world.setFault([isReleased](HttpExchange& exchange, int) {
        if (!exchange.request().target.contains("beta/theme.zip") || *isReleased)
            return false;
        *isReleased = true; // the second try succeeds
        exchange.stall();
        return true;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait shown 3
        wait quiet
        click cell Beta
        wait downloading Beta
        wait text downloadsBarText "Beta: Downloading 1 item"
        press Ctrl+Q
        wait text qt_msgbox_label "1 download would be cancelled"
        screenshot quit
        press Esc
        wait gone qt_msgbox_label
        wait downloading Beta
        wait text downloadsBarText "Beta: Waiting for the server…"
        screenshot waiting
        click widget downloadsBarAction
        wait downloads none
        wait gone downloadsBarText
        click cell Beta
        wait applied Beta
        press Ctrl+Q
    )")));
}

MV_TEST_MAIN(tst_editor_quitQuestion)
#include "tst_editor_quitQuestion.moc"
