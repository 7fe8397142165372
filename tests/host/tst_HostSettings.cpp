// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "host/IniFile.h"
#include "support/TestTexts.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

class tst_HostSettings : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings() = HostSettings(); }

    void foldersComeFromTheStandardPaths();
    void otherDefaults();
    void recommendedSettings();
    void oneInstancePerProcess();
    void readsEveryKey();
    void turnsSwitches_data();
    void turnsSwitches();
    void keepsWhatTheFileDoesNotName();
    void anEmptyFileChangesNothing();
    void acceptsTheLimitsOfEveryRange_data();
    void acceptsTheLimitsOfEveryRange();
    void readsEditions_data();
    void readsEditions();
    void readsPaths_data();
    void readsPaths();
    void aFileThatHasChangedIsReadAgain();
    void productParametersOfSeveralFilesAddUp();
    void errorMayBeNull();
    void errorStaysOnSuccess();
};

void tst_HostSettings::foldersComeFromTheStandardPaths()
{
    QCoreApplication::setOrganizationName(QStringLiteral("maker"));
    QCoreApplication::setApplicationName(QStringLiteral("editor"));
    const HostSettings settings;
#ifdef Q_OS_WIN // which has no variables for them
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
#else
    const QString data = TestHome::path() + QStringLiteral("/home/.local/share/maker/editor");
#endif
    QCOMPARE(settings.dataLocation, data);
    QCOMPARE(settings.appDataPath,
             QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    QCOMPARE(settings.resourcesPath, data + QStringLiteral("/resources"));
    QCOMPARE(settings.testOutputDir, data + QStringLiteral("/resources"));
    QVERIFY(settings.developerResourceRoot.isEmpty());
}

void tst_HostSettings::otherDefaults()
{
    const HostSettings settings;
    QCOMPARE(settings.currentSkin, QStringLiteral("Classical"));
    QCOMPARE(settings.zoomDPI, 1.0);
    QVERIFY(settings.partnerEditions.isEmpty());
    QVERIFY(settings.productParams.isEmpty());
    QCOMPARE(settings.connectTimeoutMs, 15000);
    QCOMPARE(settings.stallTimeoutMs, 30000);
    QCOMPARE(settings.versionTimeoutMs, 60000);
    QCOMPARE(settings.maxDownloadBytes, Q_INT64_C(2147483648));
    QCOMPARE(settings.downloadRetries, 2);
    QCOMPARE(settings.retryPauseMs, 500);
    QCOMPARE(settings.retryPauseMaxMs, 5000);
    QVERIFY(settings.proxy.isEmpty());
    QVERIFY(settings.caFile.isEmpty());
}

/// Better choices where there are some, and nothing else.
void tst_HostSettings::recommendedSettings()
{
    const HostSettings plain;
    QVERIFY(!plain.leftButtonOnly && !plain.lastChoiceWins && !plain.cellsOnDemand
            && !plain.checkContent);
    const HostSettings recommended = HostSettings::recommended();
    QVERIFY(recommended.leftButtonOnly);
    QVERIFY(recommended.lastChoiceWins);
    QVERIFY(recommended.cellsOnDemand);
    QVERIFY(recommended.checkContent);
    QVERIFY(!plain.decodeInBackground && recommended.decodeInBackground);
    QVERIFY(!plain.showWithoutPreviews && recommended.showWithoutPreviews);
    QVERIFY(!plain.conditionalRequests && recommended.conditionalRequests);
    QCOMPARE(plain.transfersSideBySide, 1);
    QCOMPARE(recommended.transfersSideBySide, 6);
    QCOMPARE(plain.downloadStepMs, 500);
    QCOMPARE(recommended.downloadStepMs, 0);
    QCOMPARE(plain.checkSpreadSeconds, 0);
    QCOMPARE(recommended.checkSpreadSeconds, 0);
    QCOMPARE(recommended.currentSkin, plain.currentSkin);
    QCOMPARE(recommended.dataLocation, plain.dataLocation);
    QCOMPARE(recommended.stallTimeoutMs, plain.stallTimeoutMs);
    QCOMPARE(recommended.versionTimeoutMs, plain.versionTimeoutMs);
    QCOMPARE(recommended.downloadRetries, plain.downloadRetries);
}

void tst_HostSettings::oneInstancePerProcess()
{
    hostSettings().currentSkin = QStringLiteral("Calm");
    QCOMPARE(hostSettings().currentSkin, QStringLiteral("Calm"));
    QCOMPARE(&hostSettings(), &hostSettings());
}

void tst_HostSettings::readsEveryKey()
{
    const QString file = iniFile("[paths]\n"
                                 "resources=/opt/editor/resources\n"
                                 "data=/home/someone/data\n"
                                 "appData=/home/someone/app\n"
                                 "testOutput=/home/someone/output\n"
                                 "developerResource=/home/someone/Resource\n"
                                 "[ui]\n"
                                 "skin=Elegance\n"
                                 "zoomDPI=1.25\n"
                                 "leftButtonOnly=true\n"
                                 "lastChoiceWins=true\n"
                                 "cellsOnDemand=true\n"
                                 "showWithoutPreviews=true\n"
                                 "decodeInBackground=true\n"
                                 "[product]\n"
                                 "editions=2, 5\n"
                                 "[params]\n"
                                 "url_themeRootDir=http://127.0.0.1:8080/root\n"
                                 "hasMV=1\n"
                                 "[network]\n"
                                 "connectTimeoutMs=1001\n"
                                 "stallTimeoutMs=1002\n"
                                 "versionTimeoutMs=1005\n"
                                 "checkContent=true\n"
                                 "conditionalRequests=true\n"
                                 "transfersSideBySide=32\n"
                                 "downloadStepMs=1006\n"
                                 "checkSpreadSeconds=86400\n"
                                 "maxDownloadBytes=8589934592\n"
                                 "downloadRetries=7\n"
                                 "retryPauseMs=1003\n"
                                 "retryPauseMaxMs=1004\n"
                                 "proxy=http://127.0.0.1:3128\n"
                                 "caFile=/etc/authorities.pem\n");
    QString error;
    QVERIFY2(loadHostSettings(file, &error), qPrintable(error));

    const HostSettings& settings = hostSettings();
    QCOMPARE(settings.resourcesPath, absolute("/opt/editor/resources", TestHome::path()));
    QCOMPARE(settings.dataLocation, absolute("/home/someone/data", TestHome::path()));
    QCOMPARE(settings.appDataPath, absolute("/home/someone/app", TestHome::path()));
    QCOMPARE(settings.testOutputDir, absolute("/home/someone/output", TestHome::path()));
    QCOMPARE(settings.developerResourceRoot, absolute("/home/someone/Resource", TestHome::path()));
    QCOMPARE(settings.currentSkin, QStringLiteral("Elegance"));
    QCOMPARE(settings.zoomDPI, 1.25);
    QCOMPARE(settings.partnerEditions, (QSet<int>{2, 5}));
    QCOMPARE(settings.productParams,
             (QMap<QString, QString>{
                 {QStringLiteral("url_themeRootDir"), QStringLiteral("http://127.0.0.1:8080/root")},
                 {QStringLiteral("hasMV"), QStringLiteral("1")}}));
    QCOMPARE(settings.connectTimeoutMs, 1001);
    QCOMPARE(settings.stallTimeoutMs, 1002);
    QCOMPARE(settings.versionTimeoutMs, 1005);
    QVERIFY(settings.leftButtonOnly && settings.lastChoiceWins && settings.checkContent
            && settings.cellsOnDemand);
    QVERIFY(settings.showWithoutPreviews && settings.conditionalRequests
            && settings.decodeInBackground);
    QCOMPARE(settings.transfersSideBySide, 32);
    QCOMPARE(settings.downloadStepMs, 1006);
    QCOMPARE(settings.checkSpreadSeconds, HostSettings::maxCheckSpreadSeconds);
    QCOMPARE(settings.maxDownloadBytes, Q_INT64_C(8589934592));
    QCOMPARE(settings.downloadRetries, 7);
    QCOMPARE(settings.retryPauseMs, 1003);
    QCOMPARE(settings.retryPauseMaxMs, 1004);
    QCOMPARE(settings.proxy, QStringLiteral("http://127.0.0.1:3128"));
    QCOMPARE(settings.caFile, absolute("/etc/authorities.pem", TestHome::path()));
}

namespace {

struct Switch
{
    const char* key;
    bool HostSettings::*value;
};

const Switch switches[] = {
    {"ui/leftButtonOnly", &HostSettings::leftButtonOnly},
    {"ui/lastChoiceWins", &HostSettings::lastChoiceWins},
    {"ui/cellsOnDemand", &HostSettings::cellsOnDemand},
    {"ui/showWithoutPreviews", &HostSettings::showWithoutPreviews},
    {"ui/decodeInBackground", &HostSettings::decodeInBackground},
    {"network/checkContent", &HostSettings::checkContent},
    {"network/conditionalRequests", &HostSettings::conditionalRequests},
};

} // namespace

void tst_HostSettings::turnsSwitches_data()
{
    QTest::addColumn<int>("number");
    int number = 0;
    for (const Switch& one : switches)
        QTest::newRow(one.key) << number++;
}

/// Expects that each key changes its own switch and no other.
void tst_HostSettings::turnsSwitches()
{
    QFETCH(int, number);
    const auto expectOnly = [number](bool value) {
        int i = 0;
        for (const Switch& one : switches)
            QCOMPARE(hostSettings().*one.value, i++ == number && value);
    };
    const QByteArray line = QByteArray(switches[number].key).replace("/", "]\n").prepend('[');
    QVERIFY(loadHostSettings(iniFile(line + "=true\n"), nullptr));
    expectOnly(true);
    QVERIFY(loadHostSettings(iniFile(line + "=false\n"), nullptr));
    expectOnly(false);
}

void tst_HostSettings::keepsWhatTheFileDoesNotName()
{
    hostSettings().stallTimeoutMs = 77;
    hostSettings().dataLocation = QStringLiteral("/set/by/the/host");
    hostSettings().productParams.insert(QStringLiteral("hasMV"), QStringLiteral("1"));
    QVERIFY(loadHostSettings(iniFile("[ui]\nskin=Calm\n[params]\nhasSplit=1\n"), nullptr));
    QCOMPARE(hostSettings().currentSkin, QStringLiteral("Calm"));
    QCOMPARE(hostSettings().stallTimeoutMs, 77);
    QCOMPARE(hostSettings().dataLocation, QStringLiteral("/set/by/the/host"));
    QCOMPARE(hostSettings().productParams.size(), 2);
}

void tst_HostSettings::anEmptyFileChangesNothing()
{
    hostSettings().zoomDPI = 2.5;
    QVERIFY(loadHostSettings(iniFile(""), nullptr));
    QCOMPARE(hostSettings().zoomDPI, 2.5);
}

void tst_HostSettings::acceptsTheLimitsOfEveryRange_data()
{
    QTest::addColumn<QByteArray>("content");
    for (const char* line :
         {"versionTimeoutMs=1", "versionTimeoutMs=2147483647", "connectTimeoutMs=1",
          "connectTimeoutMs=2147483647", "stallTimeoutMs=1", "stallTimeoutMs=2147483647",
          "retryPauseMs=0", "retryPauseMs=2147483647", "retryPauseMaxMs=0",
          "retryPauseMaxMs=2147483647", "maxDownloadBytes=1",
          "maxDownloadBytes=9223372036854775807", "downloadRetries=0", "downloadRetries=100"})
        QTest::newRow(line) << QByteArray("[network]\n") + line + '\n';
    for (const char* line : {"zoomDPI=0.1", "zoomDPI=16"})
        QTest::newRow(line) << QByteArray("[ui]\n") + line + '\n';
}

void tst_HostSettings::acceptsTheLimitsOfEveryRange()
{
    QFETCH(QByteArray, content);
    QString error;
    QVERIFY2(loadHostSettings(iniFile(content), &error), qPrintable(error));
}

void tst_HostSettings::readsEditions_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QSet<int>>("editions");
    QTest::newRow("none") << QByteArray("") << QSet<int>();
    QTest::newRow("one") << QByteArray("3") << QSet<int>{3};
    QTest::newRow("all") << QByteArray("1,2,3,4,5") << QSet<int>{1, 2, 3, 4, 5};
    QTest::newRow("blanks") << QByteArray(" 4 , 1 ") << QSet<int>{1, 4};
    QTest::newRow("quoted") << QByteArray("\"2,3\"") << QSet<int>{2, 3};
    QTest::newRow("twice the same") << QByteArray("2,2") << QSet<int>{2};
}

void tst_HostSettings::readsEditions()
{
    QFETCH(QByteArray, value);
    QFETCH(QSet<int>, editions);
    hostSettings().partnerEditions = {1, 5};
    QString error;
    QVERIFY2(loadHostSettings(iniFile("[product]\neditions=" + value + '\n'), &error),
             qPrintable(error));
    QCOMPARE(hostSettings().partnerEditions, editions);
}

void tst_HostSettings::readsPaths_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("path");
    const QString folder = TestHome::path() + QStringLiteral("/ini");
    const auto onDrive = [](const char* path) { return absolute(path, TestHome::path()); };
    QTest::newRow("absolute") << QByteArray("/a/b") << onDrive("/a/b");
    QTest::newRow("trailing slash goes") << QByteArray("/a/b/") << onDrive("/a/b");
    QTest::newRow("doubled slashes go") << QByteArray("/a//b") << onDrive("/a/b");
    QTest::newRow("relative to the file") << QByteArray("a/b") << folder + QStringLiteral("/a/b");
    QTest::newRow("the file's folder") << QByteArray(".") << folder;
    QTest::newRow("above the file")
        << QByteArray("../a") << TestHome::path() + QStringLiteral("/a");
    QTest::newRow("UTF-8") << QByteArray("/\xC3\xA9") << onDrive("/\xC3\xA9");
    QTest::newRow("comma, quoted") << QByteArray("\"/a,b\"") << onDrive("/a,b");
    QTest::newRow("comma") << QByteArray("/a,b") << onDrive("/a,b");
    QTest::newRow("semicolon") << QByteArray("/a;b") << onDrive("/a;b");
}

void tst_HostSettings::readsPaths()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, path);
    const QByteArray content = "[paths]\nresources=" + value + "\ndata=" + value
        + "\nappData=" + value + "\ntestOutput=" + value + "\ndeveloperResource=" + value
        + "\n[network]\ncaFile=" + value + '\n';
    const QString file = iniFile(content);
    // Relative to the file, even if the file itself is named relative to the current folder.
    const QString named = QDir::current().relativeFilePath(file);
    QString error;
    QVERIFY2(loadHostSettings(named, &error), qPrintable(error));
    QCOMPARE(hostSettings().resourcesPath, path);
    QCOMPARE(hostSettings().dataLocation, path);
    QCOMPARE(hostSettings().appDataPath, path);
    QCOMPARE(hostSettings().testOutputDir, path);
    QCOMPARE(hostSettings().developerResourceRoot, path);
    QCOMPARE(hostSettings().caFile, path);
}

void tst_HostSettings::aFileThatHasChangedIsReadAgain()
{
    // The same size, and often the same time stamp.
    const QString file = iniFile("");
    for (const char* skin : {"aaa", "bbb", "ccc"}) {
        CatalogueFiles::write(file, QByteArray("[ui]\nskin=") + skin + '\n');
        QVERIFY(loadHostSettings(file, nullptr));
        QCOMPARE(hostSettings().currentSkin, QString::fromLatin1(skin));
    }
}

void tst_HostSettings::productParametersOfSeveralFilesAddUp()
{
    QVERIFY(loadHostSettings(iniFile("[params]\na=1\nb=2\n"), nullptr));
    QVERIFY(loadHostSettings(iniFile("[params]\nb=3\nc=4\n"), nullptr));
    const QMap<QString, QString> expected{{QStringLiteral("a"), QStringLiteral("1")},
                                          {QStringLiteral("b"), QStringLiteral("3")},
                                          {QStringLiteral("c"), QStringLiteral("4")}};
    QCOMPARE(hostSettings().productParams, expected);
}

void tst_HostSettings::errorMayBeNull()
{
    QVERIFY(!loadHostSettings(iniFile("[ui]\nnothing=1\n"), nullptr));
    QVERIFY(!loadHostSettings(QString(), nullptr));
}

void tst_HostSettings::errorStaysOnSuccess()
{
    QString error = QStringLiteral("before");
    QVERIFY(loadHostSettings(iniFile("[ui]\nskin=Calm\n"), &error));
    QCOMPARE(error, QStringLiteral("before"));
}

MV_TEST_MAIN(tst_HostSettings)
#include "tst_HostSettings.moc"
