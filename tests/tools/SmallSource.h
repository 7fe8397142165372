#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

/// A publisher's source with one item of every kind, a second filter, and a theme that uses them.
class SmallSource
{
public:
    /// Writes it; `folder` is made anew.
    explicit SmallSource(const QString& folder);

    QString folder() const { return m_folder; }
    QString file(const QString& name) const { return m_folder + QLatin1Char('/') + name; }

    /// The manifest of an item: "look", "title", "fade", "zoom", "paper" or "film"; or, with an
    /// empty name, that of the source.
    QJsonObject manifest(const QString& item) const;
    void setManifest(const QString& item, const QJsonObject& manifest) const;
    /// Changes one field; an undefined value takes it away.
    void set(const QString& item, const char* key, const QJsonValue& value) const;

    /// Adds a file that takes a build a while to pack, and returns its name.
    QString addWork() const;

    /// The item's GUID.
    static QString guid(const QString& item);
    static QByteArray thumbnail();
    static QByteArray animation();
    static QByteArray jpeg();
    /// A BMP of the size of a preview.
    static QByteArray bitmap();
    /// The files of the folder "none" of a source that has one.
    static QStringList nonePictures();
    /// Writes all of them but one.
    void addNonePicturesBut(const QString& name) const;

private:
    QString manifestFile(const QString& item) const;
    void writeItem(const QString& name, const QString& kind, QJsonObject more = {}) const;

    QString m_folder;
};
