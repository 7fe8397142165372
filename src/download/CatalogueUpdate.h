#pragma once

#include "download/SCatalogueUpdateResult.h"
#include "download/SUpdateProgress.h"
#include "records/MvResourceExport.h"

#include <QObject>

/// Brings the catalogue and its previews up to date, as one operation with a phase, numbers and one
/// outcome. It drives MVThemeDownLoader_CheckCfg, which a host then need not know.
///
///     connect(&update, &CatalogueUpdate::finished, this, [this](const auto& result) {
///         if (result.m_bContentArrived)
///             reloadCatalogue();
///     });
///     update.start();
///
/// The thread of MVThemeDownLoader_CheckCfg, usually the GUI's, owns the object, makes all calls
/// and receives all signals; it needs an event loop. Nothing works on the catalogue files when
/// finished() comes. Destroying the object lets what runs go on, untold; shutDown() ends it.
class MVRESOURCE_EXPORT CatalogueUpdate : public QObject
{
    Q_OBJECT

public:
    /// The check of the catalogue files comes first, then the previews.
    enum class Phase { Idle, Catalogue, Previews };
    Q_ENUM(Phase)

    explicit CatalogueUpdate(QObject* parent = nullptr);

    /// Starts an update. False, and nothing happens, while one runs, after shutDown(), and where
    /// the coordinator refuses another check: then isRefused() is true until the process ends.
    bool start();
    /// Cancels the update that runs, the phase that has not begun included. finished() comes within
    /// 200 ms, unless files are just being read or copied.
    void cancel();
    /// Cancels and waits for the end, for at most 1.7 s, in an event loop without user input. No
    /// signal comes any more and no update can be started. Returns whether nothing runs.
    bool shutDown();

    Phase phase() const { return m_phase; }
    bool isRunning() const { return m_phase != Phase::Idle; }
    bool isRefused() const { return m_isRefused; }
    /// Returns how far the phase has come; zeros while nothing runs.
    const SUpdateProgress& progress() const { return m_progress; }
    /// Returns whether an update has finished; false again while the next one runs.
    bool hasResult() const { return m_hasResult; }
    /// Returns the outcome of the update that finished last. Its check is known from the phase
    /// Previews on.
    const SCatalogueUpdateResult& result() const { return m_result; }

signals:
    void phaseChanged(CatalogueUpdate::Phase phase);
    /// The numbers of the phase have changed; at most every 50 ms.
    void progressed(const SUpdateProgress& progress);
    /// The server's catalogue needs a newer application; nothing of it was fetched.
    void appUpdateNeeded();
    /// The update has come to its end. Last signal of an update, once per start() that was true.
    void finished(const SCatalogueUpdateResult& result);

private:
    void enter(Phase phase);
    void noteProgress(Phase phase, const SUpdateProgress& progress);
    void noteCheck(const SCatalogueCheckResult& check);
    void notePreviewsStarted();
    void notePreviews(const SPreviewRunResult& previews);
    void finishIfOver();
    ECatalogueUpdateEnd end() const;

    Phase m_phase = Phase::Idle;
    bool m_isRefused = false;
    bool m_hasResult = false;
    bool m_isCancelled = false; // since start(): previews that begin later are cancelled, too
    bool m_isShutDown = false;
    bool m_wantsPreviews = true; // a run has still to come
    SUpdateProgress m_progress;
    SCatalogueUpdateResult m_result;
};
