// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class Arguments;

/// Implements "mvpublish upload".
namespace UploadCommand {

int run(const Arguments& arguments);

} // namespace UploadCommand
