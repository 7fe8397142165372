#pragma once

class Arguments;

/// mvpublish diff
namespace DiffCommand {

int run(const Arguments& arguments);

} // namespace DiffCommand
