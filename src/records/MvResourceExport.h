// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Exports the public symbols of the library mvresource; all others are hidden.
#if defined(MV_STATIC)
#define MVRESOURCE_EXPORT
#elif defined(MVRESOURCE_LIBRARY)
#define MVRESOURCE_EXPORT Q_DECL_EXPORT
#else
#define MVRESOURCE_EXPORT Q_DECL_IMPORT
#endif
