// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"

#include <QObject>
#include <QString>

class DetailsPanel;
class ItemRemovals;
class ItemUpdates;
class QAction;
class QLabel;
class QWidget;
struct SUpdateOutcome;

/// What the window offers for the files of items: it tells what is outdated, updates, downloads and
/// removes items, and brings them back. Owns the objects that do it.
class StorageControls : public QObject
{
    Q_OBJECT

public:
    /// `details` must outlive this object, which belongs to `window`; the bars to `barsParent`.
    StorageControls(DetailsPanel& details, QWidget* barsParent, QWidget* window);

    ItemUpdates& updates() { return *m_updates; }
    ItemRemovals& removals() { return *m_removals; }
    /// Returns the bars to be placed below the lists.
    QWidget* bars() const { return m_bars; }
    /// Returns the line for the status bar that says how many updates there are.
    QLabel* line() const { return m_line; }
    /// Returns the action that updates everything.
    QAction* updateAll() const { return m_updateAll; }
    void retranslate();

    /// Looks at the files again, after a check, and when some have come or gone.
    void refresh();
    /// Updates or downloads an item.
    void update(const ItemKey& item);
    /// Asks the user, and removes the item.
    void askAndRemove(const ItemKey& item);
    /// Cancels everything and waits for its end.
    void shutDown();

signals:
    /// Files of items have changed: the catalogue should be loaded again, see
    /// ItemUpdates::queue().
    void reloadWanted();
    /// A message for the status bar.
    void said(const QString& text);

private:
    void connectUpdates();
    void connectRemovals();
    void refreshControls();
    void toggleUpdateAll();
    void endUpdate(const SUpdateOutcome& outcome);
    void explainFailure(const QString& name, const QString& reason);
    QWidget* window() const;

    DetailsPanel& m_details;
    ItemUpdates* m_updates;
    ItemRemovals* m_removals;
    QWidget* m_bars;
    QLabel* m_line;
    QAction* m_updateAll;
};
