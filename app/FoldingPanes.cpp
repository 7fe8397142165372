// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FoldingPanes.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>

FoldingPanes::FoldingPanes(QWidget* parent)
    : QSplitter(parent)
    , m_back(new QPushButton(this))
{
    m_back->setObjectName(QStringLiteral("backToLists"));
    m_back->setText(tr("Back to the list"));
    m_back->hide();
    setChildrenCollapsible(false);
    constexpr int gap = 9; // as around the panes
    setHandleWidth(gap);
    connect(m_back, &QPushButton::clicked, this, &FoldingPanes::goBack);
}

void FoldingPanes::setPanes(QWidget* lists, QWidget* details)
{
    m_lists = lists;
    m_details = details;
    addWidget(lists);
    addWidget(details);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    limitWidths();
}

/// Gives both panes the width that they need, and at least a useful one.
void FoldingPanes::limitWidths()
{
    constexpr int usefulLists = 400; // two columns of themes
    constexpr int usefulDetails = 280;
    const auto limit = [](QWidget* pane, int useful) {
        const int width = qMax(useful, pane->layout() ? pane->layout()->minimumSize().width() : 0);
        if (pane->minimumWidth() != width)
            pane->setMinimumWidth(width);
    };
    limit(m_lists, usefulLists);
    limit(m_details, usefulDetails);
}

/// The window may become narrower than both panes need.
QSize FoldingPanes::minimumSizeHint() const
{
    if (!m_lists)
        return QSplitter::minimumSizeHint();
    QSize size;
    for (const QWidget* pane : {m_lists, m_details})
        size = size.expandedTo({pane->minimumWidth(), pane->minimumSizeHint().height()});
    return size;
}

void FoldingPanes::setUnfolded(bool isUnfolded)
{
    if (m_isUnfolded == isUnfolded)
        return;
    m_isUnfolded = isUnfolded;
    m_isOnTop = m_isNarrow && isUnfolded;
    arrange();
    emit unfoldedChanged(isUnfolded);
}

void FoldingPanes::showDetails()
{
    m_isOnTop = m_isNarrow;
    setUnfolded(true);
    arrange();
    if (m_isOnTop)
        m_back->setFocus(); // the list had it
}

void FoldingPanes::goBack()
{
    m_isOnTop = false;
    arrange();
    emit wentBack();
}

void FoldingPanes::arrange()
{
    if (!m_lists)
        return;
    m_lists->setVisible(!m_isOnTop);
    m_details->setVisible(m_isOnTop || (m_isUnfolded && !m_isNarrow));
    m_back->setVisible(m_isOnTop);
}

void FoldingPanes::changeEvent(QEvent* event)
{
    QSplitter::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_back->setText(tr("Back to the list"));
}

bool FoldingPanes::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest && m_lists)
        limitWidths();
    return QSplitter::event(event);
}

void FoldingPanes::resizeEvent(QResizeEvent* event)
{
    QSplitter::resizeEvent(event);
    const bool isNarrow = m_lists
        && event->size().width()
            < m_lists->minimumWidth() + handleWidth() + m_details->minimumWidth();
    if (isNarrow == m_isNarrow)
        return;
    m_isNarrow = isNarrow;
    m_isOnTop = false;
    arrange();
}

void FoldingPanes::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_isOnTop)
        goBack();
    else
        QSplitter::keyPressEvent(event);
}
