// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "HelpText.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace HelpText {

namespace {

constexpr int columns = 80;
constexpr int helpColumn = 24;

/// Breaks a text into lines that begin with `indent` blanks.
QStringList wrapped(const QString& text, int indent)
{
    const QString margin(indent, QLatin1Char(' '));
    QStringList lines;
    QString line = margin;
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const bool isFirst = line.size() == indent;
        if (!isFirst && line.size() + 1 + word.size() > columns) {
            lines.append(line);
            line = margin + word;
        } else {
            line += (isFirst ? QString() : QStringLiteral(" ")) + word;
        }
    }
    lines.append(line);
    return lines;
}

/// Returns a term with its explanation in a column of its own.
QString row(const QString& term, const QString& help)
{
    const QString left = QStringLiteral("  ") + term;
    QStringList lines = wrapped(help, helpColumn);
    if (left.size() + 2 > helpColumn)
        lines.prepend(left);
    else
        lines.first().replace(0, left.size(), left);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString paragraphs(const QString& text)
{
    QStringList lines;
    const QStringList parts = text.split(QLatin1Char('\n'));
    for (const QString& part : parts)
        lines += wrapped(part, 0);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString termOf(const ProgramTable::Command& command)
{
    return command.operands.isEmpty() ? command.name
                                      : command.name + QLatin1Char(' ') + command.operands;
}

QString statusLines(const QVector<ProgramTable::Status>& statuses, int indent)
{
    QStringList lines;
    for (const ProgramTable::Status& status : statuses)
        lines += wrapped(QStringLiteral("%1 %2").arg(status.number).arg(status.meaning), indent);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

/// Explains those placeholders that need it.
QString valueLines(const QVector<ProgramTable::Value>& values)
{
    QStringList lines;
    for (const ProgramTable::Value& value : values) {
        if (!value.meaning.isEmpty())
            lines += wrapped(value.name + QLatin1Char(' ') + value.meaning, 2);
    }
    return lines.isEmpty()
        ? QString()
        : QStringLiteral("\nArguments:\n") + lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString commandLines(const ProgramTable& table)
{
    QString text = QStringLiteral("\nCommands:\n");
    for (const ProgramTable::Command& command : table.commands)
        text += row(termOf(command), command.help);
    return text;
}

QVector<ProgramTable::Value> valuesOf(const ProgramTable& table,
                                      const ProgramTable::Command& command)
{
    QStringList words = command.operands.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QCommandLineOption& option : command.options)
        words.append(option.valueName());
    QVector<ProgramTable::Value> values;
    QStringList known;
    for (const QString& word : qAsConst(words)) {
        const QVector<ProgramTable::Value> found = table.valuesOf(word);
        for (const ProgramTable::Value& value : found) {
            if (!known.contains(value.name))
                values.append(value);
            known.append(value.name);
        }
    }
    return values;
}

} // namespace

QString formsOf(const QCommandLineOption& option)
{
    QStringList forms;
    const QStringList names = option.names();
    for (const QString& name : names)
        forms.append((name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name);
    const QString all = forms.join(QStringLiteral(", "));
    return option.valueName().isEmpty() ? all
                                        : QStringLiteral("%1 <%2>").arg(all, option.valueName());
}

QString helpOn(const ProgramTable& table, const QCommandLineOption& option)
{
    struct Help
    {
        QString text;
        QStringList commands;
    };
    QVector<Help> helps;
    for (const ProgramTable::Command& command : table.commands) {
        for (const QCommandLineOption& own : command.options) {
            if (own.names() != option.names())
                continue;
            const auto same = std::find_if(helps.begin(), helps.end(), [&](const Help& known) {
                return known.text == own.description();
            });
            if (same == helps.end())
                helps.append({own.description(), {command.name}});
            else
                same->commands.append(command.name);
        }
    }
    if (helps.isEmpty())
        return option.description();
    QStringList texts;
    for (const Help& help : qAsConst(helps))
        texts.append(help.commands.join(QStringLiteral(", ")) + QStringLiteral(": ") + help.text);
    return texts.join(QStringLiteral("; "));
}

QString titleOf(const ProgramTable::StatusGroup& group)
{
    return group.commands.join(QStringLiteral(", ")) + QLatin1Char(':');
}

QString version()
{
    return QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                         QCoreApplication::applicationVersion());
}

void printAndExit(const QString& help)
{
    const bool isPrinted =
        std::fputs(help.toLocal8Bit().constData(), stdout) >= 0 && std::fflush(stdout) == 0;
    std::exit(isPrinted ? EXIT_SUCCESS : EXIT_FAILURE);
}

QString ofProgram(const ProgramTable& table)
{
    const bool hasCommands = !table.commands.isEmpty();
    QString text =
        QStringLiteral("Usage: %1 [options] %2\n")
            .arg(table.name,
                 hasCommands ? QStringLiteral("COMMAND [ARGUMENTS...]") : table.operands);
    text += paragraphs(table.description);
    if (hasCommands)
        text += commandLines(table);
    text += valueLines(table.values) + QStringLiteral("\nOptions:\n");
    const QList<QCommandLineOption> options = table.allOptions();
    for (const QCommandLineOption& option : options)
        text += row(formsOf(option), helpOn(table, option));
    text += QStringLiteral("\nExit status:\n");
    for (const ProgramTable::StatusGroup& group : table.statuses) {
        const bool isTitled = !group.commands.isEmpty();
        if (isTitled)
            text += QStringLiteral("  %1\n").arg(titleOf(group));
        text += statusLines(group.statuses, isTitled ? 4 : 2);
    }
    if (hasCommands)
        text += QStringLiteral("\n\"%1 COMMAND --help\" explains one command.\n").arg(table.name);
    return text;
}

QString ofCommand(const ProgramTable& table, const ProgramTable::Command& command)
{
    QString text =
        QStringLiteral("Usage: %1 %2").arg(table.name, command.name) + QStringLiteral(" [options]");
    if (!command.operands.isEmpty())
        text += QLatin1Char(' ') + command.operands;
    QString help = command.help;
    help[0] = help.at(0).toUpper();
    text += QLatin1Char('\n') + paragraphs(help + QLatin1Char('.'))
        + valueLines(valuesOf(table, command)) + QStringLiteral("\nOptions:\n");
    const QList<QCommandLineOption> options = table.optionsOf(command);
    for (const QCommandLineOption& option : options)
        text += row(formsOf(option), option.description());
    return text + QStringLiteral("\nExit status:\n") + statusLines(table.statusesOf(command), 2);
}

} // namespace HelpText
