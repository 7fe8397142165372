// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// An icon theme without icons: what a test draws must not depend on what else is installed, and Qt
/// looks for each of its icons in the hundreds of folders of the system's theme.
class TestIcons
{
public:
    TestIcons() = delete;

    /// Hides the system's icons from the programs whose HOME is this folder; call it before they
    /// have an application.
    static void hide(const QString& home);
};
