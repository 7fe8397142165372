// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/ListWindow.h"

#include "browser/EUIItemRole.h"
#include "browser/MVResourceItemDelegate.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemePreviewFrm.h"
#include "browser/MVThemeSortFilterProxyModel.h"

#include <QCursor>
#include <QLabel>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTest>
#include <QToolButton>
#include <QUuid>

namespace {

constexpr int freeSpace = 24;
constexpr QPoint freeSpot(2, 2);
constexpr int windowDistance = 1000;

int windows = 0; // number of existing windows

} // namespace

ListWindow::ListWindow(EUIItemType type, const QSize& size)
    : m_window(std::make_unique<QWidget>())
    , m_view(new mvThemelistview(m_window.get()))
{
    m_view->setUIItemType(type);
    m_window->resize(size);
    m_view->setGeometry(m_window->rect().adjusted(freeSpace, freeSpace, -freeSpace, -freeSpace));
    // Windows are placed side by side: the cursor finds one by its position.
    m_window->move(windows++ * windowDistance, 0);
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        qFatal("the window is not shown");
    moveAway();
}

ListWindow::~ListWindow()
{
    --windows;
}

void ListWindow::fill()
{
    m_view->initData(QUuid(), false);
    // The view places cells when it lays itself out.
    QCoreApplication::processEvents();
}

MVThemeSortFilterProxyModel* ListWindow::proxy() const
{
    return qobject_cast<MVThemeSortFilterProxyModel*>(m_view->model());
}

QStandardItemModel* ListWindow::rows() const
{
    return qobject_cast<QStandardItemModel*>(proxy()->sourceModel());
}

MVResourceItemDelegate* ListWindow::delegate() const
{
    return qobject_cast<MVResourceItemDelegate*>(m_view->itemDelegate());
}

QStringList ListWindow::shownNames() const
{
    QStringList names;
    for (int row = 0; row < proxy()->rowCount(); ++row)
        names.append(proxy()->index(row, 0).data(UIItemRole_Name).toString());
    return names;
}

MVThemeItemWdg* ListWindow::cell(int row) const
{
    const QModelIndex index = rows()->index(row, 0);
    auto* const widget =
        qobject_cast<MVThemeItemWdg*>(index.data(UIItemRole_Widget).value<QObject*>());
    return widget ? widget : m_view->cell(index.data(UIItemRole_GUID).toString());
}

MVThemeItemWdg* ListWindow::cell(const QString& name) const
{
    for (int row = 0; row < rows()->rowCount(); ++row) {
        if (rows()->index(row, 0).data(UIItemRole_Name).toString() == name)
            return cell(row);
    }
    return nullptr;
}

int ListWindow::cellCount() const
{
    return m_view->viewport()->findChildren<MVThemeItemWdg*>().size();
}

QPoint ListWindow::centre(const QWidget* widget) const
{
    return widget->mapTo(m_window.get(), widget->rect().center());
}

void ListWindow::moveTo(const QWidget* widget)
{
    putCursor(centre(widget));
}

void ListWindow::moveAway()
{
    putCursor(freeSpot);
}

void ListWindow::putCursor(const QPoint& position) const
{
    // Qt is asked for the cursor's position when something below it hides or appears.
    QCursor::setPos(m_window->mapToGlobal(position));
    QCoreApplication::processEvents();
}

void ListWindow::press(const QWidget* widget, Qt::MouseButton button)
{
    moveTo(widget);
    QTest::mousePress(m_window->windowHandle(), button, Qt::NoModifier, centre(widget));
}

void ListWindow::release(const QWidget* widget, Qt::MouseButton button)
{
    QTest::mouseRelease(m_window->windowHandle(), button, Qt::NoModifier, centre(widget));
}

void ListWindow::click(const QWidget* widget, Qt::MouseButton button)
{
    press(widget, button);
    release(widget, button);
}

QWidget* frameOf(const MVThemeItemWdg* cell)
{
    return cell->findChild<QWidget*>(QStringLiteral("MVThemeItemWdgBg"));
}

MVThemeItemSubwdgt_Preview* faceOf(const MVThemeItemWdg* cell)
{
    return cell->findChild<MVThemeItemSubwdgt_Preview*>();
}

QToolButton* buttonOf(const MVThemeItemWdg* cell, const char* name)
{
    return cell->findChild<QToolButton*>(QString::fromLatin1(name));
}

QLabel* labelOf(const MVThemeItemWdg* cell, const char* name)
{
    return cell->findChild<QLabel*>(QString::fromLatin1(name));
}

QString pageOf(const MVThemeItemWdg* cell)
{
    const auto* const pages = faceOf(cell)->findChild<QStackedWidget*>(
        QStringLiteral("stackedWidget"), Qt::FindDirectChildrenOnly);
    return pages->currentWidget()->objectName();
}

bool isMarked(const MVThemeItemWdg* cell)
{
    const bool marked = cell->property("IsChecked").toBool();
    if (labelOf(cell, "lblCur")->isHidden() == marked)
        QTest::qFail("the property and the text of the mark differ", __FILE__, __LINE__);
    return marked;
}

QString errorOf(const MVThemeItemWdg* cell)
{
    const auto* const overlay = cell->findChild<QWidget*>(QStringLiteral("frmNetError"));
    return overlay->isHidden() ? QString() : labelOf(cell, "lblNetError")->text();
}

bool playsAnimation(const MVThemeItemWdg* cell)
{
    const auto* const pages = cell->findChild<MVThemePreviewFrm*>()->findChild<QStackedWidget*>(
        QStringLiteral("stackedWidget"), Qt::FindDirectChildrenOnly);
    return pages->currentWidget()->objectName() == QLatin1String("pagePreview");
}
