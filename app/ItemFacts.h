// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemFiles.h"
#include "records/ECfgItemType.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

struct SCfg_Item;

/// Describes one item for display: its kind, the items it uses, its files. The constructor reads
/// the disk; texts are in the language current at construction.
class ItemFacts
{
    Q_DECLARE_TR_FUNCTIONS(ItemFacts)

public:
    struct Used
    {
        QString name;
        QString kind;
    };
    struct File
    {
        QString label; ///< what the file is, for users: "Music: Snow Bells"
        QString name;  ///< of the file
        QString path;
        bool present = false;
        qint64 size = 0; ///< bytes on disk
    };

    explicit ItemFacts(SCfg_Item& item);

    QString name() const { return m_name; }
    /// Returns a text such as "Theme · Travel".
    QString kind() const { return m_kind; }
    QString thumbnail() const { return m_thumbnail; } ///< path; empty: none on disk
    QString animation() const { return m_animation; } ///< path; empty: none on disk
    const QVector<Used>& used() const { return m_used; }
    /// Returns the item's files, then those of the items it uses; each once.
    const QVector<File>& files() const { return m_files; }
    qint64 totalSize() const;

private:
    static QString kindName(ECfgItemType kind);
    static QString themeTypeName(int type);
    static QString labelOf(const ItemFiles::Entry& entry);
    static QString resourceLabel(const QString& fileName);
    void addUsed(const ItemFiles& files);
    void addFiles(const ItemFiles& files);

    QString m_name;
    QString m_kind;
    QString m_thumbnail;
    QString m_animation;
    QVector<Used> m_used;
    QVector<File> m_files;
};
