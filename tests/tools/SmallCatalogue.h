// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/CatalogueFiles.h"

/// A catalogue of a few filters and themes, for tests that need names, files or faults that the
/// samples lack. Previews are installed, so every item is shown.
class SmallCatalogue
{
public:
    /// Adds a filter shown under `name`; empty: only in the config catalogue. `config` and
    /// `resources` are names on the server and begin with "/".
    void addFilter(int number, const QString& name, const QString& config,
                   const QStringList& resources = {});
    void addTheme(int number, const QString& name, const QString& config,
                  const QStringList& resources = {});

    /// Writes both catalogue files and the previews into the application's resources.
    void writeTo(const QString& installed) const;

    /// Returns a theme's config file with one element that depends on these filters.
    static QByteArray themeConfig(const QVector<int>& filters);

private:
    QVector<CatalogueFiles::CfgItem> m_filters;
    QVector<CatalogueFiles::CfgItem> m_themes;
    QVector<CatalogueFiles::DisplayItem> m_shownFilters;
    QVector<CatalogueFiles::DisplayItem> m_shownThemes;
};
