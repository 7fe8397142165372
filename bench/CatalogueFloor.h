#pragma once

#include <QStringList>

class CatalogueWorld;

/// The least that loading a catalogue can cost: parsing the same two files into documents, reading
/// the same texts out of them, and looking for every preview in both trees.
class CatalogueFloor
{
public:
    explicit CatalogueFloor(const CatalogueWorld& world);

    /// Reads both files; returns how many previews are on disk.
    int read();

    /// Parses both files, one after the other, and reads nothing out of them.
    void parseOnly() const;

private:
    void readConfig();
    int readDisplay();

    QString m_configFile;
    QString m_displayFile;
    QString m_downloaded;
    QString m_installed;
    QStringList m_texts; // keeps what was read, as a catalogue does
};
