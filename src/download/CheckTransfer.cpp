#include "download/CheckTransfer.h"

#include "host/CurWrapper.h"

#include <QThread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int resultTooLarge = 6;
constexpr std::chrono::milliseconds cancelGrace(500);

} // namespace

CheckTransfer::CheckTransfer(CurWrapper& wrapper, const std::atomic<bool>& willCancel)
    : m_wrapper(wrapper)
    , m_willCancel(willCancel)
{
}

int CheckTransfer::fetch(const QString& url, const QString& file, qint64 mostBytes)
{
    m_mostBytes = mostBytes;
    m_tooLarge = false;
    m_wrapper.setDownloadProgressCallback(&CheckTransfer::goOn, this);
    m_wrapper.download(url, file, false);
    m_wrapper.setDownloadProgressCallback(nullptr, nullptr);
    m_error = m_wrapper.errorText();
    if (!m_tooLarge)
        return m_wrapper.result();
    m_error = QStringLiteral("%1: larger than %2 bytes").arg(url).arg(mostBytes);
    return resultTooLarge;
}

bool CheckTransfer::isInterrupted()
{
    return QThread::currentThread()->isInterruptionRequested();
}

bool CheckTransfer::goOn(qint64 received, qint64 total, void* user)
{
    Q_UNUSED(total)
    return static_cast<CheckTransfer*>(user)->mayGoOn(received);
}

/// Also asked once when all bytes are there and the file has not got its name yet, so no file that
/// is too large ever gets it.
bool CheckTransfer::mayGoOn(qint64 received)
{
    if (received > m_mostBytes)
        m_tooLarge = true;
    if (m_tooLarge || isInterrupted())
        return false;
    if (!m_willCancel)
        return true;
    if (!m_seenCancel) {
        m_seenCancel = true;
        m_cancelSeen = Clock::now();
    }
    return Clock::now() - m_cancelSeen < cancelGrace;
}
