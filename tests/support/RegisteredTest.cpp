// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/RegisteredTest.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

namespace {

/// Returns the tests of this program by name.
std::map<std::string, RegisteredTest::Run>& registeredTests()
{
    static std::map<std::string, RegisteredTest::Run> tests;
    return tests;
}

int refuse(const char* program)
{
    std::fprintf(stderr, "usage: %s TEST [ARGUMENTS OF QT TEST...]\ntests:\n", program);
    for (const auto& [name, run] : registeredTests())
        std::fprintf(stderr, "    %s\n", name.c_str());
    return 2;
}

} // namespace

RegisteredTest::RegisteredTest(const char* file, Run run)
{
    const std::string name = std::filesystem::path(file).stem().string();
    if (registeredTests().emplace(name, run).second)
        return;
    std::fprintf(stderr, "two tests are called %s\n", name.c_str());
    std::abort();
}

int main(int argc, char** argv)
{
    const auto& tests = registeredTests();
    if (argc > 1) {
        if (const auto named = tests.find(argv[1]); named != tests.end())
            return named->second(argc - 1, argv + 1);
    }
    return tests.size() == 1 ? tests.begin()->second(argc, argv) : refuse(argv[0]);
}
