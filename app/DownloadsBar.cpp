// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsBar.h"

#include "browser/CellEvents.h"
#include "StateText.h"

#include <QTimer>

#include <utility>

DownloadsBar::DownloadsBar(std::function<int()> progress, QWidget* parent)
    : NoticeBar(QStringLiteral("downloadsBar"), parent)
    , m_progress(std::move(progress))
    , m_looking(new QTimer(this))
{
    setClosable(false);
    constexpr int lookMs = 200;
    m_looking->setInterval(lookMs);
    connect(m_looking, &QTimer::timeout, this, &DownloadsBar::look);
    const CellEvents* const cells = CellEvents::instance();
    connect(cells, &CellEvents::downloadStarted, this, &DownloadsBar::begin);
    connect(cells, &CellEvents::downloadEnded, this, &DownloadsBar::end);
}

void DownloadsBar::begin(ECfgItemType kind, const QString& guid)
{
    if (m_running.isEmpty())
        m_ended = 0;
    m_running.append({kind, guid});
    m_age.start();
    m_silence.start();
    m_looking->start();
}

void DownloadsBar::end(ECfgItemType kind, const QString& guid)
{
    m_running.removeOne({kind, guid});
    ++m_ended;
    m_silence.start();
    if (!m_running.isEmpty())
        return;
    m_looking->stop();
    hide();
}

void DownloadsBar::look()
{
    const int progress = m_progress();
    if (progress != std::exchange(m_lastProgress, progress))
        m_silence.start();
    m_isWaiting = m_silence.hasExpired(StateText::silenceMs);
    constexpr int whole = 100;
    const int total = whole * (m_running.size() + m_ended);
    showProgress(qMin(progress + whole * m_ended, total), total);
    retranslate();
    // Most downloads are short: a bar that flashes would disturb.
    constexpr int shortMs = 700;
    if (m_age.hasExpired(shortMs))
        show();
}

void DownloadsBar::retranslate()
{
    const bool isOne = m_running.size() == 1;
    const QString text = m_isWaiting ? tr("Waiting for the server…")
                                     : tr("Downloading %n item(s)", nullptr, m_running.size());
    setTexts(isOne ? QStringLiteral("%1: %2").arg(m_running.first().name(), text) : text,
             isOne ? tr("Cancel") : tr("Cancel all"));
}

void DownloadsBar::act()
{
    emit cancelWanted();
}
