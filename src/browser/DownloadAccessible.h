// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>

class CellAccessible;

/// Presents the progress of a cell's download to assistive technology: a progress bar whose action
/// cancels. The cell owns it. Internal to the library; GUI thread only.
class DownloadAccessible : public QAccessibleInterface,
                           public QAccessibleValueInterface,
                           public QAccessibleActionInterface
{
public:
    explicit DownloadAccessible(CellAccessible& cell)
        : m_cell(cell)
    {
    }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }

    QString text(QAccessible::Text type) const override;
    void setText(QAccessible::Text /*type*/, const QString& /*text*/) override { }
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ProgressBar; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& /*value*/) override { }
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override { return 1; }

    QStringList actionNames() const override;
    QString localizedActionName(const QString& name) const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    CellAccessible& m_cell;
};
