#include "Items.h"

#include "host/HostSettings.h"

#include <QSet>

namespace Items {

const QVector<ECfgItemType>& allKinds()
{
    static const QVector<ECfgItemType> kinds = {
        eCfgItem_Filter, eCfgItem_Transition, eCfgItem_Motion, eCfgItem_Theme, eCfgItem_BgMaterial};
    return kinds;
}

QString kindName(ECfgItemType kind)
{
    return MVThemeMgr::init()->getCfgItemTypeStr(kind).toLower();
}

bool kindOf(const QString& name, ECfgItemType& kind)
{
    for (const ECfgItemType candidate : allKinds()) {
        const QString known = kindName(candidate);
        if (name.compare(known, Qt::CaseInsensitive) == 0
            || name.compare(known + QLatin1Char('s'), Qt::CaseInsensitive) == 0) {
            kind = candidate;
            return true;
        }
    }
    return false;
}

QString themeTypeName(const SCfg_Item& item)
{
    if (item.m_eType != eCfgItem_Theme)
        return QStringLiteral("-");
    for (const char* key : {"festivals", "travel", "banquets"}) {
        QString name = QString::fromLatin1(key);
        if (MVThemeMgr::init()->Themetype(name) == item.m_nThemeType)
            return name;
    }
    return QStringLiteral("others");
}

const QVector<SCfg_Item>& ofKind(const MVThemeMgr::SResourceXML& catalogue, ECfgItemType kind)
{
    switch (kind) {
    case eCfgItem_Transition:
        return catalogue.vecTransition;
    case eCfgItem_Motion:
        return catalogue.vecMotion;
    case eCfgItem_Theme:
        return catalogue.vecTheme;
    case eCfgItem_BgMaterial:
        return catalogue.vecBgMaterial;
    case eCfgItem_Filter:
    case eCfgItem_Resource:
        break;
    }
    return catalogue.vecFilter;
}

QVector<SCfg_Item*> displayed(ECfgItemType kind)
{
    const QVector<SCfg_Item>& shown = ofKind(MVThemeMgr::init()->getDisplayXML(), kind);
    QVector<SCfg_Item*> items;
    items.reserve(shown.size());
    for (const SCfg_Item& item : shown) {
        // Found by position, not by GUID: a catalogue can list an item twice.
        items.append(const_cast<SCfg_Item*>(&item));
    }
    return items;
}

int missingFiles(SCfg_Item& item)
{
    QSet<QString> files;
    // Other missing files are unknown until the config has been fetched anew.
    if (!MVThemeMgr::init()->ensureThemeParsed(item) && hostSettings().checkContent)
        files.insert(item.m_info_CfgXML.m_qsFile);
    QVector<SFileInfo*> missing;
    MVThemeMgr::init()->getNeedDownLoadFiles(&item, missing);
    for (const SFileInfo* info : qAsConst(missing))
        files.insert(info->m_qsFile);
    return files.size();
}

QJsonObject toJson(SCfg_Item& item)
{
    const int missing = missingFiles(item);
    return {
        {QStringLiteral("guid"), item.m_qsGUID},
        {QStringLiteral("kind"), kindName(item.m_eType)},
        {QStringLiteral("name"), item.m_qsName},
        {QStringLiteral("themeType"), themeTypeName(item)},
        {QStringLiteral("favourite"), MVThemeMgr::init()->isItemCollect(&item)},
        {QStringLiteral("ready"), missing == 0},
        {QStringLiteral("missing"), missing},
    };
}

} // namespace Items
