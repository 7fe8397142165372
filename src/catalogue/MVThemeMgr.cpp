#include "catalogue/MVThemeMgr.h"

#include "catalogue/CollectFile.h"
#include "catalogue/FixedGuids.h"
#include "catalogue/NoneEntry.h"
#include "host/HostSettings.h"
#include "host/TzProductInfo.h"

#include <QMutexLocker>

#include <algorithm>

namespace {

QVector<SCfg_Item>* vectorOf(MVThemeMgr::SResourceXML& catalogue, ECfgItemType k)
{
    switch (k) {
    case eCfgItem_Filter:
        return &catalogue.vecFilter;
    case eCfgItem_Transition:
        return &catalogue.vecTransition;
    case eCfgItem_Motion:
        return &catalogue.vecMotion;
    case eCfgItem_Theme:
        return &catalogue.vecTheme;
    case eCfgItem_BgMaterial:
        return &catalogue.vecBgMaterial;
    case eCfgItem_Resource:
        break;
    }
    return nullptr;
}

} // namespace

MVThemeMgr* MVThemeMgr::init()
{
    static MVThemeMgr manager;
    return &manager;
}

MVThemeMgr::MVThemeMgr()
    : m_lstFixedGUID(fixedGuids())
    , m_pThemeCollect(std::make_unique<CollectFile>())
    , m_pFilterCollect(std::make_unique<CollectFile>())
    , m_pBgMaterialCollect(std::make_unique<CollectFile>())
{
    // Settings that live longer than this object are there from the start: the destructor, which
    // runs after main, needs the data folder.
    hostSettings();
}

MVThemeMgr::~MVThemeMgr()
{
    saveThemeCollect();
    saveFilterCollect();
}

void MVThemeMgr::load(bool bReload)
{
    if (m_bLoaded && !bReload)
        return;
    clearVectors();
    readThemeCollect();
    readFilterCollect();
    read_resource_config_xml();
    read_resource_display_xml();
    if (hasThemes())
        parseThemes();
    m_bLoaded = true;
}

/// Whether the product uses themes, so that their own configs count.
bool MVThemeMgr::hasThemes()
{
    return TzProductInfo::instance()->extendParam(QStringLiteral("hasMV"), QString()).toInt() != 0;
}

void MVThemeMgr::parseThemes()
{
    for (SCfg_Item& item : m_sDisplayXML.vecTheme) {
        item.m_eType = eCfgItem_Theme;
        if (doItem_Info_CfgXML(item))
            read_resource_config_Themes_a(item.m_info_CfgXML.m_qsFile, item.m_pThemes_a);
    }
}

void MVThemeMgr::clear()
{
    m_bLoaded = false;
    m_pCurApplyTheme = nullptr;
    clearVectors();
}

void MVThemeMgr::clearVectors()
{
    m_sCfgXML = SResourceXML();
    m_sDisplayXML = SResourceXML();
    const QMutexLocker lock(&m_mutexParsed);
    m_vecParsed.clear();
}

SCfg_Item* MVThemeMgr::findItemByID(const QVector<SCfg_Item>& vec, QString id)
{
    const auto found = std::find_if(vec.cbegin(), vec.cend(),
                                    [&id](const SCfg_Item& item) { return item.m_qsGUID == id; });
    // The vectors are const here only so that looking does not move their items.
    return found == vec.cend() ? nullptr : const_cast<SCfg_Item*>(&*found);
}

SCfg_Item* MVThemeMgr::findItemByIDFromConfig(ECfgItemType k, QString id)
{
    const QVector<SCfg_Item>* items = vectorOf(m_sCfgXML, k);
    return items ? findItemByID(*items, id) : nullptr;
}

SCfg_Item* MVThemeMgr::findItemByIDFromDisplay(ECfgItemType k, QString id)
{
    const QVector<SCfg_Item>* items = vectorOf(m_sDisplayXML, k);
    return items ? findItemByID(*items, id) : nullptr;
}

bool MVThemeMgr::isEditFilter(QVector<SCfg_Item>& vec, QString id)
{
    return findItemByID(vec, id) != nullptr;
}

MVThemeMgr::ELoadDir MVThemeMgr::isLocal_Theme(const SCfg_Item& item)
{
    return item.m_info_CfgXML.m_qsUrl.startsWith(QLatin1Char('/')) ? eLoadDir_Download
                                                                   : eLoadDir_Local;
}

void MVThemeMgr::getNeedDownLoadFiles(SCfg_Item* item, QVector<SFileInfo*>& out)
{
    if (isNoneEntry(*item)) {
        doItem_Info_Thumb(*item);
        out = QVector<SFileInfo*>();
        return;
    }
    if (!doItem_Info_Thumb(*item))
        out.append(&item->m_info_Thumb);
    if (!doItem_Info_Gif(*item))
        out.append(&item->m_info_Gif);
    QVector<SFileInfo*> resources;
    if (!doItem_Info_DependRes(*item, resources))
        out += resources;
    if (!doItem_Info_CfgXML(*item))
        out.append(&item->m_info_CfgXML);

    const SThemes_a* theme = item->parsedTheme();
    if (!theme)
        return;
    const auto addDependency = [this, &out](const SThemes_a::SDependInfo& dependency) {
        if (dependency.m_pItem)
            getNeedDownLoadFiles(dependency.m_pItem, out);
    };
    for (const SThemes_a::SDependArray& element : theme->m_vecItems)
        std::for_each(element.cbegin(), element.cend(), addDependency);
    addDependency(theme->m_aStart[eDependType_Text]);
    addDependency(theme->m_aEnd[eDependType_Text]);
    addDependency(theme->m_aMask[eDependType_Filter]);
}
