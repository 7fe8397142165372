#pragma once

#include "host/widgets/MvHostUiExport.h"

#include <QtGlobal>

class QIODevice;

/// Keeps images that come from a server from filling the memory: a few bytes can announce many
/// pixels. Stateless; any thread.
class MVHOSTUI_EXPORT ImageLimit
{
public:
    ImageLimit() = delete;

    /// The largest image, or canvas of an animation, that is decoded: 64 Mi pixels.
    static constexpr qint64 mostPixels = 64 * 1024 * 1024;

    /// Whether a file in any format that Qt reads may be decoded, by the size that it announces.
    /// `file` is open, can seek and stands at the image's first byte, where it stands afterwards.
    /// Of a GIF the canvas counts, which its first image need not fill; one without a canvas is
    /// refused. A file that announces no size at all is left to its decoder.
    static bool admits(QIODevice& file);
};
