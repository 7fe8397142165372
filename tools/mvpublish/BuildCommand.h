// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish build".
namespace BuildCommand {

int run(const Arguments& arguments);

} // namespace BuildCommand
