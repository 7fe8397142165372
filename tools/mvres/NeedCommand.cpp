// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "NeedCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "Items.h"
#include "States.h"
#include "SurveyText.h"
#include "Table.h"
#include "UpdateRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace {

bool isIncomplete(const ItemSurvey::Row& row)
{
    return !row.files.isEmpty();
}

} // namespace

NeedCommand::NeedCommand(const Arguments& arguments)
    : m_arguments(arguments)
{
}

int NeedCommand::run(const Arguments& arguments)
{
    NeedCommand command(arguments);
    QString error;
    if (!command.read(error))
        return Console::fail(ExitStatus::failure, error);
    const bool isComplete = command.m_survey.where(isIncomplete).rows().isEmpty();
    return arguments.fetch && !isComplete ? command.fetch() : command.report();
}

bool NeedCommand::read(QString& error)
{
    ItemSet set;
    if (!set.read(m_arguments.operands)) {
        error = set.errorText();
        return false;
    }
    QStringList guids;
    for (const ItemSet::Entry& entry : set.entries())
        guids.append(entry.guid);
    m_survey = ItemSurvey::verifyGuids(guids);
    const QSet<QString> unknown(m_survey.unknown().cbegin(), m_survey.unknown().cend());
    std::copy_if(set.entries().cbegin(), set.entries().cend(), std::back_inserter(m_unknown),
                 [&](const ItemSet::Entry& entry) { return unknown.contains(entry.guid); });
    return true;
}

int NeedCommand::report()
{
    if (m_arguments.json)
        Console::print(QJsonDocument(toJson()));
    else
        print();
    return status();
}

int NeedCommand::fetch()
{
    if (!UpdateRun::serverFault().isEmpty())
        return Console::fail(ExitStatus::failure, UpdateRun::serverFault());
    const SUpdateOutcome outcome =
        UpdateRun(m_arguments.json).run(m_survey.where(isIncomplete).items());
    m_survey = ItemSurvey::verify(m_survey.items());
    if (m_arguments.json) {
        QJsonObject object = toJson();
        object.insert(QStringLiteral("fetch"), UpdateRun::toJson(outcome));
        Console::print(QJsonDocument(object));
    } else {
        print();
        Console::print(UpdateRun::summary(outcome));
    }
    return outcome.m_eEnd == eItemUpdate_Complete ? status() : UpdateRun::statusOf(outcome);
}

void NeedCommand::print()
{
    Table table;
    for (const ItemSurvey::Row& row : m_survey.rows()) {
        table.add({row.item->m_qsGUID, Items::kindName(row.item->m_eType),
                   m_index.nameOf(*row.item), States::size(row.state, row.missing),
                   States::text(row.state, row.missing)});
    }
    const QString none = QStringLiteral("-");
    for (const ItemSet::Entry& entry : qAsConst(m_unknown))
        table.add({entry.guid, none, entry.name, none, QStringLiteral("unknown")});
    table.print();
    const int known = m_survey.rows().size();
    Console::print(QStringLiteral("%1: %2 ready, %3 to fetch, %4 unknown; to fetch: %5")
                       .arg(Console::counted(known + m_unknown.size(), QStringLiteral("item")))
                       .arg(readyCount())
                       .arg(known - readyCount())
                       .arg(m_unknown.size())
                       .arg(SurveyText::total(m_survey)));
}

QJsonObject NeedCommand::toJson()
{
    QJsonArray unknown;
    for (const ItemSet::Entry& entry : qAsConst(m_unknown)) {
        unknown.append(QJsonObject{{QStringLiteral("guid"), entry.guid},
                                   {QStringLiteral("name"), entry.name}});
    }
    return {{QStringLiteral("items"), SurveyText::toJson(m_survey)},
            {QStringLiteral("unknown"), unknown},
            {QStringLiteral("ready"), readyCount()},
            {QStringLiteral("filesToFetch"), m_survey.fileCount()},
            {QStringLiteral("bytesToFetch"), static_cast<double>(m_survey.bytes())}};
}

int NeedCommand::readyCount() const
{
    return static_cast<int>(m_survey.ready().size());
}

int NeedCommand::status() const
{
    if (!m_unknown.isEmpty())
        return ExitStatus::unknown;
    return readyCount() < m_survey.rows().size() ? ExitStatus::notReady : ExitStatus::success;
}
