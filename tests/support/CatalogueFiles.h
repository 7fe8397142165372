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
        QString isText = QString(); ///< empty: no such element
    };
    struct ThemeGroup
    {
        QString type;
        QVector<DisplayItem> items;
    };

    CatalogueFiles() = delete;

    /// A GUID in braces that differs for every number.
    static QString guid(int number);

    /// One group element of a config catalogue ("Filter", "Theme", ...).
    static QByteArray cfgGroup(const QString& name, const QVector<CfgItem>& items);
    /// One flat category of a display catalogue.
    static QByteArray displayCategory(const QString& name, const QVector<DisplayItem>& items);
    /// The grouped category of the themes.
    static QByteArray displayThemes(const QVector<ThemeGroup>& groups);
    /// A whole document around group or category elements.
    static QByteArray document(const QByteArray& content);

    /// Writes a file and its missing folders; stops the program if that fails.
    static void write(const QString& path, const QByteArray& content);
    static QByteArray read(const QString& path);
    /// Paths of all files below a folder, relative to it, sorted; hidden ones too.
    static QStringList filesBelow(const QString& folder);
};
