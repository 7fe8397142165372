// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "support/TestMain.h"

#include <QFile>

namespace tst_CheckWorker_CfgAndDisplayXML_run {

using namespace CheckLines;

using Files = CatalogueFiles;

namespace {

const QByteArray display = "<Resource>display</Resource>";
const QByteArray config = "<Resource>config</Resource>";
const QByteArray otherSum = "00112233445566778899aabbccddeeff";

} // namespace

/// Tests the course of a check: order of steps, every log line, every signal, files on disk.
class tst_CheckWorker_CfgAndDisplayXML_run : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void firstCheckFetchesBoth();
    void onlyWhatDiffersIsFetched_data();
    void onlyWhatDiffersIsFetched();
    void nothingToDo();
    void serverNewer();
    void withoutInstalledVersionTheServerIsNewer();
    void serverOlder();
    void downloadedVersionNumberDoesNotCount();
    void everyMixOfChecksums_data();
    void everyMixOfChecksums();
    void checksumsAreComparedInLowerCase();
    void oldTemporaryFilesAreRemoved();
    void temporaryFilesStayUntilTheNextCheck();
    void theSameWorkerChecksAgain();
    void startTextIsIgnored();
    void progressCountsTheFiles_data();
    void progressCountsTheFiles();

private:
    QString url(const char* name) const { return m_world.catalogueUrl(name); }
    QString temp(const char* name) const { return m_world.temporaryFile(name); }
    /// Returns all lines up to the comparison of the version numbers.
    QStringList beginning(const QByteArray& downloadSums, const QByteArray& localSums,
                          const QStringList& numbers) const;
    QByteArray stored(const char* name) const { return Files::read(m_world.downloadedFile(name)); }
    QStringList storedNames() const
    {
        return Files::filesBelow(m_world.root() + QStringLiteral("/Themes/ResourceConfig"));
    }

    CheckWorld m_world;
};

void tst_CheckWorker_CfgAndDisplayXML_run::init()
{
    m_world.fresh();
}

QStringList tst_CheckWorker_CfgAndDisplayXML_run::beginning(const QByteArray& downloadSums,
                                                            const QByteArray& localSums,
                                                            const QStringList& numbers) const
{
    const auto read = [](const QString& file, const QByteArray& sum) {
        QStringList lines{checkXml(file, sum.isEmpty() ? 0 : 1)};
        if (sum.isEmpty())
            lines << versionFileError(file);
        return lines;
    };
    const QString own = temp("resource_version.xml");
    QStringList lines{versionUrl(url("resource_version_v3.xml"))};
    lines << versionOk(url("resource_version_v3.xml"), own) << checkXml(own, 1)
          << sums("m_sVer_Ser", 2, CheckWorld::md5(config), CheckWorld::md5(display));
    lines << read(m_world.downloadedFile("resource_version.xml"), downloadSums)
          << sums("m_sVer_Download", 2, downloadSums, downloadSums);
    lines << read(m_world.installedFile("resource_version.xml"), localSums)
          << sums("m_sVer_Local", 1, localSums, localSums);
    return lines << numbers;
}

void tst_CheckWorker_CfgAndDisplayXML_run::firstCheckFetchesBoth()
{
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);

    QStringList expected =
        beginning(QByteArray(), otherSum, numbers({102, 1, 1}, {0, 0, 0}, {102, 1, 1}));
    expected << same() << needed(1, 1)
             << fileOk(1, url("resource_display.xml"), temp("resource_display.xml"))
             << fileOk(2, url("resource_config.xml"), temp("resource_config.xml")) << hasError(0)
             << displayCopied(temp("resource_display.xml"), 1)
             << configCopied(temp("resource_config.xml"), 1)
             << configCopied(temp("resource_version.xml"), 1) << QStringLiteral("result 0")
             << QStringLiteral("end 1");
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(m_world.targets(),
             (QByteArrayList{CheckWorld::versionTarget, CheckWorld::displayTarget,
                             CheckWorld::configTarget}));
    QCOMPARE(
        storedNames(),
        (QStringList{QStringLiteral("resource_config.xml"), QStringLiteral("resource_display.xml"),
                     QStringLiteral("resource_version.xml")}));
    QCOMPARE(stored("resource_display.xml"), display);
    QCOMPARE(stored("resource_config.xml"), config);
    QCOMPARE(stored("resource_version.xml"),
             CheckWorld::version("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config)));
}

void tst_CheckWorker_CfgAndDisplayXML_run::onlyWhatDiffersIsFetched_data()
{
    QTest::addColumn<bool>("displayDiffers");
    QTest::newRow("display") << true;
    QTest::newRow("config") << false;
}

void tst_CheckWorker_CfgAndDisplayXML_run::onlyWhatDiffersIsFetched()
{
    QFETCH(bool, displayDiffers);
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    m_world.download("1.0.2", displayDiffers ? otherSum : CheckWorld::md5(display),
                     displayDiffers ? CheckWorld::md5(config) : otherSum);
    const QByteArray old = "<Resource>old</Resource>";
    Files::write(m_world.downloadedFile("resource_display.xml"), displayDiffers ? old : display);
    Files::write(m_world.downloadedFile("resource_config.xml"), displayDiffers ? config : old);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);

    const char* const name = displayDiffers ? "resource_display.xml" : "resource_config.xml";
    const QStringList entries = trace.entries();
    QStringList expected{same()};
    expected << needed(displayDiffers ? 0 : 1, displayDiffers ? 1 : 0)
             << fileOk(displayDiffers ? 1 : 2, url(name), temp(name)) << hasError(0)
             << (displayDiffers ? displayCopied(temp(name), 1) : configCopied(temp(name), 1))
             << configCopied(temp("resource_version.xml"), 1) << QStringLiteral("result 0")
             << QStringLiteral("end 1");
    QCOMPARE(entries.mid(entries.indexOf(same())), expected);
    QCOMPARE(
        m_world.targets(),
        (QByteArrayList{CheckWorld::versionTarget,
                        displayDiffers ? CheckWorld::displayTarget : CheckWorld::configTarget}));
    QCOMPARE(stored("resource_display.xml"), display);
    QCOMPARE(stored("resource_config.xml"), config);
    QCOMPARE(stored("resource_version.xml"),
             CheckWorld::version("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config)));
}

void tst_CheckWorker_CfgAndDisplayXML_run::nothingToDo()
{
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config));
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    const QStringList entries = trace.entries();
    QStringList expected{same()};
    expected << needed(0, 0) << QStringLiteral("result 1") << QStringLiteral("end 1");
    QCOMPARE(entries.mid(entries.indexOf(same())), expected);
    QCOMPARE(m_world.targets(), (QByteArrayList{CheckWorld::versionTarget}));
    QCOMPARE(storedNames(), QStringList());
}

void tst_CheckWorker_CfgAndDisplayXML_run::serverNewer()
{
    m_world.publish("1.0.3", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QStringList expected =
        beginning(QByteArray(), otherSum, numbers({103, 1, 1}, {0, 0, 0}, {102, 1, 1}));
    expected << newer() << QStringLiteral("update") << QStringLiteral("result 2")
             << QStringLiteral("end 1");
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(m_world.targets().size(), 1);
    QCOMPARE(storedNames(), QStringList());
}

void tst_CheckWorker_CfgAndDisplayXML_run::withoutInstalledVersionTheServerIsNewer()
{
    m_world.publish("0.0.1", display, config);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QStringList expected =
        beginning(QByteArray(), QByteArray(), numbers({1, 1, 1}, {0, 0, 0}, {0, 0, 0}));
    expected << newer() << QStringLiteral("update") << QStringLiteral("result 2")
             << QStringLiteral("end 1");
    QCOMPARE(trace.entries(), expected);
}

void tst_CheckWorker_CfgAndDisplayXML_run::serverOlder()
{
    m_world.publish("1.0.1", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QStringList expected =
        beginning(QByteArray(), otherSum, numbers({101, 1, 1}, {0, 0, 0}, {102, 1, 1}));
    expected << older() << QStringLiteral("result 3") << QStringLiteral("end 1");
    QCOMPARE(trace.entries(), expected);
    QCOMPARE(m_world.targets().size(), 1);
    QCOMPARE(storedNames(), QStringList());
}

void tst_CheckWorker_CfgAndDisplayXML_run::downloadedVersionNumberDoesNotCount()
{
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    m_world.download("9.9.9", otherSum, otherSum);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QVERIFY(trace.contains(numbers({102, 1, 1}, {999, 1, 1}, {102, 1, 1}).at(1)));
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
}

void tst_CheckWorker_CfgAndDisplayXML_run::everyMixOfChecksums_data()
{
    QTest::addColumn<QString>("sums");
    QTest::addColumn<bool>("needsConfig");
    QTest::addColumn<bool>("needsDisplay");

    // State of each checksum, config and display of the download tree and the installation: "-"
    // none, "=" the server's, "#" a different one.
    const QString states = QStringLiteral("-=#");
    for (int mix = 0; mix < 81; ++mix) {
        const QString sums = QString() + states.at(mix / 27) + states.at(mix / 9 % 3)
            + states.at(mix / 3 % 3) + states.at(mix % 3);
        const QString downloaded = sums.left(2);
        const QString local = sums.mid(2);
        const QString decides = !downloaded.contains(QLatin1Char('-')) ? downloaded
            : !local.contains(QLatin1Char('-'))                        ? local
                                                                       : QStringLiteral("##");
        QTest::newRow(qPrintable(sums))
            << sums << (decides.at(0) == QLatin1Char('#')) << (decides.at(1) == QLatin1Char('#'));
    }
}

void tst_CheckWorker_CfgAndDisplayXML_run::everyMixOfChecksums()
{
    QFETCH(QString, sums);
    QFETCH(bool, needsConfig);
    QFETCH(bool, needsDisplay);
    const auto sum = [&](int at, const QByteArray& content) {
        return sums.at(at) == QLatin1Char('-') ? QByteArray()
            : sums.at(at) == QLatin1Char('=')  ? CheckWorld::md5(content)
                                               : otherSum;
    };
    m_world.publish("1.0.2", display, config);
    m_world.download("1.0.2", sum(1, display), sum(0, config));
    m_world.install("1.0.2", sum(3, display), sum(2, config));
    // The file on disk matches its version file.
    const bool isDownloaded = !sums.startsWith(QLatin1Char('-')) && sums.at(1) != QLatin1Char('-');
    if (isDownloaded && sums.at(0) == QLatin1Char('='))
        Files::write(m_world.downloadedFile("resource_config.xml"), config);
    if (isDownloaded && sums.at(1) == QLatin1Char('='))
        Files::write(m_world.downloadedFile("resource_display.xml"), display);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);

    QByteArrayList expected{CheckWorld::versionTarget};
    if (needsDisplay)
        expected << CheckWorld::displayTarget;
    if (needsConfig)
        expected << CheckWorld::configTarget;
    QCOMPARE(m_world.targets(), expected);
    QVERIFY(trace.contains(needed(needsConfig, needsDisplay).at(0)));
    QVERIFY(trace.contains(needed(needsConfig, needsDisplay).at(1)));
    QCOMPARE(QFile::exists(m_world.downloadedFile("resource_display.xml")),
             needsDisplay || isDownloaded);
    QCOMPARE(QFile::exists(m_world.downloadedFile("resource_config.xml")),
             needsConfig || isDownloaded);
    QCOMPARE(trace.count(needsConfig || needsDisplay ? QStringLiteral("result 0")
                                                     : QStringLiteral("result 1")),
             1);
    QCOMPARE(trace.count(QStringLiteral("end 1")), 1);
}

void tst_CheckWorker_CfgAndDisplayXML_run::checksumsAreComparedInLowerCase()
{
    m_world.publish("1.0.2", display, config);
    m_world.serve(CheckWorld::versionTarget,
                  CheckWorld::version("1.0.2", CheckWorld::md5(display).toUpper(),
                                      CheckWorld::md5(config).toUpper()));
    m_world.install("1.0.2", CheckWorld::md5(display), otherSum);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QVERIFY(trace.contains(needed(1, 0).at(0)));
    QVERIFY(trace.contains(needed(1, 0).at(1)));
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
    QCOMPARE(stored("resource_config.xml"), config);
}

void tst_CheckWorker_CfgAndDisplayXML_run::oldTemporaryFilesAreRemoved()
{
    Files::write(m_world.temp() + QStringLiteral("/ThemeImgGif/old.gif"), "old");
    Files::write(m_world.temp() + QStringLiteral("/resource_version.xml"), "old");
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QCOMPARE(Files::filesBelow(m_world.temp()), QStringList());
}

void tst_CheckWorker_CfgAndDisplayXML_run::temporaryFilesStayUntilTheNextCheck()
{
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    QCOMPARE(
        Files::filesBelow(m_world.temp()),
        (QStringList{QStringLiteral("resource_config.xml"), QStringLiteral("resource_display.xml"),
                     QStringLiteral("resource_version.xml")}));
}

void tst_CheckWorker_CfgAndDisplayXML_run::theSameWorkerChecksAgain()
{
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::check(worker, trace);
    m_world.publish("1.0.2", display + " ", config);
    worker.onStartDownloadXML(QString());
    worker.onStartDownloadXML(QString());
    QCOMPARE(trace.count(QStringLiteral("result 0")), 2);
    QCOMPARE(trace.count(QStringLiteral("result 1")), 1);
    QCOMPARE(trace.count(QStringLiteral("end 1")), 3);
    QCOMPARE(stored("resource_display.xml"), display + " ");
}

void tst_CheckWorker_CfgAndDisplayXML_run::startTextIsIgnored()
{
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    CheckWorld::watch(worker, trace);
    worker.onStartDownloadXML(QStringLiteral("../../elsewhere"));
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
    QCOMPARE(trace.count(QStringLiteral("start")), 0);
}

void tst_CheckWorker_CfgAndDisplayXML_run::progressCountsTheFiles_data()
{
    QTest::addColumn<bool>("hasDisplay");
    QTest::newRow("both catalogue files come") << false;
    QTest::newRow("one of them is there") << true;
}

void tst_CheckWorker_CfgAndDisplayXML_run::progressCountsTheFiles()
{
    QFETCH(bool, hasDisplay);
    m_world.publish("1.0.2", display, config);
    m_world.install("1.0.2", otherSum, otherSum);
    if (hasDisplay) {
        m_world.download("1.0.2", CheckWorld::md5(display), otherSum);
        Files::write(m_world.downloadedFile("resource_display.xml"), display);
    }
    QVector<SUpdateProgress> told;
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    worker.setProgressCallback([&](const SUpdateProgress& progress) { told.append(progress); });
    CheckWorld::check(worker, trace);
    QCOMPARE(trace.count(QStringLiteral("result 0")), 1);
    QCOMPARE(told.first().m_nFilesDone, 0);
    QCOMPARE(told.last().m_nFilesDone, 3);
    QCOMPARE(told.last().m_nFiles, 3);
    const QByteArray version =
        CheckWorld::version("1.0.2", CheckWorld::md5(display), CheckWorld::md5(config));
    QCOMPARE(told.last().m_nBytes,
             qint64(version.size() + config.size() + (hasDisplay ? 0 : display.size())));
}

MV_TEST_MAIN(tst_CheckWorker_CfgAndDisplayXML_run)

} // namespace tst_CheckWorker_CfgAndDisplayXML_run

#include "tst_CheckWorker_CfgAndDisplayXML_run.moc"
