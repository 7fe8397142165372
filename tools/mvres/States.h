// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SItemState.h"

#include <QString>
#include <QtGlobal>

class QJsonObject;

/// The states of files and items as mvres prints them.
namespace States {

/// Returns "current", "missing", "outdated", "damaged" or "unlisted".
QString word(EFileState state);

/// Returns "ready", "outdated", "damaged", or "3 missing" for an item that lacks so many files.
QString text(const SItemState& state, int missing);
/// Returns the size on disk, or what is to be fetched: "41.2 kB", "1.2 kB to fetch",
/// or "to fetch" if no size is known.
QString size(const SItemState& state, int missing);
/// Returns "1.2 kB", or if not every size is known "1.2 kB or more" or "size unknown".
QString bytes(qint64 bytes, bool areKnown);

/// Adds state, bytes on disk, and files and bytes to fetch to an item's description.
void addTo(QJsonObject& object, const SItemState& state);

} // namespace States
