// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/LogL.h"

#include <QByteArrayList>
#include <QVector>

#include <mutex>

/// Records the log lines of all threads during its lifetime.
class LogCapture
{
public:
    struct Line
    {
        QByteArray category;
        int level = 0;
        QByteArray text;

        bool operator==(const Line& other) const
        {
            return category == other.category && level == other.level && text == other.text;
        }
    };

    LogCapture();
    ~LogCapture();
    Q_DISABLE_COPY_MOVE(LogCapture)

    QVector<Line> lines() const;
    /// Returns the texts only, in order.
    QByteArrayList texts() const;
    /// Returns how many lines have exactly this text.
    int count(const QByteArray& text) const;
    /// Returns how many lines contain this text.
    int countContaining(const QByteArray& part) const;
    bool contains(const QByteArray& category, int level, const QByteArray& text) const;
    void clear();

private:
    mutable std::mutex m_mutex; // guards m_lines
    QVector<Line> m_lines;
    LogSink m_previous;
};

/// Prints a line in test failures.
char* toString(const LogCapture::Line& line);
