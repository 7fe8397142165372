// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish lint".
namespace LintCommand {

int run(const Arguments& arguments);

} // namespace LintCommand
