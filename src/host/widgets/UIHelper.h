// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/widgets/MvHostUiExport.h"

/// Helpers for user interfaces. Stateless; GUI thread.
class MVHOSTUI_EXPORT UIHelper
{
public:
    UIHelper() = delete;

    /// Returns a font's point size for the screen: `pointSize` times HostSettings::zoomDPI, not
    /// rounded.
    static float changFontSize(int pointSize);
};
