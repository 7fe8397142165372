#pragma once

class LintContext;

/// The checks of a tree. Each reports through the context and reads nothing that another reports as
/// unreadable, so that one fault gives one finding.
namespace Checks {

/// Version files, their checksums, catalogues that cannot be read.
void versions(LintContext& context);
/// GUIDs of the config catalogue.
void configGuids(LintContext& context);
/// GUIDs, names and theme types of the display catalogues, and their "none" entries.
void displays(LintContext& context);
/// Display catalogues that say different things of an item.
void editions(LintContext& context);
/// Definitions and resource files of every item.
void itemFiles(LintContext& context);
/// Thumbnails and animations of every item that is shown.
void previews(LintContext& context);
/// Theme configs and what they depend on.
void themes(LintContext& context);
/// The list of an installation's themes by type.
void themeTypes(LintContext& context);
/// Items and files that nothing uses. The last check: it needs to know what the others met.
void unused(LintContext& context);

} // namespace Checks
