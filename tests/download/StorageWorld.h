// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseWorld.h"
#include "records/SCfg_Item.h"

#include <QString>
#include <QVector>

/// A server with a small shop of themes and filters, published as a release, whose catalogue is in
/// the download root and loaded.
///
/// Theme 1 uses filters 11 (shown) and 12 (hidden), theme 2 uses filter 12 only; filter 13 is used
/// by none. Every item has a definition and an archive: "/Themes/1.xml", "/Themes/1.zip".
class StorageWorld : public ReleaseWorld
{
public:
    /// Recreates all. Call it from init().
    void freshStorage();

    /// Publishes the release with the present files and checks for it.
    void publishAndCheck(qint64 serial);
    /// Publishes another content for a file of an item, "Themes/1.zip".
    void change(const char* name, const QByteArray& content);
    static QByteArray archive(int number) { return "PK archive " + QByteArray::number(number); }
    /// Returns the config file of a theme that uses these filters.
    static QByteArray themeConfig(const QVector<int>& filters);

    static SCfg_Item& theme(int number);
    static SCfg_Item& filter(int number);
    /// Downloads items as an update does; returns whether all went well.
    static bool fetch(const QVector<SCfg_Item*>& items);

    /// Returns the path of an item's file on disk, "Themes/1.zip".
    QString file(const char* name) const;
    /// Returns its path in the installed tree.
    static QString installed(const char* name);
    /// Returns the names of the items' files on disk, sorted.
    QStringList files() const;
    QByteArray content(const char* name) const { return CatalogueFiles::read(file(name)); }
};
