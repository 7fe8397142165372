// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: definitions and resource files of items.

#include "catalogue/MVThemeMgr.h"
#include "host/PictureFormat.h"
#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "lint/NamedFiles.h"
#include "lint/PictureChecks.h"
#include "lint/XmlChecks.h"
#include "records/KindTable.h"
#include "tree/Archive.h"
#include "tree/Guids.h"

using NamedFiles::NamedBy;

namespace {

/// Checks that pictures and archives match their names; other content is up to the editor.
void checkContent(LintContext& context, const QString& file, const QString& item)
{
    if (PictureFormat::isPictureName(file) && PictureChecks::isPicture(context, file, item))
        PictureChecks::warnOfPlaceholder(context, file, item);
    QString error;
    if (file.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive)
        && !Archive::isWhole(context.tree().absolute(file), &error))
        context.report("archive", file, 0, item,
                       QStringLiteral("is not a complete archive: ") + error,
                       QStringLiteral("repack it"));
}

/// Returns the path of a built-in item's definition, which need not exist.
QString definitionPath(const SCfg_Item& item)
{
    return ReadTree::library().Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                 MVThemeMgr::eDirTag_Config, item.m_eType)
        + QLatin1Char('/') + item.m_qsGUID + QStringLiteral(".xml");
}

void checkDefinition(LintContext& context, SCfg_Item& item, const NamedBy& by, bool builtIn)
{
    ReadTree::library().doItem_Info_CfgXML(item);
    SFileInfo& definition = item.m_info_CfgXML;
    bool needed = builtIn == context.tree().isInstallation();
    bool fetched = !builtIn;
    if (definition.m_qsUrl.isEmpty()) {
        if (item.m_eType == eCfgItem_Theme)
            context.report("no-name", by.catalogue, by.line, by.item,
                           QStringLiteral("the theme names no config file"),
                           QStringLiteral("without \"UrlCnf\" its parts are never known"));
        return;
    }
    if (definition.m_qsFile.isEmpty()) {
        if (!builtIn)
            context.report("guid-reserved", by.catalogue, by.line, by.item,
                           QStringLiteral("the GUID is that of a built-in item, so its definition "
                                          "is never fetched"),
                           QStringLiteral("take a fresh GUID"));
        definition.m_qsFile = definitionPath(item);
        needed = false;
        fetched = false;
    }
    // A name without a leading slash only says that the item is built in.
    if (definition.m_qsUrl.startsWith(QLatin1Char('/'))
        && !NamedFiles::isUsable(context, definition, by, true))
        return;
    const QString file = NamedFiles::existing(context, definition, by, needed, fetched);
    // Themes are checked as themes.
    if (!file.isEmpty() && item.m_eType != eCfgItem_Theme && context.isFirstLook(file))
        XmlChecks::isReadable(context, file, by.item);
}

/// The library ignores the files of an item without a GUID; they must not count as unused as well.
void useNames(LintContext& context, const SCfg_Item& item)
{
    QVector<SFileInfo> named = item.m_vecResource;
    named.append(item.m_info_CfgXML);
    for (SFileInfo& info : named) {
        info.m_qsFile = ReadTree::library().Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                              MVThemeMgr::eDirTag_Config)
            + QString::fromUtf8(QByteArray::fromPercentEncoding(info.m_qsUrl.toUtf8()));
        context.use(context.tree().fileOf(info));
    }
}

void checkItem(LintContext& context, const ConfigEntry& entry)
{
    SCfg_Item item = entry.item;
    MVThemeMgr& library = ReadTree::library();
    const QString& guid = item.m_qsGUID;
    if (!Guids::isGuid(guid)) {
        useNames(context, item);
        return;
    }
    const NamedBy by{ReadTree::catalogue(Editions::configFile), entry.line, context.label(guid)};
    // Built-in items are part of the application; all others come from the server.
    const bool builtIn = library.isLocal_Theme(item) == MVThemeMgr::eLoadDir_Local;
    const bool needed = builtIn == context.tree().isInstallation();

    checkDefinition(context, item, by, builtIn);
    library.doItem_Info_DependRes(item);
    for (const SFileInfo& resource : qAsConst(item.m_vecResource)) {
        if (!NamedFiles::isUsable(context, resource, by, true))
            continue;
        const bool shared = resource.m_qsUrl.startsWith(QLatin1Char('/'));
        const QString file =
            NamedFiles::existing(context, resource, by, needed, !builtIn || shared);
        if (!file.isEmpty() && context.isFirstLook(file))
            checkContent(context, file, by.item);
    }
}

} // namespace

void Checks::itemFiles(LintContext& context)
{
    for (const SKindInfo& kind : KindTable::all()) {
        for (const ConfigEntry& entry : context.tree().config(kind.type))
            checkItem(context, entry);
    }
}
