// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/RegularFile.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

bool RegularFile::open(QFile& file, QIODevice::OpenMode mode, QString* error)
{
    const QByteArray name = QFile::encodeName(file.fileName());
    const int access = mode.testFlag(QIODevice::WriteOnly) ? O_RDWR | O_CREAT : O_RDONLY;
    // Without O_NONBLOCK, opening a pipe waits for its other end.
    const int handle = ::open(name.constData(), access | O_NONBLOCK | O_CLOEXEC, 0666);
    const int reason = errno;
    struct stat status = {};
    if (handle >= 0 && ::fstat(handle, &status) == 0 && S_ISREG(status.st_mode)
        && file.open(handle, mode, QFileDevice::AutoCloseHandle))
        return true;
    if (error)
        *error = handle < 0 ? QString::fromLocal8Bit(std::strerror(reason))
                            : QStringLiteral("not a regular file");
    if (handle >= 0)
        ::close(handle);
    return false;
}

bool RegularFile::readChunks(QFile& file, const ChunkHandler& handler)
{
    QByteArray chunk(64 * 1024, Qt::Uninitialized);
    for (;;) {
        const auto length = static_cast<int>(file.read(chunk.data(), chunk.size()));
        if (length <= 0)
            return length == 0 && file.error() == QFileDevice::NoError;
        if (!handler(chunk.constData(), length))
            return false;
    }
}

bool RegularFile::readAll(QFile& file, qint64 maxBytes, QByteArray& bytes)
{
    bytes.clear();
    return readChunks(file, [&](const char* chunk, int length) {
        if (bytes.size() + length > maxBytes)
            return false;
        bytes.append(chunk, length);
        return true;
    });
}
