#include "host/CurWrapper.h"

#include "host/ContentCheck.h"
#include "host/HostSettings.h"
#include "host/HttpTransfer.h"
#include "host/PartFile.h"
#include "host/RegularFile.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <atomic>
#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int maxRedirects = 5;
constexpr std::chrono::milliseconds callbackPause(100);

bool isHttp(const QUrl& url)
{
    return (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
        && !url.host().isEmpty();
}

ETransferResult resultOf(HttpTransfer::End end)
{
    switch (end) {
    case HttpTransfer::End::Complete:
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

class CurWrapper::Private
{
public:
    ETransferResult download(const QString& url, const QString& file, bool resume);

    ProgressCallback callback = nullptr;
    void* user = nullptr;
    ETransferResult result = eTransfer_Success;
    STransferFailure failure;
    std::atomic<bool> cancelled{false};
    HttpTransfer transfer;

private:
    ETransferResult fetch();
    bool isPageWanted() const;
    ETransferResult fetchWithRetries();
    HttpTransfer::End followRedirects();
    bool openTarget(bool resume);
    bool copyBeginning();
    void rememberVersion();
    bool beginAgain();
    bool isTransient(HttpTransfer::End end) const;
    int pauseBefore(int retry) const;
    bool keepGoing(qint64 received, qint64 total);
    ETransferResult failAt(HttpTransfer::End end);
    ETransferResult failAtFile();
    ETransferResult failAsCancelled();
    ETransferResult fail(ETransferResult code, EFailureCause cause, const QString& reason);

    QString m_asked; // the address as given by the caller
    QUrl m_url;
    QString m_target;
    PartFile m_file;
    HttpTransfer::Request m_request;
    QString m_redirectError; // why a redirect must not be followed; empty if there was none
    qint64 m_received = 0;
    Clock::time_point m_nextCallback;
    QSet<QString> m_sweptFolders; // already searched for the remains of a kill
};

ETransferResult CurWrapper::Private::download(const QString& url, const QString& file, bool resume)
{
    failure = STransferFailure();
    m_asked = url;
    m_url = QUrl(url, QUrl::TolerantMode);
    m_target = file;
    m_request = HttpTransfer::Request();
    m_redirectError.clear();
    m_received = 0;
    m_nextCallback = Clock::time_point();

    if (!m_url.isValid() || !isHttp(m_url))
        return fail(eTransfer_BadUrl, eFailure_BadAddress,
                    QStringLiteral("not an http or https address"));
    if (!openTarget(resume))
        return failAtFile();
    const ETransferResult code = fetch();
    m_file.discard();
    return code;
}

bool CurWrapper::Private::openTarget(bool resume)
{
    const QString folder = QFileInfo(m_target).path();
    if (!m_sweptFolders.contains(folder)) {
        PartFile::removeLeftovers(folder);
        m_sweptFolders.insert(folder);
    }
    return m_file.open(m_target) && (!resume || copyBeginning());
}

bool CurWrapper::Private::copyBeginning()
{
    QFile beginning(m_target);
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

ETransferResult CurWrapper::Private::fetch()
{
    const ETransferResult code = fetchWithRetries();
    if (code != eTransfer_Success)
        return code;
    m_received = m_file.size();
    if (callback && !callback(m_received, m_received, user))
        return failAsCancelled();
    if (ContentCheck::isPage(m_file.beginning(ContentCheck::pageBytes)) && !isPageWanted()) {
        return fail(
            eTransfer_Network, eFailure_Unreachable,
            QStringLiteral("received a web page instead of the file, as from a network that "
                           "asks for a login"));
    }
    bool isUnreadable = false;
    const QString fault = hostSettings().checkContent
        ? ContentCheck::fault(m_file.temporaryPath(), m_target, &isUnreadable)
        : QString();
    if (isUnreadable)
        return fail(eTransfer_LocalFile, eFailure_LocalFile, fault);
    if (!fault.isEmpty())
        return fail(eTransfer_NotPublished, eFailure_Damaged,
                    QStringLiteral("the content is not plausible: %1").arg(fault));
    if (!m_file.commit())
        return failAtFile();
    return eTransfer_Success;
}

bool CurWrapper::Private::isPageWanted() const
{
    return ContentCheck::isPageName(m_target) || ContentCheck::isPageName(m_url.path());
}

ETransferResult CurWrapper::Private::fetchWithRetries()
{
    for (int retry = 0;;) {
        const HttpTransfer::End end = followRedirects();
        m_received = std::max(m_received, m_file.size());
        if (end == HttpTransfer::End::Complete)
            return eTransfer_Success;
        if (!m_redirectError.isEmpty())
            return fail(eTransfer_BadUrl, eFailure_BadAddress, m_redirectError);
        if (end == HttpTransfer::End::StaleRange) {
            // Not a retry: the server works, and a second answer cannot be stale again.
            if (!beginAgain())
                return failAtFile();
            continue;
        }
        if (!isTransient(end) || retry >= hostSettings().downloadRetries)
            return failAt(end);
        rememberVersion();
        if (!transfer.pause(pauseBefore(retry), [this] { return keepGoing(m_file.size(), 0); }))
            return failAsCancelled();
        if (m_request.rangeStart == 0 && !beginAgain())
            return failAtFile();
        ++retry;
    }
}

HttpTransfer::End CurWrapper::Private::followRedirects()
{
    QUrl url = m_url;
    for (int redirects = 0;; ++redirects) {
        m_request.url = url.toEncoded(QUrl::RemoveFragment);
        const HttpTransfer::End end =
            transfer.perform(m_request, m_file, [this](qint64 received, qint64 total) {
                return keepGoing(received, total);
            });
        if (end != HttpTransfer::End::Redirect)
            return end;

        const QUrl next = url.resolved(QUrl::fromEncoded(transfer.head().location));
        if (redirects == maxRedirects)
            m_redirectError = QStringLiteral("more than %1 redirects").arg(maxRedirects);
        else if (!next.isValid() || !isHttp(next))
            m_redirectError =
                QStringLiteral("redirected to %1, which is not an http or https address")
                    .arg(next.isValid() ? next.toDisplayString()
                                        : QString::fromUtf8(transfer.head().location));
        else if (url.scheme() == QLatin1String("https") && next.scheme() != url.scheme())
            m_redirectError = QStringLiteral("redirected from https to http");
        if (!m_redirectError.isEmpty())
            return end;
        url = next;
    }
}

/// Stores the validator for requesting the rest of a broken body, if there is one.
void CurWrapper::Private::rememberVersion()
{
    const ResponseHead& head = transfer.head();
    if (head.status != 200 && head.status != 206)
        return; // not an answer about the file; what is known of it remains valid
    const QByteArray validator = head.validator();
    if (!validator.isEmpty())
        m_request.validator = validator;
    else if (head.status != 206) // the rest of a file may leave out what its beginning had
        m_request.validator.clear();
    const bool possible = !m_request.validator.isEmpty() && head.acceptRanges != "none";
    m_request.rangeStart = possible ? m_file.size() : 0;
    m_request.rangeTotal = transfer.announcedTotal();
}

bool CurWrapper::Private::beginAgain()
{
    m_request = HttpTransfer::Request();
    return m_file.restart();
}

bool CurWrapper::Private::isTransient(HttpTransfer::End end) const
{
    if (end == HttpTransfer::End::Broken)
        return true;
    const int status = transfer.head().status;
    return end == HttpTransfer::End::Status && (status == 502 || status == 503 || status == 504);
}

int CurWrapper::Private::pauseBefore(int retry) const
{
    const HostSettings& settings = hostSettings();
    const qint64 own = qint64{settings.retryPauseMs} << std::min(retry, 16);
    const qint64 asked = qint64{transfer.head().retryAfterSeconds} * 1000;
    return static_cast<int>(std::min<qint64>(std::max(own, asked), settings.retryPauseMaxMs));
}

bool CurWrapper::Private::keepGoing(qint64 received, qint64 total)
{
    if (cancelled)
        return false;
    const Clock::time_point now = Clock::now();
    if (!callback || now < m_nextCallback)
        return true;
    m_nextCallback = now + callbackPause;
    return callback(received, total, user);
}

ETransferResult CurWrapper::Private::failAt(HttpTransfer::End end)
{
    if (end == HttpTransfer::End::LocalFile)
        return failAtFile();
    return fail(resultOf(end), transfer.causeOf(end), transfer.reason());
}

ETransferResult CurWrapper::Private::failAtFile()
{
    return fail(eTransfer_LocalFile, m_file.cause(), m_file.errorText());
}

ETransferResult CurWrapper::Private::failAsCancelled()
{
    return fail(eTransfer_Cancelled, eFailure_Cancelled, QStringLiteral("cancelled"));
}

ETransferResult CurWrapper::Private::fail(ETransferResult code, EFailureCause cause,
                                          const QString& reason)
{
    failure.m_eCause = cause;
    failure.m_qsUrl = m_url.isValid() ? m_url.toDisplayString() : m_asked;
    failure.m_qsFile = m_target;
    failure.m_qsDetails = QStringLiteral("%1: %2 (%3 bytes received; local file %4)")
                              .arg(failure.m_qsUrl, reason, QString::number(m_received), m_target);
    return code;
}

CurWrapper::CurWrapper()
    : d(std::make_unique<Private>())
{
}

CurWrapper::~CurWrapper() = default;

void CurWrapper::setDownloadProgressCallback(ProgressCallback callback, void* user)
{
    d->callback = callback;
    d->user = user;
}

void CurWrapper::download(const QString& url, const QString& file, bool resume)
{
    d->cancelled = false;
    d->result = d->download(url, file, resume);
}

int CurWrapper::result() const
{
    return d->result;
}

STransferFailure CurWrapper::failure() const
{
    return d->failure;
}

QString CurWrapper::errorText() const
{
    return d->failure.m_qsDetails;
}

void CurWrapper::cancel()
{
    d->cancelled = true;
    d->transfer.wake();
}
