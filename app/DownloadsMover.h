// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "DownloadsMove.h"
#include "host/CancelToken.h"
#include "WorkQueue.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

class QProgressDialog;
class QTimer;

/// Asks the user whether the downloads should follow to a new download folder, and moves them
/// behind a window that shows the progress and can cancel. The files are moved by a thread of its
/// own; all calls and signals are the GUI thread's.
class DownloadsMover : public QObject
{
    Q_OBJECT

public:
    /// The questions belong to `window`, which must outlive this object.
    explicit DownloadsMover(QWidget* window);
    ~DownloadsMover() override;

    /// Asks, unless the old folder is empty; one of begun() and declined() follows. While
    /// downloads run (`isBusy`), the user can only leave the files where they are.
    void offer(const QString& from, const QString& to, bool isBusy);
    /// Ends a move after brought(): the originals are removed if the new folder is used from now
    /// on, otherwise what was brought.
    void finish(bool isUsed);

signals:
    /// The files stay where they are.
    void declined();
    /// The move has begun; brought() or failed() follows.
    void begun();
    /// Both folders hold all files: the receiver uses the new one and calls finish().
    void brought(const QString& folder);
    /// Nothing has changed: the user has cancelled (an empty reason), or why not.
    void failed(const QString& reason);
    /// The move has ended; some files of the old folder may not have been removed.
    void moved(int filesLeft);

private:
    struct Progress;

    bool isWanted(const QString& from, const QString& to, bool isBusy) const;
    void begin(const QString& from, const QString& to);
    void showProgress();
    void end(const QString& to, DownloadsMove::End end);

    QWidget* m_window;
    QPointer<QProgressDialog> m_dialog;
    QTimer* m_looking;
    std::shared_ptr<DownloadsMove> m_move;
    std::shared_ptr<Progress> m_progress; // of m_move
    CancelToken m_cancel;
    WorkQueue m_queue;
};
