// Checks: the release of a server's tree.

#include "download/ReleasePaths.h"
#include "lint/Checks.h"
#include "lint/LintContext.h"
#include "release/ContentName.h"

#include <QDir>
#include <QDirIterator>

namespace {

/// Marks the contents as used, although no catalogue names them.
void useContents(LintContext& context)
{
    const QDir tree(context.tree().folder());
    QDirIterator it(context.tree().absolute(ReleasePaths::contentFolder()),
                    QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString name = tree.relativeFilePath(it.next());
        if (ContentName(name).isValid())
            context.use(name);
    }
}

} // namespace

void Checks::release(LintContext& context)
{
    if (context.tree().isInstallation())
        return;
    for (const QString& name :
         {ReleasePaths::release(), ReleasePaths::list(), ReleasePaths::signature()})
        context.use(name);
    useContents(context);
}
