#pragma once

#include <QString>

/// A folder that a build is about to replace.
namespace ReplacedTree {

/// The first entry of the folder that is no part of a server's tree or, if `installed`, of an
/// installation. Empty if all are, so that nothing else is lost when the folder goes.
QString foreignEntry(const QString& folder, bool installed);

} // namespace ReplacedTree
