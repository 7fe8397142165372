// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

/// Colours for the widgets around a list, matching the list's skin.
struct SSkinColors
{
    QColor window;
    QColor base; ///< below lists and in fields
    QColor text;
    QColor dimText; ///< secondary and disabled text
    QColor button;
    QColor accent;
    QColor onAccent; ///< text on the accent
    QColor border;
};
