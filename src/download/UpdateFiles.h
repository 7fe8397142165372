// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/AcceptedRelease.h"
#include "download/FileStates.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QtGlobal>
#include <QVector>

#include <memory>
#include <vector>

struct SCfg_Item;

/// The files that an update fetches, and which of the updated items need them. Internal to the
/// library; the update's thread only.
class UpdateFiles
{
public:
    struct File
    {
        ItemFiles::Entry entry;
        AcceptedRelease::Source source;
        QString staged;      ///< where it arrives
        QSet<int> owners;    ///< of the updated items, those that use it
        qint64 received = 0; ///< bytes
        qint64 total = 0;    ///< bytes, as far as known
        bool isReady = false;
        bool isFailed = false;

        bool isDefinition() const { return entry.role == ItemFiles::Role::Config; }
        bool isThemeDefinition() const;
    };

    /// Files arrive in `folder`, which ends in "/". Lists the files of the items.
    UpdateFiles(const QVector<SCfg_Item*>& items, QString folder);

    /// Adds the files of the items that fetched definitions of themes use. Returns the definitions
    /// that cannot be read.
    QVector<File*> addUsed();

    /// Returns the files that have neither arrived nor failed, definitions of themes first: these
    /// tell what else is needed.
    QVector<File*> toFetch();
    /// Returns whether a definition of a theme is among those.
    static bool hasThemes(const QVector<File*>& files);

    /// Returns the files of the items of which every needed file is ready, definitions last and
    /// those of the items themselves behind those of what they use.
    QVector<File*> toStore();

    qint64 receivedBytes() const;
    qint64 totalBytes() const;

private:
    void add(int owner, SCfg_Item& item);
    void add(int owner, const ItemFiles::Entry& entry);

    const QString m_folder;
    const FileStates m_states;
    const AcceptedRelease::Pointer m_release;
    QVector<SCfg_Item*> m_items;
    std::vector<std::unique_ptr<File>> m_files;
    QHash<QString, File*> m_byPath;
    QSet<QString> m_read; // definitions whose uses have been added
};
