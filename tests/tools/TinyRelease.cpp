// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "TinyRelease.h"

#include "download/ReleaseList.h"
#include "download/ReleasePaths.h"
#include "download/SRelease.h"
#include "host/ContentDigest.h"
#include "support/CatalogueFiles.h"

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QVector>

#include <utility>

namespace {

ReleaseList::Entry entryOf(const QString& name, const QByteArray& content)
{
    ReleaseList::Entry entry;
    entry.path = name.toUtf8();
    entry.sizeBytes = content.size();
    entry.digest = ContentDigest::ofBytes(content);
    return entry;
}

} // namespace

TinyRelease::TinyRelease(QString folder)
    : m_folder(std::move(folder))
{
}

void TinyRelease::write(qint64 serial, const Files& files) const
{
    QDir(m_folder).removeRecursively();
    QVector<ReleaseList::Entry> entries;
    for (auto it = files.cbegin(); it != files.cend(); ++it) {
        entries.append(entryOf(it.key(), *it));
        CatalogueFiles::write(file(it.key()), *it);
        CatalogueFiles::write(file(ReleasePaths::content(entries.constLast().digest)), *it);
    }
    const QByteArray list = ReleaseList(entries).toText();
    CatalogueFiles::write(file(ReleasePaths::list()), list);
    SRelease release;
    release.m_serial = serial;
    release.m_qsCatalogueVersion = QStringLiteral("1.2.0");
    release.m_published =
        QDateTime::fromString(QStringLiteral("2026-11-22T11:00:00Z"), Qt::ISODate);
    release.m_listBytes = list.size();
    release.m_listDigest = ContentDigest::ofBytes(list);
    CatalogueFiles::write(file(ReleasePaths::content(release.m_listDigest)), list);
    CatalogueFiles::write(file(ReleasePaths::release()), release.toJson());
}

void TinyRelease::record(const QDateTime& since) const
{
    const QByteArray json = CatalogueFiles::read(file(ReleasePaths::release()));
    const QJsonObject release = QJsonDocument::fromJson(json).object();
    const QJsonValue serial = release[QLatin1String("serial")];
    const QJsonObject record{
        {QStringLiteral("since"), since.toString(Qt::ISODate)},
        {QStringLiteral("list"), release[QLatin1String("list")][QLatin1String("sha256")]},
        {QStringLiteral("release"), QString::fromLatin1(ContentDigest::ofBytes(json))},
        {QStringLiteral("serial"), serial}};
    CatalogueFiles::write(
        file(QStringLiteral("ResourceConfig/releases/%1.json").arg(serial.toDouble(), 0, 'f', 0)),
        QJsonDocument(record).toJson());
}

TinyRelease::Files TinyRelease::files(qint64 serial)
{
    const QByteArray number = QByteArray::number(serial);
    Files files;
    for (const char* name :
         {"ResourceConfig/resource_config.xml", "ResourceConfig/resource_version_v3.xml",
          "config/Motions/{1}/zoom in.zip"})
        files.insert(QString::fromLatin1(name), name + number);
    files.insert(QString::fromUtf8("display/Themes/same \xc3\xa4.png"), "always");
    return files;
}
