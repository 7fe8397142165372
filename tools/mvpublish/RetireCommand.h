#pragma once

class Arguments;

/// Implements "mvpublish retire".
namespace RetireCommand {

int run(const Arguments& arguments);

} // namespace RetireCommand
