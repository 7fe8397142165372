#pragma once

class QWidget;

/// Sets the dynamic property "IsChecked" of an item widget, lets the style sheet rules that test it
/// apply, shows or hides its "Current" mark, and repaints it.
void showChecked(QWidget* itemWidget, bool checked);
