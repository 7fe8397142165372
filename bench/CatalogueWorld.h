#pragma once

#include <QString>

/// A downloaded catalogue of many themes with all their previews on disk.
class CatalogueWorld
{
public:
    /// The catalogue below `folder`, which becomes the download root.
    explicit CatalogueWorld(const QString& folder);

    /// Writes its files.
    void write(int themes) const;

    QString configFile() const;
    QString displayFile() const;
    /// Folder of the themes' previews, in the download and in the installed tree.
    QString downloadedPreviews() const;
    QString installedPreviews() const;

    /// Makes it the catalogue that MVThemeMgr loads.
    void use() const;

private:
    QString m_folder;
};
