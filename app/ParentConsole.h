// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#ifndef PARENTCONSOLE_H
#define PARENTCONSOLE_H

/// The console of the program that started this one, on Windows: a program with windows has none of
/// its own.
namespace ParentConsole {

/// Lets standard output and error that lead nowhere appear in the parent's console, if it has one.
/// Call it before anything is printed.
void attach();

} // namespace ParentConsole

#endif
