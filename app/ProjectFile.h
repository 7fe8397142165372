// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QSet>
#include <QString>
#include <QVector>

class QJsonArray;
class QJsonValue;

/// Reads the list of items that a slideshow project uses from a JSON file: an object with "items",
/// or that list alone. An item is a GUID, or an object with "guid" and "name" (optional); other
/// members are ignored. Any thread.
///
///     {"items": [{"guid": "{…}", "name": "White Christmas"}]}
class ProjectFile
{
    Q_DECLARE_TR_FUNCTIONS(ProjectFile)

public:
    static constexpr qint64 maxBytes = 16 * 1024 * 1024;

    struct Item
    {
        QString guid; ///< as QUuid writes it, in braces
        QString name; ///< may be empty
    };

    /// Returns false if the file is not a project; errorText() has the reason and its place.
    bool read(const QString& path);
    QString errorText() const { return m_error; }
    /// Returns the items, each once, in the order of the file.
    const QVector<Item>& items() const { return m_items; }

private:
    bool readList(const QJsonArray& list);
    bool readItem(int number, const QJsonValue& value);
    bool fail(const QString& reason);
    static QString placeOf(const QByteArray& text, int offset);

    QString m_path;
    QString m_error;
    QVector<Item> m_items;
    QSet<QString> m_guids; // of the items
};
