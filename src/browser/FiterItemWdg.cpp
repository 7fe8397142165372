// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/FiterItemWdg.h"

#include <QCoreApplication>
#include <QEvent>
#include <QStyle>

FiterItemWdg::FiterItemWdg(QWidget* parent)
    : MVThemeItemWdg(parent)
{
    // The style sheet has matched them as parts of an MVThemeItemWdg, the class until now.
    const QList<QWidget*> parts = findChildren<QWidget*>();
    for (QWidget* const part : parts) {
        part->style()->unpolish(part);
        part->style()->polish(part);
        QEvent change(QEvent::StyleChange);
        QCoreApplication::sendEvent(part, &change);
    }
}
