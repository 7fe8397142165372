// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/UIHelper.h"

#include "host/TzResourceMgr.h"

float UIHelper::changFontSize(int pointSize)
{
    return static_cast<float>(pointSize * TzResourceMgr::getZoomDPI());
}
