#pragma once

#include <QJsonArray>
#include <QSet>
#include <QString>
#include <QVector>

struct SCfg_Item;
struct SFileInfo;

/// The files of one item and of everything that it depends on, each file once.
class ItemFiles
{
public:
    struct Entry
    {
        QString what; ///< "thumbnail", "preview", "config" or "resource"
        QString path;
        QString url;
        bool present = false;
        qint64 size = 0; ///< bytes on disk
    };

    /// Looks the files up on disk now.
    explicit ItemFiles(SCfg_Item& item);

    const QVector<Entry>& entries() const { return m_entries; }
    const QVector<SCfg_Item*>& dependencies() const { return m_dependencies; }
    int missing() const;
    qint64 totalSize() const;
    QJsonArray toJson() const;

private:
    void add(SCfg_Item& item);
    void add(const QString& what, const SFileInfo& info);

    QVector<Entry> m_entries;
    QSet<QString> m_paths;              // of the entries
    QVector<SCfg_Item*> m_dependencies; // owned by the catalogue
};
