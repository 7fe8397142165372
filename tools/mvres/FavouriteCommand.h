// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvres favourite GUID [--off]".
class FavouriteCommand
{
public:
    static int run(const Arguments& arguments);
};
