// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/KindTable.h"
#include "SourceItem.h"

#include <QByteArray>
#include <QVector>

class Source;

/// Writes the documents of a tree, as the library reads them. The same items give the same bytes.
/// An XML document is empty if a text has characters that XML cannot represent.
namespace Documents {

using Items = QVector<const SourceItem*>;

/// Returns the config catalogue: kind and files of every item.
QByteArray config(const Items& items);
/// Returns the display catalogue with the names for that audience.
QByteArray display(const Items& items, const Source& source, const QString& audience);
/// Returns the version file, which ties the catalogues together by their checksums.
QByteArray version(const QString& version, const QByteArray& display, const QByteArray& config);
/// Returns the list of definitions in a kind's folder.
QByteArray kindList(const SKindInfo& kind, const Items& items);
/// Returns the definition of an item according to its manifest.
QByteArray definition(const SourceItem& item);
/// Returns the themes by type, for an installation.
QByteArray themeTypes(const Items& items);

} // namespace Documents
