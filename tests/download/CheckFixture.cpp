// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"

#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/TransfersSideBySide.h"

#include <QCryptographicHash>
#include <QDir>

#include <algorithm>
#include <numeric>

CheckWorld::CheckWorld()
    : m_server([this](HttpExchange& exchange) { answer(exchange); })
{
}

void CheckWorld::fresh()
{
    static int number = 0;
    m_base = TestHome::path() + QStringLiteral("/check%1").arg(++number);
    HostSettings settings;
    settings.resourcesPath = installed();
    settings.dataLocation = m_base + QStringLiteral("/data");
    settings.appDataPath = m_base + QStringLiteral("/appdata");
    settings.downloadRetries = 0;
    settings.transfersSideBySide = TransfersSideBySide::count();
    settings.productParams.insert(QStringLiteral("url_themeRootDir"), serverRoot());
    hostSettings() = settings;
    QDir().mkpath(installed());
    MVThemeMgr::init()->clear();
    MVThemeMgr::init()->setResourceSaveRootPath(root());
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_routes.clear();
    m_fault = nullptr;
    m_requests = 0;
    m_targets.clear();
}

QVector<int> CheckWorld::numbers(int count)
{
    QVector<int> all(count);
    std::iota(all.begin(), all.end(), 1);
    return all;
}

QByteArrayList CheckWorld::comparable(QByteArrayList targets)
{
    if (TransfersSideBySide::isOn())
        std::sort(targets.begin(), targets.end());
    return targets;
}

QString CheckWorld::downloadedFile(const char* name) const
{
    return root() + QStringLiteral("/Themes/ResourceConfig/") + QString::fromLatin1(name);
}

QString CheckWorld::installedFile(const char* name) const
{
    return installed() + QStringLiteral("/Resource/ResourceConfig/") + QString::fromLatin1(name);
}

void CheckWorld::setParam(const char* key, const char* value)
{
    hostSettings().productParams.insert(QString::fromLatin1(key), QString::fromUtf8(value));
}

void CheckWorld::serve(const QByteArray& target, const QByteArray& body)
{
    route(target, [body](HttpExchange& exchange) { exchange.answer(HttpAnswer(200).body(body)); });
}

void CheckWorld::route(const QByteArray& target, const FaultServer::Handler& handler)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_routes.insert(target, handler);
}

void CheckWorld::setFault(const Fault& fault)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_fault = fault;
}

QByteArrayList CheckWorld::targets() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_targets;
}

void CheckWorld::answer(HttpExchange& exchange)
{
    const QByteArray target = exchange.request().target;
    FaultServer::Handler handler;
    Fault fault;
    int number = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        number = ++m_requests;
        m_targets.append(target);
        handler = m_routes.value(target);
        fault = m_fault;
    }
    if (fault && fault(exchange, number))
        return;
    if (handler)
        handler(exchange);
    else
        exchange.answer(HttpAnswer(404).body("not here"));
}

QByteArray CheckWorld::md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

QByteArray CheckWorld::version(const QByteArray& value, const QByteArray& displaySum,
                               const QByteArray& configSum)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ResourceVersion value=\"" + value
        + "\">\n<dislplay value=\"" + displaySum + "\"/>\n<config value=\"" + configSum
        + "\"/>\n</ResourceVersion>\n";
}

void CheckWorld::publish(const QByteArray& value, const QByteArray& display,
                         const QByteArray& config)
{
    serve(versionTarget, version(value, md5(display), md5(config)));
    serve(displayTarget, display);
    serve(configTarget, config);
}

void CheckWorld::publishWithPreviews()
{
    const QByteArray otherSum = "00112233445566778899aabbccddeeff";
    publish("1.0.2", displayCatalogue({1}, {2}), configCatalogue({1}, {2}));
    install("1.0.2", otherSum, otherSum);
    for (const char* target :
         {"/display/Themes/t1.jpg", "/display/Themes/t1.gif", "/display/VideoFilters/f2.jpg"})
        serve(target, "image");
}

void CheckWorld::publishWithoutSums()
{
    serve(versionTarget, version("1.0.2", "", ""));
    install("1.0.2", "1", "1");
    writeCatalogue(MVThemeMgr::eLoadDir_Local, {}, {1});
}

void CheckWorld::stallRequest(int stalling, const QByteArray& beginning,
                              const std::function<void()>& then)
{
    setFault([=](HttpExchange& exchange, int number) {
        if (number != stalling)
            return false;
        exchange.answer(HttpAnswer(200).field("Content-Length", "100000").bareBody(beginning));
        then();
        exchange.stall();
        return true;
    });
}

void CheckWorld::install(const QByteArray& value, const QByteArray& displaySum,
                         const QByteArray& configSum) const
{
    CatalogueFiles::write(installedFile("resource_version.xml"),
                          version(value, displaySum, configSum));
}

void CheckWorld::download(const QByteArray& value, const QByteArray& displaySum,
                          const QByteArray& configSum) const
{
    CatalogueFiles::write(downloadedFile("resource_version.xml"),
                          version(value, displaySum, configSum));
}

QByteArray CheckWorld::configCatalogue(const QVector<int>& themes, const QVector<int>& filters)
{
    const auto group = [](const char* name, const QVector<int>& numbers) {
        QVector<CatalogueFiles::CfgItem> items;
        for (const int number : numbers)
            items.append({CatalogueFiles::guid(number), QString(), {}});
        return CatalogueFiles::cfgGroup(QString::fromLatin1(name), items);
    };
    return CatalogueFiles::document(group("Filter", filters) + group("Theme", themes));
}

QByteArray CheckWorld::displayCatalogue(const QVector<int>& themes, const QVector<int>& filters)
{
    QVector<CatalogueFiles::DisplayItem> shownThemes;
    for (const int number : themes) {
        shownThemes.append({CatalogueFiles::guid(number), QStringLiteral("Theme %1").arg(number),
                            QStringLiteral("t%1.jpg").arg(number),
                            QStringLiteral("t%1.gif").arg(number)});
    }
    QVector<CatalogueFiles::DisplayItem> shownFilters;
    for (const int number : filters) {
        shownFilters.append({CatalogueFiles::guid(number), QStringLiteral("Filter %1").arg(number),
                             QStringLiteral("f%1.jpg").arg(number)});
    }
    return CatalogueFiles::document(
        CatalogueFiles::displayCategory(QStringLiteral("Filter"), shownFilters)
        + CatalogueFiles::displayThemes({{QStringLiteral("others"), shownThemes}}));
}

void CheckWorld::writeCatalogue(MVThemeMgr::ELoadDir tree, const QVector<int>& themes,
                                const QVector<int>& filters) const
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    CatalogueFiles::write(manager->Path_resource_xml(tree, MVThemeMgr::eDirTag_Config),
                          configCatalogue(themes, filters));
    CatalogueFiles::write(manager->Path_resource_xml(tree, MVThemeMgr::eDirTag_Display),
                          displayCatalogue(themes, filters));
}

QString CheckWorld::catalogueUrl(const char* name) const
{
    return m_server.url(QStringLiteral("//ResourceConfig/") + QString::fromLatin1(name));
}

QString CheckWorld::temporaryFile(const char* name) const
{
    return temp() + QStringLiteral("//") + QString::fromLatin1(name);
}

QString CheckWorld::preview(const char* kind, const char* name) const
{
    return root()
        + QStringLiteral("/Themes/display/PQD/Download/%1/%2")
              .arg(QString::fromLatin1(kind), QString::fromUtf8(name));
}

QString CheckWorld::previewUrl(const char* kind, const char* name) const
{
    return m_server.url(QString::fromUtf8(previewTarget(kind, name)));
}

QByteArray CheckWorld::previewTarget(const char* kind, const char* name)
{
    return QByteArray("/display/") + kind + '/' + name;
}

void CheckWorld::watch(CheckWorker_CfgAndDisplayXML& worker, DownloadTrace& trace)
{
    QObject::connect(
        &worker, &CheckWorker_CfgAndDisplayXML::sig_endDownloadXML, &worker,
        [&trace](bool ok) { trace.add(QStringLiteral("end %1").arg(ok)); }, Qt::DirectConnection);
    QObject::connect(
        &worker, &CheckWorker_CfgAndDisplayXML::sig_NeedUpdateApp, &worker,
        [&trace] { trace.add(QStringLiteral("update")); }, Qt::DirectConnection);
    QObject::connect(
        &worker, &CheckWorker_CfgAndDisplayXML::sig_startDownloadThumbAndGif, &worker,
        [&trace] { trace.add(QStringLiteral("start")); }, Qt::DirectConnection);
    worker.setResultCallback([&trace](const SCatalogueCheckResult& result) {
        trace.add(QStringLiteral("result %1").arg(static_cast<int>(result.m_eEnd)));
    });
}

void CheckWorld::check(CheckWorker_CfgAndDisplayXML& worker, DownloadTrace& trace)
{
    watch(worker, trace);
    worker.onStartDownloadXML(QString());
}

void CheckWorld::watch(CheckWorker_ThumbAndGif& worker, DownloadTrace& trace)
{
    QObject::connect(
        &worker, &CheckWorker_ThumbAndGif::sig_endDownload_ThumbAndGif, &worker,
        [&trace](bool ok) { trace.add(QStringLiteral("end %1").arg(ok)); }, Qt::DirectConnection);
    worker.setResultCallback([&trace](const SPreviewRunResult& result) {
        trace.add(QStringLiteral("result %1 %2 %3 %4 %5")
                      .arg(result.m_nFetched)
                      .arg(result.m_nPresent)
                      .arg(result.m_nFailed)
                      .arg(result.m_bWorkedThrough)
                      .arg(static_cast<int>(result.m_eEnd)));
    });
}
