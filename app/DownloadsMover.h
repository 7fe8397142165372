// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "DownloadsMove.h"
#include "host/CancelToken.h"
#include "WorkQueue.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
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

    /// Asks, unless the old folder is empty or both are one; one of begun(), declined() and
    /// stayed() follows. While downloads run (`isBusy`) or files are moved, the user can only leave
    /// the files where they are.
    void offer(const QString& from, const QString& to, const std::function<bool()>& isBusy);
    /// Ends a move after brought(), when the new folder is in use: removes the originals; moved()
    /// follows.
    void finish();
    /// Ends a move after brought(), when the new folder cannot be used: removes what was brought;
    /// failed() follows.
    void giveUp(const QString& reason);
    /// Returns whether a move has begun and not ended.
    bool isMoving() const { return m_state != State::Idle; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The files stay where they are.
    void declined();
    /// Both are one folder.
    void stayed();
    /// The move has begun; brought() or failed() follows.
    void begun();
    /// Both folders hold all files: the receiver uses the new one and calls finish(), or giveUp().
    void brought(const QString& folder);
    /// Nothing has changed: the user has cancelled (an empty reason), or why not.
    void failed(const QString& reason);
    /// The move has ended; some files of the old folder may not have been removed.
    void moved(int filesLeft);

private:
    struct Progress;
    enum class State { Idle, Bringing, Ending };

    bool isWanted(const QString& from, const QString& to, bool isBusy) const;
    void begin(const QString& from, const QString& to);
    void showDialog();
    void showProgress();
    void cancel();
    void endBringing(const QString& to, DownloadsMove::End result);
    void end();

    QWidget* m_window;
    State m_state = State::Idle;
    QPointer<QProgressDialog> m_dialog; // unless the state is Idle
    QTimer* m_looking;
    std::shared_ptr<DownloadsMove> m_move;
    std::shared_ptr<Progress> m_progress; // of m_move
    CancelToken m_cancel;
    WorkQueue m_queue;
};
