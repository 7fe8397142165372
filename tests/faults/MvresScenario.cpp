// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "MvresScenario.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

/// Returns the items marked in a favourites file; none if the file is missing or empty. Invalid
/// content yields an entry that no valid file contains.
QStringList marksOf(const QByteArray& content)
{
    const QJsonDocument document = QJsonDocument::fromJson(content);
    if (!document.isObject() && !content.isEmpty())
        return {QStringLiteral("damaged")};
    QStringList marks;
    const QJsonObject items = document.object();
    for (auto item = items.begin(); item != items.end(); ++item) {
        if (item->toBool())
            marks.append(item.key());
    }
    return marks;
}

} // namespace

QStringList MvresScenario::places() const
{
    return {QStringLiteral("root"), QStringLiteral("data"), QStringLiteral("appdata")};
}

QString MvresScenario::run(const QStringList& command, int expectedStatus) const
{
    const Outcome outcome = m_mvres.run(command);
    return outcome.status == expectedStatus
        ? QString()
        : command.join(QLatin1Char(' ')) + QString::fromUtf8(outcome.out + outcome.err);
}

bool MvresScenario::isAlike(const WorldState& a, const WorldState& b, const QString& path) const
{
    if (!path.endsWith(QLatin1String("Collect.json")))
        return Scenario::isAlike(a, b, path);
    return marksOf(a.entries().value(path).content) == marksOf(b.entries().value(path).content);
}

EFailureCause MvresScenario::causeToTell(const Fault& fault, const CountedOperation& hit,
                                         const QStringList& storage) const
{
    const bool isStored = std::any_of(storage.cbegin(), storage.cend(), [&](const QString& place) {
        return hit.path.startsWith(world() + QLatin1Char('/') + place + QLatin1Char('/'));
    });
    const bool brings = hit.operation == Operation::CreateFile || hit.operation == Operation::Write
        || hit.operation == Operation::Rename
        || hit.operation == Operation::Link
        // A download is read for inspection before it gets its name.
        || (hit.operation == Operation::Read
            && (hit.path.endsWith(QLatin1String(".part"))
                || hit.path.endsWith(QLatin1String(" (deleted)"))))
        // The cause of a missing folder is reported only if it persists and can be queried, as
        // with a full disk; if every access fails, reading fails first.
        || (hit.operation == Operation::MakeFolder && fault.stays
            && fault.kind == FaultKind::DiskFull);
    if (!isStored || !brings)
        return eFailure_None;
    switch (fault.kind) {
    case FaultKind::DiskFull:
        return eFailure_DiskFull;
    case FaultKind::Refused:
        return eFailure_NoPermission;
    case FaultKind::Broken:
    case FaultKind::TooManyOpen:
        return eFailure_LocalFile;
    default:
        return eFailure_None;
    }
}
