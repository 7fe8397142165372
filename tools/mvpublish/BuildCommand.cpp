#include "BuildCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "FolderSwitch.h"
#include "ReplacedTree.h"
#include "Source.h"
#include "TreeBuilder.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// Why the folder is not replaced; empty if it holds a tree, or nothing.
QString placeFault(const QString& folder, bool installed)
{
    const QFileInfo place(folder);
    const QDir tree(folder);
    const bool isFree = place.exists() ? place.isDir() && tree.isEmpty() : !place.isSymLink();
    if (isFree)
        return QString();
    if (!place.isDir() || !tree.exists(Editions::catalogueFolder))
        return QStringLiteral("%1 is there and holds no tree").arg(folder);
    const QString foreign = ReplacedTree::foreignEntry(folder, installed);
    if (foreign.isEmpty())
        return QString();
    return QStringLiteral("%1 holds %2, which is no part of %3")
        .arg(folder, foreign,
             installed ? QStringLiteral("an installation") : QStringLiteral("a server's tree"));
}

bool contains(const QString& outer, const QString& inner)
{
    const QString folder = QFileInfo(outer).canonicalFilePath();
    const QFileInfo place(inner);
    const QString path = place.exists()
        ? place.canonicalFilePath()
        : QFileInfo(place.absolutePath()).canonicalFilePath() + QLatin1Char('/') + place.fileName();
    return !folder.isEmpty() && (path + QLatin1Char('/')).startsWith(folder + QLatin1Char('/'));
}

/// Nothing that the build writes or removes may lie in the source, nor the other way round.
QString foldersFault(const QString& source, const QString& out, const FolderSwitch& place)
{
    if (contains(source, out) || contains(out, source))
        return QStringLiteral("SOURCE and OUT lie within each other");
    if (contains(place.folder(), source) || contains(place.oldFolder(), source))
        return QStringLiteral("SOURCE lies where OUT is made ready");
    return QString();
}

int report(const Arguments& arguments, const Source& source, const TreeBuilder& builder)
{
    QStringList editions;
    for (const Edition& edition : arguments.editions)
        editions.append(edition.name);
    Console::print(QStringLiteral("%1: %2, %3, %4, %5")
                       .arg(arguments.operands.at(1),
                            Console::counted(static_cast<qint64>(source.items().size()),
                                             QStringLiteral("item")),
                            Console::counted(builder.fileCount(), QStringLiteral("file")),
                            Console::size(builder.byteCount()),
                            arguments.installed
                                ? QStringLiteral("installation")
                                : QStringLiteral("for ") + editions.join(QStringLiteral(", "))));
    return ExitStatus::success;
}

} // namespace

int BuildCommand::run(const Arguments& arguments)
{
    const QString sourceFolder = arguments.operands.at(0);
    const QString out = QDir::cleanPath(QDir().absoluteFilePath(arguments.operands.at(1)));
    if (!QFileInfo(sourceFolder).isDir())
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("no such folder: %1").arg(sourceFolder));
    FolderSwitch place(out);
    const QString fault = foldersFault(sourceFolder, out, place);
    if (!fault.isEmpty())
        return Console::fail(ExitStatus::failure, fault);
    const QString foreign = placeFault(out, arguments.installed);
    if (!foreign.isEmpty())
        return Console::fail(ExitStatus::failure,
                             foreign + QStringLiteral("; it is left as it is"));
    Source source;
    if (!source.read(sourceFolder)) {
        for (const QString& line : source.faults())
            Console::fail(ExitStatus::findings, line);
        return ExitStatus::findings;
    }
    if (!place.begin())
        return Console::fail(ExitStatus::failure, place.errorText());
    TreeBuilder builder(source);
    const bool written = arguments.installed
        ? builder.writeInstallation(place.folder())
        : builder.writeServer(place.folder(), arguments.editions);
    if (!written)
        return Console::fail(ExitStatus::failure, builder.errorText());
    if (!place.commit())
        return Console::fail(ExitStatus::failure, place.errorText());
    return report(arguments, source, builder);
}
