// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MvBrowserExport.h"

#include <QSortFilterProxyModel>

class CatalogueIndex;

/// Type of the patterns of names, that of the class's Qt filter: filterRegExp() with Qt 5,
/// filterRegularExpression() with Qt 6.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QRegExp>
using NamePattern = QRegExp;
#else
#include <QRegularExpression>
using NamePattern = QRegularExpression;
#endif

/// Filters the rows of a resource list by theme type, or favourites, and by name.
///
/// The name is matched by namePattern(), anywhere in the name; an invalid pattern matches none, an
/// empty one every name. The catalogue is queried for favourites when the filter is applied. GUI
/// thread only.
class MVBROWSER_EXPORT MVThemeSortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    static constexpr int allThemes = 999;
    static constexpr int favouriteThemes = 1;

    explicit MVThemeSortFilterProxyModel(QObject* parent);

    /// Shows the rows of this type (MVThemeMgr::Themetype), all (999) or the favourite themes (1).
    void setThemeType(int themeType);
    int themeType() const { return m_nThemeType; }
    /// Sets the type as well as the pattern of the names and filters once.
    void setFilter(int themeType, const NamePattern& name);

    /// Returns the pattern with this text that ignores case; NamePattern::escape() makes the text
    /// of one that matches a name literally.
    static NamePattern ignoringCase(const QString& text);
    /// Sets the model's filter, which Qt calls filterRegExp() or filterRegularExpression().
    void setNamePattern(const NamePattern& name);
    NamePattern namePattern() const;

    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    bool isFavouriteTheme(const QString& guid) const;

    int m_nThemeType = allThemes;
    CatalogueIndex* m_pIndex = nullptr; // of all themes while setFilter() runs
};
