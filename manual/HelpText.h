// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ProgramTable.h"

/// The help of a program on its standard output, at most 80 columns wide.
namespace HelpText {

/// Returns the help on the whole program, ending in a line end.
QString ofProgram(const ProgramTable& table);
/// Returns the help on one of its commands, ending in a line end.
QString ofCommand(const ProgramTable& table, const ProgramTable::Command& command);

/// Returns the application's name and version, ending in a line end.
QString version();

/// Prints a help, or the version, on standard output, on Windows, too, where Qt would open a window
/// for it, and ends the process with success, or with 1 if it cannot be printed.
[[noreturn]] void printAndExit(const QString& help);

/// Returns the forms of an option: "-h, --help", "--root <DIR>".
QString formsOf(const QCommandLineOption& option);
/// Returns what an option does, for each command that has it: "verify: read every file".
QString helpOn(const ProgramTable& table, const QCommandLineOption& option);
/// Returns the title of a group of exit statuses: "check:".
QString titleOf(const ProgramTable::StatusGroup& group);

} // namespace HelpText
