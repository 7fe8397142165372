// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvres clean [--dry-run]".
class CleanCommand
{
public:
    static int run(const Arguments& arguments);
};
