// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/PreviewQueue.h"

#include "download/PreviewExchange.h"

#include <utility>

namespace {

constexpr int picturesPerItem = 2;

} // namespace

PreviewQueue::PreviewQueue(const QVector<QString>& guids)
    : m_isTaken(picturesPerItem * guids.size(), false)
{
    for (int item = 0; item < guids.size(); ++item)
        m_items.insert(guids.at(item), item);
}

std::optional<PreviewQueue::Picture> PreviewQueue::take()
{
    readWishes();
    while (m_nextWanted < m_wanted.size()) {
        if (const auto picture = takeAt(m_wanted.at(m_nextWanted++)))
            return picture;
    }
    while (m_next < m_isTaken.size()) {
        if (const auto picture = takeAt(m_next++))
            return picture;
    }
    return std::nullopt;
}

std::optional<PreviewQueue::Picture> PreviewQueue::takeAt(int position)
{
    if (std::exchange(m_isTaken[position], true))
        return std::nullopt;
    return Picture{position / picturesPerItem, position % picturesPerItem != 0};
}

/// All thumbnails come before the previews, which are only seen while the mouse is over a cell.
void PreviewQueue::readWishes()
{
    if (PreviewExchange::instance()->generation() == m_generation)
        return;
    const QStringList guids = PreviewExchange::instance()->shown(m_generation);
    m_wanted.clear();
    m_nextWanted = 0;
    for (int picture = 0; picture < picturesPerItem; ++picture) {
        for (const QString& guid : guids) {
            const QList<int> items = m_items.values(guid);
            for (const int item : items)
                m_wanted.append(picturesPerItem * item + picture);
        }
    }
}
