// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Downloads from a server that sends these answers in turn. The first part is the target's present
// content; unless it is empty, the download resumes it.

#include "AnswerServer.h"
#include "FuzzTarget.h"
#include "host/CurWrapper.h"
#include "host/HostSettings.h"
#include "Parts.h"
#include "Require.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "WriteGuard.h"

#include <QDir>
#include <QFile>

namespace {

constexpr int maxTransferBytes = 64 * 1024;

class TransferTarget : public FuzzTarget
{
public:
    TransferTarget();
    void run(const QByteArray& input) override;

private:
    static bool checkProgress(qint64 received, qint64 total, void*);
    void checkFailure(const STransferFailure& failure, const QByteArray& former) const;
    void checkSuccess(const QByteArray& former, const QList<QByteArray>& answers) const;

    AnswerServer m_server;
    const QString m_folder = TestHome::path() + QStringLiteral("/transfer");
    const QString m_file = m_folder + QStringLiteral("/file");
};

TransferTarget::TransferTarget()
{
    HostSettings& settings = hostSettings();
    // Redirects reach this server, too, whatever host they name.
    settings.proxy = QStringLiteral("http://127.0.0.1:%1").arg(m_server.port());
    settings.connectTimeoutMs = 2000;
    settings.stallTimeoutMs = 2000;
    settings.maxDownloadBytes = maxTransferBytes;
    settings.retryPauseMs = 0;
    settings.retryPauseMaxMs = 1;
}

void TransferTarget::run(const QByteArray& input)
{
    const Parts parts(input);
    const QByteArray former = parts.at(0);
    QList<QByteArray> answers;
    for (int i = 1; i < parts.count(); ++i)
        answers.append(parts.at(i));
    m_server.setAnswers(answers);
    QDir(m_folder).removeRecursively();
    CatalogueFiles::write(m_file, former);

    const WriteGuard guard({m_folder});
    CurWrapper transfer;
    transfer.setDownloadProgressCallback(&checkProgress, nullptr);
    transfer.download(QStringLiteral("http://server.example/file"), m_file, !former.isEmpty());
    const QStringList entries =
        QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    require(entries == QStringList(QStringLiteral("file")), "nothing is left beside the file");
    const STransferFailure failure = transfer.failure();
    require(failure.isFailure() == (transfer.result() != eTransfer_Success),
            "a download succeeds or fails", transfer.errorText());
    if (failure.isFailure())
        checkFailure(failure, former);
    else
        checkSuccess(former, answers);
}

bool TransferTarget::checkProgress(qint64 received, qint64 total, void*)
{
    require(received >= 0 && total >= 0, "progress is not negative");
    require(total == 0 || received <= total, "no more is received than comes in all",
            QStringLiteral("%1 of %2").arg(received).arg(total));
    return true;
}

void TransferTarget::checkFailure(const STransferFailure& failure, const QByteArray& former) const
{
    require(!failure.m_qsDetails.isEmpty(), "a failure has a reason");
    require(CatalogueFiles::read(m_file) == former, "a failure leaves what was there");
}

void TransferTarget::checkSuccess(const QByteArray& former, const QList<QByteArray>& answers) const
{
    const QByteArray content = CatalogueFiles::read(m_file);
    require(content.size() <= maxTransferBytes, "no more than is allowed is stored");
    require(!answers.isEmpty(), "a file comes from an answer");
    const bool isPlain = answers.size() == 1 && !answers.constFirst().toLower().contains("chunked");
    if (!isPlain)
        return;
    const bool isRest = content.startsWith(former) && !former.isEmpty();
    require(answers.constFirst().contains(content)
                || (isRest && answers.constFirst().contains(content.mid(former.size()))),
            "a file holds what was sent");
}

} // namespace

MV_FUZZ_TARGET(TransferTarget, QCoreApplication)
