#pragma once

class Arguments;

/// mvpublish new
namespace NewCommand {

int run(const Arguments& arguments);

} // namespace NewCommand
