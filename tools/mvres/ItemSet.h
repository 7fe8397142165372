// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonArray>
#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <QVector>

/// A set of items that a project or a script needs, named by GUID.
class ItemSet
{
public:
    struct Entry
    {
        QString guid;
        QString name; ///< as the file has it; may be empty
    };
    static constexpr qint64 maxFileBytes = 16 * 1024 * 1024;

    /// Takes GUIDs or the name of a JSON file: an array of GUIDs, or an object whose "items" are an
    /// array of objects with "guid" and "name". On false see errorText().
    bool read(const QStringList& operands);
    QString errorText() const { return m_error; }

    const QVector<Entry>& entries() const { return m_entries; }

private:
    bool readFile(const QString& file);
    bool readItems(const QString& file, const QJsonArray& items);
    bool fail(const QString& text);

    QVector<Entry> m_entries;
    QString m_error;
};
