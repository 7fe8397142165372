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
        return {"#23262b", "#1b1d21", "#e8eaed", "#a3a9b3",
                "#33373e", "#6ea8fe", "#10151c", "#41464f"};
    if (skin == QLatin1String("Simplicity"))
        return {"#fafafa", "#ffffff", "#202124", "#666a70",
                "#f0f0f0", "#3c4043", "#ffffff", "#d5d7da"};
    if (skin == QLatin1String("Calm"))
        return {"#16302f", "#102625", "#e2efec", "#9dbab5",
                "#24433f", "#7fd1bd", "#0b1f1c", "#34544f"};
    return {"#eef1f5", "#ffffff", "#1f2733", "#5b6675", "#e3e8ef", "#1f66c1", "#ffffff", "#c4cdd9"};
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
