// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/ThisProcess.h"

#include <QFile>
#include <QProcess>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

/// Tests a process that exits during a check or a preview run. The program runs itself as the host,
/// which exits when the test closes its input.
class tst_MVThemeDownLoader_CheckCfg_exit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void duringATransfer_data();
    void duringATransfer();
    void rightAfterTheStart_data();
    void rightAfterTheStart();
    void catalogueOutlivesTheThreads();
    void afterEverything();
    void processThatGoesOnWithoutItsApplication();

private:
    void start(QProcess& host, const char* ending) const;

    CheckWorld m_world;
};

namespace {

constexpr int longWait = 60000;    // ms
constexpr int stallLimit = 600000; // ms, of the host: what waits for the network waits that long

QString favouritesFile(const QString& base)
{
    return base + QStringLiteral("/data/ThemeCollect/ThemeCollect.json");
}

/// Marks a favourite, which the catalogue writes when it is destroyed, and tells the test with each
/// log line of a thread whether that has happened.
void tellWhetherTheCatalogueLives(const QString& base)
{
    SCfg_Item theme;
    theme.m_eType = eCfgItem_Theme;
    theme.m_qsGUID = CatalogueFiles::guid(1);
    theme.m_bCollected = true;
    MVThemeMgr::init()->setItemCollected(&theme);
    setLogSink([favourites = favouritesFile(base),
                main = std::this_thread::get_id()](const QByteArray&, int, const QByteArray&) {
        if (std::this_thread::get_id() != main)
            std::puts(QFile::exists(favourites) ? "destroyed" : "alive");
    });
}

/// Runs a host that makes no provision for the end of the process.
int runHost(const QCoreApplication& application, const QStringList& arguments)
{
    const QString& base = arguments.at(2);
    const QString& ending = arguments.at(4);
    hostSettings().resourcesPath = base + QStringLiteral("/installed");
    hostSettings().dataLocation = base + QStringLiteral("/data");
    hostSettings().appDataPath = base + QStringLiteral("/appdata");
    hostSettings().stallTimeoutMs = stallLimit;
    hostSettings().downloadRetries = 0;
    hostSettings().productParams.insert(QStringLiteral("url_themeRootDir"), arguments.at(3));
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    // The coordinator is created first, so only its own precautions keep the catalogue alive for
    // it.
    MVThemeDownLoader_CheckCfg* const coordinator = MVThemeDownLoader_CheckCfg::instance();
    MVThemeMgr::init()->setResourceSaveRootPath(base + QStringLiteral("/root"));
    if (ending == QLatin1String("mark and exit"))
        tellWhetherTheCatalogueLives(base);
    coordinator->startDownloadXML();
    if (ending == QLatin1String("both"))
        coordinator->startDownloadThumbAndGif();
    if (ending == QLatin1String("return at once"))
        return 0;
    if (ending == QLatin1String("exit at once"))
        std::exit(0);
    const std::unique_ptr<QThread> input(QThread::create([] { std::getchar(); }));
    QObject::connect(input.get(), &QThread::finished, &application, [&] {
        if (ending.endsWith(QLatin1String("exit")))
            std::exit(0);
        QCoreApplication::quit();
    });
    input->start();
    const int status = application.exec();
    input->wait();
    return status;
}

} // namespace

void tst_MVThemeDownLoader_CheckCfg_exit::init()
{
    m_world.fresh();
    m_world.publish("1.0.2", CheckWorld::displayCatalogue({}, {1, 2}),
                    CheckWorld::configCatalogue({}, {1, 2}));
    m_world.install("1.0.2", "1", "1");
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Local, {}, {1, 2});
}

void tst_MVThemeDownLoader_CheckCfg_exit::start(QProcess& host, const char* ending) const
{
    host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    host.start(QCoreApplication::applicationFilePath(),
               {QStringLiteral("--host"), m_world.base(), m_world.serverRoot(),
                QString::fromLatin1(ending)});
}

void tst_MVThemeDownLoader_CheckCfg_exit::duringATransfer_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("ending");
    const QByteArray preview = CheckWorld::previewTarget("VideoFilters", "f1.jpg");
    for (const char* ending : {"return", "exit"}) {
        QTest::addRow("version, %s", ending)
            << QByteArray(CheckWorld::versionTarget) << QByteArray(ending);
        QTest::addRow("display, %s", ending)
            << QByteArray(CheckWorld::displayTarget) << QByteArray(ending);
        QTest::addRow("config, %s", ending)
            << QByteArray(CheckWorld::configTarget) << QByteArray(ending);
        QTest::addRow("preview, %s", ending) << preview << QByteArray(ending);
    }
    QTest::newRow("check and previews") << preview << QByteArray("both");
}

void tst_MVThemeDownLoader_CheckCfg_exit::duringATransfer()
{
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, ending);
    const bool both = ending == "both";
    m_world.setFault([target, both](HttpExchange& exchange, int) {
        if (!both && exchange.request().target != target)
            return false;
        exchange.answer(HttpAnswer(200).field("Content-Length", "1000").bareBody("begin"));
        exchange.stall();
        return true;
    });
    QProcess host;
    start(host, ending.constData());
    QTRY_VERIFY_WITH_TIMEOUT(m_world.targets().contains(target), longWait);
    if (both)
        QTRY_VERIFY_WITH_TIMEOUT(m_world.targets().contains(CheckWorld::versionTarget), longWait);
    host.closeWriteChannel();
    QVERIFY(host.waitForFinished(longWait));
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    QCOMPARE(host.exitCode(), 0);
}

void tst_MVThemeDownLoader_CheckCfg_exit::rightAfterTheStart_data()
{
    QTest::addColumn<QByteArray>("ending");
    QTest::newRow("main returns") << QByteArray("return at once");
    QTest::newRow("exit is called") << QByteArray("exit at once");
}

/// Repeats often, as threads start at different speeds.
void tst_MVThemeDownLoader_CheckCfg_exit::rightAfterTheStart()
{
    QFETCH(QByteArray, ending);
    for (int turn = 0; turn < 50; ++turn) {
        QProcess host;
        start(host, ending.constData());
        QVERIFY(host.waitForFinished(longWait));
        QCOMPARE(host.exitStatus(), QProcess::NormalExit);
        QCOMPARE(host.exitCode(), 0);
    }
}

void tst_MVThemeDownLoader_CheckCfg_exit::catalogueOutlivesTheThreads()
{
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.answer(HttpAnswer(200).field("Content-Length", "1000").bareBody("begin"));
        exchange.stall();
        return true;
    });
    QProcess host;
    start(host, "mark and exit");
    QTRY_VERIFY_WITH_TIMEOUT(m_world.targets().contains(CheckWorld::versionTarget), longWait);
    host.closeWriteChannel();
    QVERIFY(host.waitForFinished(longWait));
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    const QByteArray told = host.readAllStandardOutput();
    QVERIFY2(told.contains("alive") && !told.contains("destroyed"), told.constData());
    QVERIFY(QFile::exists(favouritesFile(m_world.base())));
}

void tst_MVThemeDownLoader_CheckCfg_exit::afterEverything()
{
    QProcess host;
    start(host, "return");
    const QByteArray last = CheckWorld::previewTarget("VideoFilters", "f2.jpg");
    QTRY_VERIFY_WITH_TIMEOUT(m_world.targets().contains(last), longWait);
    host.closeWriteChannel();
    QVERIFY(host.waitForFinished(longWait));
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    QCOMPARE(host.exitCode(), 0);
}

/// The threads end with the application object, however long the process lives.
void tst_MVThemeDownLoader_CheckCfg_exit::processThatGoesOnWithoutItsApplication()
{
    QSemaphore left; // the client has
    m_world.setFault([&left](HttpExchange& exchange, int) {
        exchange.answer(HttpAnswer(200).field("Content-Length", "1000").bareBody("begin"));
        exchange.stall();
        left.release();
        return true;
    });
    QProcess host;
    start(host, "stay");
    QTRY_VERIFY_WITH_TIMEOUT(m_world.targets().contains(CheckWorld::versionTarget), longWait);
    host.closeWriteChannel();
    QVERIFY(host.waitForReadyRead(longWait));
    const bool hasLeft = left.tryAcquire(1, longWait);
    const QProcess::ProcessState state = host.state();
    host.kill();
    QVERIFY(host.waitForFinished(longWait));
    if (!hasLeft)
        left.tryAcquire(1, longWait); // the semaphore must outlive the handler
    QVERIFY(hasLeft);
    QCOMPARE(state, QProcess::Running);
}

int main(int argc, char** argv)
{
    if (argc == 5 && qstrcmp(argv[1], "--host") == 0) {
        int status = 0;
        {
            const TestApplication<QCoreApplication> application(argc, argv);
            status = runHost(application, QCoreApplication::arguments());
        }
        if (qstrcmp(argv[4], "stay") != 0)
            return status;
        std::puts("without an application");
        std::fflush(stdout);
        ThisProcess::waitForKill();
    }
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    tst_MVThemeDownLoader_CheckCfg_exit test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_MVThemeDownLoader_CheckCfg_exit.moc"
