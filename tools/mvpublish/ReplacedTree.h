// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// A folder that a build is about to replace.
namespace ReplacedTree {

/// Returns why the folder must be kept: it cannot be read, or contains an entry that does not
/// belong to a server's tree or, if `installed`, to an installation. Empty if it may be replaced.
QString fault(const QString& folder, bool installed);

} // namespace ReplacedTree
