// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ConsoleProgram.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QRegularExpression>
#include <QStandardPaths>

namespace {

/// Returns the program's file of a kind: "man/man1/%1.1".
QString page(const QString& program, const char* pattern)
{
    return text(MV_SHARE) + QLatin1Char('/') + text(pattern).arg(program);
}

QString helpOf(const QString& program, const QStringList& command = {})
{
    const Outcome outcome = ConsoleProgram::run(text(MV_BIN) + QLatin1Char('/') + program,
                                                command + QStringList{text("--help")});
    return outcome.status == 0 && outcome.err.isEmpty() ? QString::fromUtf8(outcome.out)
                                                        : QString();
}

/// Returns the long options that a help lists.
QStringList optionsIn(const QString& help)
{
    static const QRegularExpression form(text("^  (?:-\\w, )?(--[a-z-]+)"),
                                         QRegularExpression::MultilineOption);
    QStringList options;
    QRegularExpressionMatchIterator each = form.globalMatch(help);
    while (each.hasNext())
        options.append(each.next().captured(1));
    return options;
}

/// Returns the commands that a help lists.
QStringList commandsIn(const QString& help)
{
    const QString list = help.section(text("\nCommands:\n"), 1).section(text("\n\n"), 0, 0);
    static const QRegularExpression form(text("^  (\\w+)"), QRegularExpression::MultilineOption);
    QStringList commands;
    QRegularExpressionMatchIterator each = form.globalMatch(list);
    while (each.hasNext())
        commands.append(each.next().captured(1));
    return commands;
}

void addPrograms()
{
    QTest::addColumn<QString>("program");
    for (const char* program : {"mvres", "mvpublish", "mvserve", "mveditor"})
        QTest::newRow(program) << text(program);
}

/// Returns what the completion of a program offers in bash for the last of the words.
QStringList offered(const QString& program, const QStringList& words,
                    const QString& folder = QString())
{
    const QString script =
        text("source \"$1\"; name=$2; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); "
             "COMPREPLY=(); _$name; printf '%s\\n' \"${COMPREPLY[@]}\"");
    const Outcome outcome =
        ConsoleProgram::run(text("bash"),
                            QStringList{text("-c"), script, text("bash"),
                                        page(program, "bash-completion/completions/%1"), program}
                                + words,
                            folder);
    if (outcome.status != 0 || !outcome.err.isEmpty())
        qFatal("%s", outcome.err.constData());
    QStringList lines = outcome.lines();
    lines.removeAll(QString());
    return lines;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

} // namespace

/// Tests the help of commands, the manual pages and the completions of all programs.
class TestManual : public QObject
{
    Q_OBJECT

private slots:
    void helpExplainsEveryCommand_data();
    void helpExplainsEveryCommand();
    void helpFitsTheTerminal_data() { addPrograms(); }
    void helpFitsTheTerminal();
    void pageHasEveryCommandAndOption_data() { addPrograms(); }
    void pageHasEveryCommandAndOption();
    void pageIsCleanRoff_data() { addPrograms(); }
    void pageIsCleanRoff();
    void bashCompletes_data();
    void bashCompletes();
    void bashOffersTheOptionsOfEachCommand_data();
    void bashOffersTheOptionsOfEachCommand();
    void bashCompletesFiles();
    void bashKnowsTheProgram();
    void otherShellsReadTheirCompletions_data();
    void otherShellsReadTheirCompletions();
    void zshCompletes_data();
    void zshCompletes();
    void fishCompletes_data();
    void fishCompletes();
};

void TestManual::helpExplainsEveryCommand_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("command");
    for (const char* program : {"mvres", "mvpublish"}) {
        const QStringList commands = commandsIn(helpOf(text(program)));
        QVERIFY(commands.size() > 9);
        for (const QString& command : commands)
            QTest::addRow("%s %s", program, qPrintable(command)) << text(program) << command;
    }
}

void TestManual::helpExplainsEveryCommand()
{
    QFETCH(QString, program);
    QFETCH(QString, command);
    const QString help = helpOf(program, {command});
    QVERIFY2(help.startsWith(text("Usage: %1 %2 [options]").arg(program, command)),
             qPrintable(help));
    QVERIFY(help.contains(text("\nExit status:\n  0 ")));
    const QStringList options = optionsIn(help);
    const QStringList known = optionsIn(helpOf(program));
    for (const QString& option : options)
        QVERIFY2(known.contains(option), qPrintable(option));
    QVERIFY(options.contains(text("--help")));
    QVERIFY(options.size() <= known.size());
}

void TestManual::helpFitsTheTerminal()
{
    QFETCH(QString, program);
    const QString help = helpOf(program);
    QVERIFY(help.startsWith(text("Usage: ")));
    const QStringList lines = help.split(QLatin1Char('\n'));
    for (const QString& line : lines)
        QVERIFY2(line.size() <= 80, qPrintable(line));
}

void TestManual::pageHasEveryCommandAndOption()
{
    QFETCH(QString, program);
    const QString help = helpOf(program);
    QString shown = QString::fromUtf8(CatalogueFiles::read(page(program, "man/man1/%1.1")));
    shown.replace(text("\\-"), text("-"));
    const QStringList options = optionsIn(help);
    QVERIFY(options.size() >= 4);
    for (const QString& option : options)
        QVERIFY2(shown.contains(option), qPrintable(option));
    const QStringList commands = commandsIn(help);
    for (const QString& command : commands)
        QVERIFY2(shown.contains(text("\n\\fB%1\\fR").arg(command)), qPrintable(command));
    for (const char* section : {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS"})
        QVERIFY2(shown.contains(text("\n.SH ") + text(section) + QLatin1Char('\n')), section);
}

void TestManual::pageIsCleanRoff()
{
    QFETCH(QString, program);
    const Outcome outcome = ConsoleProgram::run(
        text("groff"),
        {text("-man"), text("-Tutf8"), text("-ww"), text("-z"), page(program, "man/man1/%1.1")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestManual::bashCompletes_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* program, const char* line, const char* expected) {
        QTest::addRow("%s %s", program, line) << text(program) << text(line) << text(expected);
    };
    row("mvres", "fe", "fetch");
    row("mvres", "--data x --json fe", "fetch");
    row("mvres", "--data = x fe", "fetch");
    row("mvres", "list t", "transition theme");
    row("mvres", "list theme ", "");
    row("mvres", "list --dr", "");
    row("mvres", "fetch --dr", "--dry-run");
    row("mvres", "fetch {A} --dr", "--dry-run");
    row("mvres", "--ver", "--verbose --version");
    row("mvres", "--release ", "ignore use require");
    row("mvres", "list --release = re", "require");
    row("mvres", "list --release =", "ignore use require");
    row("mvres", "--server ", "");
    row("mvpublish", "new b", "bgmaterial");
    row("mvpublish", "new theme ", "");
    row("mvpublish", "build --edition st", "standard");
    row("mvpublish", "sign --k", "--key");
    row("mvserve", "--q", "--quiet");
    row("mveditor", "--rel", "--release");
    row("mveditor", "--release u", "use");
}

void TestManual::bashCompletes()
{
    QFETCH(QString, program);
    QFETCH(QString, line);
    QFETCH(QString, expected);
    QCOMPARE(offered(program, line.split(QLatin1Char(' '))).join(QLatin1Char(' ')), expected);
}

void TestManual::bashOffersTheOptionsOfEachCommand_data()
{
    helpExplainsEveryCommand_data();
}

void TestManual::bashOffersTheOptionsOfEachCommand()
{
    QFETCH(QString, program);
    QFETCH(QString, command);
    QCOMPARE(sorted(offered(program, {command, text("--")})),
             sorted(optionsIn(helpOf(program, {command}))));
    QCOMPARE(offered(program, {command.left(2)}).contains(command), true);
}

void TestManual::bashCompletesFiles()
{
    for (const char* file : {"tree one/x", "plain/x", "plan.json"})
        CatalogueFiles::write(home(file), "x");
    const QString here = TestHome::path();
    QCOMPARE(sorted(offered(text("mvres"), {text("need"), text("pl")}, here)),
             (QStringList{text("plain"), text("plan.json")}));
    QCOMPARE(offered(text("mvpublish"), {text("lint"), text("pl")}, here),
             QStringList{text("plain")});
    QCOMPARE(offered(text("mvpublish"), {text("diff"), text("plain"), text("tree")}, here),
             QStringList{text("tree one")});
    QCOMPARE(offered(text("mvserve"), {text("tr")}, here), QStringList{text("tree one")});
    QCOMPARE(offered(text("mveditor"), {text("--settings"), text("plan")}, here),
             QStringList{text("plan.json")});
}

void TestManual::bashKnowsTheProgram()
{
    const Outcome outcome =
        ConsoleProgram::run(text("bash"),
                            {text("-c"), text("source \"$0\" && complete -p mvres"),
                             page(text("mvres"), "bash-completion/completions/%1")});
    QCOMPARE(outcome.out, QByteArray("complete -F _mvres mvres\n"));
}

void TestManual::otherShellsReadTheirCompletions_data()
{
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QString>("file");
    for (const char* program : {"mvres", "mvpublish", "mvserve", "mveditor"}) {
        QTest::addRow("zsh %s", program)
            << text("zsh") << page(text(program), "zsh/site-functions/_%1");
        QTest::addRow("fish %s", program)
            << text("fish") << page(text(program), "fish/vendor_completions.d/%1.fish");
    }
}

void TestManual::otherShellsReadTheirCompletions()
{
    QFETCH(QString, shell);
    QFETCH(QString, file);
    if (QStandardPaths::findExecutable(shell).isEmpty())
        QSKIP("the shell is not installed");
    const Outcome outcome = ConsoleProgram::run(shell, {text("-n"), file});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestManual::zshCompletes_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("completed");
    QTest::newRow("command") << text("mvpublish retir") << text("mvpublish retire");
    QTest::newRow("option of a command")
        << text("mvres fetch --dr") << text("mvres fetch --dry-run");
    QTest::newRow("kind") << text("mvres list them") << text("mvres list theme");
    QTest::newRow("value") << text("mveditor --release req") << text("mveditor --release require");
}

/// Types a line and Tab in an interactive shell, which then prints the line.
void TestManual::zshCompletes()
{
    QFETCH(QString, line);
    QFETCH(QString, completed);
    const QString script =
        text("zmodload zsh/zpty\n"
             "zpty shell zsh -f -i\n"
             "zpty -w shell \"PS1=; fpath=($1 \\$fpath); autoload -U compinit; compinit -u -D; "
             "echo rea''dy\"\n"
             "zpty -r shell out '*ready*'\n"
             "zpty -w -n shell \"$2\"$'\\t\\x01echo \"<\\x05>\"\\n'\n"
             "zpty -r shell out \"*<$3 #>*\"\n");
    const Outcome outcome = ConsoleProgram::run(
        text("timeout"),
        {text("55"), text("zsh"), text("-f"), text("-o"), text("extendedglob"), text("-c"), script,
         text("zsh"), text(MV_SHARE "/zsh/site-functions"), line, completed});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestManual::fishCompletes_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("command") << text("mvres fet") << text("fetch");
    QTest::newRow("option") << text("mvres fetch --dry") << text("--dry-run");
    QTest::newRow("kind") << text("mvres list them") << text("theme");
    QTest::newRow("value") << text("mvres --release req") << text("require");
}

void TestManual::fishCompletes()
{
    QFETCH(QString, line);
    QFETCH(QString, expected);
    if (QStandardPaths::findExecutable(text("fish")).isEmpty())
        QSKIP("the shell is not installed");
    const Outcome outcome = ConsoleProgram::run(
        text("fish"),
        {text("--no-config"), text("-c"),
         text("source %1; complete -C '%2'")
             .arg(page(text("mvres"), "fish/vendor_completions.d/%1.fish"), line)});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.lines().size(), 1);
    QCOMPARE(outcome.lines().constFirst().section(QLatin1Char('\t'), 0, 0), expected);
}

MV_TEST_MAIN(TestManual)
#include "tst_manual.moc"
