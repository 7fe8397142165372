#pragma once

#include <QStringList>

class QLabel;
class QWidget;

/// Whether texts have room, as their fonts draw them.

bool holdsItsText(const QLabel& label);

/// The texts that the visible parts of a window cut off: labels, buttons, tabs, menu titles, every
/// choice of a box, and what a field asks for. Labels of this name are left out, as they shorten
/// their texts on purpose.
QStringList cutOffTexts(const QWidget& window, const QString& shortening);
