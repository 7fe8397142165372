// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemIndex.h"
#include "download/ResourceStorage.h"

#include <QHash>
#include <QJsonArray>
#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <QVector>

class Arguments;

/// Implements "mvres remove GUID...".
///
/// Deletes the files of the items that no other item on disk needs, and tells what stays. Continues
/// after a failure.
class RemoveCommand
{
public:
    static int run(const Arguments& arguments);

private:
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
    Kept keptOf(const Row& row) const;
    void print();
    QString textOf(const Row& row);
    QJsonArray toJson() const;

    ItemIndex m_index;
    QVector<Row> m_rows;
    QHash<QString, QVector<SCfg_Item*>> m_users; // of files on disk after the removals, by path
};
