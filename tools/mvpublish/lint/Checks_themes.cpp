// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: theme configs and their dependencies.

#include "catalogue/MVThemeMgr.h"
#include "lint/Checks.h"
#include "lint/GuidChecks.h"
#include "lint/LintContext.h"
#include "lint/XmlChecks.h"
#include "records/DependencySlots.h"
#include "tree/FileNames.h"
#include "tree/Guids.h"

#include <QDomDocument>

namespace {

/// Returns the line of the first "GUID" element with this text in a slot of that name.
int lineOf(const QString& file, const QString& slot, const QString& guid)
{
    QDomDocument doc;
    ReadTree::library().checkXml(file, doc);
    const QDomNodeList found = doc.documentElement().elementsByTagName(slot);
    for (int i = 0; i < found.size(); ++i) {
        const QDomElement element = found.at(i).firstChildElement(QStringLiteral("GUID"));
        if (element.text() == guid)
            return element.lineNumber();
    }
    return 0;
}

struct Theme
{
    QString guid;
    QString file; ///< its config
};

void checkSlot(LintContext& context, const Theme& theme, EDependType slot, const QString& guid)
{
    const ECfgItemType wanted = DependencySlots::find(slot)->kind;
    if (guid.isEmpty())
        return;
    context.dependencies.insert(guid);
    if (context.tree().find(wanted, guid))
        return;
    const QString path = context.tree().absolute(theme.file);
    const GuidChecks::Place place{theme.file,
                                  lineOf(path, DependencySlots::all().at(slot).name, guid),
                                  context.label(theme.guid), "dependency-unknown"};
    if (guid == theme.guid)
        context.report("theme-self", place.file, place.line, place.item,
                       QStringLiteral("the theme depends on itself"),
                       QStringLiteral("name a filter, transition or motion"));
    else
        GuidChecks::reportUnknown(context, place, wanted, guid);
}

void checkContent(LintContext& context, const Theme& theme, const SThemes_a& content)
{
    if (content.m_qsGUID != theme.guid)
        context.report("theme-guid", theme.file, 0, context.label(theme.guid),
                       QStringLiteral("the file says it is the theme %1").arg(content.m_qsGUID),
                       QStringLiteral("write the GUID that its catalogue entry has"));
    const auto checkPart = [&](const SThemes_a::SDependArray& part) {
        for (const auto& slot : DependencySlots::all())
            checkSlot(context, theme, slot.type, part.at(slot.type).m_qsGUID);
    };
    for (const SThemes_a::SDependArray& part : content.m_vecItems)
        checkPart(part);
    for (const SThemes_a::SDependArray* part :
         {&content.m_aStart, &content.m_aEnd, &content.m_aMask})
        checkPart(*part);
}

} // namespace

void Checks::themes(LintContext& context)
{
    for (const ConfigEntry& entry : context.tree().config(eCfgItem_Theme)) {
        SCfg_Item item = entry.item;
        if (!Guids::isGuid(item.m_qsGUID))
            continue;
        // A reserved GUID has no config to fetch, but its file may exist.
        ReadTree::library().doItem_Info_CfgXML(item);
        const Theme theme{item.m_qsGUID, context.tree().fileOf(item.m_info_CfgXML)};
        const bool there = !theme.file.isEmpty()
            && FileNames::isFileBelow(context.tree().folder(), context.tree().absolute(theme.file));
        const bool needed = (ReadTree::library().isLocal_Theme(item) == MVThemeMgr::eLoadDir_Local)
            == context.tree().isInstallation();
        if (!there) {
            // An installation lacks the configs that are still to be fetched.
            context.allThemesRead =
                context.allThemesRead && !needed && !context.tree().isInstallation();
            continue;
        }
        if (!context.isFirstLook(theme.file))
            continue;
        SThemes_a* content = nullptr;
        if (XmlChecks::isReadable(context, theme.file, context.label(theme.guid)))
            ReadTree::library().read_resource_config_Themes_a(context.tree().absolute(theme.file),
                                                              content);
        if (content)
            checkContent(context, theme, *content);
        else
            context.allThemesRead = false;
    }
}
