#pragma once

#include "records/SFileInfo.h"

#include <QString>

class LintContext;

/// Helpers of the checks of files that catalogues name.
namespace NamedFiles {

/// The catalogue entry that names a file.
struct NamedBy
{
    QString catalogue;
    int line;
    QString item;
};

/// Reports a name from which no client can make the path of a file, whatever the tree holds; false
/// if it is one. `decoded`: clients decode the name if it begins with a slash.
bool isUsable(LintContext& context, const SFileInfo& info, const NamedBy& by, bool decoded);

/// The file that a record names, if it is there; else an empty text and, if it has to be, a
/// finding.
QString existing(LintContext& context, const SFileInfo& info, const NamedBy& by, bool needed,
                 bool fetched);

/// Returns whether the tree has the file. A link out of the tree is a finding, and the
/// answer is no.
bool isThere(LintContext& context, const QString& file, const NamedBy& by);

} // namespace NamedFiles
