// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseShop.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

namespace {

constexpr int longestMs = 20000;
const QByteArray changed("PK\x03\x04 new");

} // namespace

/// Tests mvres need: sets of items as a project or a script names them.
class TestMvresNeed : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shop.fresh(); }

    void tellsWhatIsToBeFetched();
    void everythingIsReady();
    void outdatedItemIsReadyAndDamagedIsNot();
    void sharedFilesCountOnce();
    void readsFiles_data();
    void readsFiles();
    void refusesFiles_data();
    void refusesFiles();
    void refusesNamesAmongGuids();
    void fetchesTheSet();
    void fetchOfAReadySetNeedsNoServer();
    void fetchLeavesUnknownItems();
    void fetchThatFailsHasItsStatus();
    void fetchCanBeInterrupted();
    void printsJson();

private:
    QString write(const QByteArray& content) const;

    ReleaseShop m_shop;
};

QString TestMvresNeed::write(const QByteArray& content) const
{
    const QString path = m_shop.mvres().base() + text("/set.json");
    CatalogueFiles::write(path, content);
    return path;
}

void TestMvresNeed::tellsWhatIsToBeFetched()
{
    QVERIFY(m_shop.fetch({11}));
    const Outcome outcome = m_shop.run("need", {11, 13, 99});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 53);
    QStringList lines = outcome.lines();
    for (QString& line : lines)
        line = line.simplified();
    QCOMPARE(lines,
             (QStringList{
                 CatalogueFiles::guid(11) + text(" filter 11 38 bytes ready"),
                 CatalogueFiles::guid(13) + text(" filter 13 26 bytes to fetch 2 missing"),
                 CatalogueFiles::guid(99) + text(" - - unknown"),
                 text("3 items: 1 ready, 1 to fetch, 1 unknown; to fetch: 2 files, 26 bytes")}));
    QCOMPARE(m_shop.run("need", {11, 13}).status, 52);
}

void TestMvresNeed::everythingIsReady()
{
    QVERIFY(m_shop.fetch({1, 11}));
    const Outcome outcome = m_shop.run("need", {1, 11, 1});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().constLast(),
             text("2 items: 2 ready, 0 to fetch, 0 unknown; to fetch: 0 files, 0 bytes"));
}

void TestMvresNeed::outdatedItemIsReadyAndDamagedIsNot()
{
    QVERIFY(m_shop.fetch({13}));
    m_shop.change("VideoFilters/13.zip", changed);
    const Outcome outdated = m_shop.run("need", {13});
    QCOMPARE(outdated.status, 0);
    QVERIFY(outdated.lines().constFirst().endsWith(text("  outdated")));
    CatalogueFiles::write(m_shop.file("VideoFilters/13.zip"), "damaged");
    const Outcome damaged = m_shop.run("need", {13});
    QCOMPARE(damaged.status, 52);
    QVERIFY(damaged.lines().constFirst().endsWith(text("  damaged")));
}

void TestMvresNeed::sharedFilesCountOnce()
{
    QVERIFY(m_shop.fetch({1, 2}));
    QVERIFY(QFile::remove(m_shop.file("VideoFilters/12.zip")));
    QCOMPARE(m_shop.run("need", {1, 2}).lines().constLast(),
             text("2 items: 0 ready, 2 to fetch, 0 unknown; to fetch: 1 file, %1 bytes")
                 .arg(ReleaseShop::archive(12).size()));
}

void TestMvresNeed::readsFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray guid = CatalogueFiles::guid(13).toUtf8();
    const QByteArray bare = guid.mid(1, guid.size() - 2).toLower();
    QTest::newRow("array") << QByteArray("[\"" + guid + "\"]");
    QTest::newRow("lower case without braces") << QByteArray("[\"" + bare + "\"]");
    QTest::newRow("object") << QByteArray(R"({"title": "x", "items": [{"guid": ")" + guid
                                          + R"(", "name": "Thirteen"}]})");
    QTest::newRow("array of objects") << QByteArray(R"([{"guid": ")" + guid + R"("}])");
}

void TestMvresNeed::readsFiles()
{
    QFETCH(QByteArray, content);
    const Outcome outcome = m_shop.run({text("need"), write(content)});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 52);
    QVERIFY(outcome.lines().constFirst().startsWith(CatalogueFiles::guid(13)));
    QCOMPARE(outcome.lines().size(), 2);
}

void TestMvresNeed::refusesFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const QString form = text("neither an array of GUIDs nor an object with \"items\"");
    QTest::newRow("empty") << QByteArray() << text("no JSON: illegal value at offset 0");
    QTest::newRow("broken") << QByteArray("[\"{A")
                            << text("no JSON: unterminated string at offset 5");
    QTest::newRow("object without items") << QByteArray("{}") << form;
    QTest::newRow("items are no array") << QByteArray(R"({"items": "x"})") << form;
    QTest::newRow("number") << QByteArray("[\"{A}\", 7]") << text("item 2 has no GUID");
    QTest::newRow("object without guid")
        << QByteArray(R"({"items": [{"name": "x"}]})") << text("item 1 has no GUID");
}

void TestMvresNeed::refusesFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QString file = write(content);
    const Outcome outcome = m_shop.run({text("need"), file});
    QCOMPARE(QString::fromUtf8(outcome.err), text("mvres: %1: %2\n").arg(file, reason));
    QCOMPARE(outcome.status, 1);
}

void TestMvresNeed::refusesNamesAmongGuids()
{
    const Outcome missing = m_shop.run({text("need"), text("/none.json")});
    QCOMPARE(missing.err,
             QByteArray("mvres: /none.json: the file cannot be read: No such file or directory\n"));
    QCOMPARE(missing.status, 1);
    const Outcome mixed = m_shop.run("need", {13}, {text("set.json")});
    QCOMPARE(mixed.err,
             QByteArray("mvres: need takes one FILE or GUIDs; \"set.json\" is no GUID\n"));
    QCOMPARE(mixed.status, 1);
}

void TestMvresNeed::fetchesTheSet()
{
    const Outcome outcome = m_shop.run("need", {1, 2, 13}, {text("--fetch")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QStringList lines = outcome.lines();
    QVERIFY2(lines.constFirst().startsWith(text("3 items: ")), qPrintable(lines.constFirst()));
    QCOMPARE(lines.at(lines.size() - 2),
             text("3 items: 3 ready, 0 to fetch, 0 unknown; to fetch: 0 files, 0 bytes"));
    QVERIFY(lines.constLast().startsWith(text("complete: 10 files stored, ")));
    QCOMPARE(m_shop.files().size(), 10);
    const QByteArray shared = ReleaseWorld::contentTarget(ReleaseShop::archive(12));
    QCOMPARE(m_shop.world().targets().count(shared), 1);
}

void TestMvresNeed::fetchOfAReadySetNeedsNoServer()
{
    QVERIFY(m_shop.fetch({13}));
    const int before = m_shop.world().targets().size();
    QCOMPARE(m_shop.run("need", {13}, {text("--fetch")}).status, 0);
    QCOMPARE(m_shop.world().targets().size(), before);
}

void TestMvresNeed::fetchLeavesUnknownItems()
{
    const Outcome outcome = m_shop.run("need", {13, 99}, {text("--fetch")});
    QCOMPARE(outcome.status, 53);
    QCOMPARE(m_shop.files().size(), 2);
}

void TestMvresNeed::fetchThatFailsHasItsStatus()
{
    m_shop.world().route(
        ReleaseWorld::contentTarget(ReleaseShop::archive(13)),
        [](HttpExchange& exchange) { exchange.answer(HttpAnswer(403).body("no")); });
    const Outcome outcome = m_shop.run("need", {11, 13, 99}, {text("--fetch")});
    QCOMPARE(outcome.status, 37);
    QVERIFY2(outcome.err.startsWith("mvres: the server reports an error: "),
             outcome.err.constData());
    QCOMPARE(m_shop.files(),
             (QStringList{text("VideoFilters/11.xml"), text("VideoFilters/11.zip")}));
}

void TestMvresNeed::fetchCanBeInterrupted()
{
    if (!ConsoleProgram::hasSignals)
        QSKIP("This system cannot interrupt a program.");
    const QByteArray target = ReleaseWorld::contentTarget(ReleaseShop::archive(13));
    m_shop.world().route(target, [](HttpExchange& exchange) { exchange.stall(); });
    QProcess process;
    m_shop.mvres().start(process, {text("need"), CatalogueFiles::guid(13), text("--fetch")});
    QTRY_VERIFY_WITH_TIMEOUT(m_shop.world().targets().contains(target), longestMs);
    ConsoleProgram::signal(process, SIGTERM);
    QCOMPARE(ConsoleProgram::end(process).status, 14);
    QCOMPARE(m_shop.files(), QStringList());

    m_shop.world().serve(target, ReleaseShop::archive(13));
    QCOMPARE(m_shop.run("need", {13}, {text("--fetch")}).status, 0);
}

void TestMvresNeed::printsJson()
{
    const QString file = write(R"({"items": [{"guid": "{99}", "name": "Gone"}, {"guid": ")"
                               + CatalogueFiles::guid(13).toUtf8() + R"("}]})");
    const Outcome outcome = m_shop.run({text("need"), file, text("--json")});
    QCOMPARE(outcome.status, 53);
    const QJsonObject told = QJsonDocument::fromJson(outcome.out).object();
    QCOMPARE(told[text("unknown")].toArray(),
             (QJsonArray{QJsonObject{{text("guid"), text("{99}")}, {text("name"), text("Gone")}}}));
    QCOMPARE(told[text("ready")].toInt(-1), 0);
    QCOMPARE(told[text("filesToFetch")].toInt(), 2);
    QCOMPARE(told[text("bytesToFetch")].toInt(), 26);
    QCOMPARE(told[text("items")].toArray().size(), 1);
    QCOMPARE(told[text("items")][0][text("state")].toString(), text("missing"));

    const Outcome fetched = m_shop.run("need", {13}, {text("--json"), text("--fetch")});
    QCOMPARE(fetched.status, 0);
    const QJsonObject done = QJsonDocument::fromJson(fetched.out).object();
    QCOMPARE(done[text("ready")].toInt(), 1);
    QCOMPARE(done[text("fetch")][text("storedFiles")].toInt(), 2);
}

MV_TEST_MAIN(TestMvresNeed)
#include "tst_mvres_need.moc"
