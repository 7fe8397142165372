// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/MVThemeDownLoader.h"
#include "host/LogL.h"
#include "records/SCfg_Item.h"
#include "support/FaultServer.h"
#include "support/HttpAnswer.h"
#include "support/HttpExchange.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>
#include <QVector>

#include <functional>
#include <mutex>

/// A server, a download root and a catalogue for item downloads, recreated for every test;
/// downloads pause for 1 ms per step, or fetch several files at a time without pauses
/// (TransfersSideBySide).
class DownloadWorld
{
public:
    DownloadWorld();
    ~DownloadWorld();
    Q_DISABLE_COPY_MOVE(DownloadWorld)

    /// Returns the download root.
    QString root() const { return m_root; }
    /// Returns the folder of a kind in the config half of the download tree.
    QString folder(ECfgItemType kind) const;
    /// Returns the folder of a kind in the display half.
    QString displayFolder(ECfgItemType kind) const;

    FaultServer& server() { return m_server; }
    /// Answers a target with 200 and a body; unknown targets get 404.
    void serve(const QString& target, const QByteArray& body);
    /// Makes `handler` answer a target, on the connection's thread.
    void route(const QString& target, const FaultServer::Handler& handler);
    int requests(const QString& target) const;

    /// Returns an item without any file.
    static SCfg_Item item(ECfgItemType kind, int number);
    /// Returns an item with resource files, which are named relative to the root of the config
    /// half.
    static SCfg_Item item(ECfgItemType kind, int number, const QStringList& resources);
    /// Returns a resource file of an item.
    static SFileInfo resource(const QString& url);

    /// Returns a theme that lacks its config file and one resource; only the config is served.
    SCfg_Item themeWithConfig();
    /// Returns a filter that lacks two resources, both served.
    SCfg_Item filterWithTwoFiles();

    /// Fills the config catalogue with one filter and the given resource files, so that a theme can
    /// depend on it.
    SCfg_Item* catalogueFilter(int number, const QStringList& resources) const;
    /// Returns a theme's config file whose elements each depend on the filter with that number.
    static QByteArray themeConfig(const QVector<int>& filters);

    /// Returns whether the thread ends within a generous time.
    static bool ends(MVThemeDownLoader& downloader);
    /// Downloads the item; returns false if that takes too long.
    static bool run(MVThemeDownLoader& downloader, SCfg_Item& item);

private:
    void answer(HttpExchange& exchange);

    QString m_root;
    mutable std::mutex m_mutex; // guards m_routes
    QMap<QByteArray, FaultServer::Handler> m_routes;
    FaultServer m_server;
};

/// Records log lines and signals of downloads, in order and on the thread where they occur.
///
/// Entries are the lines of the category "MVThemeDownLoader" verbatim, lines of other categories
/// and levels prefixed with "CATEGORY LEVEL: ", and signals as "progress VALUE" and "finish CODE".
class DownloadTrace
{
public:
    using Action = std::function<void()>;

    DownloadTrace();
    ~DownloadTrace();
    Q_DISABLE_COPY_MOVE(DownloadTrace)

    /// Also records the downloader's signals.
    void watch(MVThemeDownLoader& downloader);
    /// Runs `action` once, on the thread that writes the first line containing `part`, before that
    /// thread continues.
    void onLine(const QString& part, const Action& action);

    /// Records an observation of the test itself.
    void add(const QString& entry);

    QStringList entries() const;
    bool contains(const QString& entry) const { return entries().contains(entry); }
    int count(const QString& entry) const { return entries().count(entry); }
    int countContaining(const QString& part) const;
    QVector<double> progress() const;
    /// Returns the codes of sigDownloadFinish.
    QVector<int> results() const;
    void clear();

    /// Waits, without processing events, until an entry is recorded.
    bool waitFor(const QString& entry) const;
    /// Waits until an entry contains `part`.
    bool waitForPart(const QString& part) const;

private:
    void write(const QByteArray& category, int level, const QByteArray& text);
    static bool waitUntil(const std::function<bool()>& condition);

    LogSink m_previous;
    mutable std::mutex m_mutex; // guards the members below
    QStringList m_entries;
    QVector<double> m_progress;
    QVector<int> m_results;
    QVector<QPair<QString, Action>> m_actions;
};
