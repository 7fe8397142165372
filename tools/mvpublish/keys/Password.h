// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "keys/SecretBytes.h"

#include <QString>

/// Takes passwords from people and programs.
namespace Password {

constexpr std::size_t maxBytes = 1024;

/// Asks for a line on the process's terminal, without showing it, whatever the standard streams
/// are. Returns false, with the reason in `error`, if there is no terminal or the user interrupts.
bool ask(const QString& prompt, SecretBytes& password, QString* error);

/// Reads a line, or everything up to the end, from an open file descriptor. Returns false with the
/// reason in `error`.
bool read(int descriptor, SecretBytes& password, QString* error);

} // namespace Password
