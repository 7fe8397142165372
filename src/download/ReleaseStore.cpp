// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseStore.h"

#include "catalogue/MVThemeMgr.h"
#include "download/LogCategories.h"
#include "download/ReleaseKey.h"
#include "download/ReleasePaths.h"
#include "download/ReleaseSignature.h"
#include "download/RootPlaces.h"
#include "host/AppOptions.h"
#include "host/ContentDigest.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/RegularFile.h"
#include "host/STransferFailure.h"
#include "host/Utils.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QVector>

namespace {

QByteArray contentOf(const QString& path, qint64 maxBytes)
{
    QFile file(path);
    QByteArray content;
    const bool isRead = MVThemeMgr::init()->isDownloadPath(path) && RegularFile::open(file)
        && RegularFile::readAll(file, maxBytes, content);
    return isRead ? content : QByteArray();
}

bool replace(const QString& path, const QByteArray& content)
{
    STransferFailure failure;
    if (!MVThemeMgr::init()->isDownloadPath(path))
        return false;
    AppOptions::instance()->ensureDirExists(QFileInfo(path).path());
    if (Utils::writeFile(path, content, &failure))
        return true;
    LogL(LogCategories::checkOfCatalogue, 2, "the release cannot be stored: %s",
         failure.m_qsDetails.toUtf8().constData());
    return false;
}

QString beside(const QString& name)
{
    return RootPlaces::catalogueFolder() + name;
}

QString listPath()
{
    return beside(QStringLiteral("/files.txt"));
}

QString signaturePath()
{
    return beside(QStringLiteral("/release.minisig"));
}

/// Returns the keys of the settings. A key that cannot be read explains itself in `error`.
QVector<ReleaseKey> keysOfSettings(QString& error)
{
    QVector<ReleaseKey> keys;
    for (const QString& text : qAsConst(hostSettings().releaseKeys)) {
        ReleaseKey key;
        QString fault;
        if (ReleaseKey::parse(text, key, fault))
            keys.append(key);
        else
            error = QStringLiteral("the key \"%1\" of the settings is %2").arg(text, fault);
    }
    return keys;
}

} // namespace

ReleaseStore::ReleaseStore()
    : m_cache(AnswerCache::ofRelease())
    , m_entry(m_cache.read(AcceptedRelease::urlOf(ReleasePaths::release())))
{
}

QString ReleaseStore::faultOf(const QByteArray& text, const QByteArray& signature)
{
    if (hostSettings().releaseKeys.isEmpty())
        return QString();
    QString error;
    const QVector<ReleaseKey> trusted = keysOfSettings(error);
    ReleaseSignature parsed;
    if (!error.isEmpty() || !ReleaseSignature::parse(signature, parsed, error)
        || !parsed.verify(text, trusted, error))
        return error;
    return QString();
}

AcceptedRelease::Pointer ReleaseStore::read() const
{
    SRelease release;
    ReleaseList list;
    QString error;
    const QByteArray& text = m_entry.content;
    const QByteArray signature = contentOf(signaturePath(), ReleaseSignature::maxBytes);
    if (text.isEmpty() || !SRelease::parse(text, release, error)
        || !faultOf(text, signature).isEmpty())
        return nullptr;
    const QByteArray listText = contentOf(listPath(), ReleaseList::maxBytes);
    if (ContentDigest::ofBytes(listText) != release.m_listDigest
        || !ReleaseList::parse(listText, list, error))
        return nullptr;
    return std::make_shared<const AcceptedRelease>(text, release, list, signature);
}

SValidators ReleaseStore::validators() const
{
    return m_entry.validators;
}

qint64 ReleaseStore::minSerial() const
{
    SRelease release;
    QString error;
    const bool isBelieved = SRelease::parse(m_entry.content, release, error)
        && faultOf(m_entry.content, contentOf(signaturePath(), ReleaseSignature::maxBytes))
               .isEmpty();
    return isBelieved ? release.m_serial : 0;
}

bool ReleaseStore::write(const AcceptedRelease& release, const SValidators& validators) const
{
    return replace(listPath(), release.list().toText())
        && replace(signaturePath(), release.signature())
        && m_cache.store(AcceptedRelease::urlOf(ReleasePaths::release()),
                         {validators, release.text()});
}

void ReleaseStore::forget() const
{
    m_cache.forget();
}

QString ReleaseStore::state()
{
    QString state;
    for (const QString& path : {AnswerCache::ofRelease().path(), listPath(), signaturePath()}) {
        const QFileInfo info(path);
        state +=
            QStringLiteral("%1 %2 ").arg(info.lastModified().toMSecsSinceEpoch()).arg(info.size());
    }
    return state;
}
