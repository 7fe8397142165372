// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvres list [KIND]".
class ListCommand
{
public:
    static int run(const Arguments& arguments);
};
