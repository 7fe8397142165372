#pragma once

#include "Kinds.h"
#include "SourceItem.h"

#include <QByteArray>
#include <QVector>

class Source;

/// The documents of a tree, as the library reads them. The same items give the same bytes. An XML
/// document is empty if a text has characters that XML cannot hold.
namespace Documents {

using Items = QVector<const SourceItem*>;

/// What every item is and which files it needs.
QByteArray config(const Items& items);
/// What the user is shown, under the names for that audience.
QByteArray display(const Items& items, const Source& source, const QString& audience);
/// Which catalogues belong together.
QByteArray version(const QString& version, const QByteArray& display, const QByteArray& config);
/// The definitions that a kind's folder holds.
QByteArray kindList(const Kind& kind, const Items& items);
/// What the editor needs to know of an item: what its manifest says.
QByteArray definition(const SourceItem& item);
/// Themes by type, for an installation.
QByteArray themeTypes(const Items& items);

} // namespace Documents
