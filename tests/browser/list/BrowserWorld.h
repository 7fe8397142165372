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

/// A catalogue in a download root of its own, with thumbnails and animations that can be decoded,
/// and a server that has what its items lack; new for every test, as are the favourites, the skin's
/// metrics and the host's callbacks. Downloads run at a pace of 1 ms.
///
/// Add items, then load(). Names of files: theme 7 needs "/Themes/7.xml" and "/Themes/7.zip",
/// filter 7 "/VideoFilters/7.zip", background 7 "/BgMaterial/7.zip".
class BrowserWorld
{
public:
    /// Where the files of an item are, apart from its previews, which are always on disk.
    enum Files { OnDisk, OnServer };

    BrowserWorld();
    ~BrowserWorld();
    Q_DISABLE_COPY_MOVE(BrowserWorld)

    void addTheme(int number, const QString& name, Files files = OnDisk,
                  const QString& group = QStringLiteral("others"));
    void addFilter(int number, const QString& name, Files files = OnDisk);
    void addBackground(int number, const QString& name, Files files = OnDisk);
    /// The entry for "no filter" at the end of the filters.
    void addNoneFilter();
    /// A theme whose config file has this address instead of its own.
    void addThemeWithConfig(int number, const QString& name, const QString& configUrl);
    /// Writes the catalogue files and loads them.
    void load();

    QString root() const { return m_root; }
    static SCfg_Item* theme(int number);
    static SCfg_Item* filter(int number);
    static SCfg_Item* background(int number);
    static void setParam(const char* key, const QString& value);
    static void setFavourite(SCfg_Item* item, bool favourite);

    /// Lets `handler` answer a target, on the connection's thread.
    void route(const QString& target, const FaultServer::Handler& handler);
    /// What asks for this target waits for release().
    void hold(const QString& target);
    /// Answers never come: the connection stays open and silent.
    void stall(const QString& target);
    void release() { m_held = false; }
    /// How often the target was asked for.
    int requests(const QString& target) const;
    /// How many requests there were in all.
    int requests() const;

    static QByteArray thumbnail();
    /// Two frames that follow each other for ever.
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
    QVector<QByteArray> m_targets; // what was asked for, in order
    FaultServer m_server;
};

/// What the host's callbacks and other receivers are told, in order: "clicked NAME",
/// "downloaded NAME" and what note() adds. Takes both callbacks of the item widget.
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
