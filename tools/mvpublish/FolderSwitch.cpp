#include "FolderSwitch.h"

#include "host/Utils.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
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

/// Servers tell caches a file's length and its date in whole seconds: what differs must not have
/// the date of what it replaces.
void keepDates(const QString& folder, const QString& before)
{
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
        else if (it.fileInfo().lastModified().toSecsSinceEpoch() <= date.toSecsSinceEpoch())
            setDate(file, date.addSecs(1));
    }
}

/// The mode of the folder, or the one that lets every server read it.
mode_t modeOf(const QString& folder)
{
    constexpr mode_t readable = 0755;
    constexpr mode_t all = 07777;
    struct stat info = {};
    return ::stat(QFile::encodeName(folder).constData(), &info) == 0 ? info.st_mode & all
                                                                     : readable;
}

/// Writes everything to disk: a break of power must not leave a tree with empty files in place.
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

} // namespace

FolderSwitch::FolderSwitch(const QString& target)
    : m_target(QDir::cleanPath(QDir().absoluteFilePath(target)))
{
    // Where the place is a link, what it points to is switched.
    const QFileInfo place(m_target);
    if (place.exists())
        m_target = place.canonicalFilePath();
    const QString beside =
        QFileInfo(m_target).path() + QStringLiteral("/.") + QFileInfo(m_target).fileName();
    m_folder = beside + QStringLiteral(".new");
    m_lock = std::make_unique<QLockFile>(beside + QStringLiteral(".lock"));
    m_lock->setStaleLockTime(0); // only a dead owner's lock is stale
}

FolderSwitch::~FolderSwitch()
{
    if (m_begun)
        Utils::rmDir(m_folder, true);
}

bool FolderSwitch::begin()
{
    if (!m_lock->tryLock()) {
        return fail(m_lock->error() == QLockFile::LockFailedError
                        ? QStringLiteral("%1 is being written by another run").arg(m_target)
                        : QStringLiteral("nothing can be written beside %1").arg(m_target));
    }
    m_begun = true;
    if (!restore())
        return fail(QStringLiteral("%1 cannot be put back or removed").arg(oldFolder()));
    // A run that was killed may have left it.
    if (!Utils::rmDir(m_folder, true) || !QDir().mkdir(m_folder)
        || ::chmod(QFile::encodeName(m_folder).constData(), modeOf(m_target)) != 0)
        return fail(QStringLiteral("%1 cannot be made").arg(m_folder));
    return true;
}

/// A run that was killed between its two renames has left nothing in the place.
bool FolderSwitch::restore()
{
    const QFileInfo place(m_target);
    if (!QFileInfo(oldFolder()).isDir() || place.exists() || place.isSymLink())
        return Utils::rmDir(oldFolder(), true);
    return rename(oldFolder(), m_target);
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

/// Swaps the two names; the old folder then goes with the object.
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
