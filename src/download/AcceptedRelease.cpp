// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/AcceptedRelease.h"

#include "download/AnswerCache.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "download/ReleasePaths.h"
#include "download/ReleaseStore.h"
#include "host/HostSettings.h"

#include <QFile>
#include <QStringList>
#include <QUrl>

#include <mutex>
#include <utility>

namespace {

// Static objects of the library, not of the function: a check may outlive what main() has created.
std::mutex cacheMutex; // guards the two variables below
QString cachedState;
AcceptedRelease::Pointer cached;

} // namespace

AcceptedRelease::AcceptedRelease(QByteArray text, SRelease release, ReleaseList list,
                                 QByteArray signature)
    : m_text(std::move(text))
    , m_release(std::move(release))
    , m_list(std::move(list))
    , m_signature(std::move(signature))
{
}

AcceptedRelease::Pointer AcceptedRelease::current()
{
    if (hostSettings().releasePolicy == eRelease_Ignore)
        return nullptr;
    const std::lock_guard<std::mutex> lock(cacheMutex);
    const QString state = ReleaseStore::state() + urlOf(QString())
        + hostSettings().releaseKeys.join(QLatin1Char(' '));
    if (state != cachedState) {
        cached = ReleaseStore().read();
        cachedState = cached ? state : QString(); // what cannot be read now may be readable later
    }
    return cached;
}

bool AcceptedRelease::isUnusable()
{
    return hostSettings().releasePolicy != eRelease_Ignore && !current()
        && QFile::exists(AnswerCache::ofRelease().path());
}

QString AcceptedRelease::urlOf(const QString& path)
{
    QString root = CheckWorker_CfgAndDisplayXML::getSerThemeRootDir();
    if (root.endsWith(QLatin1Char('/')))
        root.chop(1);
    return root + QLatin1Char('/') + path;
}

QString AcceptedRelease::pathOf(const QString& url)
{
    const QString root = CheckWorker_CfgAndDisplayXML::getSerThemeRootDir();
    if (!url.startsWith(root))
        return QString();
    return QUrl::fromPercentEncoding(url.mid(root.size()).toUtf8());
}

STransferFailure AcceptedRelease::refusalOf(const QString& url, const QString& file)
{
    return {eFailure_Damaged, url, file,
            QStringLiteral("%1 is not fetched: no release that is accepted lists it").arg(url)};
}

AcceptedRelease::Source AcceptedRelease::sourceOf(const QString& url, const Pointer& release)
{
    Source source;
    if (release) {
        const ReleaseList::Entry entry = release->list().find(pathOf(url));
        if (entry.isValid()) {
            source.contentUrl = urlOf(ReleasePaths::content(entry.digest));
            source.published = {entry.digest, entry.sizeBytes};
            return source;
        }
    }
    source.isRefused = hostSettings().releasePolicy == eRelease_Require;
    return source;
}
