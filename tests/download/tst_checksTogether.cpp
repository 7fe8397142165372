// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/ThisProcess.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLockFile>
#include <QProcess>

#include <cstdio>
#include <memory>
#include <thread>
#include <vector>

using Files = CatalogueFiles;

/// Tests checks of two roots, or of one in several processes, that share the temporary folder. The
/// program runs itself as another host, which checks once.
class tst_checksTogether : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }
    void rootsOfTwoServers();
    void manyChecksOfOneRoot();
    void waitingCanBeCancelled();
    void lockOfADeadProcessIsBroken();
    void fileThatChangesBehindTheCheckIsNotStored();

private:
    std::unique_ptr<QProcess> otherHost(const QString& root, const QString& server) const;
    QString lockFile() const { return m_world.temp() + QStringLiteral(".lock"); }

    CheckWorld m_world;
};

namespace {

constexpr int endMs = 60000;
constexpr qint64 promptMs = 1000;

/// Runs the host; its exit status is 100 plus the outcome of the check.
int runHost(const QStringList& arguments)
{
    const QString& base = arguments.at(2);
    hostSettings().resourcesPath = base + QStringLiteral("/installed");
    hostSettings().dataLocation = base + QStringLiteral("/data");
    hostSettings().appDataPath = base + QStringLiteral("/appdata");
    hostSettings().productParams.insert(QStringLiteral("url_themeRootDir"), arguments.at(4));
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    MVThemeMgr::init()->setResourceSaveRootPath(arguments.at(3));
    CheckWorker_CfgAndDisplayXML worker;
    int end = -1;
    worker.setResultCallback([&](const SCatalogueCheckResult& result) { end = result.m_eEnd; });
    if (arguments.at(4).isEmpty()) { // holds the lock until it is killed
        QLockFile lock(worker.getDownLoadTemp().chopped(1) + QStringLiteral(".lock"));
        if (!lock.tryLock())
            return 1;
        std::puts("locked");
        std::fflush(stdout);
        ThisProcess::waitForKill();
    }
    worker.onStartDownloadXML(QString());
    return 100 + end;
}

} // namespace

std::unique_ptr<QProcess> tst_checksTogether::otherHost(const QString& root,
                                                        const QString& server) const
{
    auto host = std::make_unique<QProcess>();
    host->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    host->start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--host"), m_world.base(), root, server});
    return host;
}

/// Each root ends up with its own server's complete catalogue.
void tst_checksTogether::rootsOfTwoServers()
{
    const QByteArray display = "<Resource>first</Resource>";
    const QByteArray config = "<Resource>first config</Resource>";
    const QByteArray otherDisplay = "<Resource>second</Resource>";
    const QByteArray otherConfig = "<Resource>second config</Resource>";
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", "1", "1");
    FaultServer other([&](HttpExchange& exchange) {
        const QByteArray target = exchange.request().target;
        const QByteArray body = target == CheckWorld::displayTarget ? otherDisplay
            : target == CheckWorld::configTarget
            ? otherConfig
            : CheckWorld::version("1.0.2", CheckWorld::md5(otherDisplay),
                                  CheckWorld::md5(otherConfig));
        exchange.answer(HttpAnswer(200).body(body));
    });
    constexpr int rounds = 8;
    std::vector<std::unique_ptr<QProcess>> hosts;
    for (int round = 0; round < rounds; ++round) {
        const QString root = m_world.base() + QStringLiteral("/root%1").arg(round);
        hosts.push_back(otherHost(root + QStringLiteral("a"), m_world.serverRoot()));
        hosts.push_back(otherHost(root + QStringLiteral("b"), other.url(QStringLiteral("/"))));
    }
    for (const auto& host : hosts) {
        QVERIFY(host->waitForFinished(endMs));
        QCOMPARE(host->exitCode(), 100 + int(eCatalogueCheck_Changed));
    }
    const QString folder = QStringLiteral("/Themes/ResourceConfig/");
    for (int round = 0; round < rounds; ++round) {
        for (const bool isFirst : {true, false}) {
            const QString root = m_world.base()
                + QStringLiteral("/root%1%2").arg(round).arg(QLatin1Char(isFirst ? 'a' : 'b'))
                + folder;
            QCOMPARE(Files::read(root + QStringLiteral("resource_display.xml")),
                     isFirst ? display : otherDisplay);
            QCOMPARE(Files::read(root + QStringLiteral("resource_config.xml")),
                     isFirst ? config : otherConfig);
        }
    }
}

void tst_checksTogether::manyChecksOfOneRoot()
{
    m_world.publish("1.0.2", "<Resource>d</Resource>", "<Resource>c</Resource>");
    m_world.install("1.0.2", "1", "1");
    std::vector<std::unique_ptr<QProcess>> hosts;
    for (int i = 0; i < 8; ++i)
        hosts.push_back(otherHost(m_world.root(), m_world.serverRoot()));
    int changed = 0;
    for (const auto& host : hosts) {
        QVERIFY(host->waitForFinished(endMs));
        const int end = host->exitCode() - 100;
        QVERIFY2(end == eCatalogueCheck_Changed || end == eCatalogueCheck_Current,
                 qPrintable(QString::number(end)));
        changed += end == eCatalogueCheck_Changed ? 1 : 0;
    }
    QCOMPARE(changed, 1); // the others waited and found it done
}

void tst_checksTogether::waitingCanBeCancelled()
{
    m_world.publish("1.0.2", "<d/>", "<c/>");
    QVERIFY(QDir().mkpath(QFileInfo(lockFile()).path()));
    QLockFile lock(lockFile());
    QVERIFY(lock.tryLock());
    Files::write(m_world.temp() + QStringLiteral("/of another check"), "x");
    CancelToken token;
    CheckWorker_CfgAndDisplayXML worker(token);
    DownloadTrace trace;
    QElapsedTimer sinceCancel;
    std::thread canceller([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100)); // usually inside the wait
        sinceCancel.start();
        token.cancel();
    });
    CheckWorld::check(worker, trace);
    canceller.join();
    QVERIFY(sinceCancel.elapsed() < promptMs);
    QCOMPARE(trace.count(QStringLiteral("result 6")), 1);
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
    QCOMPARE(m_world.targets().size(), 0);
    QCOMPARE(Files::read(m_world.temp() + QStringLiteral("/of another check")), QByteArray("x"));
}

void tst_checksTogether::lockOfADeadProcessIsBroken()
{
    m_world.publish("1.0.2", "<d/>", "<c/>");
    m_world.install("1.0.2", "1", "1");
    QVERIFY(QDir().mkpath(QFileInfo(lockFile()).path()));
    const auto host = otherHost(m_world.root(), QString());
    QVERIFY(host->waitForReadyRead(endMs));
    host->kill();
    QVERIFY(host->waitForFinished(endMs));
    QVERIFY(QFile::exists(lockFile()));
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
    QVERIFY(!QFile::exists(lockFile()));
}

/// Only verified content is stored, even if a program that ignores the lock writes to the temporary
/// folder.
void tst_checksTogether::fileThatChangesBehindTheCheckIsNotStored()
{
    m_world.publish("1.0.2", "<d/>", "<c/>");
    m_world.install("1.0.2", "1", "1");
    DownloadTrace trace;
    trace.onLine(QStringLiteral("hasError = 0"), [&] {
        Files::write(m_world.temp() + QStringLiteral("/resource_config.xml"), "<other/>");
    });
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QCOMPARE(trace.count(QStringLiteral("result 7")), 1);
    QVERIFY(!QFile::exists(m_world.downloadedFile("resource_config.xml")));
    QVERIFY(!QFile::exists(m_world.downloadedFile("resource_version.xml")));
}

int main(int argc, char** argv)
{
    if (argc == 5 && qstrcmp(argv[1], "--host") == 0) {
        const QCoreApplication application(argc, argv);
        return runHost(QCoreApplication::arguments());
    }
    const TestHome home;
    const QCoreApplication application(argc, argv);
    tst_checksTogether test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_checksTogether.moc"
