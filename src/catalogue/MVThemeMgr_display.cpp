// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeMgr: reading the display catalogue.

#include "catalogue/GuidIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/NoneEntry.h"
#include "catalogue/XmlFile.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/ProductParam.h"
#include "records/KindTable.h"

#include <QDomDocument>

namespace {

constexpr int fewFilters = 12;

QString childText(const QDomElement& parent, const QString& tag)
{
    return parent.firstChildElement(tag).text();
}

/// Returns the index of a shown item's config item; logs and returns -1 if there is none.
int findConfig(GuidIndex& index, const QString& guid)
{
    const int found = index.find(guid);
    if (found < 0)
        LogL("MVThemeMgr", 1, "not findItemByID [%s]", guid.toUtf8().constData());
    return found;
}

/// Reads the parts that both forms of the display catalogue have in common.
void readPresentation(const QDomElement& element, ECfgItemType type, SCfg_Item& item)
{
    item.m_eType = type;
    item.m_qsName = childText(element, QStringLiteral("Name"));
    item.m_info_Thumb.m_qsUrl = childText(element, QStringLiteral("UrlThumb"));
}

} // namespace

void MVThemeMgr::read_resource_display_xml()
{
    QDomDocument doc;
    if (!readCatalogue(eDirTag_Display, doc)) {
        LogL("MVThemeMgr", 1, "read_resource_display_xml is error!");
        return;
    }
    QDomElement root = doc.documentElement();
    for (const SKindInfo& kind : KindTable::all()) {
        QVector<SCfg_Item>& config = *m_sCfgXML.ofKind(kind.type);
        QVector<SCfg_Item>& shown = *m_sDisplayXML.ofKind(kind.type);
        if (kind.isGrouped)
            read_resource_display_xml_a_theme(root, kind.type, kind.name, config, shown, false);
        else
            read_resource_display_xml_a(root, kind.type, kind.name, config, shown, false);
        XmlFile::release(root, kind.name);
    }

    if (ProductParam::text(ProductParam::fewFilters) == QLatin1String("1")
        && m_sDisplayXML.vecFilter.size() > fewFilters)
        m_sDisplayXML.vecFilter.resize(fewFilters);
}

/// Locates the previews of an item; returns whether it is to be shown.
bool MVThemeMgr::locatePreviews(SCfg_Item& item)
{
    const bool hasThumb = doItem_Info_Thumb(item);
    if (!hostSettings().showWithoutPreviews)
        return hasThumb && doItem_Info_Gif(item);
    doItem_Info_Gif(item); // sets the place where it will arrive
    return true;
}

void MVThemeMgr::read_resource_display_xml_a(const QDomElement& root, ECfgItemType type,
                                             QString tagName, QVector<SCfg_Item>& cfgItems,
                                             QVector<SCfg_Item>& displayItems, bool keepAll)
{
    const QString itemTag = QStringLiteral("Item");
    const bool showsAll = hostSettings().showWithoutPreviews;
    GuidIndex index(cfgItems);
    displayItems.reserve(displayItems.size() + cfgItems.size());
    const QDomElement category = root.firstChildElement(tagName);
    for (QDomElement element = category.firstChildElement(itemTag); !element.isNull();
         element = element.nextSiblingElement(itemTag)) {
        const QString guid = childText(element, QStringLiteral("GUID"));
        const int found = findConfig(index, guid);
        SCfg_Item item;
        if (found >= 0) {
            const bool isText = childText(element, QStringLiteral("IsText")).toInt() != 0;
            cfgItems[found].m_bIsText = isText;
            item = cfgItems.at(found);
        } else {
            item.m_eType = type;
            item.m_qsGUID = guid;
            if (!isNoneEntry(item))
                continue;
        }
        readPresentation(element, type, item);
        const bool hasThumb = doItem_Info_Thumb(item);
        const bool hasGif = doItem_Info_Gif(item);
        doItem_Info_DependRes(item);
        if (keepAll || showsAll || (hasThumb && hasGif))
            displayItems.append(std::move(item));
    }
}

void MVThemeMgr::read_resource_display_xml_a_theme(const QDomElement& root, ECfgItemType type,
                                                   QString tagName, QVector<SCfg_Item>& cfgItems,
                                                   QVector<SCfg_Item>& displayItems, bool keepAll)
{
    const QString groupTag = QStringLiteral("Group");
    const QString itemTag = QStringLiteral("Item");
    GuidIndex index(cfgItems);
    displayItems.reserve(displayItems.size() + cfgItems.size());
    const QDomElement category = root.firstChildElement(tagName);
    for (QDomElement group = category.firstChildElement(groupTag); !group.isNull();
         group = group.nextSiblingElement(groupTag)) {
        const int themeType = Themetype(group.attribute(QStringLiteral("Type")));
        for (QDomElement element = group.firstChildElement(itemTag); !element.isNull();
             element = element.nextSiblingElement(itemTag)) {
            const QString guid = childText(element, QStringLiteral("GUID"));
            const int found = findConfig(index, guid);
            if (found < 0)
                continue;
            cfgItems[found].m_bIsText = false;
            SCfg_Item item = cfgItems.at(found);
            readPresentation(element, type, item);
            item.m_nThemeType = themeType;
            item.m_info_Gif.m_qsUrl = childText(element, QStringLiteral("UrlGif"));
            if (keepAll || locatePreviews(item))
                displayItems.append(std::move(item));
        }
    }
}
