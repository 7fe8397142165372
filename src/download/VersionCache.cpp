#include "download/VersionCache.h"

#include "catalogue/MVThemeMgr.h"
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

namespace {

const QLatin1String urlKey("url");
const QLatin1String etagKey("etag");
const QLatin1String modifiedKey("lastModified");
const QLatin1String contentKey("content");
const QLatin1String digestKey("sha256");

/// Room for the content in base64 and the other fields.
constexpr qint64 maxBytes = 2 * VersionFile::maxBytes;

QString path()
{
    const QString version =
        MVThemeMgr::init()->Path_resource_version_xml(MVThemeMgr::eLoadDir_Download);
    return QFileInfo(version).path() + QStringLiteral("/version-cache.json");
}

/// Covers all that a 304 relies on.
QString digestOf(const QString& url, const VersionCache::Entry& entry)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QByteArray& part :
         {url.toUtf8(), entry.validators.m_etag, entry.validators.m_lastModified, entry.content}) {
        hash.addData(QByteArray::number(part.size()) + ':');
        hash.addData(part);
    }
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace

VersionCache::Entry VersionCache::read(const QString& url)
{
    QFile file(path());
    QByteArray bytes;
    if (!MVThemeMgr::init()->isDownloadPath(file.fileName()) || !RegularFile::open(file)
        || !RegularFile::readAll(file, maxBytes, bytes))
        return {};
    const QJsonObject json = QJsonDocument::fromJson(bytes).object();
    const auto text = [&](QLatin1String key) { return json.value(key).toString(); };
    const Entry entry = {{text(etagKey).toUtf8(), text(modifiedKey).toUtf8()},
                         QByteArray::fromBase64(text(contentKey).toLatin1())};
    const bool isIntact = text(urlKey) == url && text(digestKey) == digestOf(url, entry);
    return isIntact ? entry : Entry();
}

void VersionCache::store(const QString& url, const Entry& entry)
{
    if (!entry.validators.areReliable() || !MVThemeMgr::init()->isDownloadPath(path()))
        return;
    const QJsonObject json = {
        {urlKey, url},
        {etagKey, QString::fromUtf8(entry.validators.m_etag)},
        {modifiedKey, QString::fromUtf8(entry.validators.m_lastModified)},
        {contentKey, QString::fromLatin1(entry.content.toBase64())},
        {digestKey, digestOf(url, entry)},
    };
    AppOptions::instance()->ensureDirExists(QFileInfo(path()).path());
    STransferFailure failure;
    if (!Utils::writeFile(path(), QJsonDocument(json).toJson(), &failure)) {
        LogL("CheckCfgWorker", 2, "the next check will fetch the version file again: %s",
             failure.m_qsDetails.toUtf8().constData());
    }
}
