// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ZshCompletion.h"

namespace ZshCompletion {

namespace {

using Offer = ProgramTable::Offer;

/// Returns a text within single quotes, with the `special` characters escaped.
QString quoted(QString text, const char* special)
{
    for (const char* sign = special; *sign != '\0'; ++sign)
        text.replace(QLatin1Char(*sign), QLatin1Char('\\') + QString(QLatin1Char(*sign)));
    text.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return text;
}

/// Returns what _arguments calls to complete a value.
QString action(const QVector<ProgramTable::Value>& values)
{
    QStringList words;
    for (const ProgramTable::Value& value : values) {
        if (value.offer == Offer::Files)
            return QStringLiteral("_files");
        if (value.offer == Offer::Folders)
            return QStringLiteral("_files -/");
        words += value.words;
    }
    return words.isEmpty() ? QStringLiteral("()")
                           : QStringLiteral("(%1)").arg(words.join(QLatin1Char(' ')));
}

/// Returns the descriptions of options as zsh's _arguments takes them.
QStringList optionArguments(const ProgramTable& table, const QList<QCommandLineOption>& options)
{
    QStringList described;
    for (const QCommandLineOption& option : options) {
        const QString help = quoted(option.description(), "\\[]:");
        const QStringList names = option.names();
        for (const QString& name : names) {
            const bool isShort = name.size() == 1;
            const QString dashes = isShort ? QStringLiteral("-") : QStringLiteral("--");
            const QString value = option.valueName().isEmpty()
                ? QString()
                : QStringLiteral(":%1:%2").arg(quoted(option.valueName(), "\\:"),
                                               action(table.valuesOf(option.valueName())));
            described.append(QStringLiteral("'*%1%2%3[%4]%5'")
                                 .arg(dashes, name,
                                      value.isEmpty() || isShort ? QString() : QStringLiteral("="),
                                      help, value));
        }
    }
    return described;
}

QStringList operandArguments(const ProgramTable& table, const QString& operands)
{
    QStringList described;
    const QStringList words = operands.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int number = 0; number < words.size(); ++number) {
        const QString& word = words.at(number);
        const QString position =
            word.contains(QLatin1String("...")) ? QStringLiteral("*") : QString::number(number + 1);
        described.append(QStringLiteral("'%1:%2:%3'")
                             .arg(position, quoted(word, "\\:"), action(table.valuesOf(word))));
    }
    return described;
}

QString arguments(const QStringList& described, int indent)
{
    const QString margin = QStringLiteral(" \\\n") + QString(indent + 4, QLatin1Char(' '));
    return QString(indent, QLatin1Char(' ')) + QStringLiteral("_arguments -C")
        + (described.isEmpty() ? QString() : margin + described.join(margin)) + QLatin1Char('\n');
}

QString commandList(const ProgramTable& table)
{
    QString text = QStringLiteral("    commands=(\n");
    for (const ProgramTable::Command& command : table.commands)
        text += QStringLiteral("        '%1:%2'\n").arg(command.name, quoted(command.help, "\\:"));
    return text + QStringLiteral("    )\n");
}

QString commandCases(const ProgramTable& table)
{
    QString text = QStringLiteral("    case $state in\n"
                                  "    command) _describe command commands ;;\n"
                                  "    argument)\n"
                                  "        case $words[1] in\n");
    for (const ProgramTable::Command& command : table.commands) {
        text += QStringLiteral("        %1)\n").arg(command.name)
            + arguments(optionArguments(table, table.optionsOf(command))
                            + operandArguments(table, command.operands),
                        12)
            + QStringLiteral("            ;;\n");
    }
    return text
        + QStringLiteral("        esac\n"
                         "        ;;\n"
                         "    esac\n");
}

} // namespace

QString of(const ProgramTable& table)
{
    QStringList described = optionArguments(
        table,
        table.options
            + QList<QCommandLineOption>{ProgramTable::helpOption(), ProgramTable::versionOption()});
    const bool hasCommands = !table.commands.isEmpty();
    described += hasCommands
        ? QStringList{QStringLiteral("'(-): :->command'"), QStringLiteral("'(-)*:: :->argument'")}
        : operandArguments(table, table.operands);
    return QStringLiteral("#compdef %1\n"
                          "# Completes the command line of %1 in zsh.\n"
                          "\n"
                          "_%1() {\n"
                          "    local curcontext=\"$curcontext\" state line\n"
                          "    local -a commands\n")
               .arg(table.name)
        + (hasCommands ? commandList(table) : QString()) + arguments(described, 4)
        + (hasCommands ? commandCases(table) : QString())
        + QStringLiteral("}\n\n_%1 \"$@\"\n").arg(table.name);
}

} // namespace ZshCompletion
