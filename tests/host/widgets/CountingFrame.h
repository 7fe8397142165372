// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/widgets/ThumbFrame.h"

/// A frame that counts its paint events.
class CountingFrame : public ThumbFrame
{
public:
    using ThumbFrame::ThumbFrame;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ThumbFrame::paintEvent(event);
        ++paints;
    }
};
