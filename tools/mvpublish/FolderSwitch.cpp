// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FolderSwitch.h"

#include "host/SystemFile.h"
#include "host/Utils.h"
#include "SystemError.h"
#include "tree/FolderContent.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QVector>

#include <cerrno>
#include <chrono>

namespace {

bool sameBytes(const QString& a, const QString& b)
{
    constexpr qint64 piece = 1 << 16;
    QFile first(a);
    QFile second(b);
    if (!first.open(QIODevice::ReadOnly) || !second.open(QIODevice::ReadOnly)
        || first.size() != second.size())
        return false;
    while (!first.atEnd()) {
        const QByteArray part = first.read(piece);
        if (part.isEmpty() || part != second.read(piece))
            return false;
    }
    return true;
}

void setDate(const QString& name, const QDateTime& date)
{
    QFile file(name);
    if (file.open(QIODevice::ReadWrite))
        file.setFileTime(date, QFileDevice::FileModificationTime);
}

/// Keeps the dates of unchanged files and changes all others: servers tell caches a file's length
/// and its date in whole seconds, so a changed file must not have its predecessor's date. Unchanged
/// files come first: where several names are links to one file, a changed name decides its date.
void keepDates(const QString& folder, const QString& before)
{
    struct Changed
    {
        QString file;
        QDateTime predecessor;
    };
    QVector<Changed> changed;
    const QDir root(folder);
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        const QFileInfo old(before + QLatin1Char('/') + root.relativeFilePath(file));
        if (!old.isFile())
            continue;
        const QDateTime date = old.lastModified();
        if (sameBytes(file, old.filePath()))
            setDate(file, date);
        else
            changed.append({file, date});
    }
    for (const Changed& one : qAsConst(changed)) {
        if (QFileInfo(one.file).lastModified().toSecsSinceEpoch()
            <= one.predecessor.toSecsSinceEpoch())
            setDate(one.file, one.predecessor.addSecs(1));
    }
}

bool rename(const QString& from, const QString& to)
{
    return SystemFile::rename(SystemFile::encodedName(from), SystemFile::encodedName(to));
}

/// Resolves links as the system does, but also dangling ones: a killed run may have removed the
/// target of the link.
QString placeOf(QString path)
{
    constexpr int maxLinks = 40; // the system's own limit
    for (int i = 0; i < maxLinks; ++i) {
        const QFileInfo place(path);
        const QString parent = place.dir().canonicalPath();
        if (place.exists())
            return place.canonicalFilePath();
        if (parent.isEmpty())
            return path;
        const QFileInfo entry(QDir(parent).filePath(place.fileName()));
        if (!entry.isSymLink())
            return entry.filePath();
        path = entry.symLinkTarget();
    }
    return path;
}

} // namespace

FolderSwitch::FolderSwitch(const QString& target)
    : m_target(placeOf(QDir::cleanPath(QDir().absoluteFilePath(target))))
    , m_folder(beside(QStringLiteral(".new")))
    , m_lock(beside(QStringLiteral(".lock")))
{
}

FolderSwitch::~FolderSwitch()
{
    if (m_begun)
        Utils::rmDir(m_folder, true);
}

QString FolderSwitch::beside(const QString& suffix) const
{
    const QFileInfo place(m_target);
    return place.path() + QStringLiteral("/.") + place.fileName() + suffix;
}

bool FolderSwitch::lock()
{
    if (m_lock.isLocked())
        return true;
    const FileLock::Result result = m_lock.lock(std::chrono::milliseconds::zero());
    if (result == FileLock::Result::Busy)
        return fail(QStringLiteral("%1 is being written by another run").arg(m_target));
    if (result != FileLock::Result::Locked)
        return fail(QStringLiteral("nothing can be written beside %1: %2")
                        .arg(m_target, systemError(m_lock.error())));
    return putBack()
        || fail(QStringLiteral("%1 cannot be put back: %2").arg(oldFolder(), systemError()));
}

bool FolderSwitch::isFree() const
{
    const QFileInfo place(m_target);
    if (!place.exists())
        return !place.isSymLink();
    QStringList names;
    QString error;
    return place.isDir() && FolderContent::names(m_target, names, &error) && names.isEmpty();
}

/// A run that was killed between its two renames has left the place empty. Since then a server or a
/// script may have created an empty folder there.
bool FolderSwitch::putBack()
{
    return !isFree() || !QFileInfo(oldFolder()).isDir() || rename(oldFolder(), m_target);
}

bool FolderSwitch::begin()
{
    if (!lock())
        return false;
    m_begun = true;
    // Remains of killed runs: the tree in place is newer than the old folder.
    if (!Utils::rmDir(oldFolder(), true))
        return fail(QStringLiteral("%1 cannot be removed").arg(oldFolder()));
    if (!Utils::rmDir(m_folder, true)
        || !SystemFile::createFolder(SystemFile::encodedName(m_folder),
                                     SystemFile::encodedName(m_target)))
        return fail(QStringLiteral("%1 cannot be made").arg(m_folder));
    return true;
}

bool FolderSwitch::commit()
{
    const bool replaces = QFileInfo(m_target).isDir();
    if (replaces)
        keepDates(m_folder, m_target);
    // A power failure must not leave a tree with empty files in place.
    if (!SystemFile::flushTree(SystemFile::encodedName(m_folder))
        || !(replaces ? replace() : rename(m_folder, m_target)))
        return fail(QStringLiteral("%1 cannot be put in place: %2").arg(m_target, systemError()));
    return true;
}

/// Exchanges the two names; the old folder is then removed with the object.
bool FolderSwitch::replace()
{
    if (!m_canExchange)
        return replaceByRenames();
    if (SystemFile::exchange(SystemFile::encodedName(m_folder), SystemFile::encodedName(m_target)))
        return true;
    return (errno == EINVAL || errno == ENOSYS) && replaceByRenames();
}

bool FolderSwitch::replaceByRenames()
{
    if (!rename(m_target, oldFolder()))
        return false;
    if (!rename(m_folder, m_target)) {
        const int reason = errno;
        rename(oldFolder(), m_target);
        errno = reason;
        return false;
    }
    Utils::rmDir(oldFolder(), true);
    return true;
}

bool FolderSwitch::fail(const QString& text)
{
    m_error = text;
    return false;
}
