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
        return {"#232429", "#1b1c20", "#e6e7ea", "#a6a9b1",
                "#34363d", "#d6b26c", "#1d1a12", "#4b4e57"};
    if (skin == QLatin1String("Simplicity"))
        return {"#fafafa", "#ffffff", "#2b2b2b", "#666666",
                "#f0f0f0", "#3a3a3a", "#ffffff", "#cfcfcf"};
    if (skin == QLatin1String("Calm"))
        return {"#17333a", "#10262b", "#e2efed", "#9fbdbd",
                "#264a51", "#7fd1bf", "#0b1f1c", "#3a666c"};
    return {"#f7f8fa", "#ffffff", "#2b3138", "#5c6773", "#e9ecf1", "#1f6bc4", "#ffffff", "#bcc4ce"};
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
