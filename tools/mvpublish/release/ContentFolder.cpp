// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/ContentFolder.h"

#include "download/ReleasePaths.h"
#include "host/SystemFile.h"
#include "tree/ServedFiles.h"

#include <QFileInfo>

ContentFolder::ContentFolder(const QString& tree)
    : m_tree(tree)
{
}

bool ContentFolder::contains(const QByteArray& digest) const
{
    return QFileInfo::exists(m_tree + QLatin1Char('/') + ReleasePaths::content(digest));
}

bool ContentFolder::add(const QString& file, const QByteArray& digest)
{
    return place(file, ReleasePaths::content(digest));
}

bool ContentFolder::addSignature(const QString& file, const QByteArray& releaseDigest)
{
    return place(file, ReleasePaths::signatureOf(releaseDigest));
}

bool ContentFolder::place(const QString& file, const QString& name)
{
    const QString target = m_tree + QLatin1Char('/') + name;
    if (QFileInfo::exists(target))
        return true;
    const QString folder = m_tree + QLatin1Char('/') + ReleasePaths::contentFolder();
    if (!ServedFiles::makeFolder(folder, &m_error)
        || !ServedFiles::makeFolder(QFileInfo(target).path(), &m_error))
        return false;
    // Whatever keeps a file from being linked (the file system, its limit of links, a file of
    // another user) does not keep it from being copied.
    return (m_canLink
            && SystemFile::link(SystemFile::encodedName(file), SystemFile::encodedName(target)))
        || ServedFiles::copy(file, target, &m_error);
}
