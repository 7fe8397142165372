#pragma once

#include "catalogue/MVThemeMgr.h"

#include <QJsonObject>
#include <QString>
#include <QVector>

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

/// The items of a kind, one of allKinds().
const QVector<SCfg_Item>& ofKind(const MVThemeMgr::SResourceXML& catalogue, ECfgItemType kind);
/// The shown items of a kind; owned by the catalogue.
QVector<SCfg_Item*> displayed(ECfgItemType kind);
/// Returns how many different files of the item are missing on disk.
int missingFiles(SCfg_Item& item);

/// GUID, kind, name, theme type, favourite and missing files.
QJsonObject toJson(SCfg_Item& item);

} // namespace Items
