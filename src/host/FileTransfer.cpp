// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/FileTransfer.h"

#include "host/AddressEncoder.h"
#include "host/ContentCheck.h"
#include "host/HostSettings.h"
#include "host/RegularFile.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;

namespace {

constexpr int maxRedirects = 5;
constexpr milliseconds callbackPause(50); // with the pool's tick, at least ten times a second
/// Beyond this many doublings, the limit of a pause decides anyway.
constexpr int maxDoublings = 16;

ETransferResult resultOf(HttpTransfer::End end)
{
    switch (end) {
    case HttpTransfer::End::Complete:
    case HttpTransfer::End::NotModified:
        return eTransfer_Success;
    case HttpTransfer::End::BadUrl:
        return eTransfer_BadUrl;
    case HttpTransfer::End::LocalFile:
        return eTransfer_LocalFile;
    case HttpTransfer::End::Redirect:
    case HttpTransfer::End::Status:
        return eTransfer_Status;
    case HttpTransfer::End::Cancelled:
        return eTransfer_Cancelled;
    case HttpTransfer::End::TooLarge:
        return eTransfer_TooLarge;
    case HttpTransfer::End::Broken:
    case HttpTransfer::End::StaleRange:
    case HttpTransfer::End::Network:
        break;
    }
    return eTransfer_Network;
}

} // namespace

FileTransfer::FileTransfer(CURLM* connections, HttpTransfer::Version version, TransferPool::Job job)
    : m_job(std::move(job))
    , m_transfer(connections, version)
{
}

void FileTransfer::begin(const Addresses& addresses, PartFile::FolderCheck check)
{
    if (addresses.byName.isEmpty()
        || (!m_job.contentUrl.isEmpty() && addresses.byContent.isEmpty())) {
        return fail(eTransfer_BadUrl, eFailure_BadAddress,
                    QStringLiteral("not an http or https address"));
    }
    if (!openTarget(check))
        return failAtFile();
    m_request.known = m_job.known;
    m_byName = addresses.byName;
    m_address = addresses.byContent.isEmpty() ? m_byName : addresses.byContent;
    beginRequest();
}

bool FileTransfer::openTarget(PartFile::FolderCheck check)
{
    // A beginning that is there has to be replaced, which needs a name.
    const auto temporary = m_job.resume ? PartFile::Temporary::Named : PartFile::Temporary::Unnamed;
    if (!m_file.open(m_job.file, check, temporary))
        return false;
    if (m_job.published.isKnown())
        m_file.startDigest();
    return !m_job.resume || copyBeginning();
}

bool FileTransfer::copyBeginning()
{
    QFile beginning(m_job.file);
    if (!RegularFile::open(beginning))
        return true;
    // If reading ends early, the transfer continues from there.
    bool isStored = true;
    RegularFile::readChunks(beginning, [&](const char* bytes, int length) {
        isStored = m_file.write(bytes, length);
        return isStored;
    });
    if (!isStored)
        return false;
    m_request.notAfter = beginning.fileTime(QFileDevice::FileModificationTime);
    m_request.rangeStart = m_file.size();
    return true;
}

void FileTransfer::beginRequest()
{
    m_request.maxBytes = m_job.published.m_sizeBytes;
    m_request.url =
        m_redirected.isEmpty() ? m_address : m_redirected.toEncoded(QUrl::RemoveFragment);
    m_transfer.begin(m_request, m_file, this);
    m_state = State::Requesting;
}

void FileTransfer::requestEnded(CURLcode code)
{
    follow(m_transfer.end(code));
}

void FileTransfer::confirm()
{
    if (std::exchange(m_isConfirmed, true) || m_state != State::Requesting)
        return;
    if (!keepGoing(m_transfer.received(), 0))
        cancel();
}

void FileTransfer::tick(int sideBySide)
{
    if (m_state == State::Pausing) {
        if (!keepGoing(m_file.size(), 0))
            failAsCancelled();
        else if (Clock::now() >= m_pauseEnd)
            continuePaused();
        return;
    }
    if (m_state != State::Requesting)
        return;
    if (!keepGoing(m_transfer.received(), m_transfer.announcedTotal()))
        cancel();
    else if (m_transfer.isStalled(sideBySide))
        follow(m_transfer.end(CURLE_OPERATION_TIMEDOUT));
}

void FileTransfer::cancel()
{
    if (m_state == State::Requesting) {
        m_transfer.refuseAsCancelled();
        follow(m_transfer.end(CURLE_ABORTED_BY_CALLBACK));
    } else if (m_state != State::Ended) {
        failAsCancelled();
    }
}

milliseconds FileTransfer::pauseLeft(milliseconds longest) const
{
    if (m_state != State::Pausing)
        return longest;
    const auto left = std::chrono::duration_cast<milliseconds>(m_pauseEnd - Clock::now());
    return std::clamp(left, milliseconds(0), longest);
}

/// Decides what follows a request that has ended.
void FileTransfer::follow(HttpTransfer::End end)
{
    if (end == HttpTransfer::End::Redirect) {
        const QString error = redirect();
        return error.isEmpty() ? beginRequest()
                               : fail(eTransfer_BadUrl, eFailure_BadAddress, error);
    }
    m_received = std::max(m_received, m_file.size());
    m_redirected.clear();
    m_redirects = 0;
    if (end == HttpTransfer::End::Complete)
        return isOther() && !m_request.revalidate ? beginPastCaches() : store();
    if (end == HttpTransfer::End::TooLarge && m_job.published.isKnown())
        return m_request.revalidate ? failAsOther() : beginPastCaches();
    if (m_address != m_byName && m_transfer.causeOf(end) == eFailure_NotOnServer) {
        m_address = m_byName;
        return beginAgain();
    }
    if (end == HttpTransfer::End::NotModified) {
        m_outcome.m_bNotModified = true;
        m_outcome.m_validators = m_job.known;
        return succeed();
    }
    if (end == HttpTransfer::End::StaleRange) {
        // Not a retry: the server works, and a second answer cannot be stale again.
        return beginAgain();
    }
    if (!isTransient(end) || m_retries >= hostSettings().downloadRetries)
        return failAt(end);
    rememberVersion();
    m_pauseEnd = Clock::now() + pauseBefore(m_retries);
    m_state = State::Pausing;
}

/// Continues at the address that the answer names; returns why it must not, empty if it does.
QString FileTransfer::redirect()
{
    const QByteArray location = m_transfer.head().location;
    const QUrl current = m_redirected.isEmpty() ? QUrl::fromEncoded(m_address) : m_redirected;
    const QUrl next = current.resolved(QUrl::fromEncoded(location));
    if (m_redirects == maxRedirects)
        return QStringLiteral("more than %1 redirects").arg(maxRedirects);
    if (!next.isValid() || !AddressEncoder::isHttp(next)) {
        return QStringLiteral("redirected to %1, which is not an http or https address")
            .arg(next.isValid() ? next.toDisplayString() : QString::fromUtf8(location));
    }
    if (current.scheme() == QLatin1String("https") && next.scheme() != current.scheme())
        return QStringLiteral("redirected from https to http");
    m_redirected = next;
    ++m_redirects;
    return {};
}

/// Returns the job's address. Parsed only when it is needed: few transfers are redirected or fail.
QUrl FileTransfer::url() const
{
    return QUrl(m_job.url, QUrl::TolerantMode);
}

void FileTransfer::continuePaused()
{
    ++m_retries;
    if (m_request.rangeStart == 0)
        beginAgain();
    else
        beginRequest();
}

void FileTransfer::store()
{
    m_received = m_file.size();
    if (m_job.progress && !m_job.progress(m_received, m_received))
        return failAsCancelled();
    static_assert(PartFile::beginningBytes >= ContentCheck::pageBytes);
    const bool isWrong = isOther();
    const bool isProven = m_job.published.isKnown() && !isWrong;
    if (!isProven && ContentCheck::isPage(m_file.beginning()) && !isPageWanted()) {
        return fail(
            eTransfer_Network, eFailure_Unreachable,
            QStringLiteral("received a web page instead of the file, as from a network that "
                           "asks for a login"));
    }
    if (isWrong)
        return failAsOther();
    bool isUnreadable = false;
    const QString fault = hostSettings().checkContent ? contentFault(isUnreadable) : QString();
    if (isUnreadable)
        return fail(eTransfer_LocalFile, eFailure_LocalFile, fault);
    if (!fault.isEmpty()) {
        return fail(eTransfer_NotPublished, eFailure_Damaged,
                    QStringLiteral("the content is not plausible: %1").arg(fault));
    }
    if (!m_file.commit())
        return failAtFile();
    noteValidators();
    succeed();
}

/// Reads through the file's own handle, since it may have no name.
QString FileTransfer::contentFault(bool& isUnreadable) const
{
    QFile content;
    if (m_file.openContent(content))
        return ContentCheck::fault(content, m_job.file, &isUnreadable);
    isUnreadable = true;
    return content.errorString();
}

bool FileTransfer::isPageWanted() const
{
    return ContentCheck::isPageName(m_job.file) || ContentCheck::isPageName(url().path());
}

/// Stores the validator for requesting the rest of a broken body, if there is one.
void FileTransfer::rememberVersion()
{
    const ResponseHead& head = m_transfer.head();
    if (head.status != 200 && head.status != 206)
        return; // not an answer about the file; what is known of it remains valid
    noteValidators();
    const QByteArray validator = head.validator();
    if (!validator.isEmpty())
        m_request.validator = validator;
    else if (head.status != 206)
        m_request.validator.clear();
    const bool possible = !m_request.validator.isEmpty() && head.acceptRanges != "none";
    m_request.rangeStart = possible ? m_file.size() : 0;
    m_request.rangeTotal = m_transfer.announcedTotal();
}

/// The rest of a file may leave out what its beginning had.
void FileTransfer::noteValidators()
{
    const ResponseHead& head = m_transfer.head();
    SValidators& known = m_outcome.m_validators;
    if (head.status == 200)
        known = SValidators();
    if (!head.etag.isEmpty())
        known.m_etag = head.etag;
    if (!head.lastModified.isEmpty())
        known.m_lastModified = head.lastModified;
    known.m_bStrongDate = head.hasStrongDate();
}

/// Returns whether a complete body is not the content that the job wants.
bool FileTransfer::isOther() const
{
    const SPublishedContent& published = m_job.published;
    return published.isKnown()
        && (m_file.size() != published.m_sizeBytes || m_file.digest() != published.m_digest);
}

/// A cache may have kept the content of an earlier release.
void FileTransfer::beginPastCaches()
{
    m_request.revalidate = true;
    beginAgain();
}

void FileTransfer::beginAgain()
{
    const bool revalidate = m_request.revalidate;
    m_request = HttpTransfer::Request();
    m_request.known = m_job.known;
    m_request.revalidate = revalidate;
    if (!m_file.restart())
        return failAtFile();
    beginRequest();
}

bool FileTransfer::isTransient(HttpTransfer::End end) const
{
    if (end == HttpTransfer::End::Broken)
        return true;
    const int status = m_transfer.head().status;
    return end == HttpTransfer::End::Status && (status == 502 || status == 503 || status == 504);
}

milliseconds FileTransfer::pauseBefore(int retry) const
{
    const HostSettings& settings = hostSettings();
    const qint64 own = qint64{settings.retryPauseMs} << std::min(retry, maxDoublings);
    const qint64 asked = qint64{m_transfer.head().retryAfterSeconds} * 1000;
    return milliseconds(std::min<qint64>(std::max(own, asked), settings.retryPauseMaxMs));
}

bool FileTransfer::keepGoing(qint64 received, qint64 total)
{
    if (!m_job.progress)
        return true;
    const Clock::time_point now = Clock::now();
    if (now < m_nextCallback)
        return true;
    m_nextCallback = now + callbackPause;
    return m_job.progress(received, total);
}

void FileTransfer::report() const
{
    if (m_job.ended)
        m_job.ended(m_outcome);
}

void FileTransfer::succeed()
{
    m_file.discard();
    m_state = State::Ended;
}

void FileTransfer::failAt(HttpTransfer::End end)
{
    if (end == HttpTransfer::End::LocalFile)
        return failAtFile();
    fail(resultOf(end), m_transfer.causeOf(end), m_transfer.reason());
}

void FileTransfer::failAtFile()
{
    fail(eTransfer_LocalFile, m_file.cause(), m_file.errorText());
}

void FileTransfer::failAsCancelled()
{
    fail(eTransfer_Cancelled, eFailure_Cancelled, QStringLiteral("cancelled"));
}

void FileTransfer::failAsOther()
{
    fail(eTransfer_NotPublished, eFailure_Damaged,
         QStringLiteral("the content is not the published one"));
}

void FileTransfer::fail(ETransferResult code, EFailureCause cause, const QString& reason)
{
    m_outcome.m_eResult = code;
    m_outcome.m_validators = SValidators();
    STransferFailure& failure = m_outcome.m_failure;
    failure.m_eCause = cause;
    const QUrl address = url();
    failure.m_qsUrl = address.isValid() ? address.toDisplayString() : m_job.url;
    failure.m_qsFile = m_job.file;
    failure.m_qsDetails =
        QStringLiteral("%1: %2 (%3 bytes received; local file %4)")
            .arg(failure.m_qsUrl, reason, QString::number(m_received), m_job.file);
    m_file.discard();
    m_state = State::Ended;
}
