#pragma once

class Arguments;

/// Implements "mvpublish upload".
namespace UploadCommand {

int run(const Arguments& arguments);

} // namespace UploadCommand
