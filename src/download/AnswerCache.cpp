// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/AnswerCache.h"

#include "catalogue/MVThemeMgr.h"
#include "download/LogCategories.h"
#include "download/RootPlaces.h"
#include "download/SRelease.h"
#include "download/VersionFile.h"
#include "host/AppOptions.h"
#include "host/LogL.h"
#include "host/RegularFile.h"
#include "host/STransferFailure.h"
#include "host/Utils.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace {

const QLatin1String urlKey("url");
const QLatin1String etagKey("etag");
const QLatin1String modifiedKey("lastModified");
const QLatin1String contentKey("content");
const QLatin1String entryDigestKey("sha256");

/// Covers all that a 304 relies on.
QString digestOf(const QString& url, const AnswerCache::Entry& entry)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QByteArray& part :
         {url.toUtf8(), entry.validators.m_etag, entry.validators.m_lastModified, entry.content}) {
        hash.addData(QByteArray::number(part.size()) + ':');
        hash.addData(part);
    }
    return QString::fromLatin1(hash.result().toHex());
}

/// Room for the content in base64 and the other fields.
constexpr qint64 roomFor(qint64 contentBytes)
{
    return 2 * contentBytes + 4096;
}

} // namespace

AnswerCache::AnswerCache(QString name, qint64 maxBytes)
    : m_name(std::move(name))
    , m_maxBytes(roomFor(maxBytes))
{
}

AnswerCache AnswerCache::ofVersion()
{
    return {QStringLiteral("version-cache.json"), VersionFile::maxBytes};
}

AnswerCache AnswerCache::ofRelease()
{
    return {QStringLiteral("release-cache.json"), SRelease::maxBytes};
}

QString AnswerCache::path() const
{
    return RootPlaces::catalogueFolder() + QLatin1Char('/') + m_name;
}

AnswerCache::Entry AnswerCache::read(const QString& url) const
{
    QFile file(path());
    QByteArray bytes;
    if (!MVThemeMgr::init()->isDownloadPath(file.fileName()) || !RegularFile::open(file)
        || !RegularFile::readAll(file, m_maxBytes, bytes))
        return {};
    const QJsonObject json = QJsonDocument::fromJson(bytes).object();
    const auto text = [&](QLatin1String key) { return json.value(key).toString(); };
    const Entry entry = {{text(etagKey).toUtf8(), text(modifiedKey).toUtf8()},
                         QByteArray::fromBase64(text(contentKey).toLatin1())};
    const bool isIntact = text(urlKey) == url && text(entryDigestKey) == digestOf(url, entry);
    return isIntact ? entry : Entry();
}

bool AnswerCache::store(const QString& url, Entry entry) const
{
    if (!MVThemeMgr::init()->isDownloadPath(path()))
        return false;
    if (!entry.validators.areReliable())
        entry.validators = SValidators();
    const QJsonObject json = {
        {urlKey, url},
        {etagKey, QString::fromUtf8(entry.validators.m_etag)},
        {modifiedKey, QString::fromUtf8(entry.validators.m_lastModified)},
        {contentKey, QString::fromLatin1(entry.content.toBase64())},
        {entryDigestKey, digestOf(url, entry)},
    };
    AppOptions::instance()->ensureDirExists(QFileInfo(path()).path());
    STransferFailure failure;
    if (Utils::writeFile(path(), QJsonDocument(json).toJson(), &failure))
        return true;
    LogL(LogCategories::checkOfCatalogue, 2, "the next check will fetch %s again: %s",
         url.toUtf8().constData(), failure.m_qsDetails.toUtf8().constData());
    return false;
}

void AnswerCache::forget() const
{
    if (MVThemeMgr::init()->isDownloadPath(path()))
        QFile::remove(path());
}
