// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish watch SOURCE OUT".
class WatchCommand
{
public:
    static int run(const Arguments& arguments);
};
