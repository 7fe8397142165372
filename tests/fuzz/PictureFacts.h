#pragma once

#include <QByteArray>

/// What a picture's bytes say without decoding it.
namespace PictureFacts {

/// Whether the cells of lists may decode it: a PNG, JPEG or GIF by its content, with at most 16 Mi
/// pixels.
bool isAccepted(const QByteArray& content);

} // namespace PictureFacts
