#pragma once

#include "catalogue/ItemFiles.h"
#include "records/ECfgItemType.h"
#include "records/SCfg_Item.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QVector>

/// The catalogue's items as mvres names, finds and describes them.
namespace Items {

/// "filter", "transition", "motion", "theme", "bgmaterial".
QString kindName(ECfgItemType kind);
/// The kind of that name, in any case, with or without a plural s; false if there is none.
bool kindOf(const QString& name, ECfgItemType& kind);
/// "others", "festivals", "travel", "banquets"; "-" for what is no theme.
QString themeTypeName(const SCfg_Item& item);

/// The shown items of a kind; owned by the catalogue.
QVector<SCfg_Item*> displayed(ECfgItemType kind);

/// GUID, kind, name, theme type, favourite and missing files.
QJsonObject toJson(SCfg_Item& item);

/// "thumbnail", "preview", "config" or "resource".
QString roleName(ItemFiles::Role role);
/// Role, path, address, presence and size of each file.
QJsonArray toJson(const ItemFiles& files);

} // namespace Items
