#pragma once

class Arguments;

/// Implements "mvpublish serve".
namespace ServeCommand {

int run(const Arguments& arguments);

} // namespace ServeCommand
