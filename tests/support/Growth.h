// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QString>

/// Checks that the time some work takes grows no faster than its size allows.
///
/// Other programs share the caches, so a single ratio of two short times proves nothing. Only
/// growth that is too steep in every attempt is reported; work of the wrong order never passes an
/// attempt.
class Growth
{
public:
    /// Does the work at the given size; returns its seconds, or a negative number if it went wrong.
    using Measure = std::function<double(int size)>;

    static constexpr int times = 16;
    /// Linear work takes 16 times as long for 16 times the size, somewhat more once it leaves the
    /// cache; quadratic work 256 times, less if it has a linear part.
    static constexpr double maxLinear = 60;

    /// Returns a description of what went wrong; an empty string if in some attempt the time at
    /// size `many` was less than `max` times the time at size `few`.
    static QString excess(const Measure& measure, int few, int many, double max)
    {
        constexpr int attempts = 4;
        QString described;
        for (int attempt = 0; attempt < attempts; ++attempt) {
            const double fewTime = measure(few);
            const double manyTime = measure(many);
            if (fewTime < 0 || manyTime < 0)
                return QStringLiteral("wrong result");
            if (manyTime < fewTime * max)
                return {};
            described += QStringLiteral("%1 s, then %2 s; ").arg(fewTime).arg(manyTime);
        }
        return described;
    }

    /// Checks linear work at 16 times the size `few`.
    static QString excess(const Measure& measure, int few)
    {
        return excess(measure, few, times * few, maxLinear);
    }
};
