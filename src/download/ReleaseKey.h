// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A public key with which a host trusts releases, in the format of minisign: base64 of the
/// algorithm "Ed", a key id of 8 bytes and an Ed25519 key. A value type, any thread.
class MVRESOURCE_EXPORT ReleaseKey
{
public:
    /// Size of a key id.
    static constexpr int idBytes = 8;
    /// Size of an Ed25519 public key.
    static constexpr int keyBytes = 32;

    /// Reads the line "RW…" or the content of a key file, whose first line is a comment. Returns
    /// false, with the reason in `error`, for any other text; `out` is then unchanged.
    static bool parse(const QString& text, ReleaseKey& out, QString& error);

    /// Returns whether parse() reads each of a host's keys; otherwise the reason is in `error`.
    static bool areUsable(const QStringList& keys, QString& error);

    ReleaseKey() = default;
    /// Takes an id of idBytes, in the order of the file, and a key of keyBytes.
    ReleaseKey(QByteArray id, QByteArray key);

    /// Returns the key id, in the order of the file.
    const QByteArray& id() const { return m_id; }
    /// Returns the Ed25519 public key.
    const QByteArray& key() const { return m_key; }
    /// Returns the key id as minisign prints it: 16 upper-case hexadecimal digits.
    QString idText() const;
    /// Returns the line that parse() reads.
    QString toText() const;

private:
    QByteArray m_id;  // in the order of the file
    QByteArray m_key; // Ed25519
};
