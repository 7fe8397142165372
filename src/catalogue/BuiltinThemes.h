#pragma once

#include "records/MvResourceExport.h"

#include <QString>

/// Extracts what ships with the application out of a full resource tree: the shown filters, what
/// the first two shown themes need, all themes and all motions.
///
/// A tool for those who build the application. Below the developer's resource root
/// (HostSettings::developerResourceRoot) it makes "config_local" anew, with the form of "config".
class MVRESOURCE_EXPORT BuiltinThemes
{
public:
    BuiltinThemes() = delete;

    /// The themes that ship with the application: so many from the beginning of the list.
    static constexpr int themeCount = 2;

    /// Needs a loaded catalogue that shows at least two themes, with the product parameter "hasMV",
    /// since it reads what they depend on. Called on the GUI thread while no download runs. Files
    /// missing in the tree are left out. False, with the reason in `error` (may be null), if there
    /// is nothing to extract from, or the config of neither theme has been read; then nothing has
    /// changed.
    static bool create(QString* error);
};
