// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

/// A client that reads a whole release from a loopback port, by digest only.
class ReleaseClient
{
public:
    explicit ReleaseClient(quint16 port)
        : m_port(port)
    {
    }

    /// Reads release.json, its list and every listed file, and verifies each. Returns what is
    /// wrong; empty: nothing.
    QString read();
    /// Returns the serial that the last read() met; 0 if there was no release.json.
    qint64 serial() const { return m_serial; }

private:
    QByteArray get(const QString& name, int& status) const;
    QString readContent(const QByteArray& digest, QByteArray& content) const;

    quint16 m_port;
    qint64 m_serial = 0;
};
