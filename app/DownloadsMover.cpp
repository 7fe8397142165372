// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsMover.h"

#include <QDir>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include <atomic>
#include <utility>

/// The numbers of a running move, which its thread writes.
struct DownloadsMover::Progress
{
    std::atomic<qint64> doneBytes{0};
    std::atomic<qint64> totalBytes{0};
};

DownloadsMover::DownloadsMover(QWidget* window)
    : QObject(window)
    , m_window(window)
    , m_looking(new QTimer(this))
    , m_queue(this)
{
    constexpr int lookMs = 100;
    m_looking->setInterval(lookMs);
    connect(m_looking, &QTimer::timeout, this, &DownloadsMover::showProgress);
}

DownloadsMover::~DownloadsMover()
{
    m_cancel.cancel();
    m_queue.shutDown();
}

void DownloadsMover::offer(const QString& from, const QString& to, bool isBusy)
{
    if (DownloadsMove::holdsAny(from) && isWanted(from, to, isBusy))
        begin(from, to);
    else
        emit declined();
}

bool DownloadsMover::isWanted(const QString& from, const QString& to, bool isBusy) const
{
    QString text = tr("Move the downloads to the new folder?\n\nFrom %1\nto %2")
                       .arg(QDir::toNativeSeparators(from), QDir::toNativeSeparators(to));
    if (isBusy)
        text += QStringLiteral("\n\n")
            + tr("They cannot be moved now, while downloads or a check run.");
    QMessageBox box(QMessageBox::Question, tr("Download folder"), text, QMessageBox::NoButton,
                    m_window);
    box.setTextFormat(Qt::PlainText);
    QPushButton* const move = box.addButton(tr("Move"), QMessageBox::AcceptRole);
    move->setObjectName(QStringLiteral("moveDownloads"));
    move->setEnabled(!isBusy);
    QPushButton* const leave = box.addButton(tr("Leave"), QMessageBox::RejectRole);
    leave->setObjectName(QStringLiteral("leaveDownloads"));
    box.setDefaultButton(isBusy ? leave : move);
    box.setEscapeButton(leave);
    box.exec();
    return box.clickedButton() == move;
}

void DownloadsMover::begin(const QString& from, const QString& to)
{
    m_cancel = CancelToken();
    m_move = std::make_shared<DownloadsMove>(from, to);
    m_progress = std::make_shared<Progress>();
    m_dialog = new QProgressDialog(tr("Moving the downloads…"), tr("Cancel"), 0, 0, m_window);
    m_dialog->setObjectName(QStringLiteral("moveProgress"));
    m_dialog->setWindowTitle(tr("Download folder"));
    m_dialog->setWindowModality(Qt::WindowModal); // no download can be started meanwhile
    m_dialog->setAutoClose(false);
    m_dialog->setAutoReset(false);
    connect(m_dialog, &QProgressDialog::canceled, this, [this] { m_cancel.cancel(); });
    m_dialog->show();
    m_looking->start();
    emit begun();
    auto result = std::make_shared<DownloadsMove::End>();
    WorkQueue::Job job;
    job.prepare = [=](const CancelToken&) -> WorkQueue::Work {
        return [move = m_move, numbers = m_progress, token = m_cancel, result] {
            *result = move->bring(token, [&numbers](qint64 doneBytes, qint64 totalBytes) {
                numbers->totalBytes = totalBytes;
                numbers->doneBytes = doneBytes;
            });
        };
    };
    job.ended = [=](bool) { end(to, *result); };
    m_queue.add(std::move(job));
}

void DownloadsMover::showProgress()
{
    constexpr int steps = 1000; // bytes do not fit into the bar's numbers
    const qint64 total = m_progress->totalBytes;
    if (!m_dialog || m_dialog->wasCanceled() || total == 0)
        return;
    m_dialog->setMaximum(steps);
    m_dialog->setValue(static_cast<int>(m_progress->doneBytes * steps / total));
}

void DownloadsMover::end(const QString& to, DownloadsMove::End end)
{
    m_looking->stop();
    m_dialog->hide();
    m_dialog->deleteLater(); // it may be handling events just now
    m_dialog.clear();
    if (end == DownloadsMove::End::Complete)
        emit brought(to);
    else
        emit failed(m_move->errorText());
}

void DownloadsMover::finish(bool isUsed)
{
    auto filesLeft = std::make_shared<int>(0);
    WorkQueue::Job job;
    job.prepare = [=](const CancelToken&) -> WorkQueue::Work {
        return [move = m_move, isUsed, filesLeft] {
            if (isUsed)
                *filesLeft = move->removeOriginals();
            else
                move->takeBack();
        };
    };
    job.ended = [=](bool) {
        if (isUsed)
            emit moved(*filesLeft);
    };
    m_queue.add(std::move(job));
}
