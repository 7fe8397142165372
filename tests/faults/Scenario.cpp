// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Scenario.h"

#include <QFileInfo>
#include <QSet>

QString Scenario::brokenState(const States& states) const
{
    QStringList paths = states.now.entries().keys() + states.before.entries().keys()
        + states.after.entries().keys();
    paths.removeDuplicates();
    for (const QString& path : qAsConst(paths)) {
        if (isAlike(states.now, states.before, path) || isAlike(states.now, states.after, path)
            || (states.mayHaveLeftovers && isLeftover(path)))
            continue;
        const bool isThere = states.now.contains(path);
        return QStringLiteral("%1 is neither old nor new: %2")
            .arg(path,
                 isThere ? QString::fromUtf8(states.now.entries().value(path).content.left(200))
                         : QStringLiteral("missing"));
    }
    return {};
}

/// Expects the new state, except for what the command could not remove.
QString Scenario::brokenPromise(const States& states, const FaultyOutcome& outcome) const
{
    Q_UNUSED(outcome)
    return brokenState({states.after, states.after, states.now, true});
}

QString Scenario::wrongCause(const Fault& fault, const FaultyOutcome& outcome) const
{
    Q_UNUSED(fault)
    Q_UNUSED(outcome)
    return {};
}

bool Scenario::isLeftover(const QString& path) const
{
    const QString name = QFileInfo(path).fileName();
    return (name.startsWith(QLatin1String(".mv-")) && name.endsWith(QLatin1String(".part")))
        || name.endsWith(QLatin1String(".lock"));
}
