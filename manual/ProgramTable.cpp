// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProgramTable.h"

#include <algorithm>

namespace {

bool contains(const QList<QCommandLineOption>& options, const QString& name)
{
    return std::any_of(options.cbegin(), options.cend(), [&](const QCommandLineOption& option) {
        return option.names().contains(name);
    });
}

} // namespace

QCommandLineOption ProgramTable::helpOption()
{
    return {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("print this help")};
}

QCommandLineOption ProgramTable::versionOption()
{
    return {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("print the version")};
}

const ProgramTable::Command* ProgramTable::command(const QString& commandName) const
{
    const auto found = std::find_if(commands.cbegin(), commands.cend(), [&](const Command& known) {
        return known.name == commandName;
    });
    return found == commands.cend() ? nullptr : &*found;
}

QStringList ProgramTable::commandsWith(const QString& option) const
{
    QStringList names;
    for (const Command& each : commands) {
        if (contains(each.options, option))
            names.append(each.name);
    }
    return names;
}

QList<QCommandLineOption> ProgramTable::allOptions() const
{
    QList<QCommandLineOption> all;
    for (const Command& each : commands) {
        for (const QCommandLineOption& option : each.options) {
            if (!contains(all, option.names().constFirst()))
                all.append(option);
        }
    }
    return all + options + QList<QCommandLineOption>{helpOption(), versionOption()};
}

QList<QCommandLineOption> ProgramTable::optionsOf(const Command& command) const
{
    return command.options + options + QList<QCommandLineOption>{helpOption()};
}

QVector<ProgramTable::Value> ProgramTable::valuesOf(const QString& word) const
{
    QString bare = word;
    for (const char* const sign : {"[", "]", "..."})
        bare.remove(QLatin1String(sign));
    const QStringList names = bare.split(QLatin1Char('|'));
    QVector<Value> found;
    std::copy_if(values.cbegin(), values.cend(), std::back_inserter(found),
                 [&](const Value& value) { return names.contains(value.name); });
    return found;
}

QVector<ProgramTable::Status> ProgramTable::statusesOf(const Command& command) const
{
    QVector<Status> own;
    for (const StatusGroup& group : statuses) {
        if (!group.commands.isEmpty() && !group.commands.contains(command.name))
            continue;
        for (const Status& status : group.statuses) {
            const auto known = std::find_if(own.begin(), own.end(), [&](const Status& earlier) {
                return earlier.number == status.number;
            });
            if (known == own.end())
                own.append(status);
            else
                *known = status; // what the command says is more precise
        }
    }
    return own;
}
