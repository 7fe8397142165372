// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PublishFloor.h"

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include <utility>

#include <cerrno>
#include <unistd.h>

namespace {

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

bool linkFile(const QString& from, const QString& to)
{
    return ::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0
        || errno == EEXIST; // two files may have one content
}

bool decode(QByteArray content)
{
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    QImage image;
    while (reader.read(&image))
        continue;
    return !image.isNull();
}

} // namespace

PublishFloor::PublishFloor(QString tree, QString folder)
    : m_tree(std::move(tree))
    , m_folder(std::move(folder))
{
}

QString PublishFloor::run()
{
    QDir(m_folder).removeRecursively();
    const QString contents = QLatin1Char('/') + ReleasePaths::contentFolder() + QLatin1Char('/');
    QDirIterator each(m_tree, QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString name = each.next().mid(m_tree.size());
        if (!name.startsWith(contents) && !publish(name))
            return m_folder + name + QStringLiteral(" cannot be published");
    }
    return QString();
}

bool PublishFloor::publish(const QString& name)
{
    QFile file(m_tree + name);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray content = file.readAll();
    const QString path = m_folder + name;
    const QString digestPath =
        m_folder + QLatin1Char('/') + ReleasePaths::content(ContentDigest::ofBytes(content));
    const bool isPicture =
        name.endsWith(QLatin1String(".png")) || name.endsWith(QLatin1String(".gif"));
    return QDir().mkpath(QFileInfo(path).path()) && QDir().mkpath(QFileInfo(digestPath).path())
        && writeFile(path, content) && linkFile(path, digestPath)
        && (!isPicture || decode(content));
}
