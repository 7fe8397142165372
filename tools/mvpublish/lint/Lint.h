#pragma once

#include "lint/Finding.h"

class QJsonDocument;
class ReadTree;

/// Checks a tree the way the library will read it.
namespace Lint {

/// Sorted by file and line.
Findings check(const ReadTree& tree);

/// "FILE:LINE: ITEM: MESSAGE [CODE]"
QString text(const Finding& finding);
QJsonDocument json(const ReadTree& tree, const Findings& findings);

} // namespace Lint
