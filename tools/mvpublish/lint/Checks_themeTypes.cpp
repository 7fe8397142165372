// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: the list of an installation's themes by type.

#include "lint/Checks.h"
#include "lint/GuidChecks.h"
#include "lint/LintContext.h"
#include "lint/NamedFiles.h"
#include "tree/Kinds.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

void checkGuids(LintContext& context, const QString& file, const QString& type,
                const QJsonValue& value)
{
    bool isList = value.isArray();
    const QJsonArray guids = value.toArray();
    for (const QJsonValue& guid : guids) {
        isList = isList && guid.isString();
        if (guid.isString() && context.tree().configReadable()
            && !context.tree().find(eCfgItem_Theme, guid.toString()))
            GuidChecks::reportUnknown(context, {file, 0, guid.toString(), "guid-unknown"},
                                      eCfgItem_Theme, guid.toString());
    }
    if (!isList)
        context.report("malformed", file, 0, QString(),
                       QStringLiteral("\"%1\" is not a list of GUIDs").arg(type),
                       QStringLiteral("list the GUIDs of themes, as texts"));
}

} // namespace

void Checks::themeTypes(LintContext& context)
{
    const QString name = ReadTree::catalogue(QStringLiteral("ThemeType.json"));
    if (!context.tree().isInstallation())
        return;
    context.use(name);
    QFile file(context.tree().absolute(name));
    if (!NamedFiles::isThere(context, name, {name, 0, QString()})
        || !file.open(QIODevice::ReadOnly))
        return;
    const QByteArray text = file.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        context.report("malformed", name, text.left(error.offset).count('\n') + 1, QString(),
                       QStringLiteral("is not JSON: ") + error.errorString(),
                       QStringLiteral("put it right where the line says"));
        return;
    }
    if (!document.isObject()) {
        context.report("malformed", name, 0, QString(), QStringLiteral("is not a JSON object"),
                       QStringLiteral("it needs a list of GUIDs for every type of themes"));
        return;
    }
    const QJsonObject types = document.object();
    for (auto it = types.constBegin(); it != types.constEnd(); ++it) {
        if (Kinds::themeTypes().contains(it.key()))
            checkGuids(context, name, it.key(), it.value());
        else
            context.report("theme-type", name, 0, QString(),
                           QStringLiteral("\"%1\" is not a theme type").arg(it.key()),
                           QStringLiteral("use one of ")
                               + Kinds::themeTypes().join(QStringLiteral(", ")));
    }
}
