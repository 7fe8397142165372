// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrowserStage.h"

#include "browser/mvThemelistview.h"
#include "BrowserFloor.h"

#include <QAbstractEventDispatcher>
#include <QApplication>

namespace {

constexpr QSize windowSize(900, 640);

void open(QWidget& list)
{
    list.resize(windowSize);
    list.show();
    BrowserStage::settle();
}

} // namespace

void BrowserStage::dress(const QString& styleSheet)
{
    if (qApp->styleSheet() != styleSheet)
        qApp->setStyleSheet(styleSheet);
}

std::unique_ptr<mvThemelistview> BrowserStage::openList()
{
    auto list = std::make_unique<mvThemelistview>();
    list->setUIItemType(UIItem_Themes);
    open(*list);
    return list;
}

std::unique_ptr<BaremvThemelistview> BrowserStage::openFloor()
{
    auto list = std::make_unique<BaremvThemelistview>();
    open(*list);
    return list;
}

void BrowserStage::settle()
{
    do {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } while (QAbstractEventDispatcher::instance()->hasPendingEvents());
}
