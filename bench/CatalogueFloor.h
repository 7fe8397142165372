// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class CatalogueWorld;

/// The minimum cost of loading a catalogue: parsing the same two files into documents, reading the
/// same texts from them, and looking for every preview in both trees.
class CatalogueFloor
{
public:
    explicit CatalogueFloor(const CatalogueWorld& world);

    /// Reads both files; returns how many previews are on disk.
    int read();

    /// Parses both files, one after the other, without reading their content.
    void parseOnly() const;

private:
    void readConfig();
    int readDisplay();

    QString m_configFile;
    QString m_displayFile;
    QString m_downloaded;
    QString m_installed;
    QStringList m_texts; // keeps the texts, as a catalogue does
};
