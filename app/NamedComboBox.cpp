// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "NamedComboBox.h"

#include <QAccessibleWidget>

namespace {

class NamedComboBoxAccess : public QAccessibleWidget
{
public:
    explicit NamedComboBoxAccess(QComboBox* box)
        : QAccessibleWidget(box, QAccessible::ComboBox)
        , m_box(box)
    {
    }

    QString text(QAccessible::Text what) const override
    {
        return what == QAccessible::Value ? m_box->currentText() : QAccessibleWidget::text(what);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        return state;
    }

    QStringList actionNames() const override { return {showMenuAction()}; }

    void doAction(const QString& name) override
    {
        if (name == showMenuAction())
            m_box->showPopup();
    }

private:
    QComboBox* m_box;
};

QAccessibleInterface* createBoxAccess(const QString& className, QObject* object)
{
    auto* const box = className == QLatin1String("NamedComboBox")
        ? qobject_cast<NamedComboBox*>(object)
        : nullptr;
    return box ? new NamedComboBoxAccess(box) : nullptr; // Qt's cache owns it
}

} // namespace

NamedComboBox::NamedComboBox(QWidget* parent)
    : QComboBox(parent)
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(&createBoxAccess);
        return true;
    }();
    Q_UNUSED(isInstalled)
}
