// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

namespace SignCommand {

/// Signs the release of a tree. Returns the exit status.
int run(const Arguments& arguments);

} // namespace SignCommand
