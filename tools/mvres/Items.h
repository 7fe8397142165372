// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemFiles.h"
#include "records/ECfgItemType.h"
#include "records/SCfg_Item.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QVector>

/// Names, finds and describes the catalogue's items for mvres.
namespace Items {

/// Returns "filter", "transition", "motion", "theme" or "bgmaterial".
QString kindName(ECfgItemType kind);
/// Sets `kind` to the one with that name, ignoring case, with or without a plural s. Returns false
/// if there is none.
bool kindOf(const QString& name, ECfgItemType& kind);
/// Returns "others", "festivals", "travel" or "banquets"; "-" for other kinds.
QString themeTypeName(const SCfg_Item& item);

/// Return the shown items, of a kind or of all; owned by the catalogue.
QVector<SCfg_Item*> displayed(ECfgItemType kind);
QVector<SCfg_Item*> displayed();

/// Return GUID, kind, name, theme type (null for other kinds), favourite and missing files, which
/// are counted unless their number is given.
QJsonObject toJson(SCfg_Item& item);
QJsonObject toJson(const SCfg_Item& item, int missing);

/// Returns "thumbnail", "preview", "config" or "resource".
QString roleName(ItemFiles::Role role);
/// Returns role, path, address, presence and size of each file.
QJsonArray toJson(const ItemFiles& files);

} // namespace Items
