#include "browser/BrowserSkin.h"

#include <QFile>

QStringList BrowserSkin::names()
{
    return {QStringLiteral("Classical"), QStringLiteral("Elegance"), QStringLiteral("Simplicity"),
            QStringLiteral("Calm")};
}

QString BrowserSkin::styleSheet(const QString& name)
{
    if (!names().contains(name))
        return {};
    QFile file(QStringLiteral(":/mvbrowser/skins/%1.qss").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}
