// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "lint/GuidChecks.h"

#include "lint/LintContext.h"
#include "records/KindTable.h"
#include "tree/Guids.h"

namespace {

const QString freshGuid = QStringLiteral("mvpublish new makes a fresh one");

} // namespace

const QString GuidChecks::noneAdvice =
    QStringLiteral("it belongs into the Filter and the BgMaterial list of the display catalogues, "
                   "and into no other");

bool GuidChecks::isWellFormed(LintContext& context, const QString& guid, const QString& file,
                              int line)
{
    if (!Guids::isGuid(guid)) {
        context.report("guid-malformed", file, line, context.label(guid),
                       QStringLiteral("\"%1\" is not a GUID in braces").arg(guid), freshGuid);
        return false;
    }
    if (!Guids::isProper(guid)) {
        context.report(
            "guid-lower-case", file, line, context.label(guid),
            QStringLiteral("the GUID has small letters"),
            QStringLiteral("write it in capitals everywhere: GUIDs are compared exactly"));
        return false;
    }
    return true;
}

void GuidChecks::reportUnknown(LintContext& context, const Place& place, ECfgItemType wanted,
                               const QString& guid)
{
    if (!isWellFormed(context, guid, place.file, place.line))
        return;
    for (const SKindInfo& kind : KindTable::all()) {
        if (!context.tree().find(kind.type, guid))
            continue;
        context.report("guid-wrong-kind", place.file, place.line, place.item,
                       QStringLiteral("%1 is a %2 in the place of a %3")
                           .arg(context.label(guid), kind.word(), KindTable::of(wanted).word()),
                       QStringLiteral("name an item of the right kind"));
        return;
    }
    context.report(place.unknownCode, place.file, place.line, place.item,
                   QStringLiteral("%1 is in no config catalogue").arg(guid),
                   QStringLiteral("publish that item, or take the entry away"));
}
