// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Exports the public symbols of the library mvhost; all others are hidden.
#if defined(MV_STATIC)
#define MVHOST_EXPORT
#elif defined(MVHOST_LIBRARY)
#define MVHOST_EXPORT Q_DECL_EXPORT
#else
#define MVHOST_EXPORT Q_DECL_IMPORT
#endif
