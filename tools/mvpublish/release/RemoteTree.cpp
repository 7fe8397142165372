// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/RemoteTree.h"

#include "host/ContentDigest.h"
#include "host/TransferPool.h"
#include "release/TreeBytes.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace {

constexpr int sideBySide = 6; // as HostSettings::recommended() fetches files

/// Returns whether the outcome says something about the network or this computer rather than about
/// the tree.
bool isElsewhere(EFailureCause cause)
{
    switch (cause) {
    case eFailure_DiskFull:
    case eFailure_NoPermission:
    case eFailure_LocalFile:
    case eFailure_Unreachable:
    case eFailure_ConnectionLost:
    case eFailure_BadAddress:
        return true;
    default:
        return false;
    }
}

} // namespace

/// The state of one call of compare().
struct RemoteTree::Comparison
{
    TransferPool& pool;
    const Progress& progress;
    QVector<Deviation> deviations;
    qint64 doneBytes = 0;
    int started = 0;
};

RemoteTree::RemoteTree(const QString& root, const CancelToken& cancel)
    : m_root(root)
    , m_cancel(cancel)
{
    while (m_root.endsWith(QLatin1Char('/')))
        m_root.chop(1);
    if (!m_folder.isValid())
        m_failure = QStringLiteral("there is no temporary folder: ") + m_folder.errorString();
}

QString RemoteTree::addressOf(const QString& name) const
{
    return m_root + QLatin1Char('/') + QString::fromLatin1(QUrl::toPercentEncoding(name, "/"));
}

/// Remembers a failure that makes all results worthless.
bool RemoteTree::isFailure(const STransferOutcome& outcome)
{
    const STransferFailure& failure = outcome.m_failure;
    if (m_failure.isEmpty() && m_cancel.isCancelled())
        m_failure = QStringLiteral("interrupted");
    else if (m_failure.isEmpty() && isElsewhere(failure.m_eCause))
        m_failure = failure.m_qsDetails;
    return !m_failure.isEmpty();
}

void RemoteTree::step(TransferPool& pool) const
{
    pool.step();
    if (m_waiting)
        m_waiting();
}

void RemoteTree::wait(TransferPool& pool) const
{
    while (pool.isBusy())
        step(pool);
}

PublishedTree::Document RemoteTree::read(const QString& name, qint64 maxBytes)
{
    Document document;
    if (!m_failure.isEmpty())
        return document;
    const QString file = m_folder.filePath(QStringLiteral("document"));
    bool isTooLarge = false;
    STransferOutcome outcome;
    TransferPool pool(1, m_cancel);
    TransferPool::Job job;
    job.url = addressOf(name);
    job.file = file;
    job.progress = [&isTooLarge, maxBytes](qint64 received, qint64 total) {
        isTooLarge = received > maxBytes || total > maxBytes;
        return !isTooLarge;
    };
    job.ended = [&outcome](const STransferOutcome& ended) { outcome = ended; };
    pool.start(std::move(job));
    wait(pool);
    QString error;
    if (isTooLarge)
        document.reason = QStringLiteral("has more than %1 bytes").arg(maxBytes);
    else if (isFailure(outcome) || outcome.m_failure.m_eCause == eFailure_NotOnServer)
        return document;
    else if (outcome.m_failure.isFailure())
        document.reason = QStringLiteral("cannot be fetched: ") + outcome.m_failure.causeText();
    else if (!TreeBytes::read(file, maxBytes, document.bytes, &error))
        document.reason = error;
    document.state =
        document.reason.isEmpty() ? Document::State::Present : Document::State::Unusable;
    QFile::remove(file);
    return document;
}

QVector<PublishedTree::Deviation> RemoteTree::compare(const QVector<Expected>& files,
                                                      const Progress& progress)
{
    TransferPool pool(sideBySide, m_cancel);
    Comparison comparison{pool, progress, {}, 0, 0};
    for (const Expected& expected : files) {
        while (!pool.hasRoom())
            step(pool);
        if (!m_failure.isEmpty())
            break;
        start(comparison, expected);
    }
    wait(pool);
    return comparison.deviations;
}

void RemoteTree::start(Comparison& comparison, const Expected& expected)
{
    const QString file = m_folder.filePath(QString::number(comparison.started++));
    TransferPool::Job job;
    job.url = addressOf(expected.name);
    job.file = file;
    // Nobody needs the rest of a file that is too large.
    job.progress = [expected](qint64 received, qint64) { return received <= expected.sizeBytes; };
    job.ended = [this, &comparison, expected, file](const STransferOutcome& outcome) {
        end(comparison, expected, file, outcome);
    };
    comparison.pool.start(std::move(job));
}

void RemoteTree::end(Comparison& comparison, const Expected& expected, const QString& file,
                     const STransferOutcome& outcome)
{
    const STransferFailure& failure = outcome.m_failure;
    if (isFailure(outcome))
        return;
    const auto deviate = [&](bool isMissing, const QString& reason) {
        comparison.deviations.append({expected.name, isMissing, reason});
    };
    if (failure.m_eCause == eFailure_NotOnServer)
        deviate(true, QStringLiteral("is missing"));
    else if (failure.m_eCause == eFailure_Cancelled)
        deviate(false,
                QStringLiteral("has more than the %1 bytes that it has in the release")
                    .arg(expected.sizeBytes));
    else if (failure.isFailure())
        deviate(false, QStringLiteral("cannot be fetched: ") + failure.causeText());
    else if (QFileInfo(file).size() != expected.sizeBytes)
        deviate(false, otherSize(QFileInfo(file).size(), expected.sizeBytes));
    else if (ContentDigest::ofFile(file) != expected.digest)
        deviate(false, otherContent());
    QFile::remove(file);
    comparison.doneBytes += expected.sizeBytes;
    if (comparison.progress)
        comparison.progress(comparison.doneBytes);
}
