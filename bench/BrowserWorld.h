// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "CatalogueWorld.h"

#include <QStringList>

/// A catalogue of many complete themes with decodable pictures and animations: those of the sample
/// server in turn.
class BrowserWorld
{
public:
    /// Writes the catalogue below `folder`.
    BrowserWorld(const QString& folder, int themes);
    /// Uses an existing catalogue below `folder`.
    explicit BrowserWorld(const QString& folder);

    /// Makes it the process's catalogue and loads it.
    void load() const;

    /// Returns the folders of the themes' pictures, config files and archives.
    QStringList folders() const;

private:
    void writePictures() const;
    static void writeMissingFiles();

    CatalogueWorld m_catalogue;
};
