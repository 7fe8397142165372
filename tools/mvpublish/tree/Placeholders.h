// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The pictures of a new item until its publisher replaces them.
namespace Placeholders {

inline const QString thumbnail = QStringLiteral("thumbnail.png");
inline const QString animation = QStringLiteral("animation.gif");

/// Writes a placeholder to a new file.
bool copy(const QString& placeholder, const QString& to);

/// Returns whether a file is an unchanged placeholder, whatever its name.
bool isUntouched(const QString& file);

} // namespace Placeholders
