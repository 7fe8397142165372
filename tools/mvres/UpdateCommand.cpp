// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "UpdateCommand.h"

#include "Arguments.h"
#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "download/AcceptedRelease.h"
#include "download/ResourceStorage.h"
#include "ExitStatus.h"
#include "SurveyText.h"
#include "UpdateRun.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

bool isOnDisk(SCfg_Item& item)
{
    return ResourceStorage().diskUse(item).bytes() > 0;
}

bool isChanged(const ItemSurvey::Row& row)
{
    return row.state.m_eState == eFile_Outdated || row.state.m_eState == eFile_Damaged;
}

} // namespace

UpdateCommand::UpdateCommand(const Arguments& arguments)
    : m_arguments(arguments)
{
}

int UpdateCommand::run(const Arguments& arguments)
{
    if (!MVThemeMgr::init()->isCatalogueRead()) {
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("the downloaded catalogue cannot be read"));
    }
    // Before the states, which are those of the same release or of none.
    const bool hasRelease = AcceptedRelease::current() != nullptr;
    if (!hasRelease && AcceptedRelease::isUnusable()) {
        return Console::fail(
            ExitStatus::failure,
            QStringLiteral("the release that was accepted cannot be used any more; "
                           "mvres check fetches it again"));
    }
    UpdateCommand command(arguments);
    QString error;
    if (!command.select(error))
        return Console::fail(ExitStatus::failure, error);
    if (!hasRelease)
        Console::note(QStringLiteral("no release is known: only missing files can be found"));
    if (arguments.dryRun || command.m_survey.rows().isEmpty())
        return command.preview();
    if (!UpdateRun::serverFault().isEmpty())
        return Console::fail(ExitStatus::failure, UpdateRun::serverFault());
    return command.update();
}

/// Chooses the items that are to be updated.
bool UpdateCommand::select(QString& error)
{
    QString unknown;
    const bool isNamed = !m_arguments.operands.isEmpty();
    QVector<SCfg_Item*> items =
        isNamed ? m_index.findAll(m_arguments.operands, unknown) : ResourceStorage().itemsOnDisk();
    if (!unknown.isNull()) {
        error = QStringLiteral("unknown GUID %1").arg(unknown);
        return false;
    }
    for (SCfg_Item* const item : qAsConst(items)) {
        if (isNamed && !isOnDisk(*item)) {
            error =
                QStringLiteral("%1 is not on disk; mvres fetch downloads it").arg(item->m_qsGUID);
            return false;
        }
    }
    m_survey = ItemSurvey::verify(items).where([&](const ItemSurvey::Row& row) {
        const bool isWanted = isNamed || m_arguments.all || isChanged(row);
        return isWanted && !row.files.isEmpty();
    });
    return true;
}

/// Tells what would be fetched.
int UpdateCommand::preview()
{
    if (m_arguments.json) {
        QJsonObject object = SurveyText::toJsonWithTotals(m_survey);
        object.insert(QStringLiteral("dryRun"), m_arguments.dryRun);
        Console::print(QJsonDocument(object));
        return ExitStatus::success;
    }
    SurveyText::print(m_survey, m_index);
    Console::print(m_survey.rows().isEmpty()
                       ? QStringLiteral("nothing to update")
                       : QStringLiteral("%1 to fetch: %2")
                             .arg(Console::counted(m_survey.rows().size(), QStringLiteral("item")),
                                  SurveyText::total(m_survey)));
    return ExitStatus::success;
}

int UpdateCommand::update()
{
    const SUpdateOutcome outcome = UpdateRun(m_arguments.json).run(m_survey.items());
    const ItemSurvey after = ItemSurvey::verify(m_survey.items());
    if (m_arguments.json) {
        QJsonObject object = SurveyText::toJsonWithTotals(after);
        object.insert(QStringLiteral("update"), UpdateRun::toJson(outcome));
        Console::print(QJsonDocument(object));
    } else {
        SurveyText::print(after, m_index);
        Console::print(UpdateRun::summary(outcome));
    }
    return UpdateRun::statusOf(outcome);
}
