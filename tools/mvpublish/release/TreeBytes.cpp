// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/TreeBytes.h"

#include "host/RegularFile.h"

#include <QByteArray>
#include <QFile>
#include <QString>

bool TreeBytes::read(const QString& path, qint64 maxBytes, QByteArray& bytes, QString* error)
{
    QFile file(path);
    QString reason;
    if (!RegularFile::open(file, QIODevice::ReadOnly, &reason)) {
        *error = QStringLiteral("%1: %2").arg(path, reason);
        return false;
    }
    if (RegularFile::readAll(file, maxBytes, bytes))
        return true;
    *error = file.size() > maxBytes
        ? QStringLiteral("%1 is larger than %2 bytes").arg(path).arg(maxBytes)
        : QStringLiteral("%1: %2").arg(path, file.errorString());
    return false;
}
