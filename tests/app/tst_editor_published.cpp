// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "Mvpublish.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QFile>

/// Tests the whole way from a publisher's first command to the user's window.
class tst_editor_published : public QObject
{
    Q_OBJECT

private slots:
    void aNewThemeIsShownAndApplied();
    void aChangedThemeIsUpdated();

private:
    static void publish(EditorWorld& world);
};

/// Publishes the shop in the world's folder, which is created if necessary.
void tst_editor_published::publish(EditorWorld& world)
{
    const QString shop = world.folder() + QStringLiteral("/shop");
    const QString tree = world.folder() + QStringLiteral("/tree");
    if (!QFile::exists(shop)) {
        const Outcome made =
            Mvpublish::run({QStringLiteral("new"), QStringLiteral("theme"),
                            QStringLiteral("My Theme"), QStringLiteral("--in"), shop});
        QVERIFY2(made.status == 0, made.err.constData());
        CatalogueFiles::write(shop + QStringLiteral("/catalogue.json"), "{\"version\": \"1.2.0\"}");
    }
    QCOMPARE(Mvpublish::build(shop, tree), QString());
    const Outcome clean = Mvpublish::run({QStringLiteral("lint"), tree});
    QVERIFY2(clean.status == 0, clean.out.constData());

    world.publishTree(tree);
}

void tst_editor_published::aNewThemeIsShownAndApplied()
{
    EditorWorld world;
    publish(world);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait status "Catalogue updated"
        wait quiet
        click cell "My Theme"
        wait applied "My Theme"
        wait ready "My Theme"
        wait preview playing
    )")));
    QCOMPARE(CatalogueFiles::filesBelow(world.root()).filter(QStringLiteral("/theme.zip")).size(),
             1);
}

void tst_editor_published::aChangedThemeIsUpdated()
{
    EditorWorld world;
    publish(world);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait status "Catalogue updated"
        wait quiet
        click cell "My Theme"
        wait applied "My Theme"
        wait text itemState "Up to date"
    )")));
    CatalogueFiles::write(world.folder() + QStringLiteral("/shop/my-theme/theme/more.txt"), "new");
    publish(world);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        wait outdated "My Theme"
        click action resources
        click action updateAll
        wait message "1 item fetched"
        wait uptodate "My Theme"
        click cell "My Theme"
        wait text itemState "Up to date"
    )")));
    const QString archive = QStringLiteral("/theme.zip");
    const QStringList kept = CatalogueFiles::filesBelow(world.root()).filter(archive);
    const QStringList published =
        CatalogueFiles::filesBelow(world.folder() + QStringLiteral("/tree")).filter(archive);
    QCOMPARE(kept.size(), 1);
    QCOMPARE(CatalogueFiles::read(world.root() + QLatin1Char('/') + kept.first()),
             CatalogueFiles::read(world.folder() + QStringLiteral("/tree/") + published.first()));
}

MV_TEST_MAIN(tst_editor_published)
#include "tst_editor_published.moc"
