// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Serves a folder from a console program until the program is interrupted.
namespace ServeLoop {

/// Prints "serving FOLDER at ADDRESS" and, unless `quiet`, a line per request, and returns after
/// SIGINT or SIGTERM, which it blocks in the calling thread. Returns false with the reason in
/// `error` if it cannot start.
bool run(const QString& folder, quint16 port, bool quiet, QString* error);

} // namespace ServeLoop
