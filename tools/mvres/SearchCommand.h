// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvres search WORD...".
class SearchCommand
{
public:
    static int run(const Arguments& arguments);
};
