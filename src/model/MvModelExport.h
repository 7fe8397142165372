// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Exports the public symbols of the library mvmodel; all others are hidden.
#if defined(MV_STATIC)
#define MVMODEL_EXPORT
#elif defined(MVMODEL_LIBRARY)
#define MVMODEL_EXPORT Q_DECL_EXPORT
#else
#define MVMODEL_EXPORT Q_DECL_IMPORT
#endif
