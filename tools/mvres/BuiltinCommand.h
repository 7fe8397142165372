// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvres builtin DIR".
class BuiltinCommand
{
public:
    static int run(const Arguments& arguments);
};
