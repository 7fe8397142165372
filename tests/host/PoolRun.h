// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Download.h"
#include "host/TransferPool.h"

#include <QMap>

#include <chrono>
#include <utility>

/// A pool with a folder of its own to download into, which records how its transfers end.
class PoolRun
{
public:
    explicit PoolRun(int maxTransfers, CancelToken cancel = CancelToken())
        : m_pool(std::make_unique<TransferPool>(maxTransfers, std::move(cancel)))
    {
    }

    TransferPool& pool() { return *m_pool; }
    void destroyPool() { m_pool.reset(); }

    /// Returns a job whose end is recorded under the name of its file.
    TransferPool::Job job(const QString& url, const QString& name)
    {
        TransferPool::Job job;
        job.url = url;
        job.file = path(name);
        job.ended = [this, name](const STransferOutcome& outcome) {
            m_names.append(name);
            m_outcomes.insert(name, outcome);
        };
        return job;
    }
    void start(const QString& url, const QString& name) { m_pool->start(job(url, name)); }

    /// Works on the transfers until the condition holds; returns whether it does.
    template <class Condition>
    bool runUntil(const Condition& condition)
    {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point end = Clock::now() + std::chrono::seconds(30);
        while (!condition() && Clock::now() < end)
            m_pool->step();
        return condition();
    }
    bool finish()
    {
        return runUntil([this] { return !m_pool->isBusy(); });
    }

    QString path(const QString& name) const
    {
        return m_download.folder() + QLatin1Char('/') + name;
    }
    QByteArray content(const QString& name) const { return CatalogueFiles::read(path(name)); }
    QStringList files() const { return m_download.files(); }
    const Download& folder() const { return m_download; }

    /// Returns the names of the transfers that have ended, in order.
    const QStringList& names() const { return m_names; }
    STransferOutcome outcome(const QString& name) const { return m_outcomes.value(name); }
    /// Returns the result of a transfer; -1 before its end.
    int result(const QString& name) const
    {
        return m_outcomes.contains(name) ? m_outcomes.value(name).m_eResult : -1;
    }

private:
    const Download m_download; // only its folder
    QStringList m_names;
    QMap<QString, STransferOutcome> m_outcomes;
    std::unique_ptr<TransferPool> m_pool; // its callbacks use the members above
};

/// Returns the names "PREFIX1" to "PREFIXn".
inline QStringList numbered(const QString& prefix, int count)
{
    QStringList names;
    for (int number = 1; number <= count; ++number)
        names.append(prefix + QString::number(number));
    return names;
}

/// Sends the first 1,000 of 2,000 bytes and never the rest.
inline void sendHalfAndStall(HttpExchange& exchange)
{
    exchange.answer(HttpAnswer(200).field("Content-Length", "2000").bareBody(pattern(1000)));
    exchange.stall();
}

/// Waits, on a server's thread, until a condition holds or the server's test has failed anyway.
template <class Condition>
void holdUntil(const HttpExchange& exchange, const Condition& condition)
{
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (!condition() && std::chrono::steady_clock::now() < end)
        exchange.pause(1ms);
}
