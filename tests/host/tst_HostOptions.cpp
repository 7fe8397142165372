// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostOptions.h"
#include "host/IniFile.h"
#include "host/LogL.h"
#include "host/ProductParam.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QCommandLineParser>
#include <QDir>

/// Tests the command line options that override a host's settings.
class tst_HostOptions : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings() = HostSettings(); }

    void noneChangeNothing();
    void overrideTheSettings();
    void overrideTheSettingsFile();
    void refusedFileChangesNothing();
    void refuses_data();
    void refuses();
    void serverEndsInASlash_data();
    void serverEndsInASlash();
    void policy_data();
    void policy();
    void keysReplaceThoseOfTheFile();
    void dataFolderIsSharedByPrograms();
    void dataFolderHasSettings_data();
    void dataFolderHasSettings();
    void otherOptionsTakePrecedenceOverTheDataFolder();
    void downloadRootIsAbsolute_data();
    void downloadRootIsAbsolute();
    void logIsDroppedUnlessAskedFor();
};

namespace {

/// Returns whether the options are accepted.
bool read(HostOptions& options, const QStringList& arguments)
{
    QCommandLineParser parser;
    HostOptions::addTo(parser);
    if (!parser.parse(QStringList{text("program")} + arguments))
        qFatal("%s", qPrintable(parser.errorText()));
    return options.read(parser);
}

} // namespace

void tst_HostOptions::noneChangeNothing()
{
    HostOptions options;
    QVERIFY(read(options, {}));
    hostSettings() = HostSettings::recommended();
    QVERIFY(options.apply(nullptr));
    const HostSettings expected = HostSettings::recommended();
    QCOMPARE(hostSettings().resourcesPath, expected.resourcesPath);
    QCOMPARE(hostSettings().productParams, expected.productParams);
    QCOMPARE(hostSettings().releasePolicy, expected.releasePolicy);
    QCOMPARE(hostSettings().releaseKeys, expected.releaseKeys);
}

void tst_HostOptions::overrideTheSettings()
{
    HostOptions options;
    QVERIFY(read(options,
                 {text("--resources"), text("/usr/share/../share/editor"), text("--server"),
                  text("http://host/mv"), text("--param"), text("a=b=c"), text("--param"),
                  text("empty=")}));
    QVERIFY(options.apply(nullptr));
    QCOMPARE(hostSettings().resourcesPath, absolute("/usr/share/editor"));
    QCOMPARE(hostSettings().productParams,
             (QMap<QString, QString>{{QString(ProductParam::serverRoot), text("http://host/mv/")},
                                     {text("a"), text("b=c")},
                                     {text("empty"), QString()}}));
}

void tst_HostOptions::overrideTheSettingsFile()
{
    const QString file = iniFile("[params]\nurl_themeRootDir=http://file/\nother=1\n"
                                 "[release]\npolicy=require\n");
    HostOptions options;
    QVERIFY(read(options,
                 {text("--settings"), file, text("--server"), text("http://option/"),
                  text("--release"), text("ignore")}));
    QVERIFY(options.apply(nullptr));
    QCOMPARE(ProductParam::text(ProductParam::serverRoot), text("http://option/"));
    QCOMPARE(hostSettings().productParams.value(text("other")), text("1"));
    QCOMPARE(hostSettings().releasePolicy, eRelease_Ignore);
}

void tst_HostOptions::refusedFileChangesNothing()
{
    HostOptions options;
    QVERIFY(read(options,
                 {text("--settings"), iniFile("nonsense"), text("--server"), text("http://h/")}));
    QString error;
    QVERIFY(!options.apply(&error));
    QVERIFY2(error.contains(text(".ini:1: ")), qPrintable(error));
    QVERIFY(hostSettings().productParams.isEmpty());
}

void tst_HostOptions::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* arguments, const char* error) {
        QTest::newRow(name) << text(arguments).split(QLatin1Char(' ')) << text(error);
    };
    row("empty settings", "--settings=", "--settings is empty");
    row("empty root", "--root=", "--root is empty");
    row("empty data", "--data=", "--data is empty");
    row("empty resources", "--resources=", "--resources is empty");
    row("empty server", "--server=", "--server takes an http or https address, not \"\"");
    row("server of another scheme", "--server ftp://host/",
        "--server takes an http or https address, not \"ftp://host/\"");
    row("server without host", "--server http:///tree",
        "--server takes an http or https address, not \"http:///tree\"");
    row("server with a broken escape", "--server http://host/%zz/",
        "--server takes an http or https address, not \"http://host/%zz/\"");
    row("parameter without key", "--param =1", "--param takes KEY=VALUE, not \"=1\"");
    row("parameter without value", "--param a", "--param takes KEY=VALUE, not \"a\"");
    row("unknown policy", "--release often",
        "--release takes ignore or use or require, not \"often\"");
    row("empty policy", "--release=", "--release takes ignore or use or require, not \"\"");
    row("key for nothing", "--release ignore --key K", "--key has no effect with --release ignore");
}

void tst_HostOptions::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    HostOptions options;
    QVERIFY(!read(options, arguments));
    QCOMPARE(options.errorText(), error);
}

void tst_HostOptions::serverEndsInASlash_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("server");
    QTest::newRow("without") << text("https://host/mv") << text("https://host/mv/");
    QTest::newRow("with") << text("https://host/mv/") << text("https://host/mv/");
}

void tst_HostOptions::serverEndsInASlash()
{
    QFETCH(QString, given);
    QFETCH(QString, server);
    HostOptions options;
    QVERIFY(read(options, {text("--server"), given}));
    QCOMPARE(options.server, server);
}

void tst_HostOptions::policy_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("policy");
    QTest::newRow("ignore") << text("--release ignore") << int(eRelease_Ignore);
    QTest::newRow("use") << text("--release use") << int(eRelease_Use);
    QTest::newRow("require") << text("--release require") << int(eRelease_Require);
    QTest::newRow("key requires") << text("--key K") << int(eRelease_Require);
    QTest::newRow("key with use") << text("--key K --release use") << int(eRelease_Use);
}

void tst_HostOptions::policy()
{
    QFETCH(QString, arguments);
    QFETCH(int, policy);
    HostOptions options;
    QVERIFY(read(options, arguments.split(QLatin1Char(' '))));
    hostSettings().releasePolicy = policy == eRelease_Ignore ? eRelease_Use : eRelease_Ignore;
    QVERIFY(options.apply(nullptr));
    QCOMPARE(int(hostSettings().releasePolicy), policy);
}

void tst_HostOptions::keysReplaceThoseOfTheFile()
{
    HostOptions options;
    QVERIFY(read(options,
                 {text("--settings"), iniFile("[release]\nkeys=old\n"), text("--key"), text("one"),
                  text("--key"), text("two")}));
    QVERIFY(options.apply(nullptr));
    QCOMPARE(hostSettings().releaseKeys, (QStringList{text("one"), text("two")}));
}

void tst_HostOptions::dataFolderIsSharedByPrograms()
{
    for (const char* program : {"one", "other"}) {
        QCoreApplication::setApplicationName(text(program));
        hostSettings() = HostSettings::recommended();
        HostOptions options;
        QVERIFY(read(options, {text("--data"), text("/srv/../srv/shared")}));
        QVERIFY(options.apply(nullptr));
        QCOMPARE(hostSettings().dataLocation, absolute("/srv/shared"));
        QCOMPARE(hostSettings().appDataPath, absolute("/srv/shared"));
        QCOMPARE(hostSettings().resourcesPath, absolute("/srv/shared/resources"));
        QCOMPARE(options.defaultResources(), absolute("/srv/shared/resources"));
        QCOMPARE(hostSettings().testOutputDir, absolute("/srv/shared/resources"));
        QCOMPARE(options.downloadRoot(), absolute("/srv/shared/download"));
    }
    QCOMPARE(HostOptions().defaultResources(), HostSettings().resourcesPath);
}

void tst_HostOptions::dataFolderHasSettings_data()
{
    QTest::addColumn<QStringList>("more");
    QTest::addColumn<QString>("server");
    QTest::newRow("its own") << QStringList() << text("http://data/");
    QTest::newRow("named ones") << QStringList{text("--settings"),
                                               iniFile("[params]\nurl_themeRootDir=http://file/\n")}
                                << text("http://file/");
}

void tst_HostOptions::dataFolderHasSettings()
{
    QFETCH(QStringList, more);
    QFETCH(QString, server);
    const QString data = home("data");
    CatalogueFiles::write(data + text("/settings.ini"),
                          "[params]\nurl_themeRootDir=http://data/\n[paths]\ndata=elsewhere\n");
    HostOptions options;
    QVERIFY(read(options, QStringList{text("--data"), data} + more));
    QString error;
    QVERIFY2(options.apply(&error), qPrintable(error));
    QCOMPARE(ProductParam::text(ProductParam::serverRoot), server);
    QCOMPARE(hostSettings().dataLocation, data);
}

void tst_HostOptions::otherOptionsTakePrecedenceOverTheDataFolder()
{
    HostOptions options;
    QVERIFY(read(options,
                 {text("--data"), text("/srv/shared"), text("--root"), text("/srv/root"),
                  text("--resources"), text("/usr/share/editor"), text("--settings"),
                  iniFile("[paths]\ntestOutput=/srv/test\n")}));
    QVERIFY(options.apply(nullptr));
    QCOMPARE(options.downloadRoot(), absolute("/srv/root"));
    QCOMPARE(hostSettings().resourcesPath, absolute("/usr/share/editor"));
    QCOMPARE(hostSettings().testOutputDir, absolute("/srv/test", TestHome::path()));
}

void tst_HostOptions::downloadRootIsAbsolute_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("root");
    QTest::newRow("none") << QStringList() << absolute("/data/download");
    QTest::newRow("absolute") << QStringList{text("--root"), text("/tmp/./x/")}
                              << absolute("/tmp/x");
    QTest::newRow("relative") << QStringList{text("--root"), text("x")}
                              << QDir::current().filePath(text("x"));
}

void tst_HostOptions::downloadRootIsAbsolute()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, root);
    HostOptions options;
    QVERIFY(read(options, arguments));
    hostSettings().dataLocation = text("/data");
    QCOMPARE(options.downloadRoot(), root);
}

void tst_HostOptions::logIsDroppedUnlessAskedFor()
{
    const LogSink before = setLogSink({});
    HostOptions quiet;
    QVERIFY(read(quiet, {}));
    QVERIFY(!quiet.verbose);
    quiet.applyLog();
    LogL("a category", 3, "a dropped line"); // as a warning, it would fail the test
    setLogSink(before);
}

MV_TEST_MAIN(tst_HostOptions)
#include "tst_HostOptions.moc"
