// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ProgramTable.h"

/// The completion of a program's command line in fish.
namespace FishCompletion {

/// Returns the script that fish loads for the program.
QString of(const ProgramTable& table);

} // namespace FishCompletion
