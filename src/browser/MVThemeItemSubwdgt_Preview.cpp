// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemeItemSubwdgt_Preview.h"

#include "browser/CellEvents.h"
#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "ui_MVThemeItemSubwdgt_Preview.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <QVBoxLayout>

#include <cmath>

namespace {

bool isFavourite(SCfg_Item* item)
{
    return MVThemeMgr::init()->isItemCollect(item);
}

} // namespace

MVThemeItemSubwdgt_Preview::ItemCallback MVThemeItemSubwdgt_Preview::m_cbBtnCollect;
MVThemeItemSubwdgt_Preview::ItemCallback MVThemeItemSubwdgt_Preview::m_cbBtnDownload;
MVThemeItemSubwdgt_Preview::ItemCallback MVThemeItemSubwdgt_Preview::m_cbBtnMore;

MVThemeItemSubwdgt_Preview::MVThemeItemSubwdgt_Preview(QWidget* parent)
    : QFrame(parent)
    , m_eDownloadErr(eDownLoadError_None)
    , m_pUi(std::make_unique<Ui::MVThemeItemSubwdgt_Preview>())
{
    m_pUi->setupUi(this);
    m_pUi->stackedWidget->addPages();
    createOverlay();
    ensurePolished();
    createUI();
    m_pUi->lblIcon->installEventFilter(this);
}

MVThemeItemSubwdgt_Preview::~MVThemeItemSubwdgt_Preview() = default;

void MVThemeItemSubwdgt_Preview::setCbBtnCollect(ItemCallback callback)
{
    m_cbBtnCollect = std::move(callback);
}

void MVThemeItemSubwdgt_Preview::setCbBtnDownload(ItemCallback callback)
{
    m_cbBtnDownload = std::move(callback);
}

void MVThemeItemSubwdgt_Preview::setCbBtnMore(ItemCallback callback)
{
    m_cbBtnMore = std::move(callback);
}

void MVThemeItemSubwdgt_Preview::createUI()
{
    m_pUi->btnDownload->hide();
    m_pUi->btnCollect->hide();
    m_pUi->btnCollect_No->hide();
    connect(m_pUi->btnCollect, &QToolButton::clicked, this,
            &MVThemeItemSubwdgt_Preview::onBtnCollect);
    connect(m_pUi->btnCollect_No, &QToolButton::clicked, this,
            &MVThemeItemSubwdgt_Preview::onBtnCollect);
    connect(m_pUi->btnMore, &QToolButton::clicked, this, &MVThemeItemSubwdgt_Preview::onBtnMore);
    nameButtons();
    setCurText(false);
    m_pUi->lblNetError->clear();
    m_pUi->frmNetError->hide();
    m_eDownloadErr = eDownLoadError_None;
}

/// The buttons show icons only, so a screen reader needs names. No other text says that the ring
/// can be clicked.
void MVThemeItemSubwdgt_Preview::nameButtons()
{
    m_pUi->lblIcon->setToolTip(tr("Click to cancel the download"));
    for (QToolButton* button : {m_pUi->btnCollect, m_pUi->btnCollect_No, m_pUi->btnDownload})
        button->setAccessibleName(button->toolTip());
    m_pUi->btnMore->setAccessibleName(m_pUi->lblMore->text());
}

void MVThemeItemSubwdgt_Preview::setItem(SCfg_Item* item)
{
    if (!item) {
        m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageMore);
        return;
    }
    showItem(item, ItemFiles::needsAny(*item));
}

void MVThemeItemSubwdgt_Preview::setItemDownload(SCfg_Item* item)
{
    if (!item) {
        setItem(item);
        return;
    }
    const bool needed = ItemFiles::needsAny(*item);
    showItem(item, needed);
    m_pUi->btnDownload->setVisible(needed);
    arrangeOverlay();
}

void MVThemeItemSubwdgt_Preview::showItem(SCfg_Item* item, bool needed)
{
    m_pItem = item;
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageShow);
    if (!needed && isFavourite(item)) {
        m_pUi->btnCollect->show();
        m_pUi->btnCollect_No->hide();
    }
    m_pUi->lblName->setText(item->m_qsName);
    m_pUi->frmShow->setItemData(item);
}

void MVThemeItemSubwdgt_Preview::releaseItem()
{
    m_pItem = nullptr;
    m_pUi->frmShow->setItemData(nullptr);
}

void MVThemeItemSubwdgt_Preview::setCurText(bool cur)
{
    m_pUi->lblCur->setVisible(cur);
    m_pUi->lblImg->setVisible(cur);
    m_pUi->lblImgTemp->setVisible(!cur);
    m_pUi->lblName->setProperty("IsChecked", cur);
    m_pUi->lblName->setStyle(QApplication::style());
    arrangeOverlay();
}

void MVThemeItemSubwdgt_Preview::setDownLoadErrorText(EMVThemeDownLoadError e)
{
    QString text;
    switch (e) {
    case eDownLoadError_Internet:
        text = tr("Internet error!");
        break;
    case eDownLoadError_Path:
        text = tr("Path error!");
        break;
    case eDownLoadError_Element:
        text = tr("Element error!");
        break;
    case eDownLoadError_None:
        break;
    default:
        text = tr("Unknown error!");
    }
    m_pUi->lblNetError->setText(text);
    m_pUi->frmNetError->setVisible(!text.isEmpty());
    m_eDownloadErr = e;
    arrangeOverlay();
}

void MVThemeItemSubwdgt_Preview::onProgress(double p)
{
    if (!std::isfinite(p))
        return;
    m_dProgress = p;
    m_pUi->lblIcon->repaint();
}

void MVThemeItemSubwdgt_Preview::startDownLoad()
{
    onBtnDownload();
}

void MVThemeItemSubwdgt_Preview::doEvent_Enter()
{
    if (!m_pItem)
        return;
    setHovered(true);
    const bool needed = ItemFiles::needsAny(*m_pItem);
    const bool favourite = !needed && isFavourite(m_pItem); // asking adds an entry for it
    m_pUi->btnDownload->setVisible(needed);
    m_pUi->btnCollect->setVisible(favourite);
    m_pUi->btnCollect_No->setVisible(!needed && !favourite);
    arrangeOverlay();
}

void MVThemeItemSubwdgt_Preview::doEvent_Leave()
{
    if (!m_pItem)
        return;
    setHovered(false);
    m_pUi->btnDownload->hide();
    m_pUi->btnCollect_No->hide();
    if (!ItemFiles::needsAny(*m_pItem))
        m_pUi->btnCollect->setVisible(isFavourite(m_pItem));
}

QToolButton* MVThemeItemSubwdgt_Preview::getBtnDownload() const
{
    return m_pUi->btnDownload;
}

void MVThemeItemSubwdgt_Preview::adjustItem()
{
    m_pUi->frmShow->adjustItem();
}

void MVThemeItemSubwdgt_Preview::resetItemData()
{
    m_pUi->frmShow->resetItemData();
}

void MVThemeItemSubwdgt_Preview::showArrivedPictures()
{
    m_pUi->frmShow->showArrivedPictures();
}

void MVThemeItemSubwdgt_Preview::startPlayGif()
{
    m_pUi->frmShow->startPlayGif();
}

void MVThemeItemSubwdgt_Preview::stopPlayGif()
{
    m_pUi->frmShow->stopPlayGif();
}

bool MVThemeItemSubwdgt_Preview::isPlaying() const
{
    return m_pUi->frmShow->isPlaying();
}

bool MVThemeItemSubwdgt_Preview::isMore() const
{
    return m_pUi->stackedWidget->currentWidget() == m_pUi->pageMore;
}

void MVThemeItemSubwdgt_Preview::onBtnCollect()
{
    if (!m_pItem)
        return;
    // A receiver may clear the list, and with it this cell.
    SCfg_Item* const item = m_pItem;
    const ItemCallback callback = m_cbBtnCollect;
    const bool favourite = isFavourite(item);
    item->m_bCollected = !favourite;
    m_pUi->btnCollect->setVisible(!favourite);
    m_pUi->btnCollect_No->setVisible(favourite);
    CellEvents::post(&CellEvents::favouriteToggled, item);
    MVThemeMgr::init()->setItemCollected(item);
    if (callback)
        callback(item);
}

void MVThemeItemSubwdgt_Preview::onBtnDownload()
{
    if (m_pUi->stackedWidget->currentWidget() == m_pUi->pageDownload)
        return;
    m_pUi->stackedWidget->setCurrentWidget(m_pUi->pageDownload);
    m_dProgress = 0.0;
    m_pUi->lblIcon->repaint();
    SCfg_Item* const item = m_pItem;
    const ItemCallback callback = m_cbBtnDownload;
    CellEvents::post(&CellEvents::downloadStarted, item);
    emit sigDownLoad(item);
    if (callback)
        callback(item);
}

void MVThemeItemSubwdgt_Preview::onBtnMore()
{
    const ItemCallback callback = m_cbBtnMore;
    CellEvents::postMore();
    if (callback)
        callback(m_pItem);
}

void MVThemeItemSubwdgt_Preview::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    // The name's label has its own style, so it misses changes of the application's.
    if (event->type() == QEvent::StyleChange && m_pUi->lblName->style() != QApplication::style())
        m_pUi->lblName->setStyle(QApplication::style());
    if (event->type() != QEvent::LanguageChange)
        return;
    m_pUi->retranslateUi(this);
    nameButtons();
    setDownLoadErrorText(m_eDownloadErr);
    if (m_pItem)
        m_pUi->lblName->setText(m_pItem->m_qsName);
}
