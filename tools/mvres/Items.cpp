// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Items.h"

#include "catalogue/MVThemeMgr.h"
#include "records/KindTable.h"
#include "records/ThemeTypes.h"

namespace Items {

QString kindName(ECfgItemType kind)
{
    return KindTable::of(kind).word();
}

bool kindOf(const QString& name, ECfgItemType& kind)
{
    for (const SKindInfo& known : KindTable::all()) {
        if (name.compare(known.name, Qt::CaseInsensitive) == 0
            || name.compare(known.name + QLatin1Char('s'), Qt::CaseInsensitive) == 0) {
            kind = known.type;
            return true;
        }
    }
    return false;
}

QString themeTypeName(const SCfg_Item& item)
{
    const bool isTheme = item.m_eType == eCfgItem_Theme;
    return isTheme ? ThemeTypes::name(item.m_nThemeType) : QStringLiteral("-");
}

QVector<SCfg_Item*> displayed(ECfgItemType kind)
{
    const QVector<SCfg_Item>& shown = *MVThemeMgr::init()->getDisplayXML().ofKind(kind);
    QVector<SCfg_Item*> items;
    items.reserve(shown.size());
    for (const SCfg_Item& item : shown) {
        // By position, not by GUID: a catalogue can list an item twice.
        items.append(const_cast<SCfg_Item*>(&item));
    }
    return items;
}

QVector<SCfg_Item*> displayed()
{
    QVector<SCfg_Item*> items;
    for (const SKindInfo& kind : KindTable::all())
        items += displayed(kind.type);
    return items;
}

QJsonObject toJson(SCfg_Item& item)
{
    return toJson(item, ItemFiles::countNeeded(item));
}

QJsonObject toJson(const SCfg_Item& item, int missing)
{
    return {
        {QStringLiteral("guid"), item.m_qsGUID},
        {QStringLiteral("kind"), Items::kindName(item.m_eType)},
        {QStringLiteral("name"), item.m_qsName},
        {QStringLiteral("themeType"),
         item.m_eType == eCfgItem_Theme ? QJsonValue(Items::themeTypeName(item)) : QJsonValue()},
        {QStringLiteral("favourite"), MVThemeMgr::init()->isItemCollect(&item)},
        {QStringLiteral("ready"), missing == 0},
        {QStringLiteral("missing"), missing},
    };
}

QString roleName(ItemFiles::Role role)
{
    switch (role) {
    case ItemFiles::Role::Thumbnail:
        return QStringLiteral("thumbnail");
    case ItemFiles::Role::Preview:
        return QStringLiteral("preview");
    case ItemFiles::Role::Config:
        return QStringLiteral("config");
    case ItemFiles::Role::Resource:
        break;
    }
    return QStringLiteral("resource");
}

QJsonArray toJson(const ItemFiles& files)
{
    QJsonArray array;
    for (const ItemFiles::Entry& entry : files.entries()) {
        array.append(QJsonObject{
            {QStringLiteral("what"), roleName(entry.role)},
            {QStringLiteral("path"), entry.path},
            {QStringLiteral("url"), entry.url},
            {QStringLiteral("present"), entry.isPresent},
            {QStringLiteral("size"), static_cast<double>(entry.sizeBytes)},
        });
    }
    return array;
}

} // namespace Items
