// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeItemSubwdgt_Preview: the progress ring and the overlays on the picture, as set by the
// style sheet.

#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/ProgressRing.h"
#include "browser/SharedImage.h"
#include "host/widgets/UIHelper.h"
#include "ui_MVThemeItemSubwdgt_Preview.h"

#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QShowEvent>
#include <QVBoxLayout>

#include <limits>

namespace {

/// Truncates towards zero, clamped to the range of int.
int wholePercent(double percent)
{
    constexpr double largest = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(-largest, percent, largest));
}

} // namespace

void MVThemeItemSubwdgt_Preview::setProgressImage(const QImage& image)
{
    m_progressImage = sharedImage(image);
    m_pUi->lblIcon->update();
}

void MVThemeItemSubwdgt_Preview::setProgressMask(const QImage& mask)
{
    m_progressMask = sharedImage(mask);
    m_pUi->lblIcon->update();
}

void MVThemeItemSubwdgt_Preview::setProgressColor(const QColor& color)
{
    m_progressColor = color;
    m_pUi->lblIcon->update();
}

void MVThemeItemSubwdgt_Preview::setProgressFontSize(int pointSize)
{
    m_nProgressFontSize = pointSize;
    m_pUi->lblIcon->update();
}

void MVThemeItemSubwdgt_Preview::setMarginTopCur(int margin)
{
    m_nMarginTopCur = margin;
    arrangeOverlay();
}

void MVThemeItemSubwdgt_Preview::setMarginTopNetError(int margin)
{
    m_nMarginTopNetError = margin;
    arrangeOverlay();
}

bool MVThemeItemSubwdgt_Preview::eventFilter(QObject* obj, QEvent* event)
{
    if (obj == m_pUi->lblIcon && event->type() == QEvent::Paint) {
        QPainter painter(m_pUi->lblIcon);
        drawProgress(&painter, m_pUi->lblIcon->rect(), wholePercent(m_dProgress));
    }
    if (obj == m_pUi->lblIcon && isRingClick(*event)) {
        emit sigCancelDownLoad();
        return true;
    }
    return QFrame::eventFilter(obj, event);
}

/// Returns whether the event completes a click that began on the ring. The second half of a double
/// click does not count: its first half has just started the download.
bool MVThemeItemSubwdgt_Preview::isRingClick(const QEvent& event)
{
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseButtonDblClick
        && event.type() != QEvent::MouseButtonRelease)
        return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    if (mouse.button() != Qt::LeftButton)
        return false;
    const bool wasPressed = m_bRingPressed;
    m_bRingPressed = event.type() == QEvent::MouseButtonPress;
    return event.type() == QEvent::MouseButtonRelease && wasPressed
        && m_pUi->lblIcon->rect().contains(mouse.pos());
}

void MVThemeItemSubwdgt_Preview::drawProgress(QPainter* p, const QRect& rect, int value) const
{
    QFont textFont = font();
    if (m_nProgressFontSize > 0)
        textFont.setPointSize(static_cast<int>(UIHelper::changFontSize(m_nProgressFontSize)));
    const bool isCross = m_bCrossOnHover && m_bHovered;
    ProgressRing{m_progressImage, m_progressMask, m_progressColor, textFont, isCross}.paint(p, rect,
                                                                                            value);
}

void MVThemeItemSubwdgt_Preview::setCrossOnHover(bool shown)
{
    m_bCrossOnHover = shown;
    m_pUi->lblIcon->update();
}

void MVThemeItemSubwdgt_Preview::setHovered(bool hovered)
{
    m_bHovered = hovered;
    m_pUi->lblIcon->update();
}

void MVThemeItemSubwdgt_Preview::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    placeOverlay(event->size().width());
}

void MVThemeItemSubwdgt_Preview::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    placeOverlay(width());
}

void MVThemeItemSubwdgt_Preview::createOverlay()
{
    // Not installed on a widget: the picture has its own layout that fills the frame, and this one
    // only positions the overlays.
    m_pOverlay = std::make_unique<QVBoxLayout>();
    m_pOverlay->setObjectName(QStringLiteral("verticalLayout_2"));
    m_pOverlay->addWidget(m_pUi->frmBtns_theme);
    m_pOverlay->addItem(new QSpacerItem(20, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
    m_pOverlay->addWidget(m_pUi->frmNetError);
    m_pOverlay->addWidget(m_pUi->lblCur, 0, Qt::AlignBottom);
}

void MVThemeItemSubwdgt_Preview::arrangeOverlay()
{
    // Querying size hints fixes a widget's appearance from the style sheet, which must wait until
    // the widget is in its list.
    if (isVisible())
        placeOverlay(width());
}

void MVThemeItemSubwdgt_Preview::placeOverlay(int overlayWidth)
{
    const QRect area = m_pUi->stackedWidget->geometry();
    m_pOverlay->invalidate();
    m_pOverlay->setGeometry(area);
    m_pUi->frmBtns_theme->setFixedWidth(overlayWidth);
    m_pUi->frmBtns_theme->move(area.topLeft());
    m_pUi->lblCur->setFixedWidth(overlayWidth);
    m_pUi->lblCur->move(area.x(), m_nMarginTopCur);
    m_pUi->frmNetError->setFixedWidth(overlayWidth);
    m_pUi->frmNetError->move(area.x(), m_nMarginTopNetError);
}
