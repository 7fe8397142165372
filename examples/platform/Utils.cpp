// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/Utils.h"

#include "host/HostSettings.h"
#include "host/RegularFile.h"
#include "host/STransferFailure.h"

#include "FileFailure.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

/// Returns the path without links, with a trailing slash, also of a folder that does not exist yet.
QString realFolder(const QString& path)
{
    QFileInfo info(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
    while (!info.exists() && !info.isRoot())
        info.setFile(info.path());
    return info.canonicalFilePath() + QLatin1Char('/');
}

} // namespace

QString Utils::getMD5(const QString& file)
{
    QFile source(file);
    QCryptographicHash hash(QCryptographicHash::Md5);
    if (!RegularFile::open(source) || !hash.addData(&source))
        return QString();
    return QString::fromLatin1(hash.result().toHex());
}

bool Utils::copyFileToPath(const QString& from, const QString& to, bool overwrite)
{
    QFile source(from);
    if ((!overwrite && QFile::exists(to)) || !RegularFile::open(source))
        return false;
    QSaveFile target(to);
    return target.open(QIODevice::WriteOnly)
        && RegularFile::readChunks(
               source,
               [&](const char* bytes, int length) { return target.write(bytes, length) == length; })
        && target.commit();
}

bool Utils::writeFile(const QString& path, const QByteArray& content, STransferFailure* failure)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return true;
    if (failure)
        *failure = FileFailure::of(file, QString());
    return false;
}

bool Utils::copyDirectoryFiles(const QString& from, const QString& to, bool overwrite)
{
    const QDir source(from);
    if (from.isEmpty() || to.isEmpty() || !source.exists()
        || realFolder(to).startsWith(realFolder(from)) || !QDir().mkpath(to))
        return false;
    bool allCopied = true;
    const QFileInfoList entries = source.entryInfoList(QDir::AllEntries | QDir::Hidden
                                                       | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QFileInfo& entry : entries) {
        const QString target = to + QLatin1Char('/') + entry.fileName();
        if (entry.isDir())
            allCopied = copyDirectoryFiles(entry.filePath(), target, overwrite) && allCopied;
        else if (overwrite || !QFile::exists(target))
            allCopied = copyFileToPath(entry.filePath(), target, true) && allCopied;
    }
    return allCopied;
}

bool Utils::rmDir(const QString& path, bool recursive)
{
    // QDir would follow a link; a trailing slash hides that it is one.
    const QFileInfo info(QDir::cleanPath(path));
    if (path.isEmpty())
        return false;
    if (info.isSymLink())
        return QFile::remove(info.filePath());
    if (!info.exists())
        return true;
    if (!info.isDir() || QDir(info.canonicalFilePath()).isRoot())
        return false;
    return recursive ? QDir(info.filePath()).removeRecursively() : QDir().rmdir(info.filePath());
}

QString Utils::strDataLocation()
{
    return hostSettings().dataLocation;
}
