// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/Upload.h"

#include "download/ReleasePaths.h"
#include "tree/Editions.h"
#include "tree/ReadTree.h"
#include "upload/TreeRelease.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QMap>

#include <algorithm>

namespace {

const QString keptForEver = QStringLiteral("public, max-age=31536000, immutable");
const QString revalidated = QStringLiteral("no-cache");
const QString neverKept = QStringLiteral("no-store");

bool isVersionFile(const QString& name)
{
    const QVector<Edition>& editions = Editions::all();
    return std::any_of(editions.cbegin(), editions.cend(), [&](const Edition& edition) {
        return name == ReadTree::catalogue(edition.versionFile);
    });
}

bool isCatalogue(const QString& name)
{
    return name.startsWith(Editions::catalogueFolder + QLatin1Char('/')) && !isVersionFile(name);
}

Upload::Step stepOf(const QString& title, const QString& cacheControl)
{
    Upload::Step step;
    step.title = title;
    step.cacheControl = cacheControl;
    return step;
}

} // namespace

void Upload::Step::add(const QString& name, qint64 sizeBytes, bool isPresent)
{
    if (isPresent) {
        ++presentCount;
        return;
    }
    files.append(name);
    bytes += sizeBytes;
}

Upload::Upload(Rclone& rclone, const TreeRelease& tree, const QString& remote)
    : m_rclone(rclone)
    , m_tree(tree)
    , m_remote(rclone, remote)
{
}

bool Upload::prepare()
{
    if (!m_remote.read())
        return failed();
    if (!checkSerial())
        return false;
    addContents();
    if (!m_names.read(m_remote, m_tree) || !addNamed())
        return failed();
    addList();
    return true;
}

bool Upload::isInForce() const
{
    return m_remote.releaseDigest() == m_tree.digest();
}

/// A client refuses a release with a lower serial than the last one that it has seen.
bool Upload::checkSerial()
{
    const qint64 own = m_tree.release().m_serial;
    const QMap<qint64, UploadRecord>& records = m_remote.records();
    const qint64 highest = std::max(records.isEmpty() ? 0 : records.lastKey(),
                                    m_remote.hasRelease() ? m_remote.release().m_serial : 0);
    if (highest > own)
        return fail(QStringLiteral("the remote has release %1, which is newer than release %2 of "
                                   "the tree; build the tree anew")
                        .arg(highest)
                        .arg(own));
    const bool isOther =
        m_remote.release().m_serial == own && m_remote.hasRelease() && !isInForce();
    const auto record = records.constFind(own);
    if (isOther || (record != records.cend() && record->m_releaseDigest != m_tree.digest()))
        return fail(
            QStringLiteral("the remote has another release %1; build the tree anew").arg(own));
    return true;
}

void Upload::addContents()
{
    Step step = stepOf(QStringLiteral("contents"), keptForEver);
    const QMap<QString, qint64>& contents = m_tree.contents();
    for (auto it = contents.cbegin(); it != contents.cend(); ++it) {
        if (it.key() != ReleasePaths::signatureOf(m_tree.digest()))
            step.add(it.key(), it.value(), isThere(it.key(), it.value()));
    }
    m_steps.append(step);
}

/// Adds the named files for clients that do not use releases: version files after the catalogues
/// to which they refer, and catalogues after the items.
bool Upload::addNamed()
{
    QSet<QString> changed;
    if (!findChanged(changed))
        return false;
    Step items = stepOf(QStringLiteral("items and previews"), revalidated);
    Step catalogues = stepOf(QStringLiteral("catalogues"), revalidated);
    Step versions = stepOf(QStringLiteral("version files"), neverKept);
    for (const ReleaseList::Entry& entry : m_tree.list().entries()) {
        const QString name = QString::fromUtf8(entry.path);
        Step& step = isVersionFile(name) ? versions : isCatalogue(name) ? catalogues : items;
        step.add(name, entry.sizeBytes, !changed.contains(name));
    }
    m_steps << items << catalogues << versions;
    return true;
}

bool Upload::findChanged(QSet<QString>& changed)
{
    QStringList others;
    for (const ReleaseList::Entry& entry : m_tree.list().entries()) {
        const QString name = QString::fromUtf8(entry.path);
        if (!isThere(name, entry.sizeBytes) || m_names.mayDiffer(entry))
            changed.insert(name);
        else
            others.append(name);
    }
    QStringList different;
    if (!m_remote.compare(m_tree.folder(), others, different))
        return false;
    changed += QSet<QString>(different.cbegin(), different.cend());
    return true;
}

/// Adds the list, where people and programs such as minisign look for it, and the signature, which
/// may have been made anew for the same release.
void Upload::addList()
{
    Step step = stepOf(QStringLiteral("list and signature"), revalidated);
    const auto bytesOf = [this](const QString& name) {
        return QFileInfo(m_tree.folder() + QLatin1Char('/') + name).size();
    };
    const qint64 listBytes = bytesOf(ReleasePaths::list());
    step.add(ReleasePaths::list(), listBytes,
             isInForce() && isThere(ReleasePaths::list(), listBytes));
    if (m_tree.isSigned()) {
        for (const QString& name :
             {ReleasePaths::signatureOf(m_tree.digest()), ReleasePaths::signature()})
            step.add(name, bytesOf(name), false);
    }
    m_steps.append(step);
}

bool Upload::isThere(const QString& name, qint64 bytes) const
{
    return m_remote.files().value(name, -1) == bytes;
}

bool Upload::run(const StepBegins& stepBegins, const Rclone::Progress& progress)
{
    if (!writeRecords())
        return failed();
    for (const Step& step : qAsConst(m_steps)) {
        stepBegins(step);
        m_rclone.setProgress(progress);
        const bool isSent = m_remote.send(m_tree.folder(), step.files, step.cacheControl);
        m_rclone.setProgress({});
        if (!isSent)
            return failed();
    }
    return checkRemote() && switchOver();
}

/// Records this release before anything of it is sent, and the one in force, if another program has
/// brought it there or its upload was broken at the very end.
bool Upload::writeRecords()
{
    const QMap<qint64, UploadRecord>& records = m_remote.records();
    UploadRecord current;
    current.m_serial = m_remote.release().m_serial;
    current.m_releaseDigest = m_remote.releaseDigest();
    current.m_listDigest = m_remote.release().m_listDigest;
    current.m_since = QDateTime::currentDateTimeUtc();
    if (m_remote.hasRelease() && !records.value(current.m_serial).m_since.isValid()
        && !writeRecord(current))
        return false;
    UploadRecord own = ownRecord();
    own.m_unknown = m_names.unexplained();
    return isInForce() || records.contains(own.m_serial) || writeRecord(own);
}

bool Upload::writeRecord(const UploadRecord& record)
{
    return m_remote.sendBytes(UploadRecord::path(record.m_serial), record.toJson(), revalidated);
}

/// Looks once more before the switch: another upload may have overtaken this one, or removed
/// contents on which this one relied.
bool Upload::checkRemote()
{
    QHash<QString, qint64> files;
    if (!m_remote.readAgain(files))
        return failed();
    for (auto it = files.cbegin(); it != files.cend(); ++it) {
        const qint64 serial = UploadRecord::serialOf(it.key());
        if (serial <= m_tree.release().m_serial)
            continue;
        m_outcome = Outcome::Overtaken;
        return fail(QStringLiteral("another upload is bringing release %1 there; this one ends")
                        .arg(serial));
    }
    const QMap<QString, qint64>& contents = m_tree.contents();
    for (auto it = contents.cbegin(); it != contents.cend(); ++it) {
        if (files.value(it.key(), -1) != it.value())
            return fail(
                QStringLiteral("the remote does not have %1; upload the tree again").arg(it.key()));
    }
    return true;
}

/// Sends release.json; an interrupt in the middle would leave open which release is in force.
bool Upload::switchOver()
{
    if (isInForce()) {
        m_outcome = Outcome::Switched;
        return true;
    }
    if (m_rclone.isCancelled())
        return false;
    m_rclone.setProtected(true);
    m_outcome = Outcome::Unknown;
    if (!m_remote.sendBytes(ReleasePaths::release(), m_tree.bytes(), revalidated))
        return failed();
    m_outcome = Outcome::Switched;
    UploadRecord record = ownRecord();
    record.m_since = QDateTime::currentDateTimeUtc();
    const bool isOutdated =
        !m_tree.isSigned() && m_remote.files().contains(ReleasePaths::signature());
    return (writeRecord(record) && (!isOutdated || m_remote.remove({ReleasePaths::signature()})))
        || failed();
}

UploadRecord Upload::ownRecord() const
{
    UploadRecord record;
    record.m_serial = m_tree.release().m_serial;
    record.m_releaseDigest = m_tree.digest();
    record.m_listDigest = m_tree.release().m_listDigest;
    return record;
}

bool Upload::fail(const QString& text)
{
    m_error = text;
    return false;
}

bool Upload::failed()
{
    return fail(QStringLiteral("rclone: ") + m_remote.errorText());
}
