// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// GUIDs as written in catalogues: "{0154B5E5-D1A0-4BBB-B9A9-6BF233A7DBDA}".
namespace Guids {

/// Denotes "no filter" and "no background"; does not belong to an item.
extern const QString none;

/// Returns whether the text is exactly a GUID in braces, in any case, and not all zeros.
bool isGuid(const QString& text);
/// Returns whether it is such a GUID in capitals.
bool isProper(const QString& text);
QString fresh();

} // namespace Guids
