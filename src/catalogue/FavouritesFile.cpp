// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/FavouritesFile.h"

#include "catalogue/CatalogueIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "host/RegularFile.h"
#include "host/STransferFailure.h"
#include "host/Utils.h"
#include "records/KindTable.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QUuid>

#include <algorithm>

namespace {

constexpr int formatVersion = 1;
constexpr qint64 maxFavouritesBytes = 16 * 1024 * 1024;

const QString versionKey = QStringLiteral("format");
const QString favouritesKey = QStringLiteral("favourites");
const QString kindKey = QStringLiteral("kind");
const QString guidKey = QStringLiteral("guid");
const QString nameKey = QStringLiteral("name");

/// Returns in `item` the fields that a mark needs; returns false for an invalid entry.
bool readEntry(const QJsonObject& entry, SCfg_Item& item)
{
    const QString name = entry.value(kindKey).toString();
    item.m_qsGUID = entry.value(guidKey).toString();
    item.m_bCollected = true;
    if (QUuid(item.m_qsGUID).isNull())
        return false;
    for (const SKindInfo& kind : KindTable::all()) {
        item.m_eType = kind.type;
        if (kind.favourites != EFavouritesFile::None && kind.exportName == name)
            return true;
    }
    return false;
}

QJsonObject entryOf(ECfgItemType kind, const QString& guid, const QString& name)
{
    return {{kindKey, QString(KindTable::of(kind).exportName)}, {guidKey, guid}, {nameKey, name}};
}

/// Returns a kind's favourites among the shown items, and adds their GUIDs to `guids`.
QJsonArray shownFavourites(ECfgItemType kind, QSet<QString>& guids)
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    QJsonArray list;
    for (const SCfg_Item& item : *catalogue->getDisplayXML().ofKind(kind)) {
        if (!catalogue->isItemCollect(&item))
            continue;
        list.append(entryOf(kind, item.m_qsGUID, item.m_qsName));
        guids.insert(item.m_qsGUID);
    }
    return list;
}

void append(QJsonArray& list, const QJsonArray& more)
{
    for (const QJsonValue& entry : more)
        list.append(entry);
}

QJsonArray allFavourites()
{
    // In the order of the file; filters and backgrounds share their marks, so an unknown item may
    // be either.
    QSet<QString> themes;
    QSet<QString> others;
    QJsonArray list;
    append(list, shownFavourites(eCfgItem_Theme, themes));
    append(list, shownFavourites(eCfgItem_Filter, others));
    append(list, shownFavourites(eCfgItem_BgMaterial, others));
    const auto appendRest = [&list](ECfgItemType kind, const QSet<QString>& written) {
        const QStringList marked = MVThemeMgr::init()->favourites(kind);
        for (const QString& guid : marked) {
            if (!written.contains(guid))
                list.append(entryOf(kind, guid, QString()));
        }
    };
    appendRest(eCfgItem_Theme, themes);
    appendRest(eCfgItem_Filter, others);
    return list;
}

/// Returns the details without the path, which the error's text has already.
QString reasonOf(const STransferFailure& failure)
{
    const QString beginning = failure.m_qsFile + QStringLiteral(": ");
    return failure.m_qsDetails.startsWith(beginning) ? failure.m_qsDetails.mid(beginning.size())
                                                     : failure.m_qsDetails;
}

} // namespace

bool FavouritesFile::write(const QString& path)
{
    m_error = Error::None;
    const QJsonArray list = allFavourites();
    m_count = list.size();
    const QByteArray bytes =
        QJsonDocument(QJsonObject{{versionKey, formatVersion}, {favouritesKey, list}}).toJson();
    const QFileInfo file(path); // a link keeps its place, and the file that it names is replaced
    STransferFailure failure;
    if (!Utils::writeFile(file.isSymLink() ? file.symLinkTarget() : path, bytes, &failure))
        return fail(Error::CannotWrite, path, reasonOf(failure));
    return true;
}

bool FavouritesFile::read(const QString& path)
{
    m_error = Error::None;
    QFile file(path);
    QString reason;
    if (!RegularFile::open(file, QIODevice::ReadOnly, &reason))
        return fail(Error::CannotRead, path, reason);
    const QJsonDocument document = QJsonDocument::fromJson(file.read(maxFavouritesBytes));
    const QJsonValue list = document.object().value(favouritesKey);
    if (document.object().value(versionKey).toInt() != formatVersion || !list.isArray())
        return fail(Error::NotFavourites, path);
    QVector<SCfg_Item> items;
    const QJsonArray entries = list.toArray();
    for (int entry = 0; entry < entries.size(); ++entry) {
        SCfg_Item item;
        if (!readEntry(entries.at(entry).toObject(), item))
            return fail(Error::BadEntry, path);
        items.append(item);
    }
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    CatalogueIndex shownItems(catalogue->getDisplayXML());
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

QString FavouritesFile::errorText() const
{
    switch (m_error) {
    case Error::None:
        break;
    case Error::CannotWrite:
        return QStringLiteral("%1 cannot be written: %2").arg(m_path, m_reason);
    case Error::CannotRead:
        return QStringLiteral("%1 cannot be read: %2").arg(m_path, m_reason);
    case Error::NotFavourites:
        return QStringLiteral("%1 is not a file of favourites").arg(m_path);
    case Error::BadEntry:
        return QStringLiteral("%1 contains an entry that is not a favourite").arg(m_path);
    }
    return {};
}

bool FavouritesFile::fail(Error error, const QString& path, const QString& reason)
{
    m_error = error;
    m_path = path;
    m_reason = reason;
    return false;
}
