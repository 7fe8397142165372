// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/FolderContent.h"

#include "host/FileLink.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace FolderContent {

namespace fs = std::filesystem;

bool names(const QString& folder, QStringList& names, QString* error)
{
    names.clear();
    std::error_code code;
    fs::directory_iterator entry(QFile::encodeName(folder).toStdString(), code);
    for (; !code && entry != fs::directory_iterator(); entry.increment(code))
        names.append(
            QFile::decodeName(QByteArray::fromStdString(entry->path().filename().string())));
    names.sort();
    if (code)
        *error = QStringLiteral("%1 cannot be read: %2")
                     .arg(folder, QString::fromLocal8Bit(code.message().c_str()));
    return !code;
}

bool paths(const QString& folder, QStringList& paths, QString* error)
{
    QStringList found;
    if (!names(folder, found, error))
        return false;
    paths.clear();
    for (const QString& name : qAsConst(found)) {
        paths.append(name);
        const QFileInfo entry(folder + QLatin1Char('/') + name);
        if (!entry.isDir() || FileLink::isLink(entry))
            continue;
        QStringList inner;
        if (!FolderContent::paths(entry.filePath(), inner, error))
            return false;
        for (const QString& path : qAsConst(inner))
            paths.append(name + QLatin1Char('/') + path);
    }
    paths.sort();
    return true;
}

} // namespace FolderContent
