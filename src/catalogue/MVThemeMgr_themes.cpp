// MVThemeMgr: reading a theme's own config file.

#include "catalogue/MVThemeMgr.h"
#include "catalogue/ThemeDependencies.h"
#include "host/LogL.h"

#include <QDomDocument>
#include <QMutexLocker>
#include <QUuid>

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

void readSlot(const QDomElement& parent, const QString& slotName, EDependType type,
              ThemeDependencies& dependencies, SThemes_a::SDependInfo& out)
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
    if (!ThemeDependencies::isSlot(type) || QUuid(out.m_qsGUID).isNull())
        return;
    out.m_pItem = dependencies.find(type, out.m_qsGUID);
    if (!out.m_pItem) {
        LogL("MVThemeMgr", 1, "not find, eDependType = %d, m_qsGUID = %s", static_cast<int>(type),
             out.m_qsGUID.toUtf8().constData());
    }
}

} // namespace

void MVThemeMgr::parseThemes()
{
    ThemeDependencies dependencies(m_sCfgXML);
    for (SCfg_Item& item : m_sDisplayXML.vecTheme) {
        item.m_eType = eCfgItem_Theme;
        if (doItem_Info_CfgXML(item) && isReadable(item.m_info_CfgXML.m_qsFile))
            readTheme(item.m_info_CfgXML.m_qsFile, dependencies, item.m_pThemes_a);
    }
}

void MVThemeMgr::read_resource_config_Themes_a(QString path, SThemes_a*& out)
{
    ThemeDependencies dependencies(m_sCfgXML);
    readTheme(path, dependencies, out);
}

void MVThemeMgr::readTheme(const QString& path, ThemeDependencies& dependencies, SThemes_a*& out)
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
    ThemeDependencies dependencies(m_sCfgXML);
    readSlot(parent, slotName, t, dependencies, out);
}
