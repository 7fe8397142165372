#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

/// A new catalogue that arrives while the editor is used.
class tst_editor_update : public QObject
{
    Q_OBJECT

private slots:
    void aDownloadGoesOnOverTheReload();
    void whatTheUserSeesIsKept();
    void aPressedCheckFindsWhatIsNew();
    void aCheckCanBeCancelled();
};

namespace {

QStringList manyThemes(int count)
{
    QStringList themes;
    for (int number = 10; number < 10 + count; ++number)
        themes.append(QStringLiteral("Theme %1").arg(number));
    return themes;
}

} // namespace

void tst_editor_update::aDownloadGoesOnOverTheReload()
{
    EditorWorld world;
    const QStringList installed{QStringLiteral("Alpha"), QStringLiteral("Beta")};
    world.install(installed);
    world.publish(installed + QStringList{QStringLiteral("Gamma")});
    // The check waits for the download, whose first attempt never ends.
    auto attempts = std::make_shared<std::atomic<int>>(0);
    world.setFault([attempts](HttpExchange& exchange, int) {
        if (exchange.request().target.contains("alpha/theme.zip") && ++*attempts == 1) {
            exchange.stall();
            return true;
        }
        for (int turn = 0;
             exchange.request().target.contains("version") && *attempts == 0 && turn < 2000; ++turn)
            exchange.pause(std::chrono::milliseconds(10));
        return false;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        click cell Alpha
        wait downloading Alpha
        wait reloads 1
        wait shown 4
        wait applied Alpha
        wait downloads none
    )")));
    QCOMPARE(attempts->load(), 2);
    QCOMPARE(CatalogueFiles::read(world.themeFile(QStringLiteral("Alpha"))),
             QByteArray("archive of Alpha"));
}

void tst_editor_update::whatTheUserSeesIsKept()
{
    EditorWorld world;
    const QStringList themes = manyThemes(60);
    world.fillRoot(themes);
    world.publish(themes + QStringList{QStringLiteral("Themeless")});
    // The check waits until the user has looked around.
    const QString ready = world.folder() + QStringLiteral("/ready");
    world.setFault([ready](HttpExchange& exchange, int) {
        for (int turn = 0;
             exchange.request().target.contains("version") && !QFile::exists(ready) && turn < 2000;
             ++turn)
            exchange.pause(std::chrono::milliseconds(10));
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
        touch %1
        wait reloads 1
        wait shown 61
        wait text search theme
        wait applied "Theme 55"
        wait current "Theme 55"
        wait scrolled yes
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

MV_TEST_MAIN(tst_editor_update)
#include "tst_editor_update.moc"
