// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "MoveJournal.h"

#include "host/RegularFile.h"
#include "host/Utils.h"

#include <QFile>
#include <QFileInfo>
#include <QList>

namespace {

constexpr qint64 maxJournalBytes = 256 * 1024 * 1024;

/// Returns a name on one line and without tabs.
QByteArray encoded(const QString& name)
{
    return name.toUtf8().toPercentEncoding("/ ");
}

QByteArray lineOf(const QString& name, qint64 sizeBytes, const QDateTime& modified)
{
    constexpr qint64 precisionMs = 2000; // that of the coarsest file systems
    return QByteArray::number(sizeBytes) + '\t'
        + QByteArray::number(modified.toMSecsSinceEpoch() / precisionMs) + '\t' + encoded(name);
}

} // namespace

QString MoveJournal::fileName()
{
    return QStringLiteral("unfinished-move.txt");
}

MoveJournal::MoveJournal(const QString& folder, const QString& source)
    : m_folder(folder)
    , m_source(encoded(source))
{
    QFile file(path());
    QByteArray text;
    if (!RegularFile::open(file) || !RegularFile::readAll(file, maxJournalBytes, text))
        return;
    QList<QByteArray> lines = text.split('\n');
    if (lines.takeFirst() != m_source)
        return;
    for (const QByteArray& line : qAsConst(lines)) {
        if (!line.isEmpty())
            m_copies.insert(line);
    }
}

bool MoveJournal::isCopy(const QString& name) const
{
    const QFileInfo file(m_folder + QLatin1Char('/') + name);
    return m_copies.contains(lineOf(name, file.size(), file.lastModified()));
}

void MoveJournal::note(const QString& name, qint64 sizeBytes, const QDateTime& modified)
{
    m_copies.insert(lineOf(name, sizeBytes, modified));
}

bool MoveJournal::store() const
{
    QByteArray text = m_source + '\n';
    for (const QByteArray& line : m_copies)
        text += line + '\n';
    return Utils::writeFile(path(), text);
}

void MoveJournal::remove() const
{
    QFile::remove(path());
}

QString MoveJournal::path() const
{
    return m_folder + QLatin1Char('/') + fileName();
}
