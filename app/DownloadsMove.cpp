// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsMove.h"

#include "catalogue/MVThemeMgr.h"
#include "download/FolderWalk.h"
#include "download/ResourceStorage.h"
#include "DownloadFolder.h"
#include "host/ContentDigest.h"
#include "host/FileLink.h"
#include "host/FileLock.h"
#include "host/SystemFile.h"
#include "StateText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>

#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

namespace {

/// Returns the folder of the download root in use in which the catalogue keeps everything.
QString downloadsInUse()
{
    return QDir::cleanPath(
        MVThemeMgr::init()->Path_resource_RootDir(MVThemeMgr::eLoadDir_Download));
}

/// Returns the path of a file below that folder.
QString nameOf(const QString& path)
{
    return QDir(downloadsInUse()).relativeFilePath(path);
}

/// Returns the same folder of any download root.
QString downloadsOf(const QString& root)
{
    return QDir::cleanPath(root) + QLatin1Char('/') + QFileInfo(downloadsInUse()).fileName();
}

std::filesystem::path native(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

/// Returns the path with the links of its existing part followed.
QString placeOf(const QString& path)
{
    const QFileInfo entry(path);
    if (entry.exists() || entry.isRoot())
        return SystemFile::realPath(path);
    return placeOf(entry.path()) + QLatin1Char('/') + entry.fileName();
}

/// Returns whether the path, or a folder on the way to it from the root, is a link.
bool hasLink(const QString& root, const QString& path)
{
    for (QFileInfo entry(path); entry.filePath().size() > root.size();
         entry.setFile(entry.path())) {
        if (FileLink::isLink(entry))
            return true;
    }
    return false;
}

} // namespace

DownloadsMove::DownloadsMove(const QString& from, const QString& to)
    : m_root(QDir::cleanPath(to))
    , m_from(downloadsOf(from))
    , m_to(downloadsOf(to))
    , m_lockName(nameOf(ResourceStorage::lockFile()))
{
    const QStringList growing = ResourceStorage::growingFiles();
    for (const QString& path : growing)
        m_growing.append(nameOf(path));
}

DownloadsMove::~DownloadsMove() = default;

bool DownloadsMove::isSame(const QString& root, const QString& other)
{
    return placeOf(QDir::cleanPath(root)) == placeOf(QDir::cleanPath(other));
}

bool DownloadsMove::holdsAny(const QString& root)
{
    return !FolderWalk::visit(
        downloadsOf(root), QDir::Files | QDir::Hidden,
        [](const QFileInfo& file) { return file.fileName() == MoveJournal::fileName(); });
}

DownloadsMove::End DownloadsMove::bring(const CancelToken& cancel, const Progress& progress)
{
    const Step step = bringAll(cancel, progress);
    if (step == Step::Done)
        return End::Complete;
    takeBack();
    return step == Step::Cancelled ? End::Cancelled : End::Failed;
}

DownloadsMove::Step DownloadsMove::bringAll(const CancelToken& cancel, const Progress& progress)
{
    if (hasLink(m_root, m_to))
        return fail(tr("Downloads are not stored behind links: %1").arg(m_to));
    if (!areApart())
        return fail(tr("One folder is within the other: %1").arg(m_to));
    if (!lock())
        return fail(tr("Another program is working with the downloads"));
    if (!makeFolder(m_to))
        return fail(tr("The folder cannot be created: %1").arg(m_to));
    list();
    if (!startJournal())
        return fail(
            tr("%1 cannot be created").arg(m_to + QLatin1Char('/') + MoveJournal::fileName()));
    for (const File& file : std::as_const(m_files)) {
        const Step step =
            cancel.isCancelled() ? Step::Cancelled : bringFile(file, cancel, progress);
        if (step != Step::Done)
            return step;
        progress(m_doneBytes, m_totalBytes);
    }
    // Before the originals are removed: a power failure must not lose both.
    if (!SystemFile::flushTree(SystemFile::encodedName(m_to)))
        return fail(tr("The disk has not taken all files: %1").arg(m_to));
    return cancel.isCancelled() ? Step::Cancelled : Step::Done;
}

/// Returns false for one folder under two names, too, which a file that appears in both betrays.
bool DownloadsMove::areApart() const
{
    const QString from = placeOf(m_from) + QLatin1Char('/');
    const QString to = placeOf(m_to) + QLatin1Char('/');
    if (from.startsWith(to) || to.startsWith(from))
        return false;
    QTemporaryFile probe(m_to + QStringLiteral("/.move-XXXXXX"));
    return !QFileInfo::exists(m_to) || !probe.open()
        || !QFileInfo::exists(m_from + QLatin1Char('/') + QFileInfo(probe.fileName()).fileName());
}

/// Returns false if another process updates the old root. Where no lock can be created, none can
/// be updated.
bool DownloadsMove::lock()
{
    m_lock = std::make_unique<FileLock>(m_from + QLatin1Char('/') + m_lockName);
    return m_lock->lock(std::chrono::milliseconds::zero()) != FileLock::Result::Busy;
}

void DownloadsMove::list()
{
    FolderWalk::visit(m_from, QDir::Files | QDir::Hidden, [this](const QFileInfo& file) {
        const QString name = file.filePath().mid(m_from.size() + 1);
        if (name == m_lockName || name == MoveJournal::fileName())
            return true;
        m_files.append({name, file.size(), file.lastModified()});
        m_totalBytes += file.size();
        return true;
    });
}

/// Notes what is about to be brought: a file that is there already is not ours.
bool DownloadsMove::startJournal()
{
    m_journal = std::make_unique<MoveJournal>(m_to, placeOf(m_from));
    m_isResumed = !m_journal->isEmpty();
    for (const File& file : std::as_const(m_files)) {
        if (!QFileInfo::exists(m_to + QLatin1Char('/') + file.name) || m_journal->isCopy(file.name))
            m_journal->note(file.name, file.sizeBytes, file.modified);
    }
    return m_journal->store();
}

bool DownloadsMove::makeFolder(const QString& folder)
{
    QStringList missing;
    for (QString path = folder; !QFileInfo::exists(path) && !QFileInfo(path).isRoot();
         path = QFileInfo(path).path())
        missing.prepend(path);
    for (const QString& path : std::as_const(missing)) {
        if (QDir().mkdir(path))
            m_created.append(path);
    }
    return QFileInfo(folder).isDir();
}

DownloadsMove::Step DownloadsMove::bringFile(const File& file, const CancelToken& cancel,
                                             const Progress& progress)
{
    const QString source = m_from + QLatin1Char('/') + file.name;
    const QString target = m_to + QLatin1Char('/') + file.name;
    if (hasLink(m_root, target))
        return fail(tr("Downloads are not stored behind links: %1").arg(target));
    if (QFileInfo::exists(target)) {
        const Step step =
            verify(source, target,
                   tr("The new folder already holds other downloads; choose an empty folder: %1")
                       .arg(target),
                   cancel);
        // A copy is replaced only if the original can be read.
        const bool isOldCopy = step == Step::Different && m_journal->isCopy(file.name);
        if (!isOldCopy || !QFile::remove(target)) {
            m_doneBytes += file.sizeBytes;
            return step;
        }
        m_error.clear();
    }
    if (!makeFolder(QFileInfo(target).path()))
        return fail(tr("%1 cannot be created").arg(QFileInfo(target).path()));
    if (link(file.name)) {
        m_brought.append(file.name);
        m_doneBytes += file.sizeBytes;
        return Step::Done;
    }
    const Step step = copy(source, target, cancel, progress);
    if (step != Step::Done)
        return step;
    m_brought.append(file.name);
    if (m_growing.contains(file.name))
        return Step::Done; // another program may write to it meanwhile; each line holds without the
                           // next
    return verify(source, target, tr("The copy is damaged: %1").arg(target), cancel);
}

bool DownloadsMove::link(const QString& name)
{
    if (m_growing.contains(name))
        return false;
    std::error_code error;
    if (m_canLink) {
        std::filesystem::create_hard_link(native(m_from + QLatin1Char('/') + name),
                                          native(m_to + QLatin1Char('/') + name), error);
    }
    m_canLink = m_canLink && !error;
    return m_canLink;
}

DownloadsMove::Step DownloadsMove::copy(const QString& source, const QString& target,
                                        const CancelToken& cancel, const Progress& progress)
{
    const qint64 free = DownloadFolder::freeBytes(m_to);
    // Links take no space.
    const qint64 needed = m_canLink ? QFileInfo(source).size() : m_totalBytes - m_doneBytes;
    if (free >= 0 && free < needed)
        return fail(tr("There is not enough space: %1 are needed, %2 are free")
                        .arg(StateText::size(needed), StateText::size(free)));
    QFile from(source);
    QSaveFile to(target);
    if (!from.open(QIODevice::ReadOnly))
        return fail(tr("%1 cannot be read: %2").arg(source, from.errorString()));
    if (!to.open(QIODevice::WriteOnly))
        return fail(tr("%1 cannot be written: %2").arg(target, to.errorString()));
    constexpr qint64 pieceBytes = 1024 * 1024;
    while (!from.atEnd()) {
        if (cancel.isCancelled())
            return Step::Cancelled;
        const QByteArray piece = from.read(pieceBytes);
        if (piece.isEmpty())
            return fail(tr("%1 cannot be read: %2").arg(source, from.errorString()));
        if (to.write(piece) != piece.size())
            return fail(tr("%1 cannot be written: %2").arg(target, to.errorString()));
        m_doneBytes += piece.size();
        progress(m_doneBytes, m_totalBytes);
    }
    // The ledger of the downloads knows a file by its size and time.
    to.flush(); // a later write would set another time
    to.setFileTime(QFileInfo(source).lastModified(), QFileDevice::FileModificationTime);
    if (!to.commit())
        return fail(tr("%1 cannot be written: %2").arg(target, to.errorString()));
    return Step::Done;
}

DownloadsMove::Step DownloadsMove::verify(const QString& source, const QString& target,
                                          const QString& textIfDifferent, const CancelToken& cancel)
{
    const auto goOn = [&cancel](qint64) { return !cancel.isCancelled(); };
    const QByteArray wanted = ContentDigest::ofFile(source, goOn);
    const QByteArray found = ContentDigest::ofFile(target, goOn);
    if (cancel.isCancelled())
        return Step::Cancelled;
    if (wanted.isEmpty() || found.isEmpty())
        return fail(tr("%1 cannot be read").arg(wanted.isEmpty() ? source : target));
    if (found == wanted)
        return Step::Done;
    fail(textIfDifferent);
    return Step::Different;
}

DownloadsMove::Step DownloadsMove::fail(const QString& error)
{
    m_error = error;
    return Step::Failed;
}

int DownloadsMove::removeOriginals()
{
    // A kill leaves some of them, which a move back to here may replace.
    MoveJournal remains(m_from, placeOf(m_to));
    for (const File& file : std::as_const(m_files))
        remains.note(file.name, file.sizeBytes, file.modified);
    remains.store();     // without it, a move back refuses what is not the same
    m_journal->remove(); // the moved files are now the originals
    int left = 0;
    bool isKept = false; // one that has not changed
    for (const File& file : std::as_const(m_files)) {
        const QFileInfo now(m_from + QLatin1Char('/') + file.name);
        const bool hasChanged = !m_growing.contains(file.name)
            && (now.size() != file.sizeBytes || now.lastModified() != file.modified);
        if (!now.exists() || (!hasChanged && QFile::remove(now.filePath())))
            continue;
        ++left;
        isKept = isKept || !hasChanged;
    }
    m_lock.reset();
    if (!isKept)
        remains.remove();
    removeEmptyFolders(m_from);
    return left;
}

void DownloadsMove::takeBack()
{
    for (const QString& name : std::as_const(m_brought))
        QFile::remove(m_to + QLatin1Char('/') + name);
    m_brought.clear();
    if (m_journal && !m_isResumed)
        m_journal->remove();
    while (!m_created.isEmpty())
        QDir().rmdir(m_created.takeLast()); // fails unless it is empty
    m_lock.reset();
}

void DownloadsMove::removeEmptyFolders(const QString& folder)
{
    const QFileInfoList inner =
        QDir(folder).entryInfoList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : inner) {
        if (!FileLink::isLink(entry))
            removeEmptyFolders(entry.filePath());
    }
    QDir().rmdir(folder); // fails unless it is empty
}
