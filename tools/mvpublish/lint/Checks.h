// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class LintContext;

/// The checks of a tree. Each reports through the context and skips what another reports as
/// unreadable, so that one fault gives one finding.
namespace Checks {

/// Checks version files, their checksums, and that catalogues can be read.
void versions(LintContext& context);
/// Checks the GUIDs of the config catalogue.
void configGuids(LintContext& context);
/// Checks GUIDs, names and theme types of the display catalogues, and their "none" entries.
void displays(LintContext& context);
/// Checks that display catalogues agree on every item.
void editions(LintContext& context);
/// Checks definitions and resource files of every item.
void itemFiles(LintContext& context);
/// Checks thumbnails and animations of every shown item.
void previews(LintContext& context);
/// Checks theme configs and their dependencies.
void themes(LintContext& context);
/// Checks the list of an installation's themes by type.
void themeTypes(LintContext& context);
/// Checks the release of a server's tree, if it has one.
void release(LintContext& context);
/// Checks for unused items and files. Must be last: it needs the files met by the others.
void unused(LintContext& context);

} // namespace Checks
