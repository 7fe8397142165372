// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/WindowsName.h"

#include <QString>
#include <QStringList>

#include <algorithm>

namespace {

/// Returns whether the name refers to a device. Windows compares up to the first dot, without case
/// and without blanks before the dot.
bool isDevice(const QString& name)
{
    static const QStringList devices{QStringLiteral("CON"),    QStringLiteral("PRN"),
                                     QStringLiteral("AUX"),    QStringLiteral("NUL"),
                                     QStringLiteral("CONIN$"), QStringLiteral("CONOUT$")};
    // The superscript digits are digits there, too.
    static const QString digits = QStringLiteral("123456789\u00b9\u00b2\u00b3");
    const QString stem = name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    if (devices.contains(stem))
        return true;
    constexpr int portLength = 4;
    return stem.size() == portLength && digits.contains(stem.back())
        && (stem.startsWith(QLatin1String("COM")) || stem.startsWith(QLatin1String("LPT")));
}

} // namespace

bool WindowsName::canContain(QChar character)
{
    static const QString refused = QStringLiteral("\\/:*?\"<>|");
    return character >= QLatin1Char(' ') && !refused.contains(character);
}

bool WindowsName::isStorable(const QString& name)
{
    if (name.isEmpty() || name.endsWith(QLatin1Char('.')) || name.endsWith(QLatin1Char(' ')))
        return false;
    return std::all_of(name.cbegin(), name.cend(), &canContain) && !isDevice(name);
}

bool WindowsName::isStorablePath(const QString& path)
{
    const QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return std::all_of(parts.cbegin(), parts.cend(), [](const QString& part) {
        return part == QLatin1String(".") || isStorable(part);
    });
}
