// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "TreeContents.h"

#include "download/ReleasePaths.h"
#include "download/SRelease.h"
#include "host/ContentDigest.h"
#include "release/TreeBytes.h"
#include "tree/ReadTree.h"

#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QVector>

#include <utility>

TreeContents::TreeContents(const ReadTree& tree)
    : TreeContents(tree.folder())
{
    readList();
    if (!m_isListed)
        readDisk();
}

TreeContents::TreeContents(QString folder)
    : m_folder(std::move(folder))
{
}

TreeContents TreeContents::onDisk(const ReadTree& tree)
{
    TreeContents contents(tree.folder());
    contents.readDisk();
    return contents;
}

void TreeContents::readList()
{
    QByteArray json;
    QByteArray text;
    SRelease release;
    QString reason;
    const QString folder = m_folder + QLatin1Char('/');
    m_isListed =
        TreeBytes::read(folder + ReleasePaths::release(), SRelease::maxBytes, json, &reason)
        && SRelease::parse(json, release, reason)
        && TreeBytes::read(folder + ReleasePaths::list(), ReleaseList::maxBytes, text, &reason)
        && ContentDigest::ofBytes(text) == release.m_listDigest
        && ReleaseList::parse(text, m_list, reason);
    if (!m_isListed)
        return;
    m_listBytes = text.size();
    const QVector<ReleaseList::Entry>& entries = m_list.entries();
    for (const ReleaseList::Entry& entry : entries)
        m_sizes.insert(QString::fromUtf8(entry.path), entry.sizeBytes);
}

void TreeContents::readDisk()
{
    const QString contents = ReleasePaths::contentFolder() + QLatin1Char('/');
    const QDir root(m_folder);
    QDirIterator it(m_folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString name = root.relativeFilePath(it.next());
        if (!name.startsWith(contents))
            m_sizes.insert(name, it.fileInfo().size());
    }
    for (const QString& name :
         {ReleasePaths::release(), ReleasePaths::signature(), ReleasePaths::list()})
        m_sizes.remove(name);
}

bool TreeContents::isEqual(const TreeContents& other, const QString& name) const
{
    return m_sizes.value(name) == other.m_sizes.value(name)
        && digestOf(name) == other.digestOf(name);
}

QByteArray TreeContents::digestOf(const QString& name) const
{
    return m_isListed ? m_list.find(name).digest
                      : ContentDigest::ofFile(m_folder + QLatin1Char('/') + name);
}
