// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "UndoAction.h"

#include "ItemRemovals.h"

UndoAction::UndoAction(ItemRemovals& removals, QObject* parent)
    : QAction(parent)
    , m_removals(removals)
{
    setObjectName(QStringLiteral("undo"));
    setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    connect(this, &QAction::triggered, this, &UndoAction::undo);
    connect(&removals, &ItemRemovals::removed, this, [this] {
        m_changes.append(ItemKey());
        retranslate();
    });
    connect(&removals, &ItemRemovals::undone, this, [this] {
        const int last = m_changes.lastIndexOf(ItemKey());
        if (last >= 0)
            m_changes.remove(last);
        retranslate();
    });
    retranslate();
}

void UndoAction::noteFavourite(const ItemKey& item)
{
    m_changes.append(item);
    retranslate();
}

void UndoAction::forgetFavourite(const ItemKey& item)
{
    const int last = m_changes.lastIndexOf(item);
    if (last >= 0)
        m_changes.remove(last);
    retranslate();
}

void UndoAction::retranslate()
{
    const bool isRemoval = !m_changes.isEmpty() && m_changes.last().isEmpty();
    if (m_changes.isEmpty())
        setText(tr("U&ndo"));
    else
        setText(isRemoval ? tr("U&ndo removal") : tr("U&ndo change of favorites"));
    setEnabled(!m_changes.isEmpty());
}

/// A removal leaves the list when its files are back.
void UndoAction::undo()
{
    if (m_changes.last().isEmpty()) {
        m_removals.undo();
        return;
    }
    const ItemKey item = m_changes.takeLast();
    retranslate();
    emit favouriteWanted(item);
}
