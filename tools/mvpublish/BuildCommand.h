#pragma once

class Arguments;

/// mvpublish build
namespace BuildCommand {

int run(const Arguments& arguments);

} // namespace BuildCommand
