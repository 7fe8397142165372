// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

/// Sets the dynamic property "IsChecked" of an item widget, applies the style sheet rules that test
/// it, shows or hides the "Current" mark, and repaints the widget.
void showChecked(QWidget* itemWidget, bool checked);
