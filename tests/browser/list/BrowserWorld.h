// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/SCfg_Item.h"
#include "support/CatalogueFiles.h"
#include "support/FaultServer.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <mutex>

/// A catalogue in its own download root, with decodable thumbnails and animations, and a server
/// that publishes what its items lack; recreated for every test, as are the favourites, the skin's
/// metrics and the host's callbacks. Downloads pause for 1 ms per step, or fetch several files
/// at a time without pauses (TransfersSideBySide). Lists have cells on demand if the environment
/// variable MV_CELLS_ON_DEMAND is set.
///
/// Add items, then call load(). File names: theme 7 needs "/Themes/7.xml" and "/Themes/7.zip",
/// filter 7 "/VideoFilters/7.zip", background 7 "/BgMaterial/7.zip".
class BrowserWorld
{
public:
    /// Location of an item's files, apart from its previews, which are always on disk.
    enum Files { OnDisk, OnServer };

    BrowserWorld();
    ~BrowserWorld();
    Q_DISABLE_COPY_MOVE(BrowserWorld)

    void addTheme(int number, const QString& name, Files files = OnDisk,
                  const QString& group = QStringLiteral("others"));
    void addFilter(int number, const QString& name, Files files = OnDisk);
    void addBackground(int number, const QString& name, Files files = OnDisk);
    /// Adds the "no filter" entry at the end of the filters.
    void addNoneFilter();
    /// Adds a theme whose config file has this address instead of the default one.
    void addThemeWithConfig(int number, const QString& name, const QString& configUrl);
    /// Writes the catalogue files and loads them.
    void load();

    QString root() const { return m_root; }
    static SCfg_Item* theme(int number);
    static SCfg_Item* filter(int number);
    static SCfg_Item* background(int number);
    static void setParam(const char* key, const QString& value);
    static void setFavourite(SCfg_Item* item, bool favourite);

    /// Makes `handler` answer a target, on the connection's thread.
    void route(const QString& target, const FaultServer::Handler& handler);
    /// Holds requests for this target until release().
    void hold(const QString& target);
    /// Stalls requests for this target: the connection stays open and silent.
    void stall(const QString& target);
    void release() { m_held = false; }
    /// Returns how many times the target was requested.
    int requests(const QString& target) const;
    /// Returns the number of all requests.
    int requests() const;

    static QByteArray thumbnail();
    /// Returns an endless animation of two frames.
    static QByteArray animation();

private:
    void add(ECfgItemType kind, const CatalogueFiles::CfgItem& config, Files files);
    void writePreviews() const;
    void answer(HttpExchange& exchange);
    static void answerWithContent(HttpExchange& exchange);

    QString m_root;
    QMap<ECfgItemType, QVector<CatalogueFiles::CfgItem>> m_config;
    QVector<CatalogueFiles::DisplayItem> m_filters;
    QVector<CatalogueFiles::DisplayItem> m_backgrounds;
    QVector<CatalogueFiles::ThemeGroup> m_themes;
    QVector<QPair<ECfgItemType, QString>> m_complete; // kind and GUID of items that lack nothing

    std::atomic<bool> m_held{true};
    mutable std::mutex m_mutex; // guards m_routes and m_targets
    QMap<QByteArray, FaultServer::Handler> m_routes;
    QVector<QByteArray> m_targets; // the requested targets, in order
    FaultServer m_server;
};

/// Records the host's callbacks and other notifications, in order: "clicked NAME", "downloaded
/// NAME" and what note() adds. Occupies both callbacks of the item widget.
class HostTrace
{
public:
    HostTrace();
    ~HostTrace();
    Q_DISABLE_COPY_MOVE(HostTrace)

    void note(const QString& entry) { m_entries.append(entry); }
    QStringList entries() const { return m_entries; }
    int count(const QString& entry) const { return m_entries.count(entry); }

private:
    QStringList m_entries;
};
