// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/ReleaseClock.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

QDateTime ReleaseClock::now(QString* error)
{
    constexpr qint64 lastYear9998 = 253370764799; // leaves room for an expiry in ISO 8601
    const char* const variable = "SOURCE_DATE_EPOCH";
    qint64 seconds = QDateTime::currentSecsSinceEpoch();
    if (qEnvironmentVariableIsSet(variable)) {
        bool isNumber = false;
        seconds = qEnvironmentVariable(variable).toLongLong(&isNumber);
        if (!isNumber || seconds < 0 || seconds > lastYear9998) {
            *error = QStringLiteral("SOURCE_DATE_EPOCH holds \"%1\", which is not a number of "
                                    "seconds since 1970")
                         .arg(qEnvironmentVariable(variable));
            return {};
        }
    }
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
}

qint64 ReleaseClock::newestIn(const QString& folder)
{
    qint64 newest = 0;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        newest = std::max(newest, it.fileInfo().lastModified().toSecsSinceEpoch());
    }
    return newest;
}
