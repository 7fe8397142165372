// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/LocalTree.h"

#include "host/ContentDigest.h"
#include "host/SystemFile.h"
#include "release/TreeBytes.h"

#include <QFileInfo>

LocalTree::LocalTree(const QString& folder)
    : m_folder(folder + QLatin1Char('/'))
{
}

PublishedTree::Document LocalTree::read(const QString& name, qint64 maxBytes)
{
    Document document;
    const QString file = m_folder + name;
    if (!QFileInfo::exists(file))
        return document;
    QString error;
    const bool isRead = TreeBytes::read(file, maxBytes, document.bytes, &error);
    document.state = isRead ? Document::State::Present : Document::State::Unusable;
    if (!isRead)
        document.reason = QStringLiteral("cannot be read: ") + error;
    return document;
}

QVector<PublishedTree::Deviation> LocalTree::compare(const QVector<Expected>& files,
                                                     const Progress& progress)
{
    QVector<Deviation> deviations;
    qint64 done = 0;
    for (const Expected& expected : files) {
        const QFileInfo file(m_folder + expected.name);
        const auto report = [&](qint64 bytes) {
            if (progress)
                progress(done + bytes);
        };
        if (!file.isFile())
            deviations.append({expected.name, true, QStringLiteral("is missing")});
        else if (file.size() != expected.sizeBytes)
            deviations.append({expected.name, false, otherSize(file.size(), expected.sizeBytes)});
        else if (digestOf(file.filePath(), report) != expected.digest)
            deviations.append({expected.name, false, otherContent()});
        done += expected.sizeBytes;
    }
    return deviations;
}

/// Reads a file once, however many names lead to it.
QByteArray LocalTree::digestOf(const QString& file, const Progress& progress)
{
    const QPair<quint64, quint64> identity = SystemFile::identity(SystemFile::encodedName(file));
    if (identity == QPair<quint64, quint64>())
        return {};
    QByteArray& digest = m_digests[identity];
    if (digest.isEmpty())
        digest = ContentDigest::ofFile(file, [&progress](qint64 bytes) {
            progress(bytes);
            return true;
        });
    return digest;
}
