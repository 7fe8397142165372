// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SCellState.h"
#include "records/ECfgItemType.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QString>
#include <QStringList>

class mvThemelistview;

/// Presents a row of a resource list to assistive technology: its name tells the item's state and
/// its position, its actions are those of the keyboard. While the item downloads, it has a child,
/// the progress.
///
/// The actions take effect from the event loop, as they may destroy the row. The object is valid
/// while its row is displayed. Internal to the library; GUI thread only.
class CellAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
    Q_DECLARE_TR_FUNCTIONS(CellAccessible)

public:
    /// @name Names of the actions beside Qt's pressAction(), which applies the item or downloads
    /// it, and setFocusAction()
    /// @{
    static QString favouriteAction();
    static QString detailsAction();
    static QString cancelAction();
    /// @}

    /// `row` is of the source model.
    CellAccessible(mvThemelistview& view, const QModelIndex& row);
    ~CellAccessible() override;
    Q_DISABLE_COPY_MOVE(CellAccessible)

    /// Returns the row in the displayed model; invalid if a filter hides it.
    QModelIndex shownRow() const;
    /// Returns the state of the item; the default one for the row of "More>>".
    SCellState cellState() const;
    /// Cancels the download from the event loop.
    void cancelDownload();

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override { return nullptr; }

    QString text(QAccessible::Text type) const override;
    void setText(QAccessible::Text /*type*/, const QString& /*text*/) override { }
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    QString localizedActionName(const QString& name) const override;
    QString localizedActionDescription(const QString& name) const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    QString guid() const;
    ECfgItemType kindOfItems() const;
    QString pressName() const;
    static void perform(mvThemelistview& view, const QModelIndex& row, const QString& name);
    static void focus(mvThemelistview& view, const QModelIndex& index);

    QPointer<mvThemelistview> m_view;
    QPersistentModelIndex m_row;            // of the source model
    mutable QAccessible::Id m_progress = 0; // 0: not asked for yet
};
