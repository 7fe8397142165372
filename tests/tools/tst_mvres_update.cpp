// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseShop.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

namespace tst_mvres_update {

namespace {

constexpr int longestMs = 20000;
constexpr int promptMs = 10000; // far below the time limit of a stalled transfer
const QByteArray changed("PK\x03\x04 new");

} // namespace

/// Tests mvres update, and mvres list and mvres fetch --all with a server's release.
class TestMvresUpdate : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shop.fresh(); }

    void nothingToUpdate();
    void outdatedItemIsUpdated();
    void damagedItemIsUpdated();
    void namedItemsOnly();
    void incompleteItemIsCompletedOnlyWithAll();
    void dryRunChangesNothing_data();
    void dryRunChangesNothing();
    void printsJson();
    void itemThatIsNotOnDiskIsRefused();
    void unknownGuidUpdatesNothing();
    void withoutServerItSaysSo();
    void withoutReleaseItSaysSo();
    void unusableReleaseIsAnError();
    void failureHasItsStatus();
    void interruptCancels();
    void listShowsStatesAndSizes();
    void listIsJson();
    void fetchesAll();

private:
    ReleaseShop m_shop;
};

void TestMvresUpdate::nothingToUpdate()
{
    QVERIFY(m_shop.fetch({1}));
    const Outcome outcome = m_shop.run({text("update")});
    QCOMPARE(outcome.out, QByteArray("nothing to update\n"));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvresUpdate::outdatedItemIsUpdated()
{
    QVERIFY(m_shop.fetch({1, 13}));
    m_shop.change("VideoFilters/12.zip", changed);
    const Outcome outcome = m_shop.run({text("update")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_shop.content("VideoFilters/12.zip"), changed);
    const QStringList lines = outcome.lines();
    QCOMPARE(lines.filter(CatalogueFiles::guid(1)).size(), 1);
    QCOMPARE(lines.filter(CatalogueFiles::guid(13)).size(), 0);
    QVERIFY(lines.at(lines.size() - 2).endsWith(text("  current")));
    QCOMPARE(lines.constLast(), text("complete: 1 file stored, 8 bytes fetched"));
    QVERIFY2(lines.constFirst().startsWith(text("1 item: ")), outcome.out.constData());
}

void TestMvresUpdate::damagedItemIsUpdated()
{
    QVERIFY(m_shop.fetch({13}));
    CatalogueFiles::write(m_shop.file("VideoFilters/13.zip"), "damaged");
    QCOMPARE(m_shop.run({text("update")}).status, 0);
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), ReleaseShop::archive(13));
}

void TestMvresUpdate::namedItemsOnly()
{
    QVERIFY(m_shop.fetch({11, 13}));
    m_shop.change("VideoFilters/11.zip", changed);
    m_shop.change("VideoFilters/13.zip", changed);
    QCOMPARE(m_shop.run("update", {13}).status, 0);
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), changed);
    QCOMPARE(m_shop.content("VideoFilters/11.zip"), ReleaseShop::archive(11));
}

void TestMvresUpdate::incompleteItemIsCompletedOnlyWithAll()
{
    QVERIFY(m_shop.fetch({13}));
    QVERIFY(QFile::remove(m_shop.file("VideoFilters/13.zip")));
    QCOMPARE(m_shop.run({text("update")}).lines().constLast(), text("nothing to update"));
    QCOMPARE(m_shop.run({text("update"), text("--all")}).status, 0);
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), ReleaseShop::archive(13));
    QCOMPARE(m_shop.files().filter(text("11")), QStringList()); // which has never been on disk
}

void TestMvresUpdate::dryRunChangesNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("all") << QStringList{text("--all")};
    QTest::newRow("outdated") << QStringList();
    QTest::newRow("named") << QStringList{CatalogueFiles::guid(13)};
}

void TestMvresUpdate::dryRunChangesNothing()
{
    QFETCH(QStringList, arguments);
    QVERIFY(m_shop.fetch({13}));
    m_shop.change("VideoFilters/13.zip", changed);
    const int before = m_shop.world().targets().size();
    const Outcome outcome = m_shop.run(QStringList{text("update"), text("--dry-run")} + arguments);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(
        outcome.lines(),
        (QStringList{CatalogueFiles::guid(13) + text("  filter  13  8 bytes to fetch  outdated"),
                     text("  outdated ") + m_shop.file("VideoFilters/13.zip"),
                     text("1 item to fetch: 1 file, 8 bytes")}));
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), ReleaseShop::archive(13));
    QCOMPARE(m_shop.world().targets().size(), before);
}

void TestMvresUpdate::printsJson()
{
    QVERIFY(m_shop.fetch({13}));
    m_shop.change("VideoFilters/13.zip", changed);
    const auto update = [&](const QStringList& options) {
        const Outcome outcome = m_shop.run(QStringList{text("update"), text("--json")} + options);
        return QJsonDocument::fromJson(outcome.out).object();
    };
    const QJsonObject preview = update({text("--dry-run")});
    QCOMPARE(preview[text("filesToFetch")].toInt(), 1);
    QCOMPARE(preview[text("bytesToFetch")].toInt(), changed.size());
    const QJsonObject item = preview[text("items")][0].toObject();
    QCOMPARE(item[text("guid")].toString(), CatalogueFiles::guid(13));
    QCOMPARE(item[text("state")].toString(), text("outdated"));
    QCOMPARE(item[text("files")][0][text("state")].toString(), text("outdated"));
    QCOMPARE(item[text("files")][0][text("path")].toString(), m_shop.file("VideoFilters/13.zip"));

    const QJsonObject done = update({});
    QCOMPARE(done[text("items")][0][text("state")].toString(), text("current"));
    QCOMPARE(done[text("bytesToFetch")].toInt(-1), 0);
    QCOMPARE(done[text("update")].toObject(),
             (QJsonObject{{text("end"), text("complete")},
                          {text("storedFiles"), 1},
                          {text("fetchedBytes"), changed.size()},
                          {text("failures"), QJsonArray()}}));
}

void TestMvresUpdate::itemThatIsNotOnDiskIsRefused()
{
    QVERIFY(m_shop.fetch({11}));
    const Outcome outcome = m_shop.run("update", {11, 13});
    QCOMPARE(outcome.err,
             "mvres: " + CatalogueFiles::guid(13).toUtf8()
                 + " is not on disk; mvres fetch downloads it\n");
    QCOMPARE(outcome.status, 1);
    QCOMPARE(m_shop.files().filter(text("13")), QStringList());
}

void TestMvresUpdate::unknownGuidUpdatesNothing()
{
    QVERIFY(m_shop.fetch({13}));
    m_shop.change("VideoFilters/13.zip", changed);
    const Outcome outcome = m_shop.run("update", {13, 99});
    QCOMPARE(outcome.err, "mvres: unknown GUID " + CatalogueFiles::guid(99).toUtf8() + '\n');
    QCOMPARE(outcome.status, 1);
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), ReleaseShop::archive(13));
}

void TestMvresUpdate::withoutServerItSaysSo()
{
    m_shop.mvres().set("release/policy", text("ignore")); // a release belongs to its server
    QVERIFY(m_shop.fetch({13}));
    QVERIFY(QFile::remove(m_shop.file("VideoFilters/13.zip")));
    m_shop.mvres().setServer(QString());
    const Outcome outcome = m_shop.run({text("update"), text("--all")});
    QVERIFY2(outcome.err.contains("mvres: no server to fetch from: give --server"),
             outcome.err.constData());
    QCOMPARE(outcome.status, 1);
}

void TestMvresUpdate::withoutReleaseItSaysSo()
{
    QVERIFY(m_shop.fetch({13}));
    m_shop.change("VideoFilters/13.zip", changed);
    const Outcome outcome = m_shop.run({text("update"), text("--release"), text("ignore")});
    QCOMPARE(outcome.err,
             QByteArray("mvres: no release is known: only missing files can be found\n"));
    QCOMPARE(outcome.out, QByteArray("nothing to update\n"));
    QCOMPARE(outcome.status, 0);
}

void TestMvresUpdate::unusableReleaseIsAnError()
{
    QVERIFY(m_shop.fetch({1}));
    CatalogueFiles::write(m_shop.mvres().root() + text("/Themes/ResourceConfig/files.txt"), "x");
    const Outcome outcome = m_shop.run({text("update")});
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err,
             QByteArray("mvres: the release that was accepted cannot be used any more; mvres check "
                        "fetches it again\n"));
    m_shop.check();
    QCOMPARE(m_shop.run({text("update")}).status, 0);
}

void TestMvresUpdate::failureHasItsStatus()
{
    QVERIFY(m_shop.fetch({11, 13}));
    m_shop.change("VideoFilters/11.zip", changed);
    m_shop.change("VideoFilters/13.zip", "PK\x03\x04 other");
    m_shop.world().route(ReleaseWorld::contentTarget(changed), [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(403).body("no"));
    });
    const Outcome outcome = m_shop.run({text("update")});
    QCOMPARE(outcome.status, 37);
    QVERIFY2(outcome.err.startsWith("mvres: the server reports an error: "),
             outcome.err.constData());
    QCOMPARE(m_shop.content("VideoFilters/11.zip"), ReleaseShop::archive(11));
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), QByteArray("PK\x03\x04 other"));
}

void TestMvresUpdate::interruptCancels()
{
    if (!ConsoleProgram::hasSignals)
        QSKIP("This system cannot interrupt a program.");
    QVERIFY(m_shop.fetch({13}));
    m_shop.change("VideoFilters/13.zip", changed);
    const QByteArray target = ReleaseWorld::contentTarget(changed);
    m_shop.world().route(target, [](HttpExchange& exchange) { exchange.stall(); });
    QProcess process;
    m_shop.mvres().start(process, {text("update")});
    QTRY_VERIFY_WITH_TIMEOUT(m_shop.world().targets().contains(target), longestMs);
    QElapsedTimer sinceInterrupt;
    sinceInterrupt.start();
    ConsoleProgram::signal(process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(process);
    QVERIFY(sinceInterrupt.elapsed() < promptMs);
    QCOMPARE(outcome.status, 14);
    QCOMPARE(outcome.lines().constLast(), text("cancelled: 0 files stored, 0 bytes fetched"));
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), ReleaseShop::archive(13));
}

void TestMvresUpdate::listShowsStatesAndSizes()
{
    QVERIFY(m_shop.fetch({11, 2}));
    m_shop.change("VideoFilters/11.zip", changed);
    CatalogueFiles::write(m_shop.file("Themes/2.zip"), "damaged");
    const QStringList lines = m_shop.run({text("list")}).lines();
    QCOMPARE(lines.size(), 4);
    const auto endOf = [](const QString& line) {
        return line.simplified().section(QLatin1String("- "), -1);
    };
    QCOMPARE(endOf(lines.at(0)), text("8 bytes to fetch outdated"));
    QCOMPARE(endOf(lines.at(1)), text("26 bytes to fetch 2 missing"));
    const int known = StorageWorld::themeConfig({11, 12}).size() + ReleaseShop::archive(1).size();
    QCOMPARE(endOf(lines.at(2)), text("%1 bytes or more to fetch 2 missing").arg(known));
    QCOMPARE(endOf(lines.at(3)), text("6 bytes to fetch damaged"));
    QVERIFY(m_shop.fetch({13}));
    const QStringList filters = m_shop.run({text("list"), text("filter")}).lines();
    QCOMPARE(endOf(filters.at(1)), text("38 bytes ready"));
}

void TestMvresUpdate::listIsJson()
{
    QVERIFY(m_shop.fetch({11}));
    m_shop.change("VideoFilters/11.zip", changed);
    const QJsonArray items =
        QJsonDocument::fromJson(m_shop.run({text("list"), text("--json")}).out).array();
    const QJsonObject filter = items.at(0).toObject();
    QCOMPARE(filter[text("ready")], QJsonValue(true));
    QCOMPARE(filter[text("state")].toString(), text("outdated"));
    QCOMPARE(filter[text("filesToFetch")].toInt(), 1);
    QCOMPARE(filter[text("bytesToFetch")].toInt(), changed.size());
    QCOMPARE(filter[text("bytesKnown")], QJsonValue(true));
    QVERIFY(filter[text("bytesOnDisk")].toInt() > 0);
    QCOMPARE(items.at(2)[text("state")].toString(), text("missing"));
    QCOMPARE(items.at(2)[text("bytesKnown")], QJsonValue(false));
}

void TestMvresUpdate::fetchesAll()
{
    QVERIFY(m_shop.fetch({11}));
    const Outcome outcome = m_shop.run({text("fetch"), text("--all")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_shop.files().size(), 10);
    QCOMPARE(outcome.lines().filter(text(": complete, ")).size(), 3); // not filter 11
    const Outcome again = m_shop.run({text("fetch"), text("--all")});
    QCOMPARE(again.out, QByteArray("every item is ready\n"));
    QCOMPARE(again.status, 0);
    QCOMPARE(m_shop.run({text("fetch"), text("--all"), text("--json")}).out, QByteArray("[\n]\n"));
}

MV_TEST_MAIN(TestMvresUpdate)

} // namespace tst_mvres_update

#include "tst_mvres_update.moc"
