// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <cerrno>
#include <cstring>

/// Returns the system's text for an error number, by default that of the last call that failed.
inline QString systemError(int error = errno)
{
    return QString::fromLocal8Bit(std::strerror(error));
}
