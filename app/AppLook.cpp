#include "AppLook.h"

#include "browser/BrowserSkin.h"

#include <QApplication>
#include <QPalette>

namespace {

struct Colors
{
    QColor window;
    QColor base; ///< below lists and in fields
    QColor text;
    QColor dim; ///< less important text, and disabled
    QColor button;
    QColor accent;
    QColor onAccent;
    QColor border;
};

Colors colorsOf(const QString& skin)
{
    if (skin == QLatin1String("Elegance"))
        return {0x232429, 0x1b1c20, 0xe6e7ea, 0xa6a9b1, 0x34363d, 0xd6b26c, 0x1d1a12, 0x4b4e57};
    if (skin == QLatin1String("Simplicity"))
        return {0xfafafa, 0xffffff, 0x2b2b2b, 0x666666, 0xf0f0f0, 0x3a3a3a, 0xffffff, 0xcfcfcf};
    if (skin == QLatin1String("Calm"))
        return {0x17333a, 0x10262b, 0xe2efed, 0x9fbdbd, 0x264a51, 0x7fd1bf, 0x0b1f1c, 0x3a666c};
    return {0xf7f8fa, 0xffffff, 0x2b3138, 0x5c6773, 0xe9ecf1, 0x1f6bc4, 0xffffff, 0xbcc4ce};
}

QPalette paletteOf(const Colors& colors)
{
    QPalette palette(colors.button, colors.window);
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, colors.window);
    palette.setColor(QPalette::ToolTipBase, colors.base);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, colors.text);
    palette.setColor(QPalette::PlaceholderText, colors.dim);
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, colors.onAccent);
    palette.setColor(QPalette::Link, colors.accent);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colors.dim);
    return palette;
}

QString rules(const Colors& colors)
{
    return QStringLiteral("#appliedName { font-size: 14pt; font-weight: bold; }"
                          "#appliedKind, #whyEmpty { color: %1; }"
                          "#failure { border: 1px solid %2; border-radius: 4px; }")
        .arg(colors.dim.name(), colors.border.name());
}

} // namespace

void AppLook::apply(const QString& skin)
{
    const Colors colors = colorsOf(skin);
    QApplication::setPalette(paletteOf(colors));
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin) + rules(colors));
}
