// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/ThisProcess.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <atomic>
#include <thread>

using Files = CatalogueFiles;

/// Tests what a killed check leaves on disk, and how the next one recovers. The program runs itself
/// as the host that is killed.
class tst_checkKilled : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void atEveryStep();
    void atRandomMoments();
    void leftoversAreRemoved();

private:
    void publish(int number);
    void start(QProcess& host, int killAt) const;
    bool completes() const;
    /// Returns the files of the download tree by name.
    QMap<QString, QByteArray> tree() const;
    /// Returns whether a killed check has left only complete files, old or new.
    bool isWhole(const QMap<QString, QByteArray>& before) const;

    CheckWorld m_world;
    QMap<QString, QByteArray> m_published; // the expected content of the tree
};

namespace {

constexpr int randomMoments = 30;
constexpr int manySteps = 200;
const QByteArray sum = "00112233445566778899aabbccddeeff";
const QVector<int> filters{1, 2, 3};

/// Runs a check and a preview run that kill the process after the given number of log lines.
int runHost(const QStringList& arguments)
{
    const QString& base = arguments.at(2);
    const int killAt = arguments.at(4).toInt();
    std::atomic<int> lines{0};
    setLogSink([&](const QByteArray&, int, const QByteArray&) {
        if (++lines == killAt)
            ThisProcess::kill();
    });
    hostSettings().resourcesPath = base + QStringLiteral("/installed");
    hostSettings().dataLocation = base + QStringLiteral("/data");
    hostSettings().appDataPath = base + QStringLiteral("/appdata");
    hostSettings().productParams.insert(QStringLiteral("url_themeRootDir"), arguments.at(3));
    MVThemeMgr::init()->setResourceSaveRootPath(base + QStringLiteral("/root"));
    CheckWorker_CfgAndDisplayXML check;
    check.onStartDownloadXML(QString());
    CheckWorker_ThumbAndGif previews;
    previews.onStartDownload_ThumbAndGif();
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    return 0;
}

QByteArray image(int catalogue)
{
    return QByteArray(20000, static_cast<char>('a' + catalogue % 26));
}

} // namespace

void tst_checkKilled::init()
{
    m_world.fresh();
    m_world.install("1.0.2", sum, sum);
    m_published.clear();
}

/// Publishes a catalogue whose content and preview names depend on its number.
void tst_checkKilled::publish(int number)
{
    QVector<int> own;
    for (const int filter : filters)
        own.append(number * 100 + filter);
    const QByteArray display = CheckWorld::displayCatalogue({}, own);
    const QByteArray config = CheckWorld::configCatalogue({}, own);
    m_world.publish("1.0.2", display, config);
    const QString folder = QStringLiteral("ResourceConfig/");
    m_published.insert(folder + QStringLiteral("resource_display.xml"), display);
    m_published.insert(folder + QStringLiteral("resource_config.xml"), config);
    m_published.insert(
        folder + QStringLiteral("resource_version.xml"),
        CheckWorld::version("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config)));
    for (const int filter : std::as_const(own)) {
        const QByteArray name = 'f' + QByteArray::number(filter) + ".jpg";
        m_world.serve(CheckWorld::previewTarget("VideoFilters", name.constData()), image(number));
        m_published.insert(QStringLiteral("display/PQD/Download/VideoFilters/")
                               + QString::fromLatin1(name),
                           image(number));
    }
}

void tst_checkKilled::start(QProcess& host, int killAt) const
{
    host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    host.start(
        QCoreApplication::applicationFilePath(),
        {QStringLiteral("--host"), m_world.base(), m_world.serverRoot(), QString::number(killAt)});
}

bool tst_checkKilled::completes() const
{
    QProcess host;
    start(host, 0);
    return host.waitForFinished() && host.exitStatus() == QProcess::NormalExit
        && host.exitCode() == 0;
}

QMap<QString, QByteArray> tst_checkKilled::tree() const
{
    const QString folder = m_world.root() + QStringLiteral("/Themes");
    QMap<QString, QByteArray> result;
    const QStringList names = Files::filesBelow(folder);
    for (const QString& name : names)
        result.insert(name, Files::read(folder + QLatin1Char('/') + name));
    return result;
}

bool tst_checkKilled::isWhole(const QMap<QString, QByteArray>& before) const
{
    const QMap<QString, QByteArray> now = tree();
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        const bool temporary = it.key().contains(QLatin1String("/.mv-"));
        if (!temporary && it.value() != before.value(it.key())
            && it.value() != m_published.value(it.key()))
            return false;
    }
    return true;
}

/// Kills the check at every line of its log, that is, between any two steps.
void tst_checkKilled::atEveryStep()
{
    int killed = 0;
    for (int step = 1; step < manySteps; ++step) {
        const QMap<QString, QByteArray> before = tree();
        publish(step);
        QProcess host;
        start(host, step);
        QVERIFY(host.waitForFinished());
        if (host.exitStatus() == QProcess::NormalExit)
            break; // the log has fewer lines
        ++killed;
        QVERIFY2(isWhole(before), qPrintable(QString::number(step)));
        QVERIFY(completes());
        QCOMPARE(tree(), m_published);
    }
    QVERIFY2(killed > 30, qPrintable(QString::number(killed)));
}

void tst_checkKilled::atRandomMoments()
{
    publish(1);
    QElapsedTimer duration;
    duration.start();
    QVERIFY(completes());
    const int whole = static_cast<int>(duration.elapsed()) + 1;
    QRandomGenerator random(20240607);
    for (int moment = 2; moment < 2 + randomMoments; ++moment) {
        const QMap<QString, QByteArray> before = tree();
        publish(moment);
        QProcess host;
        start(host, 0);
        QVERIFY(host.waitForStarted());
        // The check may end before the kill, which is a valid moment, too.
        std::this_thread::sleep_for(std::chrono::milliseconds(random.bounded(whole)));
        host.kill();
        QVERIFY(host.waitForFinished());
        QVERIFY2(isWhole(before), qPrintable(QString::number(moment)));
        QVERIFY(completes());
        QCOMPARE(tree(), m_published);
    }
}

void tst_checkKilled::leftoversAreRemoved()
{
    publish(1);
    for (const char* folder : {"ResourceConfig", "display/PQD/Download/VideoFilters"}) {
        Files::write(m_world.root()
                         + QStringLiteral("/Themes/%1/.mv-0123456789abcdef.part")
                               .arg(QString::fromLatin1(folder)),
                     "left by a kill");
    }
    QVERIFY(completes());
    QCOMPARE(tree(), m_published);
}

int main(int argc, char** argv)
{
    if (argc == 5 && qstrcmp(argv[1], "--host") == 0) {
        const QCoreApplication application(argc, argv);
        return runHost(QCoreApplication::arguments());
    }
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    tst_checkKilled test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_checkKilled.moc"
