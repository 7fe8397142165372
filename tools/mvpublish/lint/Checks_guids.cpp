// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: GUIDs of the config catalogue.

#include "lint/Checks.h"
#include "lint/GuidChecks.h"
#include "lint/LintContext.h"
#include "records/KindTable.h"
#include "tree/Guids.h"

void Checks::configGuids(LintContext& context)
{
    const QString file = ReadTree::catalogue(Editions::configFile);
    QHash<QString, int> seen;
    for (const SKindInfo& kind : KindTable::all()) {
        for (const ConfigEntry& entry : context.tree().config(kind.type)) {
            const QString& guid = entry.item.m_qsGUID;
            if (guid == Guids::none) {
                context.report("none-misplaced", file, entry.line, guid,
                               QStringLiteral("the \"none\" entry is in the config catalogue"),
                               GuidChecks::noneAdvice);
                continue;
            }
            if (!GuidChecks::isWellFormed(context, guid, file, entry.line))
                continue;
            int& first = seen[guid];
            if (first > 0)
                context.report("guid-duplicate", file, entry.line, context.label(guid),
                               QStringLiteral("the GUID is already used on line %1").arg(first),
                               QStringLiteral("give the second item a fresh GUID"));
            else
                first = entry.line;
        }
    }
}
