// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/RegularFile.h"

#include "host/SystemFile.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cerrno>
#include <cstring>

namespace {

constexpr int chunkBytes = 256 * 1024;

} // namespace

bool RegularFile::open(QFile& file, QIODevice::OpenMode mode, QString* error)
{
    const SystemFile::Access access = !(mode & QIODevice::WriteOnly) ? SystemFile::Access::Read
        : mode & QIODevice::Append                                   ? SystemFile::Access::Append
                                   : SystemFile::Access::ReadWrite;
    const int handle = SystemFile::openRegular(SystemFile::encodedName(file.fileName()), access);
    if (handle >= 0 && file.open(handle, mode, QFileDevice::AutoCloseHandle))
        return true;
    if (error)
        *error = handle < 0 && errno != 0 ? QString::fromLocal8Bit(std::strerror(errno))
                                          : QStringLiteral("not a regular file");
    if (handle >= 0)
        SystemFile::close(handle);
    return false;
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
