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

/// Tests mvres remove.
class TestMvresRemove : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shop.fresh(); }

    void removesWhatNoOtherItemNeeds();
    void tellsWhatStays();
    void severalItemsTakeTheirSharedFilesAlong();
    void printsJson();
    void itemThatIsNotOnDisk();
    void unknownGuidRemovesNothing();
    void nothingIsLeftForAnUndo();
    void failureIsReported();
    void removedItemCanBeFetchedAgain();

private:
    qint64 sizeOf(const QVector<const char*>& names) const;

    ReleaseShop m_shop;
};

qint64 TestMvresRemove::sizeOf(const QVector<const char*>& names) const
{
    qint64 bytes = 0;
    for (const char* const name : names)
        bytes += m_shop.content(name).size();
    return bytes;
}

void TestMvresRemove::removesWhatNoOtherItemNeeds()
{
    QVERIFY(m_shop.fetch({11, 13}));
    const qint64 bytes = sizeOf({"VideoFilters/13.xml", "VideoFilters/13.zip"});
    const Outcome outcome = m_shop.run("remove", {13});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines(),
             QStringList{CatalogueFiles::guid(13)
                         + text(" 13: 2 files removed, %1 bytes freed").arg(bytes)});
    QCOMPARE(m_shop.files(),
             (QStringList{text("VideoFilters/11.xml"), text("VideoFilters/11.zip")}));
    QVERIFY(m_shop.run({text("list"), text("filter")})
                .lines()
                .constLast()
                .endsWith(text("  2 missing")));
}

/// Users can choose filter 11 themselves, and theme 2 needs filter 12.
void TestMvresRemove::tellsWhatStays()
{
    QVERIFY(m_shop.fetch({1, 2}));
    const qint64 own = sizeOf({"Themes/1.xml", "Themes/1.zip"});
    const qint64 kept = sizeOf({"VideoFilters/11.xml", "VideoFilters/11.zip", "VideoFilters/12.xml",
                                "VideoFilters/12.zip"});
    const Outcome outcome = m_shop.run("remove", {1});
    QCOMPARE(
        outcome.lines(),
        (QStringList{CatalogueFiles::guid(1) + text(" 1: 2 files removed, %1 bytes freed").arg(own),
                     text("  %1 bytes in 4 files stays: needed by 11, 2").arg(kept)}));
    QCOMPARE(m_shop.files().size(), 6);
}

void TestMvresRemove::severalItemsTakeTheirSharedFilesAlong()
{
    QVERIFY(m_shop.fetch({1, 2}));
    const Outcome outcome = m_shop.run("remove", {1, 2, 11});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_shop.files(), QStringList());
    QCOMPARE(outcome.lines().size(), 4); // nothing stays in the end
    QVERIFY(outcome.lines().constLast().endsWith(text(" bytes freed")));
}

void TestMvresRemove::printsJson()
{
    QVERIFY(m_shop.fetch({1, 2}));
    const qint64 own = sizeOf({"Themes/2.xml", "Themes/2.zip"});
    const Outcome outcome = m_shop.run("remove", {2}, {text("--json")});
    const QJsonObject told = QJsonDocument::fromJson(outcome.out).object();
    QCOMPARE(told[text("freedBytes")].toInt(), int(own));
    const QJsonObject item = told[text("items")][0].toObject();
    QCOMPARE(item[text("guid")].toString(), CatalogueFiles::guid(2));
    QCOMPARE(item[text("removedFiles")].toInt(), 2);
    QCOMPARE(item[text("ready")], QJsonValue(false));
    QCOMPARE(item[text("keptFiles")].toArray(),
             (QJsonArray{m_shop.file("VideoFilters/12.xml"), m_shop.file("VideoFilters/12.zip")}));
    QCOMPARE(item[text("neededBy")].toArray(), QJsonArray{CatalogueFiles::guid(1)});
    QCOMPARE(item[text("error")].toString(), QString());
}

void TestMvresRemove::itemThatIsNotOnDisk()
{
    const Outcome outcome = m_shop.run("remove", {13});
    QCOMPARE(outcome.lines(), QStringList{CatalogueFiles::guid(13) + text(" 13: not on disk")});
    QCOMPARE(outcome.status, 0);
}

void TestMvresRemove::unknownGuidRemovesNothing()
{
    QVERIFY(m_shop.fetch({13}));
    const Outcome outcome = m_shop.run("remove", {13, 99});
    QCOMPARE(outcome.err, "mvres: unknown GUID " + CatalogueFiles::guid(99).toUtf8() + '\n');
    QCOMPARE(outcome.status, 1);
    QCOMPARE(m_shop.files().size(), 2);
}

void TestMvresRemove::nothingIsLeftForAnUndo()
{
    QVERIFY(m_shop.fetch({13}));
    QCOMPARE(m_shop.run("remove", {13}).status, 0);
    QCOMPARE(m_shop.mvres().downloaded().filter(text("removed")), QStringList());
    QCOMPARE(m_shop.run({text("clean"), text("--dry-run")}).lines().constLast(),
             text("0 files, 0 bytes to be freed"));
}

void TestMvresRemove::failureIsReported()
{
    QVERIFY(m_shop.fetch({13}));
    CatalogueFiles::write(m_shop.mvres().root() + text("/Themes/ResourceConfig/removed"),
                          "a file where the folder should be");
    const Outcome outcome = m_shop.run("remove", {13});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.err.endsWith(" cannot be removed\n"), outcome.err.constData());
    QCOMPARE(outcome.lines(), QStringList{CatalogueFiles::guid(13) + text(" 13: not removed")});
    QCOMPARE(m_shop.files().size(), 2);
}

void TestMvresRemove::removedItemCanBeFetchedAgain()
{
    QVERIFY(m_shop.fetch({1}));
    QCOMPARE(m_shop.run("remove", {1, 11}).status, 0);
    QVERIFY(m_shop.fetch({1}));
    QCOMPARE(m_shop.run({text("verify"), text("--deep")}).status, 0);
}

MV_TEST_MAIN(TestMvresRemove)
#include "tst_mvres_remove.moc"
