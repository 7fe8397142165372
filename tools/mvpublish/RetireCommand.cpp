// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RetireCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "host/STransferFailure.h"
#include "host/Utils.h"
#include "JsonFields.h"
#include "Manifest.h"
#include "Source.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

/// Returns the item with that folder or GUID, or null.
const SourceItem* find(const Source& source, const QString& name)
{
    const QString path = QDir::cleanPath(name);
    const auto found =
        std::find_if(source.items().cbegin(), source.items().cend(), [&](const SourceItem& item) {
            return item.path == path || item.guid == name;
        });
    return found == source.items().cend() ? nullptr : &*found;
}

QString retiredPath(const QString& path)
{
    return Source::retiredFolder() + QLatin1Char('/') + path;
}

/// Returns whether an earlier run has retired the item.
bool isRetired(const Source& source, const QString& name)
{
    const QString manifest = source.folder() + QLatin1Char('/') + retiredPath(QDir::cleanPath(name))
        + QLatin1Char('/') + Manifest::fileName();
    return source.retired().contains(name) || QFileInfo(manifest).isFile();
}

QStringList usersOf(const Source& source, const SourceItem& item)
{
    QStringList users;
    for (const SourceItem& other : source.items()) {
        if (other.uses().contains(item.guid))
            users.append(other.path);
    }
    users.sort();
    return users;
}

/// Records the GUID before the item goes, so that nobody takes it meanwhile.
bool record(const Source& source, const SourceItem& item, QString& reason)
{
    if (source.retired().contains(item.guid))
        return true;
    const QString file = source.folder() + QLatin1Char('/') + Source::manifestName();
    QStringList faults;
    QJsonObject manifest = JsonFields::read(file, Source::manifestName(), faults);
    QStringList retired = source.retired();
    retired.append(item.guid);
    manifest.insert(QLatin1String(Source::retiredField), QJsonArray::fromStringList(retired));
    reason = faults.join(QLatin1Char(' '));
    if (!faults.isEmpty())
        return false;
    STransferFailure failure;
    const bool isWritten = Utils::writeFile(file, QJsonDocument(manifest).toJson(), &failure);
    reason = failure.causeText();
    return isWritten;
}

/// Moves the folder of the item to `path`, relative to the source.
bool move(const Source& source, const SourceItem& item, const QString& path)
{
    QDir folder(source.folder());
    return folder.mkpath(QFileInfo(path).path()) && folder.rename(item.path, path);
}

int retire(const Source& source, const SourceItem& item)
{
    const QStringList users = usersOf(source, item);
    if (!users.isEmpty())
        return Console::fail(
            ExitStatus::findings,
            QStringLiteral("%1 is used by %2").arg(item.path, users.join(QStringLiteral(", "))));
    const QString path = retiredPath(item.path);
    if (QFileInfo::exists(source.folder() + QLatin1Char('/') + path))
        return Console::fail(ExitStatus::failure, QStringLiteral("%1 is there already").arg(path));
    QString reason;
    if (!record(source, item, reason))
        return Console::fail(
            ExitStatus::failure,
            QStringLiteral("%1 cannot be written: %2").arg(Source::manifestName(), reason));
    if (!move(source, item, path))
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("%1 cannot be moved to %2").arg(item.path, path));
    Console::print(
        QStringLiteral("%1 is in %2; its GUID %3 stays taken").arg(item.path, path, item.guid));
    return ExitStatus::success;
}

} // namespace

int RetireCommand::run(const Arguments& arguments)
{
    const QString name = arguments.operands.at(1);
    Source source;
    if (!source.readItems(arguments.operands.at(0))) {
        for (const QString& line : source.faults())
            Console::note(line);
        return ExitStatus::findings;
    }
    if (const SourceItem* const item = find(source, name))
        return retire(source, *item);
    if (!isRetired(source, name))
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("%1 has no item %2").arg(source.folder(), name));
    Console::print(QStringLiteral("%1 is retired already").arg(name));
    return ExitStatus::success;
}
