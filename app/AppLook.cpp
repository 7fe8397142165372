// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AppLook.h"

#include "browser/BrowserSkin.h"

#include <QApplication>
#include <QPalette>

namespace {

QPalette paletteOf(const SSkinColors& colors)
{
    QPalette palette(colors.button, colors.window);
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, colors.window);
    palette.setColor(QPalette::ToolTipBase, colors.base);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, colors.text);
    palette.setColor(QPalette::PlaceholderText, colors.dimText);
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, colors.onAccent);
    palette.setColor(QPalette::Link, colors.accent);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colors.dimText);
    return palette;
}

QString rules(const SSkinColors& colors)
{
    return QStringLiteral(
               "#appliedName, #welcomeTitle { font-size: 14pt; font-weight: bold; }"
               "#appliedKind, #whyEmpty { color: %1; }"
               "#failure, *[isNotice=\"true\"] { border: 1px solid %2; border-radius: 4px; }"
               "QTreeView, QPlainTextEdit { border: 1px solid %2; padding: 1px; }"
               "QTreeView:focus, QPlainTextEdit:focus { border: 2px solid %3; padding: 0; }")
        .arg(colors.dimText.name(), colors.border.name(), colors.accent.name());
}

} // namespace

void AppLook::apply(const QString& skin)
{
    const SSkinColors colors = BrowserSkin::windowColors(skin);
    QApplication::setPalette(paletteOf(colors));
    BrowserSkin::apply(BrowserSkin::styleSheet(skin) + rules(colors));
}
