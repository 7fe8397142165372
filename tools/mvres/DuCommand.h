// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvres du".
class DuCommand
{
public:
    static int run(const Arguments& arguments);
};
