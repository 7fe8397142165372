#pragma once

#include <QString>

class LintContext;

/// Helpers of the checks of previews and of items' own files.
namespace PictureChecks {

/// Reports a file that clients do not decode, or that has the suffix of another format; false if it
/// is one. `file` exists.
bool isPicture(LintContext& context, const QString& file, const QString& item);

/// Warns of a placeholder that nobody has replaced.
void warnOfPlaceholder(LintContext& context, const QString& file, const QString& item);

} // namespace PictureChecks
