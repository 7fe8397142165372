// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"

#include "host/HostSettings.h"

#include "FileFailure.h"
#include "NetworkFailure.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

#include <utility>

namespace {

/// Without a limit Qt buffers what a fast server sends, and a cancel waits behind it.
constexpr qint64 readBufferBytes = 256 * 1024;
constexpr int statusOk = 200;
constexpr int statusNotModified = 304;

bool isUsable(const QUrl& address)
{
    const QString scheme = address.scheme();
    return !address.host().isEmpty()
        && (scheme == QLatin1String("http") || scheme == QLatin1String("https"));
}

int statusOf(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

} // namespace

Download::Download(TransferPool::Job job, std::function<void()> ended)
    : m_job(std::move(job))
    , m_ended(std::move(ended))
{
}

Download::~Download() = default;

Download::Counts Download::counts() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_counts;
}

std::optional<STransferOutcome> Download::outcome() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_outcome;
}

void Download::begin(QNetworkAccessManager& network)
{
    m_network = &network;
    request(m_job.contentUrl.isEmpty() ? m_job.url : m_job.contentUrl, false);
}

void Download::cancel()
{
    if (!outcome())
        fail(eTransfer_Cancelled, eFailure_Cancelled, QStringLiteral("cancelled"));
}

void Download::request(const QString& url, bool isPastCaches)
{
    m_url = url;
    m_isPastCaches = isPastCaches;
    if (!isUsable(QUrl(url)))
        return fail(eTransfer_BadUrl, eFailure_BadAddress, QStringLiteral("not an http address"));
    m_file = std::make_unique<QSaveFile>(m_job.file);
    if (!m_file->open(QIODevice::WriteOnly))
        return end({eTransfer_LocalFile, FileFailure::of(*m_file, m_job.url), false, {}});
    m_digest.reset();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_counts = Counts();
    }
    m_reply = m_network->get(requestFor(url, isPastCaches));
    m_reply->setReadBufferSize(readBufferBytes);
    const auto self = shared_from_this(); // lives until the reply is deleted
    QObject::connect(m_reply, &QNetworkReply::readyRead, m_reply, [self] { self->receive(); });
    QObject::connect(m_reply, &QNetworkReply::finished, m_reply, [self] { self->finish(); });
}

QNetworkRequest Download::requestFor(const QString& url, bool isPastCaches) const
{
    QNetworkRequest request{QUrl(url)};
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(5);
    request.setTransferTimeout(hostSettings().stallTimeoutMs);
    request.setRawHeader("Accept-Encoding", "identity"); // the file's own bytes, and their number
    if (isPastCaches)
        request.setRawHeader("Cache-Control", "no-cache");
    if (!m_job.known.m_etag.isEmpty())
        request.setRawHeader("If-None-Match", m_job.known.m_etag);
    if (!m_job.known.m_lastModified.isEmpty())
        request.setRawHeader("If-Modified-Since", m_job.known.m_lastModified);
    return request;
}

void Download::receive()
{
    // The body of an error is of no use; a reply that has run out of time is closed.
    if (!m_reply || statusOf(*m_reply) != statusOk || !m_reply->isReadable())
        return;
    const QByteArray bytes = m_reply->readAll();
    if (m_file->write(bytes) != bytes.size())
        return end({eTransfer_LocalFile, FileFailure::of(*m_file, m_job.url), false, {}});
    m_digest.add(bytes.constData(), bytes.size());
    qint64 received = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        received = m_counts.received += bytes.size();
        m_counts.total = m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    }
    if (m_job.published.isKnown() && received > m_job.published.m_sizeBytes)
        store(); // refuses it
    else if (received > hostSettings().maxDownloadBytes)
        fail(eTransfer_TooLarge, eFailure_TooLarge, QStringLiteral("too large"));
}

void Download::finish()
{
    const QNetworkReply* const finished = m_reply;
    receive();
    if (!m_reply || m_reply != finished)
        return; // ended, or asked again
    const QNetworkReply::NetworkError error = m_reply->error();
    const int status = statusOf(*m_reply);
    const bool isMissing = status == 404 || status == 410;
    if (isMissing && !m_job.contentUrl.isEmpty() && m_url == m_job.contentUrl)
        return requestAgain(m_job.url, false);
    if (status == statusNotModified && !m_job.known.isEmpty())
        return end({eTransfer_Success, {}, true, m_job.known});
    if (NetworkFailure::causeOf(error) == eFailure_BadAddress || status == 0)
        return fail(NetworkFailure::resultOf(error), NetworkFailure::causeOf(error),
                    m_reply->errorString());
    if (status != statusOk)
        return fail(eTransfer_Status, isMissing ? eFailure_NotOnServer : eFailure_ServerError,
                    QStringLiteral("HTTP status %1").arg(status));
    if (error != QNetworkReply::NoError || isTruncated())
        return fail(eTransfer_Network, eFailure_ConnectionLost, QStringLiteral("incomplete body"));
    store();
}

/// Keeps what has arrived if it is what the job demands; otherwise asks once more, past caches.
void Download::store()
{
    if (!isPublished()) {
        if (!m_isPastCaches)
            return requestAgain(m_url, true);
        return fail(eTransfer_NotPublished, eFailure_Damaged,
                    QStringLiteral("the content is not the published one"));
    }
    const SValidators validators{m_reply->rawHeader("ETag"), m_reply->rawHeader("Last-Modified")};
    if (!m_file->commit())
        return end({eTransfer_LocalFile, FileFailure::of(*m_file, m_job.url), false, {}});
    end({eTransfer_Success, {}, false, validators});
}

void Download::requestAgain(const QString& url, bool isPastCaches)
{
    dropReply();
    request(url, isPastCaches);
}

void Download::dropReply()
{
    if (QNetworkReply* const reply = std::exchange(m_reply, nullptr)) {
        reply->abort(); // calls finish()
        reply->deleteLater();
    }
}

bool Download::isTruncated() const
{
    const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    return length.isValid() && length.toLongLong() != counts().received;
}

bool Download::isPublished() const
{
    const SPublishedContent& published = m_job.published;
    return !published.isKnown()
        || (counts().received == published.m_sizeBytes && m_digest.hex() == published.m_digest);
}

void Download::fail(ETransferResult result, EFailureCause cause, const QString& reason)
{
    const QUrl address(m_job.url);
    const QString url = address.isValid() ? address.toDisplayString() : m_job.url;
    const QString details = QStringLiteral("%1: %2 (%3 bytes received; local file %4)")
                                .arg(url, reason, QString::number(counts().received), m_job.file);
    end({result, {cause, url, m_job.file, details}, false, {}});
}

/// Without a commit the file's destructor removes what has arrived.
void Download::end(const STransferOutcome& outcome)
{
    m_file.reset();
    dropReply();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_outcome = outcome;
    }
    m_ended();
}
