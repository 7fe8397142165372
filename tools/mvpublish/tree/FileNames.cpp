// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/FileNames.h"

#include "host/SystemFile.h"
#include "host/WindowsName.h"
#include "tree/Texts.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace FileNames {

namespace {

// File systems take 255, in which suffixes of temporary files must fit, too.
constexpr int maxBytes = 200;

} // namespace

QString fault(const QString& name)
{
    if (name.isEmpty())
        return QStringLiteral("is empty");
    const QStringList parts = name.split(QLatin1Char('/'));
    for (const QString& part : parts) {
        if (part.isEmpty() || part == QLatin1String(".") || part == QLatin1String(".."))
            return QStringLiteral("is not a plain path below its folder");
    }
    for (const QString& part : parts) {
        const auto bytes = part.toUtf8().size();
        if (bytes > maxBytes)
            return QStringLiteral("has a part of %1 bytes in UTF-8, and at most %2 are accepted")
                .arg(bytes)
                .arg(maxBytes);
    }
    // Windows stores the fewest names.
    const bool hasOdd =
        !Texts::isShowable(name) || std::any_of(name.cbegin(), name.cend(), [](QChar c) {
            return c != QLatin1Char('/') && !WindowsName::canContain(c);
        });
    if (hasOdd)
        return QStringLiteral("holds characters that not every client can store");
    return WindowsName::isStorablePath(name)
        ? QString()
        : QStringLiteral("is a name that not every client can store");
}

namespace {

bool isBelow(const QString& folder, const QFileInfo& info)
{
    return SystemFile::realPath(info.filePath())
        .startsWith(SystemFile::realPath(folder) + QLatin1Char('/'));
}

} // namespace

bool isFileBelow(const QString& folder, const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && isBelow(folder, file);
}

bool isFolderBelow(const QString& folder, const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && isBelow(folder, info);
}

QString packedFolder(const QString& name)
{
    const QString suffix = QStringLiteral(".zip");
    const QString folder =
        name.endsWith(suffix) ? name.left(name.size() - suffix.size()) : QString();
    return folder.endsWith(QLatin1Char('/')) ? QString() : folder;
}

} // namespace FileNames
