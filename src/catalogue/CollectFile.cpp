// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CollectFile.h"

#include "host/FileLock.h"
#include "host/LogL.h"
#include "host/RegularFile.h"
#include "host/SystemFile.h"
#include "host/Utils.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QMap>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>

namespace {

constexpr std::chrono::seconds maxLockWait(5);
constexpr int maxDamaged = 1000; // number of copies kept
constexpr qint64 maxCollectBytes = 64 * 1024 * 1024;
constexpr int leftoverAgeSeconds = 3600;

STransferFailure failed(EFailureCause cause, const QString& path, const QString& reason)
{
    return {cause, QString(), path, QStringLiteral("%1: %2").arg(path, reason)};
}

STransferFailure notLocked(const QString& path, int error)
{
    const QString reason = QString::fromLocal8Bit(std::strerror(error));
    if (SystemFile::isFull(error))
        return failed(eFailure_DiskFull, path, reason);
    if (error == EMFILE || error == ENFILE || error == EIO)
        return failed(eFailure_LocalFile, path, reason);
    return failed(eFailure_NoPermission, path, QStringLiteral("its folder cannot be written"));
}

bool parse(const QByteArray& bytes, QJsonDocument& document)
{
    QJsonParseError error;
    document = QJsonDocument::fromJson(bytes, &error);
    return error.error == QJsonParseError::NoError;
}

/// Returns whether a file of that name, "NAME.abcdef", may be the remains of an earlier version
/// killed while saving.
bool isLeftover(const QString& name, const QString& fileName)
{
    constexpr int letters = 6;
    const QString prefix = fileName + QLatin1Char('.');
    return name.size() == prefix.size() + letters && name.startsWith(prefix)
        && std::all_of(name.cbegin() + prefix.size(), name.cend(),
                       [](QChar c) { return c.isLetter(); });
}

/// Uses no patterns: saving also happens after main(), when Qt can no longer match them.
void removeLeftovers(const QString& path)
{
    const QFileInfo file(path);
    const QDateTime old = QDateTime::currentDateTimeUtc().addSecs(-leftoverAgeSeconds);
    const QFileInfoList entries = file.dir().entryInfoList(QDir::Files | QDir::NoSymLinks);
    for (const QFileInfo& entry : entries) {
        if (isLeftover(entry.fileName(), file.fileName()) && entry.lastModified() < old)
            QFile::remove(entry.filePath());
    }
}

} // namespace

CollectFile::Read CollectFile::read(const QString& path, QJsonObject& marks)
{
    QFile file(path);
    QByteArray bytes;
    if (!RegularFile::open(file, QIODevice::ReadWrite)
        || !RegularFile::readAll(file, maxCollectBytes, bytes))
        return Read::CannotOpen;
    if (bytes.isEmpty())
        m_isInUse = true; // created by this process, or by one that has not written it yet
    QJsonDocument document;
    if (!parse(bytes, document))
        return Read::CannotParse;
    m_isInUse = true;
    m_own.clear();
    marks = document.object();
    return Read::Done;
}

STransferFailure CollectFile::save(const QString& path, QJsonObject& marks)
{
    if (!isInUse())
        return {};
    FileLock lock(path + QStringLiteral(".lock"));
    const FileLock::Result locked = lock.lock(maxLockWait);
    if (locked == FileLock::Result::Busy)
        return failed(eFailure_LocalFile, path, QStringLiteral("another program is writing it"));
    if (locked == FileLock::Result::CannotCreate)
        return notLocked(path, lock.error());
    removeLeftovers(path);
    OnDisk disk;
    STransferFailure failure = readDisk(path, disk);
    if (!failure.isFailure() && disk.isThere && !disk.isParsed)
        failure = keepAside(path);
    if (failure.isFailure())
        return failure;

    QJsonObject all = merged(marks, disk);
    const QByteArray bytes = QJsonDocument(all).toJson();
    // A link stays a link.
    const QString target = QFileInfo(path).isSymLink() ? QFileInfo(path).symLinkTarget() : path;
    if ((!disk.isParsed || bytes != disk.bytes) && !Utils::writeFile(target, bytes, &failure))
        return failure;
    marks = all;
    m_own.clear();
    return {};
}

/// A missing or empty file contains no marks; an unreadable one must not be replaced.
STransferFailure CollectFile::readDisk(const QString& path, OnDisk& disk)
{
    QFile file(path);
    if (!file.exists())
        return {};
    QString reason;
    if (!RegularFile::open(file, QIODevice::ReadOnly, &reason))
        return failed(eFailure_LocalFile, path, QStringLiteral("cannot be read: %1").arg(reason));
    if (!RegularFile::readAll(file, maxCollectBytes, disk.bytes))
        return failed(eFailure_LocalFile, path,
                      QStringLiteral("cannot be read: %1").arg(file.errorString()));
    QJsonDocument document;
    disk.isThere = !disk.bytes.isEmpty();
    disk.isParsed = parse(disk.bytes, document) && document.isObject();
    disk.marks = document.object();
    return {};
}

STransferFailure CollectFile::keepAside(const QString& path)
{
    for (int number = 1; number <= maxDamaged; ++number) {
        const QString aside = QStringLiteral("%1.damaged-%2").arg(path).arg(number);
        if (QFileInfo::exists(aside))
            continue;
        if (!QFile::rename(path, aside))
            return failed(eFailure_LocalFile, path,
                          QStringLiteral("cannot be kept as %1").arg(aside));
        LogL("MVThemeMgr", LogLevel::warning, "favourites file [%s] cannot be parsed, kept as [%s]",
             path.toUtf8().constData(), aside.toUtf8().constData());
        return {};
    }
    return failed(eFailure_LocalFile, path,
                  QStringLiteral("%1 damaged files have been kept already").arg(maxDamaged));
}

QJsonObject CollectFile::merged(const QJsonObject& marks, const OnDisk& disk) const
{
    QMap<QString, QJsonValue> sorted; // sorted, so that insertions move nothing
    if (disk.isParsed) {
        for (auto mark = disk.marks.constBegin(); mark != disk.marks.constEnd(); ++mark)
            sorted.insert(mark.key(), mark.value());
    }
    for (auto mark = marks.constBegin(); mark != marks.constEnd(); ++mark) {
        const bool isAsked = mark.value() == QJsonValue(false) && !sorted.contains(mark.key());
        if (isAsked || !disk.isParsed)
            sorted.insert(mark.key(), mark.value());
    }
    for (auto mark = m_own.cbegin(); mark != m_own.cend(); ++mark) {
        if (mark->isChanged || !sorted.contains(mark.key()))
            sorted.insert(mark.key(), mark->isMarked);
    }
    QJsonObject all;
    for (auto mark = sorted.cbegin(); mark != sorted.cend(); ++mark)
        all.insert(mark.key(), mark.value());
    return all;
}

void CollectFile::setMarked(const QString& guid, bool isMarked)
{
    m_own.insert(guid, {isMarked, true});
    m_isInUse = true;
}

bool CollectFile::isMarked(const QString& guid, const QJsonObject& marks)
{
    const auto own = m_own.constFind(guid);
    if (own != m_own.constEnd())
        return own->isMarked;
    const auto mark = marks.constFind(guid);
    if (mark != marks.constEnd())
        return mark->toBool(false);
    m_own.insert(guid, {false, false});
    return false;
}

QStringList CollectFile::marked(const QJsonObject& marks) const
{
    QStringList guids;
    for (auto mark = marks.constBegin(); mark != marks.constEnd(); ++mark) {
        if (mark->toBool(false) && !m_own.contains(mark.key()))
            guids.append(mark.key());
    }
    for (auto own = m_own.cbegin(); own != m_own.cend(); ++own) {
        if (own->isMarked)
            guids.append(own.key());
    }
    guids.sort();
    return guids;
}
