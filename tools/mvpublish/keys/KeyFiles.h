// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "keys/SecretBytes.h"

#include <QString>

class QByteArray;

/// Stores the two files of a key.
namespace KeyFiles {

/// Returns the name of the public key's file: "FILE.pub".
QString publicFile(const QString& file);

/// Returns why the files must not be written; empty: nothing has their names.
QString conflict(const QString& file);

/// Writes the secret key to `file`, for its owner only, and the public key to publicFile(): both
/// flushed to disk, each under its name only when it is complete. Without `overwrite` existing
/// files are kept. Returns false, with the reason in `error`, and without new files.
bool write(const QString& file, const SecretBytes& secret, const QByteArray& publicText,
           bool overwrite, QString* error);

/// Reads the content of a secret key's file. Returns false with the reason in `error`.
bool readSecret(const QString& file, SecretBytes& secret, QString* error);

} // namespace KeyFiles
