#pragma once

#include <memory>

class BaremvThemelistview;
class mvThemelistview;
class QString;
class QWidget;

/// Shows lists the way both sides are measured: under a skin, in a window of the same size, with
/// nothing left to do before the measurement and after it.
namespace BrowserStage {

/// Puts a skin on the application, for the code or for the floor; one that is on stays.
void dress(const QString& styleSheet);

/// An empty list that is shown.
std::unique_ptr<mvThemelistview> openList();
std::unique_ptr<BaremvThemelistview> openFloor();

/// Handles events until everything is polished, laid out and painted.
void settle();

} // namespace BrowserStage
