#pragma once

#include <QString>

struct SKindInfo;

/// The folder of an item that a publisher starts.
namespace ItemFolder {

/// Makes a folder name from the item's name: in small letters, with "-" in place of everything that
/// is no letter or digit. Latin letters lose their accents; letters of other scripts stay as they
/// are. At most 120 bytes of UTF-8, so that suffixes fit. The same name always gives the same
/// folder. A name that leaves nothing, or too much, gets a part of its digest, so that different
/// ones have different folders.
QString nameFor(const QString& itemName, const SKindInfo& kind);

} // namespace ItemFolder
