// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseKey.h"
#include "keys/SecretBytes.h"

#include <QByteArray>
#include <QString>

/// The secret key with which a publisher signs releases, in the format of minisign. A move-only
/// value, any thread.
///
/// Its file has a comment and a line in base64: the algorithms "Ed", "Sc" (scrypt; two zeros for a
/// key without a password) and "B2", a salt of 32 bytes, scrypt's limits of operations and memory,
/// 8 bytes each, and, combined by XOR with the key that scrypt derives from the password, a key id
/// of 8 bytes, an Ed25519 key of 64 bytes and a BLAKE2b-256 digest of "Ed", id and key. Numbers are
/// little-endian.
class SecretKey
{
public:
    static constexpr qint64 maxFileBytes = 4 * 1024;

    enum class Result {
        Success,
        Malformed,     ///< not a secret key of minisign, or a damaged one
        WrongPassword, ///< also for a key with a damaged content
        NoMemory,      ///< for the memory that the key's password needs
    };

    /// Makes a key with an id of its own.
    static SecretKey generate();
    /// Returns whether the content of a key file needs a password; false for anything except such a
    /// content.
    static bool needsPassword(const SecretBytes& file);
    /// Reads the content of a key file; the password is ignored if it needs none. `out` is changed
    /// by a success only. Takes seconds and a gigabyte of memory for a password.
    static Result read(const SecretBytes& file, const SecretBytes& password, SecretKey& out);

    /// Returns the content of a key file, protected by the password unless that is empty. An empty
    /// result: there is no memory for it. Takes as long as read().
    SecretBytes toFile(const SecretBytes& password) const;
    /// Returns the key with which the signatures are verified.
    ReleaseKey publicKey() const;
    /// Returns the content of a signature file for `content`, with a trusted comment without line
    /// ends.
    QByteArray sign(const QByteArray& content, const QByteArray& trustedComment) const;

private:
    SecretBytes m_pair; // id and Ed25519 key
};
