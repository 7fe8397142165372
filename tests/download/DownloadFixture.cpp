// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"

#include "catalogue/MVThemeMgr.h"
#include "download/DownloadPacing.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TransfersSideBySide.h"

#include <QDir>

#include <chrono>
#include <thread>

namespace {

constexpr std::chrono::milliseconds tick(1);
constexpr int longestWaitMs = 30000;

} // namespace

DownloadWorld::DownloadWorld()
    : m_server([this](HttpExchange& exchange) { answer(exchange); })
{
    static int number = 0;
    m_root = TestHome::path() + QStringLiteral("/root%1").arg(++number);
    HostSettings& settings = hostSettings();
    settings.productParams.insert(QStringLiteral("url_themeRootDir"),
                                  m_server.url(QStringLiteral("/")));
    settings.downloadRetries = 0;
    settings.transfersSideBySide = TransfersSideBySide::count();
    MVThemeMgr::init()->clear();
    MVThemeMgr::init()->setResourceSaveRootPath(m_root);
    DownloadPacing::setStep(std::chrono::milliseconds(TransfersSideBySide::isOn() ? 0 : 1));
}

DownloadWorld::~DownloadWorld()
{
    MVThemeDownLoader::setCoreContextPtr(nullptr);
}

QString DownloadWorld::folder(ECfgItemType kind) const
{
    return MVThemeMgr::init()->Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                 MVThemeMgr::eDirTag_Config, kind);
}

QString DownloadWorld::displayFolder(ECfgItemType kind) const
{
    return MVThemeMgr::init()->Path_resource_Dir(MVThemeMgr::eLoadDir_Download,
                                                 MVThemeMgr::eDirTag_Display, kind);
}

void DownloadWorld::serve(const QString& target, const QByteArray& body)
{
    route(target, [body](HttpExchange& exchange) { exchange.answer(HttpAnswer(200).body(body)); });
}

void DownloadWorld::route(const QString& target, const FaultServer::Handler& handler)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_routes.insert(target.toUtf8(), handler);
}

int DownloadWorld::requests(const QString& target) const
{
    return m_server.requestCount(target.toUtf8());
}

void DownloadWorld::answer(HttpExchange& exchange)
{
    FaultServer::Handler handler;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        handler = m_routes.value(exchange.request().target);
    }
    if (handler)
        handler(exchange);
    else
        exchange.answer(HttpAnswer(404).body("not here"));
}

SCfg_Item DownloadWorld::item(ECfgItemType kind, int number)
{
    SCfg_Item item;
    item.m_eType = kind;
    item.m_qsGUID = CatalogueFiles::guid(number);
    return item;
}

SCfg_Item DownloadWorld::item(ECfgItemType kind, int number, const QStringList& resources)
{
    SCfg_Item result = item(kind, number);
    for (const QString& url : resources)
        result.m_vecResource.append(resource(url));
    return result;
}

SFileInfo DownloadWorld::resource(const QString& url)
{
    SFileInfo info;
    info.m_qsUrl = url;
    return info;
}

SCfg_Item DownloadWorld::themeWithConfig()
{
    SCfg_Item theme = item(eCfgItem_Theme, 1, {QStringLiteral("/Themes/r.zip")});
    theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/t.xml");
    serve(QStringLiteral("/config/Themes/t.xml"), themeConfig({}));
    return theme;
}

SCfg_Item DownloadWorld::filterWithTwoFiles()
{
    for (const char* name : {"/config/VideoFilters/a.zip", "/config/VideoFilters/b.zip"})
        serve(QString::fromLatin1(name), "content");
    return item(eCfgItem_Filter, 1,
                {QStringLiteral("/VideoFilters/a.zip"), QStringLiteral("/VideoFilters/b.zip")});
}

SCfg_Item* DownloadWorld::catalogueFilter(int number, const QStringList& resources) const
{
    const QString guid = CatalogueFiles::guid(number);
    MVThemeMgr* const manager = MVThemeMgr::init();
    CatalogueFiles::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config),
        CatalogueFiles::document(
            CatalogueFiles::cfgGroup(QStringLiteral("Filter"), {{guid, QString(), resources}})));
    manager->load(true);
    return manager->findItemByIDFromConfig(eCfgItem_Filter, guid);
}

QByteArray DownloadWorld::themeConfig(const QVector<int>& filters)
{
    QByteArray content;
    for (const int number : filters) {
        content += "<Item><Filter><GUID>" + CatalogueFiles::guid(number).toUtf8()
            + "</GUID></Filter></Item>";
    }
    return CatalogueFiles::document(content);
}

bool DownloadWorld::ends(MVThemeDownLoader& downloader)
{
    return downloader.wait(longestWaitMs);
}

bool DownloadWorld::run(MVThemeDownLoader& downloader, SCfg_Item& item)
{
    downloader.download(&item);
    return ends(downloader);
}

DownloadTrace::DownloadTrace()
{
    m_previous = setLogSink([this](const QByteArray& category, int level, const QByteArray& text) {
        write(category, level, text);
    });
}

DownloadTrace::~DownloadTrace()
{
    setLogSink(m_previous);
}

void DownloadTrace::watch(MVThemeDownLoader& downloader)
{
    QObject::connect(
        &downloader, &MVThemeDownLoader::progress, &downloader,
        [this](double value) {
            add(QStringLiteral("progress %1").arg(value));
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_progress.append(value);
        },
        Qt::DirectConnection);
    QObject::connect(
        &downloader, &MVThemeDownLoader::sigDownloadFinish, &downloader,
        [this](EMVThemeDownLoadError result) {
            add(QStringLiteral("finish %1").arg(static_cast<int>(result)));
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_results.append(result);
        },
        Qt::DirectConnection);
}

void DownloadTrace::onLine(const QString& part, const Action& action)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_actions.append({part, action});
}

void DownloadTrace::add(const QString& entry)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.append(entry);
}

void DownloadTrace::write(const QByteArray& category, int level, const QByteArray& text)
{
    const QString line = QString::fromUtf8(text);
    const bool ours = category == "MVThemeDownLoader" && level == 1;
    add(ours ? line
             : QStringLiteral("%1 %2: %3").arg(QString::fromUtf8(category)).arg(level).arg(line));
    QVector<Action> due;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (auto& [part, action] : m_actions) {
            if (action && line.contains(part))
                due.append(std::exchange(action, nullptr));
        }
    }
    for (const Action& action : due)
        action();
}

QStringList DownloadTrace::entries() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_entries;
}

int DownloadTrace::countContaining(const QString& part) const
{
    return entries().filter(part).size();
}

QVector<double> DownloadTrace::progress() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_progress;
}

QVector<int> DownloadTrace::results() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_results;
}

void DownloadTrace::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.clear();
    m_progress.clear();
    m_results.clear();
}

bool DownloadTrace::waitFor(const QString& entry) const
{
    return waitUntil([&] { return contains(entry); });
}

bool DownloadTrace::waitForPart(const QString& part) const
{
    return waitUntil([&] { return countContaining(part) > 0; });
}

bool DownloadTrace::waitUntil(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(longestWaitMs);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(tick);
    }
    return true;
}
