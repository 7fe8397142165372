// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/SkinWidget.h"

#include <QCoreApplication>

#include <memory>

namespace {

/// Destroyed by the application object: a widget must not outlive it.
std::unique_ptr<SkinWidget>& theWidget()
{
    static std::unique_ptr<SkinWidget> widget;
    return widget;
}

void destroyWidget()
{
    theWidget().reset();
}

} // namespace

SkinWidget* SkinWidget::instance()
{
    std::unique_ptr<SkinWidget>& widget = theWidget();
    if (!widget) {
        widget.reset(new SkinWidget); // the constructor is private
        qAddPostRoutine(&destroyWidget);
    }
    widget->ensurePolished();
    return widget.get();
}
