// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>
#include <QStandardItemModel>

class QSortFilterProxyModel;

/// The minimum cost of a list of live cells: the same rows in the same kind of view, each with a
/// persistent editor that is a bare form.
class BaremvThemelistview : public QListView
{
    Q_OBJECT

public:
    BaremvThemelistview();

    /// Appends a row for every theme of the loaded catalogue and opens its editor.
    void fill();

private:
    QStandardItemModel m_rows;
    QSortFilterProxyModel* m_shown;
};

namespace BrowserFloor {

/// Returns a skin whose rules name the classes of the bare forms.
QString styleSheet(const QString& skin);

/// Describes the visible part of a cell, one line per visible widget: name, place and font.
/// Overlays on the picture are omitted, since their placement is behaviour.
QStringList layoutOf(const QWidget& cell);

} // namespace BrowserFloor
