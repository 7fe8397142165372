// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemeItemWdg.h"

#include "browser/CellEvents.h"
#include "browser/CellMarks.h"
#include "browser/CheckedMark.h"
#include "browser/LastChoice.h"
#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "download/MVThemeDownLoader.h"
#include "host/HostSettings.h"
#include "ui_MVThemeItemWdg.h"

#include <QContextMenuEvent>
#include <QEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QToolButton>

#include <utility>

namespace {

/// Returns whether a click applies or downloads items. Without leftButtonOnly the button is not
/// asked for.
bool isActing(const QEvent& click)
{
    return !hostSettings().leftButtonOnly
        || static_cast<const QMouseEvent&>(click).button() == Qt::LeftButton;
}

} // namespace

MVThemeItemWdg::ItemCallback MVThemeItemWdg::m_cbItemClicked;
MVThemeItemWdg::ItemCallback MVThemeItemWdg::m_cbItemDownloaded;
MVThemeItemWdg::FailureCallback MVThemeItemWdg::m_cbItemFailed;
MVThemeItemWdg::EndCallback MVThemeItemWdg::m_cbItemEnded;
bool MVThemeItemWdg::s_bPlayedByHover = true;

MVThemeItemWdg::MVThemeItemWdg(QWidget* parent)
    : QFrame(parent)
    , m_pUi(std::make_unique<Ui::MVThemeItemWdg>())
{
    m_pUi->setupUi(this);
    m_pUi->stackedWidget->addPages();
    ensurePolished();
    m_pUi->MVThemeItemWdgBg->installEventFilter(this);
    connect(m_pUi->frmShow->getBtnDownload(), &QToolButton::clicked, this,
            &MVThemeItemWdg::doApplyTheme);
    connect(m_pUi->frmShow, &MVThemeItemSubwdgt_Preview::sigCancelDownLoad, this,
            &MVThemeItemWdg::cancelDownload);
}

MVThemeItemWdg::~MVThemeItemWdg()
{
    endDownload();
    delete m_pDownLoader;
}

void MVThemeItemWdg::setCbItemClicked(ItemCallback callback)
{
    m_cbItemClicked = std::move(callback);
}

void MVThemeItemWdg::setCbItemDownloaded(ItemCallback callback)
{
    m_cbItemDownloaded = std::move(callback);
}

void MVThemeItemWdg::setCbItemFailed(FailureCallback callback)
{
    m_cbItemFailed = std::move(callback);
}

void MVThemeItemWdg::setCbItemEnded(EndCallback callback)
{
    m_cbItemEnded = std::move(callback);
}

void MVThemeItemWdg::setItem(const SCfg_Item* item)
{
    // The record belongs to the catalogue, which modifies it on the user's behalf.
    m_pItem = const_cast<SCfg_Item*>(item);
    if (m_pItem)
        setAccessibleName(m_pItem->m_qsName);
    m_pUi->frmShow->setItem(m_pItem);
    connect(m_pUi->frmShow, &MVThemeItemSubwdgt_Preview::sigDownLoad, this,
            &MVThemeItemWdg::onDownLoad);
}

void MVThemeItemWdg::setSel(MVThemeItemWdg* w)
{
    if (!m_pItem)
        return;
    if (m_ppCurSel) {
        if (*m_ppCurSel)
            showChecked(*m_ppCurSel, false);
        *m_ppCurSel = w;
    }
    if (w)
        showChecked(w, true);
}

void MVThemeItemWdg::setCurText(bool cur)
{
    m_pUi->frmShow->setCurText(cur);
}

bool MVThemeItemWdg::isChecked() const
{
    return property("IsChecked").toBool();
}

void MVThemeItemWdg::adjustItem()
{
    m_pUi->frmShow->adjustItem();
}

void MVThemeItemWdg::resetItemData()
{
    m_pUi->frmShow->resetItemData();
}

void MVThemeItemWdg::showArrivedPictures()
{
    m_pUi->frmShow->showArrivedPictures();
}

void MVThemeItemWdg::doApplyTheme()
{
    if (!m_pItem)
        return;
    m_nChoice = LastChoice::note(m_pItem->m_eType);
    if (ItemFiles::needsAny(*m_pItem)) {
        m_pUi->frmShow->startDownLoad();
        return;
    }
    if (!isVisible())
        return;
    // From here on a receiver may clear the list, and with it this cell.
    SCfg_Item* const item = m_pItem;
    const ItemCallback callback = m_cbItemClicked;
    setSel(this);
    CellEvents::post(&CellEvents::itemApplied, item);
    emit sigThemeItemClicked(item);
    if (callback)
        callback(item);
}

void MVThemeItemWdg::onDownLoad(SCfg_Item* item)
{
    m_pUi->frmShow->setDownLoadErrorText(eDownLoadError_None);
    if (!item || m_pDownLoader)
        return;
    m_pDownLoader = new MVThemeDownLoader(nullptr); // owned by itself and this widget
    connect(m_pDownLoader, &MVThemeDownLoader::progress, this, &MVThemeItemWdg::onProgress);
    connect(m_pDownLoader, &MVThemeDownLoader::sigDownloadFinish, this,
            &MVThemeItemWdg::onDownloadFinish);
    connect(m_pDownLoader, &QThread::finished, m_pDownLoader, &QObject::deleteLater);
    m_pDownLoader->download(item);
}

void MVThemeItemWdg::onDownloadFinish(EMVThemeDownLoadError result)
{
    SItemDownloadResult outcome;
    if (m_pDownLoader)
        outcome = m_pDownLoader->outcome();
    m_pDownLoader = nullptr;
    if (!m_pItem)
        return;
    SCfg_Item* const item = m_pItem;
    const ItemCallback downloaded = m_cbItemDownloaded;
    const FailureCallback failed = m_cbItemFailed;
    const EndCallback ended = m_cbItemEnded;
    CellEvents::postEnd(*item, outcome);
    if (m_bDeletedAfterDownload)
        deleteLater();
    const bool isCancelled = outcome.m_eEnd == eItemDownload_Cancelled;
    m_pUi->frmShow->setDownLoadErrorText(isCancelled ? eDownLoadError_None : result);
    m_pUi->frmShow->setItemDownload(item);
    emit errorChanged();
    // A mouse that has stayed over the cell causes no enter event.
    if (m_pUi->MVThemeItemWdgBg->underMouse()) {
        if (s_bPlayedByHover)
            m_pUi->frmShow->startPlayGif();
        m_pUi->frmShow->doEvent_Enter();
    }
    if ((!hostSettings().lastChoiceWins || isLastChoice()) && !ItemFiles::needsAny(*item))
        doApplyTheme();
    // From here on a callback may have destroyed this cell.
    if (ended)
        ended(item, outcome);
    if (failed && outcome.m_eEnd == eItemDownload_Failed)
        failed(item, outcome.m_failure.m_qsDetails);
    if (downloaded)
        downloaded(item);
}

void MVThemeItemWdg::onProgress(double percent)
{
    const int before = this->percent();
    m_pUi->frmShow->onProgress(percent);
    if (m_pItem && this->percent() != before)
        emit progressed(m_pItem->m_qsGUID, this->percent());
}

int MVThemeItemWdg::percent() const
{
    return static_cast<int>(qBound(0.0, m_pUi->frmShow->progress(), 100.0));
}

qint64 MVThemeItemWdg::receivedBytes() const
{
    return m_pDownLoader ? m_pDownLoader->receivedBytes() : 0;
}

void MVThemeItemWdg::setMarks(std::function<SCellState()> state)
{
    delete m_pMarks;
    if (state && m_pItem)
        m_pMarks = new CellMarks(m_pUi->frmShow, std::move(state));
}

void MVThemeItemWdg::updateMarks()
{
    if (m_pMarks)
        m_pMarks->invalidate();
}

void MVThemeItemWdg::setCrossOnHover(bool shown)
{
    m_pUi->frmShow->setCrossOnHover(shown);
}

void MVThemeItemWdg::onCollect(SCfg_Item* item)
{
    Q_UNUSED(item)
}

void MVThemeItemWdg::activate()
{
    if (m_pItem)
        doApplyTheme();
    else if (m_pUi->frmShow->isMore())
        m_pUi->frmShow->onBtnMore();
}

void MVThemeItemWdg::toggleFavourite()
{
    if (m_pItem && !ItemFiles::needsAny(*m_pItem))
        m_pUi->frmShow->onBtnCollect();
}

void MVThemeItemWdg::togglePreview()
{
    if (!m_pItem)
        return;
    if (m_pUi->frmShow->isPlaying())
        m_pUi->frmShow->stopPlayGif();
    else
        m_pUi->frmShow->startPlayGif();
}

bool MVThemeItemWdg::isPlaying() const
{
    return m_pUi->frmShow->isPlaying();
}

EMVThemeDownLoadError MVThemeItemWdg::shownError() const
{
    return m_pUi->frmShow->downLoadError();
}

void MVThemeItemWdg::showError(EMVThemeDownLoadError error)
{
    m_pUi->frmShow->setDownLoadErrorText(error);
}

void MVThemeItemWdg::cancelDownload()
{
    if (m_pDownLoader)
        m_pDownLoader->cancel();
}

void MVThemeItemWdg::resumeDownload()
{
    if (m_pItem && ItemFiles::needsAny(*m_pItem))
        m_pUi->frmShow->startDownLoad();
}

bool MVThemeItemWdg::isLastChoice() const
{
    return m_pItem && m_nChoice != 0 && LastChoice::isLast(m_pItem->m_eType, m_nChoice);
}

/// Its end signal will not reach the cell any more.
void MVThemeItemWdg::endDownload()
{
    if (!m_pDownLoader)
        return;
    m_pDownLoader->cancel();
    m_pDownLoader->wait();
    if (m_pItem)
        CellEvents::postEnd(*m_pItem, m_pDownLoader->outcome());
}

void MVThemeItemWdg::tryStopDownloadThread()
{
    if (!m_pDownLoader)
        return;
    endDownload();
    m_pDownLoader = nullptr;
    releaseItem();
    if (m_bDeletedAfterDownload)
        deleteLater();
}

void MVThemeItemWdg::releaseItem()
{
    m_pItem = nullptr;
    m_pUi->frmShow->releaseItem();
}

void MVThemeItemWdg::onClick(const QEvent& click)
{
    if (std::exchange(m_bDoubleClicked, false) || !isActing(click))
        return;
    if (m_eApplyOn == EApplyOn::DoubleClickOrEnter)
        emit previewRequested(m_pItem);
    else
        doApplyTheme();
}

/// Returns whether the second press of a double click has a meaning of its own.
bool MVThemeItemWdg::onDoubleClick(const QEvent& click)
{
    if (m_eApplyOn != EApplyOn::DoubleClickOrEnter || !isActing(click))
        return false;
    m_bDoubleClicked = true;
    doApplyTheme();
    return true;
}

bool MVThemeItemWdg::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_pItem || watched != m_pUi->MVThemeItemWdgBg)
        return QFrame::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonRelease:
        onClick(*event);
        return true;
    case QEvent::MouseButtonDblClick:
        return onDoubleClick(*event) || QFrame::eventFilter(watched, event);
    case QEvent::ContextMenu:
        if (!hostSettings().leftButtonOnly)
            return QFrame::eventFilter(watched, event);
        emit contextMenuWanted(m_pItem, static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    case QEvent::Enter: {
        // Updates the item's paths from the disk.
        ItemFiles::needsAny(*m_pItem);
        if (s_bPlayedByHover)
            m_pUi->frmShow->startPlayGif();
        m_pUi->frmShow->doEvent_Enter();
        updateMarks();
        return true;
    }
    case QEvent::Leave:
        m_pUi->frmShow->stopPlayGif();
        m_pUi->frmShow->doEvent_Leave();
        return true;
    default:
        return QFrame::eventFilter(watched, event);
    }
}
