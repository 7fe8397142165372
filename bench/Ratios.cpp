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
        const auto entry = m_best.emplace(name, seconds).first;
        entry->second = std::min(entry->second, seconds);
    }
}

void Ratios::limit(const std::string& name, const std::string& value, const std::string& floor,
                   double highest)
{
    m_limits.push_back({name, value, floor, highest});
}

int Ratios::finish() const
{
    bool allKept = true;
    for (const Limit& limit : m_limits) {
        const auto value = m_best.find(limit.value);
        const auto floor = m_best.find(limit.floor);
        if (value == m_best.end() || floor == m_best.end()) {
            std::printf("%s was not measured\n", limit.name.c_str());
            allKept = false;
            continue;
        }
        const double ratio = value->second / floor->second;
        std::printf("%s ratio %.3f limit %.2f\n", limit.name.c_str(), ratio, limit.highest);
        allKept = allKept && ratio <= limit.highest;
    }
    return allKept ? 0 : 1;
}
