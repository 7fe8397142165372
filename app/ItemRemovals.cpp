// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ItemRemovals.h"

#include "WorkQueue.h"

#include <memory>

ItemRemovals::ItemRemovals(WorkQueue& queue, QObject* parent)
    : QObject(parent)
    , m_queue(queue)
{
}

void ItemRemovals::purge()
{
    WorkQueue::Job job;
    job.prepare = [](const CancelToken&) { return &ResourceStorage::purge; };
    m_queue.add(std::move(job));
}

void ItemRemovals::remove(const ItemKey& item)
{
    auto removal = std::make_shared<Removal>();
    const QString name = item.name();
    WorkQueue::Job job;
    job.prepare = [item, removal](const CancelToken&) -> WorkQueue::Work {
        SCfg_Item* const found = item.find();
        if (!found)
            return {};
        // Without a CatalogueUse, which would count as a download that uses the item.
        return [found, removal] { *removal = ResourceStorage().removeItem(*found); };
    };
    job.ended = [this, item, name, removal](bool) { endRemoval(item, name, *removal); };
    m_queue.add(std::move(job));
}

void ItemRemovals::endRemoval(const ItemKey& item, const QString& name, const Removal& removal)
{
    if (!removal.isComplete()) {
        emit failed(name, removal.error);
        return;
    }
    if (!removal.files.isEmpty()) {
        m_undoable.append({name, removal});
        emit undoCountChanged();
    }
    emit removed(item);
}

void ItemRemovals::undo()
{
    if (!canUndo())
        return;
    const Undoable last = m_undoable.takeLast();
    auto isWhole = std::make_shared<bool>(false);
    WorkQueue::Job job;
    job.prepare = [last, isWhole](const CancelToken&) {
        return [last, isWhole] { *isWhole = ResourceStorage::undo(last.removal); };
    };
    job.ended = [this, last, isWhole](bool) { emit undone(last.name, *isWhole); };
    m_queue.add(std::move(job));
    emit undoCountChanged();
}

void ItemRemovals::forget()
{
    m_undoable.clear();
    emit undoCountChanged();
}

QString ItemRemovals::undoName() const
{
    return canUndo() ? m_undoable.constLast().name : QString();
}

qint64 ItemRemovals::undoBytes() const
{
    return canUndo() ? m_undoable.constLast().removal.bytes : 0;
}
