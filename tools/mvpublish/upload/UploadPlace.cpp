// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/UploadPlace.h"

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "host/RegularFile.h"
#include "upload/Rclone.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>

#include <utility>

namespace {

QString fetchedFolder()
{
    return QStringLiteral("fetched");
}

} // namespace

UploadPlace::UploadPlace(Rclone& rclone, QString remote)
    : m_rclone(rclone)
    , m_remote(std::move(remote))
{
}

QString UploadPlace::errorText() const
{
    return m_error.isEmpty() ? m_rclone.errorText() : m_error;
}

bool UploadPlace::read()
{
    if (!list({}, m_files))
        return false;
    QStringList documents;
    if (m_files.contains(ReleasePaths::release()))
        documents.append(ReleasePaths::release());
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it) {
        if (UploadRecord::serialOf(it.key()) > 0)
            documents.append(it.key());
    }
    if (!fetch(documents))
        return false;
    readRelease();
    readRecords();
    return true;
}

bool UploadPlace::readAgain(QHash<QString, qint64>& files)
{
    const QString records = QFileInfo(UploadRecord::path(1)).path();
    return list({QStringLiteral("--include=/%1/**").arg(ReleasePaths::contentFolder()),
                 QStringLiteral("--include=/%1/*").arg(records)},
                files);
}

bool UploadPlace::list(const QStringList& filters, QHash<QString, qint64>& files)
{
    files.clear();
    QByteArray out;
    const QStringList command{QStringLiteral("lsjson"),       m_remote,
                              QStringLiteral("--recursive"),  QStringLiteral("--files-only"),
                              QStringLiteral("--no-modtime"), QStringLiteral("--no-mimetype")};
    if (!m_rclone.run(command + filters, &out))
        return m_rclone.status() == Rclone::folderNotFound;
    const QJsonArray entries = QJsonDocument::fromJson(out).array();
    for (const QJsonValue& entry : entries)
        files.insert(entry[QLatin1String("Path")].toString(),
                     static_cast<qint64>(entry[QLatin1String("Size")].toDouble()));
    return true;
}

void UploadPlace::readRelease()
{
    QByteArray bytes;
    QString reason;
    m_releaseDigest.clear();
    // Whatever a broken upload may have left there, clients do not use it, either.
    if (readFetched(ReleasePaths::release(), SRelease::maxBytes, bytes)
        && SRelease::parse(bytes, m_release, reason))
        m_releaseDigest = ContentDigest::ofBytes(bytes);
}

void UploadPlace::readRecords()
{
    m_records.clear();
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it) {
        const qint64 serial = UploadRecord::serialOf(it.key());
        QByteArray bytes;
        UploadRecord record;
        // An upload that was broken while it wrote its record has sent nothing else.
        if (serial > 0 && readFetched(it.key(), UploadRecord::maxBytes, bytes)
            && UploadRecord::parse(bytes, record) && record.m_serial == serial)
            m_records.insert(serial, record);
    }
}

bool UploadPlace::fetchLists(const QVector<QByteArray>& digests,
                             QHash<QByteArray, ReleaseList>& lists)
{
    QStringList names;
    for (const QByteArray& digest : digests) {
        if (m_files.contains(ReleasePaths::content(digest)))
            names.append(ReleasePaths::content(digest));
    }
    names.removeDuplicates();
    if (!fetch(names))
        return false;
    for (const QByteArray& digest : digests) {
        QByteArray bytes;
        ReleaseList list;
        QString reason;
        if (readFetched(ReleasePaths::content(digest), ReleaseList::maxBytes, bytes)
            && ContentDigest::ofBytes(bytes) == digest && ReleaseList::parse(bytes, list, reason))
            lists.insert(digest, list);
    }
    return true;
}

bool UploadPlace::fetch(const QStringList& files)
{
    return run({QStringLiteral("copy"), m_remote, m_work.filePath(fetchedFolder()),
                QStringLiteral("--ignore-times")},
               files);
}

bool UploadPlace::readFetched(const QString& name, qint64 maxBytes, QByteArray& bytes) const
{
    QFile file(m_work.filePath(fetchedFolder() + QLatin1Char('/') + name));
    return RegularFile::open(file) && RegularFile::readAll(file, maxBytes, bytes);
}

bool UploadPlace::send(const QString& from, const QStringList& files, const QString& cacheControl)
{
    return run({QStringLiteral("copy"), from, m_remote, QStringLiteral("--ignore-times"),
                QStringLiteral("--header-upload=Cache-Control: %1").arg(cacheControl)},
               files);
}

bool UploadPlace::sendBytes(const QString& name, const QByteArray& content,
                            const QString& cacheControl)
{
    const QString folder = QStringLiteral("sent");
    return write(folder + QLatin1Char('/') + name, content)
        && send(m_work.filePath(folder), {name}, cacheControl);
}

bool UploadPlace::compare(const QString& from, const QStringList& files, QStringList& different)
{
    QByteArray out;
    const bool isEqual = run({QStringLiteral("check"), from, m_remote, QStringLiteral("--one-way"),
                              QStringLiteral("--combined=-")},
                             files, &out);
    QSet<QString> equal;
    const QList<QByteArray> lines = out.split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("= "))
            equal.insert(QString::fromUtf8(line.mid(2)));
    }
    // A difference is a failure for rclone.
    if (!isEqual && lines.size() <= files.size())
        return false;
    for (const QString& file : files) {
        if (!equal.contains(file))
            different.append(file);
    }
    return true;
}

bool UploadPlace::remove(const QStringList& files)
{
    return run({QStringLiteral("delete"), m_remote}, files);
}

/// Runs a command for some files, of which there may be more than a command line holds.
bool UploadPlace::run(QStringList command, const QStringList& files, QByteArray* out)
{
    if (files.isEmpty())
        return true;
    const QString names = QStringLiteral("names");
    command.append(QStringLiteral("--files-from-raw=") + m_work.filePath(names));
    return write(names, files.join(QLatin1Char('\n')).toUtf8() + '\n')
        && m_rclone.run(command, out);
}

/// Writes a file into the temporary folder.
bool UploadPlace::write(const QString& name, const QByteArray& content)
{
    QFile file(m_work.filePath(name));
    m_error.clear();
    if (QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly)
        && file.write(content) == content.size() && file.flush())
        return true;
    m_error = QStringLiteral("%1 cannot be written: %2").arg(file.fileName(), file.errorString());
    return false;
}
