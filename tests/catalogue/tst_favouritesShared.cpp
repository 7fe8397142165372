// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "support/ThisProcess.h"
#include "support/UnusualFiles.h"

#include <QJsonDocument>
#include <QLockFile>
#include <QProcess>

#include <cstdio>
#include <memory>
#include <vector>

using Files = CatalogueFiles;

/// Tests favourites changed by several processes, and damaged files. The program runs itself as
/// another host, which marks one theme.
class tst_favouritesShared : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void marksOfAnotherProcessStay();
    void marksThatWereReadAreNoChanges_data();
    void marksThatWereReadAreNoChanges();
    void savedMarksAreNoChangesAnyMore();
    void lastChangeOfOneMarkWins();
    void manyProcessesAtATime();
    void damagedFileIsKeptAside_data();
    void damagedFileIsKeptAside();
    void damagedFilesAreNumbered();
    void nothingChangedWritesNothing_data();
    void nothingChangedWritesNothing();
    void fileThatCannotBeReadIsNotReplaced_data();
    void fileThatCannotBeReadIsNotReplaced();
    void lockOfADeadProcessIsBroken();
    void lockFileWithoutAnOwnerBlocksNobody_data();
    void lockFileWithoutAnOwnerBlocksNobody();
    void lockOfALivingProcessIsRespected();
    void failedSaveIsMadeUpFor();
    void leftoversOfEarlierVersionsAreRemoved();
    void linkStaysALink();
    void savingAllReportsTheFirstFailure();

private:
    static MVThemeMgr& mgr() { return CatalogueFixture::manager(); }
    QString file() const { return m_fixture.collectFile("ThemeCollect"); }
    QString folder() const { return QFileInfo(file()).path(); }
    QJsonObject onDisk() const { return QJsonDocument::fromJson(Files::read(file())).object(); }
    static void mark(int number, bool marked = true);
    std::unique_ptr<QProcess> otherHost(int number) const;

    CatalogueFixture m_fixture;
};

namespace {

constexpr int endMs = 60000;
const QByteArray damaged = "{\n    \"{0B6A06DE-34EB-4A48-A499-E1A6E1B85EA6}\": tr";

SCfg_Item theme(int number, bool marked)
{
    SCfg_Item item;
    item.m_eType = eCfgItem_Theme;
    item.m_qsGUID = Files::guid(number);
    item.m_bCollected = marked;
    return item;
}

/// Runs a host that reads the favourites, marks a theme and exits.
int runHost(const QString& data, int number)
{
    hostSettings().dataLocation = data;
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    MVThemeMgr& manager = *MVThemeMgr::init();
    manager.readThemeCollect();
    const SCfg_Item item = theme(number, true);
    manager.setThemesCollected(&item);
    return 0;
}

} // namespace

void tst_favouritesShared::mark(int number, bool marked)
{
    const SCfg_Item item = theme(number, marked);
    mgr().setThemesCollected(&item);
}

std::unique_ptr<QProcess> tst_favouritesShared::otherHost(int number) const
{
    auto host = std::make_unique<QProcess>();
    host->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    host->start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--host"), m_fixture.data(), QString::number(number)});
    return host;
}

void tst_favouritesShared::marksOfAnotherProcessStay()
{
    mgr().readThemeCollect();
    mark(1);
    const auto other = otherHost(2);
    QVERIFY(other->waitForFinished(endMs));
    mgr().saveThemeCollect();
    QCOMPARE(onDisk(), (QJsonObject{{Files::guid(1), true}, {Files::guid(2), true}}));
    QCOMPARE(mgr().favourites(eCfgItem_Theme), (QStringList{Files::guid(1), Files::guid(2)}));
}

/// Rows tell the mark of theme 1: 1, 0 or, without an entry, -1.
void tst_favouritesShared::marksThatWereReadAreNoChanges_data()
{
    QTest::addColumn<int>("read");
    QTest::addColumn<int>("writtenByAnother");
    QTest::addColumn<int>("expected");
    QTest::newRow("another took a mark away") << 1 << 0 << 0;
    QTest::newRow("another removed the entry") << 1 << -1 << -1;
    QTest::newRow("another marked") << 0 << 1 << 1;
    QTest::newRow("an entry without a mark is kept") << 0 << -1 << 0;
}

void tst_favouritesShared::marksThatWereReadAreNoChanges()
{
    QFETCH(int, read);
    QFETCH(int, writtenByAnother);
    const auto write = [this](int mark) {
        const QJsonObject marks{{Files::guid(1), mark == 1}};
        Files::write(file(), QJsonDocument(mark < 0 ? QJsonObject() : marks).toJson());
    };
    write(read);
    mgr().readThemeCollect();
    write(writtenByAnother);
    mark(2);
    mgr().saveThemeCollect();
    const QJsonValue left = onDisk().value(Files::guid(1));
    QTEST(left.isUndefined() ? -1 : int(left.toBool()), "expected");
    QCOMPARE(onDisk().value(Files::guid(2)), QJsonValue(true));
}

/// A mark that another process removes after our last save does not come back with the next one.
void tst_favouritesShared::savedMarksAreNoChangesAnyMore()
{
    mgr().readThemeCollect();
    mark(1);
    mgr().saveThemeCollect();
    QCOMPARE(onDisk(), (QJsonObject{{Files::guid(1), true}}));
    Files::write(file(), QJsonDocument(QJsonObject{{Files::guid(1), false}}).toJson());
    mark(2);
    mgr().saveThemeCollect();
    QCOMPARE(onDisk(), (QJsonObject{{Files::guid(1), false}, {Files::guid(2), true}}));
    QCOMPARE(mgr().favourites(eCfgItem_Theme), QStringList{Files::guid(2)});
}

void tst_favouritesShared::lastChangeOfOneMarkWins()
{
    mgr().readThemeCollect();
    mark(1, false);
    Files::write(file(), QJsonDocument(QJsonObject{{Files::guid(1), true}}).toJson());
    mgr().saveThemeCollect();
    QCOMPARE(onDisk(), (QJsonObject{{Files::guid(1), false}}));
}

void tst_favouritesShared::manyProcessesAtATime()
{
    constexpr int count = 20;
    std::vector<std::unique_ptr<QProcess>> hosts;
    for (int number = 1; number <= count; ++number)
        hosts.push_back(otherHost(number));
    for (const auto& host : hosts) {
        QVERIFY(host->waitForFinished(endMs));
        QCOMPARE(host->exitCode(), 0);
    }
    QCOMPARE(onDisk().size(), count);
    QCOMPARE(Files::filesBelow(folder()), QStringList{QStringLiteral("ThemeCollect.json")});
}

void tst_favouritesShared::damagedFileIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("cut off") << damaged;
    QTest::newRow("text") << QByteArray("not JSON");
    QTest::newRow("no object") << QByteArray("[true]");
}

void tst_favouritesShared::damagedFileIsKeptAside()
{
    QFETCH(QByteArray, content);
    Files::write(file(), content);
    mgr().readThemeCollect();
    mark(1);
    const LogCapture log;
    mgr().saveThemeCollect();
    const QString aside = file() + QStringLiteral(".damaged-1");
    QCOMPARE(Files::read(aside), content);
    QCOMPARE(onDisk(), (QJsonObject{{Files::guid(1), true}}));
    QVERIFY(log.contains("MVThemeMgr", 3,
                         "favourites file [" + file().toUtf8() + "] cannot be parsed, kept as ["
                             + aside.toUtf8() + "]"));
}

void tst_favouritesShared::damagedFilesAreNumbered()
{
    Files::write(file() + QStringLiteral(".damaged-1"), "an earlier one");
    Files::write(file(), damaged);
    mgr().readThemeCollect();
    mark(1);
    mgr().saveThemeCollect();
    QCOMPARE(Files::read(file() + QStringLiteral(".damaged-1")), QByteArray("an earlier one"));
    QCOMPARE(Files::read(file() + QStringLiteral(".damaged-2")), damaged);
}

void tst_favouritesShared::nothingChangedWritesNothing_data()
{
    QTest::addColumn<bool>("reads");
    QTest::newRow("a file that was not read") << false;
    QTest::newRow("a file that could not be parsed") << true;
}

/// Every command of a console host ends with a save.
void tst_favouritesShared::nothingChangedWritesNothing()
{
    QFETCH(bool, reads);
    // This process has already read a file; another process starts afresh.
    Files::write(file(), damaged);
    QProcess host;
    host.start(QCoreApplication::applicationFilePath(),
               {QStringLiteral("--host"), m_fixture.data(),
                reads ? QStringLiteral("ask") : QStringLiteral("idle")});
    QVERIFY(host.waitForFinished(endMs));
    QCOMPARE(host.exitCode(), 0);
    QCOMPARE(Files::read(file()), damaged);
    QCOMPARE(Files::filesBelow(folder()), QStringList{QStringLiteral("ThemeCollect.json")});
}

void tst_favouritesShared::fileThatCannotBeReadIsNotReplaced_data()
{
    QTest::addColumn<bool>("isPipe");
    if (UnusualFiles::hasPipes)
        QTest::newRow("a pipe") << true;
    QTest::newRow("a folder") << false;
}

void tst_favouritesShared::fileThatCannotBeReadIsNotReplaced()
{
    QFETCH(bool, isPipe);
    QVERIFY(QFile::remove(file()));
    if (isPipe)
        UnusualFiles::makePipe(file());
    else
        QVERIFY(QDir().mkpath(file()));
    mark(1);
    mgr().saveThemeCollect();
    const QFileInfo left(file());
    QVERIFY(left.exists() && !left.isFile());
    QCOMPARE(left.isDir(), !isPipe);
    mgr().readThemeCollect(); // it must return
}

void tst_favouritesShared::lockOfADeadProcessIsBroken()
{
    QProcess host;
    host.start(QCoreApplication::applicationFilePath(),
               {QStringLiteral("--host"), m_fixture.data(), QStringLiteral("lock")});
    QVERIFY(host.waitForReadyRead(endMs));
    host.kill();
    QVERIFY(host.waitForFinished(endMs));
    QVERIFY(QFile::exists(file() + QStringLiteral(".lock")));
    mark(1);
    mgr().saveThemeCollect();
    QVERIFY(onDisk().contains(Files::guid(1)));
    QVERIFY(!QFile::exists(file() + QStringLiteral(".lock")));
}

void tst_favouritesShared::lockFileWithoutAnOwnerBlocksNobody_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("killed before it was written") << QByteArray();
    QTest::newRow("killed while it was written") << QByteArray("12");
    // As if the process ID of a dead process had been reused.
    QTest::newRow("number of a living process")
        << QByteArray::number(QCoreApplication::applicationPid()) + '\n'
            + QCoreApplication::applicationName().toUtf8() + '\n'
            + QSysInfo::machineHostName().toUtf8() + '\n';
}

void tst_favouritesShared::lockFileWithoutAnOwnerBlocksNobody()
{
    QFETCH(QByteArray, content);
    const QString lock = file() + QStringLiteral(".lock");
    Files::write(lock, content);
    mark(1);
    QString error;
    QVERIFY2(mgr().saveFavourites(&error), qPrintable(error));
    QVERIFY(onDisk().contains(Files::guid(1)));
    QVERIFY(!QFile::exists(lock));
}

void tst_favouritesShared::lockOfALivingProcessIsRespected()
{
    QLockFile lock(file() + QStringLiteral(".lock"));
    QVERIFY(lock.tryLock());
    mark(1);
    QString error;
    QVERIFY(!mgr().saveFavourites(&error));
    QCOMPARE(error, file() + QStringLiteral(": another program is writing it"));
    QCOMPARE(Files::read(file()), QByteArray("{}"));
    lock.unlock();
    QVERIFY(mgr().saveFavourites(&error));
    QCOMPARE(error, QString());
    QVERIFY(onDisk().contains(Files::guid(1)));
}

void tst_favouritesShared::failedSaveIsMadeUpFor()
{
    mgr().readThemeCollect();
    mark(1);
    const QByteArray content = Files::read(file());
    QVERIFY(QFile::remove(file()) && QDir().mkpath(file()));
    QVERIFY(!mgr().saveFavourites(nullptr));
    QVERIFY(QDir(file()).removeRecursively());
    Files::write(file(), content);
    QVERIFY(mgr().saveFavourites(nullptr));
    QCOMPARE(onDisk(), (QJsonObject{{Files::guid(1), true}}));
}

void tst_favouritesShared::leftoversOfEarlierVersionsAreRemoved()
{
    const QString old = file() + QStringLiteral(".kQzTeW");
    const QString fresh = file() + QStringLiteral(".aBcDeF");
    const QString other = file() + QStringLiteral(".backup1");
    for (const QString& path : {old, fresh, other})
        Files::write(path, "x");
    for (const QString& path : {old, other}) {
        QFile leftover(path);
        QVERIFY(leftover.open(QIODevice::ReadWrite));
        QVERIFY(leftover.setFileTime(QDateTime::currentDateTime().addDays(-1),
                                     QFileDevice::FileModificationTime));
    }
    mark(1);
    mgr().saveThemeCollect();
    QVERIFY(!QFile::exists(old));
    QVERIFY(QFile::exists(fresh)); // another program may be about to rename it
    QVERIFY(QFile::exists(other));
}

void tst_favouritesShared::linkStaysALink()
{
    const QString elsewhere = m_fixture.base() + QStringLiteral("/synchronised.json");
    Files::write(elsewhere, "{}");
    QVERIFY(QFile::remove(file()));
    MV_LINK(elsewhere, file());
    mgr().readThemeCollect();
    mark(1);
    mgr().saveThemeCollect();
    QVERIFY(UnusualFiles::isLink(file()));
    QCOMPARE(QJsonDocument::fromJson(Files::read(elsewhere)).object(),
             (QJsonObject{{Files::guid(1), true}}));
}

void tst_favouritesShared::savingAllReportsTheFirstFailure()
{
    const QString filters = m_fixture.collectFile("FilterCollect");
    QVERIFY(QFile::remove(filters) && QDir().mkpath(filters));
    mark(1);
    SCfg_Item filter = theme(2, true);
    filter.m_eType = eCfgItem_Filter;
    mgr().setItemCollected(&filter);
    QString error;
    QVERIFY(!mgr().saveFavourites(&error));
    QVERIFY2(error.startsWith(filters + QStringLiteral(": cannot be read")), qPrintable(error));
    QCOMPARE(onDisk(), (QJsonObject{{Files::guid(1), true}})); // the other marks are written
}

namespace {

int runOther(const QString& data, const QString& what)
{
    bool isNumber = false;
    const int number = what.toInt(&isNumber);
    if (isNumber)
        return runHost(data, number);
    hostSettings().dataLocation = data;
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    MVThemeMgr& manager = *MVThemeMgr::init();
    if (what == QLatin1String("ask")) {
        manager.readThemeCollect();
        const SCfg_Item item = theme(1, true);
        manager.isThemeCollect(&item);
    }
    if (what != QLatin1String("lock"))
        return 0;
    QLockFile lock(manager.Path_ThemeCollect() + QStringLiteral(".lock"));
    if (!lock.tryLock())
        return 1;
    std::puts("locked");
    std::fflush(stdout);
    ThisProcess::waitForKill();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && qstrcmp(argv[1], "--host") == 0) {
        const QCoreApplication application(argc, argv);
        return runOther(QString::fromLocal8Bit(argv[2]), QString::fromLatin1(argv[3]));
    }
    const TestHome home;
    const QCoreApplication application(argc, argv);
    tst_favouritesShared test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_favouritesShared.moc"
