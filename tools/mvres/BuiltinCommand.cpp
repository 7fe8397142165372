// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BuiltinCommand.h"

#include "Arguments.h"
#include "catalogue/BuiltinThemes.h"
#include "Console.h"
#include "ExitStatus.h"
#include "host/HostSettings.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonDocument>
#include <QJsonObject>

int BuiltinCommand::run(const Arguments& arguments)
{
    const QString root = QDir::cleanPath(QDir().absoluteFilePath(arguments.operands.constFirst()));
    hostSettings().developerResourceRoot = root;
    QString error;
    if (!BuiltinThemes::create(&error))
        return Console::fail(ExitStatus::failure, error);

    const QString folder = root + QStringLiteral("/config_local");
    int files = 0;
    qint64 bytes = 0;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        ++files;
        bytes += it.fileInfo().size();
    }
    if (arguments.json) {
        Console::print(QJsonDocument(QJsonObject{{QStringLiteral("folder"), folder},
                                                 {QStringLiteral("files"), files},
                                                 {QStringLiteral("bytes"), bytes}}));
    } else {
        Console::print(QStringLiteral("%1: %2, %3")
                           .arg(folder, Console::counted(files, QStringLiteral("file")),
                                Console::size(bytes)));
    }
    return ExitStatus::success;
}
