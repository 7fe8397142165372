// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMap>

#include <csignal>

namespace {

QMap<QString, QByteArray> contentOf(const QString& folder)
{
    QMap<QString, QByteArray> content;
    const QStringList files = CatalogueFiles::filesBelow(folder);
    for (const QString& file : files)
        content.insert(file, CatalogueFiles::read(folder + QLatin1Char('/') + file));
    return content;
}

} // namespace

/// Tests mvpublish build after builds that were killed, and next to a running one.
class TestMvpublishKilled : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void leftLockBlocksNobody_data();
    void leftLockBlocksNobody();
    void lockOfAKilledBuildBlocksNobody();
    void buildsExcludeEachOther_data();
    void buildsExcludeEachOther();
    void treeIsPutBackAfterAKillBetweenTheRenames_data();
    void treeIsPutBackAfterAKillBetweenTheRenames();
    void treeIsPutBackInAnEmptyFolder();
    void treeIsKeptIfItsPlaceIsOccupied();

private:
    QString place(const char* name) const { return m_folder + QLatin1Char('/') + text(name); }
    Outcome build(const QString& out) const
    {
        return Mvpublish::run({text("build"), m_source->folder(), out});
    }
    void killBetweenTheRenames(const QString& out) const;

    const QString m_folder{home("places")};
    std::unique_ptr<SmallSource> m_source;
};

void TestMvpublishKilled::init()
{
    QDir(m_folder).removeRecursively();
    QVERIFY(QDir().mkpath(m_folder));
    m_source = std::make_unique<SmallSource>(TestHome::path() + text("/source"));
}

void TestMvpublishKilled::leftLockBlocksNobody_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    // As if the process ID of a dead process had been reused.
    const QByteArray number = QByteArray::number(QCoreApplication::applicationPid());
    QTest::newRow("number of a living process") << number + "\nmvpublish\n";
    QTest::newRow("number, program and machine") << number + '\n'
            + QCoreApplication::applicationName().toUtf8() + '\n'
            + QSysInfo::machineHostName().toUtf8() + '\n';
    QTest::newRow("something else") << QByteArray("\0\xff no number", 13);
}

/// Only the kernel's lock counts.
void TestMvpublishKilled::leftLockBlocksNobody()
{
    QFETCH(QByteArray, content);
    CatalogueFiles::write(place(".tree.lock"), content);
    const Outcome outcome = build(place("tree"));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY(!QFileInfo::exists(place(".tree.lock")));
}

void TestMvpublishKilled::lockOfAKilledBuildBlocksNobody()
{
    const QString work = m_source->addWork();
    QProcess process;
    process.start(Mvpublish::program(), {text("build"), m_source->folder(), place("tree")});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(place(".tree.new/config")), 20000);
    ConsoleProgram::signal(process, SIGKILL);
    QCOMPARE(ConsoleProgram::end(process).status, -1);
    QVERIFY(QFileInfo::exists(place(".tree.lock")));
    QVERIFY(QFile::remove(work));
    QCOMPARE(build(place("tree")).err, QByteArray());
    QCOMPARE(QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{text("tree")});
}

void TestMvpublishKilled::buildsExcludeEachOther_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("same place") << place("tree") << place("tree");
    QTest::newRow("place and a link to it") << place("tree") << place("link");
    QTest::newRow("link and the place") << place("link") << place("tree");
}

/// The first build is stopped by a signal, so that it lasts as long as needed.
void TestMvpublishKilled::buildsExcludeEachOther()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QVERIFY(QDir().mkdir(place("tree")));
    QVERIFY(QFile::link(place("tree"), place("link")));
    const QString work = m_source->addWork();
    QProcess process;
    process.start(Mvpublish::program(), {text("build"), m_source->folder(), first});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(place(".tree.new/config")), 20000);
    ConsoleProgram::signal(process, SIGSTOP);
    const Outcome outcome = build(second);
    ConsoleProgram::signal(process, SIGCONT);
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: ") + place("tree") + text(" is being written by another run\n"));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(ConsoleProgram::end(process).status, 0);
    QVERIFY(QFileInfo::exists(place("tree/ResourceConfig/resource_config.xml")));
    QVERIFY(QFile::remove(work));
    QCOMPARE(build(second).status, 0);
}

/// Builds over an existing tree, with a kill when the old tree is aside and the new one not yet in
/// place.
void TestMvpublishKilled::killBetweenTheRenames(const QString& out) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("LD_PRELOAD"), text(KILL_BETWEEN_RENAMES));
    environment.insert(text("ASAN_OPTIONS"), text("verify_asan_link_order=0"));
    process.setProcessEnvironment(environment);
    process.start(Mvpublish::program(), {text("build"), m_source->folder(), out});
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, -1);
    QVERIFY(!QFileInfo::exists(out));
}

void TestMvpublishKilled::treeIsPutBackAfterAKillBetweenTheRenames_data()
{
    QTest::addColumn<QString>("out");
    QTest::addColumn<QStringList>("links");
    const QStringList none;
    QTest::newRow("folder") << text("trees/tree") << none;
    QTest::newRow("link") << text("live") << QStringList{text("live"), place("trees/tree")};
    QTest::newRow("link with a relative target")
        << text("live") << QStringList{text("live"), text("trees/../trees/tree")};
    QTest::newRow("link to a link")
        << text("live")
        << QStringList{text("live"), text("next"), text("next"), text("trees/tree")};
    QTest::newRow("link below a link")
        << text("door/live")
        << QStringList{text("door"), text("trees/room"), text("trees/room/live"), text("../tree")};
}

void TestMvpublishKilled::treeIsPutBackAfterAKillBetweenTheRenames()
{
    QFETCH(QString, out);
    QFETCH(QStringList, links);
    QVERIFY(QDir().mkpath(place("trees/tree")) && QDir().mkpath(place("trees/room")));
    for (int i = 0; i + 1 < links.size(); i += 2)
        QVERIFY(QFile::link(links.at(i + 1), m_folder + QLatin1Char('/') + links.at(i)));
    out = m_folder + QLatin1Char('/') + out;
    QCOMPARE(build(out).err, QByteArray());
    const auto before = contentOf(place("trees/tree"));
    QVERIFY(!before.isEmpty());
    m_source->set(text("look"), "name", text("New"));
    killBetweenTheRenames(out);
    QVERIFY(!QFileInfo::exists(place("trees/tree")));

    // A build that fails restores the tree, too.
    m_source->set(text("look"), "name", QString());
    QCOMPARE(build(out).status, 1);
    QVERIFY(contentOf(out) == before);
    m_source->set(text("look"), "name", text("Newer"));
    killBetweenTheRenames(out);
    const Outcome outcome = build(out);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY(CatalogueFiles::read(out + text("/ResourceConfig/resource_display.xml"))
                .contains("<Name>Newer</Name>"));
    QCOMPARE(QDir(place("trees")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             (QStringList{text("room"), text("tree")}));
}

/// A server's start script may have created the missing folder.
void TestMvpublishKilled::treeIsPutBackInAnEmptyFolder()
{
    QCOMPARE(build(place("tree")).status, 0);
    const auto before = contentOf(place("tree"));
    killBetweenTheRenames(place("tree"));
    QVERIFY(QDir().mkdir(place("tree")));
    m_source->set(text("look"), "name", QString());
    QCOMPARE(build(place("tree")).status, 1);
    QVERIFY(contentOf(place("tree")) == before);
}

void TestMvpublishKilled::treeIsKeptIfItsPlaceIsOccupied()
{
    QCOMPARE(build(place("tree")).status, 0);
    const auto before = contentOf(place("tree"));
    killBetweenTheRenames(place("tree"));
    CatalogueFiles::write(place("tree/letter.txt"), "dear");
    const Outcome outcome = build(place("tree"));
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: ") + place("tree") + text(" exists and is not a tree (")
                 + place(".tree.new.old")
                 + text(" holds the one that was there); it is left as it is\n"));
    QCOMPARE(outcome.status, 2);
    QVERIFY(contentOf(place(".tree.new.old")) == before);
    QCOMPARE(CatalogueFiles::filesBelow(place("tree")), QStringList{text("letter.txt")});
}

MV_TEST_MAIN(TestMvpublishKilled)
#include "tst_mvpublish_killed.moc"
