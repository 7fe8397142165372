#pragma once

class Arguments;

/// Implements "mvpublish new".
namespace NewCommand {

int run(const Arguments& arguments);

} // namespace NewCommand
