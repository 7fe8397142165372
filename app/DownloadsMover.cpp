// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsMover.h"

#include <QDir>
#include <QEvent>
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

void DownloadsMover::offer(const QString& from, const QString& to,
                           const std::function<bool()>& isBusy)
{
    if (DownloadsMove::isSame(from, to)) {
        emit stayed();
        return;
    }
    if (!DownloadsMove::holdsAny(from)) {
        emit declined();
        return;
    }
    do { // again if something has begun while the user looked at the question
        if (!isWanted(from, to, isMoving() || isBusy())) {
            emit declined();
            return;
        }
    } while (isMoving() || isBusy());
    begin(from, to);
}

bool DownloadsMover::isWanted(const QString& from, const QString& to, bool isBusy) const
{
    QString text = tr("Move the downloads to the new folder?\n\nFrom %1\nto %2")
                       .arg(QDir::toNativeSeparators(from), QDir::toNativeSeparators(to));
    if (isBusy)
        text += QStringLiteral("\n\n")
            + tr("They cannot be moved now, while downloads run, or a check runs or is about to.");
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
    m_state = State::Bringing;
    m_cancel = CancelToken();
    m_move = std::make_shared<DownloadsMove>(from, to);
    m_progress = std::make_shared<Progress>();
    showDialog();
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
    job.ended = [=](bool) { endBringing(to, *result); };
    m_queue.add(std::move(job));
}

/// The dialog stays until the move has ended: no download can be started meanwhile.
void DownloadsMover::showDialog()
{
    m_dialog = new QProgressDialog(tr("Moving the downloads…"), QString(), 0, 0, m_window);
    auto* const cancel = new QPushButton(tr("Cancel"), m_dialog);
    cancel->setObjectName(QStringLiteral("cancelMove"));
    m_dialog->setCancelButton(cancel);
    m_dialog->setObjectName(QStringLiteral("moveProgress"));
    m_dialog->setWindowTitle(tr("Download folder"));
    m_dialog->setWindowModality(Qt::WindowModal);
    m_dialog->setAutoClose(false);
    m_dialog->setAutoReset(false);
    disconnect(m_dialog, &QProgressDialog::canceled, m_dialog, nullptr); // which would hide it
    m_dialog->installEventFilter(this);
    connect(m_dialog, &QProgressDialog::canceled, this, &DownloadsMover::cancel);
    m_dialog->show();
    m_looking->start();
}

/// Closing the dialog cancels.
bool DownloadsMover::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_dialog || event->type() != QEvent::Close)
        return QObject::eventFilter(watched, event);
    event->ignore();
    cancel();
    return true;
}

void DownloadsMover::cancel()
{
    if (m_state != State::Bringing)
        return;
    m_cancel.cancel();
    m_dialog->setLabelText(tr("Cancelling…"));
}

void DownloadsMover::showProgress()
{
    constexpr int steps = 1000; // bytes do not fit into the bar's numbers
    const qint64 total = m_progress->totalBytes;
    if (m_state != State::Bringing || m_cancel.isCancelled() || total == 0)
        return;
    m_dialog->setMaximum(steps);
    m_dialog->setValue(static_cast<int>(m_progress->doneBytes * steps / total));
}

void DownloadsMover::endBringing(const QString& to, DownloadsMove::End result)
{
    m_looking->stop();
    if (result != DownloadsMove::End::Complete) {
        end();
        emit failed(m_move->errorText());
    } else if (m_cancel.isCancelled()) { // after the move has last looked
        giveUp({});
    } else {
        m_state = State::Ending;
        m_dialog->setCancelButton(nullptr);
        emit brought(to);
    }
}

void DownloadsMover::finish()
{
    auto filesLeft = std::make_shared<int>(0);
    WorkQueue::Job job;
    job.prepare = [=](const CancelToken&) -> WorkQueue::Work {
        return [move = m_move, filesLeft] { *filesLeft = move->removeOriginals(); };
    };
    job.ended = [=](bool) {
        end();
        emit moved(*filesLeft);
    };
    m_queue.add(std::move(job));
}

void DownloadsMover::giveUp(const QString& reason)
{
    m_state = State::Ending;
    WorkQueue::Job job;
    job.prepare = [=](const CancelToken&) -> WorkQueue::Work {
        return [move = m_move] { move->takeBack(); };
    };
    job.ended = [=](bool) {
        end();
        emit failed(reason);
    };
    m_queue.add(std::move(job));
}

void DownloadsMover::end()
{
    m_state = State::Idle;
    m_dialog->hide();
    m_dialog->deleteLater(); // it may be handling events just now
    m_dialog.clear();
}
