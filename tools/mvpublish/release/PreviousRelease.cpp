// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/PreviousRelease.h"

#include "download/ReleasePaths.h"
#include "download/ReleaseSignature.h"
#include "host/ContentDigest.h"
#include "release/ContentFolder.h"
#include "release/ContentName.h"
#include "release/TreeBytes.h"

#include "tree/FolderContent.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

PreviousRelease::PreviousRelease(const QString& tree)
    : m_tree(tree + QLatin1Char('/'))
{
    QByteArray bytes;
    if (!QFileInfo::exists(m_tree + ReleasePaths::release())
        || !read(ReleasePaths::release(), SRelease::maxBytes, bytes)
        || !SRelease::parse(bytes, m_release, m_fault))
        return;
    m_bytes = bytes;
    readSignature(ReleasePaths::signature(), m_signature);
    readList();
}

bool PreviousRelease::isFit(const QString& name, qint64 maxBytes) const
{
    const QFileInfo info(m_tree + name);
    return info.isFile() && info.size() <= maxBytes;
}

/// Reads a file of the release. Returns false with the fault of the release if the file is missing,
/// too large or not regular, and otherwise with the reason why it cannot be read.
bool PreviousRelease::read(const QString& name, qint64 maxBytes, QByteArray& bytes)
{
    QString* const reason = isFit(name, maxBytes) ? &m_error : &m_fault;
    return TreeBytes::read(m_tree + name, maxBytes, bytes, reason);
}

/// Reads a signature; `bytes` stays empty without a valid one. Returns false if its file cannot be
/// read.
bool PreviousRelease::readSignature(const QString& name, QByteArray& bytes)
{
    if (!isFit(name, ReleaseSignature::maxBytes))
        return true;
    if (!read(name, ReleaseSignature::maxBytes, bytes))
        return false;
    ReleaseSignature signature;
    QString fault;
    if (!ReleaseSignature::parse(bytes, signature, fault))
        bytes.clear();
    return true;
}

void PreviousRelease::readList()
{
    QByteArray text;
    if (!read(ReleasePaths::list(), ReleaseList::maxBytes, text))
        return;
    if (ContentDigest::ofBytes(text) != m_release.m_listDigest)
        m_fault =
            QStringLiteral("%1 is not the list that the release names").arg(ReleasePaths::list());
    else
        ReleaseList::parse(text, m_list, m_fault);
}

bool PreviousRelease::keepNamed(ContentFolder& contents)
{
    if (!exists())
        return true;
    QSet<QString> named{ReleasePaths::content(m_release.m_listDigest),
                        ReleasePaths::signatureOf(ContentDigest::ofBytes(m_bytes))};
    for (const ReleaseList::Entry& entry : m_list.entries())
        named.insert(ReleasePaths::content(entry.digest));
    QStringList names(named.cbegin(), named.cend());
    names.sort(); // every build does the same in the same order
    return std::all_of(names.cbegin(), names.cend(),
                       [&](const QString& name) { return keep(name, contents); });
}

bool PreviousRelease::keepAll(ContentFolder& contents)
{
    const QString folder = ReleasePaths::contentFolder();
    QStringList names;
    if (QFileInfo(m_tree + folder).isDir()
        && !FolderContent::paths(m_tree + folder, names, &m_error))
        return false;
    return std::all_of(names.cbegin(), names.cend(), [&](const QString& name) {
        return keep(folder + QLatin1Char('/') + name, contents);
    });
}

/// Keeps a content that is what its name says; anything else would be damaged for every client.
bool PreviousRelease::keep(const QString& name, ContentFolder& contents)
{
    const QString file = m_tree + name;
    const ContentName content(name);
    if (!content.isValid() || !QFileInfo(file).isFile() || QFileInfo(file).isSymLink())
        return true;
    if (content.isSignature())
        return keepSignature(content, name, contents);
    if (contents.contains(content.digest()))
        return true;
    const QByteArray digest = ContentDigest::ofFile(file);
    if (digest.isEmpty())
        m_error = QStringLiteral("%1 cannot be read").arg(file);
    else if (digest == content.digest() && !contents.add(file, digest))
        m_error = contents.errorText();
    return m_error.isEmpty();
}

bool PreviousRelease::keepSignature(const ContentName& content, const QString& name,
                                    ContentFolder& contents)
{
    QByteArray bytes;
    if (!readSignature(name, bytes))
        return false;
    if (!bytes.isEmpty() && !contents.addSignature(m_tree + name, content.digest()))
        m_error = contents.errorText();
    return m_error.isEmpty();
}
