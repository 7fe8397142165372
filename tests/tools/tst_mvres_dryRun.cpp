// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseShop.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const QStringList dryRun{text("--dry-run")};
const QStringList dryJson{text("--dry-run"), text("--json")};

QJsonObject parsed(const Outcome& outcome)
{
    return QJsonDocument::fromJson(outcome.out).object();
}

} // namespace

/// Tests what fetch and remove tell with --dry-run, and that they change nothing.
class TestMvresDryRun : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shop.fresh(); }

    void fetchTellsWhatItWouldFetch();
    void fetchPrintsJson();
    void fetchKnowsWhatIsComplete_data();
    void fetchKnowsWhatIsComplete();
    void fetchNeedsNoServer();
    void fetchNamesADamagedDefinition();
    void removeTellsWhatItWouldDo_data();
    void removeTellsWhatItWouldDo();
    void removeRefusesWhatItCouldNotDo();

private:
    ReleaseShop m_shop;
};

/// A theme's definition, which names the items it uses, has not been fetched yet.
void TestMvresDryRun::fetchTellsWhatItWouldFetch()
{
    const int before = m_shop.world().targets().size();
    const Outcome outcome = m_shop.run("fetch", {1, 13}, dryRun);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QStringList lines = outcome.lines();
    QCOMPARE(lines.filter(text("  missing ")),
             (QStringList{text("  missing  ") + m_shop.file("Themes/1.xml"),
                          text("  missing  ") + m_shop.file("Themes/1.zip"),
                          text("  missing  ") + m_shop.file("VideoFilters/13.xml"),
                          text("  missing  ") + m_shop.file("VideoFilters/13.zip")}));
    QVERIFY2(lines.constLast().startsWith(text("2 items to fetch: 4 files, ")),
             outcome.out.constData());
    QVERIFY(lines.constLast().endsWith(text(" or more")));
    QCOMPARE(m_shop.files(), QStringList());
    QCOMPARE(m_shop.world().targets().size(), before);
}

void TestMvresDryRun::fetchPrintsJson()
{
    const QJsonObject told = parsed(m_shop.run("fetch", {13}, dryJson));
    QVERIFY(m_shop.fetch({13}));
    const qint64 bytes =
        m_shop.content("VideoFilters/13.xml").size() + m_shop.content("VideoFilters/13.zip").size();
    QCOMPARE(told[text("dryRun")], QJsonValue(true));
    QCOMPARE(told[text("filesToFetch")], QJsonValue(2));
    QCOMPARE(told[text("bytesToFetch")], QJsonValue(double(bytes)));
    const QJsonObject item = told[text("items")][0].toObject();
    QCOMPARE(item[text("guid")].toString(), CatalogueFiles::guid(13));
    QCOMPARE(item[text("themeType")], QJsonValue());
    QCOMPARE(item[text("files")][0][text("path")].toString(), m_shop.file("VideoFilters/13.xml"));
    QCOMPARE(item[text("files")][0][text("state")].toString(), text("missing"));
}

void TestMvresDryRun::fetchKnowsWhatIsComplete_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("last");
    QTest::newRow("complete item")
        << QStringList{CatalogueFiles::guid(13)} << text("nothing to fetch");
    QTest::newRow("half of an item")
        << QStringList{CatalogueFiles::guid(11)} << text("1 item to fetch: 1 file, 7 bytes");
    QTest::newRow("all") << QStringList{text("--all")} << text("3 items to fetch: ");
}

void TestMvresDryRun::fetchKnowsWhatIsComplete()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, last);
    QVERIFY(m_shop.fetch({11, 13}));
    QVERIFY(QFile::remove(m_shop.file("VideoFilters/11.zip")));
    const QStringList files = m_shop.files();
    const Outcome outcome = m_shop.run(QStringList{text("fetch")} + arguments + dryRun);
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.lines().constLast().startsWith(last), outcome.out.constData());
    QCOMPARE(m_shop.files(), files);
}

void TestMvresDryRun::fetchNeedsNoServer()
{
    Mvres mvres;
    mvres.useSamples();
    const Outcome outcome = mvres.run(
        QStringList{text("fetch"), text("{C03E1D76-2CEA-5E2A-8517-C805C9A0C695}")} + dryRun);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.out.contains("1 item to fetch: "), outcome.out.constData());
    QCOMPARE(mvres.downloaded(), QStringList());
}

void TestMvresDryRun::fetchNamesADamagedDefinition()
{
    QVERIFY(m_shop.fetch({2}));
    CatalogueFiles::write(m_shop.file("Themes/2.xml"), "<broken");
    const Outcome outcome = m_shop.run("fetch", {2}, dryRun);
    QCOMPARE(outcome.lines().size(), 1 + 1 + 1);
    QVERIFY2(outcome.lines().at(1).endsWith(m_shop.file("Themes/2.xml")), outcome.out.constData());
}

void TestMvresDryRun::removeTellsWhatItWouldDo_data()
{
    QTest::addColumn<QVector<int>>("items");
    QTest::newRow("one that others need") << QVector<int>{11};
    QTest::newRow("one that needs others") << QVector<int>{1};
    QTest::newRow("a user, then what it used") << QVector<int>{1, 2, 11};
    QTest::newRow("what is used, then its user") << QVector<int>{11, 1, 2};
    QTest::newRow("both users of a hidden item") << QVector<int>{2, 1};
    QTest::newRow("one that is not on disk") << QVector<int>{13};
}

/// Whatever the order and the files that the items share.
void TestMvresDryRun::removeTellsWhatItWouldDo()
{
    QFETCH(QVector<int>, items);
    QVERIFY(m_shop.fetch({1, 2}));
    const QStringList files = m_shop.mvres().downloaded();
    const QStringList told = m_shop.run("remove", items, dryRun).lines();
    QJsonObject toldJson = parsed(m_shop.run("remove", items, dryJson));
    QCOMPARE(m_shop.mvres().downloaded(), files);
    QVERIFY(m_shop.mvres().downloaded().filter(text("removed")).isEmpty());

    const QStringList done = m_shop.run("remove", items).lines();
    QStringList expected;
    for (QString line : done)
        expected.append(line.replace(text(" removed, "), text(" to be removed, "))
                            .replace(text(" freed"), text(" to be freed")));
    QCOMPARE(told, expected);
    QVERIFY(m_shop.fetch({1, 2}));
    QJsonObject doneJson = parsed(m_shop.run("remove", items, {text("--json")}));
    QCOMPARE(toldJson.take(text("dryRun")), QJsonValue(true));
    QCOMPARE(doneJson.take(text("dryRun")), QJsonValue(false));
    QCOMPARE(toldJson[text("freedBytes")], doneJson[text("freedBytes")]);
    const QJsonArray toldItems = toldJson[text("items")].toArray();
    const QJsonArray doneItems = doneJson[text("items")].toArray();
    for (int number = 0; number < toldItems.size(); ++number) {
        const QJsonValue other = doneItems.at(number);
        for (const char* member :
             {"guid", "removedFiles", "freedBytes", "keptFiles", "keptBytes", "neededBy"})
            QCOMPARE(toldItems.at(number)[text(member)], other[text(member)]);
    }
}

void TestMvresDryRun::removeRefusesWhatItCouldNotDo()
{
    QVERIFY(m_shop.fetch({13}));
    const QString config = m_shop.mvres().root() + text("/Themes/ResourceConfig/");
    const QStringList catalogues = QDir(config).entryList({text("resource_config*.xml")});
    QVERIFY(!catalogues.isEmpty());
    CatalogueFiles::write(config + catalogues.constFirst(), "<broken");
    const Outcome outcome = m_shop.run("remove", {13}, dryRun);
    QCOMPARE(outcome.status, 1);
    QVERIFY(!outcome.err.isEmpty());
}

MV_TEST_MAIN(TestMvresDryRun)
#include "tst_mvres_dryRun.moc"
