// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish verify".
namespace VerifyCommand {

int run(const Arguments& arguments);

} // namespace VerifyCommand
