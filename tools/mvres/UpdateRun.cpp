// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "UpdateRun.h"

#include "Background.h"
#include "Causes.h"
#include "Console.h"
#include "download/EMVThemeDownLoadError.h"
#include "download/ItemUpdate.h"
#include "ExitStatus.h"
#include "host/ProductParam.h"
#include "ProgressDisplay.h"

#include <QJsonArray>

namespace {

/// Returns "complete", "cancelled" or the cause of the first failure.
QString textOf(const SUpdateOutcome& outcome)
{
    switch (outcome.m_eEnd) {
    case eItemUpdate_Complete:
        return QStringLiteral("complete");
    case eItemUpdate_Cancelled:
        return QStringLiteral("cancelled");
    case eItemUpdate_Failed:
        break;
    }
    return outcome.m_vecFailures.constFirst().causeText();
}

} // namespace

UpdateRun::UpdateRun(bool json)
    : m_json(json)
{
}

SUpdateOutcome UpdateRun::run(const QVector<SCfg_Item*>& items)
{
    ProgressDisplay display(Console::counted(items.size(), QStringLiteral("item")),
                            m_json ? ProgressDisplay::Style::None
                                   : ProgressDisplay::Style::Automatic);
    const CancelToken cancel;
    ItemUpdate update(cancel);
    update.setProgress([&](qint64 fetchedBytes, qint64 totalBytes) {
        display.updateBytes(fetchedBytes, totalBytes);
    });
    SUpdateOutcome outcome;
    Background::run(cancel, [&] { outcome = update.updateItems(items); });
    display.finish();
    for (const STransferFailure& failure : qAsConst(outcome.m_vecFailures))
        Console::note(QStringLiteral("%1: %2").arg(failure.causeText(), failure.m_qsDetails));
    return outcome;
}

int UpdateRun::statusOf(const SUpdateOutcome& outcome)
{
    switch (outcome.m_eEnd) {
    case eItemUpdate_Complete:
        return ExitStatus::success;
    case eItemUpdate_Cancelled:
        return ExitStatus::download + eDownLoadError_Cancel;
    case eItemUpdate_Failed:
        break;
    }
    return ExitStatus::cause + outcome.m_vecFailures.constFirst().m_eCause;
}

QString UpdateRun::summary(const SUpdateOutcome& outcome)
{
    return QStringLiteral("%1: %2 stored, %3 fetched")
        .arg(textOf(outcome), Console::counted(outcome.m_nStored, QStringLiteral("file")),
             Console::size(outcome.m_nFetchedBytes));
}

QJsonObject UpdateRun::toJson(const SUpdateOutcome& outcome)
{
    static const char* const ends[] = {"complete", "failed", "cancelled"};
    QJsonArray failures;
    for (const STransferFailure& failure : outcome.m_vecFailures)
        failures.append(Causes::toJson(failure));
    return {
        {QStringLiteral("end"), QString::fromLatin1(ends[outcome.m_eEnd])},
        {QStringLiteral("storedFiles"), outcome.m_nStored},
        {QStringLiteral("fetchedBytes"), static_cast<double>(outcome.m_nFetchedBytes)},
        {QStringLiteral("failures"), failures},
    };
}

QString UpdateRun::serverFault()
{
    return ProductParam::text(ProductParam::serverRoot).isEmpty()
        ? QStringLiteral("no server to fetch from: give --server, or url_themeRootDir in the "
                         "settings")
        : QString();
}
