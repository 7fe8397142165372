// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QString>

/// The times from which a release takes its serial.
namespace ReleaseClock {

/// Returns the current time, or the one that the environment variable SOURCE_DATE_EPOCH fixes for
/// reproducible builds, in seconds since 1970; UTC, in whole seconds. Invalid, with the reason in
/// `error`, if the variable has another value.
QDateTime now(QString* error);

/// Returns the time of the most recently modified file below a folder, in seconds since 1970; 0
/// without files.
qint64 newestIn(const QString& folder);

} // namespace ReleaseClock
