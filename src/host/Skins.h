// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>

/// A look for lists.
struct SSkin
{
    /// The name used in HostSettings::currentSkin.
    const char* name;
    /// File name of the skin's picture for the "none" entry; skins may share one.
    const char* nonePicture;
};

/// The skins that come with the libraries, the default one first. Each has a file of the same name
/// in src/browser/skins.
inline constexpr std::array<SSkin, 4> allSkins{{
    {"Classical", "Classical.png"},
    {"Elegance", "Elegance.png"},
    {"Simplicity", "Elegance.png"},
    {"Calm", "Calm.png"},
}};
