// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SCatalogueUpdateResult.h"
#include "download/SUpdateProgress.h"
#include "records/MvResourceExport.h"

#include <QObject>
#include <QTimer>

/// Brings the catalogue and its previews up to date, as one operation with a phase, numbers and one
/// outcome. It drives MVThemeDownLoader_CheckCfg, so a host need not know that class.
///
///     connect(&update, &CatalogueUpdate::contentArrived, this, &Window::reloadCatalogue);
///     update.startSpread();
///
/// The object belongs to the thread of MVThemeDownLoader_CheckCfg, usually the GUI's, which makes
/// all calls and receives all signals; it needs an event loop. When finished() is emitted, nothing
/// uses the catalogue files any more. Destroying the object lets a running update continue without
/// reports, and a waiting one never begins; shutDown() ends both.
class MVRESOURCE_EXPORT CatalogueUpdate : public QObject
{
    Q_OBJECT

public:
    /// The check of the catalogue files comes first, then the previews. startSpread() puts Waiting
    /// before them, in which nothing is requested.
    enum class Phase { Idle, Catalogue, Previews, Waiting };
    Q_ENUM(Phase)

    /// Creates an idle object; start() or startSpread() begins.
    explicit CatalogueUpdate(QObject* parent = nullptr);

    /// Starts an update at once, for a user who asks for it; one that waits begins. Returns false
    /// and does nothing while one is running, after shutDown(), and if the coordinator refuses
    /// another check: then isRefused() is true until the process ends.
    bool start();
    /// Starts an update for a program that checks by itself, such as at its start: it waits a
    /// random time of at most HostSettings::checkSpreadSeconds, then does what start() does. If
    /// that is refused, phaseChanged(Idle) is emitted and isRefused() becomes true. Returns false
    /// and does nothing while an update is waiting, and as start() does; with a spread of 0 it is
    /// start().
    bool startSpread();
    /// Cancels the waiting or running update, including a phase that has not begun. finished()
    /// follows within 200 ms, unless files are being read or copied.
    void cancel();
    /// Cancels and waits for the end, for at most 1.7 s, in an event loop without user input. No
    /// signals are emitted afterwards and no update can be started. Returns whether nothing is
    /// running.
    bool shutDown();

    /// Returns the phase of the update; Idle before the first and after each.
    Phase phase() const;
    /// Returns whether an update is checking or fetching; one that waits is not running.
    bool isRunning() const { return phase() == Phase::Catalogue || phase() == Phase::Previews; }
    /// Returns whether an update of startSpread() waits to begin.
    bool isWaiting() const { return phase() == Phase::Waiting; }
    /// Returns whether the coordinator has refused the last update, see start().
    bool isRefused() const { return m_state == State::Refused; }
    /// Returns the progress of the phase; zeros while no update is running.
    const SUpdateProgress& progress() const { return m_progress; }
    /// Returns whether an update has finished; false again while the next one waits or runs.
    bool hasResult() const { return m_state == State::Finished; }
    /// Returns the outcome of the last finished update. The check's result is valid from the phase
    /// Previews on.
    const SCatalogueUpdateResult& result() const { return m_result; }

signals:
    /// The update has entered this phase.
    void phaseChanged(CatalogueUpdate::Phase phase);
    /// The numbers of the phase have changed; emitted at most every 50 ms.
    void progressed(const SUpdateProgress& progress);
    /// The server's catalogue needs a newer application; none of it was fetched.
    void appUpdateNeeded();
    /// New files are in the download tree: the host should reload the catalogue. Emitted at most
    /// once per update: before finished() or, if HostSettings::showWithoutPreviews is true, as soon
    /// as a new catalogue has been stored; the previews that follow then replace the placeholders
    /// of their items without a reload.
    void contentArrived();
    /// The update has ended. The last signal of an update, emitted once per update that was not
    /// refused; a start() that ends a wait starts no other update.
    void finished(const SCatalogueUpdateResult& result);

private:
    enum class State {
        New,     // no update has been started
        Refused, // the coordinator refused the last start
        Waiting,
        CancellingWait,
        Checking,
        CancellingCheck,  // the previews that follow will be cancelled, too
        FetchingPreviews, // or waiting for the run to begin
        CancellingPreviews,
        Finished,
    };

    bool begin();
    void endWait();
    bool isCancelling() const;
    void enter(State state);
    void announcePhase();
    void noteProgress(Phase phase, const SUpdateProgress& progress);
    void noteCheck(const SCatalogueCheckResult& check);
    void notePreviewsStarted();
    void notePreviews(const SPreviewRunResult& previews);
    void finishIfOver();
    void finish();
    ECatalogueUpdateEnd end() const;

    State m_state = State::New;
    bool m_isShutDown = false; // for good, whatever the state: no signals, no further update
    SUpdateProgress m_progress;
    SCatalogueUpdateResult m_result;
    QTimer m_wait; // its timeout ends the wait, also a cancelled one
};
