// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Packs and verifies ZIP archives.
namespace Archive {

/// Packs the files below a folder into a new archive, without dates and owners, so that the result
/// is reproducible. Returns false with the reason in `error`.
bool pack(const QString& folder, const QString& target, QString* error);

/// Returns whether every file of an archive can be unpacked; if not, `error` has the reason.
bool isWhole(const QString& file, QString* error);

} // namespace Archive
