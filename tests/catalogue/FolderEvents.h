// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>
#include <QMap>
#include <QString>
#include <QStringList>

#include <cerrno>
#include <sys/inotify.h>
#include <unistd.h>

/// Records the entries that appear in several folders, in the order of their appearance.
class FolderEvents
{
public:
    FolderEvents()
        : m_fd(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
    }
    ~FolderEvents() { close(m_fd); }
    Q_DISABLE_COPY_MOVE(FolderEvents)

    /// Watches a folder, called `label` in appeared(). Returns false if it cannot be watched.
    bool watch(const QString& folder, const QString& label)
    {
        const int id =
            inotify_add_watch(m_fd, QFile::encodeName(folder).constData(), IN_CREATE | IN_MOVED_TO);
        m_labels.insert(id, label);
        return id >= 0;
    }

    /// Returns "label/name" of every entry that has appeared since the last call.
    QStringList appeared()
    {
        QStringList names;
        alignas(inotify_event) char buffer[4096];
        for (;;) {
            const ssize_t length = read(m_fd, buffer, sizeof buffer);
            if (length <= 0)
                return names;
            for (ssize_t at = 0; at < length;) {
                const auto* event =
                    static_cast<const inotify_event*>(static_cast<const void*>(buffer + at));
                names.append(m_labels.value(event->wd) + QLatin1Char('/')
                             + QFile::decodeName(event->name));
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        }
    }

private:
    int m_fd;
    QMap<int, QString> m_labels;
};
