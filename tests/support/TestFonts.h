#pragma once

#include <QString>

/// The fonts in tests/support/fonts, which every machine has: what a test measures or draws must
/// not depend on what else is installed. DejaVu Sans (also bold) is the default, DejaVu Serif is
/// there for a test that needs another one, and Droid Sans Fallback has the Chinese and Japanese
/// letters.
class TestFonts
{
public:
    TestFonts() = delete;

    /// Makes them the only fonts of this process and of those it starts, before there is an
    /// application. What fontconfig writes goes below `home`.
    static void useOnly(const QString& home);

    /// The folder that they are in.
    static QString folder();
};
