// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

/// Colours for the widgets around a list, matching the list's skin.
struct SSkinColors
{
    QColor window;   ///< behind everything
    QColor base;     ///< below lists and in fields
    QColor text;     ///< on window and base
    QColor dimText;  ///< secondary and disabled text
    QColor button;   ///< of buttons at rest
    QColor accent;   ///< of what is selected
    QColor onAccent; ///< text on the accent
    QColor border;   ///< around fields and buttons
};
