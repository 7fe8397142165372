// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/PreviewExchange.h"

#include "host/Immortal.h"

#include <QHash>
#include <QSet>

#include <atomic>
#include <mutex>
#include <utility>

namespace {

std::atomic<quint64> lastChange{0};
std::mutex shownMutex; // guards shownBy
QHash<const void*, QStringList>& shownBy()
{
    static Immortal<QHash<const void*, QStringList>> lists;
    return *lists;
}

} // namespace

PreviewExchange* PreviewExchange::instance()
{
    static Immortal<PreviewExchange> exchange;
    return &*exchange;
}

void PreviewExchange::setShown(const void* viewer, const QStringList& guids)
{
    const std::lock_guard<std::mutex> lock(shownMutex);
    if (shownBy().value(viewer) == guids)
        return;
    if (guids.isEmpty())
        shownBy().remove(viewer);
    else
        shownBy().insert(viewer, guids);
    ++lastChange;
}

QStringList PreviewExchange::shown(quint64& generation) const
{
    const std::lock_guard<std::mutex> lock(shownMutex);
    generation = lastChange;
    QStringList all;
    for (const QStringList& guids : std::as_const(shownBy()))
        all += guids;
    all.removeDuplicates();
    return all;
}

quint64 PreviewExchange::generation() const
{
    return lastChange;
}

void PreviewExchange::tellArrived(const QString& guid)
{
    emit pictureArrived(guid);
}
