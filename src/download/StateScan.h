// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ResourceKey.h"
#include "download/SItemFacts.h"
#include "host/CancelToken.h"

#include <QString>
#include <QVector>

#include <functional>

/// Looks at the files of items, in their order: first at the pictures of those that have never been
/// looked at, which is quick, then at all files of every item. Internal to the library; one thread,
/// which may use the catalogue.
class StateScan
{
public:
    struct Wanted
    {
        SCfg_Item* item;
        quint64 request; ///< reported with the result
        bool isNew;      ///< its pictures are wanted first
    };
    struct Found
    {
        ResourceKey key;
        quint64 request;
        SItemFacts facts;
    };
    using Report = std::function<void(const QVector<Found>& found)>;

    /// `report` receives the results in batches, on the thread of run().
    StateScan(QVector<Wanted> items, Report report);

    void run(const CancelToken& cancel);
    /// Returns the items of which run() has not reported the states, since it was cancelled.
    QVector<ResourceKey> left() const;

    /// Returns the hash under which SItemFacts::paths has a path.
    static quint32 hashOf(const QString& path);

private:
    void add(const Wanted& wanted, const SItemFacts& facts);
    void deliver();

    QVector<Wanted> m_items;
    Report m_report;
    QVector<Found> m_batch;
    int m_done = 0; // items whose states have been reported
};
