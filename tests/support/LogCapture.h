#pragma once

#include "host/LogL.h"

#include <QByteArrayList>
#include <QVector>

#include <mutex>

/// Collects the log lines that are written while it lives, from all threads.
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
    /// The texts alone, in order.
    QByteArrayList texts() const;
    /// How many lines have exactly this text.
    int count(const QByteArray& text) const;
    /// How many lines contain this text.
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
