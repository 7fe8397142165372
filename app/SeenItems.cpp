// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SeenItems.h"

#include "catalogue/MVThemeMgr.h"
#include "records/KindTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <utility>

namespace {

constexpr qint64 maxSeenBytes = 16 * 1024 * 1024;

QSet<QString> shownItems()
{
    QSet<QString> guids;
    for (const SKindInfo& kind : KindTable::all()) {
        for (const SCfg_Item& item : *MVThemeMgr::init()->getDisplayXML().ofKind(kind.type))
            guids.insert(item.m_qsGUID);
    }
    return guids;
}

} // namespace

SeenItems::SeenItems(QString file)
    : m_file(std::move(file))
{
    QFile stored(m_file);
    if (!QFileInfo(m_file).isFile() || !stored.open(QIODevice::ReadOnly))
        return;
    const QJsonDocument document = QJsonDocument::fromJson(stored.read(maxSeenBytes));
    m_isKnown = document.isArray();
    const QJsonArray guids = document.array();
    for (const QJsonValue& guid : guids)
        m_seen.insert(guid.toString());
}

QSet<QString> SeenItems::newItems() const
{
    return m_isKnown ? shownItems() - m_seen : QSet<QString>();
}

bool SeenItems::save() const
{
    QJsonArray guids;
    const QSet<QString> all = shownItems() + m_seen;
    for (const QString& guid : all)
        guids.append(guid);
    QDir().mkpath(QFileInfo(m_file).path());
    QSaveFile file(m_file);
    return file.open(QIODevice::WriteOnly)
        && file.write(QJsonDocument(guids).toJson(QJsonDocument::Compact)) > 0 && file.commit();
}
