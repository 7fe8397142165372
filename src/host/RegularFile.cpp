#include "host/RegularFile.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t newFileMode = 0666; // reduced by the umask
constexpr int chunkSize = 256 * 1024;

} // namespace

bool RegularFile::open(QFile& file, QIODevice::OpenMode mode, QString* error)
{
    const auto fail = [error](const QString& reason) {
        if (error)
            *error = reason;
        return false;
    };
    const QByteArray name = QFile::encodeName(file.fileName());
    const int access = mode & QIODevice::WriteOnly ? O_RDWR | O_CREAT : O_RDONLY;
    // Without O_NONBLOCK, opening a pipe waits for its other end.
    const int handle = ::open(name.constData(), access | O_NONBLOCK | O_CLOEXEC, newFileMode);
    if (handle < 0)
        return fail(QString::fromLocal8Bit(std::strerror(errno)));
    struct stat status = {};
    if (::fstat(handle, &status) == 0 && S_ISREG(status.st_mode)
        && file.open(handle, mode, QFileDevice::AutoCloseHandle))
        return true;
    ::close(handle);
    return fail(QStringLiteral("not a regular file"));
}

bool RegularFile::readAll(QFile& file, qint64 maxBytes, QByteArray& bytes)
{
    bytes.clear();
    bytes.reserve(static_cast<int>(qMin(file.size(), maxBytes)));
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    for (;;) {
        const qint64 length = file.read(chunk.data(), chunk.size());
        if (length <= 0)
            return file.error() == QFileDevice::NoError;
        if (bytes.size() + length > maxBytes)
            return false;
        bytes.append(chunk.constData(), static_cast<int>(length));
    }
}
