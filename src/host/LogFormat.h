#pragma once

#include <QByteArray>

#include <cstdarg>

/// Fills a printf-style format, see LogL(). Internal to the library.
///
/// Other than the C library's, this has no undefined behaviour on a format that is not one: an
/// unknown conversion is copied as it stands and takes no argument.
class LogFormat
{
public:
    /// `arguments` must hold what the known conversions of `format` ask for.
    static QByteArray fill(const char* format, va_list arguments);
};
