#include "Items.h"

#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"

#include <QSet>
#include <QUuid>

namespace {

const QVector<SCfg_Item>& displayVector(ECfgItemType kind)
{
    const MVThemeMgr::SResourceXML& display = MVThemeMgr::init()->getDisplayXML();
    switch (kind) {
    case eCfgItem_Transition:
        return display.vecTransition;
    case eCfgItem_Motion:
        return display.vecMotion;
    case eCfgItem_Theme:
        return display.vecTheme;
    case eCfgItem_BgMaterial:
        return display.vecBgMaterial;
    case eCfgItem_Filter:
    case eCfgItem_Resource:
        break;
    }
    return display.vecFilter;
}

SCfg_Item* findExactly(const QString& guid)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    for (const ECfgItemType kind : Items::allKinds()) {
        if (SCfg_Item* const item = manager->findItemByIDFromDisplay(kind, guid))
            return item;
    }
    for (const ECfgItemType kind : Items::allKinds()) {
        if (SCfg_Item* const item = manager->findItemByIDFromConfig(kind, guid))
            return item;
    }
    return nullptr;
}

/// A GUID as catalogues write it, from one in any case, with or without braces; empty for any other
/// text. QUuid alone would overlook what follows a GUID.
QString canonical(const QString& guid)
{
    const QUuid id(guid);
    const bool whole = guid.compare(id.toString(QUuid::WithBraces), Qt::CaseInsensitive) == 0
        || guid.compare(id.toString(QUuid::WithoutBraces), Qt::CaseInsensitive) == 0;
    return whole ? id.toString().toUpper() : QString();
}

} // namespace

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

QVector<SCfg_Item*> displayed(ECfgItemType kind)
{
    QVector<SCfg_Item*> items;
    for (const SCfg_Item& item : displayVector(kind)) {
        // Found by position, not by GUID: a catalogue can list an item twice.
        items.append(const_cast<SCfg_Item*>(&item));
    }
    return items;
}

SCfg_Item* find(const QString& guid)
{
    if (SCfg_Item* const item = findExactly(guid))
        return item;
    const QString written = canonical(guid);
    return written.isEmpty() ? nullptr : findExactly(written);
}

QString nameOf(const SCfg_Item& item)
{
    if (!item.m_qsName.isEmpty())
        return item.m_qsName;
    const SCfg_Item* const shown =
        MVThemeMgr::init()->findItemByIDFromDisplay(item.m_eType, item.m_qsGUID);
    return shown ? shown->m_qsName : QString();
}

int missingFiles(SCfg_Item& item)
{
    QSet<QString> files;
    // What else is missing is not known before the config has been fetched anew.
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
