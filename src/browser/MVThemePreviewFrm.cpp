// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemePreviewFrm.h"

#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/TzResourceMgr.h"
#include "host/widgets/PictureDecoder.h"
#include "records/FileView.h"
#include "ui_MVThemePreviewFrm.h"

#include <QFile>
#include <QStyle>

namespace {

constexpr const char* logCategory = "MVThemePreviewFrm";
constexpr double maxUnscaledZoom = 1.25;

} // namespace

QMovie* MVThemePreviewFrm::s_pMovie = nullptr;

MVThemePreviewFrm::MVThemePreviewFrm(QWidget* parent)
    : QFrame(parent)
    , m_pUi(std::make_unique<Ui::MVThemePreviewFrm>())
{
    m_pUi->setupUi(this);
    m_pUi->stackedWidget->addPages();
    ensurePolished();
}

MVThemePreviewFrm::~MVThemePreviewFrm()
{
    if (s_pMovie == &m_movie)
        s_pMovie = nullptr;
    // The label outlives the movie that it shows.
    m_pUi->lblGif->setMovie(nullptr);
}

void MVThemePreviewFrm::setItemData(const SCfg_Item* item)
{
    m_pItem = item;
    if (!m_pItem)
        return;
    m_pUi->frmPic->setPlaceholderShown(hostSettings().showWithoutPreviews);
    m_pUi->frmPic->setImagePath(FileView(m_pItem->m_info_Thumb).file());
    // A download may have created the file since it was last looked for.
    if (m_pUi->frmPic->isEmpty())
        m_pUi->frmPic->setIsEmpty(true);
    setMoviePath(FileView(m_pItem->m_info_Gif).file());
}

void MVThemePreviewFrm::setMoviePath(QString path)
{
    if (!QFile::exists(path))
        path = TzResourceMgr::instance()->testOutputDir() + QLatin1String("/testskin")
            + QLatin1String("/Simple.gif");
    // A movie that gets a new file while playing stops for good.
    const bool wasPlaying = isPlaying();
    m_movie.stop();
    m_qsMoviePath = path;
    m_movie.setFileName(path);
    m_movie.setCacheMode(QMovie::CacheNone);
    QSize scaled; // invalid: the animation's own size
    const double zoom = TzResourceMgr::getZoomDPI();
    if (zoom > maxUnscaledZoom) {
        const QSize size = PictureDecoder::announcedSize(path).expandedTo(QSize(0, 0));
        scaled = {qRound(size.width() * zoom), qRound(size.height() * zoom)};
    }
    m_movie.setScaledSize(scaled);
    m_pUi->lblGif->setMovie(&m_movie);
    if (wasPlaying && isPlayable())
        m_movie.start();
}

void MVThemePreviewFrm::startPlayGif()
{
    if (!isAnimated())
        return;
    if (s_pMovie) {
        LogL(logCategory, 1, "s_pMovie will stop!");
        s_pMovie->stop();
    }
    if (!isPlayable()) {
        LogL(logCategory, 1, "startPlayGif m_movie.isValid() == false!");
        closeMovieFile();
        return;
    }
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pagePreview);
    m_movie.start();
    s_pMovie = &m_movie;
}

void MVThemePreviewFrm::stopPlayGif()
{
    if (!isAnimated())
        return;
    if (!isPlayable()) {
        LogL(logCategory, 1, "stopPlayGif m_movie.isValid() == false!");
        closeMovieFile();
        return;
    }
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageNormal);
    m_movie.stop();
    closeMovieFile();
}

bool MVThemePreviewFrm::isPlaying() const
{
    return m_movie.state() == QMovie::Running;
}

void MVThemePreviewFrm::adjustItem()
{
    if (!m_pItem)
        return;
    m_pUi->frmPic->setIsEmpty(true);
    m_pUi->frmPic->repaint();
}

void MVThemePreviewFrm::resetItemData()
{
    if (!m_pItem)
        return;
    // The record belongs to the catalogue, which alone modifies it.
    auto& item = const_cast<SCfg_Item&>(*m_pItem);
    MVThemeMgr::init()->doItem_Info_Thumb(item);
    m_pUi->frmPic->setImagePath(FileView(item.m_info_Thumb).file());
    // The path stays the same if a download creates the file where it was missing.
    m_pUi->frmPic->setIsEmpty(true);
    m_pUi->frmPic->repaint();
}

void MVThemePreviewFrm::showArrivedPictures()
{
    if (!m_pItem)
        return;
    auto& item = const_cast<SCfg_Item&>(*m_pItem);
    MVThemeMgr::init()->doItem_Info_Thumb(item);
    MVThemeMgr::init()->doItem_Info_Gif(item);
    setItemData(m_pItem);
}

void MVThemePreviewFrm::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    // A hidden frame gets no leave event, and nobody sees it play.
    if (isPlaying())
        stopPlayGif();
}

bool MVThemePreviewFrm::event(QEvent* event)
{
    return QFrame::event(event);
}

void MVThemePreviewFrm::closeMovieFile()
{
    // A movie that has been read keeps its file open until it gets another one: a list of a
    // thousand cells would exhaust the process's limit of open files.
    m_movie.setFileName(m_qsMoviePath);
}

bool MVThemePreviewFrm::isPlayable()
{
    // A playing movie already has its decoder; it must stop even if its file has been deleted.
    return isPlaying() || PictureDecoder::prepare(m_movie);
}

bool MVThemePreviewFrm::isAnimated() const
{
    return m_pItem && m_pItem->m_eType != eCfgItem_Filter
        && m_pItem->m_eType != eCfgItem_BgMaterial;
}
