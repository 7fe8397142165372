// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QMap>
#include <QString>

/// A small tree with a release, written into a folder of its own.
class TinyRelease
{
public:
    /// Contents by name.
    using Files = QMap<QString, QByteArray>;

    /// `folder` is recreated by write().
    explicit TinyRelease(QString folder);

    /// Writes the files with a release of that serial.
    void write(qint64 serial, const Files& files) const;
    /// Writes files(serial) with a release of that serial.
    void write(qint64 serial) const { write(serial, files(serial)); }

    /// Records the release as an upload does; it has been in force since then.
    void record(const QDateTime& since) const;

    QString folder() const { return m_folder; }
    QString file(const QString& name) const { return m_folder + QLatin1Char('/') + name; }

    /// Returns a catalogue, a version file and an archive, which differ from serial to serial but
    /// have the same size, and a preview that is always the same.
    static Files files(qint64 serial);

private:
    QString m_folder;
};
