#pragma once

#include <QListView>
#include <QStandardItemModel>

class QSortFilterProxyModel;

/// The least that a list of live cells can cost: the same rows in the same kind of view, and on
/// each a persistent editor that is a bare form.
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

/// A skin with its rules' class names replaced by those of the bare forms.
QString styleSheet(const QString& skin);

/// What can be seen of a cell, a line for each visible widget: its name, place and font. What
/// floats over the picture is left out, for its place is behaviour.
QStringList layoutOf(const QWidget& cell);

} // namespace BrowserFloor
