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
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
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

/// A build's report on the tree that it has written.
struct Report
{
    QString text;
    QJsonObject object;
};

Report report(const Arguments& arguments, const Source& source, const TreeBuilder& builder)
{
    QStringList editions;
    for (const Edition& edition : arguments.editions)
        editions.append(edition.name);
    const qint64 items = static_cast<qint64>(source.items().size());
    const QString tree = arguments.operands.at(1);
    const auto files = builder.files().size();
    const QString audience = arguments.installed
        ? QStringLiteral("installation")
        : QStringLiteral("for ") + editions.join(QStringLiteral(", "));
    return {QStringLiteral("%1: %2, %3, %4, %5")
                .arg(tree, Console::counted(items, QStringLiteral("item")),
                     Console::counted(files, QStringLiteral("file")),
                     Console::size(builder.byteCount()), audience),
            {{QStringLiteral("tree"), tree},
             {QStringLiteral("items"), static_cast<double>(items)},
             {QStringLiteral("files"), static_cast<double>(files)},
             {QStringLiteral("bytes"), static_cast<double>(builder.byteCount())},
             {QStringLiteral("isInstallation"), arguments.installed},
             {QStringLiteral("editions"),
              arguments.installed ? QJsonArray() : QJsonArray::fromStringList(editions)},
             {QStringLiteral("warnings"), QJsonArray::fromStringList(source.warnings())},
             {QStringLiteral("release"), QJsonValue()}}};
}

/// Writes the release of the tree that `builder` has written. Returns false, with the reason in
/// `error`, if that fails.
bool writeRelease(const Arguments& arguments, const Source& source, const QDateTime& now,
                  const FolderSwitch& place, const TreeBuilder& builder, Report& report,
                  QString& error)
{
    ReleaseWriter writer(place.folder(), place.target());
    const bool isReleased =
        writer.write(builder.files(),
                     {source.version(), now, ReleaseClock::newestIn(source.folder()),
                      arguments.expiryDays, arguments.renew});
    if (!writer.warning().isEmpty())
        Console::note(QStringLiteral("warning: the release of the tree that is replaced: ")
                      + writer.warning());
    if (!isReleased) {
        error = writer.errorText();
        return false;
    }
    const qint64 serial = writer.release().m_serial;
    report.text += QStringLiteral(", release %1").arg(serial);
    report.object.insert(QStringLiteral("release"), static_cast<double>(serial));
    return true;
}

/// Writes the tree and its release into the folder of `place`. Returns false, with the reason in
/// `error`, if that fails.
bool write(const Arguments& arguments, const Source& source, const QDateTime& now,
           const FolderSwitch& place, Report& result, QString& error)
{
    TreeBuilder builder(source);
    const bool isWritten = arguments.installed
        ? builder.writeInstallation(place.folder())
        : builder.writeServer(place.folder(), arguments.editions);
    if (!isWritten) {
        error = builder.errorText();
        return false;
    }
    result = report(arguments, source, builder);
    return !arguments.hasRelease
        || writeRelease(arguments, source, now, place, builder, result, error);
}

/// Checks the written tree before anybody sees it, and prints the errors; of what is only a
/// warning, the source has told. Returns them, or why the tree cannot be read in `error`.
Findings errorsIn(const FolderSwitch& place, QString& error)
{
    ReadTree tree;
    if (!tree.open(place.folder(), &error))
        return {};
    Findings errors;
    const Findings findings = Lint::check(tree);
    for (const Finding& finding : findings) {
        if (finding.severity != Severity::Error)
            continue;
        Console::note(Lint::text(finding));
        errors.append(finding);
    }
    if (!errors.isEmpty())
        error = Console::counted(errors.size(), QStringLiteral("error"));
    return errors;
}

int publish(const Arguments& arguments, const Source& source, const QDateTime& now,
            FolderSwitch& place)
{
    for (const QString& line : source.warnings())
        Console::note(QStringLiteral("warning: ") + line);
    if (!place.begin())
        return Console::fail(ExitStatus::failure, place.errorText());
    Report report;
    QString error;
    if (!write(arguments, source, now, place, report, error))
        return Console::fail(ExitStatus::failure, error);
    const Findings errors = errorsIn(place, error);
    if (!error.isEmpty() && !arguments.force)
        return Console::fail(ExitStatus::findings,
                             QStringLiteral("%1 is left as it is, since the new tree has %2; "
                                            "--force publishes it all the same")
                                 .arg(arguments.operands.at(1), error),
                             {{QStringLiteral("findings"), Lint::json(errors)}});
    if (!place.commit())
        return Console::fail(ExitStatus::failure, place.errorText());
    if (arguments.json)
        Console::print(QJsonDocument(report.object));
    else
        Console::print(report.text);
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
    QString clockFault;
    const QDateTime now = ReleaseClock::now(&clockFault);
    if (!clockFault.isEmpty())
        return Console::fail(ExitStatus::failure, clockFault);
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
        return publish(arguments, source, now, place);
    for (const QString& line : source.faults())
        Console::note(line);
    Console::printFailure(
        ExitStatus::findings,
        QStringLiteral("the source has %1")
            .arg(Console::counted(source.faults().size(), QStringLiteral("fault"))),
        {{QStringLiteral("faults"), QJsonArray::fromStringList(source.faults())}});
    return ExitStatus::findings;
}
