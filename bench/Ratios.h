// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Prints the usual table, keeps the times of every benchmark over its repetitions, and compares
/// them at the end.
class Ratios : public benchmark::ConsoleReporter
{
public:
    Ratios()
        : ConsoleReporter(OO_None)
    {
    }

    void ReportRuns(const std::vector<Run>& runs) override;

    enum class Compared {
        Best,   ///< the time least disturbed by other work
        Median, ///< for disks, which are sometimes several times as fast for one run
    };

    /// Adds a limit on the ratio of two benchmarks: value / floor must not exceed it.
    void limit(const std::string& name, const std::string& value, const std::string& floor,
               double highest, Compared compared = Compared::Best);

    /// Prints a line "NAME ratio VALUE limit LIMIT" per limit; returns exit status 1 if one is
    /// exceeded or was not measured.
    int finish() const;

private:
    struct Limit
    {
        std::string name;
        std::string value;
        std::string floor;
        double highest;
        Compared compared;
    };

    double time(const std::string& benchmark, Compared compared) const;

    std::map<std::string, std::vector<double>> m_times; // seconds by benchmark name
    std::vector<Limit> m_limits;
};
