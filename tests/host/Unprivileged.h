#pragma once

#include <QtGlobal>

#include <unistd.h>

/// Gives up the administrator's rights while it lives, so that file permissions count in a test
/// that root runs. Does nothing for other users. Only while the test has a single thread.
class Unprivileged
{
public:
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

    /// False where the system does not allow it.
    bool isActive() const { return m_active; }

private:
    static constexpr uid_t nobody = 65534;
    bool m_wasRoot;
    bool m_active;
};
