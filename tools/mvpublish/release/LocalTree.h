// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "release/PublishedTree.h"

#include <QHash>
#include <QPair>

/// The tree in a folder.
class LocalTree : public PublishedTree
{
public:
    explicit LocalTree(const QString& folder);

    Document read(const QString& name, qint64 maxBytes) override;
    QVector<Deviation> compare(const QVector<Expected>& files, const Progress& progress) override;

private:
    QByteArray digestOf(const QString& file, const Progress& progress);

    QString m_folder;
    QHash<QPair<quint64, quint64>, QByteArray> m_digests; // by identity: links share one
};
