// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#ifndef Q_OS_WIN
#include <csignal>

#include <sys/resource.h>
#endif

/// Limits the size of every file written by this process during its lifetime, like a full disk. Is
/// never active on Windows, which has no such limit.
class FileSizeLimit
{
#ifdef Q_OS_WIN
public:
    explicit FileSizeLimit(qint64 /*bytes*/) { }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

    bool isActive() const
    {
        return false;
    }
#else
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_previousHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_previous);
        rlimit limit = m_previous;
        limit.rlim_cur = bytes;
        m_active = ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_previousHandler);
    }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

    bool isActive() const
    {
        return m_active;
    }

private:
    void (*m_previousHandler)(int);
    rlimit m_previous = {};
    bool m_active = false;
#endif
};
