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

/// Returns the path of a tree that a killed run has left and that cannot be restored.
QString treeAside(const FolderSwitch& place)
{
    return QFileInfo(place.oldFolder()).isDir()
        ? QStringLiteral(" (%1 holds the one that was there)").arg(place.oldFolder())
        : QString();
}

/// Returns why the folder must not be replaced; empty if it contains a tree, or nothing.
QString placeFault(const QString& folder, const FolderSwitch& place, bool installed)
{
    // A link to a missing folder may be waiting for a mount or for a copy of another tree.
    if (place.isFree() && (QFileInfo::exists(folder) || !QFileInfo(folder).isSymLink()))
        return QString();
    if (!QDir(folder).exists(Editions::catalogueFolder))
        return QStringLiteral("%1 exists and is not a tree").arg(folder) + treeAside(place);
    return ReplacedTree::fault(folder, installed);
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

/// Returns a fault if the build would write or remove anything in the source, or vice versa.
QString foldersFault(const QString& source, const FolderSwitch& place)
{
    if (contains(source, place.target()) || contains(place.target(), source))
        return QStringLiteral("SOURCE and OUT must not contain each other");
    if (contains(place.folder(), source) || contains(place.oldFolder(), source))
        return QStringLiteral("SOURCE is where OUT is prepared");
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

int publish(const Arguments& arguments, const Source& source, FolderSwitch& place)
{
    for (const QString& line : source.warnings())
        Console::note(QStringLiteral("warning: ") + line);
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

} // namespace

int BuildCommand::run(const Arguments& arguments)
{
    const QString sourceFolder = arguments.operands.at(0);
    const QString out = QDir::cleanPath(QDir().absoluteFilePath(arguments.operands.at(1)));
    if (!QFileInfo(sourceFolder).isDir())
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("no such folder: %1").arg(sourceFolder));
    FolderSwitch place(out);
    const QString fault = foldersFault(sourceFolder, place);
    if (!fault.isEmpty())
        return Console::fail(ExitStatus::failure, fault);
    // Before examining the place, since the remains of a killed run may have to be restored.
    if (!place.lock())
        return Console::fail(ExitStatus::failure, place.errorText());
    const QString foreign = placeFault(out, place, arguments.installed);
    if (!foreign.isEmpty())
        return Console::fail(ExitStatus::failure,
                             foreign + QStringLiteral("; it is left as it is"));
    Source source;
    if (source.read(sourceFolder))
        return publish(arguments, source, place);
    for (const QString& line : source.faults())
        Console::note(line);
    return ExitStatus::findings;
}
