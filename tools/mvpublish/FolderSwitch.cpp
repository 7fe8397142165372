// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FolderSwitch.h"

#include "host/Utils.h"
#include "tree/FolderContent.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QVector>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString textOf(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

QString systemError()
{
    return textOf(errno);
}

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

/// Returns the mode of the folder, or by default one that lets every server read it.
mode_t modeOf(const QString& folder)
{
    constexpr mode_t readable = 0755;
    constexpr mode_t all = 07777;
    struct stat info = {};
    return ::stat(QFile::encodeName(folder).constData(), &info) == 0 ? info.st_mode & all
                                                                     : readable;
}

/// Flushes everything to disk: a power failure must not leave a tree with empty files in place.
bool flushToDisk(const QString& folder)
{
    const int handle =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool flushed = ::syncfs(handle) == 0;
    const int reason = errno;
    ::close(handle);
    errno = reason;
    return flushed;
}

bool rename(const QString& from, const QString& to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
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
                        .arg(m_target, textOf(m_lock.error())));
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
    if (!Utils::rmDir(m_folder, true) || !QDir().mkdir(m_folder)
        || ::chmod(QFile::encodeName(m_folder).constData(), modeOf(m_target)) != 0)
        return fail(QStringLiteral("%1 cannot be made").arg(m_folder));
    return true;
}

bool FolderSwitch::commit()
{
    const bool replaces = QFileInfo(m_target).isDir();
    if (replaces)
        keepDates(m_folder, m_target);
    if (!flushToDisk(m_folder) || !(replaces ? replace() : rename(m_folder, m_target)))
        return fail(QStringLiteral("%1 cannot be put in place: %2").arg(m_target, systemError()));
    return true;
}

/// Exchanges the two names; the old folder is then removed with the object.
bool FolderSwitch::replace()
{
    const QByteArray fresh = QFile::encodeName(m_folder);
    const QByteArray place = QFile::encodeName(m_target);
    if (!m_canExchange)
        return replaceByRenames();
    if (::renameat2(AT_FDCWD, fresh.constData(), AT_FDCWD, place.constData(), RENAME_EXCHANGE) == 0)
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
