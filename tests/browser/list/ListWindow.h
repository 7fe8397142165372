// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/BrowserMetaTypes.h"
#include "browser/EUIItemType.h"
#include "browser/mvThemelistview.h"

#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class MVResourceItemDelegate;
class MVThemeItemSubwdgt_Preview;
class MVThemeItemWdg;
class MVThemeSortFilterProxyModel;
class QLabel;
class QStandardItemModel;
class QToolButton;
class QWidget;

/// A visible window with one list of live cells and free space around it, and a mouse whose events
/// arrive as the window system's do.
class ListWindow
{
public:
    /// Creates an empty list of that type; populate it with fill().
    explicit ListWindow(EUIItemType type, const QSize& size = {520, 420});
    ~ListWindow();
    Q_DISABLE_COPY_MOVE(ListWindow)

    void fill();
    void close() { m_window.reset(); }

    QWidget& window() { return *m_window; }
    mvThemelistview* view() const { return m_view; }
    MVThemeSortFilterProxyModel* proxy() const;
    QStandardItemModel* rows() const;
    MVResourceItemDelegate* delegate() const;
    /// Returns the names of the rows that pass the filter, in order.
    QStringList shownNames() const;

    /// Returns the live cell of a source model row, with cells on demand a new one if necessary;
    /// null if the row has none.
    MVThemeItemWdg* cell(int row) const;
    /// Returns the live cell of the first row with that name, or null.
    MVThemeItemWdg* cell(const QString& name) const;
    /// Returns the number of cells in the view, including those whose row has been removed.
    int cellCount() const;

    void moveTo(const QWidget* widget);
    void moveAway();
    void press(const QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
    void release(const QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
    void click(const QWidget* widget, Qt::MouseButton button = Qt::LeftButton);

private:
    QPoint centre(const QWidget* widget) const;
    void putCursor(const QPoint& position) const;

    std::unique_ptr<QWidget> m_window;
    QPointer<mvThemelistview> m_view;
};

/// Return the parts of a cell by the object names that style sheets use.
QWidget* frameOf(const MVThemeItemWdg* cell);
MVThemeItemSubwdgt_Preview* faceOf(const MVThemeItemWdg* cell);
QToolButton* buttonOf(const MVThemeItemWdg* cell, const char* name);
QLabel* labelOf(const MVThemeItemWdg* cell, const char* name);
/// Returns the name of the page that the face shows: "pageShow", "pageDownload", "pageMore".
QString pageOf(const MVThemeItemWdg* cell);
/// Returns whether the cell is marked as applied; fails the test if its marks are inconsistent.
bool isMarked(const MVThemeItemWdg* cell);
/// Returns the text of the last failed download; empty if none is shown.
QString errorOf(const MVThemeItemWdg* cell);
/// Returns whether the animation is shown.
bool playsAnimation(const MVThemeItemWdg* cell);

Q_DECLARE_METATYPE(std::function<void(ListWindow&)>)
