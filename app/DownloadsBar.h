// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"
#include "NoticeBar.h"

#include <QElapsedTimer>
#include <QVector>

#include <functional>

class QTimer;

/// Shows how many downloads of cells are running, and when the server has sent nothing for a while;
/// cancels them all.
class DownloadsBar : public NoticeBar
{
    Q_OBJECT

public:
    /// `progress` returns the sum of the running downloads' progress, in percent.
    DownloadsBar(std::function<int()> progress, QWidget* parent);

    int count() const { return m_running.size(); }

signals:
    void cancelWanted();

protected:
    void retranslate() override;
    void act() override;

private:
    void begin(ECfgItemType kind, const QString& guid);
    void end(ECfgItemType kind, const QString& guid);
    void look();

    std::function<int()> m_progress;
    QVector<ItemKey> m_running; // in the order of their start
    QTimer* m_looking;
    QElapsedTimer m_age;     // since a download has begun or ended
    QElapsedTimer m_silence; // since the progress has changed
    int m_lastProgress = 0;
    int m_ended = 0; // since no download was running
    bool m_isWaiting = false;
};
