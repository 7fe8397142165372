// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "SourceItem.h"

#include <QHash>

#include <vector>

class JsonFields;

/// A publisher's source as mvpublish reads it: a folder with a manifest "catalogue.json" and, at
/// any depth, one folder per item.
///
///     catalogue.json      version, names of the "none" entry
///     none/               pictures of the "none" entry; without it the tool's own are published
///     shared/             files that several items use
///     retired/            items that are not published any longer
///     ANY/PATH/item.json  an item, beside its files
class Source
{
public:
    /// Reads and checks everything. On false faults() has a line for each fault.
    bool read(const QString& folder);
    /// Reads only the manifests, to tell which items there are and which use which; an item may
    /// have a retired GUID. On false faults() has a line for each fault.
    bool readItems(const QString& folder);
    const QStringList& faults() const { return m_faults; }
    /// Returns a line for each thing that can be published but should not be.
    const QStringList& warnings() const { return m_warnings; }

    QString folder() const { return m_folder; }
    QString version() const { return m_version; }
    QString noneName(const QString& audience) const;
    /// Returns the pictures of the "none" entry by the names under which they are published.
    const QMap<QString, QString>& nonePictures() const { return m_nonePictures; }
    /// Returns the items in the order of the catalogues' lists.
    const std::vector<SourceItem>& items() const { return m_items; }

    /// Returns the GUIDs of retired items, which no item may have again.
    const QStringList& retired() const { return m_retired; }

    static QString manifestName() { return QStringLiteral("catalogue.json"); }
    static QString sharedFolder() { return QStringLiteral("shared"); }
    static QString retiredFolder() { return QStringLiteral("retired"); }
    /// The field of the manifest that lists the GUIDs of retired items.
    static constexpr const char* retiredField = "retired";
    /// Returns whether a folder of that name directly below the source has a purpose other than
    /// items.
    static bool isSpecialFolder(const QString& name);

private:
    bool open(const QString& folder);
    void readCatalogue();
    void readRetired(JsonFields& fields);
    void findNonePictures();
    void findItems(const QString& relative);
    void checkGuids();
    void resolveUses();
    void resolvePart(const SourceItem& item, SourceSlots& part,
                     const QHash<QString, const SourceItem*>& known);
    void checkFiles();
    QString folderToPack(const SourceItem& item, const QString& name) const;
    bool checkFile(const SourceItem& item, const QString& folder, const QString& name);
    void checkPicture(const SourceItem& item, const QString& folder, const QString& name);
    void checkPreviews(const SourceItem& item);
    void checkPacked(const SourceItem& item, const QString& folder);
    void checkPublishedNames();
    void checkSharedFolders(const SourceItem& item);

    QString m_folder;
    QString m_version;
    QMap<QString, QString> m_noneNames;
    QMap<QString, QString> m_nonePictures;
    std::vector<SourceItem> m_items;
    QStringList m_retired;
    QStringList m_faults;
    QStringList m_warnings;
};
