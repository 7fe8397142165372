// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/ListAccessible.h"

#include "browser/CellAccessible.h"
#include "browser/mvThemelistview.h"

#include <QAbstractProxyModel>

#include <utility>

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* const view = qobject_cast<mvThemelistview*>(object);
    return view ? new ListAccessible(*view) : nullptr;
}

} // namespace

void ListAccessible::install()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

ListAccessible::ListAccessible(mvThemelistview& view)
    : QAccessibleWidget(&view, QAccessible::List)
    , m_view(view)
{
}

ListAccessible::~ListAccessible()
{
    forgetChildren();
}

void ListAccessible::forgetChildren()
{
    const QHash<int, QAccessible::Id> children = std::exchange(m_children, {});
    for (const QAccessible::Id id : children)
        QAccessible::deleteAccessibleInterface(id);
}

const QAbstractProxyModel* ListAccessible::rows() const
{
    return qobject_cast<const QAbstractProxyModel*>(m_view.model());
}

int ListAccessible::childCount() const
{
    return rows() ? rows()->rowCount() : 0;
}

QAccessibleInterface* ListAccessible::child(int index) const
{
    const QAbstractProxyModel* const shown = rows();
    if (!shown || index < 0 || index >= shown->rowCount())
        return nullptr;
    if (!m_isConnected) {
        // Rows are only removed all together.
        QObject::connect(shown->sourceModel(), &QAbstractItemModel::modelReset, &m_context,
                         [this] { const_cast<ListAccessible*>(this)->forgetChildren(); });
        m_isConnected = true;
    }
    const QModelIndex row = shown->mapToSource(shown->index(index, 0));
    QAccessible::Id id = m_children.value(row.row());
    if (id == 0) {
        id = QAccessible::registerAccessibleInterface(new CellAccessible(m_view, row));
        m_children.insert(row.row(), id);
    }
    return QAccessible::accessibleInterface(id);
}

int ListAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const cell = dynamic_cast<const CellAccessible*>(child);
    return cell ? cell->shownRow().row() : -1;
}

QAccessibleInterface* ListAccessible::childAt(int x, int y) const
{
    const QPoint point = m_view.viewport()->mapFromGlobal(QPoint(x, y));
    return child(m_view.indexAt(point).row());
}

QAccessibleInterface* ListAccessible::focusChild() const
{
    const bool isCell = m_view.hasFocus() && m_view.currentIndex().isValid();
    return isCell ? child(m_view.currentIndex().row()) : QAccessibleWidget::focusChild();
}
