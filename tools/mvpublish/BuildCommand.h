#pragma once

class Arguments;

/// Implements "mvpublish build".
namespace BuildCommand {

int run(const Arguments& arguments);

} // namespace BuildCommand
