// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ProgramTable.h"

/// The completion of a program's command line in bash.
namespace BashCompletion {

/// Returns the script that bash loads for the program.
QString of(const ProgramTable& table);

} // namespace BashCompletion
