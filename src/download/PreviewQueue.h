// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMultiHash>
#include <QString>
#include <QVector>

#include <optional>

/// The order in which a preview run fetches the pictures of its items: those of the items that the
/// user is looking at (PreviewExchange) first, the others in the order of the list. Internal to the
/// library; one thread.
class PreviewQueue
{
public:
    struct Picture
    {
        int item;   ///< position in the list
        bool isGif; ///< the animated preview; otherwise the thumbnail
    };

    /// Takes the GUIDs of the items, in their order.
    explicit PreviewQueue(const QVector<QString>& guids);

    /// Returns the next picture and removes it from the queue; nothing if it is empty.
    std::optional<Picture> take();

private:
    void readWishes();
    std::optional<Picture> takeAt(int position);

    QMultiHash<QString, int> m_items; // positions by GUID
    QVector<bool> m_isTaken;          // two for each item: thumbnail, preview
    int m_next = 0;                   // none before this position is left
    QVector<int> m_wanted;            // positions in m_isTaken that come first
    int m_nextWanted = 0;
    quint64 m_generation = 0; // of the wishes read last
};
