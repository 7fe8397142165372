// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QLabel;
class QWidget;

/// Measures whether texts fit, as their fonts draw them.

bool holdsItsText(const QLabel& label);

/// Returns the texts that the visible parts of a window cut off: labels, buttons, tabs, menu
/// titles, every choice of a box, and placeholders. Labels of this name are skipped, since they
/// elide their texts on purpose.
QStringList cutOffTexts(const QWidget& window, const QString& shortening);
