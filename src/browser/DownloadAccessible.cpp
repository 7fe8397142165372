// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/DownloadAccessible.h"

#include "browser/CellAccessible.h"
#include "browser/CellText.h"

#include <QRect>
#include <QStringList>
#include <QVariant>

namespace {

constexpr int complete = 100; // per cent

} // namespace

bool DownloadAccessible::isValid() const
{
    return m_cell.isValid() && m_cell.childCount() > 0;
}

QWindow* DownloadAccessible::window() const
{
    return m_cell.window();
}

QAccessibleInterface* DownloadAccessible::parent() const
{
    return &m_cell;
}

QString DownloadAccessible::text(QAccessible::Text type) const
{
    if (type != QAccessible::Name && type != QAccessible::Value)
        return {};
    return CellText::ofFiles(m_cell.cellState());
}

QRect DownloadAccessible::rect() const
{
    return m_cell.rect();
}

QAccessible::State DownloadAccessible::state() const
{
    QAccessible::State state = m_cell.state();
    state.selectable = false;
    state.selected = false;
    state.focusable = false;
    state.focused = false;
    state.readOnly = true;
    return state;
}

void* DownloadAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QVariant DownloadAccessible::currentValue() const
{
    return m_cell.cellState().percent;
}

QVariant DownloadAccessible::maximumValue() const
{
    return complete;
}

QStringList DownloadAccessible::actionNames() const
{
    return {CellAccessible::cancelAction()};
}

QString DownloadAccessible::localizedActionName(const QString& name) const
{
    return m_cell.localizedActionName(name);
}

void DownloadAccessible::doAction(const QString& name)
{
    if (name == CellAccessible::cancelAction())
        m_cell.cancelDownload();
}

QStringList DownloadAccessible::keyBindingsForAction(const QString& name) const
{
    return m_cell.keyBindingsForAction(name);
}
