// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/Utils.h"

#include "host/FileLink.h"
#include "host/HostSettings.h"
#include "host/PartFile.h"
#include "host/RegularFile.h"
#include "host/STransferFailure.h"
#include "host/SystemFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// Resolves all links of a path, as far as it exists, and appends a slash.
QString realFolder(const QString& path)
{
    QFileInfo info(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
    while (!info.exists() && !info.isRoot())
        info.setFile(info.path());
    const QString real = SystemFile::realPath(info.filePath());
    return real.endsWith(QLatin1Char('/')) ? real : real + QLatin1Char('/');
}

/// Removes a file or a link, which may be a folder to the system.
bool removeEntry(const QString& path)
{
    if (QFile::remove(path) || QDir().rmdir(path))
        return true;
    // Permissions are those of a link's target, which may be anywhere.
    if (FileLink::isLink(QFileInfo(path)))
        return false;
    // Windows removes no file that must not be written.
    return QFile::setPermissions(path, QFile::permissions(path) | QFile::WriteUser)
        && QFile::remove(path);
}

/// Removes a folder with everything in it. QDir::removeRecursively() empties what a junction leads
/// to.
bool removeFolder(const QString& folder)
{
    bool allRemoved = true;
    const QFileInfoList entries = QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden
                                                             | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        const QString path = entry.filePath();
        const bool isFolder = entry.isDir() && !FileLink::isLink(entry);
        allRemoved = (isFolder ? removeFolder(path) : removeEntry(path)) && allRemoved;
    }
    return QDir().rmdir(folder) && allRemoved;
}

} // namespace

QString Utils::getMD5(const QString& file)
{
    QFile source(file);
    if (file.isEmpty() || !RegularFile::open(source))
        return QString();
    QCryptographicHash hash(QCryptographicHash::Md5);
    const bool isRead = RegularFile::readChunks(source, [&hash](const char* bytes, int length) {
        hash.addData(QByteArray::fromRawData(bytes, length));
        return true;
    });
    return isRead ? QString::fromLatin1(hash.result().toHex()) : QString();
}

bool Utils::copyFile(const QString& sourceFile, const QDir& targetDir, const QString& fileName)
{
    PartFile::removeLeftovers(targetDir.absolutePath());
    return copyFileToPath(sourceFile, targetDir.absoluteFilePath(fileName), true);
}

bool Utils::copyFileToPath(const QString& from, const QString& to, bool overwrite)
{
    if (!overwrite && QFile::exists(to))
        return false;
    QFile source(from);
    if (from.isEmpty() || !RegularFile::open(source))
        return false;
    PartFile target;
    if (!target.open(to))
        return false;
    const bool isCopied = RegularFile::readChunks(
        source, [&target](const char* bytes, int length) { return target.write(bytes, length); });
    source.close(); // Windows replaces no open file, and it may be this one
    return isCopied && target.commit();
}

bool Utils::writeFile(const QString& path, const QByteArray& content, STransferFailure* failure)
{
    PartFile::removeLeftovers(QFileInfo(path).path());
    PartFile file;
    if (file.open(path) && file.write(content.constData(), content.size())
        && file.commit(PartFile::Flush::Yes))
        return true;
    if (failure)
        *failure = {file.cause(), QString(), path, file.errorText()};
    return false;
}

bool Utils::copyDirectoryFiles(const QString& from, const QString& to, bool overwrite)
{
    const QDir source(from);
    // An empty QDir name means the current folder.
    if (from.isEmpty() || to.isEmpty() || !source.exists()
        || realFolder(to).startsWith(realFolder(from)) || !QDir().mkpath(to))
        return false;

    bool allCopied = true;
    const QFileInfoList entries =
        source.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        const QString target = to + QLatin1Char('/') + entry.fileName();
        if (FileLink::isLink(entry))
            continue;
        if (entry.isDir())
            allCopied = copyDirectoryFiles(entry.filePath(), target, overwrite) && allCopied;
        else if (overwrite || !QFile::exists(target))
            allCopied = copyFileToPath(entry.filePath(), target, true) && allCopied;
    }
    return allCopied;
}

bool Utils::rmDir(const QString& path, bool recursive)
{
    if (path.isEmpty())
        return false;
    // QDir would remove the target of a link; a trailing slash hides that it is one.
    const QFileInfo info(QDir::cleanPath(path));
    if (FileLink::isLink(info))
        return removeEntry(info.filePath());
    if (!info.exists())
        return true;
    // Canonical, since "/.." is the root, too, and "." may be.
    if (!info.isDir() || QDir(info.canonicalFilePath()).isRoot())
        return false;
    return recursive ? removeFolder(info.filePath()) : QDir().rmdir(info.filePath());
}

QString Utils::strDataLocation()
{
    return hostSettings().dataLocation;
}
