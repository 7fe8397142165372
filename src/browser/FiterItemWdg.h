// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MVThemeItemWdg.h"

/// An MVThemeItemWdg under another class name, for video filters and background materials, so that
/// style sheets can draw those cells differently.
class MVBROWSER_EXPORT FiterItemWdg : public MVThemeItemWdg
{
    Q_OBJECT

public:
    /// Creates a cell without an item, see setItem().
    explicit FiterItemWdg(QWidget* parent);
};
