// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "faults/FaultyRun.h"
#include "host/HostSettings.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <cstring>

#include <sys/stat.h>

using namespace std::chrono_literals;

namespace {

const QString report = QStringLiteral("/report");

/// Downloads one address into each file, in turn. The program runs itself for that.
int downloadAsChild(const QStringList& arguments)
{
    hostSettings().checkContent = true;
    CurWrapper wrapper;
    const QStringList files = arguments.mid(2);
    for (const QString& file : files) {
        wrapper.download(arguments.at(1), file, false);
        if (wrapper.result() != 0) {
            std::fputs(qPrintable(wrapper.errorText()), stderr);
            return wrapper.result();
        }
    }
    return 0;
}

/// Sends the first half at once, and the rest when it is wanted.
FaultServer::Handler sendingRestWhen(const std::atomic<bool>& isWanted)
{
    return [&isWanted](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Content-Length", "2000").bareBody(pattern(1000)));
        for (int i = 0; !isWanted && i < 3000; ++i)
            exchange.pause(10ms);
        exchange.send(pattern(2000).mid(1000));
    };
}

/// Returns whether the process has half of a file, without a name, open in the folder.
bool hasUnnamedHalf(const QProcess& process, const QString& folder)
{
    const QDir handles(QStringLiteral("/proc/%1/fd").arg(process.processId()));
    const QFileInfoList files =
        handles.entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo& file : files) {
        const QString target = file.symLinkTarget();
        struct stat status = {};
        if (target.startsWith(folder + QStringLiteral("/#"))
            && ::stat(file.filePath().toLocal8Bit().constData(), &status) == 0
            && status.st_nlink == 0 && status.st_size == 1000)
            return true;
    }
    return false;
}

} // namespace

/// Tests downloads into files that have no name until they are whole, and what happens where the
/// system lacks them.
class TestCurWrapperUnnamed : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void killLeavesWhatWasThere_data();
    void killLeavesWhatWasThere();
    void twoProgramsDownloadTheSameFile_data();
    void twoProgramsDownloadTheSameFile();
    void sweepOfAnotherProgramDoesNoHarm();
    void targetThatAppearsMeanwhileIsReplaced();
    void permissionsAreThoseOfAnyNewFile_data();
    void permissionsAreThoseOfAnyNewFile();
    void operations_data();
    void operations();
    void worksWithoutSupport_data();
    void worksWithoutSupport();
    void failureIsToldAndLeavesNothing_data();
    void failureIsToldAndLeavesNothing();

private:
    static QStringList arguments(const QString& url, const QStringList& files)
    {
        return QStringList{QStringLiteral("--download"), url} + files;
    }
    static void start(QProcess& child, const QString& url, const Download& into)
    {
        child.start(QCoreApplication::applicationFilePath(), arguments(url, {into.target()}));
    }
    static FaultyOutcome traced(const FaultyRun& runner, const QString& url,
                                const QStringList& files)
    {
        return runner.trace(QCoreApplication::applicationFilePath(), arguments(url, files));
    }
};

namespace {

/// Returns how the creation of a file without a name is reported: with that of its folder.
QString creation(const QString& folder)
{
    return QStringLiteral("create ") + QFileInfo(folder).fileName();
}

/// Returns the operations by which files of that folder begin, change or get their names.
QStringList onFiles(const FaultyOutcome& outcome, const QString& folder)
{
    QStringList texts = outcome.operationTexts();
    texts.replaceInStrings(creation(folder), QStringLiteral("create UNNAMED"));
    for (const char* read : {"read UNNAMED", "read PART"})
        texts.removeAll(QString::fromLatin1(read));
    texts.removeAll(QStringLiteral("openfolder ") + QFileInfo(folder).fileName());
    return texts;
}

/// The operations with which a process tries whether files without a name can be given one.
const QStringList trial{QStringLiteral("create UNNAMED"), QStringLiteral("link PART"),
                        QStringLiteral("remove PART")};

} // namespace

void TestCurWrapperUnnamed::initTestCase()
{
    const Download download;
    const FaultyRun runner(download.folder(), TestHome::path() + report);
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    const FaultyOutcome outcome =
        traced(runner, server.url(QStringLiteral("/file")), {download.target()});
    QCOMPARE(outcome.status, 0);
    if (!onFiles(outcome, download.folder()).contains(QStringLiteral("link file.bin")))
        QSKIP("This system or file system has no files without a name.");
}

void TestCurWrapperUnnamed::killLeavesWhatWasThere_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("an older file") << QStringList{QStringLiteral("file.bin")};
}

void TestCurWrapperUnnamed::killLeavesWhatWasThere()
{
    QFETCH(QStringList, files);
    const std::atomic<bool> isWanted{false};
    FaultServer server(sendingRestWhen(isWanted));
    const Download download;
    for (const QString& file : qAsConst(files))
        CatalogueFiles::write(download.folder() + QLatin1Char('/') + file, "older");
    QProcess child;
    start(child, server.url(QStringLiteral("/file")), download);
    QTRY_VERIFY_WITH_TIMEOUT(hasUnnamedHalf(child, download.folder()), 20000);
    QCOMPARE(download.files(), files);
    child.kill();
    QVERIFY(child.waitForFinished());
    QCOMPARE(download.files(), files);
    QCOMPARE(download.content(), files.isEmpty() ? QByteArray() : QByteArray("older"));
}

void TestCurWrapperUnnamed::twoProgramsDownloadTheSameFile_data()
{
    killLeavesWhatWasThere_data();
}

/// The second one to end finds the target there and replaces it.
void TestCurWrapperUnnamed::twoProgramsDownloadTheSameFile()
{
    QFETCH(QStringList, files);
    std::atomic<bool> isWanted{false};
    FaultServer server(sendingRestWhen(isWanted));
    const Download download;
    for (const QString& file : qAsConst(files))
        CatalogueFiles::write(download.folder() + QLatin1Char('/') + file, "older");
    QProcess children[2];
    for (QProcess& child : children) {
        start(child, server.url(QStringLiteral("/file")), download);
        QTRY_VERIFY_WITH_TIMEOUT(hasUnnamedHalf(child, download.folder()), 20000);
    }
    isWanted = true;
    for (QProcess& child : children) {
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitCode(), 0);
    }
    QCOMPARE(download.files(), QStringList{QStringLiteral("file.bin")});
    QCOMPARE(download.content(), pattern(2000));
}

void TestCurWrapperUnnamed::sweepOfAnotherProgramDoesNoHarm()
{
    std::atomic<bool> isWanted{false};
    FaultServer slow(sendingRestWhen(isWanted));
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    QProcess child;
    start(child, slow.url(QStringLiteral("/file")), download);
    QTRY_VERIFY_WITH_TIMEOUT(hasUnnamedHalf(child, download.folder()), 20000);
    const QString other = download.folder() + QStringLiteral("/other.bin");
    download.wrapper().download(server.url(QStringLiteral("/file")), other, false);
    isWanted = true;
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitCode(), 0);
    QCOMPARE(download.files(),
             (QStringList{QStringLiteral("file.bin"), QStringLiteral("other.bin")}));
    QCOMPARE(download.content(), pattern(2000));
}

void TestCurWrapperUnnamed::targetThatAppearsMeanwhileIsReplaced()
{
    FaultServer server(answering(HttpAnswer(200).body(pattern(1000))));
    Download download;
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call&) {
        CatalogueFiles::write(download.target(), "meanwhile");
        return true;
    });
    download.wrapper().download(server.url(QStringLiteral("/file")), download.target(), false);
    QCOMPARE(download.wrapper().result(), 0);
    QCOMPARE(download.files(), QStringList{QStringLiteral("file.bin")});
    QCOMPARE(download.content(), pattern(1000));
}

void TestCurWrapperUnnamed::permissionsAreThoseOfAnyNewFile_data()
{
    QTest::addColumn<uint>("mask");
    QTest::newRow("usual") << 022U;
    QTest::newRow("private") << 077U;
    QTest::newRow("shared with a group") << 002U;
    QTest::newRow("open") << 0U;
}

void TestCurWrapperUnnamed::permissionsAreThoseOfAnyNewFile()
{
    QFETCH(uint, mask);
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    const mode_t before = ::umask(mask);
    download.wrapper().download(server.url(QStringLiteral("/file")), download.target(), false);
    ::umask(before);
    QCOMPARE(download.wrapper().result(), 0);
    struct stat status = {};
    QCOMPARE(::stat(download.target().toLocal8Bit().constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U, 0666U & ~mask);
    QCOMPARE(uint(status.st_nlink), 1U);
}

void TestCurWrapperUnnamed::operations_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("expected");
    const QStringList written{QStringLiteral("create UNNAMED"), QStringLiteral("write UNNAMED"),
                              QStringLiteral("close UNNAMED")};
    const QStringList added = written + QStringList{QStringLiteral("link file.bin")};
    const QStringList replaced =
        written + QStringList{QStringLiteral("link PART"), QStringLiteral("rename file.bin")};
    QTest::newRow("new") << QStringList() << added;
    QTest::newRow("replaced") << QStringList{QStringLiteral("file.bin")} << replaced;
}

void TestCurWrapperUnnamed::operations()
{
    QFETCH(QStringList, present);
    QFETCH(QStringList, expected);
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    const Download download;
    for (const QString& file : qAsConst(present))
        CatalogueFiles::write(download.folder() + QLatin1Char('/') + file, "older");
    const FaultyRun runner(download.folder(), TestHome::path() + report);
    const FaultyOutcome outcome =
        traced(runner, server.url(QStringLiteral("/file")), {download.target()});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(onFiles(outcome, download.folder()), trial + expected);
    QCOMPARE(download.content(), QByteArray("the file"));
}

void TestCurWrapperUnnamed::worksWithoutSupport_data()
{
    QTest::addColumn<QStringList>("lacking");
    QTest::addColumn<QStringList>("atFirst");
    QTest::addColumn<bool>("isUnnamed");
    const QString unnamed = QStringLiteral("unnamed");
    const QString emptyPath = QStringLiteral("emptypath");
    const QString procPath = QStringLiteral("procpath");
    QTest::newRow("no such files") << QStringList{unnamed} << QStringList() << false;
    QTest::newRow("names only through /proc") << QStringList{emptyPath} << trial << true;
    QTest::newRow("no /proc") << QStringList{procPath} << trial << true;
    QTest::newRow("no way to name them")
        << QStringList{emptyPath, procPath} << QStringList{trial.first()} << false;
}

/// A process tries each way once.
void TestCurWrapperUnnamed::worksWithoutSupport()
{
    QFETCH(QStringList, lacking);
    QFETCH(QStringList, atFirst);
    QFETCH(bool, isUnnamed);
    // Looked into before it gets its name.
    const QByteArray picture = "GIF89a" + pattern(1000);
    FaultServer server(answering(HttpAnswer(200).body(picture)));
    const Download download;
    FaultyRun runner(download.folder(), TestHome::path() + report);
    for (const QString& feature : qAsConst(lacking))
        runner.setWithout(feature);
    const QStringList names{QStringLiteral("1.gif"), QStringLiteral("2.gif")};
    QStringList paths;
    QStringList expected = atFirst;
    for (const QString& name : names) {
        paths.append(download.folder() + QLatin1Char('/') + name);
        const QString kind = isUnnamed ? QStringLiteral("UNNAMED") : QStringLiteral("PART");
        for (const char* operation : {"create ", "write ", "close "})
            expected.append(QLatin1String(operation) + kind);
        expected.append((isUnnamed ? QStringLiteral("link ") : QStringLiteral("rename ")) + name);
    }
    const FaultyOutcome outcome = traced(runner, server.url(QStringLiteral("/file")), paths);
    QVERIFY2(outcome.status == 0, outcome.err.constData());
    QCOMPARE(onFiles(outcome, download.folder()), expected);
    QCOMPARE(download.files(), names);
    for (const QString& path : qAsConst(paths))
        QCOMPARE(CatalogueFiles::read(path), picture);
}

void TestCurWrapperUnnamed::failureIsToldAndLeavesNothing_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<Fault>("fault");
    const QStringList older{QStringLiteral("file.bin")};
    const auto row = [](const char* name, const QStringList& present, const char* operation,
                        FaultKind kind, bool stays) {
        QTest::newRow(name) << present << QString::fromLatin1(operation) << Fault{kind, 0, stays};
    };
    row("no room", {}, "create UNNAMED", FaultKind::DiskFull, true);
    row("not allowed", {}, "create UNNAMED", FaultKind::Refused, true);
    row("no room to write", {}, "write UNNAMED", FaultKind::DiskFull, false);
    row("late failure", {}, "close UNNAMED", FaultKind::Broken, false);
    row("no room for the name", {}, "link file.bin", FaultKind::DiskFull, false);
    row("name not allowed", {}, "link file.bin", FaultKind::Refused, false);
    row("no room for a temporary name", older, "link PART", FaultKind::DiskFull, false);
    row("not replaced", older, "rename file.bin", FaultKind::Broken, false);
}

void TestCurWrapperUnnamed::failureIsToldAndLeavesNothing()
{
    QFETCH(QStringList, present);
    QFETCH(QString, operation);
    QFETCH(Fault, fault);
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    const QString url = server.url(QStringLiteral("/file"));
    const Download download;
    const FaultyRun runner(download.folder(), TestHome::path() + report);
    const auto prepare = [&] {
        QFile::remove(download.target());
        for (const QString& file : qAsConst(present))
            CatalogueFiles::write(download.folder() + QLatin1Char('/') + file, "older");
    };
    if (operation == QStringLiteral("create UNNAMED"))
        operation = creation(download.folder());
    prepare();
    fault.at = traced(runner, url, {download.target()}).numberOf(operation);
    QVERIFY(fault.at > 0);

    prepare();
    const FaultyOutcome outcome = runner.run(QCoreApplication::applicationFilePath(),
                                             arguments(url, {download.target()}), fault);
    QCOMPARE(outcome.hit.number, fault.at);
    QCOMPARE(outcome.status, int(eTransfer_LocalFile));
    const QByteArray reason = std::strerror(errorOf(fault.kind));
    QVERIFY2(outcome.err.contains(download.target().toUtf8() + ": " + reason),
             outcome.err.constData());
    QCOMPARE(download.files(), present);
    QCOMPARE(download.content(), present.isEmpty() ? QByteArray() : QByteArray("older"));
}

int main(int argc, char** argv)
{
    if (argc > 3 && qstrcmp(argv[1], "--download") == 0) {
        const QCoreApplication application(argc, argv);
        return downloadAsChild(QCoreApplication::arguments().mid(1));
    }
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    TestCurWrapperUnnamed test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CurWrapper_unnamed.moc"
