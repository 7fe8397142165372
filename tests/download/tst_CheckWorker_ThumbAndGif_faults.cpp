// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFile>

using namespace CheckLines;

using Files = CatalogueFiles;

/// Tests previews that cannot be fetched, and catalogues with file names that are not allowed.
class tst_CheckWorker_ThumbAndGif_faults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void previewsFailOneByOne_data();
    void previewsFailOneByOne();
    void failedPreviewLeavesNothing_data();
    void failedPreviewLeavesNothing();
    void nextRunFetchesWhatFailed();
    void unreachableServer();
    void rootWithoutASlashNamesNoOtherHost();
    void folderIsMissingOrAFile();
    void namesThatLeadOutside_data();
    void namesThatLeadOutside();
    void linkInTheTreeIsNotFollowed();

private:
    void run()
    {
        DownloadTrace trace;
        CheckWorker_ThumbAndGif worker;
        CheckWorld::watch(worker, trace);
        m_ok = worker.onStartDownload_ThumbAndGif();
        m_entries = trace.entries();
    }
    void serveTwoThemes();

    CheckWorld m_world;
    QStringList m_entries;
    bool m_ok = false;
};

namespace {

const char* const previewNames[] = {"t1.jpg", "t1.gif", "t2.jpg", "t2.gif"};

} // namespace

void tst_CheckWorker_ThumbAndGif_faults::init()
{
    m_world.fresh();
    CheckWorld::setParam("hasMV", "1");
}

void tst_CheckWorker_ThumbAndGif_faults::serveTwoThemes()
{
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {1, 2}, {});
    for (const char* name : previewNames)
        m_world.serve(CheckWorld::previewTarget("Themes", name), name);
}

void tst_CheckWorker_ThumbAndGif_faults::previewsFailOneByOne_data()
{
    QTest::addColumn<int>("failing");
    for (int i = 0; i < 4; ++i)
        QTest::newRow(previewNames[i]) << i;
}

void tst_CheckWorker_ThumbAndGif_faults::previewsFailOneByOne()
{
    QFETCH(int, failing);
    serveTwoThemes();
    m_world.route(CheckWorld::previewTarget("Themes", previewNames[failing]),
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(500).body("no")); });
    run();
    QVERIFY(m_ok);
    QVERIFY(m_entries.contains(QStringLiteral("result 3 0 1 1 0")));
    QCOMPARE(m_entries.last(), QStringLiteral("end 1"));
    for (int i = 0; i < 4; ++i) {
        const char* const what = i % 2 == 0 ? "Thumb" : "Gif";
        const QString url = m_world.previewUrl("Themes", previewNames[i]);
        const QString file = m_world.preview("Themes", previewNames[i]);
        QCOMPARE(m_entries.count(previewError(what, i / 2, url, file)), int(i == failing));
        QCOMPARE(m_entries.count(previewOk(what, i / 2, url, file)), int(i != failing));
        QCOMPARE(QFile::exists(file), i != failing);
    }
}

void tst_CheckWorker_ThumbAndGif_faults::failedPreviewLeavesNothing_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("not found") << HttpAnswer(404).body("x").bytes();
    QTest::newRow("cut off")
        << HttpAnswer(200).field("Content-Length", "1000").bareBody("beginning").bytes();
    QTest::newRow("no answer") << QByteArray();
    QTest::newRow("not HTTP") << QByteArray("hello\r\n\r\n");
}

void tst_CheckWorker_ThumbAndGif_faults::failedPreviewLeavesNothing()
{
    QFETCH(QByteArray, answer);
    serveTwoThemes();
    m_world.route(CheckWorld::previewTarget("Themes", "t1.gif"), [answer](HttpExchange& exchange) {
        exchange.send(answer);
        exchange.close();
    });
    run();
    QVERIFY(m_ok);
    QVERIFY(m_entries.contains(QStringLiteral("result 3 0 1 1 0")));
    QCOMPARE(Files::filesBelow(m_world.root() + QStringLiteral("/Themes/display")),
             (QStringList{QStringLiteral("PQD/Download/Themes/t1.jpg"),
                          QStringLiteral("PQD/Download/Themes/t2.gif"),
                          QStringLiteral("PQD/Download/Themes/t2.jpg")}));
}

void tst_CheckWorker_ThumbAndGif_faults::nextRunFetchesWhatFailed()
{
    serveTwoThemes();
    m_world.setFault([](HttpExchange& exchange, int number) {
        if (number <= 2)
            exchange.answer(HttpAnswer(500).body("no"));
        return number <= 2;
    });
    run();
    QVERIFY(m_entries.contains(QStringLiteral("result 2 0 2 1 0")));
    run();
    QVERIFY(m_entries.contains(QStringLiteral("result 2 2 0 1 0")));
    QCOMPARE(m_world.targets().size(), 6);
}

void tst_CheckWorker_ThumbAndGif_faults::unreachableServer()
{
    serveTwoThemes();
    const QByteArray root =
        "http://127.0.0.1:" + QByteArray::number(FaultServer::refusingPort()) + '/';
    CheckWorld::setParam("url_themeRootDir", root.constData());
    run();
    QVERIFY(m_ok);
    QVERIFY(m_entries.contains(QStringLiteral("result 0 0 4 1 0")));
}

/// The folder's name would be appended to the host's, and a proxy would resolve any host.
void tst_CheckWorker_ThumbAndGif_faults::rootWithoutASlashNamesNoOtherHost()
{
    serveTwoThemes();
    hostSettings().proxy = m_world.server().url(QString());
    CheckWorld::setParam("url_themeRootDir", "http://files.example");
    run();
    QVERIFY(m_ok);
    QVERIFY(m_entries.contains(QStringLiteral("result 0 0 4 1 0")));
    QCOMPARE(m_world.targets(), QByteArrayList());

    CheckWorld::setParam("url_themeRootDir", "http://files.example/");
    run();
    QVERIFY(m_world.targets().contains("http://files.example/display/Themes/t1.jpg"));
}

void tst_CheckWorker_ThumbAndGif_faults::folderIsMissingOrAFile()
{
    serveTwoThemes();
    const QString folder = m_world.root() + QStringLiteral("/Themes/display/PQD/Download/Themes");
    QVERIFY(QDir(folder).removeRecursively());
    run();
    QVERIFY(m_entries.contains(QStringLiteral("result 4 0 0 1 0")));
    QVERIFY(QDir(folder).removeRecursively());
    Files::write(folder, "a file");
    run();
    QVERIFY(m_entries.contains(QStringLiteral("result 0 0 4 1 0")));
    QCOMPARE(Files::read(folder), QByteArray("a file"));
}

void tst_CheckWorker_ThumbAndGif_faults::namesThatLeadOutside_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("status");
    const auto row = [](const char* title, const char* name) {
        for (const int status : {200, 404})
            QTest::addRow("%s, %d", title, status) << QString::fromLatin1(name) << status;
    };
    row("up", "../../../../../../precious.txt");
    row("up, absolute", "/../../../../../precious.txt");
    row("up, encoded", "/%2e%2e/%2e%2e/../../%2E%2E/precious.txt");
    row("up to a new folder", "../../../../../../new/file.jpg");
    row("backslashes", "..\\..\\precious.txt");
    row("just up", "..");
}

/// Nothing is created or written outside, and existing files there are not removed.
void tst_CheckWorker_ThumbAndGif_faults::namesThatLeadOutside()
{
    QFETCH(QString, name);
    QFETCH(int, status);
    const QString precious = m_world.base() + QStringLiteral("/precious.txt");
    Files::write(precious, "precious");
    MVThemeMgr* const manager = MVThemeMgr::init();
    const QString theme = Files::guid(1);
    const QString filter = Files::guid(2);
    Files::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config),
        Files::document(Files::cfgGroup(QStringLiteral("Filter"), {{filter, {}, {}}})
                        + Files::cfgGroup(QStringLiteral("Theme"), {{theme, {}, {}}})));
    Files::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Display),
        Files::document(
            Files::displayCategory(QStringLiteral("Filter"), {{filter, QStringLiteral("f"), name}})
            + Files::displayThemes(
                {{QStringLiteral("others"), {{theme, QStringLiteral("t"), name, name, {}}}}})));
    const QStringList before = Files::filesBelow(m_world.base());
    m_world.setFault([status](HttpExchange& exchange, int) {
        exchange.answer(HttpAnswer(status).body("hostile"));
        return true;
    });
    run();
    QVERIFY(m_ok);
    QCOMPARE(Files::read(precious), QByteArray("precious"));
    QStringList after = Files::filesBelow(m_world.base());
    for (const QString& file : before)
        after.removeOne(file);
    for (const QString& file : std::as_const(after))
        QVERIFY2(file.startsWith(QStringLiteral("root/Themes/display/")), qPrintable(file));
    QVERIFY(!QDir(m_world.base() + QStringLiteral("/new")).exists());
}

void tst_CheckWorker_ThumbAndGif_faults::linkInTheTreeIsNotFollowed()
{
    serveTwoThemes();
    const QString outside = m_world.base() + QStringLiteral("/outside");
    const QString folder = m_world.root() + QStringLiteral("/Themes/display/PQD/Download/Themes");
    QVERIFY(QDir(folder).removeRecursively());
    QDir().mkpath(outside);
    MV_LINK(outside, folder);
    run();
    QVERIFY(m_entries.contains(QStringLiteral("result 0 0 4 1 0")));
    QCOMPARE(m_world.targets(), QByteArrayList());
    QVERIFY(QDir(outside).isEmpty());
}

MV_TEST_MAIN(tst_CheckWorker_ThumbAndGif_faults)

#include "tst_CheckWorker_ThumbAndGif_faults.moc"
