// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Prints the usual table, keeps the best time of every benchmark over its repetitions, and
/// compares them at the end. The best time is the one least disturbed by other work.
class Ratios : public benchmark::ConsoleReporter
{
public:
    Ratios()
        : ConsoleReporter(OO_None)
    {
    }

    void ReportRuns(const std::vector<Run>& runs) override;

    /// Adds a limit on the ratio of two benchmarks: value / floor must not exceed it.
    void limit(const std::string& name, const std::string& value, const std::string& floor,
               double highest);

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
    };

    std::map<std::string, double> m_best; // seconds by benchmark name
    std::vector<Limit> m_limits;
};
