// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "UndoAction.h"

#include "ItemRemovals.h"

#include <algorithm>
#include <iterator>

UndoAction::UndoAction(ItemRemovals& removals, QObject* parent)
    : QAction(parent)
    , m_removals(removals)
{
    setObjectName(QStringLiteral("undo"));
    setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    connect(this, &QAction::triggered, this, &UndoAction::undo);
    connect(&removals, &ItemRemovals::undoCountChanged, this, &UndoAction::noteRemovals);
    retranslate();
}

void UndoAction::noteFavourite(const ItemKey& item, bool wasFavourite)
{
    m_changes.append({item, wasFavourite});
    retranslate();
}

void UndoAction::forgetFavourite(const ItemKey& item)
{
    forgetLast(item);
    retranslate();
}

/// Another control may have undone removals, too.
void UndoAction::noteRemovals()
{
    const auto noted = std::count_if(m_changes.cbegin(), m_changes.cend(),
                                     [](const Change& change) { return change.item.isEmpty(); });
    const int missing = m_removals.undoCount() - static_cast<int>(noted);
    for (int i = 0; i < missing; ++i)
        m_changes.append(Change());
    for (int i = 0; i > missing; --i)
        forgetLast(ItemKey());
    retranslate();
}

void UndoAction::forgetLast(const ItemKey& item)
{
    const auto last = std::find_if(m_changes.rbegin(), m_changes.rend(),
                                   [&](const Change& change) { return change.item == item; });
    if (last != m_changes.rend())
        m_changes.erase(std::next(last).base());
}

void UndoAction::retranslate()
{
    const bool isRemoval = !m_changes.isEmpty() && m_changes.last().item.isEmpty();
    if (m_changes.isEmpty())
        setText(tr("U&ndo"));
    else
        setText(isRemoval ? tr("U&ndo removal") : tr("U&ndo change of favorites"));
    setEnabled(!m_changes.isEmpty());
}

void UndoAction::undo()
{
    if (m_changes.last().item.isEmpty()) {
        m_removals.undo(); // which makes noteRemovals() forget it
        return;
    }
    const Change change = m_changes.takeLast();
    retranslate();
    emit favouriteWanted(change.item, change.wasFavourite);
}
