// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Inspects preview pictures as the browser will show them.
namespace Picture {

struct Verdict
{
    QString broken;  ///< why it cannot be decoded; empty if it can
    QString oddSize; ///< what is wrong with its size; empty if nothing
};

/// Decodes a complete still picture.
Verdict thumbnail(const QString& file);
/// Decodes every frame of a GIF.
Verdict animation(const QString& file);

} // namespace Picture
