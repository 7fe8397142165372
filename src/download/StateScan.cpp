// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/StateScan.h"

#include "catalogue/ItemFiles.h"
#include "download/FileStates.h"
#include "records/FileView.h"
#include "records/SCfg_Item.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHashFunctions>

#include <algorithm>
#include <utility>

namespace {

constexpr int maxBatch = 512;
constexpr int batchMs = 100; // the longest time for which results are held back

SItemFacts::Picture pictureOf(const SFileInfo& info)
{
    const FileView view(info);
    const QString path = view.file();
    if (path.isEmpty() || view.name().isEmpty())
        return {};
    const QFileInfo file(path);
    if (!file.isFile())
        return {};
    return {QUrl::fromLocalFile(QDir::cleanPath(path)), file.size(),
            file.lastModified().toMSecsSinceEpoch()};
}

SItemFacts picturesOf(const SCfg_Item& item)
{
    SItemFacts facts;
    facts.thumbnail = pictureOf(item.m_info_Thumb);
    facts.preview = pictureOf(item.m_info_Gif);
    return facts;
}

SItemFacts factsOf(SCfg_Item& item, const FileStates& states)
{
    SItemFacts facts;
    facts.state = states.of(item); // also sets the local paths of all records
    facts.hasState = true;
    const SItemFacts pictures = picturesOf(item);
    facts.thumbnail = pictures.thumbnail;
    facts.preview = pictures.preview;
    const ItemFiles files(item);
    for (const ItemFiles::Entry& entry : files.entries())
        facts.paths.append(StateScan::hashOf(entry.path));
    std::sort(facts.paths.begin(), facts.paths.end());
    return facts;
}

} // namespace

StateScan::StateScan(QVector<Wanted> items, Report report)
    : m_items(std::move(items))
    , m_report(std::move(report))
{
}

quint32 StateScan::hashOf(const QString& path)
{
    return static_cast<quint32>(qHash(path));
}

void StateScan::run(const CancelToken& cancel)
{
    for (const Wanted& wanted : std::as_const(m_items)) {
        if (cancel.isCancelled())
            return;
        if (wanted.isNew)
            add(wanted, picturesOf(*wanted.item));
    }
    deliver();
    const FileStates states(FileStates::Depth::Quick,
                            [&cancel](qint64) { return !cancel.isCancelled(); });
    QElapsedTimer sinceDelivery;
    sinceDelivery.start();
    for (const Wanted& wanted : std::as_const(m_items)) {
        const SItemFacts facts = factsOf(*wanted.item, states);
        if (cancel.isCancelled()) // what could not be read to its end is not known
            break;
        add(wanted, facts);
        ++m_done;
        if (sinceDelivery.elapsed() >= batchMs) {
            deliver();
            sinceDelivery.restart();
        }
    }
    deliver();
}

void StateScan::add(const Wanted& wanted, const SItemFacts& facts)
{
    m_batch.append({{wanted.item->m_eType, wanted.item->m_qsGUID}, wanted.request, facts});
    if (m_batch.size() >= maxBatch)
        deliver();
}

void StateScan::deliver()
{
    if (!m_batch.isEmpty())
        m_report(std::exchange(m_batch, {}));
}

QVector<ResourceKey> StateScan::left() const
{
    QVector<ResourceKey> keys;
    for (int i = m_done; i < m_items.size(); ++i)
        keys.append({m_items.at(i).item->m_eType, m_items.at(i).item->m_qsGUID});
    return keys;
}
