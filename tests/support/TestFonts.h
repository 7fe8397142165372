// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The fonts in tests/support/fonts, identical on every machine: what a test measures or draws must
/// not depend on what else is installed. DejaVu Sans (also bold) is the default, DejaVu Serif
/// serves tests that need a second family, and Droid Sans Fallback has the Chinese and Japanese
/// letters.
class TestFonts
{
public:
    TestFonts() = delete;

    /// Makes them the only fonts of this process and its children; call it before there is an
    /// application. Fontconfig writes its files below `home`.
    static void useOnly(const QString& home);

    /// Returns the folder that contains the fonts.
    static QString folder();
};
