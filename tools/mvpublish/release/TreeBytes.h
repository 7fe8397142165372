// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class QByteArray;
class QString;

/// Reads small files of trees.
namespace TreeBytes {

/// Reads a regular file of at most `maxBytes`. Returns false with the reason in `error`.
bool read(const QString& path, qint64 maxBytes, QByteArray& bytes, QString* error);

} // namespace TreeBytes
