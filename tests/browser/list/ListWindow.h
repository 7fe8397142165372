#pragma once

#include "browser/EUIItemType.h"
#include "browser/mvThemelistview.h"

#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

class MVResourceItemDelegate;
class MVThemeItemSubwdgt_Preview;
class MVThemeItemWdg;
class MVThemeSortFilterProxyModel;
class QLabel;
class QStandardItemModel;
class QToolButton;
class QWidget;

/// A shown window with one list of live cells and free space around it, and a mouse for it: the
/// events come in as the window system's do.
class ListWindow
{
public:
    /// An empty list of that type; fill() it.
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
    /// The names of the rows that the filter lets through, in order.
    QStringList shownNames() const;

    /// The live cell of a row of the source model, or null.
    MVThemeItemWdg* cell(int row) const;
    /// The same for the first row with that name.
    MVThemeItemWdg* cell(const QString& name) const;
    /// All cells that hang in the view, also those of no row any more.
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

/// The parts of a cell, by the names that style sheets know them by.
QWidget* frameOf(const MVThemeItemWdg* cell);
MVThemeItemSubwdgt_Preview* faceOf(const MVThemeItemWdg* cell);
QToolButton* buttonOf(const MVThemeItemWdg* cell, const char* name);
QLabel* labelOf(const MVThemeItemWdg* cell, const char* name);
/// Name of the page that the face shows: "pageShow", "pageDownload", "pageMore".
QString pageOf(const MVThemeItemWdg* cell);
/// Whether the cell has all marks of the applied one, or none: a mixture fails the test.
bool isMarked(const MVThemeItemWdg* cell);
/// The text of the last failed download, empty while none is shown.
QString errorOf(const MVThemeItemWdg* cell);
/// Whether the animation is shown.
bool playsAnimation(const MVThemeItemWdg* cell);
