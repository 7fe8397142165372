#include "catalogue/PathGuard.h"

#include "host/AppOptions.h"

#include <QDir>
#include <QFileInfo>

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

} // namespace

bool PathGuard::hasPlainName(const QString& path)
{
    return !path.contains(QChar(QChar::Null)) && !goesUp(path);
}

bool PathGuard::isReallyInside(const QString& root, const QString& path)
{
    const QFileInfo file(path);
    // For a missing file, or a name that is too long, Qt may return the name itself as canonical.
    if (root.isEmpty() || !file.exists())
        return false;
    const QString real = file.canonicalFilePath();
    const bool hasLinks = path != real && path != real + QLatin1Char('/');
    // A path without links has a root without links, whose real path is costly to determine.
    if (!hasLinks && path.startsWith(root + QLatin1Char('/')))
        return true;
    const QString realRoot = QFileInfo(root).canonicalFilePath();
    return !realRoot.isEmpty() && real.startsWith(realRoot + QLatin1Char('/'));
}

bool PathGuard::isInside(const QString& root, const QString& path)
{
    if (root.isEmpty() || path.contains(QChar(QChar::Null)))
        return false;
    const QString folder = root.endsWith(QLatin1Char('/')) ? root : root + QLatin1Char('/');
    if (!path.startsWith(folder) || path.size() == folder.size())
        return false;
    if (goesUp(path.mid(folder.size() - 1)))
        return false;
    for (int end = folder.size(); end >= 0;) {
        end = path.indexOf(QLatin1Char('/'), end + 1);
        if (QFileInfo(path.left(end)).isSymLink())
            return false;
    }
    return true;
}

bool PathGuard::ensureDir(const QString& root, const QString& path)
{
    return isInside(root, path) && AppOptions::instance()->ensureDirExists(path);
}
