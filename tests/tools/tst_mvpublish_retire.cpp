// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <memory>

/// Tests mvpublish retire, and what a build does with retired items.
class TestMvpublishRetire : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void itemIsMovedAsideWithAllItsFiles_data();
    void itemIsMovedAsideWithAllItsFiles();
    void retiredItemIsNotPublished();
    void guidStaysTaken();
    void itemCanComeBack();
    void usedItemStays();
    void interruptedRunIsContinued();
    void nothingIsOverwritten();
    void unknownItemIsAFailure();
    void faultyListOfGuidsIsReported();
    void newItemsAvoidTheFolder();

private:
    Outcome retire(const QString& item) const
    {
        return Mvpublish::run({text("retire"), m_source->folder(), item});
    }
    QString build() const
    {
        return Mvpublish::build(m_source->folder(), home("tree"), {text("--force")});
    }
    QJsonArray retired() const
    {
        return m_source->manifest(QString()).value(text("retired")).toArray();
    }

    std::unique_ptr<SmallSource> m_source;
    QString m_guid = SmallSource::guid(text("paper"));
};

void TestMvpublishRetire::init()
{
    QDir(home("tree")).removeRecursively();
    m_source = std::make_unique<SmallSource>(home("source"));
}

void TestMvpublishRetire::itemIsMovedAsideWithAllItsFiles_data()
{
    QTest::addColumn<QString>("item");
    QTest::newRow("folder") << text("paper");
    QTest::newRow("folder with a slash") << text("paper/");
    QTest::newRow("GUID") << m_guid;
}

void TestMvpublishRetire::itemIsMovedAsideWithAllItsFiles()
{
    QFETCH(QString, item);
    const QStringList files = CatalogueFiles::filesBelow(m_source->file(text("paper")));
    const QJsonObject before = m_source->manifest(QString());
    const Outcome outcome = retire(item);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.lines(),
             QStringList{text("paper is in retired/paper; its GUID %1 stays taken").arg(m_guid)});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(CatalogueFiles::filesBelow(m_source->file(text("retired/paper"))), files);
    QVERIFY(!QFileInfo::exists(m_source->file(text("paper"))));
    QCOMPARE(retired(), QJsonArray{m_guid});
    QJsonObject after = m_source->manifest(QString());
    after.remove(text("retired"));
    QCOMPARE(after, before);
}

void TestMvpublishRetire::retiredItemIsNotPublished()
{
    QCOMPARE(retire(text("paper")).status, 0);
    QCOMPARE(build(), QString());
    QVERIFY(!CatalogueFiles::read(home("tree/ResourceConfig/resource_config.xml"))
                 .contains(m_guid.toUtf8()));
}

void TestMvpublishRetire::guidStaysTaken()
{
    QCOMPARE(retire(text("paper")).status, 0);
    m_source->set(text("zoom"), "guid", m_guid);
    const Outcome outcome = Mvpublish::run({text("build"), m_source->folder(), home("tree")});
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: zoom: has the GUID of a retired item; take a fresh one, or, to "
                        "bring the item back, remove the GUID from \"retired\" in "
                        "catalogue.json\n"));
    QCOMPARE(outcome.status, 1);
    QVERIFY(!QFileInfo::exists(home("tree")));
}

void TestMvpublishRetire::itemCanComeBack()
{
    QCOMPARE(build(), QString());
    const QByteArray config = CatalogueFiles::read(home("tree/ResourceConfig/resource_config.xml"));
    QCOMPARE(retire(text("paper")).status, 0);
    QVERIFY(QDir().rename(m_source->file(text("retired/paper")), m_source->file(text("paper"))));
    m_source->set(QString(), "retired", QJsonArray());
    QCOMPARE(build(), QString());
    QCOMPARE(CatalogueFiles::read(home("tree/ResourceConfig/resource_config.xml")), config);
}

void TestMvpublishRetire::usedItemStays()
{
    const QByteArray before = CatalogueFiles::read(m_source->file(text("catalogue.json")));
    const Outcome outcome = retire(text("look"));
    QCOMPARE(outcome.err, QByteArray("mvpublish: look is used by film\n"));
    QCOMPARE(outcome.status, 1);
    QVERIFY(QFileInfo::exists(m_source->file(text("look/item.json"))));
    QCOMPARE(CatalogueFiles::read(m_source->file(text("catalogue.json"))), before);
    QCOMPARE(retire(text("film")).status, 0);
    QCOMPARE(retire(text("look")).status, 0);
    QCOMPARE(retired(),
             (QJsonArray{SmallSource::guid(text("film")), SmallSource::guid(text("look"))}));
}

/// The GUID is recorded first.
void TestMvpublishRetire::interruptedRunIsContinued()
{
    m_source->set(QString(), "retired", QJsonArray{m_guid});
    QCOMPARE(retire(text("paper")).status, 0);
    QVERIFY(QFileInfo::exists(m_source->file(text("retired/paper/item.json"))));
    QCOMPARE(retired(), QJsonArray{m_guid});
    for (const QString& again : {text("paper"), m_guid}) {
        const Outcome outcome = retire(again);
        QCOMPARE(outcome.lines(), QStringList{again + text(" is retired already")});
        QCOMPARE(outcome.status, 0);
    }
}

void TestMvpublishRetire::nothingIsOverwritten()
{
    CatalogueFiles::write(m_source->file(text("retired/paper/item.json")), "an older one");
    const Outcome outcome = retire(text("paper"));
    QCOMPARE(outcome.err, QByteArray("mvpublish: retired/paper is there already\n"));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(CatalogueFiles::read(m_source->file(text("retired/paper/item.json"))),
             QByteArray("an older one"));
    QVERIFY(retired().isEmpty());
}

void TestMvpublishRetire::unknownItemIsAFailure()
{
    const Outcome outcome = retire(text("nothing"));
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: %1 has no item nothing\n").arg(m_source->folder()));
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishRetire::faultyListOfGuidsIsReported()
{
    m_source->set(QString(), "retired", QJsonArray{text("paper")});
    const Outcome outcome = retire(text("paper"));
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: catalogue.json: \"retired\": \"paper\" is not a GUID in "
                        "capitals\n"));
    QCOMPARE(outcome.status, 1);
}

void TestMvpublishRetire::newItemsAvoidTheFolder()
{
    QCOMPARE(Mvpublish::run(
                 {text("new"), text("motion"), text("Retired"), text("--in"), m_source->folder()})
                 .status,
             0);
    QVERIFY(!QFileInfo::exists(m_source->file(text("retired"))));
}

MV_TEST_MAIN(TestMvpublishRetire)
#include "tst_mvpublish_retire.moc"
