// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>

namespace {

QString defaultData()
{
    return TestHome::path() + QStringLiteral("/home/.local/share/mvres");
}

} // namespace

/// Tests the command line of mvres: what it refuses, and how it reports that.
class TestMvresArguments : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void failsForAMissingFile_data();
    void failsForAMissingFile();
    void helpNames_data();
    void helpNames();
    void helpIsPrintedToStandardOutput_data();
    void helpIsPrintedToStandardOutput();
    void versionIsOneLine_data();
    void versionIsOneLine();
    void optionsMayFollowTheCommand();
    void installedResourcesMayBeMissingUnlessNamed();
    void optionsReplaceTheSettings();
    void verboseWritesTheLogToStandardError();
    void writingToAFullDeviceIsAFailure();
};

void TestMvresArguments::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const char* arguments, const char* message) {
        QTest::newRow(name) << QString::fromLatin1(arguments).split(QLatin1Char(' '),
                                                                    Qt::SkipEmptyParts)
                            << QString::fromLatin1(message);
    };
    row("nothing", "", "no command; see mvres --help");
    row("options only", "--json", "no command; see mvres --help");
    row("unknown command", "steal", "unknown command \"steal\"; see mvres --help");
    row("command in capitals", "LIST", "unknown command \"LIST\"; see mvres --help");
    row("unknown option", "list --colour", "Unknown option 'colour'.");
    row("help for Qt's options", "--help-all", "Unknown option 'help-all'.");
    row("option without value", "list --root", "Missing value after '--root'.");
    row("list with two kinds", "list theme filter", "list takes at most one KIND");
    row("list with an unknown kind", "list sound",
        "unknown kind \"sound\": filter, transition, motion, theme or bgmaterial");
    row("show without GUID", "show", "show takes one GUID");
    row("show with two GUIDs", "show {A} {B}", "show takes one GUID");
    row("fetch without GUID", "fetch", "fetch takes at least one GUID");
    row("favourite without GUID", "favourite", "favourite takes one GUID");
    row("favourite with two GUIDs", "favourite {A} {B}", "favourite takes one GUID");
    row("paths with an argument", "paths all", "paths takes no arguments");
    row("check with an argument", "check all", "check takes no arguments");
    row("builtin without DIR", "builtin", "builtin takes one DIR");
    row("builtin with two DIRs", "builtin a b", "builtin takes one DIR");
    row("wait with list", "list --wait", "--wait applies only to check");
    row("off with list", "list --off", "--off applies only to favourite");
    row("need without operand", "need", "need takes a FILE or at least one GUID");
    row("remove without GUID", "remove", "remove takes at least one GUID");
    row("du with an argument", "du all", "du takes no arguments");
    row("clean with an argument", "clean all", "clean takes no arguments");
    row("all with GUIDs", "fetch --all {A}", "fetch takes either GUIDs or --all");
    row("all of verify", "verify --all", "--all applies only to fetch and update");
    row("dry run of verify", "verify {A} --dry-run",
        "--dry-run applies only to fetch, update, remove and clean");
    row("search without words", "search", "search takes at least one WORD");
    row("empty data folder", "list --data=", "--data is empty");
    row("deep update", "update --deep", "--deep applies only to verify");
    row("repair with update", "update --repair", "--repair applies only to verify");
    row("fetch option of verify", "verify --fetch", "--fetch applies only to need");
    row("unknown policy", "list --release often",
        "--release takes ignore or use or require, not \"often\"");
    row("key without use", "list --release ignore --key K",
        "--key has no effect with --release ignore");
    row("malformed key", "list --key K",
        "the key \"K\" is not the public key of minisign: its line in base64 does not hold an "
        "Ed25519 key");
    row("off with fetch", "fetch {A} --off", "--off applies only to favourite");
    row("parameter without value", "list --param hasMV", "--param takes KEY=VALUE, not \"hasMV\"");
    row("parameter without key", "list --param =1", "--param takes KEY=VALUE, not \"=1\"");
    row("second parameter is wrong", "list --param a=1 --param b",
        "--param takes KEY=VALUE, not \"b\"");
    row("server without scheme", "list --server 127.0.0.1:8080",
        "--server takes an http or https address, not \"127.0.0.1:8080\"");
    row("server of another scheme", "list --server ftp://host/",
        "--server takes an http or https address, not \"ftp://host/\"");
    row("server without host", "list --server http:///tree",
        "--server takes an http or https address, not \"http:///tree\"");
    row("server with a bad port", "list --server http://host:port/",
        "--server takes an http or https address, not \"http://host:port/\"");
    row("empty server", "list --server=", "--server takes an http or https address, not \"\"");
    row("empty root", "list --root=", "--root is empty");
    row("empty resources", "list --resources=", "--resources is empty");
    row("empty settings", "list --settings=", "--settings is empty");
}

void TestMvresArguments::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);

    // Only an unknown kind needs a catalogue to be recognised.
    const bool needsCatalogue = arguments.contains(QStringLiteral("sound"));
    if (needsCatalogue)
        arguments << QStringLiteral("--resources")
                  << Mvres::samples() + QStringLiteral("/installed");
    const Outcome outcome = ConsoleProgram::run(Mvres::program(), arguments);

    QCOMPARE(outcome.err, "mvres: " + message.toUtf8() + '\n');
    QCOMPARE(outcome.out.isEmpty(), !arguments.contains(QStringLiteral("--json")));
    QCOMPARE(outcome.status, 2);
    if (!needsCatalogue)
        QVERIFY2(!QDir(defaultData()).exists(), "nothing may be created");
    QDir(defaultData()).removeRecursively();
}

void TestMvresArguments::failsForAMissingFile_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const QString settings = QStringLiteral("--settings");
    const QString list = QStringLiteral("list");

    QTest::newRow("settings file") << QStringList{list, settings, QStringLiteral("none.ini")}
                                   << QStringLiteral("none.ini: no such file");
    QTest::newRow("settings file is a folder")
        << QStringList{list, settings, QStringLiteral("folder")}
        << QStringLiteral("folder: the file cannot be read: not a regular file");
    QTest::newRow("setting") << QStringList{list, settings, QStringLiteral("wrong.ini")}
                             << QStringLiteral("wrong.ini:2: unknown setting paths/nowhere");
    QTest::newRow("resources folder")
        << QStringList{list, QStringLiteral("--resources"), QStringLiteral("none")}
        << QStringLiteral("no such resources folder: BASE/none");
    QTest::newRow("resources folder is a file")
        << QStringList{list, QStringLiteral("--resources"), QStringLiteral("wrong.ini")}
        << QStringLiteral("no such resources folder: BASE/wrong.ini");
    QTest::newRow("resources folder of the settings")
        << QStringList{list, settings, QStringLiteral("missing.ini")}
        << QStringLiteral("no such resources folder: BASE/none");
    QTest::newRow("root is a file")
        << QStringList{list, QStringLiteral("--root"), QStringLiteral("wrong.ini")}
        << QStringLiteral("the download root cannot be created: BASE/wrong.ini");
    QTest::newRow("root below a file")
        << QStringList{list, QStringLiteral("--root"), QStringLiteral("wrong.ini/root")}
        << QStringLiteral("the download root cannot be created: BASE/wrong.ini/root");
}

void TestMvresArguments::failsForAMissingFile()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);

    const Mvres mvres;
    QDir(mvres.base()).mkpath(QStringLiteral("folder"));
    CatalogueFiles::write(mvres.base() + QStringLiteral("/wrong.ini"), "[paths]\nnowhere=x\n");
    CatalogueFiles::write(mvres.base() + QStringLiteral("/missing.ini"),
                          "[paths]\nresources=none\n");
    message.replace(QStringLiteral("BASE"), mvres.base());
    const Outcome outcome = ConsoleProgram::run(Mvres::program(), arguments, mvres.base());

    QCOMPARE(outcome.err, "mvres: " + message.toUtf8() + '\n');
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
}

void TestMvresArguments::helpNames_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"  list [KIND] ",
                             "  show GUID ",
                             "  fetch GUID... ",
                             "  need FILE|GUID...",
                             "  update [GUID...] ",
                             "  verify [GUID...] ",
                             "  remove GUID... ",
                             "  du ",
                             "  clean ",
                             "  favourite GUID ",
                             "  check ",
                             "  builtin DIR ",
                             "  paths ",
                             "KIND is one of filter,",
                             "transition, motion, theme, bgmaterial",
                             "--settings <FILE>",
                             "--server <URL>",
                             "--root <DIR>",
                             "--resources <DIR>",
                             "--param <KEY=VALUE>",
                             "--release <POLICY>",
                             "--key <KEY>",
                             "--all",
                             "--dry-run",
                             "--deep",
                             "--repair",
                             "--fetch",
                             "--json",
                             "--verbose",
                             "--off",
                             "--wait",
                             "--version",
                             "-h, --help",
                             "0 success",
                             "1 failure",
                             "2 bad arguments",
                             "14 cancelled",
                             "31 the disk is full",
                             "32 no permission",
                             "33 a local file",
                             "34 the server cannot be reached",
                             "35 the connection",
                             "36 a file is not on the server",
                             "37 the server reports an error",
                             "38 no usable address",
                             "39 a file is too large",
                             "40 a file is damaged",
                             "50 files are outdated",
                             "51 files are damaged",
                             "52 items are to be fetched",
                             "53 items are unknown",
                             "0 the catalogue is current",
                             "20 it has changed",
                             "21 the server's",
                             "22 the server's is older",
                             "23 the server could not be reached",
                             "24 the server's was rejected",
                             "25 cancelled"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void TestMvresArguments::helpNames()
{
    QFETCH(QString, text);
    static const Outcome outcome =
        ConsoleProgram::run(Mvres::program(), {QStringLiteral("--help")});
    QVERIFY2(outcome.out.contains(text.toUtf8()), outcome.out.constData());
}

void TestMvresArguments::helpIsPrintedToStandardOutput_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("long") << QStringList{QStringLiteral("--help")};
    QTest::newRow("short") << QStringList{QStringLiteral("-h")};
    QTest::newRow("before a wrong command")
        << QStringList{QStringLiteral("--help"), QStringLiteral("steal")};
}

void TestMvresArguments::helpIsPrintedToStandardOutput()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = ConsoleProgram::run(Mvres::program(), arguments);
    QVERIFY(outcome.out.startsWith("Usage: "));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvresArguments::versionIsOneLine_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("long") << QStringLiteral("--version");
    QTest::newRow("short") << QStringLiteral("-v");
}

void TestMvresArguments::versionIsOneLine()
{
    QFETCH(QString, option);
    const Outcome outcome = ConsoleProgram::run(Mvres::program(), {option});
    QCOMPARE(outcome.out, QByteArray("mvres " MV_VERSION "\n"));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvresArguments::optionsMayFollowTheCommand()
{
    Mvres mvres;
    mvres.useSamples();
    const QString json = QStringLiteral("--json");
    const QString kind = QStringLiteral("theme");
    const Outcome behind = mvres.run({QStringLiteral("list"), kind, json});
    const Outcome before = mvres.run({json, QStringLiteral("list"), kind});
    QVERIFY(behind.out.startsWith('['));
    QCOMPARE(behind.out, before.out);
}

/// A downloaded catalogue alone is enough to work with.
void TestMvresArguments::installedResourcesMayBeMissingUnlessNamed()
{
    const Mvres mvres;
    const QString source = Mvres::samples() + QStringLiteral("/installed/Resource");
    for (const char* name : {"resource_config.xml", "resource_display.xml"}) {
        const QString file = QStringLiteral("/ResourceConfig/") + QString::fromLatin1(name);
        CatalogueFiles::write(mvres.root() + QStringLiteral("/Themes") + file,
                              CatalogueFiles::read(source + file));
    }
    const QString settings = mvres.base() + QStringLiteral("/network.ini");
    CatalogueFiles::write(settings, "[network]\ndownloadRetries=0\n");
    const Outcome outcome =
        ConsoleProgram::run(Mvres::program(),
                            {QStringLiteral("--settings"), settings, QStringLiteral("--root"),
                             mvres.root(), QStringLiteral("list"), QStringLiteral("motion")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().size(), 4); // nothing else is shown without its preview
}

void TestMvresArguments::optionsReplaceTheSettings()
{
    Mvres mvres;
    mvres.useSamples();
    mvres.set("paths/resources", mvres.base() + QStringLiteral("/elsewhere"));
    const Outcome outcome = mvres.run({QStringLiteral("--resources"), mvres.installed(),
                                       QStringLiteral("list"), QStringLiteral("motion")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvresArguments::verboseWritesTheLogToStandardError()
{
    Mvres mvres;
    mvres.useSamples();
    const QStringList list{QStringLiteral("list"), QStringLiteral("theme")};
    const Outcome quiet = mvres.run(list);
    const Outcome verbose = mvres.run(list + QStringList{QStringLiteral("--verbose")});
    QCOMPARE(quiet.err, QByteArray());
    QVERIFY2(
        verbose.err.contains("[MVThemeMgr 2] Resource root path: " + mvres.root().toUtf8() + '\n'),
        verbose.err.constData());
    QCOMPARE(verbose.out, quiet.out);
}

void TestMvresArguments::writingToAFullDeviceIsAFailure()
{
    Mvres mvres;
    mvres.useSamples();
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    mvres.start(process, {QStringLiteral("list")});
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray("mvres: standard output cannot be written\n"));
    QCOMPARE(outcome.status, 1);
}

MV_TEST_MAIN(TestMvresArguments)
#include "tst_mvres_arguments.moc"
