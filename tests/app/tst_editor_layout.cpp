// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <atomic>
#include <memory>

namespace tst_editor_layout {

/// Tests that the window can be used at every size, and what it does with several failures.
class tst_editor_layout : public QObject
{
    Q_OBJECT

private slots:
    void detailsFoldAndStayFolded();
    void smallWindowShowsListOrDetails();
    void severalFailuresAreTriedAgainOneByOne();
};

namespace {

const QStringList themes{QStringLiteral("Alpha"), QStringLiteral("Beta")};

} // namespace

void tst_editor_layout::detailsFoldAndStayFolded()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait text appliedName "Nothing applied yet"
        press F9
        wait gone appliedName
        press Home
        press Ctrl+I
        wait text appliedName Alpha
        press F9
        wait gone appliedName
    )"),
                                        false));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait focus list0\n"
                                                       "wait gone appliedName\n"
                                                       "press F9\n"
                                                       "wait text appliedName \"Nothing\"\n"),
                                        false));
}

/// The window of a scale of 2 has half the size in its own units.
void tst_editor_layout::smallWindowShowsListOrDetails()
{
    EditorWorld world;
    world.fillRoot(themes);
    Editor editor(world);
    editor.setVariable(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2.4"));
    VERIFY_ENDED_WELL(editor.run(QStringLiteral(R"(
        wait focus list0
        wait gone appliedName
        press Home
        press Ctrl+I
        wait text appliedName Alpha
        wait gone list0
        screenshot details
        click widget backToLists
        wait focus list0
        wait gone appliedName
        press Ctrl+I
        wait text appliedName Alpha
        press Esc
        wait focus list0
        screenshot list
    )"),
                                 false));
}

void tst_editor_layout::severalFailuresAreTriedAgainOneByOne()
{
    EditorWorld world;
    world.install(themes);
    world.publish(themes);
    auto requests = std::make_shared<std::atomic<int>>(0);
    world.setFault([=](HttpExchange& exchange, int) {
        if (!exchange.request().target.contains("/theme.zip") || ++*requests > 2)
            return false;
        exchange.answer(HttpAnswer(500).body("out of order"));
        return true;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait failed Alpha
        wait text failureTitle "“Alpha” could not be downloaded: "
        click cell Beta
        wait failed Beta
        wait text failureTitle "“Beta” could not be downloaded: "
        screenshot failures
        click widget failureRetry
        wait applied Beta
        wait text failureTitle "“Alpha” could not be downloaded: "
        click widget failureRetry
        wait applied Alpha
        wait gone failureTitle
    )")));
}

MV_TEST_MAIN(tst_editor_layout)

} // namespace tst_editor_layout

#include "tst_editor_layout.moc"
