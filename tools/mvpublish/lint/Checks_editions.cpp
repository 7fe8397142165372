// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: agreement of the display catalogues on every item.

#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "tree/Guids.h"
#include "tree/Kinds.h"

namespace {

/// Returns whether two catalogues agree on an item, apart from its name, which editions translate.
bool saySame(const DisplayEntry& a, const DisplayEntry& b)
{
    const bool typesAgree = a.themeType == b.themeType || !Kinds::isThemeType(a.themeType)
        || !Kinds::isThemeType(b.themeType);
    return typesAgree && a.animation == b.animation && a.item.m_bIsText == b.item.m_bIsText
        && a.item.m_info_Thumb.m_qsUrl == b.item.m_info_Thumb.m_qsUrl;
}

using Entries = QHash<QPair<int, QString>, const DisplayEntry*>;

/// Ignores the faults of a GUID, which are reported separately.
QPair<int, QString> keyOf(const DisplayEntry& entry)
{
    return qMakePair(int(entry.type), entry.guid.toUpper());
}

Entries entriesOf(const DisplayCatalogue& display)
{
    Entries entries;
    for (const DisplayEntry& entry : display.entries)
        entries.insert(keyOf(entry), &entry);
    return entries;
}

/// Reports the items that `display` lists and `other` does not.
void reportMissing(LintContext& context, const DisplayCatalogue& display,
                   const DisplayCatalogue& other, const QString& advice)
{
    const Entries listed = entriesOf(other);
    for (const DisplayEntry& entry : display.entries) {
        if (entry.known && entry.guid != Guids::none && !listed.contains(keyOf(entry)))
            context.report("editions", other.file, 0, context.label(entry.guid),
                           QStringLiteral("does not list the item, but %1 does").arg(display.file),
                           advice);
    }
}

void compare(LintContext& context, const DisplayCatalogue& first, const DisplayCatalogue& other)
{
    const QString advice = QStringLiteral("editions differ in names only; rebuild the tree");
    const Entries known = entriesOf(first);
    reportMissing(context, first, other, advice);
    reportMissing(context, other, first, advice);
    for (const DisplayEntry& entry : other.entries) {
        const DisplayEntry* const same = known.value(keyOf(entry));
        if (entry.known && same && same->known && !saySame(entry, *same))
            context.report("editions", other.file, entry.line, context.label(entry.guid),
                           QStringLiteral("%1 says something else of its previews, its type or "
                                          "whether it is a text")
                               .arg(first.file),
                           advice);
    }
}

} // namespace

void Checks::editions(LintContext& context)
{
    const QVector<DisplayCatalogue>& displays = context.tree().displays();
    for (int i = 1; i < displays.size(); ++i) {
        if (displays.constFirst().readable && displays.at(i).readable)
            compare(context, displays.constFirst(), displays.at(i));
    }
}
