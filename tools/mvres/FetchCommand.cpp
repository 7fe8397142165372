#include "FetchCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "download/MVThemeDownLoader.h"
#include "ExitStatus.h"
#include "host/TzProductInfo.h"
#include "Interrupt.h"
#include "ItemFiles.h"
#include "Items.h"
#include "ProgressDisplay.h"
#include "records/SCfg_Item.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QVector>

#include <algorithm>

namespace {

const char* textOf(EMVThemeDownLoadError result)
{
    switch (result) {
    case eDownLoadError_Internet:
        return "network failure";
    case eDownLoadError_Path:
        return "no usable address or path";
    case eDownLoadError_Element:
        return "not every file could be fetched";
    case eDownLoadError_Unknown:
        return "its config file could not be fetched";
    case eDownLoadError_Cancel:
        return "cancelled";
    case eDownLoadError_None:
        break;
    }
    return "complete";
}

} // namespace

FetchCommand::FetchCommand(bool json)
    : m_json(json)
{
}

int FetchCommand::run(const Arguments& arguments)
{
    QVector<SCfg_Item*> items;
    for (const QString& guid : arguments.operands) {
        SCfg_Item* const item = Items::find(guid);
        if (!item)
            return Console::fail(ExitStatus::failure, QStringLiteral("unknown GUID %1").arg(guid));
        if (!items.contains(item))
            items.append(item);
    }
    const bool complete = std::all_of(items.cbegin(), items.cend(), [](SCfg_Item* item) {
        return Items::missingFiles(*item) == 0;
    });
    const QString server =
        TzProductInfo::instance()->extendParam(QStringLiteral("url_themeRootDir"), QString());
    if (!complete && server.isEmpty()) {
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("no server to fetch from: give --server, or "
                                            "url_themeRootDir in the settings"));
    }
    FetchCommand command(arguments.json);
    EMVThemeDownLoadError first = eDownLoadError_None;
    for (SCfg_Item* item : items) {
        const EMVThemeDownLoadError result = command.fetch(*item);
        if (first == eDownLoadError_None)
            first = result;
        if (command.m_interrupted)
            break;
    }
    if (arguments.json)
        Console::print(QJsonDocument(command.m_results));
    return first == eDownLoadError_None ? ExitStatus::success : ExitStatus::download + first;
}

EMVThemeDownLoadError FetchCommand::fetch(SCfg_Item& item)
{
    const EMVThemeDownLoadError result =
        Items::missingFiles(item) == 0 ? eDownLoadError_None : download(item);
    report(item, result);
    return result;
}

EMVThemeDownLoadError FetchCommand::download(SCfg_Item& item)
{
    const QString name = Items::nameOf(item);
    ProgressDisplay display(name.isEmpty() ? item.m_qsGUID : name,
                            m_json ? ProgressDisplay::Style::None
                                   : ProgressDisplay::Style::Automatic);
    EMVThemeDownLoadError result = eDownLoadError_Cancel;
    QEventLoop loop;
    MVThemeDownLoader loader(nullptr);
    Interrupt interrupt;
    QObject::connect(&loader, &MVThemeDownLoader::progress, &loop,
                     [&](double percent) { display.update(percent, loader.downloadedFile()); });
    QObject::connect(&loader, &MVThemeDownLoader::sigDownloadFinish, &loop,
                     [&](EMVThemeDownLoadError end) {
                         result = end;
                         loop.quit();
                     });
    QObject::connect(&interrupt, &Interrupt::requested, &loop, [&] {
        m_interrupted = true;
        loader.cancel();
    });
    loader.download(&item);
    loop.exec();
    display.finish();
    // A download that is cancelled in its last file reports that file.
    return m_interrupted && result != eDownLoadError_None ? eDownLoadError_Cancel : result;
}

void FetchCommand::report(SCfg_Item& item, EMVThemeDownLoadError result)
{
    const ItemFiles files(item);
    if (m_json) {
        QJsonObject object = Items::toJson(item);
        object.insert(QStringLiteral("result"), static_cast<int>(result));
        object.insert(QStringLiteral("resultText"), QString::fromLatin1(textOf(result)));
        object.insert(QStringLiteral("files"), files.toJson());
        m_results.append(object);
    } else {
        for (const ItemFiles::Entry& entry : files.entries()) {
            if (entry.present)
                Console::print(
                    QStringLiteral("%1  %2").arg(Console::size(entry.size), 12).arg(entry.path));
        }
        Console::print(QStringLiteral("%1 %2: %3, %4, %5")
                           .arg(item.m_qsGUID, Items::nameOf(item),
                                QString::fromLatin1(textOf(result)),
                                Console::counted(files.entries().size() - files.missing(),
                                                 QStringLiteral("file")),
                                Console::size(files.totalSize())));
    }
    if (result == eDownLoadError_None)
        return;
    Console::fail(0,
                  QStringLiteral("%1: %2").arg(item.m_qsGUID, QString::fromLatin1(textOf(result))));
    for (const ItemFiles::Entry& entry : files.entries()) {
        if (!entry.present)
            Console::fail(0, QStringLiteral("missing: %1").arg(entry.url));
    }
}
