// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QString>

/// Extracts the items that ship with the application from a full resource tree: the shown filters,
/// everything that the first two shown themes need, all themes and all motions.
///
/// A tool for the application's developers. Below the developer's resource root
/// (HostSettings::developerResourceRoot) it recreates "config_local", structured like "config".
class MVRESOURCE_EXPORT BuiltinThemes
{
public:
    BuiltinThemes() = delete;

    /// The themes that ship with the application: so many from the beginning of the list.
    static constexpr int themeCount = 2;

    /// Needs a loaded catalogue that shows at least two themes, with the product parameter "hasMV",
    /// since it reads their dependencies. Call it on the GUI thread while no download runs. Files
    /// missing in the tree are skipped. Returns false without changing anything, with the reason in
    /// `error` (may be null), if there is nothing to extract from or neither theme's config has
    /// been read.
    static bool create(QString* error);
};
