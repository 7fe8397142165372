// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <functional>

namespace tst_editor_update {

/// Tests a new catalogue that arrives while the editor is in use.
class tst_editor_update : public QObject
{
    Q_OBJECT

private slots:
    void aDownloadGoesOnOverTheReload();
    void viewOfTheUserIsKept();
    void aPressedCheckFindsWhatIsNew();
    void aHiddenListKeepsItsPlace();
    void theOutcomeIsShownWhilePreviewsCome();
    void theUserNeedNotWaitForTheFirstCheck();
    void aCheckCanBeCancelled();
    void oneCancelEndsThePreviewsToo();
    void aFailedFileAndASlowOneAreOneCheck();
};

namespace {

QStringList manyThemes(int count)
{
    QStringList themes;
    for (int number = 10; number < 10 + count; ++number)
        themes.append(QStringLiteral("Theme %1").arg(number));
    return themes;
}

/// Holds an answer back until a condition is met.
void waitUntil(HttpExchange& exchange, const std::function<bool()>& isCase)
{
    constexpr int mostTurns = 2000;
    for (int turn = 0; !isCase() && turn < mostTurns; ++turn)
        exchange.pause(std::chrono::milliseconds(10));
}

/// Holds an answer back until the script has created a file.
void waitFor(HttpExchange& exchange, const QString& file)
{
    waitUntil(exchange, [&] { return QFile::exists(file); });
}

} // namespace

void tst_editor_update::aDownloadGoesOnOverTheReload()
{
    EditorWorld world;
    const QStringList installed{QStringLiteral("Alpha"), QStringLiteral("Beta")};
    world.install(installed);
    world.publish(installed + QStringList{QStringLiteral("Gamma")});
    // The check waits for the download, whose first attempt never ends.
    const QString begun = world.folder() + QStringLiteral("/begun");
    auto attempts = std::make_shared<std::atomic<int>>(0);
    world.setFault([attempts, begun](HttpExchange& exchange, int) {
        if (exchange.request().target.contains("alpha/theme.zip") && ++*attempts == 1) {
            exchange.stall();
            return true;
        }
        if (exchange.request().target.contains("version"))
            waitUntil(exchange, [&] { return *attempts > 0 && QFile::exists(begun); });
        return false;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click cell Alpha
        wait downloading Alpha
        touch %1
        wait reloads 1
        wait shown 4
        wait applied Alpha
        wait downloads none
    )")
                                            .arg(begun)));
    QCOMPARE(attempts->load(), 2);
    QCOMPARE(CatalogueFiles::read(world.themeFile(QStringLiteral("Alpha"))),
             QByteArray("PK\x03\x04 archive of Alpha"));
}

void tst_editor_update::viewOfTheUserIsKept()
{
    EditorWorld world;
    const QStringList themes = manyThemes(60);
    world.fillRoot(themes);
    world.publish(themes + QStringList{QStringLiteral("Themeless")});
    // The check waits until the user has looked around.
    const QString ready = world.folder() + QStringLiteral("/ready");
    world.setFault([ready](HttpExchange& exchange, int) {
        if (exchange.request().target.contains("version"))
            waitFor(exchange, ready);
        return false;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        press Ctrl+F
        type theme
        wait shown 60
        reveal "Theme 55"
        click cell "Theme 55"
        wait applied "Theme 55"
        wait current "Theme 55"
        wheel 100
        wait unseen "Theme 55"
        wheel -2
        wait unseen "Theme 10"
        wait seen "Theme 25"
        touch %1
        wait reloads 1
        wait shown 61
        wait text search theme
        wait applied "Theme 55"
        wait current "Theme 55"
        wait unseen "Theme 55"
        wait unseen "Theme 10"
        wait seen "Theme 25"
        reveal "Theme 55"
        hover cell "Theme 55"
    )")
                                            .arg(ready)));
}

void tst_editor_update::aPressedCheckFindsWhatIsNew()
{
    EditorWorld world;
    world.fillRoot({QStringLiteral("Alpha")});
    world.publish({QStringLiteral("Alpha")});
    Editor editor(world);
    const QString published = world.folder() + QStringLiteral("/published");
    const QString checked = world.folder() + QStringLiteral("/checked");
    editor.start(QStringLiteral(R"(
        wait status "Up to date"
        wait quiet
        touch %1
        awaitfile %2
        click widget check
        wait reloads 1
        wait shown 3
        press F5
        wait status "Up to date"
    )")
                     .arg(checked, published));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(checked), 20000);
    world.publish({QStringLiteral("Alpha"), QStringLiteral("Beta")});
    CatalogueFiles::write(published, QByteArray());
    VERIFY_ENDED_WELL(editor.outcome());
}

void tst_editor_update::theUserNeedNotWaitForTheFirstCheck()
{
    EditorWorld world;
    world.fillRoot({QStringLiteral("Alpha")});
    world.publish({QStringLiteral("Alpha")});
    const QString settings = world.folder() + QStringLiteral("/host.ini");
    CatalogueFiles::write(settings,
                          CatalogueFiles::read(settings) + "[network]\ncheckSpreadSeconds=86400\n");
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait phase waiting
        wait text check "Check now"
        click widget check
        wait status "Up to date"
    )")));
}

void tst_editor_update::aCheckCanBeCancelled()
{
    EditorWorld world;
    world.setFault([](HttpExchange& exchange, int) {
        exchange.stall();
        return true;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait phase catalogue
        wait text check "Cancel check"
        click widget check
        wait status "Check cancelled"
        wait text check "Check now"
    )")));
}

/// The preview run counts as part of its check, so cancelling the check must fetch no previews.
void tst_editor_update::oneCancelEndsThePreviewsToo()
{
    EditorWorld world;
    world.publish({QStringLiteral("Alpha")});
    world.fillRoot({QStringLiteral("Alpha")});
    world.removePreviews({QStringLiteral("Alpha")});
    world.writeSettings(60000);
    world.setFault([](HttpExchange& exchange, int) {
        exchange.stall();
        return true;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait phase catalogue
        click widget check
        wait quiet
        wait status "Check cancelled"
        wait text check "Check now"
    )")));
}

/// The previews arrive while the second catalogue file is still being transferred.
void tst_editor_update::aFailedFileAndASlowOneAreOneCheck()
{
    EditorWorld world;
    world.install({QStringLiteral("Alpha")});
    world.publish({QStringLiteral("Alpha"), QStringLiteral("Beta")});
    const QString goOn = world.folder() + QStringLiteral("/goOn");
    world.setFault([goOn](HttpExchange& exchange, int number) {
        // The first two ask for the release and the version file.
        if (number == 3)
            exchange.answer(HttpAnswer(500).body("out of order"));
        if (number == 4)
            waitFor(exchange, goOn);
        return number == 3;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait phase catalogue
        wait text check "Cancel check"
        touch %1
        wait quiet
        wait status "Not updated: the server reports an error; catalogue of "
        wait text check "Check now"
        click widget check
        wait status "Catalogue updated"
        wait quiet
        wait shown 3
    )")
                                            .arg(goOn)));
}

void tst_editor_update::theOutcomeIsShownWhilePreviewsCome()
{
    EditorWorld world;
    world.publish({QStringLiteral("Alpha")});
    const QString seen = world.folder() + QStringLiteral("/seen");
    world.setFault([seen](HttpExchange& exchange, int) {
        if (exchange.request().target.contains("alpha.png"))
            waitFor(exchange, seen);
        return false;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait phase previews
        wait status "Catalogue updated. Previews "
        touch %1
        wait quiet
        wait status "Catalogue updated, 2 previews fetched"
    )")
                                            .arg(seen)));
}

void tst_editor_update::aHiddenListKeepsItsPlace()
{
    EditorWorld world;
    const QStringList themes = manyThemes(60);
    world.fillRoot(themes);
    world.publish(themes + QStringList{QStringLiteral("Themeless")});
    const QString ready = world.folder() + QStringLiteral("/ready");
    world.setFault([ready](HttpExchange& exchange, int) {
        if (exchange.request().target.contains("version"))
            waitFor(exchange, ready);
        return false;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        reveal "Theme 55"
        click cell "Theme 55"
        wait applied "Theme 55"
        wheel 100
        wait unseen "Theme 55"
        click tab 1
        touch %1
        wait reloads 1
        click tab 0
        wait shown 62
        wait unseen "Theme 55"
        wait current "Theme 55"
    )")
                                            .arg(ready)));
}

MV_TEST_MAIN(tst_editor_update)

} // namespace tst_editor_update

#include "tst_editor_update.moc"
