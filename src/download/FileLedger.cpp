// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/FileLedger.h"

#include "catalogue/MVThemeMgr.h"
#include "download/LogCategories.h"
#include "download/RootPlaces.h"
#include "host/AppOptions.h"
#include "host/ContentDigest.h"
#include "host/FileLock.h"
#include "host/Immortal.h"
#include "host/LogL.h"
#include "host/RegularFile.h"
#include "host/Utils.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QMutexLocker>

#include <algorithm>

namespace {

/// Room for the list of a release at its limit; a larger ledger is not read.
constexpr qint64 maxLedgerBytes = 256 * 1024 * 1024;
constexpr int fieldsOfALine = 4;

/// Ends a line that a killed process has begun, so that the next one can be read.
bool endLine(QFile& file)
{
    char last = '\n';
    if (file.size() > 0 && (!file.seek(file.size() - 1) || !file.getChar(&last)))
        return false;
    return last == '\n' || file.putChar('\n');
}

} // namespace

FileLedger* FileLedger::instance()
{
    static Immortal<FileLedger> ledger; // downloads may outlive static objects
    return &*ledger;
}

QString FileLedger::path()
{
    return RootPlaces::catalogueFolder() + QStringLiteral("/ledger.txt");
}

/// Returns the path below the root; empty for any other path, and one that cannot be written into a
/// line.
QByteArray FileLedger::nameOf(const QString& path)
{
    const QByteArray name =
        QDir(RootPlaces::root()).relativeFilePath(QDir::cleanPath(path)).toUtf8();
    const bool isPlain = !name.startsWith("../") && !name.startsWith('/')
        && std::none_of(name.cbegin(), name.cend(), [](char c) { return c == '\n' || c == '\t'; });
    return isPlain ? name : QByteArray();
}

void FileLedger::note(const QString& path, const SPublishedContent& content)
{
    if (!content.isKnown())
        return;
    const QFileInfo info(path);
    append(path, {content.m_digest, info.size(), info.lastModified().toMSecsSinceEpoch()});
}

void FileLedger::doubt(const QString& path)
{
    constexpr qint64 neverMs = 0;
    append(path, {noteOf(path), QFileInfo(path).size(), neverMs});
}

QByteArray FileLedger::digestOf(const QString& path)
{
    const QMutexLocker lock(&m_mutex);
    readNew();
    const Entry entry = m_entries.value(nameOf(path));
    const QFileInfo info(path);
    const bool isUnchanged = info.size() == entry.sizeBytes
        && info.lastModified().toMSecsSinceEpoch() == entry.modifiedMs;
    return isUnchanged ? entry.digest : QByteArray();
}

QByteArray FileLedger::noteOf(const QString& path)
{
    const QMutexLocker lock(&m_mutex);
    readNew();
    return m_entries.value(nameOf(path)).digest;
}

/// Reads the lines that this and other processes have appended since the last call. Returns false
/// if that fails.
bool FileLedger::readNew()
{
    QFile file(path());
    if (m_file != file.fileName() || file.size() < m_readBytes) { // another root, or compacted
        m_entries.clear();
        m_readBytes = 0;
        m_file = file.fileName();
    }
    if (file.size() == m_readBytes || !MVThemeMgr::init()->isDownloadPath(file.fileName()))
        return true;
    if (file.size() - m_readBytes > maxLedgerBytes) { // only the lines that follow are read
        LogL(LogCategories::checkOfCatalogue, 2, "%s is too large: files will be hashed again",
             file.fileName().toUtf8().constData());
        m_readBytes = file.size();
        return true;
    }
    QByteArray text;
    if (!RegularFile::open(file) || !file.seek(m_readBytes)
        || !RegularFile::readAll(file, maxLedgerBytes, text)) {
        LogL(LogCategories::checkOfCatalogue, 2, "%s cannot be read: files will be hashed again",
             file.fileName().toUtf8().constData());
        return false;
    }
    const int whole = text.lastIndexOf('\n') + 1; // the rest may still be written
    m_readBytes += whole;
    const QList<QByteArray> lines = text.left(whole).split('\n');
    for (const QByteArray& line : lines)
        takeLine(line);
    return true;
}

void FileLedger::takeLine(const QByteArray& line)
{
    const QList<QByteArray> fields = line.split('\t');
    if (fields.size() != fieldsOfALine)
        return;
    const QByteArray& digest = fields.at(0);
    if (ContentDigest::isDigest(digest))
        m_entries[fields.at(3)] = {digest, fields.at(1).toLongLong(), fields.at(2).toLongLong()};
}

QByteArray FileLedger::lineOf(const QByteArray& name, const Entry& entry)
{
    return entry.digest + '\t' + QByteArray::number(entry.sizeBytes) + '\t'
        + QByteArray::number(entry.modifiedMs) + '\t' + name + '\n';
}

/// Appends a line in one write, so that lines of several processes do not mix. Without it, the file
/// is hashed when that matters.
void FileLedger::append(const QString& path, const Entry& entry)
{
    const QByteArray name = nameOf(path);
    const QString ledger = FileLedger::path();
    if (name.isEmpty() || !MVThemeMgr::init()->isDownloadPath(ledger))
        return;
    const QMutexLocker lock(&m_mutex);
    AppOptions::instance()->ensureDirExists(QFileInfo(ledger).path());
    QFile file(ledger);
    const QByteArray line = lineOf(name, entry);
    if (!RegularFile::open(file, QIODevice::ReadWrite | QIODevice::Append | QIODevice::Unbuffered)
        || !endLine(file) || file.write(line) != line.size()) {
        LogL(LogCategories::checkOfCatalogue, 1, "%s cannot be written: %s",
             ledger.toUtf8().constData(), file.errorString().toUtf8().constData());
    }
}

void FileLedger::compact()
{
    const QMutexLocker lock(&m_mutex);
    if (!readNew())
        return; // it may be readable the next time
    const QString root = RootPlaces::root();
    QList<QByteArray> names = m_entries.keys();
    std::sort(names.begin(), names.end());
    QByteArray text;
    for (const QByteArray& name : qAsConst(names)) {
        if (QFile::exists(root + QLatin1Char('/') + QString::fromUtf8(name)))
            text += lineOf(name, m_entries.value(name));
    }
    if (MVThemeMgr::init()->isDownloadPath(m_file) && QFile::exists(m_file))
        Utils::writeFile(m_file, text);
    m_file.clear(); // so that it is read again
}
