// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/LogL.h"

#include <QLoggingCategory>
#include <QRegularExpression>

#include <cstdarg>
#include <cstdio>

namespace {

/// Doubles every "%" that begins no conversion: it is text, and takes no argument.
QByteArray withoutOtherPercents(const char* format)
{
    static const auto* const known = new QRegularExpression(QStringLiteral(
        "%%|%[-+ #0]*(?:\\d+|\\*)?(?:\\.(?:\\d*|\\*))?(?:hh|h|ll|l|z|j|t)?[diouxXcspeEfFgG]|(%)"));
    QByteArray cleaned;
    const QString text = QString::fromUtf8(format);
    qsizetype written = 0;
    auto matches = known->globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const auto end = static_cast<qsizetype>(match.capturedEnd());
        cleaned += text.mid(static_cast<int>(written), static_cast<int>(end - written)).toUtf8();
        if (match.capturedStart(1) >= 0)
            cleaned += '%';
        written = end;
    }
    return cleaned + text.mid(static_cast<int>(written)).toUtf8();
}

QByteArray filled(const char* format, va_list arguments)
{
    const QByteArray cleaned = withoutOtherPercents(format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, cleaned.constData(), again);
    va_end(again);
    QByteArray line(qMax(length, 0) + 1, '\0');
    std::vsnprintf(line.data(), static_cast<std::size_t>(line.size()), cleaned.constData(),
                   arguments);
    line.chop(1);
    return line;
}

} // namespace

void LogL(const char* category, int level, const char* format, ...)
{
    // Never destroyed: the catalogue logs after main(). QT_LOGGING_RULES="platform=true" shows all.
    static auto* const log = new QLoggingCategory("platform", QtWarningMsg);
    const bool isWarning = level >= LogLevel::warning;
    if (!log->isEnabled(isWarning ? QtWarningMsg : QtDebugMsg))
        return;
    va_list arguments;
    va_start(arguments, format);
    const QByteArray line = filled(format, arguments);
    va_end(arguments);
    const QMessageLogger logger(nullptr, 0, nullptr, log->categoryName());
    if (isWarning)
        logger.warning("%s: %s", category, line.constData());
    else
        logger.debug("%s: %s", category, line.constData());
}
