// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/Placeholders.h"

#include <QFile>

#include <algorithm>

namespace Placeholders {

namespace {

QByteArray contentOf(const QString& file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

QString resource(const QString& placeholder)
{
    return QStringLiteral(":/placeholders/") + placeholder;
}

} // namespace

bool copy(const QString& placeholder, const QString& to)
{
    return QFile::copy(resource(placeholder), to)
        && QFile::setPermissions(to,
                                 QFileDevice::ReadOwner | QFileDevice::WriteOwner
                                     | QFileDevice::ReadGroup | QFileDevice::ReadOther);
}

bool isUntouched(const QString& file)
{
    static const QByteArray known[] = {contentOf(resource(thumbnail)),
                                       contentOf(resource(animation))};
    const qint64 size = QFile(file).size();
    return std::any_of(std::begin(known), std::end(known), [&](const QByteArray& content) {
        return content.size() == size && content == contentOf(file);
    });
}

} // namespace Placeholders
