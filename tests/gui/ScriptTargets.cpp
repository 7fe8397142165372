// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "gui/ScriptTargets.h"

#include "browser/EUIItemRole.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "MainWindow.h"
#include "ResourceList.h"
#include "ResourceTabs.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabBar>

namespace {

QModelIndex rowOf(const mvThemelistview* view, const QString& name)
{
    const QAbstractItemModel* const rows = view->model();
    const QModelIndexList found =
        rows->match(rows->index(0, 0), UIItemRole_Name, name, 1, Qt::MatchExactly);
    return found.isEmpty() ? QModelIndex() : found.constFirst();
}

} // namespace

ScriptTargets::ScriptTargets(MainWindow& window)
    : m_window(window)
{
}

bool ScriptTargets::find(const QStringList& words, QPoint& global)
{
    const QString kind = words.value(0);
    const QString name = words.value(1);
    if (kind == QLatin1String("cell")) {
        if (place(name) != 0)
            return fail(QStringLiteral("the cell is out of view"));
        return findWidget(cell(name), name, global);
    }
    if (kind == QLatin1String("heart"))
        return findInCell(name, {QStringLiteral("btnCollect"), QStringLiteral("btnCollect_No")},
                          global);
    if (kind == QLatin1String("arrow"))
        return findInCell(name, {QStringLiteral("btnDownload")}, global);
    if (kind == QLatin1String("ring"))
        return findInCell(name, {QStringLiteral("lblIcon")}, global);
    if (kind == QLatin1String("more"))
        return findWidget(widget(QStringLiteral("btnMore")), kind, global);
    if (kind == QLatin1String("widget"))
        return findWidget(widget(name), name, global);
    if (kind == QLatin1String("action"))
        return findAction(name, global);
    if (kind == QLatin1String("away")) {
        global = m_window.statusBar()->mapToGlobal(QPoint(2, 2));
        return true;
    }
    if (kind == QLatin1String("tab")) {
        const auto* const tabs = m_window.findChild<QTabBar*>(QStringLiteral("tabs"));
        global = tabs->mapToGlobal(tabs->tabRect(name.toInt()).center());
        return true;
    }
    return fail(QStringLiteral("no such kind of target: %1").arg(kind));
}

MVThemeItemWdg* ScriptTargets::cell(const QString& name) const
{
    const QModelIndex row = rowOf(m_window.tabs()->currentList()->view(), name);
    return qobject_cast<MVThemeItemWdg*>(row.data(UIItemRole_Widget).value<QObject*>());
}

QWidget* ScriptTargets::widget(const QString& name)
{
    const QWidgetList all = QApplication::allWidgets();
    QWidget* first = nullptr;
    const auto isBefore = [](const QWidget* one, const QWidget* other) {
        const QPoint left = one->mapToGlobal(QPoint());
        const QPoint right = other->mapToGlobal(QPoint());
        return left.y() != right.y() ? left.y() < right.y() : left.x() < right.x();
    };
    for (QWidget* widget : all) {
        if (widget->objectName() == name && widget->isVisible()
            && (!first || isBefore(widget, first)))
            first = widget;
    }
    return first;
}

int ScriptTargets::place(const QString& name) const
{
    const mvThemelistview* const view = m_window.tabs()->currentList()->view();
    const QModelIndex row = rowOf(view, name);
    const QPoint middle = view->visualRect(row).center();
    if (!row.isValid() || middle.y() > view->viewport()->height())
        return 1;
    return middle.y() < 0 ? -1 : 0;
}

bool ScriptTargets::findWidget(const QWidget* widget, const QString& what, QPoint& global)
{
    if (!widget || !widget->isVisible())
        return fail(QStringLiteral("%1 cannot be seen").arg(what));
    if (!widget->isEnabled()) // perhaps it waits for the result of a thread
        return fail(QStringLiteral("%1 is disabled").arg(what));
    global = widget->mapToGlobal(widget->rect().center());
    return true;
}

bool ScriptTargets::findInCell(const QString& name, const QStringList& buttons, QPoint& global)
{
    const MVThemeItemWdg* const owner = cell(name);
    for (const QString& button : buttons) {
        const auto* const found = owner ? owner->findChild<QWidget*>(button) : nullptr;
        if (found && found->isVisible())
            return findWidget(found, button, global);
    }
    return fail(QStringLiteral("the cell shows no such button"));
}

bool ScriptTargets::findAction(const QString& name, QPoint& global)
{
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget* widget : all) {
        const auto* const menu = qobject_cast<const QMenu*>(widget);
        const auto* const bar = qobject_cast<const QMenuBar*>(widget);
        if (!widget->isVisible() || (!menu && !bar))
            continue;
        const QList<QAction*> actions = widget->actions();
        for (QAction* action : actions) {
            if (action->objectName() != name)
                continue;
            if (!action->isEnabled())
                return fail(QStringLiteral("%1 is disabled").arg(name));
            const QRect place = menu ? menu->actionGeometry(action) : bar->actionGeometry(action);
            global = widget->mapToGlobal(place.center());
            return true;
        }
    }
    return fail(QStringLiteral("no open menu has %1").arg(name));
}

bool ScriptTargets::fail(const QString& text)
{
    m_error = text;
    return false;
}
