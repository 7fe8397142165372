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
    void shownScriptsEndWell_data();
    void shownScriptsEndWell();
    void animationOfTheReadmeIsSmall();
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

void tst_editor_demo::shownScriptsEndWell_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("pictures");
    const auto row = [](const char* script, const char* options, const char* pictures) {
        QTest::newRow(script) << QString::fromLatin1(script)
                              << QString::fromLatin1(options).split(QLatin1Char(' '))
                              << QString::fromLatin1(pictures).split(QLatin1Char(' '));
    };
    row("demo.script", "--skin Classical", "11-applied 12-outdated 13-updated 21-about");
    row("first-start.script", "--first-start --skin Calm", "30-first-start 32-server-found");
    row("sizes.script", "--skin Simplicity", "themes failed settings");
}

/// Those that script/demo shows.
void tst_editor_demo::shownScriptsEndWell()
{
    QFETCH(QString, script);
    QFETCH(QStringList, options);
    QFETCH(QStringList, pictures);
    const EditorWorld world;
    const QString folder = world.folder() + QStringLiteral("/pictures/");
    VERIFY_ENDED_WELL(Editor(world).runDemo(
        options
        + QStringList{QStringLiteral("--script"), QStringLiteral(MV_DEMO_FOLDER "/") + script,
                      QStringLiteral("--screenshot"), folder}));
    for (const QString& name : qAsConst(pictures))
        QVERIFY2(QFile::exists(folder + name + QStringLiteral(".png")), qPrintable(name));
}

/// It is made from another of the shown scripts, and everybody who looks at the project loads it.
void tst_editor_demo::animationOfTheReadmeIsSmall()
{
    const QString project = QStringLiteral(MV_DEMO_FOLDER "/../");
    const QString animation = QStringLiteral("docs/images/editor.gif");
    QVERIFY(CatalogueFiles::read(project + QStringLiteral("README.md"))
                .contains("(" + animation.toUtf8() + ")"));
    const QByteArray content = CatalogueFiles::read(project + animation);
    QVERIFY(content.startsWith("GIF89a"));
    QVERIFY2(content.size() < 2000000, QByteArray::number(content.size()).constData());
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
    QTest::newRow("skin") << list("--skin Gloomy") << 2 << QByteArray("no such skin: Gloomy");
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
