// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/CheckedMark.h"

#include "browser/MVThemeItemWdg.h"

#include <QStyle>
#include <QVariant>
#include <QWidget>

void showChecked(QWidget* itemWidget, bool checked)
{
    itemWidget->setProperty("IsChecked", checked);
    itemWidget->style()->unpolish(itemWidget);
    itemWidget->style()->polish(itemWidget);
    if (auto* item = qobject_cast<MVThemeItemWdg*>(itemWidget))
        item->setCurText(checked);
    itemWidget->repaint();
}
