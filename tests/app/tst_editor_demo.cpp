// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

/// Tests the demonstration, which serves the samples itself, and an installation set by an option.
class tst_editor_demo : public QObject
{
    Q_OBJECT

private slots:
    void showsTheSamplesAndLeavesNothing();
    void shownScriptEndsWell();
    void stepThatCannotSucceedFails();
    void withoutTheToolsItServesTheSamples();
    void resourcesAreThoseOfTheOption();
    void wrongArguments_data();
    void wrongArguments();
};

namespace {

QString scriptFile(const EditorWorld& world, const char* steps)
{
    QString file = world.folder() + QStringLiteral("/steps.txt");
    CatalogueFiles::write(file, steps);
    return file;
}

} // namespace

void tst_editor_demo::showsTheSamplesAndLeavesNothing()
{
    const EditorWorld world;
    const QString temporary = world.folder() + QStringLiteral("/tmp");
    QVERIFY(QDir().mkpath(temporary));
    Editor editor(world);
    editor.setVariable(QStringLiteral("TMPDIR"), temporary);
    // The catalogue saves favourites last, when the process exits.
    VERIFY_ENDED_WELL(editor.runDemo({QStringLiteral("--script"),
                                      scriptFile(world,
                                                 "pace 1\n"
                                                 "wait reloads 1\n"
                                                 "click cell \"New Year Fireworks\"\n"
                                                 "wait applied \"New Year Fireworks\"\n"
                                                 "press F\n"
                                                 "wait favourite \"New Year Fireworks\"\n")}));
    const QStringList left =
        QDir(temporary).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char(' '))));
}

/// The one that script/demo shows.
void tst_editor_demo::shownScriptEndsWell()
{
    const EditorWorld world;
    const QString pictures = world.folder() + QStringLiteral("/pictures");
    QVERIFY(QDir().mkpath(pictures));
    VERIFY_ENDED_WELL(
        Editor(world).runDemo({QStringLiteral("--script"), QStringLiteral(MV_DEMO_SCRIPT),
                               QStringLiteral("--screenshot"), pictures}));
    for (const char* name : {"/06-applied.png", "/07-outdated.png", "/08-updated.png"})
        QVERIFY2(QFile::exists(pictures + QString::fromLatin1(name)), name);
}

void tst_editor_demo::stepThatCannotSucceedFails()
{
    const EditorWorld world;
    const Outcome outcome = Editor(world).runDemo(
        {QStringLiteral("--script"), scriptFile(world, "correct \"No Such Theme\"\n")});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.out.contains("(the shop has no such theme)"), outcome.out.constData());
}

/// As in a build without them.
void tst_editor_demo::withoutTheToolsItServesTheSamples()
{
    const EditorWorld world;
    const QFileInfo original(QStringLiteral(MVEDITOR_DEMO_PROGRAM));
    const QString program = world.folder() + QStringLiteral("/bin/mveditor-demo");
    QVERIFY(QDir().mkpath(QFileInfo(program).path()));
    QVERIFY(QFile::copy(original.filePath(), program));
    // An installed program finds the samples there.
    QVERIFY(QFile::link(original.path() + QStringLiteral("/../share"),
                        world.folder() + QStringLiteral("/share")));
    QProcess process;
    process.setProcessEnvironment(Editor::environment(world));
    process.start(program,
                  {QStringLiteral("--script"),
                   scriptFile(world, "wait status \"Catalogue updated\"\nwait shown 16\n")});
    VERIFY_ENDED_WELL(ConsoleProgram::end(process));
}

void tst_editor_demo::resourcesAreThoseOfTheOption()
{
    EditorWorld world;
    world.install({QStringLiteral("Alpha")});
    const QString elsewhere = world.folder() + QStringLiteral("/elsewhere");
    QVERIFY(QDir().rename(world.folder() + QStringLiteral("/installed"), elsewhere));
    const QStringList common = world.arguments(false)
        + QStringList{QStringLiteral("--script"), scriptFile(world, "wait quiet\nwait shown 2\n"),
                      QStringLiteral("--resources"), elsewhere};
    VERIFY_ENDED_WELL(Editor(world).runDemo(common));
}

void tst_editor_demo::wrongArguments_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("text");
    const auto list = [](const char* text) {
        return QString::fromLatin1(text).split(QLatin1Char(' '));
    };
    QTest::newRow("script") << list("--script /none") << 2 << QByteArray("no such script");
    QTest::newRow("pictures") << list("--screenshot /proc/none") << 1 << QByteArray("/proc/none");
    QTest::newRow("server for the samples")
        << list("--server http://x/") << 2 << QByteArray("a server of its own");
    QTest::newRow("option of the editor") << list("--root /proc/none") << 1 << QByteArray("root");
    QTest::newRow("help") << list("--help") << 0 << QByteArray("--screenshot <DIR>");
}

void tst_editor_demo::wrongArguments()
{
    QFETCH(QStringList, options);
    QFETCH(int, status);
    QFETCH(QByteArray, text);
    const Outcome outcome = Editor(EditorWorld()).runDemo(options);
    QCOMPARE(outcome.status, status);
    QVERIFY2((outcome.out + outcome.err).contains(text), outcome.err.constData());
}

MV_TEST_MAIN(tst_editor_demo)
#include "tst_editor_demo.moc"
