// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Defines the entry points that libFuzzer calls.

#include "FuzzSession.h"
#include "FuzzTarget.h"

#include <cstddef>
#include <cstdint>

/// Creates the application object and the target; MV_FUZZ_TARGET defines it.
std::unique_ptr<FuzzTarget> makeProgramsTarget();

namespace {

FuzzSession& session()
{
    static FuzzSession running(&makeProgramsTarget);
    return running;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    session();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    session().feed(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
