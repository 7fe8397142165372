// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

/// Everything that the help, the manual page and the completions of one program tell: its commands,
/// their operands and options, and the exit statuses.
struct ProgramTable
{
    /// The completions that a shell offers for an operand or an option's value.
    enum class Offer { Nothing, Words, Files, Folders };

    /// A placeholder of operands and options, such as DIR or KIND.
    struct Value
    {
        QString name;
        QString meaning; ///< follows the name in a sentence: "is one of ..."; empty: says itself
        Offer offer = Offer::Nothing;
        QStringList words; ///< with Offer::Words
    };

    struct Command
    {
        QString name;
        QString operands; ///< as in a usage line: "SOURCE OUT", "[KIND]", "FILE|GUID..."
        QString help;
        QList<QCommandLineOption> options; ///< that it has in addition to the program's
        int minOperands = 0;
        int maxOperands = 0;   ///< anyNumber: no limit
        QString operandsFault; ///< says what it takes, if it is given another number of operands
    };
    static constexpr int anyNumber = -1;

    struct Status
    {
        int number;
        QString meaning;
    };
    struct StatusGroup
    {
        QStringList commands; ///< empty: all
        QVector<Status> statuses;
    };

    QString name;
    QString summary;     ///< a phrase, as in lists of manual pages
    QString description; ///< paragraphs, each on a line of its own
    QString operands;    ///< of a program without commands
    QVector<Command> commands;
    QList<QCommandLineOption> options; ///< that every command has, without help and version
    QVector<Value> values;
    QVector<StatusGroup> statuses;
    QStringList seeAlso; ///< names of programs

    /// Returns the options to print the help and the version, which every program has.
    static QCommandLineOption helpOption();
    static QCommandLineOption versionOption();

    /// Returns the command of that name, or null.
    const Command* command(const QString& commandName) const;
    /// Returns the commands that have an option of their own of that name.
    QStringList commandsWith(const QString& option) const;
    /// Returns every option of the program, each name once: those of commands, of all commands, and
    /// for help and version.
    QList<QCommandLineOption> allOptions() const;
    /// Returns the options that a command takes: its own, those of every command, and for help.
    QList<QCommandLineOption> optionsOf(const Command& command) const;
    /// Returns the values that a word of a usage line names, such as FILE and GUID for
    /// "[FILE|GUID...]".
    QVector<Value> valuesOf(const QString& word) const;
    /// Returns the exit statuses of a command: the program's, then its own.
    QVector<Status> statusesOf(const Command& command) const;
};

/// Returns the table of this program. Each program defines its own.
const ProgramTable& programTable();
