// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#ifndef Q_OS_WIN
#include "FolderEvents.h"
#endif

#include <QJsonDocument>
#include <QProcess>

#include <cstdio>
#include <cstdlib>

using Files = CatalogueFiles;

/// Tests which favourites are saved at the end of the process. The program runs itself as a host
/// that ends in various ways.
class tst_MVThemeMgr_exit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void favouritesAreSavedAfterTheEnd_data();
    void favouritesAreSavedAfterTheEnd();
    void firstStartLeavesEmptyObjects();
    void themesAreSavedBeforeFilters();
    void backgroundFavouritesAreNotSaved();
    void killedProcessLeavesTheOldFile();
    void killWhileSavingLeavesAWholeFile();

private:
    QString m_data;
    int m_run = 0;
};

namespace {

constexpr int manyMarks = 20000;

SCfg_Item item(ECfgItemType kind, int number)
{
    SCfg_Item result;
    result.m_eType = kind;
    result.m_qsGUID = Files::guid(number);
    result.m_bCollected = true;
    return result;
}

/// Tells the test that the host has reached this point.
void say(const char* word)
{
    std::puts(word);
    std::fflush(stdout);
}

void mark()
{
    MVThemeMgr& manager = *MVThemeMgr::init();
    manager.load(false);
    const SCfg_Item theme = item(eCfgItem_Theme, 1);
    const SCfg_Item filter = item(eCfgItem_Filter, 2);
    const SCfg_Item background = item(eCfgItem_BgMaterial, 3);
    const SCfg_Item asked = item(eCfgItem_Theme, 4);
    manager.setItemCollected(&theme);
    manager.setItemCollected(&filter);
    manager.setBgMaterialCollected(&background);
    manager.isItemCollect(&asked);
}

[[noreturn]] void saveForever()
{
    MVThemeMgr& manager = *MVThemeMgr::init();
    for (int number = 0; number < manyMarks; ++number) {
        const SCfg_Item theme = item(eCfgItem_Theme, number);
        manager.setThemesCollected(&theme);
    }
    manager.saveThemeCollect();
    say("saved");
    SCfg_Item turned = item(eCfgItem_Theme, 0);
    for (;;) {
        turned.m_bCollected = !turned.m_bCollected; // unchanged marks are not written
        manager.setThemesCollected(&turned);
        manager.saveThemeCollect();
    }
}

/// Runs the host up to its end, which it chooses itself or the test forces.
int runHost(const QString& data, const QString& ending)
{
    hostSettings().dataLocation = data;
    hostSettings().resourcesPath = data + QStringLiteral("/none");
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    if (ending == QLatin1String("save"))
        saveForever();
    if (ending == QLatin1String("first")) {
        MVThemeMgr::init()->load(false);
        return 0;
    }
    mark();
    if (ending == QLatin1String("exit"))
        std::exit(0);
    if (ending == QLatin1String("wait")) {
        say("marked");
        std::getchar();
    }
    return 0;
}

void start(QProcess& host, const QString& data, const char* ending)
{
    host.start(QCoreApplication::applicationFilePath(),
               {QStringLiteral("--host"), data, QString::fromLatin1(ending)});
}

bool endsWell(QProcess& host)
{
    return host.waitForFinished() && host.exitStatus() == QProcess::NormalExit
        && host.exitCode() == 0;
}

bool says(QProcess& host, const QByteArray& word)
{
    QByteArray heard;
    while (!heard.contains(word)) {
        if (!host.waitForReadyRead())
            return false;
        heard += host.readAllStandardOutput();
    }
    return true;
}

void kill(QProcess& host)
{
    host.kill();
    host.waitForFinished();
}

QString file(const QString& data, const char* name)
{
    const QString folder = QString::fromLatin1(name);
    return data + QLatin1Char('/') + folder + QLatin1Char('/') + folder + QStringLiteral(".json");
}

QJsonObject readObject(const QString& path)
{
    return QJsonDocument::fromJson(Files::read(path)).object();
}

} // namespace

void tst_MVThemeMgr_exit::init()
{
    m_data = TestHome::path() + QStringLiteral("/data%1").arg(++m_run);
    for (const char* name : {"ThemeCollect", "FilterCollect", "BgMaterialCollect"})
        Files::write(file(m_data, name), "{\"old\": true}");
}

void tst_MVThemeMgr_exit::favouritesAreSavedAfterTheEnd_data()
{
    QTest::addColumn<QByteArray>("ending");
    QTest::newRow("main returns") << QByteArray("return");
    QTest::newRow("exit is called") << QByteArray("exit");
}

void tst_MVThemeMgr_exit::favouritesAreSavedAfterTheEnd()
{
    QFETCH(QByteArray, ending);
    QProcess host;
    start(host, m_data, ending.constData());
    QVERIFY2(endsWell(host), host.readAllStandardError().constData());
    QCOMPARE(readObject(file(m_data, "ThemeCollect")),
             QJsonObject(
                 {{QStringLiteral("old"), true}, {Files::guid(1), true}, {Files::guid(4), false}}));
    QCOMPARE(readObject(file(m_data, "FilterCollect")),
             QJsonObject({{QStringLiteral("old"), true}, {Files::guid(2), true}}));
}

void tst_MVThemeMgr_exit::firstStartLeavesEmptyObjects()
{
    const QString data = m_data + QStringLiteral("/first");
    QProcess host;
    start(host, data, "first");
    QVERIFY2(endsWell(host), host.readAllStandardError().constData());
    QCOMPARE(Files::filesBelow(data),
             (QStringList{QStringLiteral("FilterCollect/FilterCollect.json"),
                          QStringLiteral("ThemeCollect/ThemeCollect.json")}));
    QCOMPARE(Files::read(file(data, "ThemeCollect")), QByteArray("{\n}\n"));
    QCOMPARE(Files::read(file(data, "FilterCollect")), QByteArray("{\n}\n"));
}

void tst_MVThemeMgr_exit::themesAreSavedBeforeFilters()
{
#ifdef Q_OS_WIN
    QSKIP("This system tells the changes of a folder in another way.");
#else
    FolderEvents events;
    QVERIFY(events.watch(m_data + QStringLiteral("/ThemeCollect"), QStringLiteral("themes")));
    QVERIFY(events.watch(m_data + QStringLiteral("/FilterCollect"), QStringLiteral("filters")));
    QProcess host;
    start(host, m_data, "return");
    QVERIFY(endsWell(host));
    const QStringList appeared = events.appeared();
    const int themes = appeared.indexOf(QStringLiteral("themes/ThemeCollect.json"));
    const int filters = appeared.indexOf(QStringLiteral("filters/FilterCollect.json"));
    QVERIFY2(themes >= 0 && filters > themes, qPrintable(appeared.join(QLatin1Char(' '))));
#endif
}

void tst_MVThemeMgr_exit::backgroundFavouritesAreNotSaved()
{
    QProcess host;
    start(host, m_data, "return");
    QVERIFY(endsWell(host));
    QCOMPARE(Files::read(file(m_data, "BgMaterialCollect")), QByteArray("{\"old\": true}"));
}

void tst_MVThemeMgr_exit::killedProcessLeavesTheOldFile()
{
    QProcess host;
    start(host, m_data, "wait");
    QVERIFY(says(host, "marked"));
    kill(host);
    QCOMPARE(host.exitStatus(), QProcess::CrashExit);
    QCOMPARE(Files::read(file(m_data, "ThemeCollect")), QByteArray("{\"old\": true}"));
    QCOMPARE(Files::read(file(m_data, "FilterCollect")), QByteArray("{\"old\": true}"));
}

void tst_MVThemeMgr_exit::killWhileSavingLeavesAWholeFile()
{
    for (int round = 0; round < 5; ++round) {
        QProcess host;
        start(host, m_data, "save");
        QVERIFY(says(host, "saved"));
        kill(host);
        QCOMPARE(host.exitStatus(), QProcess::CrashExit);
        const QJsonObject marks = readObject(file(m_data, "ThemeCollect"));
        QCOMPARE(marks.size(), manyMarks + 1);
        QVERIFY(marks.value(QStringLiteral("old")).toBool()); // this process must not change it
    }
}

int main(int argc, char** argv)
{
    if (argc == 4 && qstrcmp(argv[1], "--host") == 0) {
        const QCoreApplication application(argc, argv);
        return runHost(QString::fromLocal8Bit(argv[2]), QString::fromLatin1(argv[3]));
    }
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_MVThemeMgr_exit test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_MVThemeMgr_exit.moc"
