#pragma once

#include <QString>

/// Zip archives.
namespace Archive {

/// Packs the files below a folder into a new archive, without dates and owners, so that the same
/// files give the same bytes. False: `error` says why.
bool pack(const QString& folder, const QString& target, QString* error);

/// Returns whether every file of an archive can be unpacked. False: `error` says why.
bool isWhole(const QString& file, QString* error);

} // namespace Archive
