#pragma once

#include <QString>

/// The pictures that an item has until its publisher replaces them.
namespace Placeholders {

inline const QString thumbnail = QStringLiteral("thumbnail.png");
inline const QString animation = QStringLiteral("animation.gif");

/// Writes a placeholder to a new file.
bool copy(const QString& placeholder, const QString& to);

/// Returns whether a file is a placeholder that nobody has replaced, under whatever name.
bool isUntouched(const QString& file);

} // namespace Placeholders
