// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/ServedFiles.h"

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

constexpr QFileDevice::Permissions served = QFileDevice::ReadOwner | QFileDevice::WriteOwner
    | QFileDevice::ReadGroup | QFileDevice::ReadOther;
constexpr QFileDevice::Permissions entered =
    served | QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;

bool create(QFile& file)
{
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.setPermissions(served);
}

/// Closes a written file. Returns false, with an error text, even if the file system reports only
/// then that it could not store everything.
bool close(QFile& file)
{
    if (!file.flush())
        return false;
    file.close();
    return file.error() == QFileDevice::NoError;
}

bool fail(const QFile& file, QString* error)
{
    *error = QStringLiteral("%1: %2").arg(file.fileName(), file.errorString());
    return false;
}

} // namespace

bool ServedFiles::makeFolder(const QString& folder, QString* error)
{
    if (QDir(folder).exists() || (QDir().mkdir(folder) && QFile::setPermissions(folder, entered)))
        return true;
    *error = QStringLiteral("%1 cannot be made").arg(folder);
    return false;
}

bool ServedFiles::write(const QString& path, const QByteArray& content, QString* error)
{
    QFile file(path);
    return (create(file) && file.write(content) == content.size() && close(file))
        || fail(file, error);
}

/// Not QFile::copy(), which flushes every file to disk.
bool ServedFiles::copy(const QString& from, const QString& to, QString* error)
{
    constexpr qint64 piece = 1 << 20;
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        return fail(source, error);
    const qint64 size = source.size();
    QFile file(to);
    bool ok = create(file);
    for (qint64 read = 0; ok && read < size;) {
        const QByteArray part = source.read(std::min(piece, size - read));
        if (part.isEmpty()) {
            *error =
                QStringLiteral("%1 cannot be read to its end: %2").arg(from, source.errorString());
            return false;
        }
        read += part.size();
        ok = file.write(part) == part.size();
    }
    return (ok && close(file)) || fail(file, error);
}

bool ServedFiles::makeReadable(const QString& path)
{
    return QFile::setPermissions(path, served);
}
