#pragma once

#include <QString>

/// A folder that a build is about to replace.
namespace ReplacedTree {

/// Returns why the folder must not go: it cannot be read, or holds an entry that is no part of a
/// server's tree or, if `installed`, of an installation. Empty if nothing else is lost with it.
QString fault(const QString& folder, bool installed);

} // namespace ReplacedTree
