// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FailureList.h"

#include "FailureBox.h"

#include <QEvent>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

FailureList::FailureList(QWidget* parent)
    : QWidget(parent)
    , m_area(new QScrollArea(this))
    , m_column(new QVBoxLayout)
{
    setObjectName(QStringLiteral("failures"));
    auto* const content = new QWidget(m_area);
    content->setLayout(m_column);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSizeConstraint(QLayout::SetMinAndMaxSize);
    m_area->setWidget(content);
    m_area->setWidgetResizable(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_area);
    hide();
}

void FailureList::add(const ItemKey& item, const QString& name, const STransferFailure& failure)
{
    forget(item.kind, item.guid);
    auto* const box = new FailureBox(item, name, failure, m_area->widget());
    m_boxes.prepend(box);
    m_column->insertWidget(0, box);
    connect(box, &FailureBox::retryWanted, this, &FailureList::retryWanted);
    connect(box, &FailureBox::closed, this, [this, box] { remove(box); });
    connect(box, &FailureBox::resized, this, &FailureList::adapt, Qt::QueuedConnection);
    box->show();
    show();
    m_area->ensureVisible(0, 0);
    adapt();
}

void FailureList::forget(ECfgItemType kind, const QString& guid)
{
    const auto found = std::find_if(m_boxes.cbegin(), m_boxes.cend(), [&](const FailureBox* box) {
        return box->item() == ItemKey{kind, guid};
    });
    if (found != m_boxes.cend())
        remove(*found);
}

void FailureList::remove(FailureBox* box)
{
    m_boxes.removeOne(box);
    box->hide();
    box->deleteLater(); // its button may still be busy
    setVisible(!m_boxes.isEmpty());
    adapt();
}

/// Is as high as its boxes, up to a limit beyond which it scrolls.
void FailureList::adapt()
{
    constexpr int maxShownBoxes = 2;
    int height = 0;
    for (int at = 0; at < qMin(maxShownBoxes, m_boxes.size()); ++at) {
        const FailureBox* const box = m_boxes.at(at);
        const int width = m_area->viewport()->width();
        height += (box->hasHeightForWidth() ? box->heightForWidth(width) : box->sizeHint().height())
            + m_column->spacing();
    }
    m_area->setFixedHeight(height);
}
