// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SCatalogueVersion.h"
#include "records/KindTable.h"
#include "records/SCfg_Item.h"
#include "tree/Editions.h"

#include <QHash>
#include <QString>
#include <QVector>

#include <array>

class MVThemeMgr;
class QDomElement;

/// An item of a config catalogue and its line.
struct ConfigEntry
{
    SCfg_Item item;
    int line = 0;
};

/// One "Item" of a display catalogue.
struct DisplayEntry
{
    ECfgItemType type = eCfgItem_Filter;
    QString guid;
    int line = 0;
    /// True if the library shows it: the config catalogue contains it, or it is the "none" entry.
    bool known = false;
    SCfg_Item item;    ///< as read by the library, if known
    QString themeType; ///< of its group, as written
    QString animation; ///< what "UrlGif" says, also where the library does not look at it
};

/// A display catalogue, in document order.
struct DisplayCatalogue
{
    QString file; ///< relative to the tree
    bool readable = false;
    QVector<DisplayEntry> entries;
    QVector<QPair<QString, int>> groups; ///< theme types as written, and their lines
};

/// A version file.
struct PublishedVersion
{
    QString file; ///< relative to the tree
    QString displayFile;
    SCatalogueVersion content;
};

/// A resource tree as the library reads it: with the library's own readers and path rules. Writes
/// nothing, neither into the tree nor into the user's folders.
///
/// One tree at a time: the data read stays valid, but paths are derived for the tree opened last.
class ReadTree
{
public:
    /// The first object of a process points the library's settings to places that cannot exist, so
    /// that it only reads trees and derives names.
    ReadTree();

    /// Reads the catalogues of a server's tree or of an installation (the application's folder
    /// "Resource", or its parent). Returns false with the reason in `error` if it is not a tree.
    bool open(const QString& folder, QString* error);

    QString folder() const { return m_folder; }
    bool isInstallation() const { return m_installation; }
    QString absolute(const QString& file) const { return m_folder + QLatin1Char('/') + file; }
    static QString catalogue(const QString& name);

    bool configReadable() const { return m_configReadable; }
    /// Returns the entries by kind, in document order.
    const QVector<ConfigEntry>& config(ECfgItemType kind) const { return m_config.at(kind); }
    const QVector<DisplayCatalogue>& displays() const { return m_displays; }
    const QVector<PublishedVersion>& versions() const { return m_versions; }

    /// Returns the first item of a kind with exactly that GUID, or null.
    const ConfigEntry* find(ECfgItemType kind, const QString& guid) const;

    /// @name Files of an item
    /// The records belong to items that the doItem_Info_* operations have resolved.
    /// @{

    /// Returns the path of the file relative to the tree; empty if its name leads out of the tree.
    QString fileOf(const SFileInfo& info) const;
    /// Returns the address from which the library fetches it, without the server's root.
    static QString addressOf(const SFileInfo& info);
    /// Returns whether that address leads to that file.
    bool addressLeadsToFile(const SFileInfo& info) const;

    /// @}

    /// Returns the library, which an object of this class has prepared.
    static MVThemeMgr& library();

private:
    void readConfig();
    void readVersions();
    void readVersion(const QString& name, const QString& displayName);
    void readDisplay(const QString& name);
    void readCategory(const QDomElement& root, ECfgItemType kind, DisplayCatalogue& display);
    QString inHalves(const SFileInfo& info) const;

    QString m_folder;
    bool m_installation = false;
    bool m_configReadable = false;
    std::array<QVector<ConfigEntry>, KindTable::count> m_config;
    std::array<QHash<QString, int>, KindTable::count> m_index; // first entry by GUID
    QVector<DisplayCatalogue> m_displays;
    QVector<PublishedVersion> m_versions;
};
