// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ConsoleProgram.h"

/// A computer with little memory, where mvpublish and minisign protect keys with less work: in half
/// a second instead of several seconds and with a gigabyte.
class SmallMachine
{
public:
    SmallMachine() = delete;

    /// Returns a program with its arguments that runs the given one there. A sanitizer reserves
    /// more memory than the machine has; with one, the program runs on the real computer.
    static QStringList command(const QString& program, const QStringList& arguments);
    /// Runs a program whose standard input is `input`.
    static Outcome runWithInput(const QString& program, const QStringList& arguments,
                                const QByteArray& input);
};
