// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"

#include <QFrame>
#include <QVector>

class FailureBox;
class QScrollArea;
class QVBoxLayout;
struct STransferFailure;

/// The downloads that have failed, the latest first, each with its reason and a way to try it
/// again. Hidden while there are none.
class FailureList : public QWidget
{
    Q_OBJECT

public:
    explicit FailureList(QWidget* parent);

    /// Adds a failure; it replaces that of an earlier try.
    void add(const ItemKey& item, const QString& name, const STransferFailure& failure);
    /// Removes the failure of an item.
    void forget(ECfgItemType kind, const QString& guid);
    int count() const { return m_boxes.size(); }

signals:
    void retryWanted(ECfgItemType kind, const QString& guid);

private:
    void remove(FailureBox* box);
    void adapt();

    QScrollArea* m_area;
    QVBoxLayout* m_column;
    QVector<FailureBox*> m_boxes; // the latest first
};
