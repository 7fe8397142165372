// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The look of the whole window in a skin: the library's style sheet for its lists, and a palette
/// and a few rules for everything else.
class AppLook
{
public:
    AppLook() = delete;

    /// Applies one of BrowserSkin::names(). Needs a QApplication; open windows change at once.
    static void apply(const QString& skin);
};
