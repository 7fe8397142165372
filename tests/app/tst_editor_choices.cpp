// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QFile>

#include <atomic>
#include <memory>

namespace tst_editor_choices {

/// Tests the user's choices about downloads: which item ends up applied, and cancelling.
class tst_editor_choices : public QObject
{
    Q_OBJECT

private slots:
    void ringCancels();
    void escapeCancels();
    void lateDownloadLeavesTheChoice();
    void lateDownloadLeavesTheChoiceOverAReload();
    void onlyTheLeftButtonActs();
    void configThatCameByOtherMeans();
    void endedReaderOfItsOutputEndsNothing();
};

namespace {

const QString alpha = QStringLiteral("Alpha");
const QString beta = QStringLiteral("Beta");

/// Holds back a theme's file until a script has created another file.
EditorWorld::Fault holding(const QByteArray& target, const QString& until)
{
    return [target, until](HttpExchange& exchange, int) {
        if (exchange.request().target.contains(target)) {
            while (!QFile::exists(until) && exchange.isOpen())
                exchange.pause(std::chrono::milliseconds(10));
        }
        return false;
    };
}

EditorWorld::Fault stalling(const QByteArray& target)
{
    return [target](HttpExchange& exchange, int) {
        if (!exchange.request().target.contains(target))
            return false;
        exchange.stall();
        return true;
    };
}

void publishBoth(EditorWorld& world)
{
    world.install({alpha, beta});
    world.publish({alpha, beta});
}

} // namespace

void tst_editor_choices::ringCancels()
{
    EditorWorld world;
    publishBoth(world);
    world.setFault(stalling("alpha/theme.zip"));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait downloading Alpha
        screenshot cancel
        click ring Alpha
        wait downloads none
        wait lacking Alpha
        wait sound Alpha
        wait gone failureTitle
    )")));
}

void tst_editor_choices::escapeCancels()
{
    EditorWorld world;
    publishBoth(world);
    world.setFault(stalling("alpha/theme.zip"));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Beta
        wait applied Beta
        press Home
        wait current Alpha
        press Enter
        wait downloading Alpha
        press Esc
        wait downloads none
        wait sound Alpha
        wait applied Beta
        press Enter
        wait downloading Alpha
        rightclick cell Alpha
        click action itemCancel
        wait downloads none
        wait sound Alpha
        wait applied Beta
    )")));
}

void tst_editor_choices::lateDownloadLeavesTheChoice()
{
    EditorWorld world;
    publishBoth(world);
    const QString goOn = world.folder() + QStringLiteral("/goOn");
    world.setFault(holding("alpha/theme.zip", goOn));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait downloading Alpha
        click cell Beta
        wait applied Beta
        touch %1
        wait downloads none
        wait ready Alpha
        wait applied Beta
        click cell Alpha
        wait applied Alpha
    )")
                                            .arg(goOn)));
}

/// The list is refilled while the download runs.
void tst_editor_choices::lateDownloadLeavesTheChoiceOverAReload()
{
    EditorWorld world;
    world.install({alpha, beta});
    const QStringList more{alpha, beta, QStringLiteral("Gamma")};
    world.publish(more);
    const QString check = world.folder() + QStringLiteral("/check");
    const QString goOn = world.folder() + QStringLiteral("/goOn");
    world.setFault([first = holding("resource_config", check),
                    second = holding("alpha/theme.zip", goOn)](HttpExchange& exchange, int number) {
        return first(exchange, number) || second(exchange, number);
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait phase catalogue
        click cell Alpha
        wait downloading Alpha
        click cell Beta
        wait applied Beta
        touch %1
        wait reloads 1
        wait downloading Alpha
        wait applied Beta
        touch %2
        wait downloads none
        wait ready Alpha
        wait applied Beta
    )")
                                            .arg(check, goOn)));
}

void tst_editor_choices::onlyTheLeftButtonActs()
{
    EditorWorld world;
    publishBoth(world);
    world.setFault(stalling("alpha/theme.zip"));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Beta
        wait applied Beta
        rightclick cell Alpha
        press Esc
        middleclick cell Alpha
        hover cell Beta
        wait downloads none
        click tab 1
        rightclick cell Sepia
        press Esc
        click tab 0
        wait applied Beta
    )")));
}

/// A second editor on the same root, or a copy, has brought the theme's own files; the items that
/// the theme uses are still missing.
void tst_editor_choices::configThatCameByOtherMeans()
{
    EditorWorld fetched;
    fetched.fillRoot({alpha});
    EditorWorld world;
    publishBoth(world);
    Editor editor(world);
    const QString arrived = world.folder() + QStringLiteral("/arrived");
    editor.start(QStringLiteral(R"(
        wait quiet
        wait lacking Alpha
        awaitfile %1
        click cell Alpha
        wait applied Alpha
        wait ready Alpha
    )")
                     .arg(arrived));
    const QString config = QStringLiteral("/Themes/config/PQD/Download/Themes");
    const QStringList names = CatalogueFiles::filesBelow(fetched.root() + config);
    QVERIFY(!names.isEmpty());
    for (const QString& name : names) {
        const QString path = config + QLatin1Char('/') + name;
        CatalogueFiles::write(world.root() + path, CatalogueFiles::read(fetched.root() + path));
    }
    CatalogueFiles::write(arrived, "here");
    VERIFY_ENDED_WELL(editor.outcome());
    QCOMPARE(world.server().requestCount("/config/VideoFilters/sepia.xml"), 1);
}

void tst_editor_choices::endedReaderOfItsOutputEndsNothing()
{
    EditorWorld world;
    publishBoth(world);
    Editor editor(world);
    const QString done = world.folder() + QStringLiteral("/done");
    editor.startWithoutReader(
        QStringLiteral("say hello\nwait quiet\nsay anybody there\nclick cell Beta\n"
                       "wait applied Beta\nsay anybody still there\ntouch %1\n")
            .arg(done));
    QCOMPARE(editor.outcome().status, 0);
    QVERIFY(QFile::exists(done));
}

MV_TEST_MAIN(tst_editor_choices)

} // namespace tst_editor_choices

#include "tst_editor_choices.moc"
