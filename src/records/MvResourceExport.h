#pragma once

#include <QtGlobal>

/// Marks what callers of the library mvresource may use; everything else is hidden.
#if defined(MVRESOURCE_LIBRARY)
#define MVRESOURCE_EXPORT Q_DECL_EXPORT
#else
#define MVRESOURCE_EXPORT Q_DECL_IMPORT
#endif
