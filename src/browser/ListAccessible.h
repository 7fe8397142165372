// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QObject>

class CellAccessible;
class mvThemelistview;
class QAbstractProxyModel;

/// Presents a resource list to assistive technology: a list whose children are the displayed rows,
/// whether they have a cell or not. Internal to the library; GUI thread only.
class ListAccessible : public QAccessibleWidget
{
public:
    /// Makes Qt use this class for every mvThemelistview; further calls do nothing.
    static void install();

    explicit ListAccessible(mvThemelistview& view);
    ~ListAccessible() override;
    Q_DISABLE_COPY_MOVE(ListAccessible)

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    const QAbstractProxyModel* rows() const;
    void forgetChildren();

    mvThemelistview& m_view;
    mutable QHash<int, QAccessible::Id> m_children; // by row of the source model
    mutable QObject m_context;                      // ends the connections to the model
    mutable bool m_isConnected = false;
};
