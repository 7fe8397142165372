// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Exports the public symbols of the library mvbrowser; all others are hidden.
#if defined(MV_STATIC)
#define MVBROWSER_EXPORT
#elif defined(MVBROWSER_LIBRARY)
#define MVBROWSER_EXPORT Q_DECL_EXPORT
#else
#define MVBROWSER_EXPORT Q_DECL_IMPORT
#endif
