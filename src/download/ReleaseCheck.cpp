// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseCheck.h"

#include "download/CheckTransfer.h"
#include "download/LogCategories.h"
#include "download/ReleasePaths.h"
#include "download/ReleaseSignature.h"
#include "download/ReleaseStore.h"
#include "host/AppOptions.h"
#include "host/ContentDigest.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/RegularFile.h"

#include <QDateTime>
#include <QFile>

#include <utility>

namespace {

/// A clock that is a day wrong, and an hour for a wrong time zone, is a reason to warn only.
constexpr qint64 clockToleranceSeconds = 25 * 3600;

void warn(const QString& text)
{
    LogL(LogCategories::checkOfCatalogue, 2, "%s", text.toUtf8().constData());
}

} // namespace

ReleaseCheck::ReleaseCheck(CheckTransfer& transfer, QString temp, CancelToken cancel)
    : m_transfer(transfer)
    , m_temp(std::move(temp))
    , m_cancel(std::move(cancel))
{
}

ReleaseCheck::End ReleaseCheck::run()
{
    if (hostSettings().releasePolicy == eRelease_Ignore)
        return End::Absent;
    AppOptions::instance()->ensureDirExists(m_temp);
    const ReleaseStore store;
    m_known = store.read();
    m_minSerial = store.minSerial();
    m_validators = m_known ? store.validators() : SValidators();
    const End end = fetch();
    if (end == End::Refused)
        warn(QStringLiteral("the release is not accepted: %1").arg(m_result.m_qsReason));
    return end;
}

ReleaseCheck::End ReleaseCheck::fetch()
{
    const QString url = AcceptedRelease::urlOf(ReleasePaths::release());
    const QString file = m_temp + QStringLiteral("release.json");
    if (m_cancel.isCancelled())
        return fail();
    m_last = m_transfer.fetchIfChanged(url, file, SRelease::maxBytes, m_validators);
    if (m_last != eTransfer_Success)
        return isMissing() ? withoutRelease() : fail();
    if (m_transfer.isNotModified())
        return judge(m_known->text());
    m_isNew = true; // at least its validators
    m_validators = m_transfer.validators();
    QFile fetched(file);
    QByteArray text;
    if (!RegularFile::open(fetched) || !RegularFile::readAll(fetched, SRelease::maxBytes, text))
        return refuse(QStringLiteral("%1 cannot be read").arg(file));
    return judge(text);
}

bool ReleaseCheck::isMissing() const
{
    return m_last == eTransfer_Status && m_transfer.failure().m_eCause == eFailure_NotOnServer;
}

ReleaseCheck::End ReleaseCheck::withoutRelease()
{
    if (hostSettings().releasePolicy == eRelease_Require || !hostSettings().releaseKeys.isEmpty())
        return refuse(QStringLiteral("the server has no release"));
    m_isWithdrawn = true;
    return End::Absent;
}

ReleaseCheck::End ReleaseCheck::judge(const QByteArray& text)
{
    SRelease release;
    QString error;
    if (!SRelease::parse(text, release, error))
        return refuse(error);
    error = faultOf(release);
    if (!error.isEmpty())
        return refuse(error);
    if (m_known && m_known->text() == text) {
        m_release = m_known;
        return End::Accepted;
    }
    QByteArray signature;
    if (!hostSettings().releaseKeys.isEmpty() && !fetchSignature(text, signature))
        return End::Refused;
    error = ReleaseStore::faultOf(text, signature);
    if (!error.isEmpty())
        return refuse(error);
    ReleaseList list;
    if (!fetchList(release, list))
        return End::Refused;
    m_release = std::make_shared<const AcceptedRelease>(text, release, list, signature);
    return End::Accepted;
}

/// Returns why a release must not replace the known one; empty if it may.
QString ReleaseCheck::faultOf(const SRelease& release) const
{
    if (release.m_serial < m_minSerial) {
        return QStringLiteral("the server has release %1, older than release %2, which has been "
                              "seen before")
            .arg(release.m_serial)
            .arg(m_minSerial);
    }
    const QDateTime now = QDateTime::currentDateTimeUtc();
    if (release.m_expires.isValid() && release.m_expires < now) {
        const QString expired = QStringLiteral("release %1 has expired at %2")
                                    .arg(release.m_serial)
                                    .arg(release.m_expires.toString(Qt::ISODate));
        if (release.m_expires.secsTo(now) > clockToleranceSeconds)
            return expired;
        warn(expired);
    }
    if (now.secsTo(release.m_published) > 0) {
        warn(QStringLiteral("release %1 is dated %2, in the future: the clock may be wrong")
                 .arg(release.m_serial)
                 .arg(release.m_published.toString(Qt::ISODate)));
    }
    return QString();
}

bool ReleaseCheck::fetchSignature(const QByteArray& text, QByteArray& signature)
{
    const QString file = m_temp + QStringLiteral("release.minisig");
    const QString byDigest =
        AcceptedRelease::urlOf(ReleasePaths::signatureOf(ContentDigest::ofBytes(text)));
    if (fetchContent(byDigest, file, ReleaseSignature::maxBytes, signature))
        return true;
    // A server without contents has it by name only.
    const QString byName = AcceptedRelease::urlOf(ReleasePaths::signature());
    if (isMissing() && fetchContent(byName, file, ReleaseSignature::maxBytes, signature))
        return true;
    if (isMissing())
        refuse(QStringLiteral("the release is not signed"));
    else
        fail();
    return false;
}

bool ReleaseCheck::fetchList(const SRelease& release, ReleaseList& list)
{
    QString error;
    QByteArray text;
    if (m_known && m_known->release().m_listDigest == release.m_listDigest) {
        list = m_known->list();
        return true;
    }
    if (m_cancel.isCancelled()) {
        fail();
        return false;
    }
    const QString file = m_temp + QStringLiteral("files.txt");
    m_last = m_transfer.fetchPublished(
        AcceptedRelease::urlOf(ReleasePaths::list()), file,
        {AcceptedRelease::urlOf(ReleasePaths::content(release.m_listDigest)),
         {release.m_listDigest, release.m_listBytes}},
        ReleaseList::maxBytes);
    if (m_last != eTransfer_Success) {
        fail();
        return false;
    }
    QFile fetched(file);
    if (!RegularFile::open(fetched)
        || !RegularFile::readAll(fetched, ReleaseList::maxBytes, text)) {
        refuse(QStringLiteral("%1 cannot be read").arg(file));
        return false;
    }
    if (ReleaseList::parse(text, list, error))
        return true;
    refuse(error);
    return false;
}

bool ReleaseCheck::fetchContent(const QString& url, const QString& file, qint64 maxBytes,
                                QByteArray& content)
{
    m_last = m_cancel.isCancelled() ? eTransfer_Cancelled : m_transfer.fetch(url, file, maxBytes);
    QFile fetched(file);
    return m_last == eTransfer_Success && RegularFile::open(fetched)
        && RegularFile::readAll(fetched, maxBytes, content);
}

ReleaseCheck::End ReleaseCheck::refuse(const QString& reason)
{
    m_result = {eCatalogueCheck_Rejected, reason, true, eFailure_Damaged};
    return End::Refused;
}

/// Refuses the release because of the last transfer, or a cancel in its place.
ReleaseCheck::End ReleaseCheck::fail()
{
    const STransferFailure& failure = m_transfer.failure();
    if (m_cancel.isCancelled() || m_last == eTransfer_Cancelled)
        m_result = {eCatalogueCheck_Cancelled, QString(), true, eFailure_Cancelled};
    else if (m_last == eTransfer_LocalFile)
        m_result = {eCatalogueCheck_NotStored, failure.m_qsDetails, true, failure.m_eCause};
    else if (m_last == eTransfer_TooLarge || m_last == eTransfer_NotPublished)
        m_result = {eCatalogueCheck_Rejected, failure.m_qsDetails, true, failure.m_eCause};
    else
        m_result = {eCatalogueCheck_Unreachable, failure.m_qsDetails, true, failure.m_eCause};
    return End::Refused;
}

bool ReleaseCheck::store()
{
    if (m_isWithdrawn)
        ReleaseStore().forget();
    return !m_isNew || ReleaseStore().write(*m_release, m_validators);
}
