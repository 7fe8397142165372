// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

/// Watches the folders and files of a source. A publisher's programs write many files, and some of
/// them several times, so a change counts once no other has followed for a moment.
class SourceWatch : public QObject
{
    Q_OBJECT

public:
    explicit SourceWatch(const QString& folder);

    /// Watches what is there now, and takes it as the state that changes are changes of. Returns
    /// the number of entries that the system does not watch.
    int begin();

signals:
    /// Something differs from the state at the last begin(). Until the next one, this is emitted
    /// after each further change.
    void changed();

private:
    struct Stamp
    {
        QDateTime time;
        qint64 sizeBytes;
        bool operator==(const Stamp& other) const
        {
            return time == other.time && sizeBytes == other.sizeBytes;
        }
    };
    using State = QHash<QString, Stamp>; // by path; folders, too

    State look() const;
    void compare();

    QString m_folder;
    QFileSystemWatcher m_watcher;
    QTimer m_pause;
    State m_state;
};
