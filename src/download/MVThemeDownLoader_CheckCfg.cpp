// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/MVThemeDownLoader_CheckCfg.h"

#include "catalogue/MVThemeMgr.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "download/CheckWorker_ThumbAndGif.h"
#include "download/LogCategories.h"
#include "host/CurWrapper.h"
#include "host/LogL.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>

MVThemeDownLoader_CheckCfg::CatalogueCheckCallback
    MVThemeDownLoader_CheckCfg::m_funCatalogueCheckEnded;
MVThemeDownLoader_CheckCfg::PreviewRunCallback MVThemeDownLoader_CheckCfg::m_funPreviewRunEnded;

MVThemeDownLoader_CheckCfg* MVThemeDownLoader_CheckCfg::instance()
{
    static MVThemeDownLoader_CheckCfg coordinator;
    return &coordinator;
}

MVThemeDownLoader_CheckCfg::MVThemeDownLoader_CheckCfg()
{
    // Created first, so destroyed last: until they are joined, the threads use the catalogue and
    // the process-wide state of the transfers.
    MVThemeMgr::init();
    const CurWrapper firstTransfer;
    connect(&m_thread_CfgAndDisplayXML, &QThread::finished, this,
            &MVThemeDownLoader_CheckCfg::onCatalogueThreadFinished);
}

MVThemeDownLoader_CheckCfg::~MVThemeDownLoader_CheckCfg()
{
    qRemovePostRoutine(&MVThemeDownLoader_CheckCfg::beforeApplicationGoes);
    endThreads();
    delete m_pWorker;
    delete m_pWorker_ThumbAndGif;
    for (const Leaving& leaving : std::as_const(m_vecLeaving))
        delete leaving.worker.data(); // whose thread could no longer delete it
}

void MVThemeDownLoader_CheckCfg::endThreads()
{
    m_cancelCheck.cancel();
    m_cancelPreviews.cancel();
    for (Leaving& leaving : m_vecLeaving)
        leaving.cancel.cancel();
    m_thread_CfgAndDisplayXML.quit();
    m_thread_ThumbAndGif.quit();
    m_thread_CfgAndDisplayXML.wait();
    m_thread_ThumbAndGif.wait();
}

/// Qt cannot start a thread once the application object is destroyed, so both are joined before.
void MVThemeDownLoader_CheckCfg::startThread(QThread& thread)
{
    qRemovePostRoutine(&MVThemeDownLoader_CheckCfg::beforeApplicationGoes); // registered only once
    qAddPostRoutine(&MVThemeDownLoader_CheckCfg::beforeApplicationGoes);
    thread.start();
}

void MVThemeDownLoader_CheckCfg::beforeApplicationGoes()
{
    instance()->endThreads();
}

void MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback(CatalogueCheckCallback callback)
{
    m_funCatalogueCheckEnded = std::move(callback);
}

void MVThemeDownLoader_CheckCfg::setPreviewRunCallback(PreviewRunCallback callback)
{
    m_funPreviewRunEnded = std::move(callback);
}

/// Creates the worker of a run and starts its thread; logs and returns false while one is running.
template <class Worker>
bool MVThemeDownLoader_CheckCfg::begin(Worker*& worker, QThread& thread, CancelToken& cancel,
                                       int level, const char* busy)
{
    if (worker) {
        LogL(LogCategories::coordinator, level, busy);
        return false;
    }
    cancel = CancelToken();
    worker = new Worker(cancel);
    worker->moveToThread(&thread);
    connectWorker(worker);
    startThread(thread);
    return true;
}

/// Releases the worker of an ended run. Its thread deletes it, unless that has ended, too.
template <class Worker>
void MVThemeDownLoader_CheckCfg::leave(Worker*& worker, const CancelToken& cancel, const char* text)
{
    if (!worker)
        return;
    disconnect(worker);
    m_vecLeaving.erase(std::remove_if(m_vecLeaving.begin(), m_vecLeaving.end(),
                                      [](const Leaving& other) { return !other.worker; }),
                       m_vecLeaving.end());
    m_vecLeaving.append({worker, cancel}); // before the thread may delete it
    worker->deleteLater();
    worker = nullptr;
    LogL(LogCategories::coordinator, 1, text);
}

template <class Worker>
void MVThemeDownLoader_CheckCfg::cancel(Worker* worker, const char* text)
{
    if (!worker)
        return;
    LogL(LogCategories::coordinator, 1, text);
    worker->cancel();
}

template <class Worker>
void MVThemeDownLoader_CheckCfg::passProgressOn(Worker* worker, ProgressSignal signal)
{
    worker->setProgressCallback([this, signal](const SUpdateProgress& progress) {
        QMetaObject::invokeMethod(
            this, [this, signal, progress] { emit(this->*signal)(progress); },
            Qt::QueuedConnection);
    });
}

bool MVThemeDownLoader_CheckCfg::startDownloadXML()
{
    if (!begin(m_pWorker, m_thread_CfgAndDisplayXML, m_cancelCheck, 2,
               "MVThemeDownLoader_CheckCfg startDownloadXML, but it is downloading!"))
        return false;
    emit sig_startDownloadXML(QStringLiteral("start!"));
    LogL(LogCategories::coordinator, 2,
         "MVThemeDownLoader_CheckCfg startDownloadXML, download start!");
    return true;
}

void MVThemeDownLoader_CheckCfg::connectWorker(CheckWorker_CfgAndDisplayXML* worker)
{
    connect(this, &MVThemeDownLoader_CheckCfg::sig_startDownloadXML, worker,
            &CheckWorker_CfgAndDisplayXML::onStartDownloadXML);
    // A check can send several end signals. A late one must not end the next check.
    connect(worker, &CheckWorker_CfgAndDisplayXML::sig_endDownloadXML, this,
            [this, check = ++m_nCheck](bool ok) {
                if (check == m_nCheck)
                    onEndDownloadXML(ok);
                else
                    startDownloadThumbAndGif();
            });
    connect(worker, &CheckWorker_CfgAndDisplayXML::sig_NeedUpdateApp, this,
            [this] { emit sig_NeedUpdateApp(); });
    worker->setResultCallback([this](const SCatalogueCheckResult& result) {
        QMetaObject::invokeMethod(
            this,
            [this, result] {
                // A copy: the host may replace the function while it runs.
                if (const CatalogueCheckCallback callback = m_funCatalogueCheckEnded)
                    callback(result);
                emit sig_catalogueChecked(result);
            },
            Qt::QueuedConnection);
    });
    passProgressOn(worker, &MVThemeDownLoader_CheckCfg::sig_checkProgress);
}

bool MVThemeDownLoader_CheckCfg::startDownloadThumbAndGif()
{
    if (!begin(m_pWorker_ThumbAndGif, m_thread_ThumbAndGif, m_cancelPreviews, 1,
               "m_pWorker_ThumbAndGif startDownloadThumbAndGif, but it is downloading!"))
        return false;
    emit sig_startDownloadThumbAndGif(QStringLiteral("start!"));
    LogL(LogCategories::coordinator, 1,
         "MVThemeDownLoader_CheckCfg sig_startDownloadThumbAndGif, download start!");
    return true;
}

void MVThemeDownLoader_CheckCfg::connectWorker(CheckWorker_ThumbAndGif* worker)
{
    connect(this, &MVThemeDownLoader_CheckCfg::sig_startDownloadThumbAndGif, worker,
            &CheckWorker_ThumbAndGif::onStartDownload_ThumbAndGif);
    // Written before the end signal is posted, read when it arrives.
    const auto result = std::make_shared<SPreviewRunResult>();
    worker->setResultCallback([result](const SPreviewRunResult& ended) { *result = ended; });
    connect(worker, &CheckWorker_ThumbAndGif::sig_endDownload_ThumbAndGif, this,
            [this, result](bool ok) {
                onEndDownloadThumbAndGif(ok);
                // A copy: the host may replace the function while it runs.
                if (const PreviewRunCallback callback = m_funPreviewRunEnded)
                    callback(*result);
                emit sig_previewsFetched(*result);
            });
    passProgressOn(worker, &MVThemeDownLoader_CheckCfg::sig_previewsProgress);
}

void MVThemeDownLoader_CheckCfg::onEndDownloadXML(bool)
{
    if (m_thread_CfgAndDisplayXML.isRunning()) {
        m_bQuitting = true;
        m_thread_CfgAndDisplayXML.quit();
    }
    leave(m_pWorker, m_cancelCheck,
          "MVThemeDownLoader_CheckCfg CheckCfgWorker onFinished! m_pWorker->deleteLater();");
    startDownloadThumbAndGif();
}

/// A check that started while the thread was finishing found it running, so it could not start it.
void MVThemeDownLoader_CheckCfg::onCatalogueThreadFinished()
{
    if (m_bQuitting && m_pWorker)
        startThread(m_thread_CfgAndDisplayXML);
    m_bQuitting = false;
}

void MVThemeDownLoader_CheckCfg::onEndDownloadThumbAndGif(bool)
{
    leave(m_pWorker_ThumbAndGif, m_cancelPreviews,
          "MVThemeDownLoader_CheckCfg onEndDownloadThumbAndGif onFinished! "
          "m_pWorker_ThumbAndGif->deleteLater();");
}

void MVThemeDownLoader_CheckCfg::cancelCfgAndDisplayXML()
{
    cancel(m_pWorker,
           "MVThemeDownLoader_CheckCfg start call "
           "MVThemeDownLoader_CheckCfg::cancelCfgAndDisplayXML()");
    m_cancelCheck.cancel(); // a check that has announced a failed file may still fetch the other
}

void MVThemeDownLoader_CheckCfg::cancelThumbAndGif()
{
    cancel(m_pWorker_ThumbAndGif,
           "MVThemeDownLoader_CheckCfg start call MVThemeDownLoader_CheckCfg::cancelThumbAndGif()");
}

void MVThemeDownLoader_CheckCfg::waitThreadFinished()
{
    LogL(LogCategories::coordinator, 1,
         "MVThemeDownLoader_CheckCfg start call MVThemeDownLoader_CheckCfg::waitThreadFinished()");
    m_bQuitting = false; // a thread that was finishing is not restarted either
    for (QThread* const thread : {&m_thread_CfgAndDisplayXML, &m_thread_ThumbAndGif}) {
        if (thread->isRunning()) {
            thread->quit();
            thread->wait();
        }
    }
    LogL(LogCategories::coordinator, 1,
         "MVThemeDownLoader_CheckCfg end call MVThemeDownLoader_CheckCfg::waitThreadFinished()");
}
