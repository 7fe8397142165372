// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/LogFormat.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

/// A va_list that functions can pass by reference: on some ABIs the type itself is an array.
struct Arguments
{
    va_list list;
};

/// One conversion, from its '%' to its letter.
struct Conversion
{
    QByteArray flags; // flags, width and precision verbatim, including "*"
    QByteArray length;
    char letter = 0; // 0: not a conversion
    int stars = 0;
    const char* end = nullptr; // after the letter
};

const char* skipAny(const char* at, const char* set)
{
    while (*at && std::strchr(set, *at))
        ++at;
    return at;
}

Conversion parse(const char* percent)
{
    Conversion result;
    const char* at = skipAny(percent + 1, "-+ #0");
    at = *at == '*' ? at + 1 : skipAny(at, "0123456789");
    if (*at == '.') {
        ++at;
        at = *at == '*' ? at + 1 : skipAny(at, "0123456789");
    }
    result.flags = QByteArray(percent + 1, static_cast<int>(at - percent - 1));
    result.stars = result.flags.count('*');

    const char* lengthEnd = skipAny(at, "hlzjt");
    result.length = QByteArray(at, static_cast<int>(lengthEnd - at));
    static const char* const lengths[] = {"", "hh", "h", "l", "ll", "z", "j", "t"};
    bool known = false;
    for (const char* length : lengths)
        known = known || result.length == length;
    if (!known || !*lengthEnd || !std::strchr("diuoxXcspeEfFgG%", *lengthEnd))
        return result;
    // Wide texts and characters are not passed to the log.
    if (std::strchr("csp", *lengthEnd) && !result.length.isEmpty())
        return result;
    // "%%" only: in "%1%2" two placeholders are adjacent.
    if (*lengthEnd == '%' && lengthEnd != percent + 1)
        return result;
    result.letter = *lengthEnd;
    result.end = lengthEnd + 1;
    return result;
}

template <class T>
QByteArray print(const Conversion& c, const int (&stars)[2], const char* length, T value)
{
    const QByteArray format = '%' + c.flags + length + c.letter;
    const auto write = [&](char* out, std::size_t size) {
        switch (c.stars) {
        case 1:
            return std::snprintf(out, size, format.constData(), stars[0], value);
        case 2:
            return std::snprintf(out, size, format.constData(), stars[0], stars[1], value);
        default:
            return std::snprintf(out, size, format.constData(), value);
        }
    };
    const int needed = write(nullptr, 0);
    if (needed < 0)
        return QByteArray();
    QByteArray text(needed + 1, '\0');
    write(text.data(), static_cast<std::size_t>(text.size()));
    text.chop(1);
    return text;
}

/// Prints an address as glibc does: every system has its own form.
QByteArray printAddress(Conversion c, const int (&stars)[2], const void* address)
{
    if (!address) {
        c.letter = 's';
        return print(c, stars, "", "(nil)");
    }
    c.letter = 'x';
    c.flags.prepend('#');
    return print(c, stars, "j",
                 static_cast<std::uintmax_t>(reinterpret_cast<std::uintptr_t>(address)));
}

std::intmax_t takeSigned(const QByteArray& length, Arguments& from)
{
    if (length == "ll")
        return va_arg(from.list, long long);
    if (length == "l")
        return va_arg(from.list, long);
    if (length == "z" || length == "t")
        return va_arg(from.list, std::ptrdiff_t);
    if (length == "j")
        return va_arg(from.list, std::intmax_t);
    const int value = va_arg(from.list, int);
    if (length == "hh")
        return static_cast<signed char>(value);
    return length == "h" ? static_cast<short>(value) : value;
}

std::uintmax_t takeUnsigned(const QByteArray& length, Arguments& from)
{
    if (length == "ll")
        return va_arg(from.list, unsigned long long);
    if (length == "l")
        return va_arg(from.list, unsigned long);
    if (length == "z" || length == "t")
        return va_arg(from.list, std::size_t);
    if (length == "j")
        return va_arg(from.list, std::uintmax_t);
    const unsigned value = va_arg(from.list, unsigned);
    if (length == "hh")
        return static_cast<unsigned char>(value);
    return length == "h" ? static_cast<unsigned short>(value) : value;
}

QByteArray convert(const Conversion& c, Arguments& from)
{
    int stars[2] = {};
    for (int i = 0; i < c.stars; ++i)
        stars[i] = va_arg(from.list, int);

    switch (c.letter) {
    case '%':
        return QByteArray(1, '%');
    case 'd':
    case 'i':
        return print(c, stars, "j", takeSigned(c.length, from));
    case 'c':
        return print(c, stars, "", va_arg(from.list, int));
    case 's': {
        const char* text = va_arg(from.list, const char*);
        if (!text)
            text = "(null)";
        return c.flags.isEmpty() ? QByteArray(text) : print(c, stars, "", text);
    }
    case 'p':
        return printAddress(c, stars, va_arg(from.list, void*));
    case 'e':
    case 'E':
    case 'f':
    case 'F':
    case 'g':
    case 'G':
        return print(c, stars, "", va_arg(from.list, double));
    default:
        return print(c, stars, "j", takeUnsigned(c.length, from));
    }
}

} // namespace

QByteArray LogFormat::fill(const char* format, va_list arguments)
{
    Arguments from;
    va_copy(from.list, arguments);
    QByteArray text;
    while (const char* percent = std::strchr(format, '%')) {
        text.append(format, static_cast<int>(percent - format));
        const Conversion conversion = parse(percent);
        if (conversion.letter) {
            text += convert(conversion, from);
            format = conversion.end;
        } else {
            text += '%';
            format = percent + 1;
        }
    }
    text += format;
    va_end(from.list);
    return text;
}
