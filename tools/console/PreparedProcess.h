// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>

/// A process that calls a function in the child before the program starts there. Only
/// async-signal-safe functions may be called in it.
class PreparedProcess : public QProcess
{
public:
    using Prepare = void (*)();

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    explicit PreparedProcess(Prepare prepare)
        : m_prepare(prepare)
    {
    }

protected:
    void setupChildProcess() override
    {
        m_prepare();
    }

private:
    Prepare m_prepare;
#else
    explicit PreparedProcess(Prepare prepare)
    {
        setChildProcessModifier(prepare);
    }
#endif
};
