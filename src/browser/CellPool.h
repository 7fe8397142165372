// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QVector>

#include <functional>

class QListView;
struct ViewRows;

/// Opens the persistent editors of the rows that a list view shows and of one page around them, and
/// closes those of rows that have left.
///
/// Rows in view get their editors within the call of update(), so that none is painted without; if
/// they are many, the rest follows from the event loop, as the rows around do. The rows must be
/// laid out from top to bottom: the vertical position never decreases from row to row. The pool
/// does nothing while the view is hidden.
///
/// It owns neither the view, which must outlive it, nor the editors. Internal to the library; GUI
/// thread only.
class CellPool : public QObject
{
    Q_OBJECT

public:
    using Condition = std::function<bool(const QModelIndex&)>;
    using Notification = std::function<void(const QModelIndex&)>;

    /// An editor for which `isKept` returns true stays open although its row is out of view.
    /// `closing` is called before the pool closes an editor.
    CellPool(QListView& view, Condition isKept, Notification closing);

    /// Opens and closes editors after rows, layout, scroll position or visibility have changed.
    void update();
    /// Opens the editor of a row, wherever it is, and returns it. It stays open at least until
    /// control returns to the event loop.
    QWidget* open(const QModelIndex& index);
    /// Takes over an editor that is already open.
    void adopt(const QModelIndex& index);

    /// Postpones all work while it exists; its end updates the pool.
    class Pause
    {
    public:
        explicit Pause(CellPool* pool); ///< null does nothing
        ~Pause();
        Q_DISABLE_COPY_MOVE(Pause)

    private:
        QPointer<CellPool> m_pool; // may end first
    };

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    int openMissing(const ViewRows& rows, int maxOpened);
    void closeFar(const ViewRows& rows);
    bool isReady() const;

    QListView& m_view;
    Condition m_isKept;
    Notification m_closing;
    QVector<QPersistentModelIndex>
        m_open;          // may contain rows that have been removed or closed since
    QBasicTimer m_timer; // runs while rows wait for their editors
    int m_pauses = 0;
    bool m_isUpdating = false;
};
