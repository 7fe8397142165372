// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemIndex.h"
#include "download/ResourceStorage.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <QVector>

class Arguments;

/// Implements "mvres remove GUID... [--dry-run]".
///
/// Deletes the files of the items that no other item on disk needs, and tells what stays. Continues
/// after a failure.
class RemoveCommand
{
public:
    static int run(const Arguments& arguments);

private:
    explicit RemoveCommand(bool isDryRun);

    /// One of the items, and how its removal has ended.
    struct Row
    {
        SCfg_Item* item;
        QStringList files; ///< that it had on disk, with all that it uses
        ResourceStorage::Removal removal;
    };
    /// What has stayed of an item.
    struct Kept
    {
        QStringList files;
        qint64 bytes = 0;
        QVector<SCfg_Item*> users; ///< the items that need them
    };

    void remove(const QVector<SCfg_Item*>& items);
    void findUsers();
    bool isOnDisk(const QString& file) const;
    Kept keptOf(const Row& row) const;
    void print();
    QString textOf(const Row& row);
    qint64 bytes() const;
    bool isComplete() const;
    QJsonObject toJson() const;
    QJsonArray itemsToJson() const;

    bool m_isDryRun;
    ItemIndex m_index;
    QVector<Row> m_rows;
    QSet<QString> m_removed;                     // files, also if they only would be
    QHash<QString, QVector<SCfg_Item*>> m_users; // of files on disk after the removals, by path
};
