// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: thumbnails and animations.

#include "catalogue/MVThemeMgr.h"
#include "host/Skins.h"
#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "lint/NamedFiles.h"
#include "lint/Picture.h"
#include "lint/PictureChecks.h"
#include "records/KindTable.h"
#include "tree/Guids.h"

using NamedFiles::NamedBy;

namespace {

/// An entry's use of a picture, whatever its name.
enum class Role { Thumbnail, Animation };

void checkPicture(LintContext& context, const QString& file, const QString& item, Role role)
{
    const bool isAnimation = role == Role::Animation;
    const QString look = isAnimation ? file + QStringLiteral("\nanimation") : file;
    if (file.isEmpty() || !PictureChecks::isPicture(context, file, item)
        || !context.isFirstLook(look))
        return;
    const QString path = context.tree().absolute(file);
    const Picture::Verdict verdict =
        isAnimation ? Picture::animation(path) : Picture::thumbnail(path);
    if (!verdict.broken.isEmpty())
        context.report("picture", file, 0, item,
                       QStringLiteral("cannot be shown: ") + verdict.broken,
                       QStringLiteral("recreate the picture"));
    else if (!verdict.oddSize.isEmpty())
        context.report("picture-size", file, 0, item, verdict.oddSize,
                       QStringLiteral("previews are 16 to 9; 320x180 for a thumbnail and 192x108 "
                                      "for an animation do well"));
    else
        PictureChecks::warnOfPlaceholder(context, file, item);
}

void checkPreview(LintContext& context, const SFileInfo& info, const NamedBy& by, Role role,
                  bool needed)
{
    const bool isNamed = !info.m_qsUrl.isEmpty();
    if (!isNamed && needed && context.isFirstLook(by.item + QLatin1Char('\n')))
        context.report("no-name", by.catalogue, by.line, by.item,
                       QStringLiteral("the item names no thumbnail or no animation"),
                       QStringLiteral("without both it is not shown"));
    // Clients use the name of an animation unchanged.
    if (isNamed && NamedFiles::isUsable(context, info, by, role == Role::Thumbnail))
        checkPicture(context, NamedFiles::existing(context, info, by, needed, true), by.item, role);
}

/// Returns a record for a file that the catalogue names but the library ignores for this kind.
SFileInfo spareRecord(const DisplayEntry& entry, const QString& name)
{
    SFileInfo info;
    info.m_eType = entry.type;
    info.m_bThumbDir = true;
    info.m_qsUrl = name;
    info.m_qsFile = ReadTree::library().Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                          MVThemeMgr::eDirTag_Display, entry.type)
        + QLatin1Char('/') + name;
    return info;
}

/// Checks the skins' pictures of the "none" entry.
void checkNonePictures(LintContext& context, const DisplayEntry& entry, const NamedBy& by)
{
    for (const SSkin& skin : allSkins) {
        SCfg_Item item = entry.item;
        item.m_info_Thumb.m_qsUrl = QString::fromLatin1(skin.nonePicture);
        ReadTree::library().doItem_Info_Thumb(item);
        checkPreview(context, item.m_info_Thumb, by, Role::Thumbnail, true);
    }
}

void checkEntry(LintContext& context, const DisplayCatalogue& display, const DisplayEntry& entry)
{
    const NamedBy by{display.file, entry.line, context.label(entry.guid)};
    SCfg_Item item = entry.item;
    if (!entry.known || !Guids::isGuid(entry.guid)) {
        for (const QString& name : {item.m_info_Thumb.m_qsUrl, entry.animation})
            context.use(context.tree().fileOf(spareRecord(entry, name)));
        return;
    }
    if (entry.guid == Guids::none)
        checkNonePictures(context, entry, by);
    ReadTree::library().doItem_Info_Thumb(item);
    ReadTree::library().doItem_Info_Gif(item);
    if (KindTable::of(entry.type).hasThumbnail)
        checkPreview(context, item.m_info_Thumb, by, Role::Thumbnail, true);
    else
        checkPreview(context, spareRecord(entry, item.m_info_Thumb.m_qsUrl), by, Role::Thumbnail,
                     false);
    if (KindTable::of(entry.type).hasPreview)
        checkPreview(context, item.m_info_Gif, by, Role::Animation, true);
    else
        checkPreview(context, spareRecord(entry, entry.animation), by, Role::Animation, false);
}

} // namespace

void Checks::previews(LintContext& context)
{
    for (const DisplayCatalogue& display : context.tree().displays()) {
        for (const DisplayEntry& entry : display.entries)
            checkEntry(context, display, entry);
    }
}
