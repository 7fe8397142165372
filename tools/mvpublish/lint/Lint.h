#pragma once

#include "lint/Finding.h"

class QJsonDocument;
class ReadTree;

/// Checks a tree the way the library will read it.
namespace Lint {

/// Sorted by file and line.
Findings check(const ReadTree& tree);

/// Counts the findings of one severity.
int count(const Findings& findings, Severity severity);

/// "FILE:LINE: ITEM: MESSAGE [CODE]", with "warning: " before the message of one.
QString text(const Finding& finding);
QJsonDocument json(const ReadTree& tree, const Findings& findings);

} // namespace Lint
