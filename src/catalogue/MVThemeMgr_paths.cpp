// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeMgr: folders, catalogue files and server addresses.

#include "catalogue/CatalogueChanges.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/PathGuard.h"
#include "host/LogL.h"
#include "host/ProductParam.h"
#include "host/TzResourceMgr.h"
#include "records/FileView.h"
#include "records/KindTable.h"

#include <QUrl>

namespace {

/// Name of the product's folder in both halves of the download tree.
const QString downloadFolder = QStringLiteral("/PQD/Download");

QString tagWord(MVThemeMgr::EDirTag t)
{
    switch (t) {
    case MVThemeMgr::eDirTag_Config:
        return QStringLiteral("config");
    case MVThemeMgr::eDirTag_Display:
        return QStringLiteral("display");
    }
    return QString();
}

/// Returns the pattern of a kind's folder, with a placeholder for the half; empty for an invalid
/// kind.
QString kindPattern(ECfgItemType k)
{
    const SKindInfo* const kind = KindTable::find(k);
    return kind ? QStringLiteral("/%1/") + kind->folder : QString();
}

QString serverRoot()
{
    return ProductParam::text(ProductParam::serverRoot);
}

} // namespace

void MVThemeMgr::setResourceSaveRootPath(const QString& path)
{
    LogL("MVThemeMgr", 2, "Resource root path: %s", path.toUtf8().constData());
    CatalogueChanges* const changes = CatalogueChanges::instance();
    emit changes->announced(); // threads that look for files read the root
    m_qsSaveRoot = path;
    // A link below the root would create folders elsewhere.
    for (const SKindInfo& kind : KindTable::all()) {
        for (const EDirTag half : {eDirTag_Config, eDirTag_Display})
            PathGuard::ensureDir(path, Path_resource_Dir(eLoadDir_Download, half, kind.type));
    }
    PathGuard::ensureDir(path, path + QStringLiteral("/imgThumb"));
    emit changes->ended(true);
}

QString MVThemeMgr::Path_resource_RootDir(ELoadDir d)
{
    switch (d) {
    case eLoadDir_Local:
        return TzResourceMgr::instance()->resourcesPath() + QStringLiteral("/Resource");
    case eLoadDir_Download:
        return m_qsSaveRoot + QStringLiteral("/Themes");
    }
    return QString();
}

QString MVThemeMgr::Path_resource_Dir(ELoadDir d, EDirTag t)
{
    if (d != eLoadDir_Local)
        return Path_resource_RootDir(d) + QLatin1Char('/') + tagWord(t) + downloadFolder;
    switch (t) {
    case eDirTag_Config:
        return Path_resource_RootDir(d);
    case eDirTag_Display:
        return Path_resource_RootDir(d) + QStringLiteral("/display");
    }
    return QString();
}

QString MVThemeMgr::Path_resource_Dir(ELoadDir d, EDirTag t, ECfgItemType k)
{
    const QString pattern = kindPattern(k);
    if (pattern.isEmpty())
        return QString();
    QString half;
    if (d != eLoadDir_Local)
        half = tagWord(t) + downloadFolder;
    else if (t == eDirTag_Display)
        half = tagWord(t);
    return Path_resource_RootDir(d) + pattern.arg(half);
}

QString MVThemeMgr::Path_resource_xml(ELoadDir d, EDirTag t)
{
    switch (t) {
    case eDirTag_Config:
        return Path_resource_RootDir(d) + QStringLiteral("/ResourceConfig/resource_config.xml");
    case eDirTag_Display:
        return Path_resource_RootDir(d) + QStringLiteral("/ResourceConfig/resource_display.xml");
    }
    return QString();
}

QString MVThemeMgr::Path_resource_version_xml(ELoadDir d)
{
    return Path_resource_RootDir(d) + QStringLiteral("/ResourceConfig/resource_version.xml");
}

QString MVThemeMgr::saveResourcePath() const
{
    return m_qsSaveRoot + QStringLiteral("/ResourceConfig");
}

QString MVThemeMgr::saveThemePath() const
{
    return m_qsSaveRoot + QStringLiteral("/Themes/config");
}

bool MVThemeMgr::isDownloadPath(const QString& path) const
{
    return PathGuard::isInside(m_qsSaveRoot, path);
}

QString MVThemeMgr::downLoadUrl(EDirTag t, QString name)
{
    if (name.contains(QLatin1String("ThemesBgm")) && name.contains(QLatin1Char(' ')))
        name = QString::fromLatin1(QUrl::toPercentEncoding(name, "/", " "));
    return serverRoot() + tagWord(t) + name;
}

bool MVThemeMgr::isServerAddress(const QString& url) const
{
    const QUrl root(serverRoot());
    const QUrl address(url);
    return address.isValid() && address.scheme() == root.scheme()
        && address.authority(QUrl::FullyEncoded) == root.authority(QUrl::FullyEncoded);
}

QString MVThemeMgr::downLoadUrl_Thumb(EDirTag t, ECfgItemType k, QString name)
{
    // The server root includes its slash.
    const QString pattern = kindPattern(k).mid(1);
    const QString folder = pattern.isEmpty() ? QString() : serverRoot() + pattern.arg(tagWord(t));
    return folder + QLatin1Char('/')
        + QString::fromLatin1(QUrl::toPercentEncoding(name, QByteArray(), " "));
}

QString MVThemeMgr::addressOf(const SFileInfo& info)
{
    const FileView view(info);
    return view.isDisplayHalf() ? downLoadUrl_Thumb(eDirTag_Display, view.kind(), view.name())
                                : downLoadUrl(eDirTag_Config, view.name());
}

QString MVThemeMgr::getCfgItemTypeStr(ECfgItemType k)
{
    const SKindInfo* const kind = KindTable::find(k);
    return kind ? QString(kind->name) : QStringLiteral("error");
}
