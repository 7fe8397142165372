// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>
#include <QPair>
#include <QString>
#include <QVector>

/// Reads a settings file strictly; loadHostSettings() documents the syntax. Internal to the
/// library; one object per reading.
class IniReader
{
public:
    struct Entry
    {
        QString section;
        QString key;
        QString value;
        int line; ///< from 1
    };

    static constexpr qint64 maxBytes = 1024 * 1024;

    explicit IniReader(const QString& file);

    /// Reads the whole file. On false errorText() names the file, the line and what was expected.
    bool read();
    /// Returns the entries in the order of the file; no two have the same section and key.
    QVector<Entry> entries() const { return m_entries; }
    QString errorText() const { return m_error; }

    /// Makes errorText() name the file and this line, for errors that only the caller can detect.
    /// Returns false.
    bool fail(int line, const QString& reason);

private:
    bool readBytes(QByteArray& content);
    bool readLine(QByteArray bytes);
    bool readSection(const QString& line);
    bool readEntry(const QString& line);
    bool readQuoted(const QString& quoted, QString& value);
    bool failHere(const QString& reason) { return fail(m_line, reason); }
    bool failWhole(const QString& reason);

    QString m_file;
    int m_line = 0;
    bool m_isInSection = false;
    QString m_section;
    QVector<Entry> m_entries;
    QHash<QPair<QString, QString>, int> m_lines; // of every section and key
    QString m_error;
};
