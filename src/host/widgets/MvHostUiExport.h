#pragma once

#include <QtGlobal>

/// Marks what callers of the library mvhostui may use; everything else is hidden.
#if defined(MVHOSTUI_LIBRARY)
#define MVHOSTUI_EXPORT Q_DECL_EXPORT
#else
#define MVHOSTUI_EXPORT Q_DECL_IMPORT
#endif
