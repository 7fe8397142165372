#include "BackgroundCheck.h"

#include "download/MVThemeDownLoader_CheckCfg.h"

#include <QEventLoop>
#include <QTimer>

namespace {

constexpr int longestEnd = 1700; // ms

} // namespace

BackgroundCheck::BackgroundCheck(QObject* parent)
    : QObject(parent)
{
    MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback(
        [this](const SCatalogueCheckResult& result) { noteCheck(result); });
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback(
        [this](const SPreviewRunResult& result) { notePreviews(result); });
    // Previews can come before the check has ended: where one catalogue file fails, it tries the
    // other meanwhile.
    connect(MVThemeDownLoader_CheckCfg::instance(),
            &MVThemeDownLoader_CheckCfg::sig_startDownloadThumbAndGif, this, [this] {
                m_previewsRun = true;
                if (m_cancelled)
                    MVThemeDownLoader_CheckCfg::instance()->cancelThumbAndGif();
                emit changed();
            });
}

BackgroundCheck::~BackgroundCheck()
{
    MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback({});
    MVThemeDownLoader_CheckCfg::setPreviewRunCallback({});
}

BackgroundCheck::Phase BackgroundCheck::phase() const
{
    if (m_checkRuns)
        return Phase::Catalogue;
    return m_previewsRun ? Phase::Previews : Phase::Idle;
}

void BackgroundCheck::start()
{
    if (phase() != Phase::Idle || m_ending)
        return;
    m_refused = !MVThemeDownLoader_CheckCfg::instance()->startDownloadXML();
    if (!m_refused) {
        m_cancelled = false;
        m_checkRuns = true;
        m_hasResult = false;
        m_previews = SPreviewRunResult();
    }
    emit changed();
}

void BackgroundCheck::cancel()
{
    if (phase() == Phase::Idle)
        return;
    m_cancelled = true;
    MVThemeDownLoader_CheckCfg::instance()->cancelCfgAndDisplayXML();
    MVThemeDownLoader_CheckCfg::instance()->cancelThumbAndGif();
}

void BackgroundCheck::shutDown()
{
    m_ending = true;
    cancel();
    QEventLoop loop;
    QTimer::singleShot(longestEnd, &loop, &QEventLoop::quit);
    connect(this, &BackgroundCheck::changed, &loop, [this, &loop] {
        if (phase() == Phase::Idle)
            loop.quit();
    });
    if (phase() != Phase::Idle)
        loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void BackgroundCheck::noteCheck(const SCatalogueCheckResult& result)
{
    m_result = result;
    m_hasResult = true;
    m_arrived = m_arrived || result.m_eEnd == eCatalogueCheck_Changed;
    m_checkRuns = false;
    m_previewsRun = m_previewsRun || result.m_bPreviewsFollow;
    emit changed();
    announceContent();
}

void BackgroundCheck::notePreviews(const SPreviewRunResult& result)
{
    const int fetchedBefore = m_previews.m_nFetched; // by a run beside the check
    m_previews = result;
    m_previews.m_nFetched += fetchedBefore;
    m_arrived = m_arrived || result.m_nFetched > 0;
    m_previewsRun = false;
    emit changed();
    announceContent();
}

void BackgroundCheck::announceContent()
{
    if (!m_arrived || m_ending || phase() != Phase::Idle)
        return;
    m_arrived = false;
    emit contentArrived();
}
