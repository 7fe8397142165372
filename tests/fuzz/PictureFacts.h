// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

/// Inspects a picture's bytes without decoding it.
namespace PictureFacts {

/// Returns whether the cells of lists may decode it: a PNG, JPEG or GIF by its content, with at
/// most 16 Mi pixels.
bool isAccepted(const QByteArray& content);

} // namespace PictureFacts
