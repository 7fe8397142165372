// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SmallCatalogue.h"

void SmallCatalogue::addFilter(int number, const QString& name, const QString& config,
                               const QStringList& resources)
{
    const QString guid = CatalogueFiles::guid(number);
    m_filters.append({guid, config, resources});
    if (!name.isEmpty())
        m_shownFilters.append({guid, name, QStringLiteral("thumb.jpg")});
}

void SmallCatalogue::addTheme(int number, const QString& name, const QString& config,
                              const QStringList& resources)
{
    const QString guid = CatalogueFiles::guid(number);
    m_themes.append({guid, config, resources});
    m_shownThemes.append(
        {guid, name, QStringLiteral("thumb.jpg"), QStringLiteral("preview.gif"), QString()});
}

void SmallCatalogue::writeTo(const QString& installed) const
{
    const QString filter = QStringLiteral("Filter");
    const QString tree = installed + QStringLiteral("/Resource");
    CatalogueFiles::write(
        tree + QStringLiteral("/ResourceConfig/resource_config.xml"),
        CatalogueFiles::document(CatalogueFiles::cfgGroup(filter, m_filters)
                                 + CatalogueFiles::cfgGroup(QStringLiteral("Theme"), m_themes)));
    CatalogueFiles::write(
        tree + QStringLiteral("/ResourceConfig/resource_display.xml"),
        CatalogueFiles::document(
            CatalogueFiles::displayCategory(filter, m_shownFilters)
            + CatalogueFiles::displayThemes({{QStringLiteral("others"), m_shownThemes}})));
    for (const char* name : {"VideoFilters/thumb.jpg", "Themes/thumb.jpg", "Themes/preview.gif"})
        CatalogueFiles::write(tree + QStringLiteral("/display/") + QString::fromLatin1(name), "x");
}

QByteArray SmallCatalogue::themeConfig(const QVector<int>& filters)
{
    QByteArray content;
    for (const int number : filters) {
        content += "<Item><Filter><GUID>" + CatalogueFiles::guid(number).toUtf8()
            + "</GUID></Filter></Item>";
    }
    return CatalogueFiles::document(content);
}
