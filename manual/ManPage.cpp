// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ManPage.h"

#include "HelpText.h"

namespace ManPage {

namespace {

/// Returns a text that roff prints as it is.
QString escaped(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\e"));
    text.replace(QLatin1Char('-'), QLatin1String("\\-"));
    const bool isRequest = text.startsWith(QLatin1Char('.')) || text.startsWith(QLatin1Char('\''));
    return isRequest ? QStringLiteral("\\&") + text : text;
}

QString bold(const QString& text)
{
    return QStringLiteral("\\fB%1\\fR").arg(escaped(text));
}

QString italic(const QString& text)
{
    return QStringLiteral("\\fI%1\\fR").arg(escaped(text));
}

QString sentence(QString text)
{
    text[0] = text.at(0).toUpper();
    return escaped(text) + QStringLiteral(".\n");
}

QString section(const char* title)
{
    return QStringLiteral(".SH %1\n").arg(QLatin1String(title));
}

QString entry(const QString& term, const QString& text)
{
    return QStringLiteral(".TP\n%1\n%2").arg(term, text);
}

QString termOf(const QCommandLineOption& option)
{
    QString forms = HelpText::formsOf(option).section(QLatin1String(" <"), 0, 0);
    forms = bold(forms);
    return option.valueName().isEmpty() ? forms
                                        : forms + QLatin1Char(' ') + italic(option.valueName());
}

QString optionEntries(const QList<QCommandLineOption>& options)
{
    QString text;
    for (const QCommandLineOption& option : options)
        text += entry(termOf(option), sentence(option.description()));
    return text;
}

QString statusEntries(const ProgramTable::StatusGroup& group)
{
    QString text;
    for (const ProgramTable::Status& status : group.statuses)
        text += entry(bold(QString::number(status.number)), sentence(status.meaning));
    return text;
}

QString commandEntries(const ProgramTable& table)
{
    QString text;
    for (const ProgramTable::Command& command : table.commands) {
        const QString term = command.operands.isEmpty()
            ? bold(command.name)
            : bold(command.name) + QLatin1Char(' ') + italic(command.operands);
        text += entry(term, sentence(command.help));
        if (!command.options.isEmpty())
            text +=
                QStringLiteral(".RS\n") + optionEntries(command.options) + QStringLiteral(".RE\n");
    }
    return text;
}

QString argumentEntries(const ProgramTable& table)
{
    QString text;
    for (const ProgramTable::Value& value : table.values) {
        if (!value.meaning.isEmpty())
            text += entry(italic(value.name), sentence(value.meaning));
    }
    return text.isEmpty() ? text : section("ARGUMENTS") + text;
}

QString statusSection(const ProgramTable& table)
{
    QString text = section("EXIT STATUS");
    for (const ProgramTable::StatusGroup& group : table.statuses) {
        if (!group.commands.isEmpty())
            text += QStringLiteral(".SS %1\n").arg(escaped(HelpText::titleOf(group)));
        text += statusEntries(group);
    }
    return text;
}

QString seeAlso(const ProgramTable& table)
{
    QStringList pages;
    for (const QString& program : table.seeAlso)
        pages.append(bold(program) + QStringLiteral("(1)"));
    return section("SEE ALSO") + pages.join(QStringLiteral(",\n")) + QLatin1Char('\n');
}

} // namespace

QString of(const ProgramTable& table, const QString& version)
{
    const bool hasCommands = !table.commands.isEmpty();
    QString text = QStringLiteral(".TH %1 1 \"\" \"mvresource %2\" \"User commands\"\n")
                       .arg(table.name.toUpper(), version);
    text += section("NAME") + QStringLiteral("%1 \\- %2\n").arg(table.name, escaped(table.summary))
        + section("SYNOPSIS")
        + QStringLiteral("%1 [%2] %3\n")
              .arg(bold(table.name), italic(QStringLiteral("options")),
                   hasCommands ? italic(QStringLiteral("COMMAND")) + QStringLiteral(" [")
                           + italic(QStringLiteral("ARGUMENTS")) + QStringLiteral("...]")
                               : italic(table.operands));
    QStringList paragraphs;
    const QStringList lines = table.description.split(QLatin1Char('\n'));
    for (const QString& line : lines)
        paragraphs.append(escaped(line));
    text += section("DESCRIPTION") + paragraphs.join(QStringLiteral("\n.PP\n")) + QLatin1Char('\n');
    if (hasCommands)
        text += section("COMMANDS") + commandEntries(table);
    return text + argumentEntries(table) + section("OPTIONS")
        + optionEntries(table.options
                        + QList<QCommandLineOption>{ProgramTable::helpOption(),
                                                    ProgramTable::versionOption()})
        + statusSection(table) + seeAlso(table);
}

} // namespace ManPage
