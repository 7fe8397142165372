// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeMgr: favourites and theme types.

#include "catalogue/CollectFile.h"
#include "catalogue/MVThemeMgr.h"
#include "host/LogL.h"
#include "host/RegularFile.h"
#include "host/Utils.h"
#include "records/KindTable.h"
#include "records/ThemeTypes.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

/// Returns the path of a favourites file below the user's data folder, creating its folder.
QString collectPath(const QString& folderName, const QString& fileName)
{
    const QString folder = Utils::strDataLocation() + folderName;
    if (!QDir(folder).exists())
        QDir().mkpath(folder);
    return folder + fileName;
}

/// Opening for reading and writing creates a missing file.
bool openAndRead(const QString& path, QByteArray& bytes)
{
    constexpr qint64 maxBytes = 64 * 1024 * 1024;
    QFile file(path);
    return RegularFile::open(file, QIODevice::ReadWrite)
        && RegularFile::readAll(file, maxBytes, bytes);
}

EFavouritesFile favouritesOf(ECfgItemType k)
{
    const SKindInfo* const kind = KindTable::find(k);
    return kind ? kind->favourites : EFavouritesFile::None;
}

bool parseJson(const QByteArray& bytes, QJsonObject& out)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return false;
    out = document.object();
    return true;
}

} // namespace

QString MVThemeMgr::Path_ThemeCollect()
{
    return collectPath(QStringLiteral("/ThemeCollect"), QStringLiteral("/ThemeCollect.json"));
}

QString MVThemeMgr::Path_FilterCollect()
{
    return collectPath(QStringLiteral("/FilterCollect"), QStringLiteral("/FilterCollect.json"));
}

QString MVThemeMgr::Path_BgMaterialCollect()
{
    return collectPath(QStringLiteral("/BgMaterialCollect"),
                       QStringLiteral("/BgMaterialCollect.json"));
}

QString MVThemeMgr::Path_ThemeType()
{
    return QString();
}

void MVThemeMgr::readCollect(CollectFile& file, const QString& path, const char* openError,
                             const char* category, QJsonObject& out)
{
    switch (file.read(path, out)) {
    case CollectFile::Read::Done:
        return;
    case CollectFile::Read::CannotOpen:
        LogL(category, 1, openError, path.toUtf8().constData());
        return;
    case CollectFile::Read::CannotParse:
        LogL("MVThemeMgr", 1, "parseJson file[%1] error!", path.toUtf8().constData());
        return;
    }
}

void MVThemeMgr::readThemeCollect()
{
    readCollect(*m_pThemeCollect, Path_ThemeCollect(), "readThemeCollect open file[%1] error!",
                "MVThemeMgr", m_jsonThemeCollect);
}

void MVThemeMgr::readFilterCollect()
{
    readCollect(*m_pFilterCollect, Path_FilterCollect(), "readFilterCollect open file[%1] error!",
                "MVFilterMgr", m_jsonFilterCollect);
}

void MVThemeMgr::readBgMaterialCollect()
{
    readCollect(*m_pBgMaterialCollect, Path_BgMaterialCollect(),
                "readBgMaterialCollect open file[%1] error!", "MVBgMaterialMgr",
                m_jsonBgMaterialCollect);
}

void MVThemeMgr::saveThemeCollect()
{
    m_pThemeCollect->save(Path_ThemeCollect(), m_jsonThemeCollect);
}

void MVThemeMgr::saveFilterCollect()
{
    m_pFilterCollect->save(Path_FilterCollect(), m_jsonFilterCollect);
}

void MVThemeMgr::saveBgMaterialCollect()
{
    m_pBgMaterialCollect->save(Path_BgMaterialCollect(), m_jsonBgMaterialCollect);
}

bool MVThemeMgr::saveFavourites(QString* error)
{
    STransferFailure first;
    const auto save = [&](CollectFile& file, QString (MVThemeMgr::*path)(), QJsonObject& marks) {
        if (!file.isInUse())
            return; // the path query would create its folder
        const STransferFailure failure = file.save((this->*path)(), marks);
        if (!first.isFailure())
            first = failure;
    };
    save(*m_pThemeCollect, &MVThemeMgr::Path_ThemeCollect, m_jsonThemeCollect);
    save(*m_pFilterCollect, &MVThemeMgr::Path_FilterCollect, m_jsonFilterCollect);
    save(*m_pBgMaterialCollect, &MVThemeMgr::Path_BgMaterialCollect, m_jsonBgMaterialCollect);
    if (error)
        *error = first.m_qsDetails;
    return !first.isFailure();
}

QStringList MVThemeMgr::favourites(ECfgItemType k) const
{
    switch (favouritesOf(k)) {
    case EFavouritesFile::Themes:
        return m_pThemeCollect->marked(m_jsonThemeCollect);
    case EFavouritesFile::Filters:
        return m_pFilterCollect->marked(m_jsonFilterCollect);
    case EFavouritesFile::None:
        break;
    }
    return {};
}

bool MVThemeMgr::isThemeCollect(const SCfg_Item* item)
{
    return m_pThemeCollect->isMarked(item->m_qsGUID, m_jsonThemeCollect);
}

bool MVThemeMgr::isFilterCollect(const SCfg_Item* item)
{
    return m_pFilterCollect->isMarked(item->m_qsGUID, m_jsonFilterCollect);
}

bool MVThemeMgr::isBgMaterialCollect(const SCfg_Item* item)
{
    return m_pBgMaterialCollect->isMarked(item->m_qsGUID, m_jsonBgMaterialCollect);
}

bool MVThemeMgr::isItemCollect(const SCfg_Item* item)
{
    switch (favouritesOf(item->m_eType)) {
    case EFavouritesFile::Themes:
        return isThemeCollect(item);
    case EFavouritesFile::Filters:
        return isFilterCollect(item);
    case EFavouritesFile::None:
        break;
    }
    return false;
}

void MVThemeMgr::setThemesCollected(const SCfg_Item* item)
{
    m_pThemeCollect->setMarked(item->m_qsGUID, item->m_bCollected);
    emit sigThemesCollected(item);
}

void MVThemeMgr::setFilterCollected(const SCfg_Item* item)
{
    m_pFilterCollect->setMarked(item->m_qsGUID, item->m_bCollected);
    emit sigFilterCollected(item);
}

void MVThemeMgr::setBgMaterialCollected(const SCfg_Item* item)
{
    m_pBgMaterialCollect->setMarked(item->m_qsGUID, item->m_bCollected);
    emit sigBgMaterialCollected(item);
}

void MVThemeMgr::setItemCollected(const SCfg_Item* item)
{
    switch (favouritesOf(item->m_eType)) {
    case EFavouritesFile::Themes:
        setThemesCollected(item);
        break;
    case EFavouritesFile::Filters:
        setFilterCollected(item);
        break;
    case EFavouritesFile::None:
        break;
    }
}

int MVThemeMgr::Themetype(QString key)
{
    return ThemeTypes::code(key);
}

void MVThemeMgr::readThemeType()
{
    const QString file = QStringLiteral("/ResourceConfig/ThemeType.json");
    QJsonObject types;
    if (!readThemeType_a(Path_resource_RootDir(eLoadDir_Download) + file, types)
        && !readThemeType_a(Path_resource_RootDir(eLoadDir_Local) + file, types))
        return;
    m_lstFestivals = types.value(QStringLiteral("festivals")).toArray().toVariantList();
    m_lstTravel = types.value(QStringLiteral("travel")).toArray().toVariantList();
    m_lstBanquets = types.value(QStringLiteral("banquets")).toArray().toVariantList();
}

bool MVThemeMgr::readThemeType_a(QString path, QJsonObject& out)
{
    QByteArray bytes;
    if (!openAndRead(path, bytes)) {
        LogL("MVThemeMgr", 1, "readThemeType open file[%1] error!", path.toUtf8().constData());
        return false;
    }
    if (!parseJson(bytes, out)) {
        LogL("MVThemeMgr", 1, "readThemeType_a parseJson file[%1] error!",
             path.toUtf8().constData());
        return false;
    }
    return true;
}
