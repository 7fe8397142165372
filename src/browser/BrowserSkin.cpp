// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserSkin.h"

#include "browser/SkinTemplate.h"
#include "host/LogL.h"
#include "host/Skins.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

// A program takes only what it uses from a static library. The macro needs the global namespace.
static void initSkins()
{
    Q_INIT_RESOURCE(mvbrowser_skins);
}

namespace {

QByteArray resource(const QString& name)
{
    initSkins();
    QFile file(QStringLiteral(":/mvbrowser/skins/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject fileOf(const QString& skin)
{
    return QJsonDocument::fromJson(resource(skin + QStringLiteral(".json"))).object();
}

QString makeSheet(const QString& skin)
{
    const QJsonObject file = fileOf(skin);
    QMap<QString, QString> values{
        {QStringLiteral("skin"), skin},
        {QStringLiteral("description"), file.value(QLatin1String("description")).toString()},
    };
    const QJsonObject own = file.value(QLatin1String("sheet")).toObject();
    for (auto it = own.begin(); it != own.end(); ++it)
        values.insert(it.key(), it.value().toString());
    QStringList faults;
    const QString text = QString::fromUtf8(resource(QStringLiteral("skin.qss")));
    QString sheet = SkinTemplate::fill(text, values, faults);
    for (const QString& fault : std::as_const(faults)) {
        LogL("BrowserSkin", LogLevel::warning, "skin [%s]: %s", skin.toUtf8().constData(),
             fault.toUtf8().constData());
    }
    return sheet;
}

QHash<QString, QString> makeSheets()
{
    QHash<QString, QString> sheets;
    const QStringList names = BrowserSkin::names();
    for (const QString& name : names)
        sheets.insert(name, makeSheet(name));
    return sheets;
}

} // namespace

QStringList BrowserSkin::names()
{
    QStringList names;
    for (const SSkin& skin : allSkins)
        names.append(QString::fromLatin1(skin.name));
    return names;
}

QString BrowserSkin::styleSheet(const QString& name)
{
    static const QHash<QString, QString> sheets = makeSheets();
    return sheets.value(name);
}

void BrowserSkin::apply(const QString& sheet)
{
    // A style, unlike a style sheet, is replaced in one pass over all widgets. Without a style
    // sheet the application gets its own style back; setting one again wraps that in a new style.
    qApp->setStyleSheet(QString());
    if (!sheet.isEmpty())
        qApp->setStyleSheet(sheet);
}

SSkinColors BrowserSkin::windowColors(const QString& name)
{
    const QStringList all = names();
    const QJsonObject colors = fileOf(all.contains(name) ? name : all.constFirst())
                                   .value(QLatin1String("window"))
                                   .toObject();
    const auto color = [&](const char* role) {
        return QColor(colors.value(QLatin1String(role)).toString());
    };
    return {color("window"), color("base"),   color("text"),     color("dimText"),
            color("button"), color("accent"), color("onAccent"), color("border")};
}
