#include "Editor.h"
#include "EditorWorld.h"
#include "Mvpublish.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

/// Tests the whole way from a publisher's first command to the user's window.
class tst_editor_published : public QObject
{
    Q_OBJECT

private slots:
    void aNewThemeIsShownAndApplied();
};

void tst_editor_published::aNewThemeIsShownAndApplied()
{
    EditorWorld world;
    const QString shop = world.folder() + QStringLiteral("/shop");
    const QString tree = world.folder() + QStringLiteral("/tree");
    const Outcome made = Mvpublish::run({QStringLiteral("new"), QStringLiteral("theme"),
                                         QStringLiteral("My Theme"), QStringLiteral("--in"), shop});
    QVERIFY2(made.status == 0, made.err.constData());
    CatalogueFiles::write(shop + QStringLiteral("/catalogue.json"), "{\"version\": \"1.2.0\"}");
    // The placeholder pictures are still those of "new".
    QCOMPARE(Mvpublish::build(shop, tree, {QStringLiteral("--force")}), QString());
    const Outcome clean = Mvpublish::run({QStringLiteral("lint"), tree});
    QVERIFY2(clean.status == 0, clean.out.constData());

    world.publishTree(tree);
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

MV_TEST_MAIN(tst_editor_published)
#include "tst_editor_published.moc"
