// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Checks the formats of pictures before they are published.
namespace PictureFault {

/// Returns why a file cannot be published as a picture, phrased to follow its name: clients do not
/// decode it, or its name has the suffix of another format. Empty if it can.
QString of(const QString& file);

} // namespace PictureFault
