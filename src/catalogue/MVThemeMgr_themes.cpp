// MVThemeMgr: reading a theme's own config file.

#include "catalogue/MVThemeMgr.h"
#include "host/LogL.h"

#include <QDomDocument>
#include <QMutexLocker>
#include <QUuid>

namespace {

struct Slot
{
    EDependType type;
    const char* name;
};

const Slot allSlots[] = {
    {eDependType_Text, "Text"},
    {eDependType_Filter, "Filter"},
    {eDependType_Element, "Element"},
    {eDependType_Transition, "Transition"},
    {eDependType_ImageMotion, "ImageMotion"},
};

} // namespace

void MVThemeMgr::read_resource_config_Themes_a(QString path, SThemes_a*& out)
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
        for (const Slot& slot : allSlots) {
            read_resource_config_Themes_a_Sub(item, QString::fromLatin1(slot.name), slot.type,
                                              element.at(slot.type));
        }
        theme->m_vecItems.append(std::move(element));
    }
    const auto readEdge = [&](const QString& tag, const QString& slotName, EDependType type,
                              SThemes_a::SDependArray& edge) {
        read_resource_config_Themes_a_Sub(root.firstChildElement(tag), slotName, type,
                                          edge.at(type));
    };
    readEdge(QStringLiteral("Item_start"), QStringLiteral("Text"), eDependType_Text,
             theme->m_aStart);
    readEdge(QStringLiteral("Item_end"), QStringLiteral("Text"), eDependType_Text, theme->m_aEnd);
    readEdge(QStringLiteral("Item_Mask"), QStringLiteral("Filter"), eDependType_Filter,
             theme->m_aMask);

    // Items point to the theme until the next load, so all that were ever read are kept till then.
    {
        const QMutexLocker lock(&m_mutexParsed);
        m_vecParsed.push_back(std::move(theme));
        out = m_vecParsed.back().get();
    }
    LogL("MVThemeMgr", 1, "read [%s] is ok!", path.toUtf8().constData());
}

void MVThemeMgr::ensureThemeParsed(SCfg_Item& item)
{
    if (item.m_eType != eCfgItem_Theme || item.parsedTheme() || !hasThemes()
        || !doItem_Info_CfgXML(item))
        return;
    const QString file = SFileInfo(item.m_info_CfgXML).m_qsFile;
    if (file.isEmpty())
        return;
    SThemes_a* parsed = nullptr;
    read_resource_config_Themes_a(file, parsed);
    if (parsed)
        item.setParsedTheme(parsed);
}

void MVThemeMgr::read_resource_config_Themes_a_Sub(const QDomElement& parent, QString slotName,
                                                   EDependType t, SThemes_a::SDependInfo& out)
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

    ECfgItemType kind = eCfgItem_Resource;
    switch (t) {
    case eDependType_Text:
    case eDependType_Filter:
    case eDependType_Element:
        kind = eCfgItem_Filter;
        break;
    case eDependType_Transition:
        kind = eCfgItem_Transition;
        break;
    case eDependType_ImageMotion:
        kind = eCfgItem_Motion;
        break;
    }
    if (kind == eCfgItem_Resource || QUuid(out.m_qsGUID).isNull())
        return;
    out.m_pItem = findItemByIDFromConfig(kind, out.m_qsGUID);
    if (!out.m_pItem) {
        LogL("MVThemeMgr", 1, "not find, eDependType = %d, m_qsGUID = %s", static_cast<int>(t),
             out.m_qsGUID.toUtf8().constData());
    }
}
