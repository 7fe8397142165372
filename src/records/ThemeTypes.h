// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QLatin1String>
#include <QString>

#include <array>

/// The types of themes: their names in the catalogue files and their codes in
/// SCfg_Item::m_nThemeType. Constant; any thread.
class MVRESOURCE_EXPORT ThemeTypes
{
public:
    /// One type of themes.
    struct Type
    {
        QLatin1String name; ///< in the catalogue files
        int code;           ///< in SCfg_Item::m_nThemeType
    };
    /// All types.
    using Types = std::array<Type, 4>;

    ThemeTypes() = delete;

    /// Returns the types in the order of the catalogues' groups; others() is the last.
    static const Types& all();
    /// Returns the type for unknown names and codes.
    static const Type& others() { return all().back(); }
    /// Returns the code of a name, compared exactly.
    static int code(const QString& name);
    /// Returns the name of a code.
    static QString name(int code);
};
