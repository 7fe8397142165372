#include "BackgroundCheck.h"

#include "download/MVThemeDownLoader_CheckCfg.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace {

constexpr int longestEnd = 1700; // ms
constexpr int cancelEvery = 50;  // ms

} // namespace

BackgroundCheck::BackgroundCheck(QObject* parent)
    : QObject(parent)
{
    MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback(
        [this](const SCatalogueCheckResult& result) { noteCheck(result); });
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback(
        [this](const SPreviewRunResult& result) { notePreviews(result); });
    connect(MVThemeDownLoader_CheckCfg::instance(),
            &MVThemeDownLoader_CheckCfg::sig_startDownloadThumbAndGif, this,
            [this] { setPhase(Phase::Previews); });
}

BackgroundCheck::~BackgroundCheck()
{
    MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback({});
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback({});
}

void BackgroundCheck::start()
{
    if (m_phase != Phase::Idle || m_ending)
        return;
    m_refused = !MVThemeDownLoader_CheckCfg::instance()->startDownloadXML();
    if (m_refused) {
        emit changed();
        return;
    }
    m_hasResult = false;
    m_previews = SPreviewRunResult();
    setPhase(Phase::Catalogue);
}

void BackgroundCheck::cancel()
{
    MVThemeDownLoader_CheckCfg::instance()->cancelCfgAndDisplayXML();
    MVThemeDownLoader_CheckCfg::instance()->cancelThumbAndGif();
}

void BackgroundCheck::shutDown()
{
    m_ending = true;
    QElapsedTimer time;
    time.start();
    // Again and again: a worker that has not begun yet forgets that it was cancelled, and the end
    // of a check starts the previews' run.
    while (m_phase != Phase::Idle && !time.hasExpired(longestEnd)) {
        cancel();
        QEventLoop loop;
        QTimer::singleShot(cancelEvery, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (m_phase == Phase::Idle)
        MVThemeDownLoader_CheckCfg::instance()->waitThreadFinished();
}

void BackgroundCheck::setPhase(Phase phase)
{
    m_phase = phase;
    emit changed();
}

void BackgroundCheck::noteCheck(const SCatalogueCheckResult& result)
{
    m_result = result;
    m_hasResult = true;
    m_arrived = m_arrived || result.m_eEnd == eCatalogueCheck_Changed;
    // Not every check is followed by a run; where one follows, its start changes the phase.
    setPhase(Phase::Idle);
}

void BackgroundCheck::notePreviews(const SPreviewRunResult& result)
{
    m_previews = result;
    m_arrived = m_arrived || result.m_nFetched > 0;
    if (m_phase == Phase::Previews)
        setPhase(Phase::Idle);
    // After the coordinator has heard of the end, too.
    QMetaObject::invokeMethod(this, &BackgroundCheck::announceContent, Qt::QueuedConnection);
}

void BackgroundCheck::announceContent()
{
    // A check that was started meanwhile brings a run, at whose end this comes again.
    if (!m_arrived || m_ending || m_phase != Phase::Idle)
        return;
    m_arrived = false;
    MVThemeDownLoader_CheckCfg::instance()->waitThreadFinished(); // has only to return
    emit contentArrived();
}
