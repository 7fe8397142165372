#pragma once

#include <array>

/// A look of the lists.
struct SSkin
{
    /// The name that HostSettings::currentSkin gives it.
    const char* name;
    /// File name of the picture that the "none" entry has in this skin; skins may share one.
    const char* nonePicture;
};

/// The skins that come with the libraries, the default one first. Each has a file of its name in
/// src/browser/skins.
inline constexpr std::array<SSkin, 4> allSkins{{
    {"Classical", "Classical.png"},
    {"Elegance", "Elegance.png"},
    {"Simplicity", "Elegance.png"},
    {"Calm", "Calm.png"},
}};
