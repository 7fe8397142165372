// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/PathGuard.h"

#include "host/AppOptions.h"
#include "host/FileLink.h"
#include "host/SystemFile.h"
#include "host/WindowsName.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <utility>

namespace {

bool isSeparator(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('\\');
}

/// Returns whether a component, between separators of either kind, is "..".
bool goesUp(const QString& path)
{
    for (int at = path.indexOf(QLatin1String("..")); at >= 0;
         at = path.indexOf(QLatin1String(".."), at + 1)) {
        const bool begins = at == 0 || isSeparator(path.at(at - 1));
        const bool ends = at + 2 == path.size() || isSeparator(path.at(at + 2));
        if (begins && ends)
            return true;
    }
    return false;
}

/// Returns whether the system takes every component as the name that it is. Elsewhere than on
/// Windows, names have no meaning of their own.
bool isTakenLiterally(const QString& path)
{
#ifdef Q_OS_WIN
    return WindowsName::isStorablePath(path);
#else
    Q_UNUSED(path)
    return true;
#endif
}

bool isLink(const QString& path)
{
    return FileLink::isLink(QFileInfo(path));
}

/// Returns the path with all links followed; empty if the file or folder does not exist.
QString realPath(const QString& path)
{
#ifdef Q_OS_WIN // Qt does not follow junctions
    return SystemFile::realPath(path);
#else
    return QFileInfo(path).canonicalFilePath();
#endif
}

thread_local PathGuard::Known* remembered = nullptr;

/// Returns the real path of a folder, links followed; empty if there is none.
QString realFolder(const QString& folder)
{
    if (!remembered)
        return realPath(folder);
    const auto known = remembered->real.constFind(folder);
    if (known != remembered->real.constEnd())
        return *known;
    return *remembered->real.insert(folder, realPath(folder));
}

bool isLinkedFolder(const QString& folder)
{
    if (!remembered)
        return isLink(folder);
    const auto known = remembered->isLink.constFind(folder);
    if (known != remembered->isLink.constEnd())
        return *known;
    return *remembered->isLink.insert(folder, isLink(folder));
}

} // namespace

bool PathGuard::hasPlainName(const QString& path)
{
    return !path.contains(QChar(QChar::Null)) && !goesUp(path) && isTakenLiterally(path);
}

PathGuard::Folders::Folders()
    : m_previous(remembered)
{
    if (!remembered)
        remembered = &m_known;
}

PathGuard::Folders::~Folders()
{
    remembered = m_previous;
}

bool PathGuard::isReallyInside(const QString& root, const QString& path)
{
    const QFileInfo file(path);
    // For a missing file Qt may call the name itself canonical, as for one that is too long.
    if (root.isEmpty() || (!file.isSymLink() && !file.exists()))
        return false;
    const int nameAt = path.lastIndexOf(QLatin1Char('/')) + 1;
    // Only the name of a link is not its real one; its folder may be a link in any case.
    const bool hasRealName = !isLink(path) && nameAt > 0 && nameAt < path.size();
    const QString real =
        hasRealName ? realFolder(path.left(nameAt - 1)) + path.mid(nameAt - 1) : realPath(path);
    if (real == path && path.startsWith(root + QLatin1Char('/')))
        return true; // a path without links has a root without links
    const QString realRoot = realFolder(root);
    return !realRoot.isEmpty() && real.startsWith(realRoot + QLatin1Char('/'));
}

bool PathGuard::isInside(const QString& root, const QString& path)
{
    if (root.isEmpty() || path.contains(QChar(QChar::Null)))
        return false;
    const QString folder = root.endsWith(QLatin1Char('/')) ? root : root + QLatin1Char('/');
    if (!path.startsWith(folder) || path.size() == folder.size())
        return false;
    if (goesUp(path.mid(folder.size() - 1)) || !isTakenLiterally(path.mid(folder.size())))
        return false;
    for (int end = folder.size(); end >= 0;) {
        end = path.indexOf(QLatin1Char('/'), end + 1);
        if (end < 0 ? isLink(path) : isLinkedFolder(path.left(end)))
            return false;
    }
    return true;
}

bool PathGuard::ensureDir(const QString& root, const QString& path)
{
    Known* const known = std::exchange(remembered, nullptr); // a link may have come since
    const bool isEnsured = isInside(root, path) && AppOptions::instance()->ensureDirExists(path);
    remembered = known;
    return isEnsured;
}
