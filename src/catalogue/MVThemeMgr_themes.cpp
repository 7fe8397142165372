// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeMgr: reading a theme's own config file.

#include "catalogue/CatalogueIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "host/LogL.h"
#include "records/DependencySlots.h"
#include "records/FileView.h"

#include <QDomDocument>
#include <QMutexLocker>
#include <QUuid>

#include <memory>

namespace {

void readSlot(const QDomElement& parent, const QString& slotName, EDependType type,
              CatalogueIndex& dependencies, SThemes_a::SDependInfo& out)
{
    const QDomElement slot = parent.firstChildElement(slotName);
    if (slot.isNull())
        return;
    const QDomElement guid = slot.firstChildElement(QStringLiteral("GUID"));
    out.m_qsGUID = guid.text();
    const QDomNamedNodeMap attributes = guid.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        out.m_mapAttr.insert(attribute.name(), attribute.value());
    }
    const DependencySlots::Slot* const known = DependencySlots::find(type);
    if (!known || QUuid(out.m_qsGUID).isNull())
        return;
    out.m_pItem = dependencies.find(known->kind, out.m_qsGUID);
    if (!out.m_pItem) {
        LogL("MVThemeMgr", 1, "not find, eDependType = %d, m_qsGUID = %s", static_cast<int>(type),
             out.m_qsGUID.toUtf8().constData());
    }
}

} // namespace

void MVThemeMgr::parseThemes()
{
    CatalogueIndex dependencies(m_sCfgXML);
    for (SCfg_Item& item : m_sDisplayXML.vecTheme) {
        item.m_eType = eCfgItem_Theme;
        const bool isThere = doItem_Info_CfgXML(item);
        const QString file = FileView(item.m_info_CfgXML).file();
        if (isThere && isReadable(file))
            readTheme(file, dependencies, item.m_pThemes_a);
    }
}

void MVThemeMgr::read_resource_config_Themes_a(QString path, SThemes_a*& out)
{
    CatalogueIndex dependencies(m_sCfgXML);
    readTheme(path, dependencies, out);
}

void MVThemeMgr::readTheme(const QString& path, CatalogueIndex& dependencies, SThemes_a*& out)
{
    QDomDocument doc;
    if (!checkXml(path, doc)) {
        LogL("MVThemeMgr", 1, "read [%s] is error!", path.toUtf8().constData());
        return;
    }
    const QDomElement root = doc.documentElement();
    auto theme = std::make_unique<SThemes_a>();
    theme->m_qsGUID = root.firstChildElement(QStringLiteral("GUID")).text();
    theme->m_qsName = root.firstChildElement(QStringLiteral("Name")).text();

    const QString itemTag = QStringLiteral("Item");
    for (QDomElement item = root.firstChildElement(itemTag); !item.isNull();
         item = item.nextSiblingElement(itemTag)) {
        SThemes_a::SDependArray element;
        for (const DependencySlots::Slot& slot : DependencySlots::all())
            readSlot(item, slot.name, slot.type, dependencies, element.at(slot.type));
        theme->m_vecItems.append(std::move(element));
    }
    const auto readEdge = [&](const QString& tag, EDependType type, SThemes_a::SDependArray& edge) {
        readSlot(root.firstChildElement(tag), DependencySlots::find(type)->name, type, dependencies,
                 edge.at(type));
    };
    readEdge(QStringLiteral("Item_start"), eDependType_Text, theme->m_aStart);
    readEdge(QStringLiteral("Item_end"), eDependType_Text, theme->m_aEnd);
    readEdge(QStringLiteral("Item_Mask"), eDependType_Filter, theme->m_aMask);

    // Items point to the theme until the next load, so every theme read is kept until then.
    {
        const QMutexLocker lock(&m_mutexParsed);
        m_vecParsed.push_back(std::move(theme));
        out = m_vecParsed.back().get();
    }
    LogL("MVThemeMgr", 1, "read [%s] is ok!", path.toUtf8().constData());
}

bool MVThemeMgr::ensureThemeParsed(SCfg_Item& item)
{
    if (item.m_eType != eCfgItem_Theme || item.parsedTheme() || !hasThemes()
        || !doItem_Info_CfgXML(item))
        return true;
    const QString file = FileView(item.m_info_CfgXML).file();
    if (file.isEmpty())
        return true;
    return parse(item, file);
}

bool MVThemeMgr::parseThemeAgain(SCfg_Item& item)
{
    const bool isOnDisk = hasThemes() && doItem_Info_CfgXML(item);
    const QString file = isOnDisk ? FileView(item.m_info_CfgXML).file() : QString();
    return !file.isEmpty() && parse(item, file);
}

bool MVThemeMgr::parse(SCfg_Item& item, const QString& file)
{
    SThemes_a* parsed = nullptr;
    if (isReadable(file))
        read_resource_config_Themes_a(file, parsed);
    if (parsed)
        item.setParsedTheme(parsed);
    return parsed != nullptr;
}

void MVThemeMgr::read_resource_config_Themes_a_Sub(const QDomElement& parent, QString slotName,
                                                   EDependType t, SThemes_a::SDependInfo& out)
{
    CatalogueIndex dependencies(m_sCfgXML);
    readSlot(parent, slotName, t, dependencies, out);
}
