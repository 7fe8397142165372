// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Tool tips for texts of any length and origin. Stateless.
class ToolTip
{
public:
    ToolTip() = delete;

    /// Returns the plain text as mark-up, which Qt wraps, unlike plain text, and does not take for
    /// other mark-up.
    static QString wrapped(const QString& text)
    {
        if (text.isEmpty())
            return {};
        QString lines = text.toHtmlEscaped();
        return QStringLiteral("<qt>") + lines.replace(QLatin1Char('\n'), QStringLiteral("<br>"))
            + QStringLiteral("</qt>");
    }
};
