#pragma once

#include "CatalogueWorld.h"

#include <QStringList>

/// A catalogue of many themes that lack no file, with pictures and animations that can be decoded:
/// those of the sample server in turn.
class BrowserWorld
{
public:
    /// Writes it below `folder`.
    BrowserWorld(const QString& folder, int themes);
    /// Takes what was written below `folder`.
    explicit BrowserWorld(const QString& folder);

    /// Makes it the catalogue and loads it.
    void load() const;

    /// Where the themes' pictures, config files and archives lie.
    QStringList folders() const;

private:
    void writePictures() const;
    static void writeMissingFiles();

    CatalogueWorld m_catalogue;
};
