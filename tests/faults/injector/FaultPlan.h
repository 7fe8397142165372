#pragma once

#include "Operation.h"

/// Counts the operations of the process and says which of them fail.
///
/// The environment tells what to do, once, when the library is loaded:
///
///     MV_FAULT_BELOW   only operations on paths below this folder count; without it nothing does
///     MV_FAULT_AT      the number of the operation that fails, from 1; 0: none
///     MV_FAULT_KIND    one of faultNames
///     MV_FAULT_STAYS   if set: all later operations fail as well that can fail this way
///     MV_FAULT_REPORT  file, not below the folder, to which a line is appended when an operation
///                      fails: "! NUMBER OPERATION PATH"
///     MV_FAULT_TRACE   if set: a line "NUMBER OPERATION PATH" for every operation
///     MV_FAULT_WITHOUT what the file system lacks, separated by commas: "exchange", the exchange
///                      of two names; "flush", waiting for the disk, so that runs take no time
///
/// Any thread. Allocates nothing and calls nothing that could be interposed.
namespace FaultPlan {

enum class Verdict {
    Pass,
    Fail,   ///< errno is set
    Halve,  ///< do half
    Finish, ///< do half, then die()
};

/// Where an operation takes place: a path, or an open file whose path is looked up when needed.
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

/// The folder below which operations count, without a slash at its end; empty: none.
const char* folder();

/// Counts an operation below the folder. Does not return if it is the one that ends the process.
Verdict next(Operation operation, const Place& place);

/// Ends the process as SIGKILL does.
[[noreturn]] void die();

/// Whether an operation has failed that way, and later ones still do.
bool stays(FaultKind kind);

bool hasExchange();
bool hasFlush();

} // namespace FaultPlan
