#include "download/MVThemeDownLoader_CheckCfg.h"

#include "catalogue/MVThemeMgr.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "download/CheckWorker_ThumbAndGif.h"
#include "host/CurWrapper.h"
#include "host/LogL.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>

namespace {

constexpr char category[] = "MVThemeDownLoader";

} // namespace

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
    // Created first, so destroyed last: the threads use the catalogue until they are joined, and
    // what the transfers initialise for the whole process.
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
        delete leaving.worker.data(); // one whose thread was not there any more to delete it
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

/// A thread of Qt's cannot come up once the application object has gone, so both are joined before.
void MVThemeDownLoader_CheckCfg::startThread(QThread& thread)
{
    qRemovePostRoutine(&MVThemeDownLoader_CheckCfg::beforeApplicationGoes); // called once only
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

bool MVThemeDownLoader_CheckCfg::startDownloadXML()
{
    if (m_pWorker) {
        LogL(category, 2, "MVThemeDownLoader_CheckCfg startDownloadXML, but it is downloading!");
        return false;
    }
    m_cancelCheck = CancelToken();
    m_pWorker = new CheckWorker_CfgAndDisplayXML(m_cancelCheck);
    m_pWorker->moveToThread(&m_thread_CfgAndDisplayXML);
    connectWorker(m_pWorker);
    startThread(m_thread_CfgAndDisplayXML);
    emit sig_startDownloadXML(QStringLiteral("start!"));
    LogL(category, 2, "MVThemeDownLoader_CheckCfg startDownloadXML, download start!");
    return true;
}

void MVThemeDownLoader_CheckCfg::connectWorker(CheckWorker_CfgAndDisplayXML* worker)
{
    connect(this, &MVThemeDownLoader_CheckCfg::sig_startDownloadXML, worker,
            &CheckWorker_CfgAndDisplayXML::onStartDownloadXML);
    // A check can send several end signals. One that is still under way when the next check has
    // started must not end that one.
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
    worker->setProgressCallback([this](const SUpdateProgress& progress) {
        QMetaObject::invokeMethod(
            this, [this, progress] { emit sig_checkProgress(progress); }, Qt::QueuedConnection);
    });
}

bool MVThemeDownLoader_CheckCfg::startDownloadThumbAndGif()
{
    if (m_pWorker_ThumbAndGif) {
        LogL(category, 1, "m_pWorker_ThumbAndGif startDownloadThumbAndGif, but it is downloading!");
        return false;
    }
    m_cancelPreviews = CancelToken();
    m_pWorker_ThumbAndGif = new CheckWorker_ThumbAndGif(m_cancelPreviews);
    m_pWorker_ThumbAndGif->moveToThread(&m_thread_ThumbAndGif);
    connectWorker(m_pWorker_ThumbAndGif);
    startThread(m_thread_ThumbAndGif);
    emit sig_startDownloadThumbAndGif(QStringLiteral("start!"));
    LogL(category, 1, "MVThemeDownLoader_CheckCfg sig_startDownloadThumbAndGif, download start!");
    return true;
}

void MVThemeDownLoader_CheckCfg::connectWorker(CheckWorker_ThumbAndGif* worker)
{
    connect(this, &MVThemeDownLoader_CheckCfg::sig_startDownloadThumbAndGif, worker,
            &CheckWorker_ThumbAndGif::onStartDownload_ThumbAndGif);
    // Written before the end signal is posted, read when it has come.
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
    worker->setProgressCallback([this](const SUpdateProgress& progress) {
        QMetaObject::invokeMethod(
            this, [this, progress] { emit sig_previewsProgress(progress); }, Qt::QueuedConnection);
    });
}

void MVThemeDownLoader_CheckCfg::onEndDownloadXML(bool)
{
    if (m_thread_CfgAndDisplayXML.isRunning()) {
        m_bQuitting = true;
        m_thread_CfgAndDisplayXML.quit();
    }
    if (m_pWorker) {
        leave(m_pWorker, m_cancelCheck);
        m_pWorker = nullptr;
        LogL(category, 1,
             "MVThemeDownLoader_CheckCfg CheckCfgWorker onFinished! m_pWorker->deleteLater();");
    }
    startDownloadThumbAndGif();
}

/// A check that was started while the thread was on its way out found it running, so it could not
/// start it.
void MVThemeDownLoader_CheckCfg::onCatalogueThreadFinished()
{
    if (m_bQuitting && m_pWorker)
        startThread(m_thread_CfgAndDisplayXML);
    m_bQuitting = false;
}

void MVThemeDownLoader_CheckCfg::onEndDownloadThumbAndGif(bool)
{
    if (!m_pWorker_ThumbAndGif)
        return;
    leave(m_pWorker_ThumbAndGif, m_cancelPreviews);
    m_pWorker_ThumbAndGif = nullptr;
    LogL(category, 1,
         "MVThemeDownLoader_CheckCfg onEndDownloadThumbAndGif onFinished! "
         "m_pWorker_ThumbAndGif->deleteLater();");
}

/// The worker's thread deletes it, unless it has ended meanwhile.
void MVThemeDownLoader_CheckCfg::leave(QObject* worker, const CancelToken& cancel)
{
    disconnect(worker);
    m_vecLeaving.erase(std::remove_if(m_vecLeaving.begin(), m_vecLeaving.end(),
                                      [](const Leaving& other) { return !other.worker; }),
                       m_vecLeaving.end());
    m_vecLeaving.append({worker, cancel}); // before the thread may delete it
    worker->deleteLater();
}

void MVThemeDownLoader_CheckCfg::cancelCfgAndDisplayXML()
{
    if (m_pWorker) {
        LogL(category, 1,
             "MVThemeDownLoader_CheckCfg start call "
             "MVThemeDownLoader_CheckCfg::cancelCfgAndDisplayXML()");
        m_pWorker->cancel();
    }
    m_cancelCheck.cancel(); // a check that has announced a failed file may still fetch the other
}

void MVThemeDownLoader_CheckCfg::cancelThumbAndGif()
{
    if (!m_pWorker_ThumbAndGif)
        return;
    LogL(category, 1,
         "MVThemeDownLoader_CheckCfg start call MVThemeDownLoader_CheckCfg::cancelThumbAndGif()");
    m_pWorker_ThumbAndGif->cancel();
}

void MVThemeDownLoader_CheckCfg::waitThreadFinished()
{
    LogL(category, 1,
         "MVThemeDownLoader_CheckCfg start call MVThemeDownLoader_CheckCfg::waitThreadFinished()");
    m_bQuitting = false; // nor does a thread that was on its way out come back
    for (QThread* const thread : {&m_thread_CfgAndDisplayXML, &m_thread_ThumbAndGif}) {
        if (thread->isRunning()) {
            thread->quit();
            thread->wait();
        }
    }
    LogL(category, 1,
         "MVThemeDownLoader_CheckCfg end call MVThemeDownLoader_CheckCfg::waitThreadFinished()");
}
