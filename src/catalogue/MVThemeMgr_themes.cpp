// MVThemeMgr: reading a theme's own config file.

#include "catalogue/GuidIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "host/LogL.h"

#include <QDomDocument>
#include <QMutexLocker>
#include <QUuid>

#include <array>
#include <memory>

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

/// The kind in which the GUID of a slot is looked up; eCfgItem_Resource: it is not.
ECfgItemType kindOf(EDependType type)
{
    switch (type) {
    case eDependType_Text:
    case eDependType_Filter:
    case eDependType_Element:
        return eCfgItem_Filter;
    case eDependType_Transition:
        return eCfgItem_Transition;
    case eDependType_ImageMotion:
        return eCfgItem_Motion;
    }
    return eCfgItem_Resource;
}

/// Finds the items that one theme uses. Few look-ups scan the catalogue; a theme with many gets an
/// index, so that reading stays linear in theme and catalogue.
class Dependencies
{
public:
    explicit Dependencies(MVThemeMgr& manager)
        : m_manager(manager)
    {
    }

    SCfg_Item* find(ECfgItemType kind, const QString& guid)
    {
        constexpr int maxScans = 64; // of one kind
        Kind& known = m_kinds.at(kind);
        if (known.scans < maxScans) {
            ++known.scans;
            return m_manager.findItemByIDFromConfig(kind, guid);
        }
        const QVector<SCfg_Item>& items = itemsOf(kind);
        if (!known.index)
            known.index = std::make_unique<GuidIndex>(items);
        const int found = known.index->find(guid);
        return found < 0 ? nullptr : const_cast<SCfg_Item*>(&items.at(found));
    }

private:
    struct Kind
    {
        int scans = 0;
        std::unique_ptr<GuidIndex> index;
    };

    const QVector<SCfg_Item>& itemsOf(ECfgItemType kind) const
    {
        const MVThemeMgr::SResourceXML& config = m_manager.getCfgXML();
        if (kind == eCfgItem_Transition)
            return config.vecTransition;
        return kind == eCfgItem_Motion ? config.vecMotion : config.vecFilter;
    }

    MVThemeMgr& m_manager;
    std::array<Kind, eCfgItem_Motion + 1> m_kinds;
};

void readSlot(const QDomElement& parent, const QString& slotName, EDependType type,
              Dependencies& dependencies, SThemes_a::SDependInfo& out)
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
    const ECfgItemType kind = kindOf(type);
    if (kind == eCfgItem_Resource || QUuid(out.m_qsGUID).isNull())
        return;
    out.m_pItem = dependencies.find(kind, out.m_qsGUID);
    if (!out.m_pItem) {
        LogL("MVThemeMgr", 1, "not find, eDependType = %d, m_qsGUID = %s", static_cast<int>(type),
             out.m_qsGUID.toUtf8().constData());
    }
}

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

    Dependencies dependencies(*this);
    const QString itemTag = QStringLiteral("Item");
    for (QDomElement item = root.firstChildElement(itemTag); !item.isNull();
         item = item.nextSiblingElement(itemTag)) {
        SThemes_a::SDependArray element;
        for (const Slot& slot : allSlots) {
            readSlot(item, QString::fromLatin1(slot.name), slot.type, dependencies,
                     element.at(slot.type));
        }
        theme->m_vecItems.append(std::move(element));
    }
    const auto readEdge = [&](const QString& tag, const QString& slotName, EDependType type,
                              SThemes_a::SDependArray& edge) {
        readSlot(root.firstChildElement(tag), slotName, type, dependencies, edge.at(type));
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

bool MVThemeMgr::ensureThemeParsed(SCfg_Item& item)
{
    if (item.m_eType != eCfgItem_Theme || item.parsedTheme() || !hasThemes()
        || !doItem_Info_CfgXML(item))
        return true;
    const QString file = SFileInfo(item.m_info_CfgXML).m_qsFile;
    if (file.isEmpty())
        return true;
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
    Dependencies dependencies(*this);
    readSlot(parent, slotName, t, dependencies, out);
}
