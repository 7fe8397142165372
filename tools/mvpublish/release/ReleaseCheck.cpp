// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/ReleaseCheck.h"

#include "download/ReleasePaths.h"
#include "download/ReleaseSignature.h"
#include "host/ContentDigest.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

namespace {

using Document = PublishedTree::Document;

const QString rebuildAdvice = QStringLiteral("clients refuse the release; build the tree again");
const QString signAgain = QStringLiteral("clients that know keys refuse the release; sign it");
const QString renew =
    QStringLiteral("clients refuse an expired release; build with --renew, and sign it");

/// Returns what is wrong with a document that is not there.
QString absence(const Document& document)
{
    return document.state == Document::State::Missing ? QStringLiteral("is missing")
                                                      : document.reason;
}

/// Returns whether the signed comment names another serial than this.
bool namesAnotherSerial(const QString& comment, qint64 serial)
{
    const QString prefix = QStringLiteral("serial:");
    const QStringList fields = comment.split(QLatin1Char('\t'));
    return std::any_of(fields.cbegin(), fields.cend(), [&](const QString& field) {
        return field.startsWith(prefix) && field != prefix + QString::number(serial);
    });
}

} // namespace

ReleaseCheck::ReleaseCheck(PublishedTree& tree, const QDateTime& now)
    : m_tree(tree)
    , m_now(now)
{
}

bool ReleaseCheck::readDocuments()
{
    if (!readRelease())
        return false;
    readSignature();
    checkExpiry();
    return readList();
}

bool ReleaseCheck::readRelease()
{
    const QString name = ReleasePaths::release();
    const Document document = m_tree.read(name, SRelease::maxBytes);
    QString error;
    if (!document.isPresent())
        report("release", name, absence(document), rebuildAdvice);
    else if (!SRelease::parse(document.bytes, m_release, error))
        report("release", name, QStringLiteral("is refused: ") + error, rebuildAdvice);
    m_bytes = document.bytes;
    return m_findings.isEmpty();
}

bool ReleaseCheck::readList()
{
    const QString name = ReleasePaths::list();
    const Document document = m_tree.read(name, ReleaseList::maxBytes);
    QString error;
    if (!document.isPresent())
        report("release-list", name, absence(document), rebuildAdvice);
    else if (document.bytes.size() != m_release.m_listBytes
             || ContentDigest::ofBytes(document.bytes) != m_release.m_listDigest)
        report("release-list", name, QStringLiteral("is not the list that the release names"),
               rebuildAdvice);
    else if (!ReleaseList::parse(document.bytes, m_list, error))
        report("release-list", name, QStringLiteral("is refused: ") + error, rebuildAdvice);
    else
        return true;
    return false;
}

void ReleaseCheck::readSignature()
{
    const QString name = ReleasePaths::signature();
    const QString copyName = ReleasePaths::signatureOf(ContentDigest::ofBytes(m_bytes));
    const Document document = m_tree.read(name, ReleaseSignature::maxBytes);
    const Document copy = m_tree.read(copyName, ReleaseSignature::maxBytes);
    if (document.state == Document::State::Missing && copy.state == Document::State::Missing) {
        if (!m_keys.isEmpty())
            report("release-signature", name, QStringLiteral("is missing"), signAgain);
        return;
    }
    if (!document.isPresent())
        report("release-signature", name, absence(document), signAgain);
    if (!copy.isPresent())
        report("release-signature", copyName,
               absence(copy) + QStringLiteral(", where clients fetch the signature"), signAgain);
    else if (document.isPresent() && copy.bytes != document.bytes)
        report("release-signature", copyName,
               QStringLiteral("is another signature than ") + ReleasePaths::signature(), signAgain);
    else
        checkSignature(copy.bytes);
}

void ReleaseCheck::checkSignature(const QByteArray& text)
{
    QString error;
    ReleaseSignature signature;
    const bool isSound = ReleaseSignature::parse(text, signature, error)
        && (m_keys.isEmpty() || signature.verify(m_bytes, m_keys, error));
    if (!isSound)
        report("release-signature", ReleasePaths::signature(),
               QStringLiteral("is refused: ") + error, signAgain);
    else if (namesAnotherSerial(signature.trustedComment(), m_release.m_serial))
        report("release-signature", ReleasePaths::signature(),
               QStringLiteral("is the signature of another release"), signAgain);
    else if (!m_keys.isEmpty())
        m_signer = ReleaseKey(signature.keyId(), QByteArray()).idText();
}

void ReleaseCheck::checkExpiry()
{
    if (!m_release.m_expires.isValid())
        return;
    const QString time = m_release.m_expires.toString(Qt::ISODate);
    if (m_release.m_expires <= m_now)
        report("release-expired", ReleasePaths::release(), QStringLiteral("expired at ") + time,
               renew);
    else if (m_release.m_expires <= m_now.addDays(soonDays))
        report("release-expires", ReleasePaths::release(), QStringLiteral("expires at ") + time,
               renew, Severity::Warning);
}

/// Returns every listed file, and every content once.
QVector<PublishedTree::Expected> ReleaseCheck::expectedFiles() const
{
    QVector<PublishedTree::Expected> files;
    QSet<QByteArray> digests{m_release.m_listDigest};
    files.append({ReleasePaths::content(m_release.m_listDigest), m_release.m_listDigest,
                  m_release.m_listBytes});
    for (const ReleaseList::Entry& entry : m_list.entries()) {
        files.append({QString::fromUtf8(entry.path), entry.digest, entry.sizeBytes});
        if (digests.contains(entry.digest))
            continue;
        digests.insert(entry.digest);
        files.append({ReleasePaths::content(entry.digest), entry.digest, entry.sizeBytes});
    }
    return files;
}

qint64 ReleaseCheck::filesBytes() const
{
    qint64 bytes = 0;
    const QVector<PublishedTree::Expected> files = expectedFiles();
    for (const PublishedTree::Expected& file : files)
        bytes += file.sizeBytes;
    return bytes;
}

void ReleaseCheck::checkFiles(const PublishedTree::Progress& progress)
{
    const QString contents = ReleasePaths::contentFolder() + QLatin1Char('/');
    const QVector<PublishedTree::Deviation> deviations = m_tree.compare(expectedFiles(), progress);
    for (const PublishedTree::Deviation& deviation : deviations) {
        const bool isContent = deviation.name.startsWith(contents);
        report(isContent ? "release-content" : "release-file", deviation.name, deviation.reason,
               QStringLiteral("clients that use releases cannot fetch the file; build the tree "
                              "again"));
    }
}

void ReleaseCheck::report(const char* code, const QString& file, const QString& message,
                          const QString& advice, Severity severity)
{
    m_findings.append({severity, QString::fromLatin1(code), file, 0, QString(), message, advice});
}
