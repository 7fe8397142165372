// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tree/Finding.h"

class QJsonDocument;
class ReadTree;

/// Checks a tree with the library's own readers.
namespace Lint {

/// Returns the findings, sorted by file and line.
Findings check(const ReadTree& tree);

/// Sorts findings by file and line.
Findings sorted(Findings findings);

/// Counts the findings of one severity.
int count(const Findings& findings, Severity severity);

/// Returns "clean", "1 error", "2 errors, 1 warning" or "1 warning".
QString summary(const Findings& findings);

/// Returns "FILE:LINE: ITEM: MESSAGE [CODE]", with "warning: " before a warning's message.
QString text(const Finding& finding);
QJsonDocument json(const ReadTree& tree, const Findings& findings);
/// Returns the findings alone, as in the document.
QJsonArray json(const Findings& findings);

} // namespace Lint
