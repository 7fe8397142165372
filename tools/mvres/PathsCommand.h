// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;
class Session;

/// Implements "mvres paths".
class PathsCommand
{
public:
    static int run(const Arguments& arguments, const Session& session);
};
