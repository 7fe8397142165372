// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish retire".
namespace RetireCommand {

int run(const Arguments& arguments);

} // namespace RetireCommand
