// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "Routes.h"
#include "server/TreeServer.h"
#include "SmallCatalogue.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>
#include <memory>

namespace {

constexpr int longestMs = 20000;
// Far below the time limit of a stalled transfer.
constexpr int promptMs = 10000;

const QByteArray versionTarget = "//ResourceConfig/resource_version_v3.xml";
const QByteArray displayTarget = "//ResourceConfig/resource_display.xml";
const QByteArray configTarget = "//ResourceConfig/resource_config.xml";
const QByteArray sum = "00112233445566778899aabbccddeeff";

QByteArray md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

QByteArray version(const QByteArray& value, const QByteArray& display, const QByteArray& config)
{
    return "<ResourceVersion value=\"" + value + "\"><dislplay value=\"" + display
        + "\"/><config value=\"" + config + "\"/></ResourceVersion>";
}

} // namespace

/// Tests the output, downloads and exit status of mvres check for every outcome.
class TestMvresCheck : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void everyEnd_data();
    void everyEnd();
    void json();
    void reasonIsPrintedToStandardError();
    void previewsThatFailAreNamed();
    void withoutAnyCatalogue();
    void emptyCatalogue();
    void unreadableCatalogueIsRefused();
    void secondCheckIsCurrent();
    void needsAServer();
    void interruptCancels_data();
    void interruptCancels();
    void samplesAreRefreshed();

private:
    void serve(const Routes::Map& more);
    QStringList said(const QString& end, const QString& previews, bool update = false) const;

    static constexpr char display[] = "<R><Filter/></R>";
    static constexpr char config[] = "<R/>";

    Mvres m_mvres;
    Routes::Map m_routes;
    std::unique_ptr<FaultServer> m_server;
};

void TestMvresCheck::init()
{
    m_mvres = Mvres();
    m_mvres.set("paths/appData", m_mvres.base() + text("/appdata"));
    m_mvres.set("network/downloadRetries", text("0"));
    SmallCatalogue catalogue;
    catalogue.addFilter(1, text("Filter"), QString());
    catalogue.writeTo(m_mvres.installed());
    CatalogueFiles::write(m_mvres.installed()
                              + text("/Resource/ResourceConfig/resource_version.xml"),
                          version("1.0.2", sum, sum));
}

void TestMvresCheck::serve(const Routes::Map& more)
{
    m_routes = {{versionTarget, Routes::body(version("1.0.2", md5(display), md5(config)))},
                {displayTarget, Routes::body(display)},
                {configTarget, Routes::body(config)}};
    for (auto it = more.cbegin(); it != more.cend(); ++it)
        m_routes.insert(it.key(), it.value());
    m_server = std::make_unique<FaultServer>(Routes::by(m_routes));
    m_mvres.setServer(m_server->url(text("/")));
}

QStringList TestMvresCheck::said(const QString& end, const QString& previews, bool update) const
{
    QStringList lines{text("checking the catalogue at ") + m_server->url(text("/"))};
    if (update)
        lines << text("the application must be updated");
    return lines << text("the catalogue has been checked") << text("fetching previews")
                 << text("all previews have been checked") << text("catalogue: ") + end
                 << text("previews: ") + previews;
}

void TestMvresCheck::everyEnd_data()
{
    QTest::addColumn<QByteArray>("answer"); // the version file; null: none
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("previews");
    const QString present = text("0 fetched, 1 present, 0 failed");
    const QString none = text("0 fetched, 0 present, 0 failed");
    QTest::newRow("changed") << version("1.0.2", md5(display), md5(config)) << 20
                             << text("changed, the new one has been fetched") << none;
    QTest::newRow("current") << version("1.0.2", sum, sum) << 0 << text("current") << present;
    QTest::newRow("newer") << version("1.0.3", sum, sum) << 21
                           << text("the server's needs a newer application") << present;
    QTest::newRow("older") << version("1.0.1", sum, sum) << 22
                           << text("the server's is older than the application") << present;
    QTest::newRow("unreachable") << QByteArray() << 23 << text("the server could not be reached")
                                 << present;
    QTest::newRow("only the config") << version("1.0.2", sum, md5(config)) << 20
                                     << text("changed, the new one has been fetched") << none;
    QTest::newRow("rejected") << version("1.0.2", md5("x"), md5(config)) << 24 << text("rejected")
                              << present;
    QTest::newRow("no sums") << version("1.0.2", "", "") << 24 << text("rejected") << present;
}

void TestMvresCheck::everyEnd()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, status);
    QFETCH(QString, end);
    QFETCH(QString, previews);
    const auto notFound = [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("no"));
    };
    serve(answer.isNull() ? Routes::Map{{versionTarget, notFound}}
                          : Routes::Map{{versionTarget, Routes::body(answer)}});
    for (const QStringList& command :
         {QStringList{text("check")}, QStringList{text("check"), text("--wait")}}) {
        QDir(m_mvres.root()).removeRecursively();
        const Outcome outcome = m_mvres.run(command);
        QCOMPARE(outcome.lines(), said(end, previews, status == 21));
        QCOMPARE(outcome.status, status);
        QCOMPARE(outcome.err.isEmpty(), status < 23);
    }
}

void TestMvresCheck::json()
{
    serve({});
    const Outcome outcome = m_mvres.run({text("check"), text("--json")});
    QCOMPARE(outcome.status, 20);
    QCOMPARE(QJsonDocument::fromJson(outcome.out).object(),
             (QJsonObject{{text("catalogue"), text("changed")},
                          {text("cause"), QString()},
                          {text("reason"), QString()},
                          {text("previews"),
                           QJsonObject{{text("end"), text("complete")},
                                       {text("fetched"), 0},
                                       {text("present"), 0},
                                       {text("failed"), 0},
                                       {text("failures"), QJsonArray()}}}}));
}

void TestMvresCheck::reasonIsPrintedToStandardError()
{
    serve({});
    const QString refusing = text("http://127.0.0.1:%1/").arg(FaultServer::refusingPort());
    const Outcome outcome =
        m_mvres.run({text("check"), text("--server"), refusing, text("--json")});
    QCOMPARE(outcome.status, 23);
    const QJsonObject told = QJsonDocument::fromJson(outcome.out).object();
    QCOMPARE(told.value(text("catalogue")).toString(), text("unreachable"));
    QVERIFY(told.value(text("reason")).toString().contains(refusing));
    QCOMPARE(told.value(text("cause")).toString(), text("unreachable"));
    const QJsonObject error = told.value(text("error")).toObject();
    QCOMPARE(error.value(text("status")).toInt(), 23);
    QCOMPARE(error.value(text("text")), told.value(text("reason")));
    const Outcome forPeople = m_mvres.run({text("check"), text("--server"), refusing});
    QVERIFY2(forPeople.err.startsWith("mvres: " + refusing.toUtf8()), forPeople.err.constData());
}

void TestMvresCheck::previewsThatFailAreNamed()
{
    const QString first = CatalogueFiles::guid(1);
    const QString second = CatalogueFiles::guid(2);
    const QString filter = text("Filter");
    const QByteArray newConfig = CatalogueFiles::document(
        CatalogueFiles::cfgGroup(filter, {{first, {}, {}}, {second, {}, {}}}));
    const QByteArray newDisplay = CatalogueFiles::document(CatalogueFiles::displayCategory(
        filter, {{first, text("a"), text("a.jpg")}, {second, text("b"), text("b.jpg")}}));
    serve({{versionTarget, Routes::body(version("1.0.2", md5(newDisplay), md5(newConfig)))},
           {displayTarget, Routes::body(newDisplay)},
           {configTarget, Routes::body(newConfig)},
           {"/display/VideoFilters/a.jpg", Routes::body("\xff\xd8\xff\xe0 image")}});
    const Outcome outcome = m_mvres.run({text("check")});
    QCOMPARE(outcome.lines().constLast(), text("previews: 1 fetched, 0 present, 1 failed"));
    QCOMPARE(outcome.status, 27);
    const QString address = m_server->url(text("/display/VideoFilters/b.jpg"));
    QVERIFY2(outcome.err.startsWith("mvres: preview: the file is not on the server: "
                                    + address.toUtf8() + ": HTTP status 404"),
             outcome.err.constData());

    const Outcome again = m_mvres.run({text("check"), text("--json")}); // the catalogue is current
    QCOMPARE(again.status, 27);
    const QJsonObject told = QJsonDocument::fromJson(again.out).object();
    QCOMPARE(told.value(text("error"))[text("text")].toString(),
             text("1 preview could not be fetched"));
    const QJsonArray failures = told.value(text("previews"))[text("failures")].toArray();
    QCOMPARE(failures.size(), 1);
    QCOMPARE(failures.at(0)[text("url")].toString(), address);
    QCOMPARE(failures.at(0)[text("cause")].toString(), text("notOnServer"));
}

/// Without a catalogue there are no previews to fetch, so "0 failed" would be misleading. An
/// installation without a catalogue can still be checked.
void TestMvresCheck::withoutAnyCatalogue()
{
    serve({{versionTarget, Routes::body(version("1.0.2", md5("x"), md5(config)))}});
    const QString installed = m_mvres.installed() + text("/Resource/ResourceConfig/");
    for (const char* name : {"resource_config.xml", "resource_display.xml"})
        QVERIFY(QFile::remove(installed + text(name)));
    const Outcome outcome = m_mvres.run({text("check")});
    QCOMPARE(outcome.status, 24);
    QCOMPARE(outcome.lines().constLast(),
             text("previews: there is no catalogue to fetch them for"));
    QVERIFY2(outcome.err.contains("can be read"), outcome.err.constData());

    serve({});
    QCOMPARE(m_mvres.run({text("check")}).status, 20); // it works once the server is repaired
}

/// An empty catalogue, where everything was withdrawn, is valid, and every command works.
void TestMvresCheck::emptyCatalogue()
{
    const QByteArray nothing = "<Resource/>";
    serve({{versionTarget, Routes::body(version("1.0.2", md5(nothing), md5(nothing)))},
           {displayTarget, Routes::body(nothing)},
           {configTarget, Routes::body(nothing)}});
    QCOMPARE(m_mvres.run({text("check")}).status, 20);
    const Outcome list = m_mvres.run({text("list")});
    QCOMPARE(list.status, 0);
    QVERIFY2(list.err.startsWith("mvres: the catalogue is empty: "), list.err.constData());
    const Outcome show = m_mvres.run({text("show"), CatalogueFiles::guid(1)});
    QCOMPARE(show.status, 1);
    QVERIFY(show.err.contains("unknown GUID"));
    QCOMPARE(m_mvres.run({text("paths")}).status, 0);
    QCOMPARE(m_mvres.run({text("check")}).status, 0);
}

/// A catalogue that no client can read never replaces the present one, whatever its checksums.
void TestMvresCheck::unreadableCatalogueIsRefused()
{
    const QByteArray page = "<p>Welcome<br></p>";
    serve({{versionTarget, Routes::body(version("1.0.2", md5(page), md5(page)))},
           {displayTarget, Routes::body(page)},
           {configTarget, Routes::body(page)}});
    const Outcome outcome = m_mvres.run({text("check")});
    QCOMPARE(outcome.status, 24);
    QVERIFY2(outcome.err.contains("no well-formed XML"), outcome.err.constData());
    const Outcome list = m_mvres.run({text("list")});
    QCOMPARE(list.status, 0);
    QVERIFY(list.out.contains(CatalogueFiles::guid(1).toLatin1()));
}

void TestMvresCheck::secondCheckIsCurrent()
{
    // The new catalogue keeps the installed item, so that there is one to load.
    const QString filter = text("Filter");
    const QByteArray newConfig = CatalogueFiles::document(
        CatalogueFiles::cfgGroup(filter, {{CatalogueFiles::guid(1), {}, {}}}));
    serve({{versionTarget, Routes::body(version("1.0.2", md5(display), md5(newConfig)))},
           {configTarget, Routes::body(newConfig)}});
    QCOMPARE(m_mvres.run({text("check")}).status, 20);
    const int requests = m_server->requestCount();
    QCOMPARE(m_mvres.run({text("check")}).status, 0);
    // The release, which this server does not have, and the version file.
    QCOMPARE(m_server->requestCount(), requests + 2);
}

void TestMvresCheck::needsAServer()
{
    const Outcome outcome = m_mvres.run({text("check")});
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err,
             QByteArray("mvres: no server to ask: give --server, or url_themeRootDir in the "
                        "settings\n"));
    QCOMPARE(outcome.out, QByteArray());
}

void TestMvresCheck::interruptCancels_data()
{
    QTest::addColumn<QByteArray>("stalling");
    QTest::newRow("version") << versionTarget;
    QTest::newRow("display") << displayTarget;
    QTest::newRow("config") << configTarget;
    QTest::newRow("preview") << QByteArray("/display/VideoFilters/a.jpg");
}

void TestMvresCheck::interruptCancels()
{
    if (!ConsoleProgram::hasSignals)
        QSKIP("This system cannot interrupt a program.");
    QFETCH(QByteArray, stalling);
    const QString filter = text("Filter");
    const QString guid = CatalogueFiles::guid(1);
    const QByteArray newConfig =
        CatalogueFiles::document(CatalogueFiles::cfgGroup(filter, {{guid, {}, {}}}));
    const QByteArray newDisplay = CatalogueFiles::document(
        CatalogueFiles::displayCategory(filter, {{guid, text("a"), text("a.jpg")}}));
    serve({{versionTarget, Routes::body(version("1.0.2", md5(newDisplay), md5(newConfig)))},
           {displayTarget, Routes::body(newDisplay)},
           {configTarget, Routes::body(newConfig)},
           {stalling, Routes::stall()}});
    QProcess process;
    m_mvres.start(process, {text("check")});
    QTRY_VERIFY_WITH_TIMEOUT(m_server->requestCount(stalling) > 0, longestMs);
    QElapsedTimer sinceInterrupt;
    sinceInterrupt.start();
    ConsoleProgram::signal(process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(process);
    QVERIFY(sinceInterrupt.elapsed() < promptMs);
    QCOMPARE(outcome.status, 25);
    QVERIFY(outcome.lines().contains(text("cancelling")));
    const bool fetched = stalling.startsWith("/display/");
    QVERIFY(outcome.lines().contains(fetched
                                         ? text("catalogue: changed, the new one has been fetched")
                                         : text("catalogue: cancelled")));
    QCOMPARE(m_mvres.downloaded().size(), fetched ? 3 : 0);
}

void TestMvresCheck::samplesAreRefreshed()
{
    TreeServer server;
    QVERIFY2(server.start(Mvres::samples() + text("/server")), qPrintable(server.errorText()));
    m_mvres.useSamples();
    m_mvres.set("params/hasSplit", text("1"));
    m_mvres.setServer(server.url());
    const int before = m_mvres.run({text("list"), text("theme")}).lines().size();
    const Outcome outcome = m_mvres.run({text("check"), text("--wait")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 20);
    QVERIFY(outcome.lines().constLast().endsWith(text(" 0 failed")));
    QVERIFY(!outcome.lines().constLast().startsWith(text("previews: 0 ")));
    const int after = m_mvres.run({text("list"), text("theme")}).lines().size();
    QVERIFY(after > before);
    QCOMPARE(m_mvres.run({text("check")}).status, 0);
    for (const char* name : {"resource_config.xml", "resource_display.xml"}) {
        QCOMPARE(
            CatalogueFiles::read(m_mvres.root() + text("/Themes/ResourceConfig/") + text(name)),
            CatalogueFiles::read(Mvres::samples() + text("/server/ResourceConfig/") + text(name)));
    }
}

MV_TEST_MAIN(TestMvresCheck)
#include "tst_mvres_check.moc"
