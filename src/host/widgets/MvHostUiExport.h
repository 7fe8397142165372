// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Exports the public symbols of the library mvhostui; all others are hidden.
#if defined(MV_STATIC)
#define MVHOSTUI_EXPORT
#elif defined(MVHOSTUI_LIBRARY)
#define MVHOSTUI_EXPORT Q_DECL_EXPORT
#else
#define MVHOSTUI_EXPORT Q_DECL_IMPORT
#endif
