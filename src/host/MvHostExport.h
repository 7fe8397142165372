#pragma once

#include <QtGlobal>

/// Marks what callers of the library mvhost may use; everything else is hidden.
#if defined(MVHOST_LIBRARY)
#define MVHOST_EXPORT Q_DECL_EXPORT
#else
#define MVHOST_EXPORT Q_DECL_IMPORT
#endif
