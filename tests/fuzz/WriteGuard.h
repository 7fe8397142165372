#pragma once

#include <QStringList>

/// While it lives, this process may create, change and remove only what lies below some folders.
///
/// The program brings functions of its own in front of the C library's, so Qt's and the library's
/// calls are seen however they came about, and links on the way count as what they lead to. A call
/// that would touch anything else ends the process before it is made. Not seen: fopen() and what
/// the C library calls itself. One object at a time; it counts for all threads.
class WriteGuard
{
public:
    /// The folders exist.
    explicit WriteGuard(const QStringList& folders);
    ~WriteGuard();
    Q_DISABLE_COPY_MOVE(WriteGuard)
};
