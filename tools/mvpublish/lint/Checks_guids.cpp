// Checks: GUIDs of both catalogues, "none" entries, theme types, and what editions say of an item.

#include "Guids.h"
#include "Kinds.h"
#include "lint/Checks.h"
#include "lint/GuidChecks.h"
#include "lint/LintContext.h"
#include "records/KindTable.h"
#include "Texts.h"

namespace {

const QString freshGuid = QStringLiteral("mvpublish new makes a fresh one");
const QString noneAdvice =
    QStringLiteral("it belongs into the Filter and the BgMaterial list of the display catalogues, "
                   "and into no other");

} // namespace

bool GuidChecks::isWellFormed(LintContext& context, const QString& guid, const QString& file,
                              int line)
{
    if (!Guids::isGuid(guid)) {
        context.report("guid-malformed", file, line, context.label(guid),
                       QStringLiteral("\"%1\" is no GUID in braces").arg(guid), freshGuid);
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
                       QStringLiteral("%1 is a %2 and stands where a %3 should")
                           .arg(context.label(guid), kind.word(), KindTable::of(wanted).word()),
                       QStringLiteral("name an item of the right kind"));
        return;
    }
    context.report(place.unknownCode, place.file, place.line, place.item,
                   QStringLiteral("%1 is in no config catalogue").arg(guid),
                   QStringLiteral("publish that item, or take the entry away"));
}

void Checks::configGuids(LintContext& context)
{
    const QString file = ReadTree::catalogue(Editions::configFile);
    QHash<QString, int> seen;
    for (const SKindInfo& kind : KindTable::all()) {
        for (const ConfigEntry& entry : context.tree().config(kind.type)) {
            const QString& guid = entry.item.m_qsGUID;
            if (guid == Guids::none) {
                context.report("none-misplaced", file, entry.line, guid,
                               QStringLiteral("the \"none\" entry stands in the config catalogue"),
                               noneAdvice);
                continue;
            }
            if (!GuidChecks::isWellFormed(context, guid, file, entry.line))
                continue;
            int& first = seen[guid];
            if (first > 0)
                context.report("guid-duplicate", file, entry.line, context.label(guid),
                               QStringLiteral("the GUID stands on line %1 already").arg(first),
                               QStringLiteral("give the second item a fresh GUID"));
            else
                first = entry.line;
        }
    }
}

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
                       QStringLiteral("the \"none\" entry stands in the %1 list")
                           .arg(KindTable::of(entry.type).name),
                       noneAdvice);
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

bool isThemeType(const QString& type)
{
    return Kinds::themeTypes().contains(type);
}

void checkTypes(LintContext& context, const DisplayCatalogue& display)
{
    for (const auto& group : display.groups) {
        if (!isThemeType(group.first))
            context.report("theme-type", display.file, group.second, QString(),
                           QStringLiteral("\"%1\" is no theme type").arg(group.first),
                           QStringLiteral("use one of ")
                               + Kinds::themeTypes().join(QStringLiteral(", ")));
    }
}

/// Returns whether two catalogues say the same of an item, apart from its name, which editions
/// translate.
bool saySame(const DisplayEntry& a, const DisplayEntry& b)
{
    const bool typesAgree =
        a.themeType == b.themeType || !isThemeType(a.themeType) || !isThemeType(b.themeType);
    return typesAgree && a.animation == b.animation && a.item.m_bIsText == b.item.m_bIsText
        && a.item.m_info_Thumb.m_qsUrl == b.item.m_info_Thumb.m_qsUrl;
}

using Entries = QHash<QPair<int, QString>, const DisplayEntry*>;

/// Faults of a GUID are reported as such, so that they do not count here.
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

/// Reports what `display` lists and `other` does not.
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
    const QString advice = QStringLiteral("editions differ in names only; build the tree anew");
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

void Checks::editions(LintContext& context)
{
    const QVector<DisplayCatalogue>& displays = context.tree().displays();
    for (int i = 1; i < displays.size(); ++i) {
        if (displays.constFirst().readable && displays.at(i).readable)
            compare(context, displays.constFirst(), displays.at(i));
    }
}
