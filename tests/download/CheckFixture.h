// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

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

#include <functional>
#include <mutex>

/// A server that publishes a catalogue, and the trees of one installation, all reset by fresh().
///
/// One object per program: the library keeps the server's address for the life of the process, so
/// all tests of a program share one server.
class CheckWorld
{
public:
    CheckWorld();
    Q_DISABLE_COPY_MOVE(CheckWorld)

    /// Recreates the folders, the empty server and the default settings. Call it from init().
    void fresh();

    QString base() const { return m_base; }
    QString root() const { return m_base + QStringLiteral("/root"); }
    QString installed() const { return m_base + QStringLiteral("/installed"); }
    /// Returns the temporary folder of checks, without a trailing slash.
    QString temp() const { return m_base + QStringLiteral("/appdata/MVTheme/DownloadTemp"); }
    /// Returns the path of a catalogue file in the download tree or the installed one.
    QString downloadedFile(const char* name) const;
    QString installedFile(const char* name) const;
    /// Sets a product parameter.
    static void setParam(const char* key, const char* value);

    FaultServer& server() { return m_server; }
    /// Returns the server's root address.
    QString serverRoot() const { return m_server.url(QStringLiteral("/")); }
    void serve(const QByteArray& target, const QByteArray& body);
    void route(const QByteArray& target, const FaultServer::Handler& handler);
    /// Called before every answer with the number of the request since fresh(), starting at 1;
    /// returns true if it has answered.
    using Fault = std::function<bool(HttpExchange&, int number)>;
    void setFault(const Fault& fault);
    /// Returns the targets requested since fresh().
    QByteArrayList targets() const;
    /// Returns them in an order that can be compared: as requested or, if several transfers run at
    /// a time, sorted.
    QByteArrayList comparableTargets() const { return comparable(targets()); }
    static QByteArrayList comparable(QByteArrayList targets);

    static QByteArray md5(const QByteArray& bytes);
    /// Returns a version file.
    static QByteArray version(const QByteArray& value, const QByteArray& displaySum,
                              const QByteArray& configSum);
    /// Publishes these catalogue files, and a version file with their checksums.
    void publish(const QByteArray& value, const QByteArray& display, const QByteArray& config);
    /// Publishes theme 1 and filter 2 in version 1.0.2 with all their previews, over an installed
    /// catalogue of that version with other checksums.
    void publishWithPreviews();
    /// Publishes version 1.0.2 without checksums, for a check without an end signal, over an
    /// installed catalogue with filter 1.
    void publishWithoutSums();
    /// Writes the version files of the two trees.
    void install(const QByteArray& value, const QByteArray& displaySum,
                 const QByteArray& configSum) const;
    void download(const QByteArray& value, const QByteArray& displaySum,
                  const QByteArray& configSum) const;

    /// Writes the catalogue files of the download tree or the installed one: themes and filters by
    /// number, with thumbnails "t1.jpg" and "f1.jpg" and previews "t1.gif".
    void writeCatalogue(MVThemeMgr::ELoadDir tree, const QVector<int>& themes,
                        const QVector<int>& filters) const;
    /// Returns the numbers from 1 to `count`, for the items of a catalogue.
    static QVector<int> numbers(int count);
    static QByteArray displayCatalogue(const QVector<int>& themes, const QVector<int>& filters);
    static QByteArray configCatalogue(const QVector<int>& themes, const QVector<int>& filters);
    /// Return the address of a catalogue file, and its path while a check fetches it.
    QString catalogueUrl(const char* name) const;
    QString temporaryFile(const char* name) const;
    /// Returns a preview's path on disk or its address: "Themes", "t1.gif".
    QString preview(const char* kind, const char* name) const;
    QString previewUrl(const char* kind, const char* name) const;
    static QByteArray previewTarget(const char* kind, const char* name);

    /// Runs one check on this thread and records its signals and result in `trace`: "end 1",
    /// "update" and "result N".
    static void check(CheckWorker_CfgAndDisplayXML& worker, DownloadTrace& trace);
    static void watch(CheckWorker_CfgAndDisplayXML& worker, DownloadTrace& trace);
    /// Records a preview run likewise: "end 0|1", "result FETCHED PRESENT FAILED 0|1 END".
    static void watch(CheckWorker_ThumbAndGif& worker, DownloadTrace& trace);

    /// Lets the request with this number stall behind a few bytes, which begin with `beginning`,
    /// and then calls `then` on the server's thread.
    void stallRequest(int stalling, const QByteArray& beginning, const std::function<void()>& then);

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
