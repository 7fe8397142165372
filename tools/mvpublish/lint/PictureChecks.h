// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class LintContext;

/// Helpers for the checks of previews and of items' own files.
namespace PictureChecks {

/// Reports a file that clients do not decode, or that has the suffix of another format; returns
/// whether it is a valid picture. `file` exists.
bool isPicture(LintContext& context, const QString& file, const QString& item);

/// Warns about an unchanged placeholder.
void warnOfPlaceholder(LintContext& context, const QString& file, const QString& item);

} // namespace PictureChecks
