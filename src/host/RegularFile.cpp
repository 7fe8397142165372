// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/RegularFile.h"

#include "host/NewFileMode.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int chunkBytes = 256 * 1024;

} // namespace

bool RegularFile::open(QFile& file, QIODevice::OpenMode mode, QString* error)
{
    const auto fail = [error](const QString& reason) {
        if (error)
            *error = reason;
        return false;
    };
    const QByteArray name = QFile::encodeName(file.fileName());
    const int access = (mode & QIODevice::WriteOnly ? O_RDWR | O_CREAT : O_RDONLY)
        | (mode & QIODevice::Append ? O_APPEND : 0);
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

bool RegularFile::readChunks(QFile& file, const ChunkHandler& handler)
{
    QByteArray chunk(chunkBytes, Qt::Uninitialized);
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
    bytes.reserve(static_cast<int>(qMin(file.size(), maxBytes)));
    return readChunks(file, [&](const char* chunk, int length) {
        if (bytes.size() + length > maxBytes)
            return false;
        bytes.append(chunk, length);
        return true;
    });
}
