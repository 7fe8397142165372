// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SCatalogueCheckResult.h"
#include "download/SPreviewRunResult.h"
#include "download/SUpdateProgress.h"
#include "host/CancelToken.h"
#include "records/MvResourceExport.h"

#include <QObject>
#include <QPointer>
#include <QThread>
#include <QVector>

#include <functional>

class CheckWorker_CfgAndDisplayXML;
class CheckWorker_ThumbAndGif;

/// Runs the background work on the catalogue: the check that keeps the catalogue files current, and
/// after every check a run that fetches missing thumbnails and animated previews. Most hosts use
/// CatalogueUpdate, which combines both into one operation with one outcome.
///
/// The host calls startDownloadXML() once its catalogue is loaded. This class never reloads the
/// catalogue: when a check has brought new files, the host calls MVThemeMgr::load(true) once no
/// download or check is in progress. A preview run uses no items of the catalogue, so it may go on.
///
/// One object per process. It belongs to the thread that first calls instance(), usually the GUI's:
/// that thread needs an event loop, makes all calls and receives all signals and callbacks. The
/// work is done on two separate threads. When the QCoreApplication is destroyed it cancels the work
/// and joins both, within a second; it does so again at the end of the process, for exit() with a
/// living application object.
class MVRESOURCE_EXPORT MVThemeDownLoader_CheckCfg : public QObject
{
    Q_OBJECT

public:
    /// Takes the outcome of a check.
    using CatalogueCheckCallback = std::function<void(const SCatalogueCheckResult&)>;
    /// Takes the outcome of a preview run.
    using PreviewRunCallback = std::function<void(const SPreviewRunResult&)>;

    /// Returns the object of this process. The first call creates it, for the calling thread.
    static MVThemeDownLoader_CheckCfg* instance();

    ~MVThemeDownLoader_CheckCfg() override;

    /// Sets the callback invoked once per check with its outcome, including a check that sends no
    /// end signal because the server's version file announces no checksums. An empty function
    /// removes it.
    static void setCatalogueCheckCallback(CatalogueCheckCallback callback);
    /// Sets the callback invoked once per preview run with its outcome. The run has ended by then:
    /// the callback may start the next. An empty function removes it.
    static void setPreviewRunCallback(PreviewRunCallback callback);

    /// Starts a catalogue check; returns false while one is in progress. A check that sends no end
    /// signal counts as in progress for the rest of the process.
    bool startDownloadXML();
    /// Starts a preview run; returns false while one is in progress.
    bool startDownloadThumbAndGif();

    /// Returns whether a check is in progress.
    bool isChecking() const { return m_pWorker; }
    /// Returns whether a preview run is in progress.
    bool isFetchingPreviews() const { return m_pWorker_ThumbAndGif; }

    /// Asks the check in progress to stop; it reports its end within 200 ms, unless it is reading
    /// or copying files. To end a check together with the previews that follow it, also call
    /// cancelThumbAndGif() on sig_startDownloadThumbAndGif().
    void cancelCfgAndDisplayXML();
    /// Asks the preview run in progress to stop, in the same way.
    void cancelThumbAndGif();

    /// Ends both threads and waits, without a limit, until their runs have ended. Cancel them first
    /// to shorten the wait. The event loop delivers the ends afterwards; a run that its thread has
    /// not begun stays in progress until its thread is started again.
    void waitThreadFinished();

    /// Acts on the end of a check, whatever the value.
    void onEndDownloadXML(bool);
    /// Acts on the end of a preview run.
    void onEndDownloadThumbAndGif(bool);

signals:
    /// Starts the worker of a catalogue check.
    void sig_startDownloadXML(const QString&);
    /// Declared for hosts; never emitted.
    void sig_endDownloadXML(bool);
    /// The server's catalogue needs a newer application; nothing was fetched.
    void sig_NeedUpdateApp();
    /// Starts the worker of a preview run.
    void sig_startDownloadThumbAndGif(const QString&);

    /// Reports the outcome of a check, after its callback.
    void sig_catalogueChecked(const SCatalogueCheckResult&);
    /// Reports the outcome of a preview run, after its callback.
    void sig_previewsFetched(const SPreviewRunResult&);
    /// Reports the progress of the check, at most every 50 ms: the version file and the two
    /// catalogue files.
    void sig_checkProgress(const SUpdateProgress&);
    /// Reports the progress of a preview run, at most every 50 ms: the pictures of all items.
    void sig_previewsProgress(const SUpdateProgress&);

private:
    /// A worker that was told to end, and its token: after an early end signal it may still be
    /// working.
    struct Leaving
    {
        QPointer<QObject> worker;
        CancelToken cancel;
    };

    MVThemeDownLoader_CheckCfg();

    using ProgressSignal = void (MVThemeDownLoader_CheckCfg::*)(const SUpdateProgress&);

    // Both kinds of runs have the same life cycle.
    template <class Worker>
    bool begin(Worker*& worker, QThread& thread, CancelToken& cancel, int level, const char* busy);
    template <class Worker>
    void passProgressOn(Worker* worker, ProgressSignal signal);
    template <class Worker>
    static void cancel(Worker* worker, const char* text);
    template <class Worker>
    void leave(Worker*& worker, const CancelToken& cancel, const char* text);

    void connectWorker(CheckWorker_CfgAndDisplayXML* worker);
    void connectWorker(CheckWorker_ThumbAndGif* worker);
    void onCatalogueThreadFinished();
    void startThread(QThread& thread);
    void endThreads();
    static void beforeApplicationGoes();

    CheckWorker_CfgAndDisplayXML* m_pWorker = nullptr;
    QThread m_thread_CfgAndDisplayXML;
    CheckWorker_ThumbAndGif* m_pWorker_ThumbAndGif = nullptr;
    QThread m_thread_ThumbAndGif;

    static CatalogueCheckCallback m_funCatalogueCheckEnded;
    static PreviewRunCallback m_funPreviewRunEnded;

    CancelToken m_cancelCheck;    // of the last check started
    CancelToken m_cancelPreviews; // of the last preview run started
    quint64 m_nCheck = 0;     // number of the current check: signals of earlier ones may be late
    bool m_bQuitting = false; // the catalogue thread was told to end but has not yet done so
    QVector<Leaving> m_vecLeaving;
};
