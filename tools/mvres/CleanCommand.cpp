// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CleanCommand.h"

#include "Arguments.h"
#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "download/ResourceStorage.h"
#include "ExitStatus.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVector>

namespace {

struct File
{
    QString path;
    qint64 bytes;
};

QVector<File> leftovers(const ResourceStorage& storage)
{
    QVector<File> files;
    const QStringList paths = storage.leftovers() + storage.remains();
    for (const QString& path : paths)
        files.append({path, QFileInfo(path).size()});
    return files;
}

/// Returns the files that are left although they were to be removed.
int countRemaining(const QVector<File>& files)
{
    int count = 0;
    for (const File& file : files) {
        if (!QFileInfo::exists(file.path))
            continue;
        Console::note(QStringLiteral("%1 cannot be removed").arg(file.path));
        ++count;
    }
    return count;
}

void print(const QVector<File>& files, qint64 bytes, const char* done)
{
    for (const File& file : files)
        Console::print(QStringLiteral("%1  %2").arg(Console::size(file.bytes), 12).arg(file.path));
    Console::print(QStringLiteral("%1, %2 %3")
                       .arg(Console::counted(files.size(), QStringLiteral("file")),
                            Console::size(bytes), QString::fromLatin1(done)));
}

QJsonObject toJson(const QVector<File>& files, qint64 bytes, bool isDryRun, int remaining)
{
    QJsonArray array;
    for (const File& file : files) {
        array.append(QJsonObject{{QStringLiteral("path"), file.path},
                                 {QStringLiteral("size"), static_cast<double>(file.bytes)}});
    }
    QJsonObject object{{QStringLiteral("files"), array},
                       {QStringLiteral("bytes"), static_cast<double>(bytes)},
                       {QStringLiteral("dryRun"), isDryRun}};
    if (remaining > 0) {
        object.insert(
            QStringLiteral("error"),
            Console::error(ExitStatus::failure,
                           QStringLiteral("%1 cannot be removed")
                               .arg(Console::counted(remaining, QStringLiteral("file")))));
    }
    return object;
}

} // namespace

int CleanCommand::run(const Arguments& arguments)
{
    if (!MVThemeMgr::init()->isCatalogueRead()) {
        return Console::fail(
            ExitStatus::failure,
            QStringLiteral("nothing is cleaned: the downloaded catalogue cannot be read"));
    }
    const ResourceStorage storage;
    const QVector<File> files = leftovers(storage);
    qint64 bytes = 0;
    for (const File& file : files)
        bytes += file.bytes;
    if (!arguments.dryRun)
        bytes = storage.clean();
    const int remaining = arguments.dryRun ? 0 : countRemaining(files);
    if (arguments.json)
        Console::print(QJsonDocument(toJson(files, bytes, arguments.dryRun, remaining)));
    else
        print(files, bytes, arguments.dryRun ? "to be freed" : "freed");
    return remaining == 0 ? ExitStatus::success : ExitStatus::failure;
}
