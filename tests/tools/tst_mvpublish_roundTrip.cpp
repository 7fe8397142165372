// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "Mvres.h"
#include "server/TreeServer.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/NginxServer.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>

#include <memory>
#include <vector>

namespace tst_mvpublish_roundTrip {

namespace {

// Exit statuses of mvres check.
constexpr int checkCurrent = 0;
constexpr int checkChanged = 20;

/// Returns a user of the installation that came with the application.
std::unique_ptr<Mvres> user(const QString& serverRoot)
{
    auto mvres = std::make_unique<Mvres>();
    mvres->set("paths/resources", home("installed"));
    mvres->set("paths/appData", mvres->base() + text("/appdata"));
    mvres->set("ui/skin", text("Calm"));
    mvres->set("params/hasMV", text("1"));
    mvres->setServer(serverRoot);
    return mvres;
}

const QStringList check{QStringLiteral("check"), QStringLiteral("--wait")};

/// Fetches in parallel: an item takes seconds, most of them pauses.
class Fetches
{
public:
    void start(const Mvres& mvres, const QString& item)
    {
        m_processes.push_back(std::make_unique<QProcess>());
        // Mvres::start() would rewrite the settings, which another process may be reading.
        m_processes.back()->start(Mvres::program(),
                                  mvres.arguments({text("fetch"), SmallSource::guid(item)}));
    }
    /// Returns the output of the fetches that failed.
    QByteArray wait()
    {
        QByteArray failures;
        for (const auto& process : m_processes) {
            const Outcome outcome = ConsoleProgram::end(*process);
            if (outcome.status != 0)
                failures += outcome.out + outcome.err;
        }
        m_processes.clear();
        return failures;
    }

private:
    std::vector<std::unique_ptr<QProcess>> m_processes;
};

} // namespace

/// Tests the whole way from a source to a client's disk: build, lint, serve, check, fetch.
class TestMvpublishRoundTrip : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everythingArrivesAsItWasPublished();
    void everyKindOfRootLeadsToTheTree();

private:
    static void compareHalf(const Mvres& mvres, const char* half, const QStringList& notFetched);
};

void TestMvpublishRoundTrip::initTestCase()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), home("tree")), QString());
    QCOMPARE(Mvpublish::run({text("lint"), home("tree")}).out, QByteArray("clean\n"));
    // The application ships an older catalogue with one item, whose files are still to be fetched.
    source.set(text("fade"), "installed", true);
    QVERIFY(QDir().mkpath(home("installed")));
    QCOMPARE(Mvpublish::build(source.folder(), home("installed/Resource"), {text("--installed")}),
             QString());
}

/// Requires every fetched file to equal the tree's, and every file that clients request to be
/// fetched.
void TestMvpublishRoundTrip::compareHalf(const Mvres& mvres, const char* half,
                                         const QStringList& notFetched)
{
    const QString fetched = mvres.root() + text("/Themes/%1/PQD/Download/").arg(text(half));
    const QString published = home("tree/") + text(half) + QLatin1Char('/');
    QStringList expected = CatalogueFiles::filesBelow(published);
    for (const QString& name : notFetched)
        QVERIFY2(expected.removeAll(name) == 1, qPrintable(name));
    QCOMPARE(CatalogueFiles::filesBelow(fetched), expected);
    for (const QString& name : qAsConst(expected)) {
        QVERIFY2(CatalogueFiles::read(fetched + name) == CatalogueFiles::read(published + name),
                 qPrintable(name));
    }
}

void TestMvpublishRoundTrip::everythingArrivesAsItWasPublished()
{
    if (NginxServer::program().isEmpty())
        QSKIP("nginx is not installed");
    NginxServer nginx;
    nginx.include(text(MV_DEPLOY "/nginx.conf"));
    QVERIFY2(nginx.start(home("tree"), home("nginx")), qPrintable(nginx.errorText()));
    const auto mvres = user(nginx.url());
    const Outcome checked = mvres->run(check);
    QVERIFY2(checked.status == checkChanged, (checked.out + checked.err).constData());
    Fetches fetches;
    for (const char* item : {"look", "title", "fade", "zoom", "paper"})
        fetches.start(*mvres, text(item));
    QCOMPARE(fetches.wait(), QByteArray());
    fetches.start(*mvres, text("film")); // uses what has been fetched by now
    QCOMPARE(fetches.wait(), QByteArray());

    compareHalf(*mvres, "config",
                {text("VideoFilters/VideoFilters.xml"), text("Transitions/Transitions.xml"),
                 text("Motions/Motions.xml")});
    // Clients request no previews of transitions and motions. The pictures of "none" are installed.
    QStringList notFetched{text("Transitions/fade 1.png"), text("Motions/zoom 1.png")};
    const QStringList nonePictures = SmallSource::nonePictures();
    for (const QString& name : nonePictures)
        notFetched << text("VideoFilters/") + name << text("BgMaterial/") + name;
    compareHalf(*mvres, "display", notFetched);
    QCOMPARE(mvres->run(check).status, checkCurrent);
    QVERIFY(
        mvres->run({text("list"), text("theme")}).lines().constFirst().endsWith(text("  ready")));
}

/// Covers roots with and without a trailing slash, at the root of a host or below a path.
void TestMvpublishRoundTrip::everyKindOfRootLeadsToTheTree()
{
    if (NginxServer::program().isEmpty())
        QSKIP("nginx is not installed");
    TreeServer server;
    QVERIFY2(server.start(home("tree")), qPrintable(server.errorText()));
    NginxServer nginx;
    nginx.include(text(MV_DEPLOY "/nginx.conf"));
    QVERIFY2(nginx.start(home("tree"), home("nginx2")), qPrintable(nginx.errorText()));
    Fetches fetches;
    std::vector<std::unique_ptr<Mvres>> users;
    for (const QString& root :
         {server.url(), nginx.url() + text("mv/"), nginx.url() + text("mv")}) {
        users.push_back(user(root));
        const Outcome checked = users.back()->run(check);
        QVERIFY2(checked.status == checkChanged, (checked.out + checked.err).constData());
        fetches.start(*users.back(), text("zoom"));
    }
    QCOMPARE(fetches.wait(), QByteArray());
    const QString archive = text("/Motions/") + SmallSource::guid(text("zoom")) + text("/pack.zip");
    for (const auto& mvres : users) {
        QVERIFY(CatalogueFiles::read(mvres->downloadedFile(archive))
                == CatalogueFiles::read(home("tree/config") + archive));
        QVERIFY(
            QFile::exists(mvres->root() + text("/Themes/display/PQD/Download/Themes/film.gif")));
    }
}

MV_TEST_MAIN(TestMvpublishRoundTrip)

} // namespace tst_mvpublish_roundTrip

#include "tst_mvpublish_roundTrip.moc"
