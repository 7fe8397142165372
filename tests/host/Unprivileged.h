// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

/// Drops root privileges during its lifetime, so that file permissions apply even to a test run by
/// root. Does nothing for other users. Use it only while the test is single-threaded. Is never
/// active on Windows, where permissions are others.
class Unprivileged
{
#ifdef Q_OS_WIN
public:
    static constexpr bool isPossible = false;

    Unprivileged() = default;
    Q_DISABLE_COPY_MOVE(Unprivileged)

    bool isActive() const
    {
        return false;
    }
#else
public:
    static constexpr bool isPossible = true;

    Unprivileged()
        : m_wasRoot(::geteuid() == 0)
    {
        m_active = !m_wasRoot || ::setresuid(nobody, nobody, 0) == 0;
    }
    ~Unprivileged()
    {
        if (m_wasRoot && ::setresuid(0, 0, 0) != 0)
            qFatal("cannot become root again");
    }
    Q_DISABLE_COPY_MOVE(Unprivileged)

    /// Returns false if the system does not allow dropping privileges.
    bool isActive() const
    {
        return m_active;
    }

private:
    static constexpr uid_t nobody = 65534;
    bool m_wasRoot;
    bool m_active;
#endif
};
