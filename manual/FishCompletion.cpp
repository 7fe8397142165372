// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FishCompletion.h"

namespace FishCompletion {

namespace {

using Offer = ProgramTable::Offer;

QString quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('\''), QLatin1String("\\'"));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

/// Returns the options of "complete" that offer values; empty for none.
QString offering(const QVector<ProgramTable::Value>& values)
{
    QStringList words;
    for (const ProgramTable::Value& value : values) {
        if (value.offer == Offer::Files)
            return QStringLiteral(" -F");
        if (value.offer == Offer::Folders)
            return QStringLiteral(" -a '(__fish_complete_directories)'");
        words += value.words;
    }
    return words.isEmpty() ? QString()
                           : QStringLiteral(" -a ") + quoted(words.join(QLatin1Char(' ')));
}

QString optionLines(const ProgramTable& table, const QString& beginning,
                    const QList<QCommandLineOption>& options)
{
    QString text;
    for (const QCommandLineOption& option : options) {
        text += beginning;
        const QStringList names = option.names();
        for (const QString& name : names)
            text += (name.size() == 1 ? QStringLiteral(" -s ") : QStringLiteral(" -l ")) + name;
        if (!option.valueName().isEmpty())
            text += QStringLiteral(" -r") + offering(table.valuesOf(option.valueName()));
        text += QStringLiteral(" -d ") + quoted(option.description()) + QLatin1Char('\n');
    }
    return text;
}

/// Offers what any of the operands may be: fish does not count them.
QString operandLines(const ProgramTable& table, const QString& beginning, const QString& operands)
{
    QStringList lines;
    const QStringList words = operands.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const QString offer = offering(table.valuesOf(word));
        if (!offer.isEmpty())
            lines.append(beginning + offer + QLatin1Char('\n'));
    }
    lines.removeDuplicates();
    return lines.join(QString());
}

} // namespace

QString of(const ProgramTable& table)
{
    const QString program = QStringLiteral("complete -c %1").arg(table.name);
    QString text = QStringLiteral("# Completes the command line of %1 in fish.\n\n").arg(table.name)
        + program + QStringLiteral(" -f\n")
        + optionLines(table, program,
                      table.options
                          + QList<QCommandLineOption>{ProgramTable::helpOption(),
                                                      ProgramTable::versionOption()})
        + operandLines(table, program, table.operands);
    for (const ProgramTable::Command& command : table.commands) {
        const QString own =
            program + QStringLiteral(" -n '__fish_seen_subcommand_from %1'").arg(command.name);
        text += program + QStringLiteral(" -n __fish_use_subcommand -a %1 -d ").arg(command.name)
            + quoted(command.help) + QLatin1Char('\n') + optionLines(table, own, command.options)
            + operandLines(table, own, command.operands);
    }
    return text;
}

} // namespace FishCompletion
