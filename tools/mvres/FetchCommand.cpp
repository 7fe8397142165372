// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FetchCommand.h"

#include "Arguments.h"
#include "catalogue/ItemFiles.h"
#include "Causes.h"
#include "ChosenItems.h"
#include "Console.h"
#include "download/ItemSurvey.h"
#include "download/MVThemeDownLoader.h"
#include "ExitStatus.h"
#include "Interrupt.h"
#include "Items.h"
#include "ProgressDisplay.h"
#include "records/SCfg_Item.h"
#include "SurveyText.h"
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

/// Returns how a download has ended, for programs.
QString wordOf(const SItemDownloadResult& result)
{
    static const char* const words[] = {"complete", "failed", "cancelled"};
    return QString::fromLatin1(words[result.m_eEnd]);
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
    ChosenItems chosen(command.m_index);
    if (!chosen.choose(arguments.operands))
        return chosen.fail();
    const QVector<SCfg_Item*> items = arguments.all ? incompleteItems() : chosen.items();
    if (arguments.dryRun)
        return command.preview(items);
    const bool complete = std::all_of(items.cbegin(), items.cend(), [](SCfg_Item* item) {
        return ItemFiles::countNeeded(*item) == 0;
    });
    if (!complete && !UpdateRun::serverFault().isEmpty())
        return Console::fail(ExitStatus::failure, UpdateRun::serverFault());
    return command.fetchAll(items);
}

/// Returns every shown item that lacks files.
QVector<SCfg_Item*> FetchCommand::incompleteItems()
{
    QVector<SCfg_Item*> items = Items::displayed();
    const QVector<int> missing = ItemFiles::countNeeded(items);
    for (int row = static_cast<int>(items.size()) - 1; row >= 0; --row) {
        if (missing.at(row) == 0)
            items.remove(row);
    }
    return items;
}

/// Tells what would be fetched.
int FetchCommand::preview(const QVector<SCfg_Item*>& items)
{
    const ItemSurvey lacking = ItemSurvey::ofDownloads(items);
    if (m_json) {
        QJsonObject object = SurveyText::toJsonWithTotals(lacking);
        object.insert(QStringLiteral("dryRun"), true);
        Console::print(QJsonDocument(object));
        return ExitStatus::success;
    }
    SurveyText::print(lacking, m_index);
    Console::print(lacking.rows().isEmpty()
                       ? QStringLiteral("nothing to fetch")
                       : QStringLiteral("%1 to fetch: %2")
                             .arg(Console::counted(lacking.rows().size(), QStringLiteral("item")),
                                  SurveyText::total(lacking)));
    return ExitStatus::success;
}

int FetchCommand::fetchAll(const QVector<SCfg_Item*>& items)
{
    if (items.isEmpty() && !m_json)
        Console::print(QStringLiteral("every item is ready"));
    int status = ExitStatus::success;
    for (SCfg_Item* const item : items) {
        const SItemDownloadResult result = fetch(*item);
        if (status == ExitStatus::success)
            status = statusOf(result);
        if (m_interrupted)
            break;
    }
    if (m_json)
        Console::print(QJsonDocument(m_results));
    return status;
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
    object.insert(QStringLiteral("result"), wordOf(result));
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
