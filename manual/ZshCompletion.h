// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ProgramTable.h"

/// The completion of a program's command line in zsh.
namespace ZshCompletion {

/// Returns the script that zsh loads for the program.
QString of(const ProgramTable& table);

} // namespace ZshCompletion
