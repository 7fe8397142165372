#pragma once

class Arguments;

/// mvpublish lint
namespace LintCommand {

int run(const Arguments& arguments);

} // namespace LintCommand
