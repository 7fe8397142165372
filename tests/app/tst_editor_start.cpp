// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "gui/RealInput.h"
#include "support/CatalogueFiles.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QFile>

/// Tests how the editor starts: with an empty download root, without a server, with no data at all.
class tst_editor_start : public QObject
{
    Q_OBJECT

private slots:
    void firstStartFetchesTheCatalogueAndApplies();
    void aCurrentCatalogueIsNotReadAgain();
    void offlineWorksWithWhatIsThere();
    void offlineSaysWhyADownloadFails();
    void emptyEverywhere();
    void newerServerIsReported();
    void wrongArguments_data();
    void wrongArguments();
    void itsOwnProgramEndsWithItsWindow();
};

void tst_editor_start::firstStartFetchesTheCatalogueAndApplies()
{
    EditorWorld world;
    world.install({QStringLiteral("Alpha")});
    world.publish({QStringLiteral("Alpha"), QStringLiteral("Beta")});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait reloads 1
        wait status "Catalogue updated"
        wait shown 3
        wait lacking Beta
        click cell Beta
        wait applied Beta
        wait ready Beta
        wait text appliedKind "Theme"
        click widget showFolder
        wait opened /root/Themes/config/PQD/Download/Themes
    )")));
    QCOMPARE(CatalogueFiles::read(world.themeFile(QStringLiteral("Beta"))),
             QByteArray("PK\x03\x04 archive of Beta"));
}

void tst_editor_start::aCurrentCatalogueIsNotReadAgain()
{
    EditorWorld world;
    world.fillRoot({QStringLiteral("Alpha")});
    world.publish({QStringLiteral("Alpha")});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait status \"Up to date\"\n"
                                                       "wait quiet\n"
                                                       "wait reloads 0\n")));
    // The release, which this server does not have, and the version file.
    QCOMPARE(world.server().requestCount(), 2);
}

void tst_editor_start::offlineWorksWithWhatIsThere()
{
    EditorWorld world;
    world.fillRoot({QStringLiteral("Alpha"), QStringLiteral("Beta")});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait status "Offline: the server cannot be reached; catalogue of "
        wait shown 3
        hover cell Alpha
        wait playing Alpha
        click cell Alpha
        wait applied Alpha
        click more
        wait opened http://127.0.0.1:1/more
        click tab 1
        click cell Sepia
        wait applied Sepia
        click widget largeCells
        wait applied Sepia
        click tab 2
        click cell Blue
        wait applied Blue
        click tab 0
        wait applied Alpha
    )"),
                                        false));
}

void tst_editor_start::offlineSaysWhyADownloadFails()
{
    EditorWorld world;
    world.install({QStringLiteral("Alpha")});
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait status "Offline: the server cannot be reached; catalogue of "
        click cell Alpha
        wait failed Alpha
        wait text failureTitle "“Alpha” could not be downloaded: the server cannot be reached"
        wait gone failureText
        click widget failureDetails
        wait text failureText "/config/Themes/alpha.xml"
        click widget failureCopy
        wait clipboard "http://127.0.0.1:"
        click widget failureClose
        wait gone failureTitle
    )"),
                                        false));
}

void tst_editor_start::emptyEverywhere()
{
    EditorWorld world;
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait phase idle
        wait text appliedName "Nothing applied yet"
        wait text lblMore "More>>"
        wait text whyEmpty "Nothing is here yet"
        click tab 2
        wait shown 1
        wait gone whyEmpty
    )"),
                                        false));
}

void tst_editor_start::newerServerIsReported()
{
    EditorWorld world;
    world.setFault([](HttpExchange& exchange, int) {
        if (!exchange.request().target.contains("version"))
            return false;
        exchange.answer(HttpAnswer(200).body("<ResourceVersion value=\"9.0.0\">"
                                             "<dislplay value=\"a\"/><config value=\"b\"/>"
                                             "</ResourceVersion>"));
        return true;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait status \"newer application\"\n")));
}

void tst_editor_start::wrongArguments_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("text");
    const auto list = [](const char* text) {
        return QString::fromLatin1(text).split(QLatin1Char(' '));
    };
    QTest::newRow("unknown option") << list("--nonsense") << 2 << QByteArray("nonsense");
    QTest::newRow("operands") << list("one two") << 2 << QByteArray("unexpected: two");
    QTest::newRow("server") << list("--server ftp://x/") << 2 << QByteArray("http or https");
    QTest::newRow("release") << list("--release often") << 2 << QByteArray("ignore or use");
    QTest::newRow("key") << list("--key x") << 2
                         << QByteArray("the key \"x\" is not the public key");
    QTest::newRow("resources") << list("--resources /none") << 2 << QByteArray("/none");
    for (const char* moved : {"--demo", "--script x", "--screenshot x"})
        QTest::newRow(moved) << list(moved) << 2 << QByteArray("mveditor-demo shows");
    QTest::newRow("settings") << list("--settings /none") << 1 << QByteArray("/none");
    QTest::newRow("root") << list("--root /proc/none") << 1 << QByteArray("download root");
    QTest::newRow("help") << list("--help") << 0 << QByteArray("Exit status");
}

void tst_editor_start::wrongArguments()
{
    QFETCH(QStringList, options);
    QFETCH(int, status);
    QFETCH(QByteArray, text);
    const EditorWorld world;
    const Outcome outcome = Editor(world).runBare(options);
    QCOMPARE(outcome.status, status);
    QVERIFY2((outcome.out + outcome.err).contains(text), outcome.err.constData());
}

/// All else here drives the demo's program, which shares everything but main with this one.
void tst_editor_start::itsOwnProgramEndsWithItsWindow()
{
    EditorWorld world;
    world.publish({QStringLiteral("Alpha")});
    Editor editor(world);
    editor.startBare(world.arguments());
    const QString catalogue = world.root() + QStringLiteral("/Themes/ResourceConfig");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(catalogue), 20000);
    const auto hasQuit = [&editor] {
        Editor::input().moveTo({640, 400});
        if (Editor::input().focusWindow())
            Editor::input().press(QStringLiteral("Ctrl+Q"));
        return editor.hasEnded();
    };
    QTRY_VERIFY_WITH_TIMEOUT(hasQuit(), 20000);
    VERIFY_ENDED_WELL(editor.outcome());
}

MV_TEST_MAIN(tst_editor_start)
#include "tst_editor_start.moc"
