// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/ResourceModel.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QStringList>
#include <QVector>

/// Watches a model: stops the program as soon as the model breaks the rules of its kind, and
/// records resets, the ends of operations, and whether rows keep their identity.
class ModelWatch
{
public:
    explicit ModelWatch(ResourceModel& model);
    Q_DISABLE_COPY_MOVE(ModelWatch)

    int resets() const { return m_resets; }
    /// Returns the ends of operations and the applied items, "fetched N complete", in order; N is
    /// the number of the GUID.
    QStringList ends() const { return m_ends; }
    /// Returns the states that an item has shown, each once in a row.
    QVector<int> states() const { return m_states; }
    /// Records the states of this item.
    void watchStates(int number);

    /// Remembers the present rows.
    void keep();
    /// Returns whether every remembered row that still exists shows the same item.
    bool haveRowsKeptTheirItems() const;

    /// Returns the numbers of the items in the rows.
    QVector<int> numbers() const;
    /// Returns the data of an item.
    QVariant value(int number, int role) const;
    int state(int number) const { return value(number, ResourceModel::StateRole).toInt(); }

private:
    void noteEnd(const char* what, const QString& guid, ResourceModel::Outcome outcome);
    void noteState();

    ResourceModel& m_model;
    QAbstractItemModelTester m_tester;
    int m_resets = 0;
    QStringList m_ends;
    int m_watched = -1;
    QVector<int> m_states;
    QVector<QPersistentModelIndex> m_kept;
    QStringList m_keptGuids;
};

/// Waits until a model knows the states of all its items.
#define EXAMINED(model) QTRY_VERIFY_WITH_TIMEOUT(!(model).isExamining(), 30000)
