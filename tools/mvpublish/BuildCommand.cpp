// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BuildCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "FolderSwitch.h"
#include "lint/Lint.h"
#include "release/ReleaseClock.h"
#include "release/ReleaseWriter.h"
#include "ReplacedTree.h"
#include "Source.h"
#include "tree/ReadTree.h"
#include "TreeBuilder.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

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

int fail(const QString& text)
{
    return Console::fail(ExitStatus::failure, text);
}

QString report(const Arguments& arguments, const Source& source, const TreeBuilder& builder)
{
    QStringList editions;
    for (const Edition& edition : arguments.editions)
        editions.append(edition.name);
    return QStringLiteral("%1: %2, %3, %4, %5")
        .arg(arguments.operands.at(1),
             Console::counted(static_cast<qint64>(source.items().size()), QStringLiteral("item")),
             Console::counted(builder.files().size(), QStringLiteral("file")),
             Console::size(builder.byteCount()),
             arguments.installed ? QStringLiteral("installation")
                                 : QStringLiteral("for ") + editions.join(QStringLiteral(", ")));
}

/// Writes the tree and its release into the folder of `place`, and describes them in `text`.
/// Returns false, with the reason in `text`, if that fails.
bool write(const Arguments& arguments, const Source& source, const QDateTime& now,
           const FolderSwitch& place, QString& text)
{
    TreeBuilder builder(source);
    const bool isWritten = arguments.installed
        ? builder.writeInstallation(place.folder())
        : builder.writeServer(place.folder(), arguments.editions);
    text = isWritten ? report(arguments, source, builder) : builder.errorText();
    if (!isWritten || !arguments.hasRelease)
        return isWritten;
    ReleaseWriter writer(place.folder(), place.target());
    const bool isReleased =
        writer.write(builder.files(),
                     {source.version(), now, ReleaseClock::newestIn(source.folder()),
                      arguments.expiryDays, arguments.renew});
    if (!writer.warning().isEmpty())
        Console::note(QStringLiteral("warning: the release of the tree that is replaced: ")
                      + writer.warning());
    if (isReleased)
        text += QStringLiteral(", release %1").arg(writer.release().m_serial);
    else
        text = writer.errorText();
    return isReleased;
}

/// Checks the written tree before anybody sees it, and prints the errors; of what is only a
/// warning, the source has told. Returns the number of errors in words, or why the tree cannot be
/// read; empty: none.
QString treeFault(const FolderSwitch& place)
{
    ReadTree tree;
    QString error;
    if (!tree.open(place.folder(), &error))
        return error;
    const Findings findings = Lint::check(tree);
    for (const Finding& finding : findings) {
        if (finding.severity == Severity::Error)
            Console::note(Lint::text(finding));
    }
    const int errors = Lint::count(findings, Severity::Error);
    return errors > 0 ? Console::counted(errors, QStringLiteral("error")) : QString();
}

int publish(const Arguments& arguments, const Source& source, const QDateTime& now,
            FolderSwitch& place)
{
    for (const QString& line : source.warnings())
        Console::note(QStringLiteral("warning: ") + line);
    if (!place.begin())
        return fail(place.errorText());
    QString text;
    if (!write(arguments, source, now, place, text))
        return fail(text);
    const QString fault = treeFault(place);
    if (!fault.isEmpty() && !arguments.force)
        return Console::fail(ExitStatus::findings,
                             QStringLiteral("%1 is left as it is, since the new tree has %2; "
                                            "--force publishes it all the same")
                                 .arg(arguments.operands.at(1), fault));
    if (!place.commit())
        return fail(place.errorText());
    Console::print(text);
    return ExitStatus::success;
}

} // namespace

int BuildCommand::run(const Arguments& arguments)
{
    const QString sourceFolder = arguments.operands.at(0);
    const QString out = QDir::cleanPath(QDir().absoluteFilePath(arguments.operands.at(1)));
    if (!QFileInfo(sourceFolder).isDir())
        return fail(QStringLiteral("no such folder: %1").arg(sourceFolder));
    QString clockFault;
    const QDateTime now = ReleaseClock::now(&clockFault);
    if (!clockFault.isEmpty())
        return fail(clockFault);
    FolderSwitch place(out);
    const QString fault = foldersFault(sourceFolder, place);
    if (!fault.isEmpty())
        return fail(fault);
    // Before examining the place, since the remains of a killed run may have to be restored.
    if (!place.lock())
        return fail(place.errorText());
    const QString foreign = placeFault(out, place, arguments.installed);
    if (!foreign.isEmpty())
        return fail(foreign + QStringLiteral("; it is left as it is"));
    Source source;
    if (source.read(sourceFolder))
        return publish(arguments, source, now, place);
    for (const QString& line : source.faults())
        Console::note(line);
    return ExitStatus::findings;
}
