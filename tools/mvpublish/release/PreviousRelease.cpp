// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/PreviousRelease.h"

#include "download/ReleasePaths.h"
#include "download/ReleaseSignature.h"
#include "host/ContentDigest.h"
#include "release/ContentFolder.h"
#include "release/ContentName.h"
#include "release/TreeBytes.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

bool isSignature(const QString& file)
{
    QByteArray bytes;
    QString fault;
    ReleaseSignature signature;
    return TreeBytes::read(file, ReleaseSignature::maxBytes, bytes, &fault)
        && ReleaseSignature::parse(bytes, signature, fault);
}

} // namespace

PreviousRelease::PreviousRelease(const QString& tree)
    : m_tree(tree + QLatin1Char('/'))
{
    const QString file = m_tree + ReleasePaths::release();
    if (!QFileInfo::exists(file))
        return;
    QByteArray bytes;
    if (!TreeBytes::read(file, SRelease::maxBytes, bytes, &m_fault)
        || !SRelease::parse(bytes, m_release, m_fault))
        return;
    m_bytes = bytes;
    readList();
}

void PreviousRelease::readList()
{
    QByteArray text;
    if (!TreeBytes::read(m_tree + ReleasePaths::list(), ReleaseList::maxBytes, text, &m_fault))
        return;
    if (ContentDigest::ofBytes(text) != m_release.m_listDigest)
        m_fault =
            QStringLiteral("%1 is not the list that the release names").arg(ReleasePaths::list());
    else
        ReleaseList::parse(text, m_list, m_fault);
}

bool PreviousRelease::keepNamed(ContentFolder& contents) const
{
    if (!exists())
        return true;
    QSet<QString> names{ReleasePaths::content(m_release.m_listDigest),
                        ReleasePaths::signatureOf(ContentDigest::ofBytes(m_bytes))};
    for (const ReleaseList::Entry& entry : m_list.entries())
        names.insert(ReleasePaths::content(entry.digest));
    return std::all_of(names.cbegin(), names.cend(),
                       [&](const QString& name) { return keep(name, contents); });
}

bool PreviousRelease::keepAll(ContentFolder& contents) const
{
    const QDir tree(m_tree);
    QDirIterator it(m_tree + ReleasePaths::contentFolder(), QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        if (!keep(tree.relativeFilePath(it.next()), contents))
            return false;
    }
    return true;
}

/// Keeps a content that is what its name says; anything else would be damaged for every client.
bool PreviousRelease::keep(const QString& name, ContentFolder& contents) const
{
    const QString file = m_tree + name;
    const ContentName content(name);
    if (!content.isValid() || !QFileInfo(file).isFile() || QFileInfo(file).isSymLink())
        return true;
    if (content.isSignature())
        return !isSignature(file) || contents.addSignature(file, content.digest());
    return contents.contains(content.digest()) || ContentDigest::ofFile(file) != content.digest()
        || contents.add(file, content.digest());
}
