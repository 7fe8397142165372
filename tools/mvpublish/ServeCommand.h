// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish serve".
namespace ServeCommand {

int run(const Arguments& arguments);

} // namespace ServeCommand
