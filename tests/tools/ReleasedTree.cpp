// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleasedTree.h"

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "Mvpublish.h"
#include "support/CatalogueFiles.h"

#include <QDir>
#include <QFileInfo>

ReleasedTree::ReleasedTree(const QString& folder)
    : m_source(folder + QStringLiteral("-source"))
    , m_folder(folder)
{
    QDir(folder).removeRecursively();
    QDir().mkpath(QFileInfo(folder).path());
    setClock(epoch);
}

void ReleasedTree::setClock(qint64 seconds)
{
    qputenv("SOURCE_DATE_EPOCH", QByteArray::number(seconds));
}

QString ReleasedTree::build(const QStringList& options) const
{
    return Mvpublish::build(m_source.folder(), m_folder, options);
}

QByteArray ReleasedTree::read(const QString& name) const
{
    return CatalogueFiles::read(file(name));
}

SRelease ReleasedTree::release() const
{
    SRelease release;
    QString error;
    SRelease::parse(read(ReleasePaths::release()), release, error);
    return release;
}

QByteArray ReleasedTree::releaseDigest() const
{
    return ContentDigest::ofBytes(read(ReleasePaths::release()));
}

ReleaseList ReleasedTree::list() const
{
    ReleaseList list;
    QString error;
    ReleaseList::parse(read(ReleasePaths::list()), list, error);
    return list;
}

QMap<QString, QByteArray> ReleasedTree::files() const
{
    QMap<QString, QByteArray> files;
    const QStringList names = CatalogueFiles::filesBelow(m_folder);
    for (const QString& name : names)
        files.insert(name, read(name));
    return files;
}
