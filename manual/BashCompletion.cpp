// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BashCompletion.h"

namespace BashCompletion {

namespace {

using Offer = ProgramTable::Offer;

// Words are split at "=", so "--root=DIR" arrives as three of them.
const char beginning[] = R"(# Completes the command line of %1 in bash.

_%1()
{
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local command= operands=0 offer= words= i
    if [[ $cur == = ]]; then
        cur=
    elif [[ $prev == = ]]; then
        prev=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
)";

const char counting[] = R"(            -* | =) ;;
            *)
                if [[ -z $command && -n "%1" ]]; then
                    command=${COMP_WORDS[i]}
                else
                    ((operands++))
                fi
                ;;
        esac
    done
    case $prev in
)";

const char ending[] = R"(    esac
    case $offer in
        files) mapfile -t COMPREPLY < <(compgen -f -- "$cur") ;;
        folders) mapfile -t COMPREPLY < <(compgen -d -- "$cur") ;;
        *) mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur") ;;
    esac
    # Fails outside of an interactive completion, where it is not needed.
    [[ -z $offer ]] || compopt -o filenames 2>/dev/null
}

complete -F _%1 %1
)";

QString patternOf(const QCommandLineOption& option)
{
    QStringList forms;
    const QStringList names = option.names();
    for (const QString& name : names)
        forms.append((name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name);
    return forms.join(QStringLiteral(" | "));
}

/// Returns the assignment that offers values of a kind; ":" for none.
QString offering(const QVector<ProgramTable::Value>& values)
{
    QStringList words;
    for (const ProgramTable::Value& value : values) {
        if (value.offer == Offer::Files)
            return QStringLiteral("offer=files");
        if (value.offer == Offer::Folders)
            return QStringLiteral("offer=folders");
        words += value.words;
    }
    return words.isEmpty() ? QStringLiteral(":")
                           : QStringLiteral("words=\"%1\"").arg(words.join(QLatin1Char(' ')));
}

QString optionWords(const QList<QCommandLineOption>& options)
{
    QStringList words;
    for (const QCommandLineOption& option : options)
        words.append(QStringLiteral("--") + option.names().constLast());
    return words.join(QLatin1Char(' '));
}

QString optionCases(const ProgramTable& table)
{
    QString text;
    const QList<QCommandLineOption> options = table.allOptions();
    for (const QCommandLineOption& option : options) {
        if (!option.valueName().isEmpty())
            text += QStringLiteral("        %1) %2 ;;\n")
                        .arg(patternOf(option), offering(table.valuesOf(option.valueName())));
    }
    return text;
}

/// Returns what skips the values of options.
QString skipping(const ProgramTable& table)
{
    QStringList patterns;
    const QList<QCommandLineOption> options = table.allOptions();
    for (const QCommandLineOption& option : options) {
        if (!option.valueName().isEmpty())
            patterns.append(patternOf(option));
    }
    return QStringLiteral("            %1)\n"
                          "                [[ ${COMP_WORDS[i + 1]} == = ]] && ((i++))\n"
                          "                ((i++))\n"
                          "                ;;\n")
        .arg(patterns.join(QStringLiteral(" | ")));
}

/// Returns the cases of a command's operands, by their number; the last may be repeated.
QString operandCases(const ProgramTable& table, const QString& name, const QString& operands)
{
    QString text;
    const QStringList words = operands.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int number = 0; number < words.size(); ++number) {
        const QString& word = words.at(number);
        const QString pattern =
            word.contains(QLatin1String("...")) ? QStringLiteral("*") : QString::number(number);
        text += QStringLiteral("                %1:%2) %3 ;;\n")
                    .arg(name, pattern, offering(table.valuesOf(word)));
    }
    return text;
}

} // namespace

QString of(const ProgramTable& table)
{
    QStringList names;
    QString operands;
    QString options;
    for (const ProgramTable::Command& command : table.commands) {
        names.append(command.name);
        operands += operandCases(table, command.name, command.operands);
        options += QStringLiteral("                %1) words=\"%2\" ;;\n")
                       .arg(command.name, optionWords(table.optionsOf(command)));
    }
    if (names.isEmpty())
        operands = operandCases(table, QString(), table.operands);
    const QString known = names.join(QLatin1Char(' '));
    return QString::fromLatin1(beginning).replace(QLatin1String("%1"), table.name) + skipping(table)
        + QString::fromLatin1(counting).replace(QLatin1String("%1"), known) + optionCases(table)
        + QStringLiteral("        *)\n"
                         "            if [[ $cur == -* ]]; then\n"
                         "                case $command in\n")
        + options
        + QStringLiteral("                *) words=\"%1\" ;;\n"
                         "                esac\n")
              .arg(optionWords(table.options
                               + QList<QCommandLineOption>{ProgramTable::helpOption(),
                                                           ProgramTable::versionOption()}))
        + (names.isEmpty() ? QString()
                           : QStringLiteral("            elif [[ -z $command ]]; then\n"
                                            "                words=\"%1\"\n")
                                 .arg(known))
        + QStringLiteral("            else\n"
                         "                case $command:$operands in\n")
        + operands
        + QStringLiteral("                *) : ;;\n"
                         "                esac\n"
                         "            fi\n"
                         "            ;;\n")
        + QString::fromLatin1(ending).replace(QLatin1String("%1"), table.name);
}

} // namespace BashCompletion
