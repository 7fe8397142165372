// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

/// Returns a shared copy of equal pictures. A style sheet gives every cell of a list the same few
/// pictures, decoded again for each; separate copies would make up most of a list's memory. GUI
/// thread only.
QImage sharedImage(const QImage& image);
