// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// WindowTexts: where the window's parts are, and what becomes of those that do not fit.

#include "AppLanguage.h"
#include "AppLook.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "FilterBar.h"
#include "MainWindow.h"
#include "MessageBar.h"
#include "ResourceList.h"
#include "ResourceTabs.h"
#include "support/TestMain.h"
#include "WelcomePage.h"
#include "WindowTexts.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QTextDocument>

/// The columns leave no strip at the right, and the window opens within the screen.
void WindowTexts::listsUseTheWholeWidth()
{
    AppLanguage::install(QStringLiteral("en"));
    openWindow();
    QVERIFY(m_window->screen()->availableGeometry().contains(m_window->frameGeometry()));
    mvThemelistview* const list = m_window->tabs()->currentList()->view();
    for (const int width : {700, 733, 777, 861}) {
        m_window->resize(width, m_window->height());
        // A list always keeps room for its scroll bar.
        const int bar = list->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr,
                                                   list->verticalScrollBar());
        const auto strip = [list, bar] {
            const int room = list->maximumViewportSize().width() - bar;
            return room % list->gridSize().width();
        };
        QTRY_VERIFY2(strip() <= list->maximumViewportSize().width() / list->gridSize().width(),
                     qPrintable(QString::number(strip())));
    }
}

void WindowTexts::headingIsBelowThePicture()
{
    AppLanguage::install(QStringLiteral("en"));
    openWindow();
    apply(MVThemeMgr::init()->getThemes_Display().first().m_qsGUID);
    const auto bottomOf = [this](const QWidget& part) {
        return part.mapTo(m_window.get(), QPoint(0, part.height())).y();
    };
    const auto* const heading = part<QLabel>("appliedName");
    QTRY_VERIFY(heading->mapTo(m_window.get(), QPoint()).y()
                >= bottomOf(*part<QWidget>("largePreview")));
}

void WindowTexts::searchStaysNarrowInAWideWindow()
{
    AppLanguage::install(QStringLiteral("en"));
    openWindow();
    m_window->resize(2500, 700);
    const auto* const search = part<QLineEdit>("search");
    const auto* const next = part<QComboBox>("themeType");
    QTRY_VERIFY(m_window->tabs()->filterBar()->width() > 1500);
    QTRY_VERIFY(search->width() <= 60 * search->fontMetrics().averageCharWidth());
    QVERIFY(next->x() - search->geometry().right() < 20);
}

void WindowTexts::toolTipsAreWrapped()
{
    AppLanguage::install(QStringLiteral("de"));
    openWindow();
    apply(MVThemeMgr::init()->getThemes_Display().first().m_qsGUID);
    fail();
    constexpr int longestLine = 60; // letters, as long as a line of a wrapped one
    const QList<QWidget*> parts = m_window->findChildren<QWidget*>();
    for (const QWidget* part : parts) {
        const QString tip = part->toolTip();
        QVERIFY2(tip.size() <= longestLine || Qt::mightBeRichText(tip), qPrintable(tip));
    }
}

void WindowTexts::longMessageEndsInAnEllipsis()
{
    AppLanguage::install(QStringLiteral("en"));
    openWindow();
    m_window->resize(480, 360);
    part<QLabel>("checkStatus")->setText(QStringLiteral("Catalogue updated, 38 previews fetched"));
    auto* const bar = qobject_cast<MessageBar*>(m_window->statusBar());
    QVERIFY(bar);
    bar->showMessage(QStringLiteral("Short"));
    QTRY_COMPARE(bar->shownMessage(), QStringLiteral("Short"));
    bar->showMessage(QStringLiteral("Applied: ") + QString(40, QLatin1Char('m')));
    QTRY_VERIFY(bar->shownMessage().endsWith(QStringLiteral("…")));
    QVERIFY(bar->shownMessage().startsWith(QStringLiteral("Applied:")));
}

void WindowTexts::welcomeIsInTheMiddle()
{
    AppLook::apply(QStringLiteral("Classical"));
    WelcomePage page(nullptr);
    page.resize(1100, 700);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const auto* const title = page.findChild<QLabel*>(QStringLiteral("welcomeTitle"));
    const int left = title->mapTo(&page, QPoint()).x();
    const int right = page.width() - left - title->width();
    QVERIFY2(qAbs(left - right) <= 2, qPrintable(QStringLiteral("%1, %2").arg(left).arg(right)));
    QVERIFY(title->fontInfo().pixelSize() > page.fontInfo().pixelSize());
}
