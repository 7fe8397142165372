// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "UndoBar.h"

#include "ItemRemovals.h"
#include "StateText.h"

UndoBar::UndoBar(ItemRemovals& removals, QWidget* parent)
    : NoticeBar(QStringLiteral("undoBar"), parent)
    , m_removals(removals)
{
    connect(&removals, &ItemRemovals::undoCountChanged, this, &UndoBar::refresh);
}

void UndoBar::refresh()
{
    retranslate();
    setVisible(m_removals.canUndo());
}

void UndoBar::retranslate()
{
    setTexts(tr("“%1” was removed: %2 will be free after the next start")
                 .arg(m_removals.undoName(), StateText::size(m_removals.undoBytes())),
             tr("Undo"));
}

void UndoBar::act()
{
    m_removals.undo();
}
