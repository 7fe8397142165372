// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: GUIDs, names and theme types of the display catalogues, and their "none" entries.

#include "lint/Checks.h"
#include "lint/GuidChecks.h"
#include "lint/LintContext.h"
#include "records/KindTable.h"
#include "tree/Guids.h"
#include "tree/Kinds.h"
#include "tree/Texts.h"

namespace {

void checkName(LintContext& context, const DisplayCatalogue& display, const DisplayEntry& entry)
{
    const QString& name = entry.item.m_qsName;
    const QString fault = Texts::nameFault(name);
    if (name.isEmpty())
        context.report("no-name", display.file, entry.line, entry.guid,
                       QStringLiteral("the item has no name"), QStringLiteral("give it one"));
    else if (!fault.isEmpty())
        context.report("name", display.file, entry.line, entry.guid,
                       QStringLiteral("the item's name ") + fault,
                       QStringLiteral("give it a name that users can read at a glance"));
}

void checkEntry(LintContext& context, const DisplayCatalogue& display, const DisplayEntry& entry,
                QSet<QString>& seen)
{
    const bool mayBeNone = KindTable::of(entry.type).hasNoneEntry;
    if (entry.guid == Guids::none && !mayBeNone) {
        context.report("none-misplaced", display.file, entry.line, entry.guid,
                       QStringLiteral("the \"none\" entry is in the %1 list")
                           .arg(KindTable::of(entry.type).name),
                       GuidChecks::noneAdvice);
        return;
    }
    if (!entry.known) {
        GuidChecks::reportUnknown(context, {display.file, entry.line, entry.guid, "guid-unknown"},
                                  entry.type, entry.guid);
        return;
    }
    if (seen.contains(entry.guid))
        context.report("guid-duplicate", display.file, entry.line, context.label(entry.guid),
                       QStringLiteral("the item is listed twice"),
                       QStringLiteral("take one entry away"));
    seen.insert(entry.guid);
    checkName(context, display, entry);
}

void checkNone(LintContext& context, const DisplayCatalogue& display, const SKindInfo& kind,
               const QSet<QString>& listed)
{
    if (kind.hasNoneEntry && !listed.contains(Guids::none))
        context.report("none-missing", display.file, 0, Guids::none,
                       QStringLiteral("the %1 list has no \"none\" entry").arg(kind.name),
                       QStringLiteral("without it users cannot take a choice back; list it first"));
}

void checkTypes(LintContext& context, const DisplayCatalogue& display)
{
    for (const auto& group : display.groups) {
        if (!Kinds::isThemeType(group.first))
            context.report("theme-type", display.file, group.second, QString(),
                           QStringLiteral("\"%1\" is not a theme type").arg(group.first),
                           QStringLiteral("use one of ")
                               + Kinds::themeTypes().join(QStringLiteral(", ")));
    }
}

} // namespace

void Checks::displays(LintContext& context)
{
    for (const DisplayCatalogue& display : context.tree().displays()) {
        if (!display.readable)
            continue;
        for (const SKindInfo& kind : KindTable::all()) {
            QSet<QString> seen;
            for (const DisplayEntry& entry : display.entries) {
                if (entry.type == kind.type && context.tree().configReadable())
                    checkEntry(context, display, entry, seen);
            }
            if (context.tree().configReadable())
                checkNone(context, display, kind, seen);
        }
        checkTypes(context, display);
    }
}
