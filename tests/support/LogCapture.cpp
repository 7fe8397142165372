// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/LogCapture.h"

#include <algorithm>

LogCapture::LogCapture()
{
    m_previous = setLogSink([this](const QByteArray& category, int level, const QByteArray& text) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_lines.append({category, level, text});
    });
}

LogCapture::~LogCapture()
{
    setLogSink(m_previous);
}

QVector<LogCapture::Line> LogCapture::lines() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    // A vector of its own: the order that Qt's sharing of storage gives is hidden from
    // ThreadSanitizer.
    QVector<Line> copy;
    copy.reserve(m_lines.size());
    for (const Line& line : m_lines)
        copy.append(line);
    return copy;
}

QByteArrayList LogCapture::texts() const
{
    QByteArrayList result;
    const QVector<Line> all = lines();
    for (const Line& line : all)
        result.append(line.text);
    return result;
}

int LogCapture::count(const QByteArray& text) const
{
    return texts().count(text);
}

int LogCapture::countContaining(const QByteArray& part) const
{
    const QByteArrayList all = texts();
    return static_cast<int>(std::count_if(
        all.cbegin(), all.cend(), [&](const QByteArray& text) { return text.contains(part); }));
}

bool LogCapture::contains(const QByteArray& category, int level, const QByteArray& text) const
{
    return lines().contains({category, level, text});
}

void LogCapture::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_lines.clear();
}

char* toString(const LogCapture::Line& line)
{
    return qstrdup(
        (line.category + ' ' + QByteArray::number(line.level) + ": " + line.text).constData());
}
