// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/SItemState.h"

#include <QDebug>

QDebug operator<<(QDebug debug, const SItemState& state)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "SItemState(" << state.m_eState << ", " << state.m_nToFetch << " to fetch, "
                    << state.m_nBytesToFetch << (state.m_bBytesKnown ? "" : " or more")
                    << " bytes, " << state.m_nBytesOnDisk << " on disk)";
    return debug;
}
