// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

namespace KeygenCommand {

/// Writes a new key with which releases are signed. Returns the exit status.
int run(const Arguments& arguments);

} // namespace KeygenCommand
