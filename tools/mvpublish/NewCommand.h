// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish new".
namespace NewCommand {

int run(const Arguments& arguments);

} // namespace NewCommand
