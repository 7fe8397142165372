#include "FolderLock.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// False once the file has been removed, also if another one has its name by now.
bool hasName(int handle, const char* name)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(handle, &opened) == 0 && ::lstat(name, &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

void closeKeepingReason(int handle)
{
    const int reason = errno;
    ::close(handle);
    errno = reason;
}

} // namespace

FolderLock::FolderLock(const QString& file)
    : m_file(file)
{
}

FolderLock::~FolderLock()
{
    if (!isTaken())
        return;
    // Before the release: afterwards the file may be the next owner's.
    ::unlink(QFile::encodeName(m_file).constData());
    ::close(m_handle);
}

FolderLock::Result FolderLock::take()
{
    constexpr mode_t readable = 0644;
    const QByteArray name = QFile::encodeName(m_file);
    while (!isTaken()) {
        const int handle =
            ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, readable);
        if (handle < 0)
            return Result::Failed;
        if (::flock(handle, LOCK_EX | LOCK_NB) != 0) {
            closeKeepingReason(handle);
            return errno == EWOULDBLOCK ? Result::Held : Result::Failed;
        }
        // Its last owner may have removed it between the two calls.
        if (hasName(handle, name.constData()))
            m_handle = handle;
        else
            ::close(handle);
    }
    return Result::Taken;
}
