// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsBar.h"

#include "browser/CellEvents.h"

#include <QTimer>

#include <algorithm>
#include <utility>

DownloadsBar::DownloadsBar(StateOf stateOf, QWidget* parent)
    : NoticeBar(QStringLiteral("downloadsBar"), parent)
    , m_stateOf(std::move(stateOf))
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
    m_running.append(Download{{kind, guid}, ServerSilence()});
    m_age.start();
    m_looking->start();
}

void DownloadsBar::end(ECfgItemType kind, const QString& guid)
{
    const auto ended =
        std::find_if(m_running.begin(), m_running.end(), [&](const Download& download) {
            return download.item == ItemKey{kind, guid};
        });
    if (ended != m_running.end())
        m_running.erase(ended);
    ++m_ended;
    if (!m_running.isEmpty())
        return;
    m_looking->stop();
    hide();
}

void DownloadsBar::look()
{
    constexpr int whole = 100; // per cent
    int done = whole * m_ended;
    for (Download& download : m_running) {
        const SCellState state = m_stateOf(download.item);
        done += state.percent;
        download.silence.note(state.receivedBytes);
    }
    showProgress(done, whole * (m_running.size() + m_ended));
    retranslate();
    // Most downloads are short: a bar that flashes would disturb.
    constexpr int shortMs = 700;
    if (m_age.hasExpired(shortMs))
        show();
}

void DownloadsBar::retranslate()
{
    const auto silent =
        std::count_if(m_running.cbegin(), m_running.cend(),
                      [](const Download& download) { return download.silence.isLong(); });
    const int count = m_running.size();
    QString text = silent == count ? tr("Waiting for the server…")
                                   : tr("Downloading %n item(s)", nullptr, count);
    if (silent > 0 && silent < count)
        text += tr(", %n of them waiting for the server", nullptr, static_cast<int>(silent));
    const bool isOne = count == 1;
    setTexts(isOne ? QStringLiteral("%1: %2").arg(m_running.first().item.name(), text) : text,
             isOne ? tr("Cancel") : tr("Cancel all"));
}

void DownloadsBar::act()
{
    emit cancelWanted();
}
