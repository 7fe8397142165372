// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/StorageWorld.h"
#include "Mvres.h"

/// A StorageWorld's server with its releases, and an installation of mvres that has checked for the
/// first one. Shown are themes 1 and 2 and filters 11 and 13; theme 1 uses filters 11 and 12, theme
/// 2 uses filter 12.
class ReleaseShop
{
public:
    /// Recreates all. Call it from init(). The installation is that of `mvres`.
    void fresh(const Mvres& mvres = Mvres());

    StorageWorld& world() { return m_world; }
    Mvres& mvres() { return m_mvres; }
    const Mvres& mvres() const { return m_mvres; }

    Outcome run(const QStringList& arguments) const { return m_mvres.run(arguments); }
    /// Runs a command on items given by their numbers.
    Outcome run(const char* command, const QVector<int>& items,
                const QStringList& options = {}) const;
    /// Returns the content of an archive of an item.
    static QByteArray archive(int number) { return "PK\x03\x04 " + QByteArray::number(number); }
    /// Runs mvres fetch; returns whether it succeeds.
    bool fetch(const QVector<int>& items) const;
    /// Publishes another content for a file of an item, "Themes/1.zip", in a new release, and lets
    /// mvres check for it.
    void change(const char* name, const QByteArray& content);
    void check() const;

    /// Returns the path of an item's file in mvres' download root.
    QString file(const char* name) const;
    QByteArray content(const char* name) const;
    /// Returns the names of the items' files on disk, sorted.
    QStringList files() const;

private:
    StorageWorld m_world;
    Mvres m_mvres;
    qint64 m_serial = 0;
};
