// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "StorageBox.h"

#include "FlowLayout.h"
#include "StateText.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel* newLabel(const char* name, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

StorageBox::StorageBox(QWidget* parent)
    : QWidget(parent)
    , m_state(newLabel("itemState", this))
    , m_use(newLabel("itemUse", this))
    , m_noSpace(newLabel("itemNoSpace", this))
    , m_update(new QPushButton(this))
    , m_remove(new QPushButton(this))
{
    setObjectName(QStringLiteral("storage"));
    m_update->setObjectName(QStringLiteral("updateItem"));
    m_remove->setObjectName(QStringLiteral("removeItem"));
    auto* const buttons = new QWidget(this);
    auto* const row = new FlowLayout(buttons);
    for (QPushButton* button : {m_update, m_remove}) {
        button->setParent(buttons);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        row->addWidget(button);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2); // the lines belong together
    layout->addWidget(m_state);
    layout->addWidget(m_use);
    layout->addWidget(m_noSpace);
    layout->addWidget(buttons);
    connect(m_update, &QPushButton::clicked, this, &StorageBox::updateWanted);
    connect(m_remove, &QPushButton::clicked, this, &StorageBox::removeWanted);
    refresh();
}

void StorageBox::showReport(const std::optional<ItemUpdates::Report>& report, bool isBusy)
{
    m_report = report;
    m_isBusy = isBusy;
    refresh();
}

void StorageBox::refresh()
{
    setVisible(m_report.has_value());
    m_remove->setText(tr("Remove from this computer"));
    if (!m_report)
        return;
    const SItemState& state = m_report->state;
    m_state->setText(StateText::ofState(state));
    m_use->setText(StateText::ofUse(m_report->ownBytes, m_report->sharedBytes));
    m_use->setVisible(!m_use->text().isEmpty());
    m_update->setText(state.m_eState == eFile_Missing ? tr("Download") : tr("Update"));
    m_update->setVisible(state.m_nToFetch > 0 && state.m_eState != eFile_Current);
    const bool hasSpace = m_report->freeBytes < 0 || state.m_nBytesToFetch <= m_report->freeBytes;
    m_noSpace->setText(
        tr("There is not enough space on the disk: %1 are free. Remove something, or "
           "choose another download folder in the settings.")
            .arg(StateText::size(m_report->freeBytes)));
    m_noSpace->setVisible(!hasSpace);
    m_update->setEnabled(!m_isBusy && hasSpace);
    m_remove->setVisible(m_report->ownBytes > 0);
    m_remove->setEnabled(!m_isBusy);
}

void StorageBox::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
}
