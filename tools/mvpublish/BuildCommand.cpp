#include "BuildCommand.h"

#include "Arguments.h"
#include "FolderSwitch.h"
#include "Output.h"
#include "Source.h"
#include "TreeBuilder.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// A folder that holds something else than a tree is not replaced.
bool mayReplace(const QString& folder)
{
    const QFileInfo place(folder);
    if (!place.exists())
        return !place.isSymLink();
    const QDir tree(folder);
    return place.isDir() && (tree.isEmpty() || tree.exists(Editions::catalogueFolder));
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

int report(const Arguments& arguments, const Source& source, const TreeBuilder& builder)
{
    QStringList editions;
    for (const Edition& edition : arguments.editions)
        editions.append(edition.name);
    Output::print(QStringLiteral("%1: %2, %3, %4, %5")
                      .arg(arguments.operands.at(1),
                           Output::counted(static_cast<qint64>(source.items().size()),
                                           QStringLiteral("item")),
                           Output::counted(builder.fileCount(), QStringLiteral("file")),
                           Output::size(builder.byteCount()),
                           arguments.installed
                               ? QStringLiteral("installation")
                               : QStringLiteral("for ") + editions.join(QStringLiteral(", "))));
    return Output::exitSuccess;
}

} // namespace

int BuildCommand::run(const Arguments& arguments)
{
    const QString sourceFolder = arguments.operands.at(0);
    const QString out = QDir::cleanPath(QDir().absoluteFilePath(arguments.operands.at(1)));
    if (!QFileInfo(sourceFolder).isDir())
        return Output::fail(Output::exitFailure,
                            QStringLiteral("no such folder: %1").arg(sourceFolder));
    if (contains(sourceFolder, out) || contains(out, sourceFolder))
        return Output::fail(Output::exitFailure,
                            QStringLiteral("SOURCE and OUT lie within each other"));
    if (!mayReplace(out))
        return Output::fail(
            Output::exitFailure,
            QStringLiteral("%1 is there and holds no tree; it is left as it is").arg(out));
    Source source;
    if (!source.read(sourceFolder)) {
        for (const QString& fault : source.faults())
            Output::fail(Output::exitFindings, fault);
        return Output::exitFindings;
    }
    FolderSwitch place(out);
    if (!place.begin())
        return Output::fail(Output::exitFailure, place.errorText());
    TreeBuilder builder(source);
    const bool written = arguments.installed
        ? builder.writeInstallation(place.folder())
        : builder.writeServer(place.folder(), arguments.editions);
    if (!written)
        return Output::fail(Output::exitFailure, builder.errorText());
    if (!place.commit())
        return Output::fail(Output::exitFailure, place.errorText());
    return report(arguments, source, builder);
}
