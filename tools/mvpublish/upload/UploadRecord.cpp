// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/UploadRecord.h"

#include "host/ContentDigest.h"
#include "tree/Editions.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

namespace {

const QLatin1String sinceKey("since");
const QLatin1String listKey("list");
const QLatin1String releaseKey("release");
const QLatin1String serialKey("serial");
const QLatin1String unknownKey("unknown");

} // namespace

QString UploadRecord::path(qint64 serial)
{
    return QStringLiteral("%1/releases/%2.json").arg(Editions::catalogueFolder).arg(serial);
}

qint64 UploadRecord::serialOf(const QString& path)
{
    const qint64 serial =
        path.section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, 0).toLongLong();
    return serial > 0 && path == UploadRecord::path(serial) ? serial : 0;
}

bool UploadRecord::parse(const QByteArray& json, UploadRecord& out)
{
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    UploadRecord record;
    record.m_serial = static_cast<qint64>(root[serialKey].toDouble());
    record.m_releaseDigest = root[releaseKey].toString().toLatin1();
    record.m_listDigest = root[listKey].toString().toLatin1();
    record.m_since = QDateTime::fromString(root[sinceKey].toString(), Qt::ISODate);
    const QJsonArray unknown = root[unknownKey].toArray();
    for (const QJsonValue& path : unknown)
        record.m_unknown.append(path.toString());
    if (record.m_serial < 1 || !ContentDigest::isDigest(record.m_releaseDigest)
        || !ContentDigest::isDigest(record.m_listDigest))
        return false;
    out = record;
    return true;
}

QByteArray UploadRecord::toJson() const
{
    QJsonObject root{{listKey, QString::fromLatin1(m_listDigest)},
                     {releaseKey, QString::fromLatin1(m_releaseDigest)},
                     {serialKey, m_serial}};
    if (!m_unknown.isEmpty())
        root[unknownKey] = QJsonArray::fromStringList(m_unknown);
    if (m_since.isValid())
        root[sinceKey] = m_since.toUTC().toString(Qt::ISODate);
    return QJsonDocument(root).toJson();
}
