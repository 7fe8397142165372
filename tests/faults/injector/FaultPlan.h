// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Operation.h"

/// Counts the operations of the process and decides which of them fail.
///
/// The environment configures it once, when the library is loaded:
///
///     MV_FAULT_BELOW   only operations on paths below this folder count; without it none does
///     MV_FAULT_AT      the number of the operation that fails, from 1; 0: none
///     MV_FAULT_KIND    one of faultNames
///     MV_FAULT_STAYS   if set: every later operation that can fail this way fails as well
///     MV_FAULT_REPORT  file, not below the folder, to which a line is appended when an operation
///                      fails: "! NUMBER OPERATION PATH"
///     MV_FAULT_TRACE   if set: a line "NUMBER OPERATION PATH" for every operation
///     MV_FAULT_WITHOUT features the system lacks, comma-separated: "exchange", exchanging two
///                      names; "flush", waiting for the disk, so that runs are fast; "unnamed",
///                      files without a name; "emptypath" and "procpath", the two ways to name them
///
/// Callable on any thread. Allocates nothing and calls nothing that could be interposed.
namespace FaultPlan {

enum class Verdict {
    Pass,
    Fail,   ///< errno is set
    Halve,  ///< transfer half
    Finish, ///< transfer half, then die()
};

/// The place of an operation: a path, or an open file whose path is looked up on demand.
struct Place
{
    Place(const char* absolute)
        : path(absolute)
    {
    }
    Place(int open)
        : file(open)
    {
    }
    const char* path = nullptr;
    int file = -1;
};

/// Returns the folder below which operations count, without a trailing slash; empty: none.
const char* folder();

/// Counts an operation below the folder. Does not return if the plan is to end the process here.
Verdict next(Operation operation, const Place& place);

/// Ends the process with SIGKILL.
[[noreturn]] void die();

/// Returns whether an operation has failed that way and later ones are to fail, too.
bool stays(FaultKind kind);

bool hasExchange();
bool hasFlush();
bool hasUnnamed();
bool hasEmptyPath();
bool hasProcPath();

} // namespace FaultPlan
