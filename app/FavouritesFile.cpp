#include "FavouritesFile.h"

#include "catalogue/MVThemeMgr.h"
#include "host/RegularFile.h"
#include "ShownItems.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QSet>
#include <QUuid>

#include <algorithm>

namespace {

constexpr int format = 1;
constexpr qint64 mostBytes = 16 * 1024 * 1024;

const QString formatKey = QStringLiteral("format");
const QString listKey = QStringLiteral("favourites");
const QString kindKey = QStringLiteral("kind");
const QString guidKey = QStringLiteral("guid");
const QString nameKey = QStringLiteral("name");

struct Kind
{
    ECfgItemType type;
    QLatin1String name;
};

const Kind kinds[] = {{eCfgItem_Theme, QLatin1String("theme")},
                      {eCfgItem_Filter, QLatin1String("filter")},
                      {eCfgItem_BgMaterial, QLatin1String("background")}};

const QVector<SCfg_Item>& itemsOf(ECfgItemType type)
{
    const MVThemeMgr::SResourceXML& shown = MVThemeMgr::init()->getDisplayXML();
    if (type == eCfgItem_Theme)
        return shown.vecTheme;
    return type == eCfgItem_Filter ? shown.vecFilter : shown.vecBgMaterial;
}

/// An item that has what a mark needs; false for an entry that is none.
bool readEntry(const QJsonObject& entry, SCfg_Item& item)
{
    const QString kind = entry.value(kindKey).toString();
    item.m_qsGUID = entry.value(guidKey).toString();
    item.m_bCollected = true;
    if (QUuid(item.m_qsGUID).isNull())
        return false;
    for (const Kind& known : kinds) {
        item.m_eType = known.type;
        if (known.name == kind)
            return true;
    }
    return false;
}

QJsonObject entryOf(ECfgItemType type, const QString& guid, const QString& name)
{
    const auto* const kind = std::find_if(std::begin(kinds), std::end(kinds),
                                          [type](const Kind& known) { return known.type == type; });
    return {{kindKey, QString(kind->name)}, {guidKey, guid}, {nameKey, name}};
}

} // namespace

bool FavouritesFile::write(const QString& path)
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    QSet<QString> themes; // that are written by their items
    QSet<QString> others;
    QJsonArray list;
    for (const Kind& kind : kinds) {
        for (const SCfg_Item& item : itemsOf(kind.type)) {
            if (!catalogue->isItemCollect(&item))
                continue;
            list.append(entryOf(kind.type, item.m_qsGUID, item.m_qsName));
            (kind.type == eCfgItem_Theme ? themes : others).insert(item.m_qsGUID);
        }
    }
    const auto appendLeft = [&](ECfgItemType type, const QSet<QString>& written) {
        const QStringList marked = catalogue->favourites(type);
        for (const QString& guid : marked) {
            if (!written.contains(guid))
                list.append(entryOf(type, guid, QString()));
        }
    };
    appendLeft(eCfgItem_Theme, themes);
    // Filters and backgrounds share their marks: what the catalogue does not hold may be either.
    appendLeft(eCfgItem_Filter, others);
    m_count = list.size();
    QSaveFile file(path);
    const QByteArray bytes =
        QJsonDocument(QJsonObject{{formatKey, format}, {listKey, list}}).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return fail(tr("%1 cannot be written: %2").arg(path, file.errorString()));
    return true;
}

bool FavouritesFile::read(const QString& path)
{
    QFile file(path);
    QString reason;
    if (!RegularFile::open(file, QIODevice::ReadOnly, &reason))
        return fail(tr("%1 cannot be read: %2").arg(path, reason));
    const QJsonDocument document = QJsonDocument::fromJson(file.read(mostBytes));
    const QJsonValue list = document.object().value(listKey);
    if (document.object().value(formatKey).toInt() != format || !list.isArray())
        return fail(tr("%1 is no file of favourites").arg(path));
    QVector<SCfg_Item> items;
    const QJsonArray entries = list.toArray();
    for (int entry = 0; entry < entries.size(); ++entry) {
        SCfg_Item item;
        if (!readEntry(entries.at(entry).toObject(), item))
            return fail(tr("%1 holds an entry that is no favourite").arg(path));
        items.append(item);
    }
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    ShownItems shownItems;
    m_unknown = 0;
    for (const SCfg_Item& mark : qAsConst(items)) {
        SCfg_Item* const item = shownItems.find(mark.m_eType, mark.m_qsGUID);
        if (item)
            item->m_bCollected = true;
        else
            ++m_unknown;
        catalogue->setItemCollected(item ? item : &mark);
    }
    m_count = items.size();
    return true;
}

bool FavouritesFile::fail(const QString& text)
{
    m_error = text;
    return false;
}
