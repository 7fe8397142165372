#pragma once

class Arguments;

/// mvpublish serve
namespace ServeCommand {

int run(const Arguments& arguments);

} // namespace ServeCommand
