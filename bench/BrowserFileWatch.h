// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QSet>
#include <QStringList>

/// Counts the files in some folders that this program opens.
class BrowserFileWatch
{
public:
    struct Tally
    {
        int files = 0; ///< files opened
        int again = 0; ///< of these, opened before, in this tally or an earlier one
    };

    explicit BrowserFileWatch(const QStringList& folders);
    ~BrowserFileWatch();
    Q_DISABLE_COPY_MOVE(BrowserFileWatch)

    /// Returns what was opened since the last call, in time proportional to the list of events.
    Tally take();

private:
    void note(Tally& tally, const QString& path);

    int m_notifier;
    QHash<int, QString> m_folders; // by watch
    QSet<QString> m_opened;
};
