// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Formats a log line with up to three arguments and compares what LogL() writes with the C
// library's result for each conversion.

#include "FuzzTarget.h"
#include "host/LogFormat.h"
#include "Parts.h"
#include "Require.h"

#include <QRegularExpression>

#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <variant>

namespace {

using Argument = std::variant<int, long, long long, double, const char*, const void*>;
constexpr int maxArguments = 3;
using LogArguments = std::array<Argument, maxArguments>;

/// The documented conversions: flags, width, precision and a letter, optionally with a length.
const char grammar[] = "%(?:%|[-+ #0]*(\\*|[0-9]*)(?:\\.(\\*|[0-9]*))?"
                       "(?:[csp]|(hh|h|ll|l|z|j|t)?[diuoxXeEfFgG]))";

QByteArray filled(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    QByteArray text = LogFormat::fill(format, arguments);
    va_end(arguments);
    return text;
}

/// Formats one conversion; empty if the C library refuses it.
template <class... Values>
QByteArray printed(const QByteArray& format, Values... values)
{
    const int length = std::snprintf(nullptr, 0, format.constData(), values...);
    if (length < 0)
        return QByteArray();
    QByteArray text(length + 1, '\0');
    std::snprintf(text.data(), static_cast<std::size_t>(text.size()), format.constData(),
                  values...);
    text.chop(1);
    return text;
}

class LogFormatTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override;

private:
    bool take(const QRegularExpressionMatch& match, const Parts& values);
    static bool isModest(const QString& number);
    static Argument argument(char letter, const QByteArray& length, const QByteArray& value);

    const QRegularExpression m_conversion{QString::fromLatin1(grammar)};
    QList<QByteArray> m_texts; // that the arguments point to
    QByteArray m_expected;
    LogArguments m_arguments;
    int m_count = 0;
};

void LogFormatTarget::run(const QByteArray& input)
{
    const Parts parts(input);
    m_texts.clear();
    m_expected.clear();
    m_arguments = LogArguments();
    m_count = 0;
    // Byte by byte: a log line need not be UTF-8.
    QString format = QString::fromLatin1(parts.at(0).constData()); // up to a NUL
    int behind = 0;
    auto matches = m_conversion.globalMatch(format);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        m_expected += format.mid(behind, match.capturedStart() - behind).toLatin1();
        behind = match.capturedEnd();
        if (!take(match, parts)) {
            format.truncate(match.capturedStart()); // there are no arguments for the rest
            behind = format.size();
            break;
        }
    }
    m_expected += format.mid(behind).toLatin1();
    const QByteArray bytes = format.toLatin1();
    const QByteArray text =
        std::visit([&bytes](auto... values) { return filled(bytes.constData(), values...); },
                   m_arguments[0], m_arguments[1], m_arguments[2]);
    require(text == m_expected, "a line reads as the C library prints it",
            QString::fromLatin1(text + '\n' + m_expected));
}

/// Consumes a conversion's arguments and prints it; returns false if there are too many, or too
/// much text.
bool LogFormatTarget::take(const QRegularExpressionMatch& match, const Parts& values)
{
    if (match.captured() == QLatin1String("%%")) {
        m_expected += '%';
        return true;
    }
    LogArguments own;
    int count = 0;
    for (const QString& number : {match.captured(1), match.captured(2)}) {
        constexpr int maxWidth = 300;
        if (number == QLatin1String("*") && m_count + count < maxArguments)
            own.at(count) = values.at(m_count + count + 1).toInt() % maxWidth;
        count += number == QLatin1String("*") ? 1 : 0;
        if (!isModest(number))
            return false;
    }
    if (m_count + count >= maxArguments)
        return false;
    QByteArray format = match.captured().toLatin1();
    const char letter = format.at(format.size() - 1);
    const QByteArray length = match.captured(3).toLatin1();
    if (letter == 'p')
        format.replace('+', "").replace(' ', ""); // means nothing to the C standard, but to glibc
    if (QByteArray("eEfFgG").contains(letter))
        format.remove(format.size() - 1 - length.size(), length.size()); // has no effect
    m_texts.append(values.at(m_count + count + 1).constData());          // up to a NUL
    own.at(count) = argument(letter, length, m_texts.constLast());
    for (int i = 0; i <= count; ++i)
        m_arguments.at(m_count++) = own.at(i);
    if (const char* const* text = std::get_if<const char*>(&own.at(count)); text && !*text)
        own.at(count) = "(null)";
    m_expected += std::visit([&format](auto... given) { return printed(format, given...); }, own[0],
                             own[1], own[2]);
    return true;
}

/// Returns whether a width needs little memory, or exceeds every possible size.
bool LogFormatTarget::isModest(const QString& number)
{
    constexpr int maxModest = 10000;
    bool isNumber = false;
    const int value = number.toInt(&isNumber);
    return !isNumber || value <= maxModest;
}

Argument LogFormatTarget::argument(char letter, const QByteArray& length, const QByteArray& value)
{
    switch (letter) {
    case 'c':
        return value.toInt();
    case 's':
        return value == "null" ? nullptr : value.constData();
    case 'p':
        return static_cast<const void*>(value == "null" ? nullptr : &grammar);
    case 'e':
    case 'E':
    case 'f':
    case 'F':
    case 'g':
    case 'G':
        return value.toDouble();
    default:
        break;
    }
    if (length == "ll")
        return value.toLongLong();
    static_assert(sizeof(std::intmax_t) == sizeof(long) && sizeof(std::size_t) == sizeof(long));
    if (length == "l" || length == "z" || length == "j" || length == "t")
        return value.toLong();
    return value.toInt();
}

} // namespace

MV_FUZZ_TARGET(LogFormatTarget, QCoreApplication)
