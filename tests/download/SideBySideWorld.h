// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/DownloadFixture.h"
#include "download/DownloadLines.h"
#include "download/DownloadPacing.h"
#include "host/HostSettings.h"

#include <QMutexLocker>

#include <atomic>
#include <chrono>

/// A DownloadWorld whose downloads fetch six files at a time, without pauses.
class SideBySideWorld : public DownloadWorld
{
public:
    static constexpr int atOnce = 6;

    SideBySideWorld()
    {
        hostSettings().transfersSideBySide = atOnce;
        hostSettings().retryPauseMs = 10;
        DownloadPacing::setStep(std::chrono::milliseconds(0));
    }
    ~SideBySideWorld()
    {
        const HostSettings fresh;
        hostSettings().retryPauseMs = fresh.retryPauseMs;
        hostSettings().retryPauseMaxMs = fresh.retryPauseMaxMs;
    }
    Q_DISABLE_COPY_MOVE(SideBySideWorld)

    /// Returns a filter that needs the files number 0 to `count` - 1.
    static SCfg_Item filter(int count)
    {
        QStringList names;
        for (int number = 0; number < count; ++number)
            names.append(name(number));
        return item(eCfgItem_Filter, 1, names);
    }
    static QString name(int number) { return QStringLiteral("/VideoFilters/f%1.zip").arg(number); }
    static QString target(int number) { return QStringLiteral("/config") + name(number); }
    QString url(int number) { return server().url(target(number)); }
    QString file(int number) const
    {
        return folder(eCfgItem_Filter) + QStringLiteral("/f%1.zip").arg(number);
    }
    static QByteArray content(int number)
    {
        return QByteArray(1000, static_cast<char>('a' + number));
    }

    /// Answers the files number 0 to `count` - 1 with their content, each when `isTime`.
    template <class Condition>
    void serveWhen(int count, Condition isTime)
    {
        for (int number = 0; number < count; ++number) {
            route(target(number), [number, isTime](HttpExchange& exchange) {
                hold(exchange, [&] { return isTime(number); });
                exchange.answer(HttpAnswer(200).body(content(number)));
            });
        }
    }
    void serveAll(int count)
    {
        serveWhen(count, [](int) { return true; });
    }
    void routeAll(int count, const FaultServer::Handler& handler)
    {
        for (int number = 0; number < count; ++number)
            route(target(number), handler);
    }

    /// Waits, on a server's thread, until a condition holds or the test has failed anyway.
    template <class Condition>
    static void hold(const HttpExchange& exchange, const Condition& condition)
    {
        using namespace std::chrono_literals;
        const auto end = std::chrono::steady_clock::now() + 20s;
        while (!condition() && std::chrono::steady_clock::now() < end)
            exchange.pause(1ms);
    }

    static bool isTaken(const SFileInfo& info)
    {
        const QMutexLocker lock(info.m_pMutex.get());
        return info.m_bDownloaded;
    }
    static void setTaken(SFileInfo& info, bool isTaken)
    {
        const QMutexLocker lock(info.m_pMutex.get());
        info.m_bDownloaded = isTaken;
    }

    /// Returns the lines of a file that is fetched.
    QStringList linesOf(int number)
    {
        using namespace DownloadLines;
        return {taken(number, file(number)), fileStart(number, url(number), file(number)),
                fileOk(number, url(number), file(number)), released(number, file(number))};
    }
};
