// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

struct SKindInfo;

/// Names the folder of a new item.
namespace ItemFolder {

enum class Letters {
    All,   ///< Latin ones lose their accents, those of other scripts are kept
    Ascii, ///< others are left out, and the name gets part of its digest
};

/// Derives a folder name from the item's name: in lower case, with "-" for everything except
/// letters and digits. At most 120 bytes of UTF-8, so that suffixes fit. The same name always gives
/// the same folder. A name that would become empty or too long gets part of its digest, so that
/// different names have different folders, and one that has another meaning gets its kind.
QString nameFor(const QString& itemName, const SKindInfo& kind, Letters letters = Letters::All);

} // namespace ItemFolder
