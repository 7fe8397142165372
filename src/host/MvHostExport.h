// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Exports the public symbols of the library mvhost; all others are hidden.
#if defined(MVHOST_LIBRARY)
#define MVHOST_EXPORT Q_DECL_EXPORT
#else
#define MVHOST_EXPORT Q_DECL_IMPORT
#endif
