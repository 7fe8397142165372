#pragma once

#include "records/ECfgItemType.h"

#include <QJsonObject>
#include <QString>
#include <QVector>

struct SCfg_Item;

/// The catalogue's items as mvres names, finds and describes them.
namespace Items {

/// All kinds, in the catalogue's order.
const QVector<ECfgItemType>& allKinds();
/// "filter", "transition", "motion", "theme", "bgmaterial".
QString kindName(ECfgItemType kind);
/// The kind of that name, in any case, with or without a plural s; false if there is none.
bool kindOf(const QString& name, ECfgItemType& kind);
/// "others", "festivals", "travel", "banquets"; "-" for what is no theme.
QString themeTypeName(const SCfg_Item& item);

/// The shown items of a kind; owned by the catalogue.
QVector<SCfg_Item*> displayed(ECfgItemType kind);
/// The item with that GUID, shown ones first, or null. Braces may be missing, case may differ.
SCfg_Item* find(const QString& guid);

/// The item's display name; items of the config catalogue have it from their shown twin, if any.
QString nameOf(const SCfg_Item& item);

/// How many different files of the item are missing on disk.
int missingFiles(SCfg_Item& item);

/// GUID, kind, name, theme type, favourite and missing files.
QJsonObject toJson(SCfg_Item& item);

} // namespace Items
