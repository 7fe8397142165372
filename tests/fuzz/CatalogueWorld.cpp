// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueWorld.h"

#include <QDebug>

namespace {

const char* const kindFolders[] = {"VideoFilters", "Transitions", "Motions", "Themes",
                                   "BgMaterial"};
const char* const favourites[] = {"ThemeCollect", "FilterCollect", "BgMaterialCollect"};

void append(QVector<SCfg_Item*>& items, const MVThemeMgr::SResourceXML& catalogue)
{
    // The const overload keeps the items from being detached and moved.
    auto& lists = const_cast<MVThemeMgr::SResourceXML&>(catalogue);
    for (QVector<SCfg_Item>* list : {&lists.vecFilter, &lists.vecTransition, &lists.vecMotion,
                                     &lists.vecTheme, &lists.vecBgMaterial}) {
        for (SCfg_Item& item : *list)
            items.append(&item);
    }
}

} // namespace

CatalogueWorld::CatalogueWorld()
{
    fresh();
    setParam("hasMV", "1");
    for (const char* folder : kindFolders) {
        for (const char* name : {"t.png", "t.gif"})
            CatalogueFiles::write(installedFile("display", folder, QString::fromLatin1(name)), "t");
    }
}

void CatalogueWorld::renewRoot() const
{
    QDir(root()).removeRecursively();
    manager().clear();
    manager().setResourceSaveRootPath(root());
}

void CatalogueWorld::renewFavourites() const
{
    QDir(data()).removeRecursively();
    for (const char* name : favourites)
        CatalogueFiles::write(collectFile(name), "{}");
    manager().readThemeCollect();
    manager().readFilterCollect();
    manager().readBgMaterialCollect();
}

QVector<SCfg_Item*> CatalogueWorld::items()
{
    QVector<SCfg_Item*> all;
    append(all, manager().getCfgXML());
    append(all, manager().getDisplayXML());
    return all;
}

QString CatalogueWorld::described(const SCfg_Item& item)
{
    QString text;
    QDebug out(&text);
    out << item << item.m_bIsText << item.m_nThemeType << item.m_info_Thumb << item.m_info_CfgXML
        << item.m_info_Gif << item.m_vecResource;
    if (const SThemes_a* const theme = item.parsedTheme())
        out << *theme;
    return text;
}
