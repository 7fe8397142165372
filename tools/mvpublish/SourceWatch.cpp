// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SourceWatch.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QStringList>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds settleTime{300};

} // namespace

SourceWatch::SourceWatch(const QString& folder)
    : m_folder(folder)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(settleTime);
    const auto wait = [this] { m_pause.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, wait);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, wait);
    connect(&m_pause, &QTimer::timeout, this, &SourceWatch::compare);
}

int SourceWatch::begin()
{
    // First, so that what changes while it looks is reported afterwards.
    const State before = look();
    QStringList paths = before.keys();
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    const QSet<QString> known(watched.cbegin(), watched.cend());
    QStringList fresh;
    for (const QString& path : qAsConst(paths)) {
        if (!known.contains(path))
            fresh.append(path);
    }
    const QStringList refused = fresh.isEmpty() ? QStringList() : m_watcher.addPaths(fresh);
    m_state = before;
    if (look() != before)
        m_pause.start();
    return static_cast<int>(refused.size());
}

SourceWatch::State SourceWatch::look() const
{
    State state;
    const auto note = [&](const QFileInfo& entry) {
        state.insert(entry.filePath(), {entry.lastModified(), entry.isDir() ? 0 : entry.size()});
    };
    note(QFileInfo(m_folder));
    QDirIterator each(m_folder, QDir::AllEntries | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (each.hasNext()) {
        each.next();
        note(each.fileInfo());
    }
    return state;
}

void SourceWatch::compare()
{
    if (look() != m_state)
        emit changed();
}
