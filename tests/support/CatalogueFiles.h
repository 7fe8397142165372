// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/// Writes catalogue files, and the files that items need, for tests.
class CatalogueFiles
{
public:
    struct CfgItem
    {
        QString guid;
        QString urlCnf;
        QStringList resources;
    };
    struct DisplayItem
    {
        QString guid;
        QString name;
        QString thumb;
        QString gif = QString();
        QString isText = QString(); ///< empty: omits the element
    };
    struct ThemeGroup
    {
        QString type;
        QVector<DisplayItem> items;
    };

    CatalogueFiles() = delete;

    /// Returns a GUID in braces, different for every number.
    static QString guid(int number);

    /// Return items with the GUIDs 0 to count - 1 and no files, shown under their numbers.
    static QVector<CfgItem> cfgItems(int count);
    static QVector<DisplayItem> displayItems(int count);

    /// Returns one group element of a config catalogue ("Filter", "Theme", ...).
    static QByteArray cfgGroup(const QString& name, const QVector<CfgItem>& items);
    /// Returns one flat category of a display catalogue.
    static QByteArray displayCategory(const QString& name, const QVector<DisplayItem>& items);
    /// Returns the grouped category of the themes.
    static QByteArray displayThemes(const QVector<ThemeGroup>& groups);
    /// Returns a whole document around group or category elements.
    static QByteArray document(const QByteArray& content);

    /// Writes a file and its missing folders; stops the program if that fails.
    static void write(const QString& path, const QByteArray& content);
    static QByteArray read(const QString& path);
    /// Returns the paths of all files below a folder, relative to it and sorted, including hidden
    /// ones.
    static QStringList filesBelow(const QString& folder);
};
