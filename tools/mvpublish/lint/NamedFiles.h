// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/SFileInfo.h"

#include <QString>

class LintContext;

/// Helpers for the checks of files that catalogues name.
namespace NamedFiles {

/// The catalogue entry that names a file.
struct NamedBy
{
    QString catalogue;
    int line;
    QString item;
};

/// Reports a name from which no client can derive a file path, whatever the tree contains; returns
/// whether the name is usable. `decoded`: clients decode the name if it begins with a slash.
bool isUsable(LintContext& context, const SFileInfo& info, const NamedBy& by, bool decoded);

/// Returns the file that a record names, if it exists; otherwise an empty text and, if the file is
/// required, a finding.
QString existing(LintContext& context, const SFileInfo& info, const NamedBy& by, bool needed,
                 bool fetched);

/// Returns whether the tree has the file. A link out of the tree is a finding and counts as
/// missing.
bool isThere(LintContext& context, const QString& file, const NamedBy& by);

} // namespace NamedFiles
