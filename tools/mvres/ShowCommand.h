// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvres show GUID".
class ShowCommand
{
public:
    static int run(const Arguments& arguments);
};
