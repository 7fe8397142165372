// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MvBrowserExport.h"

#include <QSortFilterProxyModel>

class CatalogueIndex;

/// Filters the rows of a resource list by theme type, or favourites, and by name.
///
/// The name is matched by filterRegExp(), anywhere in the name. The catalogue is queried for
/// favourites when the filter is applied. GUI thread only.
class MVBROWSER_EXPORT MVThemeSortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// The theme type that shows every row.
    static constexpr int allThemes = 999;
    /// The theme type that shows the favourite themes.
    static constexpr int favouriteThemes = 1;

    /// Creates a model that shows every row of its source.
    explicit MVThemeSortFilterProxyModel(QObject* parent);

    /// Shows the rows of this type (MVThemeMgr::Themetype), all (999) or the favourite themes (1).
    void setThemeType(int themeType);
    /// Returns the theme type shown.
    int themeType() const { return m_nThemeType; }
    /// Sets the type as well as the pattern of the names and filters once.
    void setFilter(int themeType, const QRegExp& name);

    /// Returns whether a row of the source has the theme type and a matching name.
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    bool isFavouriteTheme(const QString& guid) const;

    int m_nThemeType = allThemes;
    CatalogueIndex* m_pIndex = nullptr; // of all themes while setFilter() runs
};
