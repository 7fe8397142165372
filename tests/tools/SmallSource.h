// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

/// A publisher's source with one item of every kind, a second filter, and a theme that uses them.
class SmallSource
{
public:
    /// Writes the source into `folder`, which is recreated.
    explicit SmallSource(const QString& folder);

    QString folder() const { return m_folder; }
    QString file(const QString& name) const { return m_folder + QLatin1Char('/') + name; }

    /// Returns the manifest of an item: "look", "title", "fade", "zoom", "paper" or "film"; with an
    /// empty name, that of the source.
    QJsonObject manifest(const QString& item) const;
    void setManifest(const QString& item, const QJsonObject& manifest) const;
    /// Sets one field; an undefined value removes it.
    void set(const QString& item, const char* key, const QJsonValue& value) const;

    /// Adds a file that takes a build some time to pack, and returns its name.
    QString addWork() const;

    /// Returns the item's GUID.
    static QString guid(const QString& item);
    static QByteArray thumbnail();
    static QByteArray animation();
    static QByteArray jpeg();
    /// Returns a BMP of preview size.
    static QByteArray bitmap();
    /// Returns the files that a complete folder "none" contains.
    static QStringList nonePictures();
    /// Writes all of them except one.
    void addNonePicturesBut(const QString& name) const;

private:
    QString manifestFile(const QString& item) const;
    void writeItem(const QString& name, const QString& kind, QJsonObject more = {}) const;

    QString m_folder;
};
