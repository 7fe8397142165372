// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks: the release of a server's tree.

#include "download/ReleaseList.h"
#include "download/ReleasePaths.h"
#include "download/SRelease.h"
#include "host/ContentDigest.h"
#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "release/ContentName.h"
#include "release/LocalTree.h"
#include "release/ReleaseCheck.h"
#include "tree/Editions.h"
#include "tree/FolderContent.h"

#include <QDateTime>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace {

const QString contentRoot = ReleasePaths::contentFolder() + QLatin1Char('/');

/// Returns the files of the tree; those of a folder that cannot be read are missed by others.
QStringList filesOf(const ReadTree& tree)
{
    QStringList paths;
    QString error;
    FolderContent::paths(tree.folder(), paths, &error);
    paths.erase(std::remove_if(paths.begin(), paths.end(),
                               [&tree](const QString& path) {
                                   return QFileInfo(tree.absolute(path)).isDir();
                               }),
                paths.end());
    return paths;
}

QStringList releaseFiles()
{
    return {ReleasePaths::release(), ReleasePaths::list(), ReleasePaths::signature()};
}

/// Reports a content that no client may get under its name: those of the previous release, which
/// the list does not name, are served, too.
void checkContent(LintContext& context, const QString& name, const ContentName& content)
{
    if (content.isSignature())
        return;
    if (ContentDigest::ofFile(context.tree().absolute(name)) != content.digest())
        context.report("release-content", name, 0, QString(),
                       QStringLiteral("has not the content that its name says"),
                       QStringLiteral("take it away; clients that want it are served by name"));
}

/// Reports files that catalogues name and the release does not, and damaged contents.
void checkBeyondTheList(LintContext& context, const ReleaseList& list)
{
    QSet<QString> listed{ReleasePaths::list()};
    for (const ReleaseList::Entry& entry : list.entries())
        listed += {QString::fromUtf8(entry.path), ReleasePaths::content(entry.digest)};
    const QStringList files = filesOf(context.tree());
    for (const QString& name : files) {
        const ContentName content(name);
        if (listed.contains(name) || releaseFiles().contains(name))
            continue;
        if (content.isValid())
            checkContent(context, name, content);
        else if (context.isUsed(name))
            context.report("release-unlisted", name, 0, QString(),
                           QStringLiteral("is not listed in the release"),
                           QStringLiteral("clients that use releases refuse the file; build the "
                                          "tree again"));
    }
}

void checkVersion(LintContext& context, const SRelease& release)
{
    for (const PublishedVersion& version : context.tree().versions()) {
        const QString& published = version.content.m_qsVersion;
        if (version.content.bLoadXMLOK && published != release.m_qsCatalogueVersion) {
            context.report("release", ReleasePaths::release(), 0, QString(),
                           QStringLiteral("names the catalogue version \"%1\", but %2 has \"%3\"")
                               .arg(release.m_qsCatalogueVersion, version.file, published),
                           QStringLiteral("build the tree again"));
            return;
        }
    }
}

/// Returns whether another check has reported that the file is missing.
bool isReportedMissing(const LintContext& context, const Finding& finding)
{
    return finding.code == QLatin1String("release-file") && context.isUsed(finding.file)
        && !QFileInfo(context.tree().absolute(finding.file)).isFile();
}

/// Marks the files of the release as used, although no catalogue names them. Returns whether there
/// is one: a tree without a release is complete for its clients.
bool useFiles(LintContext& context)
{
    bool hasAny = false;
    const QStringList files = filesOf(context.tree());
    for (const QString& name : files) {
        if (!releaseFiles().contains(name) && !ContentName(name).isValid())
            continue;
        context.use(name);
        hasAny = true;
    }
    return hasAny;
}

} // namespace

void Checks::release(LintContext& context)
{
    if (context.tree().isInstallation() || !useFiles(context))
        return;
    LocalTree tree(context.tree().folder());
    ReleaseCheck check(tree, QDateTime::currentDateTimeUtc());
    if (check.readDocuments()) {
        checkVersion(context, check.release());
        check.checkFiles();
        checkBeyondTheList(context, check.list());
    }
    for (const Finding& finding : check.findings()) {
        if (!isReportedMissing(context, finding))
            context.add(finding);
    }
}
