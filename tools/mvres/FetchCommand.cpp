// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FetchCommand.h"

#include "Arguments.h"
#include "catalogue/ItemFiles.h"
#include "Causes.h"
#include "Console.h"
#include "download/MVThemeDownLoader.h"
#include "ExitStatus.h"
#include "Interrupt.h"
#include "Items.h"
#include "ProgressDisplay.h"
#include "records/SCfg_Item.h"
#include "UpdateRun.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QVector>

#include <algorithm>

namespace {

QString textOf(const SItemDownloadResult& result)
{
    switch (result.m_eEnd) {
    case eItemDownload_Complete:
        return QStringLiteral("complete");
    case eItemDownload_Cancelled:
        return QStringLiteral("cancelled");
    case eItemDownload_Failed:
        break;
    }
    return result.m_failure.isFailure() ? result.m_failure.causeText()
                                        : QStringLiteral("not every file could be fetched");
}

int statusOf(const SItemDownloadResult& result)
{
    if (result.m_eEnd == eItemDownload_Complete)
        return ExitStatus::success;
    if (result.m_eEnd == eItemDownload_Cancelled)
        return ExitStatus::download + eDownLoadError_Cancel;
    return result.m_failure.isFailure() ? ExitStatus::cause + result.m_failure.m_eCause
                                        : ExitStatus::download + result.m_eError;
}

} // namespace

FetchCommand::FetchCommand(bool json)
    : m_json(json)
{
}

int FetchCommand::run(const Arguments& arguments)
{
    FetchCommand command(arguments.json);
    QString unknown;
    const QVector<SCfg_Item*> items = command.itemsOf(arguments, unknown);
    if (!unknown.isNull())
        return Console::fail(ExitStatus::failure, QStringLiteral("unknown GUID %1").arg(unknown));
    const bool complete = std::all_of(items.cbegin(), items.cend(), [](SCfg_Item* item) {
        return ItemFiles::countNeeded(*item) == 0;
    });
    if (!complete && !UpdateRun::serverFault().isEmpty())
        return Console::fail(ExitStatus::failure, UpdateRun::serverFault());
    if (items.isEmpty() && !arguments.json)
        Console::print(QStringLiteral("every item is ready"));
    int status = ExitStatus::success;
    for (SCfg_Item* item : items) {
        const SItemDownloadResult result = command.fetch(*item);
        if (status == ExitStatus::success)
            status = statusOf(result);
        if (command.m_interrupted)
            break;
    }
    if (arguments.json)
        Console::print(QJsonDocument(command.m_results));
    return status;
}

/// Returns the named items or, with --all, every shown item that lacks files.
QVector<SCfg_Item*> FetchCommand::itemsOf(const Arguments& arguments, QString& unknown)
{
    if (!arguments.all)
        return m_index.findAll(arguments.operands, unknown);
    QVector<SCfg_Item*> items = Items::displayed();
    const QVector<int> missing = ItemFiles::countNeeded(items);
    for (int row = items.size() - 1; row >= 0; --row) {
        if (missing.at(row) == 0)
            items.remove(row);
    }
    return items;
}

SItemDownloadResult FetchCommand::fetch(SCfg_Item& item)
{
    SItemDownloadResult result =
        ItemFiles::countNeeded(item) == 0 ? SItemDownloadResult() : download(item);
    report(item, result);
    return result;
}

SItemDownloadResult FetchCommand::download(SCfg_Item& item)
{
    const QString name = m_index.nameOf(item);
    ProgressDisplay display(name.isEmpty() ? item.m_qsGUID : name,
                            m_json ? ProgressDisplay::Style::None
                                   : ProgressDisplay::Style::Automatic);
    QEventLoop loop;
    MVThemeDownLoader loader(nullptr);
    Interrupt interrupt;
    QObject::connect(&loader, &MVThemeDownLoader::progress, &loop,
                     [&](double percent) { display.update(percent); });
    QObject::connect(&loader, &MVThemeDownLoader::fileBegun, &loop,
                     [&](const QString& file) { display.begin(file); });
    QObject::connect(&loader, &MVThemeDownLoader::sigDownloadFinish, &loop, &QEventLoop::quit);
    QObject::connect(&interrupt, &Interrupt::requested, &loop, [&] {
        m_interrupted = true;
        loader.cancel();
    });
    loader.download(&item);
    loop.exec();
    display.finish();
    return loader.outcome();
}

void FetchCommand::report(SCfg_Item& item, const SItemDownloadResult& result)
{
    const ItemFiles files(item);
    if (m_json)
        appendJson(item, files, result);
    else
        printFiles(item, files, result);
    if (result.m_eEnd == eItemDownload_Complete)
        return;
    Console::note(QStringLiteral("%1: %2").arg(item.m_qsGUID, textOf(result)));
    if (result.m_failure.isFailure())
        Console::note(result.m_failure.m_qsDetails);
    for (const ItemFiles::Entry& entry : files.entries()) {
        if (!entry.isPresent)
            Console::note(QStringLiteral("missing: %1").arg(entry.url));
    }
}

void FetchCommand::appendJson(SCfg_Item& item, const ItemFiles& files,
                              const SItemDownloadResult& result)
{
    QJsonObject object = Items::toJson(item);
    // A download cancelled during its last file ends with that file's code.
    const bool isCancelled = result.m_eEnd == eItemDownload_Cancelled;
    object.insert(QStringLiteral("result"),
                  static_cast<int>(isCancelled ? eDownLoadError_Cancel : result.m_eError));
    object.insert(QStringLiteral("resultText"), textOf(result));
    if (result.m_failure.isFailure())
        object.insert(QStringLiteral("error"), Causes::toJson(result.m_failure));
    object.insert(QStringLiteral("files"), Items::toJson(files));
    m_results.append(object);
}

void FetchCommand::printFiles(const SCfg_Item& item, const ItemFiles& files,
                              const SItemDownloadResult& result)
{
    for (const ItemFiles::Entry& entry : files.entries()) {
        if (entry.isPresent)
            Console::print(
                QStringLiteral("%1  %2").arg(Console::size(entry.sizeBytes), 12).arg(entry.path));
    }
    Console::print(QStringLiteral("%1 %2: %3, %4, %5")
                       .arg(item.m_qsGUID, m_index.nameOf(item), textOf(result),
                            Console::counted(files.entries().size() - files.missingCount(),
                                             QStringLiteral("file")),
                            Console::size(files.totalBytes())));
}
