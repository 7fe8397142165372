// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Ratios.h"

#include <algorithm>
#include <cstdio>

void Ratios::ReportRuns(const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations == 0)
            continue;
        const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
        // Strips the suffixes of modifiers such as "/real_time".
        const std::string name = run.run_name.function_name
            + (run.run_name.args.empty() ? std::string() : "/" + run.run_name.args);
        m_times[name].push_back(seconds);
    }
}

void Ratios::limit(const std::string& name, const std::string& value, const std::string& floor,
                   double highest, Compared compared)
{
    m_limits.push_back({name, value, floor, highest, compared});
}

/// Returns 0 for a benchmark that was not measured.
double Ratios::time(const std::string& benchmark, Compared compared) const
{
    const auto found = m_times.find(benchmark);
    if (found == m_times.end())
        return 0;
    std::vector<double> times = found->second;
    const auto wanted = compared == Compared::Best
        ? times.begin()
        : times.begin() + std::ptrdiff_t(times.size() / 2);
    std::nth_element(times.begin(), wanted, times.end());
    return *wanted;
}

int Ratios::finish() const
{
    bool allKept = true;
    for (const Limit& limit : m_limits) {
        const double value = time(limit.value, limit.compared);
        const double floor = time(limit.floor, limit.compared);
        if (value <= 0 || floor <= 0) {
            std::printf("%s was not measured\n", limit.name.c_str());
            allKept = false;
            continue;
        }
        const double ratio = value / floor;
        std::printf("%s ratio %.3f limit %.2f\n", limit.name.c_str(), ratio, limit.highest);
        allKept = allKept && ratio <= limit.highest;
    }
    return allKept ? 0 : 1;
}
