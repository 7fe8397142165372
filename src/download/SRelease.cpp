// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/SRelease.h"

#include "download/ReleaseList.h"
#include "host/ContentDigest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <cmath>

namespace {

const QLatin1String formatKey("format");
const QLatin1String serialKey("serial");
const QLatin1String catalogueKey("catalogue");
const QLatin1String publishedKey("published");
const QLatin1String expiresKey("expires");
const QLatin1String listKey("list");
const QLatin1String sizeKey("size");
const QLatin1String digestKey("sha256");

constexpr int maxVersionLength = 64;

/// Returns a whole number from `min` to `max`, -1 for any other value.
qint64 wholeNumber(const QJsonValue& value, qint64 min, qint64 max)
{
    const double number = value.toDouble(-1);
    const bool isInRange = number >= double(min) && number <= double(max);
    return isInRange && std::floor(number) == number ? static_cast<qint64>(number) : -1;
}

/// Returns a time as the publisher writes it, in UTC; invalid for any other text.
QDateTime timeOf(const QJsonValue& value)
{
    const QDateTime time = QDateTime::fromString(value.toString(), Qt::ISODate);
    return time.timeSpec() == Qt::UTC ? time : QDateTime();
}

QString textOf(const QDateTime& time)
{
    return time.toUTC().toString(Qt::ISODate);
}

/// Returns why the values are not those of a release; empty if they are.
QString fault(const QJsonObject& root, const SRelease& release)
{
    if (release.m_serial < 1)
        return QStringLiteral("its serial is not a whole number above 0");
    if (release.m_qsCatalogueVersion.size() > maxVersionLength)
        return QStringLiteral("its catalogue version is too long");
    if (!release.m_published.isValid())
        return QStringLiteral("its time of publication is not a time in UTC");
    if (root.contains(expiresKey) && !release.m_expires.isValid())
        return QStringLiteral("its expiry is not a time in UTC");
    if (release.m_listBytes < 0)
        return QStringLiteral("the size of its list is not a number in range");
    if (!ContentDigest::isDigest(release.m_listDigest))
        return QStringLiteral("the digest of its list is not a SHA-256 in lower case");
    return QString();
}

} // namespace

bool SRelease::parse(const QByteArray& json, SRelease& out, QString& error)
{
    if (json.size() > maxBytes) {
        error = QStringLiteral("the release is larger than %1 bytes").arg(maxBytes);
        return false;
    }
    QJsonParseError parsed = {};
    const QJsonDocument document = QJsonDocument::fromJson(json, &parsed);
    if (!document.isObject()) {
        error = QStringLiteral("the release is not a JSON object: %1").arg(parsed.errorString());
        return false;
    }
    const QJsonObject root = document.object();
    if (root[formatKey].toInt() != knownFormat) {
        error = QStringLiteral("the release does not have format %1").arg(knownFormat);
        return false;
    }
    const QJsonObject list = root[listKey].toObject();
    SRelease release;
    release.m_serial = wholeNumber(root[serialKey], 1, maxSerial);
    release.m_qsCatalogueVersion = root[catalogueKey].toString();
    release.m_published = timeOf(root[publishedKey]);
    release.m_expires = timeOf(root[expiresKey]);
    release.m_listBytes = wholeNumber(list[sizeKey], 0, ReleaseList::maxBytes);
    release.m_listDigest = list[digestKey].toString().toLatin1();
    const QString reason = fault(root, release);
    if (!reason.isEmpty()) {
        error = QStringLiteral("the release is not valid: %1").arg(reason);
        return false;
    }
    out = release;
    return true;
}

QByteArray SRelease::toJson() const
{
    QJsonObject root{
        {formatKey, knownFormat},
        {serialKey, m_serial},
        {catalogueKey, m_qsCatalogueVersion},
        {publishedKey, textOf(m_published)},
        {listKey,
         QJsonObject{{sizeKey, m_listBytes}, {digestKey, QString::fromLatin1(m_listDigest)}}},
    };
    if (m_expires.isValid())
        root[expiresKey] = textOf(m_expires);
    return QJsonDocument(root).toJson();
}
