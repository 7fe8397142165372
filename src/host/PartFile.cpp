#include "host/PartFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int createAttempts = 16;

QString partName()
{
    return QStringLiteral(".mv-%1.part")
        .arg(QRandomGenerator::global()->generate64(), 16, 16, QLatin1Char('0'));
}

QString lastError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

enum class Lock {
    Taken,      ///< by this call
    Held,       ///< by another writer
    Impossible, ///< on this file system: then nothing counts as a leftover
};

Lock lock(const QFile& file)
{
    if (::flock(file.handle(), LOCK_EX | LOCK_NB) == 0)
        return Lock::Taken;
    return errno == EWOULDBLOCK ? Lock::Held : Lock::Impossible;
}

/// False once somebody has removed the name of the open file.
bool stillHasName(const QFile& file)
{
    struct stat status = {};
    return ::fstat(file.handle(), &status) == 0 && status.st_nlink > 0;
}

} // namespace

PartFile::~PartFile()
{
    discard();
}

bool PartFile::open(const QString& target)
{
    discard();
    m_target = target;
    m_size = 0;
    m_error.clear();
    const QFileInfo info(target);
    if (info.fileName().isEmpty() || info.isDir())
        return fail(QStringLiteral("is a folder, not a file name"));
    return createLocked();
}

bool PartFile::createLocked()
{
    const QFileInfo target(m_target);
    const QString folder = target.path();
    for (int attempt = 0; attempt < createAttempts; ++attempt) {
        m_file.setFileName(folder + QLatin1Char('/') + partName());
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
            if (!target.dir().exists())
                return fail(QStringLiteral("its folder does not exist"));
            if (!QFile::exists(m_file.fileName()))
                return fail(m_file.errorString());
            continue;
        }
        // Between creation and lock a sweep may have taken the file for a leftover, which it then
        // removes.
        if (lock(m_file) != Lock::Held && stillHasName(m_file))
            return true;
        m_file.close();
    }
    return fail(QStringLiteral("no temporary file could be created beside it"));
}

bool PartFile::write(const char* data, qint64 length)
{
    // Not through QFile, which seeks and looks at the file before every write.
    while (length > 0) {
        const ssize_t written = ::write(m_file.handle(), data, static_cast<std::size_t>(length));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return fail(lastError());
        data += written;
        length -= written;
        m_size += written;
    }
    return true;
}

bool PartFile::restart()
{
    if (::ftruncate(m_file.handle(), 0) != 0 || ::lseek(m_file.handle(), 0, SEEK_SET) != 0)
        return fail(lastError());
    m_size = 0;
    return true;
}

bool PartFile::commit()
{
    const QByteArray from = QFile::encodeName(m_file.fileName());
    const QByteArray to = QFile::encodeName(m_target);
    // The POSIX rename replaces the target in one step; QFile::rename refuses to.
    if (std::rename(from.constData(), to.constData()) != 0)
        return fail(lastError());
    m_file.close();
    return true;
}

void PartFile::discard()
{
    if (!m_file.isOpen())
        return;
    m_file.remove();
    m_file.close();
}

bool PartFile::fail(const QString& reason)
{
    m_error = QStringLiteral("%1: %2").arg(m_target, reason);
    discard();
    return false;
}

void PartFile::removeLeftovers(const QString& folder)
{
    const QStringList names = QDir(folder).entryList({QStringLiteral(".mv-*.part")},
                                                     QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& name : names) {
        QFile leftover(folder + QLatin1Char('/') + name);
        // Removed under the lock: QFile::remove() of its own would close, and so unlock, it first.
        if (leftover.open(QIODevice::ReadOnly) && lock(leftover) == Lock::Taken)
            QFile::remove(leftover.fileName());
    }
}
