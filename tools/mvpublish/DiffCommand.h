// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish diff".
namespace DiffCommand {

int run(const Arguments& arguments);

} // namespace DiffCommand
