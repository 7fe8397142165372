#pragma once

#include <QtGlobal>

/// Marks what callers of the library mvbrowser may use; everything else is hidden.
#if defined(MVBROWSER_LIBRARY)
#define MVBROWSER_EXPORT Q_DECL_EXPORT
#else
#define MVBROWSER_EXPORT Q_DECL_IMPORT
#endif
