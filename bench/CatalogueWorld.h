// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// A downloaded catalogue of many items.
class CatalogueWorld
{
public:
    /// Creates the catalogue below `folder`, which becomes the download root.
    explicit CatalogueWorld(const QString& folder);

    /// Writes themes with all their previews on disk.
    void write(int themes) const;
    /// Writes filters that need no files, as many as a catalogue can hold.
    void writeFilters(int filters) const;

    QString configFile() const;
    QString displayFile() const;
    /// Return the folder of the themes' previews in the download and in the installed tree.
    QString downloadedPreviews() const;
    QString installedPreviews() const;

    /// Makes it the catalogue that MVThemeMgr loads.
    void use() const;

private:
    QString m_folder;
};
