// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SCellState.h"
#include "ItemKey.h"
#include "NoticeBar.h"
#include "ServerSilence.h"

#include <QElapsedTimer>
#include <QVector>

#include <functional>

class QTimer;

/// Shows how many downloads of cells are running, and which of them have received nothing for a
/// while; cancels them all.
class DownloadsBar : public NoticeBar
{
    Q_OBJECT

public:
    /// Returns the state of an item; looked at a few times a second while it is downloaded.
    using StateOf = std::function<SCellState(const ItemKey& item)>;

    DownloadsBar(StateOf stateOf, QWidget* parent);

    int count() const { return m_running.size(); }

signals:
    void cancelWanted();

protected:
    void retranslate() override;
    void act() override;

private:
    struct Download
    {
        ItemKey item;
        ServerSilence silence;
    };

    void begin(ECfgItemType kind, const QString& guid);
    void end(ECfgItemType kind, const QString& guid);
    void look();

    StateOf m_stateOf;
    QVector<Download> m_running; // in the order of their start
    QTimer* m_looking;
    QElapsedTimer m_age; // since a download has begun
    int m_ended = 0;     // since no download was running
};
