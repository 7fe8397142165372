// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "VerifyCommand.h"

#include "Arguments.h"
#include "Background.h"
#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "download/AcceptedRelease.h"
#include "download/EMVThemeDownLoadError.h"
#include "download/FileStates.h"
#include "download/ResourceStorage.h"
#include "ExitStatus.h"
#include "ProgressDisplay.h"
#include "States.h"
#include "SurveyText.h"
#include "UpdateRun.h"

#include <QDateTime>
#include <QHash>
#include <QJsonDocument>

#include <algorithm>
#include <numeric>

namespace {

constexpr int cancelled = ExitStatus::download + eDownLoadError_Cancel;

constexpr EFileState allStates[] = {eFile_Current, eFile_Outdated, eFile_Damaged, eFile_Missing,
                                    eFile_Unlisted};

/// Returns the size of the files that a deep reading of the items reads, each once.
qint64 readableBytes(const QVector<SCfg_Item*>& items)
{
    const FileStates states(FileStates::Depth::Quick);
    QHash<QString, qint64> sizes;
    for (SCfg_Item* const item : items) {
        MVThemeMgr::init()->ensureThemeParsed(*item);
        const ItemFiles files(*item);
        for (const ItemFiles::Entry& entry : files.entries()) {
            if (FileStates::isManaged(entry) && states.publishedOf(entry).isKnown())
                sizes.insert(entry.path, entry.sizeBytes);
        }
    }
    return std::accumulate(sizes.cbegin(), sizes.cend(), qint64{0});
}

} // namespace

VerifyCommand::VerifyCommand(const Arguments& arguments)
    : m_arguments(arguments)
{
}

int VerifyCommand::run(const Arguments& arguments)
{
    VerifyCommand command(arguments);
    QString unknown;
    const QVector<SCfg_Item*> items = arguments.operands.isEmpty()
        ? ResourceStorage().itemsOnDisk()
        : command.m_index.findAll(arguments.operands, unknown);
    if (!unknown.isNull())
        return Console::fail(ExitStatus::failure, QStringLiteral("unknown GUID %1").arg(unknown));
    if (!AcceptedRelease::current()) {
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("no release to compare with: mvres check fetches that "
                                            "of the server, if it has one"));
    }
    command.survey(items);
    if (command.m_cancel.isCancelled())
        return Console::fail(cancelled, QStringLiteral("cancelled"));
    return arguments.repair ? command.repair() : command.report();
}

void VerifyCommand::survey(const QVector<SCfg_Item*>& items)
{
    const bool isShown = m_arguments.deep && !m_arguments.json;
    ProgressDisplay display(QStringLiteral("reading"),
                            isShown ? ProgressDisplay::Style::Automatic
                                    : ProgressDisplay::Style::None);
    const qint64 total = m_arguments.deep ? readableBytes(items) : 0;
    qint64 done = 0;
    const auto depth = m_arguments.deep ? FileStates::Depth::Deep : FileStates::Depth::Quick;
    const auto progress = [&](qint64 bytesRead) {
        done += bytesRead;
        if (bytesRead > 0)
            display.updateBytes(done, std::max(done, total));
        return !m_cancel.isCancelled();
    };
    Background::run(m_cancel, [&] { m_survey = ItemSurvey::verify(items, depth, progress); });
    display.finish();
}

int VerifyCommand::report() const
{
    if (m_arguments.json) {
        Console::print(QJsonDocument(toJson()));
        return status();
    }
    printSummary();
    return status();
}

int VerifyCommand::repair()
{
    const ItemSurvey wrong =
        m_survey.where([](const ItemSurvey::Row& row) { return !row.files.isEmpty(); });
    if (wrong.rows().isEmpty())
        return report();
    if (!UpdateRun::serverFault().isEmpty())
        return Console::fail(ExitStatus::failure, UpdateRun::serverFault());
    if (!m_arguments.json)
        printSummary();
    const SUpdateOutcome outcome = UpdateRun(m_arguments.json).run(wrong.items());
    if (m_arguments.json) {
        QJsonObject object = toJson();
        object.insert(QStringLiteral("repair"), UpdateRun::toJson(outcome));
        Console::print(QJsonDocument(object));
    } else {
        Console::print(QStringLiteral("repair: %1").arg(UpdateRun::summary(outcome)));
    }
    return UpdateRun::statusOf(outcome);
}

void VerifyCommand::printSummary() const
{
    ItemIndex index;
    SurveyText::print(m_survey, index);
    const SRelease& release = AcceptedRelease::current()->release();
    Console::print(QStringLiteral("release %1 of %2")
                       .arg(release.m_serial)
                       .arg(release.m_published.toString(Qt::ISODate)));
    QStringList counts;
    for (const EFileState state : allStates) {
        if (m_survey.count(state) > 0)
            counts.append(
                QStringLiteral("%1 %2").arg(m_survey.count(state)).arg(States::word(state)));
    }
    const QString items = Console::counted(m_survey.rows().size(), QStringLiteral("item"));
    Console::print(counts.isEmpty()
                       ? items
                       : items + QStringLiteral(": ") + counts.join(QStringLiteral(", ")));
}

QJsonObject VerifyCommand::toJson() const
{
    const SRelease& release = AcceptedRelease::current()->release();
    QJsonObject counts;
    for (const EFileState state : allStates)
        counts.insert(States::word(state), m_survey.count(state));
    return {
        {QStringLiteral("release"),
         QJsonObject{{QStringLiteral("serial"), static_cast<double>(release.m_serial)},
                     {QStringLiteral("published"), release.m_published.toString(Qt::ISODate)}}},
        {QStringLiteral("counts"), counts},
        {QStringLiteral("items"), SurveyText::toJson(m_survey)},
        {QStringLiteral("filesToFetch"), m_survey.fileCount()},
        {QStringLiteral("bytesToFetch"), static_cast<double>(m_survey.bytes())},
    };
}

int VerifyCommand::status() const
{
    if (m_survey.count(eFile_Damaged) > 0 || m_survey.count(eFile_Missing) > 0)
        return ExitStatus::damaged;
    return m_survey.count(eFile_Outdated) > 0 ? ExitStatus::outdated : ExitStatus::success;
}
