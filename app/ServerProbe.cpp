// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ServerProbe.h"

#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "download/ReleasePaths.h"
#include "download/SRelease.h"
#include "download/VersionFile.h"
#include "host/CurWrapper.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace {

/// Returns the name of the version file below a server's address, for the edition of the product.
QString versionName()
{
    const QString address =
        CheckWorker_CfgAndDisplayXML().getSerThemeXMLPath(EType_XML_resource_version_xml);
    QString name = address.mid(CheckWorker_CfgAndDisplayXML::getSerThemeRootDir().size());
    while (name.startsWith(QLatin1Char('/')))
        name.remove(0, 1);
    return name;
}

/// Fetches small files of one server into a temporary folder.
class Fetcher
{
public:
    explicit Fetcher(CancelToken cancel)
        : m_cancel(std::move(cancel))
    {
        m_wrapper.setDownloadProgressCallback(&Fetcher::goOn, this);
    }

    bool fetch(const QString& url, qint64 maxBytes)
    {
        m_maxBytes = maxBytes;
        if (!m_cancel.isCancelled() && m_folder.isValid())
            m_wrapper.download(url, file(), false);
        return m_wrapper.result() == eTransfer_Success && !m_cancel.isCancelled();
    }
    QString file() const { return m_folder.filePath(QStringLiteral("fetched")); }
    STransferFailure failure() const { return m_wrapper.failure(); }

private:
    static bool goOn(qint64 received, qint64 /*total*/, void* user)
    {
        const auto* const self = static_cast<const Fetcher*>(user);
        return received <= self->m_maxBytes && !self->m_cancel.isCancelled();
    }

    CancelToken m_cancel;
    QTemporaryDir m_folder;
    CurWrapper m_wrapper;
    qint64 m_maxBytes = 0;
};

ServerProbe::Result ask(const QString& address, const QString& version, const CancelToken& cancel)
{
    ServerProbe::Result result;
    result.address = address;
    Fetcher fetcher(cancel);
    if (fetcher.fetch(address + ReleasePaths::release(), SRelease::maxBytes)) {
        QFile file(fetcher.file());
        SRelease release;
        QString error;
        if (file.open(QIODevice::ReadOnly)
            && SRelease::parse(file.read(SRelease::maxBytes), release, error))
            result.published = release.m_published;
    } else if (fetcher.failure().m_eCause == eFailure_Unreachable) {
        result.failure = fetcher.failure();
        return result;
    }
    if (!fetcher.fetch(address + version, VersionFile::maxBytes)) {
        result.failure = fetcher.failure();
        return result;
    }
    SCatalogueVersion found;
    VersionFile::read(fetcher.file(), found);
    result.isFound = found.bLoadXMLOK && found.number() > 0;
    result.version = found.m_qsVersion;
    return result;
}

} // namespace

ServerProbe::ServerProbe(QObject* parent)
    : QObject(parent)
    , m_queue(this)
{
}

ServerProbe::~ServerProbe()
{
    cancel();
    m_queue.shutDown();
}

void ServerProbe::start(const QString& address)
{
    cancel();
    m_cancel = CancelToken();
    auto result = std::make_shared<Result>();
    const CancelToken token = m_cancel;
    WorkQueue::Job job;
    job.prepare = [=](const CancelToken&) -> WorkQueue::Work {
        if (token.isCancelled())
            return {};
        return [=, version = versionName()] { *result = ask(address, version, token); };
    };
    job.ended = [=](bool) {
        if (!token.isCancelled())
            emit finished(*result);
    };
    m_queue.add(std::move(job));
}

void ServerProbe::cancel()
{
    m_cancel.cancel();
}
