#include "host/CurWrapper.h"

#include "host/TransferPool.h"

class CurWrapper::Private
{
public:
    ProgressCallback callback = nullptr;
    void* user = nullptr;
    STransferOutcome outcome;
    TransferPool pool{1};
};

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
    if (d->callback) {
        job.progress = [callback = d->callback, user = d->user](qint64 received, qint64 total) {
            return callback(received, total, user);
        };
    }
    job.ended = [this](const STransferOutcome& outcome) { d->outcome = outcome; };
    d->pool.start(std::move(job));
    while (d->pool.isBusy())
        d->pool.step();
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
