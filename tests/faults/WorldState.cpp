// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WorldState.h"

#include "support/CatalogueFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSet>

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

fs::path pathOf(const QString& name)
{
    return {QFile::encodeName(name).toStdString()};
}

QString nameOf(const fs::path& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

WorldEntry entryAt(const fs::directory_entry& found)
{
    WorldEntry entry;
    if (found.is_symlink()) {
        entry.kind = WorldEntry::Kind::Link;
        entry.content = QByteArray::fromStdString(fs::read_symlink(found.path()).string());
        return entry;
    }
    entry.mode = static_cast<unsigned int>(found.status().permissions());
    if (found.is_directory())
        entry.kind = WorldEntry::Kind::Folder;
    else
        entry.content = CatalogueFiles::read(nameOf(found.path()));
    return entry;
}

bool isIn(const QString& path, const QStringList& places)
{
    return std::any_of(places.cbegin(), places.cend(), [&](const QString& place) {
        return path == place || path.startsWith(place + QLatin1Char('/'));
    });
}

} // namespace

WorldState WorldState::of(const QString& folder)
{
    WorldState state;
    const fs::path root = pathOf(folder);
    if (!fs::exists(root))
        return state;
    for (const fs::directory_entry& found : fs::recursive_directory_iterator(root))
        state.m_entries.insert(nameOf(found.path().lexically_relative(root)), entryAt(found));
    return state;
}

bool WorldState::isSameAt(const QString& path, const WorldState& other) const
{
    const auto mine = m_entries.constFind(path);
    const auto its = other.m_entries.constFind(path);
    if (mine == m_entries.cend() || its == other.m_entries.cend())
        return mine == m_entries.cend() && its == other.m_entries.cend();
    return *mine == *its;
}

WorldState WorldState::within(const QStringList& places) const
{
    WorldState part;
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it) {
        if (isIn(it.key(), places))
            part.m_entries.insert(it.key(), it.value());
    }
    return part;
}

WorldState WorldState::without(const QStringList& places) const
{
    WorldState part;
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it) {
        if (!isIn(it.key(), places))
            part.m_entries.insert(it.key(), it.value());
    }
    return part;
}

WorldState WorldState::below(const QString& path) const
{
    WorldState part;
    const QMap<QString, WorldEntry> all = within({path}).m_entries;
    for (auto it = all.cbegin(); it != all.cend(); ++it)
        part.m_entries.insert(QLatin1Char('.') + it.key().mid(path.size()), it.value());
    return part;
}

WorldState WorldState::withFoldersOf(const WorldState& other) const
{
    WorldState more = *this;
    for (auto it = other.m_entries.cbegin(); it != other.m_entries.cend(); ++it) {
        if (it->kind == WorldEntry::Kind::Folder && !contains(it.key()))
            more.m_entries.insert(it.key(), it.value());
    }
    return more;
}

QByteArray WorldState::digest() const
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it) {
        const QByteArray path = it.key().toUtf8();
        const WorldEntry& entry = it.value();
        for (const qint64 number : {qint64(path.size()), qint64(entry.kind), qint64(entry.mode),
                                    qint64(entry.content.size())})
            hash.addData(QByteArray::number(number) + ' ');
        hash.addData(path);
        hash.addData(entry.content);
    }
    return hash.result();
}

QString WorldState::differenceFrom(const WorldState& other) const
{
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it) {
        if (!other.contains(it.key()))
            return it.key() + QStringLiteral(" is there");
        if (!isSameAt(it.key(), other))
            return it.key() + QStringLiteral(" differs");
    }
    for (auto it = other.m_entries.cbegin(); it != other.m_entries.cend(); ++it) {
        if (!contains(it.key()))
            return it.key() + QStringLiteral(" is missing");
    }
    return {};
}

bool WorldState::copy(const QString& from, const QString& to)
{
    std::error_code error;
    fs::remove_all(pathOf(to), error);
    fs::copy(pathOf(from), pathOf(to),
             fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    return !error;
}
