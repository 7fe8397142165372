#pragma once

#include "catalogue/MVThemeMgr.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "download/CheckWorker_ThumbAndGif.h"
#include "download/DownloadFixture.h"
#include "support/CatalogueFiles.h"
#include "support/FaultServer.h"
#include "support/HttpAnswer.h"

#include <QByteArrayList>
#include <QMap>
#include <QString>

#include <mutex>

/// A server that publishes a catalogue, and the trees of one installation, new with fresh().
///
/// One object per program: the address of the server is kept for the life of the process, so all
/// tests of a program share one server.
class CheckWorld
{
public:
    CheckWorld();
    Q_DISABLE_COPY_MOVE(CheckWorld)

    /// New folders, the server publishes nothing, default settings. Call it from init().
    void fresh();

    QString base() const { return m_base; }
    QString root() const { return m_base + QStringLiteral("/root"); }
    QString installed() const { return m_base + QStringLiteral("/installed"); }
    /// The temporary folder of checks, without a slash at its end.
    QString temp() const { return m_base + QStringLiteral("/appdata/MVTheme/DownloadTemp"); }
    /// A catalogue file in the download tree or the installed one.
    QString downloadedFile(const char* name) const;
    QString installedFile(const char* name) const;
    /// Writes a product parameter.
    static void setParam(const char* key, const char* value);

    FaultServer& server() { return m_server; }
    /// The server's root address.
    QString serverRoot() const { return m_server.url(QStringLiteral("/")); }
    void serve(const QByteArray& target, const QByteArray& body);
    void route(const QByteArray& target, const FaultServer::Handler& handler);
    /// Asked before every answer, with the number of the request since fresh(), from 1. True: it
    /// has answered.
    using Fault = std::function<bool(HttpExchange&, int number)>;
    void setFault(const Fault& fault);
    /// What has been asked for since fresh().
    QByteArrayList targets() const;

    static QByteArray md5(const QByteArray& bytes);
    /// A version file.
    static QByteArray version(const QByteArray& value, const QByteArray& displaySum,
                              const QByteArray& configSum);
    /// The server publishes these catalogue files, and a version file with their checksums.
    void publish(const QByteArray& value, const QByteArray& display, const QByteArray& config);
    /// Version files of the two trees.
    void install(const QByteArray& value, const QByteArray& displaySum,
                 const QByteArray& configSum) const;
    void download(const QByteArray& value, const QByteArray& displaySum,
                  const QByteArray& configSum) const;

    /// The catalogue files of the download tree or the installed one: themes and filters by their
    /// numbers, with thumbnails "t1.jpg" and "f1.jpg" and previews "t1.gif".
    void writeCatalogue(MVThemeMgr::ELoadDir tree, const QVector<int>& themes,
                        const QVector<int>& filters) const;
    static QByteArray displayCatalogue(const QVector<int>& themes, const QVector<int>& filters);
    static QByteArray configCatalogue(const QVector<int>& themes, const QVector<int>& filters);
    /// Where a preview is put, and its address: "Themes", "t1.gif".
    QString preview(const char* kind, const char* name) const;
    QString previewUrl(const char* kind, const char* name) const;
    static QByteArray previewTarget(const char* kind, const char* name);

    /// Runs one check on this thread, its signals and result recorded in `trace`: "end 1",
    /// "update" and "result N".
    static void check(CheckWorker_CfgAndDisplayXML& worker, DownloadTrace& trace);
    static void watch(CheckWorker_CfgAndDisplayXML& worker, DownloadTrace& trace);
    /// The same for a preview run: "end 0|1", "result FETCHED PRESENT FAILED 0|1 END".
    static void watch(CheckWorker_ThumbAndGif& worker, DownloadTrace& trace);

    static constexpr char versionTarget[] = "//ResourceConfig/resource_version_v3.xml";
    static constexpr char displayTarget[] = "//ResourceConfig/resource_display.xml";
    static constexpr char configTarget[] = "//ResourceConfig/resource_config.xml";

private:
    void answer(HttpExchange& exchange);

    QString m_base;
    mutable std::mutex m_mutex; // guards the four members below
    QMap<QByteArray, FaultServer::Handler> m_routes;
    Fault m_fault;
    int m_requests = 0;
    QByteArrayList m_targets;
    FaultServer m_server;
};
