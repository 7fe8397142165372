// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "UploadCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "FolderSwitch.h"
#include "Interrupt.h"
#include "ProgressLine.h"
#include "upload/Pruning.h"
#include "upload/Rclone.h"
#include "upload/TreeRelease.h"
#include "upload/Upload.h"

#include <QDateTime>
#include <QFileInfo>
#include <QObject>

namespace {

QString described(const SRelease& release)
{
    return QStringLiteral("release %1 of %2")
        .arg(release.m_serial)
        .arg(release.m_published.toString(Qt::ISODate));
}

/// Describes what clients see at the remote before the upload.
QString stateOf(const UploadPlace& remote)
{
    return remote.hasRelease() ? described(remote.release()) + QStringLiteral(" is in force")
                               : QStringLiteral("no release is in force");
}

void printStep(const Upload::Step& step)
{
    Console::print(QStringLiteral("%1: %2 to send (%3), %4 there")
                       .arg(step.title, Console::counted(step.files.size(), QStringLiteral("file")),
                            Console::size(step.bytes))
                       .arg(step.presentCount));
}

void showProgress(ProgressLine& line, qint64 sentBytes, qint64 totalBytes)
{
    const int percent = ProgressLine::percentOf(sentBytes, totalBytes);
    line.show(percent,
              QStringLiteral("%1%, %2 of %3")
                  .arg(percent, 5)
                  .arg(Console::size(sentBytes), Console::size(totalBytes)));
}

void printPlan(const Upload& upload)
{
    for (const Upload::Step& step : upload.steps()) {
        printStep(step);
        for (const QString& file : step.files)
            Console::print(QStringLiteral("would send ") + file);
    }
}

/// Reports an upload that has not ended, with what clients see now.
int reportEnd(const Upload& upload, bool isCancelled)
{
    QString text = isCancelled ? QStringLiteral("cancelled") : upload.errorText();
    if (upload.outcome() == Upload::Outcome::Unknown)
        text += QStringLiteral("; it is unknown whether the new release is in force: upload again");
    else if (upload.outcome() == Upload::Outcome::Switched)
        text += QStringLiteral("; the new release is in force");
    else if (upload.outcome() == Upload::Outcome::Unchanged && upload.remote().hasRelease())
        text += QStringLiteral("; %1 is still in force").arg(described(upload.remote().release()));
    else if (upload.outcome() == Upload::Outcome::Unchanged)
        text += QStringLiteral("; there is still no release in force");
    return Console::fail(ExitStatus::failure, text);
}

int prune(const Arguments& arguments, Rclone& rclone)
{
    Pruning pruning(rclone, arguments.operands.at(1));
    const QDateTime oldest = QDateTime::currentDateTimeUtc().addDays(-arguments.pruneDays);
    const bool isPrepared = pruning.prepare(oldest);
    if (isPrepared && arguments.dryRun) {
        for (const QString& file : pruning.files())
            Console::print(QStringLiteral("would remove ") + file);
        return ExitStatus::success;
    }
    if (rclone.isCancelled() || !isPrepared || !pruning.run())
        return Console::fail(
            ExitStatus::failure,
            QStringLiteral("old files are not removed, or not all of them: ")
                + (rclone.isCancelled() ? QStringLiteral("cancelled") : pruning.errorText()));
    Console::print(QStringLiteral("removed: %1 (%2)")
                       .arg(Console::counted(pruning.files().size(), QStringLiteral("file")),
                            Console::size(pruning.bytes())));
    return ExitStatus::success;
}

void printResult(const Upload& upload, const TreeRelease& tree)
{
    int files = upload.isInForce() ? 0 : 1; // release.json
    qint64 bytes = upload.isInForce() ? 0 : tree.bytes().size();
    for (const Upload::Step& step : upload.steps()) {
        files += step.files.size();
        bytes += step.bytes;
    }
    Console::print(QStringLiteral("sent: %1 (%2)")
                       .arg(Console::counted(files, QStringLiteral("file")), Console::size(bytes)));
    Console::print(described(tree.release()) + QStringLiteral(" is in force"));
}

int upload(const Arguments& arguments, const TreeRelease& tree, Rclone& rclone)
{
    Upload upload(rclone, tree, arguments.operands.at(1));
    if (!upload.prepare())
        return Console::fail(
            ExitStatus::failure,
            (rclone.isCancelled() ? QStringLiteral("cancelled") : upload.errorText())
                + QStringLiteral("; nothing has been sent"));
    Console::print(QStringLiteral("before: ") + stateOf(upload.remote()));
    if (arguments.dryRun) {
        printPlan(upload);
    } else {
        ProgressLine line(stdout);
        const bool isUploaded = upload.run(
            [&](const Upload::Step& step) {
                line.finish();
                printStep(step);
                line.restart();
            },
            [&](qint64 sent, qint64 total) { showProgress(line, sent, total); });
        line.finish();
        if (!isUploaded)
            return reportEnd(upload, rclone.isCancelled());
        printResult(upload, tree);
    }
    return arguments.pruneDays > 0 ? prune(arguments, rclone) : ExitStatus::success;
}

} // namespace

int UploadCommand::run(const Arguments& arguments)
{
    if (Rclone::program().isEmpty())
        return Console::fail(
            ExitStatus::failure,
            QStringLiteral("the program rclone is not installed; upload needs it"));
    // Also a build would exchange the files that are being sent.
    FolderSwitch place(arguments.operands.at(0));
    TreeRelease tree;
    if (!QFileInfo(arguments.operands.at(0)).isDir())
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("no such folder: %1").arg(arguments.operands.at(0)));
    if (!place.lock())
        return Console::fail(ExitStatus::failure, place.errorText());
    if (!tree.read(arguments.operands.at(0)))
        return Console::fail(ExitStatus::failure, tree.errorText());
    Rclone rclone(arguments.rcloneOptions);
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::requested, &interrupt, [&] { rclone.cancel(); });
    return upload(arguments, tree, rclone);
}
