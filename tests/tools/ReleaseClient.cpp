// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseClient.h"

#include "download/ReleaseList.h"
#include "download/ReleasePaths.h"
#include "download/SRelease.h"
#include "host/ContentDigest.h"
#include "RawClient.h"

#include <QByteArray>
#include <QUrl>
#include <QVector>

QString ReleaseClient::read()
{
    constexpr int notFound = 404;
    m_serial = 0;
    int status = 0;
    const QByteArray json = get(ReleasePaths::release(), status);
    if (status == notFound)
        return QString();
    SRelease release;
    ReleaseList list;
    QString reason;
    QByteArray content;
    if (!SRelease::parse(json, release, reason))
        return reason;
    m_serial = release.m_serial;
    reason = readContent(release.m_listDigest, content);
    if (!reason.isEmpty() || !ReleaseList::parse(content, list, reason))
        return QStringLiteral("release %1: ").arg(m_serial) + reason;
    const QVector<ReleaseList::Entry>& entries = list.entries();
    for (const ReleaseList::Entry& entry : entries) {
        reason = readContent(entry.digest, content);
        if (!reason.isEmpty())
            return QStringLiteral("release %1: ").arg(m_serial) + reason;
    }
    return QString();
}

QString ReleaseClient::readContent(const QByteArray& digest, QByteArray& content) const
{
    int status = 0;
    content = get(ReleasePaths::content(digest), status);
    return ContentDigest::ofBytes(content) == digest
        ? QString()
        : QStringLiteral("%1: status %2, wrong content")
              .arg(ReleasePaths::content(digest))
              .arg(status);
}

QByteArray ReleaseClient::get(const QString& name, int& status) const
{
    const QByteArray answer =
        RawClient(m_port).get('/' + QUrl::toPercentEncoding(name, QByteArray("/")));
    status = RawClient::status(answer);
    return RawClient::body(answer);
}
