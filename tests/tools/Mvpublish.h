// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ConsoleProgram.h"

/// The publisher's program.
class Mvpublish
{
public:
    Mvpublish() = delete;

    static QString program();
    static Outcome run(const QStringList& arguments);
    /// Builds a tree. Returns an error; empty: success.
    static QString build(const QString& source, const QString& out,
                         const QStringList& options = {});
};
