// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cerrno>
#include <cstddef>

/// The file operations that the system can make fail. Shared by the preloaded library and the tests
/// that read its reports.
enum class Operation {
    OpenFile,   ///< of an existing file, or for reading
    CreateFile, ///< with open(), creat(), mkstemp() or fopen()
    OpenFolder, ///< to read or flush it
    Read,
    Write,
    Copy,  ///< within the kernel: sendfile(), copy_file_range()
    Flush, ///< to the disk: fsync(), fdatasync(), syncfs()
    Close, ///< of a file that was written to
    Resize,
    Rename,
    Link,   ///< hard or symbolic
    Remove, ///< of a file
    MakeFolder,
    RemoveFolder,
    SetAttributes, ///< mode or dates
};

/// The outcome imposed on an operation.
enum class FaultKind {
    None,
    Kill,        ///< SIGKILL instead of the operation
    KillHalfway, ///< SIGKILL after half of the bytes were written
    Halve,       ///< half of the bytes are transferred, which is not a failure
    DiskFull,    ///< ENOSPC
    Broken,      ///< EIO
    Refused,     ///< EACCES
    TooManyOpen, ///< EMFILE
};

/// Names in reports and rows, indexed by enumerator.
constexpr const char* operationNames[] = {"open",       "create",       "openfolder",   "read",
                                          "write",      "copy",         "flush",        "close",
                                          "resize",     "rename",       "link",         "remove",
                                          "makefolder", "removefolder", "setattributes"};
constexpr std::size_t operationCount = sizeof(operationNames) / sizeof(operationNames[0]);

/// Names in the environment and in rows, indexed by enumerator.
constexpr const char* faultNames[] = {"none",     "kill", "kill-halfway", "halve",
                                      "diskfull", "eio",  "eacces",       "emfile"};
constexpr std::size_t faultCount = sizeof(faultNames) / sizeof(faultNames[0]);

constexpr int errorOf(FaultKind kind)
{
    switch (kind) {
    case FaultKind::DiskFull:
        return ENOSPC;
    case FaultKind::Broken:
        return EIO;
    case FaultKind::Refused:
        return EACCES;
    case FaultKind::TooManyOpen:
        return EMFILE;
    case FaultKind::None:
    case FaultKind::Kill:
    case FaultKind::KillHalfway:
    case FaultKind::Halve:
        break;
    }
    return 0;
}

constexpr bool takesSpace(Operation operation)
{
    switch (operation) {
    case Operation::CreateFile:
    case Operation::Write:
    case Operation::Copy:
    case Operation::Flush:
    case Operation::Close:
    case Operation::Resize:
    case Operation::Rename:
    case Operation::Link:
    case Operation::MakeFolder:
        return true;
    default:
        return false;
    }
}

/// Returns whether a name is looked up, so that the folder's permissions matter.
constexpr bool looksUpName(Operation operation)
{
    switch (operation) {
    case Operation::Read:
    case Operation::Write:
    case Operation::Copy:
    case Operation::Flush:
    case Operation::Close:
    case Operation::Resize:
        return false;
    default:
        return true;
    }
}

/// Returns whether the system can make the operation fail that way.
constexpr bool fits(FaultKind kind, Operation operation)
{
    switch (kind) {
    case FaultKind::None:
        return false;
    case FaultKind::Kill:
    case FaultKind::Broken:
        return true;
    case FaultKind::KillHalfway:
        return operation == Operation::Write;
    case FaultKind::Halve:
        return operation == Operation::Read || operation == Operation::Write
            || operation == Operation::Copy;
    case FaultKind::DiskFull:
        return takesSpace(operation);
    case FaultKind::Refused:
        return looksUpName(operation);
    case FaultKind::TooManyOpen:
        return operation == Operation::OpenFile || operation == Operation::CreateFile
            || operation == Operation::OpenFolder;
    }
    return false;
}
