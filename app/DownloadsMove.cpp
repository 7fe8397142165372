// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsMove.h"

#include "catalogue/MVThemeMgr.h"
#include "DownloadFolder.h"
#include "host/ContentDigest.h"
#include "StateText.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>

#include <filesystem>
#include <system_error>

namespace {

/// Returns the folder of a download root in which the catalogue keeps everything.
QString downloadsOf(const QString& root)
{
    const QString name =
        QFileInfo(MVThemeMgr::init()->Path_resource_RootDir(MVThemeMgr::eLoadDir_Download))
            .fileName();
    return QDir::cleanPath(root) + QLatin1Char('/') + name;
}

QDirIterator filesBelow(const QString& folder)
{
    return QDirIterator(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks,
                        QDirIterator::Subdirectories);
}

std::filesystem::path native(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

} // namespace

DownloadsMove::DownloadsMove(const QString& from, const QString& to)
    : m_from(downloadsOf(from))
    , m_to(downloadsOf(to))
{
}

bool DownloadsMove::holdsAny(const QString& root)
{
    return filesBelow(downloadsOf(root)).hasNext();
}

DownloadsMove::End DownloadsMove::bring(const CancelToken& cancel, const Progress& progress)
{
    if (!QDir().mkpath(m_to)) {
        m_error = tr("The folder cannot be created: %1").arg(m_to);
        return End::Failed;
    }
    if (!areApart()) {
        m_error = tr("One folder is within the other: %1").arg(m_to);
        return End::Failed;
    }
    list();
    for (const QString& name : std::as_const(m_files)) {
        const Step step =
            cancel.isCancelled() ? Step::Cancelled : bringFile(name, cancel, progress);
        if (step != Step::Done)
            return give(step == Step::Failed ? End::Failed : End::Cancelled);
        progress(m_doneBytes, m_totalBytes);
    }
    return cancel.isCancelled() ? give(End::Cancelled) : End::Complete;
}

/// Returns false for one folder under two names, too, which a file that appears in both betrays.
bool DownloadsMove::areApart()
{
    const QString from = QFileInfo(m_from).canonicalFilePath() + QLatin1Char('/');
    const QString to = QFileInfo(m_to).canonicalFilePath() + QLatin1Char('/');
    if (from.startsWith(to) || to.startsWith(from))
        return false;
    QTemporaryFile probe(m_to + QStringLiteral("/.move-XXXXXX"));
    return !probe.open()
        || !QFileInfo::exists(m_from + QLatin1Char('/') + QFileInfo(probe.fileName()).fileName());
}

void DownloadsMove::list()
{
    QDirIterator each = filesBelow(m_from);
    while (each.hasNext()) {
        m_files.append(each.next().mid(m_from.size() + 1));
        m_totalBytes += each.fileInfo().size();
    }
}

DownloadsMove::Step DownloadsMove::bringFile(const QString& name, const CancelToken& cancel,
                                             const Progress& progress)
{
    const QString source = m_from + QLatin1Char('/') + name;
    const QString target = m_to + QLatin1Char('/') + name;
    if (QFileInfo::exists(target)) {
        m_doneBytes += QFileInfo(source).size();
        return verify(source, target, cancel);
    }
    if (!QDir().mkpath(QFileInfo(target).path()))
        return fail(tr("%1 cannot be created").arg(QFileInfo(target).path()));
    std::error_code error;
    if (m_canLink)
        std::filesystem::create_hard_link(native(source), native(target), error);
    m_canLink = m_canLink && !error;
    if (m_canLink) {
        m_brought.append(name);
        m_doneBytes += QFileInfo(source).size();
        return Step::Done;
    }
    const Step step = copy(source, target, cancel, progress);
    if (step != Step::Done)
        return step;
    m_brought.append(name);
    return verify(source, target, cancel);
}

DownloadsMove::Step DownloadsMove::copy(const QString& source, const QString& target,
                                        const CancelToken& cancel, const Progress& progress)
{
    const qint64 free = DownloadFolder::freeBytes(m_to);
    if (free >= 0 && free < m_totalBytes - m_doneBytes)
        return fail(tr("There is not enough space: %1 are needed, %2 are free")
                        .arg(StateText::size(m_totalBytes - m_doneBytes), StateText::size(free)));
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
                                          const CancelToken& cancel)
{
    const auto goOn = [&cancel](qint64) { return !cancel.isCancelled(); };
    const QByteArray wanted = ContentDigest::ofFile(source, goOn);
    const bool isSame = !wanted.isEmpty() && ContentDigest::ofFile(target, goOn) == wanted;
    if (cancel.isCancelled())
        return Step::Cancelled;
    return isSame ? Step::Done
                  : fail(tr("The folder already holds another file of this name: %1").arg(target));
}

DownloadsMove::End DownloadsMove::give(End end)
{
    takeBack();
    return end;
}

DownloadsMove::Step DownloadsMove::fail(const QString& error)
{
    m_error = error;
    return Step::Failed;
}

int DownloadsMove::removeOriginals()
{
    int left = 0;
    for (const QString& name : std::as_const(m_files))
        left += QFile::remove(m_from + QLatin1Char('/') + name) ? 0 : 1;
    removeEmptyFolders(m_from);
    return left;
}

void DownloadsMove::takeBack()
{
    for (const QString& name : std::as_const(m_brought))
        QFile::remove(m_to + QLatin1Char('/') + name);
    m_brought.clear();
    removeEmptyFolders(m_to);
}

void DownloadsMove::removeEmptyFolders(const QString& folder)
{
    const QStringList names =
        QDir(folder).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString& name : names)
        removeEmptyFolders(folder + QLatin1Char('/') + name);
    QDir().rmdir(folder); // fails unless it is empty
}
