// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/UpdateFiles.h"

#include "catalogue/MVThemeMgr.h"
#include "host/ContentDigest.h"
#include "records/SCfg_Item.h"
#include "records/SThemes_a.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int nameDigits = 16;

/// Returns the name under which a file arrives: by target, and by content if that is known, so that
/// what is found there later is what was meant.
QString stagedName(const QString& path, const SPublishedContent& published)
{
    const QByteArray target = ContentDigest::ofBytes(path.toUtf8()).left(nameDigits);
    return QString::fromLatin1(target + '-' + published.m_digest);
}

} // namespace

bool UpdateFiles::File::isThemeDefinition() const
{
    return isDefinition() && entry.item->m_eType == eCfgItem_Theme;
}

UpdateFiles::UpdateFiles(const QVector<SCfg_Item*>& items, QString folder)
    : m_folder(std::move(folder))
    , m_states(FileStates::Depth::Quick)
    , m_release(AcceptedRelease::current())
    , m_items(items)
{
    m_items.removeAll(nullptr);
    for (int owner = 0; owner < m_items.size(); ++owner)
        add(owner, *m_items.at(owner));
}

void UpdateFiles::add(int owner, SCfg_Item& item)
{
    const QVector<ItemFiles::Entry> entries = m_states.toFetch(item);
    for (const ItemFiles::Entry& entry : entries)
        add(owner, entry);
}

void UpdateFiles::add(int owner, const ItemFiles::Entry& entry)
{
    File*& file = m_byPath[entry.path];
    if (!file) {
        m_files.push_back(std::make_unique<File>());
        file = m_files.back().get();
        file->entry = entry;
        file->source = AcceptedRelease::sourceOf(entry.url, m_release);
        file->total = file->source.published.m_sizeBytes;
        file->staged = m_folder + stagedName(entry.path, file->source.published);
    }
    file->owners.insert(owner);
}

QVector<UpdateFiles::File*> UpdateFiles::addUsed()
{
    QVector<File*> definitions;
    for (const auto& file : m_files) {
        if (file->isReady && file->isThemeDefinition() && !m_read.contains(file->entry.path))
            definitions.append(file.get());
    }
    QVector<File*> unreadable;
    for (File* const definition : qAsConst(definitions)) {
        m_read.insert(definition->entry.path);
        SThemes_a* theme = nullptr;
        MVThemeMgr::init()->read_resource_config_Themes_a(definition->staged, theme);
        if (!theme) {
            unreadable.append(definition);
            continue;
        }
        theme->forEachDependency([&](const SThemes_a::SDependInfo& dependency) {
            for (const int owner : qAsConst(definition->owners)) {
                if (dependency.m_pItem)
                    add(owner, *dependency.m_pItem);
            }
            return true;
        });
    }
    return unreadable;
}

QVector<UpdateFiles::File*> UpdateFiles::toFetch()
{
    QVector<File*> files;
    for (const auto& file : m_files) {
        if (!file->isReady && !file->isFailed)
            files.append(file.get());
    }
    std::stable_partition(files.begin(), files.end(),
                          [](const File* file) { return file->isThemeDefinition(); });
    return files;
}

bool UpdateFiles::hasThemes(const QVector<File*>& files)
{
    return !files.isEmpty() && files.first()->isThemeDefinition();
}

QVector<UpdateFiles::File*> UpdateFiles::toStore()
{
    QSet<int> complete;
    for (int owner = 0; owner < m_items.size(); ++owner)
        complete.insert(owner);
    for (const auto& file : m_files) {
        if (!file->isReady && FileStates::isNeeded(file->entry))
            complete.subtract(file->owners);
    }
    QVector<File*> files;
    for (const auto& file : m_files) {
        if (file->isReady && file->owners.intersects(complete))
            files.append(file.get());
    }
    const auto rank = [&](const File* file) {
        return !file->isDefinition() ? 0 : file->isThemeDefinition() ? 2 : 1;
    };
    std::stable_sort(files.begin(), files.end(),
                     [&](const File* left, const File* right) { return rank(left) < rank(right); });
    return files;
}

qint64 UpdateFiles::receivedBytes() const
{
    qint64 bytes = 0;
    for (const auto& file : m_files)
        bytes += file->received;
    return bytes;
}

qint64 UpdateFiles::totalBytes() const
{
    qint64 bytes = 0;
    for (const auto& file : m_files)
        bytes += std::max(file->received, file->total);
    return bytes;
}
