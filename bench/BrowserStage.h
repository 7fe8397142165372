// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

class BaremvThemelistview;
class mvThemelistview;
class QString;
class QWidget;

/// Shows lists the way both sides are measured: with a skin, in a window of the same size, with no
/// work pending before or after the measurement.
namespace BrowserStage {

/// Applies a skin to the application, for the code or for the floor; an active one is kept.
void dress(const QString& styleSheet);

/// Opens an empty, visible list.
std::unique_ptr<mvThemelistview> openList();
std::unique_ptr<BaremvThemelistview> openFloor();

/// Processes events until everything is polished, laid out and painted.
void settle();

} // namespace BrowserStage
