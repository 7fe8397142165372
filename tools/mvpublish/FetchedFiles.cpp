// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FetchedFiles.h"

#include "records/KindTable.h"
#include "tree/ReadTree.h"

#include <QRegularExpression>

FetchedFiles::FetchedFiles(const ReadTree& tree)
{
    const QString config = QStringLiteral("config/");
    const QString display = QStringLiteral("display/");
    for (const SKindInfo& kind : KindTable::all()) {
        const QString folder = kind.folder + QLatin1Char('/');
        // The editor's own lists are part of the installation.
        if (kind.hasDefinitionList)
            m_kept.insert(config + folder + kind.folder + QStringLiteral(".xml"));
        // Other kinds are shown with installed pictures, or without any.
        if (kind.type != eCfgItem_Filter && kind.type != eCfgItem_Theme)
            m_kept.insert(display + kind.folder);
        for (const ConfigEntry& entry : tree.config(kind.type)) {
            const QString own = config + folder + entry.item.m_qsGUID;
            if (!entry.item.m_info_CfgXML.m_qsUrl.startsWith(QLatin1Char('/')))
                m_kept += {own, own + QStringLiteral(".xml")};
        }
    }
    for (const DisplayCatalogue& catalogue : tree.displays()) {
        for (const DisplayEntry& entry : catalogue.entries) {
            if (entry.type == eCfgItem_Filter && !entry.animation.isEmpty())
                m_kept.insert(display + KindTable::of(entry.type).folder + QLatin1Char('/')
                              + entry.animation);
        }
    }
}

bool FetchedFiles::contains(const QString& name) const
{
    for (int at = name.indexOf(QLatin1Char('/')); at > 0;
         at = name.indexOf(QLatin1Char('/'), at + 1)) {
        if (m_kept.contains(name.left(at)))
            return false;
    }
    return !m_kept.contains(name);
}

bool FetchedFiles::isDefinition(const QString& name)
{
    static const QRegularExpression form(QStringLiteral("\\Aconfig/[^/]+/\\{[^/]+\\}\\.xml\\z"));
    return form.match(name).hasMatch();
}
