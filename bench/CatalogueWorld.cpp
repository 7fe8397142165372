// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueWorld.h"

#include "catalogue/MVThemeMgr.h"
#include "support/CatalogueFiles.h"

namespace {

QString number(int i)
{
    return QStringLiteral("%1").arg(i, 5, 10, QLatin1Char('0'));
}

} // namespace

CatalogueWorld::CatalogueWorld(const QString& folder)
    : m_folder(folder)
{
    use();
}

void CatalogueWorld::write(int themes) const
{
    QVector<CatalogueFiles::CfgItem> config;
    QVector<CatalogueFiles::ThemeGroup> groups = {{QStringLiteral("festivals"), {}},
                                                  {QStringLiteral("travel"), {}},
                                                  {QStringLiteral("banquets"), {}},
                                                  {QStringLiteral("others"), {}}};
    const QString previews = downloadedPreviews();
    for (int i = 0; i < themes; ++i) {
        const QString guid = CatalogueFiles::guid(i);
        const QString name = number(i);
        config.append({guid,
                       QStringLiteral("/Themes/%1.xml").arg(guid),
                       {QStringLiteral("/Themes/%1.zip").arg(guid)}});
        const CatalogueFiles::DisplayItem item{guid, QStringLiteral("Theme ") + name,
                                               QStringLiteral("thumb%1.png").arg(name),
                                               QStringLiteral("preview%1.gif").arg(name)};
        CatalogueFiles::write(previews + QLatin1Char('/') + item.thumb, "image");
        CatalogueFiles::write(previews + QLatin1Char('/') + item.gif, "image");
        groups[i % groups.size()].items.append(item);
    }
    CatalogueFiles::write(
        configFile(),
        CatalogueFiles::document(CatalogueFiles::cfgGroup(QStringLiteral("Theme"), config)));
    CatalogueFiles::write(displayFile(),
                          CatalogueFiles::document(CatalogueFiles::displayThemes(groups)));
}

void CatalogueWorld::writeFilters(int filters) const
{
    const QString kind = MVThemeMgr::init()->getCfgItemTypeStr(eCfgItem_Filter);
    QVector<CatalogueFiles::CfgItem> config;
    QByteArray display;
    for (int i = 0; i < filters; ++i) {
        const QString guid = CatalogueFiles::guid(i);
        config.append({guid, QStringLiteral("/VideoFilters/%1.xml").arg(guid), {}});
        // Thumbnail names are omitted: with them, this many items would exceed the limit on markup.
        display += "<Item><GUID>" + guid.toLatin1() + "</GUID><Name>Filter " + number(i).toLatin1()
            + "</Name></Item>\n";
    }
    CatalogueFiles::write(configFile(),
                          CatalogueFiles::document(CatalogueFiles::cfgGroup(kind, config)));
    CatalogueFiles::write(displayFile(),
                          CatalogueFiles::document('<' + kind.toLatin1() + ">\n" + display + "</"
                                                   + kind.toLatin1() + ">\n"));
}

void CatalogueWorld::use() const
{
    MVThemeMgr::init()->setResourceSaveRootPath(m_folder);
}

QString CatalogueWorld::configFile() const
{
    return MVThemeMgr::init()->Path_resource_xml(MVThemeMgr::eLoadDir_Download,
                                                 MVThemeMgr::eDirTag_Config);
}

QString CatalogueWorld::displayFile() const
{
    return MVThemeMgr::init()->Path_resource_xml(MVThemeMgr::eLoadDir_Download,
                                                 MVThemeMgr::eDirTag_Display);
}

QString CatalogueWorld::downloadedPreviews() const
{
    return MVThemeMgr::init()->Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                 MVThemeMgr::eDirTag_Display, eCfgItem_Theme);
}

QString CatalogueWorld::installedPreviews() const
{
    return MVThemeMgr::init()->Path_resource_Dir(MVThemeMgr::eLoadDir_Local,
                                                 MVThemeMgr::eDirTag_Display, eCfgItem_Theme);
}
