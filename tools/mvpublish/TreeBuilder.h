// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Documents.h"
#include "tree/Editions.h"

#include <QSet>

class Source;

/// Writes a whole tree from a source into an empty folder, the version files last.
class TreeBuilder
{
public:
    explicit TreeBuilder(const Source& source);

    /// Writes the tree that a resource server publishes, for these editions.
    bool writeServer(const QString& folder, const QVector<Edition>& editions);
    /// Writes the tree that the application installs, its folder "Resource": a catalogue of the
    /// items marked as installed and of those that they use, the previews of the former, and the
    /// files of built-in items.
    bool writeInstallation(const QString& folder);

    /// Returns why it failed.
    QString errorText() const { return m_error; }
    /// Returns the names of the written files, relative to the folder.
    const QSet<QString>& files() const { return m_written; }
    qint64 byteCount() const { return m_bytes; }

private:
    bool writeItem(const SourceItem& item);
    bool writePreviews(const SourceItem& item);
    bool writeFile(const SourceItem& item, const QString& name, const QString& target);
    bool writeKindLists(const Documents::Items& items);
    bool writeNonePictures();
    bool writeEditions(const QVector<Edition>& editions, const Documents::Items& items);
    bool writeDocument(const QString& name, const QByteArray& content);
    bool write(const QString& name, const QByteArray& content);
    bool copy(const QString& from, const QString& name);
    bool pack(const QString& folder, const QString& name);
    bool place(const QString& name);
    bool makeFolder(const QString& name);
    bool fail(const QString& text);

    const Source& m_source;
    QString m_folder;
    QString m_configHalf; ///< "config/" or nothing
    QSet<QString> m_written;
    QSet<QString> m_folders;
    QString m_error;
    qint64 m_bytes = 0;
};
