// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeMgr: locating the files of an item on disk.

#include "catalogue/MVThemeMgr.h"
#include "catalogue/NoneEntry.h"
#include "catalogue/PathGuard.h"
#include "host/Skins.h"
#include "host/TzResourceMgr.h"
#include "records/FileRecord.h"
#include "records/KindTable.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace {

bool nothingToFetch(SFileInfo& info)
{
    FileRecord(info).setFile(QString());
    return true;
}

QString percentDecoded(const QString& url)
{
    const QByteArray bytes = QByteArray::fromPercentEncoding(url.toUtf8());
    // With an explicit length: otherwise decoding stops at a NUL and names another file.
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

bool hasGuid(const SCfg_Item& item)
{
    return !QUuid(item.m_qsGUID).isNull();
}

/// Returns the active skin's image of the "none" entry; empty for a skin without one.
QString noneImage()
{
    const QString active = TzResourceMgr::instance()->currentSkin();
    for (const SSkin& skin : allSkins) {
        if (active == QLatin1String(skin.name))
            return QString::fromLatin1(skin.nonePicture);
    }
    return QString();
}

} // namespace

bool MVThemeMgr::resolve(SFileInfo& info, ECfgItemType k, EDirTag t, const QString& relative,
                         bool absoluteNames, bool makeFolder)
{
    FileRecord record(info);
    const QString url = record.name();
    const bool absolute = absoluteNames && url.startsWith(QLatin1Char('/'));
    const QString decoded = absolute ? percentDecoded(url) : QString();
    const auto candidate = [&](ELoadDir d) {
        return absolute ? Path_resource_Dir(d, t) + decoded
                        : Path_resource_Dir(d, t, k) + QLatin1Char('/') + relative;
    };

    const QString downloaded = candidate(eLoadDir_Download);
    if (!PathGuard::hasPlainName(absolute ? decoded : relative)) {
        record.setFile(downloaded); // no download will fetch it to there
        return false;
    }
    if (PathGuard::isReallyInside(m_qsSaveRoot, downloaded)) {
        record.setFile(downloaded);
        return true;
    }
    const QString installed = candidate(eLoadDir_Local);
    if (PathGuard::isReallyInside(Path_resource_RootDir(eLoadDir_Local), installed)) {
        record.setFile(installed);
        return true;
    }
    record.setFile(downloaded);
    const QString folder = QFileInfo(downloaded).path();
    if (makeFolder && !QFile::exists(folder))
        PathGuard::ensureDir(m_qsSaveRoot, folder);
    return false;
}

bool MVThemeMgr::doItem_Info_CfgXML(SCfg_Item& item)
{
    SFileInfo& info = item.m_info_CfgXML;
    FileRecord(info).setKind(item.m_eType, false);
    if (!hasGuid(item) || m_lstFixedGUID.contains(item.m_qsGUID) || FileView(info).name().isEmpty())
        return nothingToFetch(info);
    return resolve(info, item.m_eType, eDirTag_Config, item.m_qsGUID + QStringLiteral(".xml"), true,
                   false);
}

bool MVThemeMgr::doItem_Info_Thumb(SCfg_Item& item)
{
    SFileInfo& info = item.m_info_Thumb;
    FileRecord(info).setKind(item.m_eType, true);
    const QString image = isNoneEntry(item) ? noneImage() : QString();
    if (!image.isEmpty())
        FileRecord(info).setName(image);
    const SKindInfo* const kind = KindTable::find(item.m_eType);
    if ((kind && !kind->hasThumbnail) || !hasGuid(item))
        return nothingToFetch(info);
    return resolve(info, item.m_eType, eDirTag_Display, FileView(info).name(), true, true);
}

bool MVThemeMgr::doItem_Info_Gif(SCfg_Item& item)
{
    SFileInfo& info = item.m_info_Gif;
    const SKindInfo* const kind = KindTable::find(item.m_eType);
    if (!kind || !kind->hasPreview)
        return nothingToFetch(info);
    FileRecord(info).setKind(eCfgItem_Theme, true);
    if (!hasGuid(item))
        return nothingToFetch(info);
    return resolve(info, eCfgItem_Theme, eDirTag_Display, FileView(info).name(), false, true);
}

bool MVThemeMgr::doItem_Info_DependRes(SCfg_Item& item, QVector<SFileInfo*>& missing)
{
    const bool known = hasGuid(item);
    const QString folder = item.m_qsGUID + QLatin1Char('/');
    bool allPresent = true;
    for (SFileInfo& info : item.m_vecResource) {
        FileRecord(info).setKind(item.m_eType, false);
        if (!known) {
            nothingToFetch(info);
        } else if (!resolve(info, item.m_eType, eDirTag_Config, folder + FileView(info).name(),
                            true, true)) {
            missing.append(&info);
            allPresent = false;
        }
    }
    return allPresent;
}

bool MVThemeMgr::doItem_Info_DependRes(SCfg_Item& item)
{
    QVector<SFileInfo*> missing;
    return doItem_Info_DependRes(item, missing);
}
