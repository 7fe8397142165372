// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/CurWrapper.h"

#include "host/SPublishedContent.h"
#include "host/TransferPool.h"

#include <utility>

class CurWrapper::Private
{
public:
    void run(TransferPool::Job job);

    ProgressCallback callback = nullptr;
    void* user = nullptr;
    STransferOutcome outcome;
    TransferPool pool{1};
};

void CurWrapper::Private::run(TransferPool::Job job)
{
    if (callback) {
        job.progress = [this](qint64 received, qint64 total) {
            return callback(received, total, user);
        };
    }
    job.ended = [this](const STransferOutcome& ended) { outcome = ended; };
    pool.start(std::move(job));
    while (pool.isBusy())
        pool.step();
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
    TransferPool::Job job;
    job.url = url;
    job.file = file;
    job.resume = resume;
    d->run(std::move(job));
}

void CurWrapper::downloadIfChanged(const QString& url, const QString& file,
                                   const SValidators& known)
{
    TransferPool::Job job;
    job.url = url;
    job.file = file;
    job.known = known;
    d->run(std::move(job));
}

void CurWrapper::downloadPublished(const QString& url, const QString& file,
                                   const QString& contentUrl, const SPublishedContent& published)
{
    TransferPool::Job job;
    job.url = url;
    job.file = file;
    job.contentUrl = contentUrl;
    job.published = published;
    d->run(std::move(job));
}

const STransferOutcome& CurWrapper::outcome() const
{
    return d->outcome;
}

int CurWrapper::result() const
{
    return d->outcome.m_eResult;
}

STransferFailure CurWrapper::failure() const
{
    return d->outcome.m_failure;
}

QString CurWrapper::errorText() const
{
    return d->outcome.m_failure.m_qsDetails;
}

void CurWrapper::cancel()
{
    d->pool.cancel();
}
