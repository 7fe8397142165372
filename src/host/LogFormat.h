// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <cstdarg>

/// Fills a printf-style format, see LogL(). Internal to the library.
///
/// Unlike the C library's functions, this has no undefined behaviour for an invalid format: an
/// unknown conversion is copied verbatim and takes no argument.
class LogFormat
{
public:
    /// `arguments` must match the known conversions of `format`.
    static QByteArray fill(const char* format, va_list arguments);
};
