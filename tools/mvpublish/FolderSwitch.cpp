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

void keepDates(const QString& folder, const QString& before)
{
    const QDir root(folder);
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        const QFileInfo old(before + QLatin1Char('/') + root.relativeFilePath(file));
        if (!old.isFile() || !sameBytes(file, old.filePath()))
            continue;
        QFile same(file);
        if (same.open(QIODevice::ReadWrite))
            same.setFileTime(old.lastModified(), QFileDevice::FileModificationTime);
    }
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
    // A run that was killed may have left it.
    if (!Utils::rmDir(m_folder, true) || !QDir().mkdir(m_folder))
        return fail(QStringLiteral("%1 cannot be made").arg(m_folder));
    return true;
}

bool FolderSwitch::commit()
{
    const bool replaces = QFileInfo(m_target).isDir();
    if (replaces)
        keepDates(m_folder, m_target);
    if (replaces ? !exchange()
                 : std::rename(QFile::encodeName(m_folder).constData(),
                               QFile::encodeName(m_target).constData())
                != 0)
        return fail(QStringLiteral("%1 cannot be put in place: %2").arg(m_target, systemError()));
    return true;
}

/// Swaps the two names; the old folder then goes with the object.
bool FolderSwitch::exchange()
{
    const QByteArray fresh = QFile::encodeName(m_folder);
    const QByteArray place = QFile::encodeName(m_target);
    if (::renameat2(AT_FDCWD, fresh.constData(), AT_FDCWD, place.constData(), RENAME_EXCHANGE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // A file system that cannot swap: for a moment there is nothing in its place.
    const QByteArray old = fresh + ".old";
    if (std::rename(place.constData(), old.constData()) != 0)
        return false;
    if (std::rename(fresh.constData(), place.constData()) != 0) {
        const int reason = errno;
        std::rename(old.constData(), place.constData());
        errno = reason;
        return false;
    }
    Utils::rmDir(QFile::decodeName(old), true);
    return true;
}

bool FolderSwitch::fail(const QString& text)
{
    m_error = text;
    return false;
}
