// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ResourceStorage.h"
#include "ItemKey.h"

#include <QObject>
#include <QString>
#include <QVector>

class WorkQueue;

/// Removes items from the download root, with undo until the program ends. The files are moved by
/// the queue's thread; all calls and signals are the GUI thread's.
///
/// The catalogue must be loaded again after removed() and undone(): cells and themes know their
/// files.
class ItemRemovals : public QObject
{
    Q_OBJECT

public:
    /// `queue` must outlive this object.
    ItemRemovals(WorkQueue& queue, QObject* parent);

    /// Deletes what removals of earlier starts have left.
    void purge();
    /// Removes an item; removed() or failed() follows.
    void remove(const ItemKey& item);
    /// Brings the item back that was removed last; undone() follows.
    void undo();
    bool canUndo() const { return !m_undoable.isEmpty(); }
    int undoCount() const { return m_undoable.size(); }
    /// Makes the removals so far final, before another download root is used.
    void forget();
    /// Returns the name of the item that undo() brings back, and the bytes that were freed.
    QString undoName() const;
    qint64 undoBytes() const;

signals:
    /// undoCount() has changed.
    void undoCountChanged();
    void removed(const ItemKey& item);
    /// Nothing was removed.
    void failed(const QString& name, const QString& reason);
    /// The item is back; `isWhole` is false if some of its files are not.
    void undone(const QString& name, bool isWhole);

private:
    using Removal = ResourceStorage::Removal;
    struct Undoable
    {
        QString name;
        Removal removal;
    };

    void endRemoval(const ItemKey& item, const QString& name, const Removal& removal);

    WorkQueue& m_queue;
    QVector<Undoable> m_undoable; // in the order of their removal
};
