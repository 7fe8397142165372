// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <ctime>

/// Measures the processor time of the calling thread, which, unlike wall-clock time, does not
/// depend on what else the machine does.
class ProcessorTime
{
public:
    ProcessorTime()
        : m_start(now())
    {
    }

    /// Returns the processor time since construction, in seconds.
    double seconds() const { return now() - m_start; }

    /// Returns the least processor time of several calls, in seconds: that of the least disturbed
    /// one.
    template <class Function>
    static double least(const Function& function)
    {
        constexpr int calls = 3;
        double best = 0;
        for (int call = 0; call < calls; ++call) {
            const ProcessorTime time;
            function();
            const double seconds = time.seconds();
            best = call == 0 || seconds < best ? seconds : best;
        }
        return best;
    }

private:
    static double now()
    {
        constexpr double nanosecond = 1e-9;
        timespec time = {};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * nanosecond;
    }

    double m_start;
};
