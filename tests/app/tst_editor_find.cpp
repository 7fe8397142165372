// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

namespace tst_editor_find {

/// Tests that users find items: search, filters, order, and the way out of an empty list.
class tst_editor_find : public QObject
{
    Q_OBJECT

private slots:
    void wordsInAnyOrder_data();
    void wordsInAnyOrder();
    void filtersApplyOnEveryTab();
    void onlyUpdates();
    void emptyListNamesTheFilterInTheWay_data();
    void emptyListNamesTheFilterInTheWay();
    void severalFiltersInTheWayAreRemovedAtOnce();
    void orderStaysAndFavoritesFilterDoesNot();
    void newItemsComeFirst();
};

namespace {

const QStringList themes{QStringLiteral("Zoo of Spring"), QStringLiteral("Alpha Spring"),
                         QStringLiteral("Beta")};

} // namespace

void tst_editor_find::wordsInAnyOrder_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one word") << QStringLiteral("alpha");
    QTest::newRow("other order") << QStringLiteral("spring alpha");
    QTest::newRow("parts of words and another case") << QStringLiteral("PRIN lph");
}

void tst_editor_find::wordsInAnyOrder()
{
    QFETCH(QString, text);
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("press Ctrl+F\n"
                                                       "wait focus search\n"
                                                       "type \"%1\"\n"
                                                       "wait shown 1\n"
                                                       "press Down\n"
                                                       "wait focus list0\n"
                                                       "click cell \"Alpha Spring\"\n"
                                                       "wait applied \"Alpha Spring\"\n")
                                            .arg(text),
                                        false));
}

void tst_editor_find::filtersApplyOnEveryTab()
{
    EditorWorld world;
    world.install(themes);
    world.publish(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Beta
        wait applied Beta
        wait ready Beta
        click widget onlyOnDisk
        wait shown 1
        click cell Beta
        click tab 1
        wait shown 1
        click cell Sepia
        wait applied Sepia
        click widget favourite
        click widget onlyFavourites
        wait shown 1
        click tab 2
        wait shown 0
        wait text whyEmptyAction "filters"
        click tab 0
        wait shown 0
        click widget onlyFavourites
        wait shown 1
        screenshot filters
    )")));
}

void tst_editor_find::onlyUpdates()
{
    EditorWorld world;
    world.fillRoot(themes);
    world.publishRelease(
        themes, 10,
        {{QStringLiteral("config/Themes/beta/theme.zip"), "PK\x03\x04 a changed archive"}});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait text updatesAvailable "1 update available"
        click widget onlyOutdated
        wait shown 1
        click cell Beta
        wait applied Beta
        press Ctrl+U
        wait message "1 item fetched"
        wait shown 0
        wait text whyEmpty "No updates are available"
        click widget whyEmptyAction
        wait shown 4
    )")));
}

void tst_editor_find::emptyListNamesTheFilterInTheWay_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("why");
    QTest::newRow("search") << QStringLiteral("press Ctrl+F\nwait focus search\ntype xyz\n")
                            << QStringLiteral("No name contains “xyz”");
    QTest::newRow("favorites") << QStringLiteral("click widget onlyFavourites\n")
                               << QStringLiteral("No favorites yet");
    QTest::newRow("updates") << QStringLiteral("click widget onlyOutdated\n")
                             << QStringLiteral("No updates are available");
    QTest::newRow("type") << QStringLiteral("click widget themeType\npress End\npress Enter\n")
                          << QStringLiteral("No themes of this type");
}

void tst_editor_find::emptyListNamesTheFilterInTheWay()
{
    QFETCH(QString, steps);
    QFETCH(QString, why);
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(steps
                                            + QStringLiteral("wait text whyEmpty \"%1\"\n"
                                                             "screenshot empty\n"
                                                             "click widget whyEmptyAction\n"
                                                             "wait gone whyEmpty\n"
                                                             "wait shown 4\n"
                                                             "wait focus list0\n")
                                                  .arg(why),
                                        false));
}

void tst_editor_find::severalFiltersInTheWayAreRemovedAtOnce()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click widget onlyFavourites
        click widget onlyOutdated
        wait text whyEmpty "Nothing passes all of these filters"
        click widget whyEmptyAction
        wait shown 4
    )"),
                                        false));
}

void tst_editor_find::orderStaysAndFavoritesFilterDoesNot()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click widget order
        press Down
        press Enter
        press Ctrl+F
        press Down
        press Home
        wait current "Alpha Spring"
        press End
        press Left
        wait current "Zoo of Spring"
        click widget onlyFavourites
        wait shown 0
    )"),
                                        false));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait shown 4
        wait focus list0
        press End
        press Left
        wait current "Zoo of Spring"
    )"),
                                        false));
}

void tst_editor_find::newItemsComeFirst()
{
    EditorWorld world;
    world.fillRoot(themes);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait shown 4\n"), false));
    world.publish(themes + QStringList{QStringLiteral("Latest")});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait shown 5
        wait quiet
        click widget order
        press Down
        press Down
        press Enter
        press Ctrl+F
        press Down
        press Home
        wait current Latest
    )")));
}

MV_TEST_MAIN(tst_editor_find)

} // namespace tst_editor_find

#include "tst_editor_find.moc"
