// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CatalogueUpdate.h"

#include "download/MVThemeDownLoader_CheckCfg.h"
#include "host/HostSettings.h"

#include <QEventLoop>
#include <QPointer>
#include <QRandomGenerator>

#include <chrono>

namespace {

using Coordinator = MVThemeDownLoader_CheckCfg;

// With the host's other work at exit, this stays below the two seconds that people accept.
constexpr std::chrono::milliseconds maxShutDown{1700};

} // namespace

CatalogueUpdate::CatalogueUpdate(QObject* parent)
    : QObject(parent)
{
    m_wait.setSingleShot(true);
    connect(&m_wait, &QTimer::timeout, this, &CatalogueUpdate::endWait);
    Coordinator* const coordinator = Coordinator::instance();
    connect(coordinator, &Coordinator::sig_NeedUpdateApp, this, [this] {
        if (isRunning() && !m_isShutDown)
            emit appUpdateNeeded();
    });
    connect(coordinator, &Coordinator::sig_checkProgress, this,
            [this](const auto& progress) { noteProgress(Phase::Catalogue, progress); });
    connect(coordinator, &Coordinator::sig_previewsProgress, this,
            [this](const auto& progress) { noteProgress(Phase::Previews, progress); });
    connect(coordinator, &Coordinator::sig_catalogueChecked, this, &CatalogueUpdate::noteCheck);
    connect(coordinator, &Coordinator::sig_startDownloadThumbAndGif, this,
            &CatalogueUpdate::notePreviewsStarted);
    connect(coordinator, &Coordinator::sig_previewsFetched, this, &CatalogueUpdate::notePreviews);
}

CatalogueUpdate::Phase CatalogueUpdate::phase() const
{
    switch (m_state) {
    case State::New:
    case State::Refused:
    case State::Finished:
        break;
    case State::Waiting:
    case State::CancellingWait:
        return Phase::Waiting;
    case State::Checking:
    case State::CancellingCheck:
        return Phase::Catalogue;
    case State::FetchingPreviews:
    case State::CancellingPreviews:
        return Phase::Previews;
    }
    return Phase::Idle;
}

bool CatalogueUpdate::isCancelling() const
{
    return m_state == State::CancellingWait || m_state == State::CancellingCheck
        || m_state == State::CancellingPreviews;
}

bool CatalogueUpdate::start()
{
    return !isRunning() && !m_isShutDown && begin();
}

bool CatalogueUpdate::startSpread()
{
    if (isRunning() || isWaiting() || m_isShutDown)
        return false;
    const std::chrono::milliseconds spread =
        std::chrono::seconds(hostSettings().checkSpreadSeconds);
    if (spread.count() <= 0)
        return begin();
    enter(State::Waiting);
    m_wait.start(QRandomGenerator::global()->bounded(static_cast<int>(spread.count()) + 1));
    announcePhase();
    return true;
}

bool CatalogueUpdate::begin()
{
    m_wait.stop();
    m_result = SCatalogueUpdateResult();
    enter(State::Checking); // before the coordinator emits signals
    const bool isAccepted = Coordinator::instance()->startDownloadXML();
    if (!isAccepted)
        enter(State::Refused);
    announcePhase();
    return isAccepted;
}

void CatalogueUpdate::cancel()
{
    if (isWaiting()) {
        enter(State::CancellingWait);
        m_wait.start(0);
    }
    if (!isRunning())
        return;
    enter(phase() == Phase::Catalogue ? State::CancellingCheck : State::CancellingPreviews);
    Coordinator::instance()->cancelCfgAndDisplayXML();
    Coordinator::instance()->cancelThumbAndGif();
}

bool CatalogueUpdate::shutDown()
{
    m_isShutDown = true;
    cancel();
    if (isWaiting())
        endWait();
    if (!isRunning())
        return true;
    QEventLoop loop;
    QTimer::singleShot(maxShutDown, &loop, &QEventLoop::quit);
    connect(Coordinator::instance(), &Coordinator::sig_catalogueChecked, &loop, [this, &loop] {
        if (!isRunning())
            loop.quit();
    });
    connect(Coordinator::instance(), &Coordinator::sig_previewsFetched, &loop, [this, &loop] {
        if (!isRunning())
            loop.quit();
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return !isRunning();
}

void CatalogueUpdate::enter(State state)
{
    const Phase left = phase();
    m_state = state;
    if (phase() != left)
        m_progress = SUpdateProgress();
}

void CatalogueUpdate::announcePhase()
{
    if (!m_isShutDown)
        emit phaseChanged(phase());
}

void CatalogueUpdate::noteProgress(Phase phase, const SUpdateProgress& progress)
{
    if (phase != this->phase() || m_isShutDown)
        return;
    m_progress = progress;
    emit progressed(m_progress);
}

void CatalogueUpdate::noteCheck(const SCatalogueCheckResult& check)
{
    if (phase() != Phase::Catalogue)
        return;
    m_result.m_check = check;
    m_result.m_bContentArrived |= check.m_eEnd == eCatalogueCheck_Changed;
    enter(isCancelling() ? State::CancellingPreviews : State::FetchingPreviews);
    announcePhase();
    const QPointer<CatalogueUpdate> self(this); // a receiver may destroy it
    if (m_result.m_bContentArrived && hostSettings().showWithoutPreviews && !m_isShutDown)
        emit contentArrived();
    if (!self)
        return;
    if (check.m_bPreviewsFollow)
        return; // also after previews beside the check
    if (m_state == State::FetchingPreviews)
        Coordinator::instance()->startDownloadThumbAndGif();
    finishIfOver();
}

/// Previews can begin before the check has ended: after one catalogue file fails, the check still
/// tries the other one.
void CatalogueUpdate::notePreviewsStarted()
{
    if (isCancelling())
        Coordinator::instance()->cancelThumbAndGif();
}

void CatalogueUpdate::notePreviews(const SPreviewRunResult& previews)
{
    if (!isRunning())
        return;
    const int fetchedBefore = m_result.m_previews.m_nFetched; // by a run during the check
    m_result.m_previews = previews;
    m_result.m_previews.m_nFetched += fetchedBefore;
    m_result.m_bContentArrived |= previews.m_nFetched > 0;
    finishIfOver();
}

void CatalogueUpdate::finishIfOver()
{
    const Coordinator& coordinator = *Coordinator::instance();
    const bool isChecking = m_result.m_check.m_bPreviewsFollow && coordinator.isChecking();
    if (phase() != Phase::Previews || isChecking || coordinator.isFetchingPreviews())
        return;
    m_result.m_eEnd = end();
    finish();
}

/// Ends the wait: the update begins, unless it was cancelled.
void CatalogueUpdate::endWait()
{
    if (!isCancelling()) {
        begin();
        return;
    }
    m_result = SCatalogueUpdateResult();
    m_result.m_check.m_eEnd = eCatalogueCheck_Cancelled;
    m_result.m_eEnd = eCatalogueUpdate_Cancelled;
    finish();
}

void CatalogueUpdate::finish()
{
    m_wait.stop();
    enter(State::Finished);
    const SCatalogueUpdateResult result = m_result; // a receiver may start the next update
    announcePhase();
    if (m_isShutDown)
        return;
    const QPointer<CatalogueUpdate> self(this); // a receiver may destroy it
    if (result.m_bContentArrived && !hostSettings().showWithoutPreviews)
        emit contentArrived();
    if (self)
        emit finished(result);
}

ECatalogueUpdateEnd CatalogueUpdate::end() const
{
    const ECatalogueCheckEnd check = m_result.m_check.m_eEnd;
    if (isCancelling() || check == eCatalogueCheck_Cancelled
        || m_result.m_previews.m_eEnd == ePreviewRun_Cancelled)
        return eCatalogueUpdate_Cancelled;
    if (check != eCatalogueCheck_Changed && check != eCatalogueCheck_Current)
        return eCatalogueUpdate_Failed;
    const bool isMissing =
        m_result.m_previews.m_nFailed > 0 || m_result.m_previews.m_eEnd == ePreviewRun_NoCatalogue;
    return isMissing ? eCatalogueUpdate_PreviewsMissing : eCatalogueUpdate_Complete;
}
