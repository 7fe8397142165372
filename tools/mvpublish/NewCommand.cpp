// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "NewCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "host/Utils.h"
#include "ItemFolder.h"
#include "Manifest.h"
#include "records/KindTable.h"
#include "Source.h"
#include "tree/Guids.h"
#include "tree/Kinds.h"
#include "tree/Placeholders.h"
#include "tree/Texts.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

bool writeJson(const QString& file, const QJsonObject& object)
{
    return Utils::writeFile(file, QJsonDocument(object).toJson());
}

/// Writes the source's own manifest for its first item.
bool ensureCatalogue(const QString& source)
{
    const QString file = source + QLatin1Char('/') + Source::manifestName();
    return QFileInfo::exists(file)
        || writeJson(file, {{QStringLiteral("version"), QStringLiteral("1.0.0")}});
}

/// Writes placeholders for all files that a catalogue needs of an item.
bool writeItem(const QString& folder, const QString& slug, const SKindInfo& kind,
               const QString& name)
{
    const bool isPicture = kind.type == eCfgItem_BgMaterial;
    const QString thumbnail = slug + QStringLiteral(".png");
    const QString content = isPicture ? QStringLiteral("background.png") : kind.word();
    QJsonObject item{{QStringLiteral("guid"), Guids::fresh()},
                     {QStringLiteral("kind"), kind.word()},
                     {QStringLiteral("name"), name},
                     {QStringLiteral("thumbnail"), thumbnail},
                     {QStringLiteral("files"),
                      QJsonArray{isPicture ? content : content + QStringLiteral(".zip")}}};
    bool ok = Placeholders::copy(Placeholders::thumbnail, folder + thumbnail);
    if (isPicture) {
        ok = ok && Placeholders::copy(Placeholders::thumbnail, folder + content);
    } else {
        ok = ok && QDir().mkpath(folder + content)
            && Utils::writeFile(
                 folder + content + QStringLiteral("/README.txt"),
                 "Put here what the editor needs of this item; all of it is packed into one "
                 "archive.\n");
    }
    if (kind.type == eCfgItem_Theme) {
        const QString animation = slug + QStringLiteral(".gif");
        ok = ok && Placeholders::copy(Placeholders::animation, folder + animation);
        item.insert(QStringLiteral("animation"), animation);
        item.insert(QStringLiteral("type"), Kinds::otherThemes());
        item.insert(QStringLiteral("scenes"), QJsonArray());
    }
    return ok && writeJson(folder + Manifest::fileName(), item);
}

} // namespace

int NewCommand::run(const Arguments& arguments)
{
    const SKindInfo* const kind = Kinds::byWord(arguments.operands.at(0));
    if (!kind)
        return Console::fail(
            ExitStatus::failure,
            QStringLiteral("\"%1\" is none of %2").arg(arguments.operands.at(0), Kinds::words()));
    const QString name = arguments.operands.at(1);
    const QString fault = Texts::nameFault(name);
    if (!fault.isEmpty())
        return Console::fail(ExitStatus::failure, QStringLiteral("the name ") + fault);
    const QString slug = ItemFolder::nameFor(
        name, *kind, arguments.isAscii ? ItemFolder::Letters::Ascii : ItemFolder::Letters::All);
    const QString folder =
        QDir::cleanPath(arguments.source + QLatin1Char('/') + slug) + QLatin1Char('/');
    if (QFileInfo::exists(folder))
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("%1 is there already").arg(folder));
    if (!QDir().mkpath(folder) || !ensureCatalogue(arguments.source)
        || !writeItem(folder, slug, *kind, name))
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("%1 cannot be written").arg(folder));
    Console::print(folder + Manifest::fileName());
    return ExitStatus::success;
}
