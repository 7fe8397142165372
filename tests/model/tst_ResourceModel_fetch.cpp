// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/HeldAnswer.h"
#include "download/MVThemeDownLoader.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "ModelWatch.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QFile>
#include <QSignalSpy>

/// Tests downloads, their progress and outcomes, and applying.
class tst_ResourceModel_fetch : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.freshStorage();
        hostSettings().transfersSideBySide = 6;
        hostSettings().downloadStepMs = 0;
        hostSettings().downloadRetries = 0;
    }

    void fetchedItemIsReady();
    void itemsThatShareFilesFollow();
    void failureIsTold();
    void failureIsForgottenByTheNextAttempt();
    void cancelEndsTheDownload();
    void waitingDownloadIsCancelled();
    void unknownItemIsRefused();
    void manyItemsAreFetchedInTurn();
    void downloadOfAnotherIsFollowed();
    void downloadBegunBeforeTheModelIsNotTold();
    void reloadStopsAndResumes();
    void reloadWithdrawsAnItem();
    void applyFetchesAndApplies();
    void applyOfAReadyItemAsksNoServer();
    void applyOfAnItemThatCannotBeFetched();
    void otherKindForgetsTheChoice();
    void lastChoiceWins_data();
    void lastChoiceWins();
    void receiverMayReloadTheCatalogue();
    void receiverMayDestroyTheModel();
    void destroyedModelEndsItsDownload();

private:
    static QString guid(int number) { return CatalogueFiles::guid(number); }
    QByteArray archiveTarget(int number) const
    {
        return ReleaseWorld::contentTarget(StorageWorld::archive(number));
    }
    void hold(int number, HeldAnswer& held)
    {
        m_world.route(archiveTarget(number),
                      held.handler(HttpAnswer(200).body(StorageWorld::archive(number))));
    }
    void stall(int number)
    {
        m_world.route(archiveTarget(number), [](HttpExchange& exchange) { exchange.stall(); });
    }

    StorageWorld m_world;
};

void tst_ResourceModel_fetch::fetchedItemIsReady()
{
    ResourceModel model;
    ModelWatch watch(model);
    EXAMINED(model);
    QCOMPARE(watch.state(1), int(ResourceModel::Missing));
    QVERIFY(!watch.value(1, ResourceModel::UsableRole).toBool());
    QVERIFY(watch.value(1, ResourceModel::BytesToFetchRole).toLongLong() > 0);
    watch.watchStates(1);
    QVERIFY(model.fetch(guid(1)));
    QVERIFY(watch.value(1, ResourceModel::BusyRole).toBool());
    QVERIFY(!model.fetch(guid(1)));
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 1 complete")});
    QCOMPARE(watch.state(1), int(ResourceModel::Ready));
    QVERIFY(watch.value(1, ResourceModel::UsableRole).toBool());
    QCOMPARE(watch.value(1, ResourceModel::BytesToFetchRole).toLongLong(), qint64(0));
    QVERIFY(!watch.value(1, ResourceModel::BusyRole).toBool());
    QCOMPARE(
        watch.states(),
        (QVector<int>{ResourceModel::Missing, ResourceModel::Downloading, ResourceModel::Ready}));
    QCOMPARE(watch.state(2), int(ResourceModel::Missing));
}

/// Theme 1 brings filter 11, which a model of filters shows.
void tst_ResourceModel_fetch::itemsThatShareFilesFollow()
{
    ResourceModel themes;
    ResourceModel filters(ResourceModel::Filter);
    const ModelWatch watch(filters);
    EXAMINED(filters);
    QCOMPARE(watch.state(11), int(ResourceModel::Missing));
    QVERIFY(themes.fetch(guid(1)));
    QTRY_COMPARE(watch.state(11), int(ResourceModel::Ready));
    QCOMPARE(watch.state(13), int(ResourceModel::Missing));
}

void tst_ResourceModel_fetch::failureIsTold()
{
    for (const QByteArray& target :
         {archiveTarget(13), QByteArray("/config/VideoFilters/13.zip")}) {
        m_world.route(target,
                      [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    }
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QSignalSpy ended(&model, &ResourceModel::fetchEnded);
    QVERIFY(model.fetch(guid(13)));
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 13 failed")});
    QCOMPARE(watch.state(13), int(ResourceModel::Failed));
    const QString reason = STransferFailure::causeText(eFailure_NotOnServer);
    QCOMPARE(watch.value(13, ResourceModel::ErrorTextRole).toString(), reason);
    QCOMPARE(ended.first().at(2).toString(), reason);
    QVERIFY(watch.value(13, ResourceModel::ErrorDetailsRole)
                .toString()
                .contains(text("VideoFilters/13.zip")));
}

void tst_ResourceModel_fetch::failureIsForgottenByTheNextAttempt()
{
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.answer(HttpAnswer(500).body("no"));
        return true;
    });
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(model.fetch(guid(13)));
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Failed));
    m_world.setFault({});
    QVERIFY(model.fetch(guid(13)));
    QVERIFY(watch.value(13, ResourceModel::ErrorTextRole).toString().isEmpty());
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Ready));
    QVERIFY(watch.value(13, ResourceModel::ErrorTextRole).toString().isEmpty());
}

void tst_ResourceModel_fetch::cancelEndsTheDownload()
{
    stall(13);
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(model.fetch(guid(13)));
    QTRY_VERIFY(m_world.targets().contains(archiveTarget(13)));
    model.cancel(guid(13));
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 13 cancelled")});
    QCOMPARE(watch.state(13), int(ResourceModel::Missing));
    QVERIFY(watch.value(13, ResourceModel::ErrorTextRole).toString().isEmpty());
    QCOMPARE(CatalogueUse::count(), 0);
}

void tst_ResourceModel_fetch::waitingDownloadIsCancelled()
{
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(model.fetch(guid(13)));
    model.cancel(guid(13));
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 13 cancelled")});
    model.cancel(guid(13)); // nothing to cancel
    model.cancel(guid(99));
}

void tst_ResourceModel_fetch::unknownItemIsRefused()
{
    ResourceModel model;
    QVERIFY(!model.fetch(guid(99)));
    QVERIFY(!model.update(guid(99)));
    QVERIFY(!model.remove(guid(99)));
    QVERIFY(!model.apply(guid(99)));
    QVERIFY(!model.undoRemove());
    QCOMPARE(model.rowOf(guid(99)), -1);
    QVERIFY(!model.valueOf(guid(99), text("state")).isValid());
    QVERIFY(!model.valueOf(guid(1), text("nothing")).isValid());
    QCOMPARE(model.valueOf(guid(1), text("name")).toString(), text("1"));
}

void tst_ResourceModel_fetch::manyItemsAreFetchedInTurn()
{
    ResourceModel themes;
    ResourceModel filters(ResourceModel::Filter);
    const ModelWatch themeWatch(themes);
    const ModelWatch filterWatch(filters);
    for (const int number : {1, 2})
        QVERIFY(themes.fetch(guid(number)));
    for (const int number : {11, 13})
        QVERIFY(filters.fetch(guid(number)));
    QTRY_COMPARE(themeWatch.ends().size() + filterWatch.ends().size(), 4);
    for (const int number : {1, 2})
        QCOMPARE(themeWatch.state(number), int(ResourceModel::Ready));
    for (const int number : {11, 13})
        QCOMPARE(filterWatch.state(number), int(ResourceModel::Ready));
}

void tst_ResourceModel_fetch::downloadOfAnotherIsFollowed()
{
    ResourceModel model(ResourceModel::Filter);
    ModelWatch watch(model);
    EXAMINED(model);
    watch.watchStates(13);
    HeldAnswer held;
    hold(13, held);
    MVThemeDownLoader other(nullptr);
    other.download(&StorageWorld::filter(13));
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Downloading));
    QVERIFY(held.hasArrived());
    model.cancel(guid(13)); // that of another goes on
    held.release();
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 13 complete")});
    QCOMPARE(
        watch.states(),
        (QVector<int>{ResourceModel::Missing, ResourceModel::Downloading, ResourceModel::Ready}));
}

void tst_ResourceModel_fetch::downloadBegunBeforeTheModelIsNotTold()
{
    HeldAnswer held;
    hold(13, held);
    MVThemeDownLoader other(nullptr);
    other.download(&StorageWorld::filter(13));
    QVERIFY(held.hasArrived());
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QCOMPARE(watch.state(13), int(ResourceModel::Missing));
    held.release();
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Ready));
    QCOMPARE(watch.ends(), QStringList());
}

void tst_ResourceModel_fetch::reloadStopsAndResumes()
{
    ResourceModel model(ResourceModel::Filter);
    ModelWatch watch(model);
    EXAMINED(model);
    watch.watchStates(13);
    HeldAnswer held;
    hold(13, held);
    QVERIFY(model.fetch(guid(13)));
    QVERIFY(held.hasArrived());
    QVERIFY(MVThemeMgr::init()->tryReload());
    QVERIFY(held.hasArrived()); // requested again
    held.release();
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 13 complete")});
    QCOMPARE(
        watch.states(),
        (QVector<int>{ResourceModel::Missing, ResourceModel::Downloading, ResourceModel::Ready}));
}

void tst_ResourceModel_fetch::reloadWithdrawsAnItem()
{
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    stall(13);
    QVERIFY(model.fetch(guid(13)));
    QTRY_VERIFY(m_world.targets().contains(archiveTarget(13)));
    QFile::remove(m_world.downloadedFile("resource_display.xml"));
    QFile::remove(m_world.downloadedFile("resource_config.xml"));
    QVERIFY(MVThemeMgr::init()->tryReload());
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 13 cancelled")});
    QCOMPARE(model.count(), 0);
}

void tst_ResourceModel_fetch::applyFetchesAndApplies()
{
    ResourceModel model;
    ResourceModel second;
    const ModelWatch watch(model);
    const ModelWatch secondWatch(second);
    QVERIFY(model.apply(guid(1)));
    QTRY_COMPARE(watch.ends(), (QStringList{text("fetched 1 complete"), text("applied 1")}));
    QTRY_COMPARE(secondWatch.ends(), QStringList{text("fetched 1 complete")});
}

void tst_ResourceModel_fetch::applyOfAReadyItemAsksNoServer()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    ResourceModel model;
    const ModelWatch watch(model);
    const int before = m_world.targets().size();
    QVERIFY(model.apply(guid(1)));
    QCOMPARE(watch.ends(), QStringList{text("applied 1")});
    QCOMPARE(m_world.targets().size(), before);
}

void tst_ResourceModel_fetch::applyOfAnItemThatCannotBeFetched()
{
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.answer(HttpAnswer(404).body("no"));
        return true;
    });
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    QVERIFY(model.apply(guid(13)));
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 13 failed")});
    m_world.setFault({});
    QVERIFY(model.fetch(guid(13))); // which does not apply it
    QTRY_COMPARE(watch.ends().size(), 2);
    QCOMPARE(watch.ends().constLast(), text("fetched 13 complete"));
}

void tst_ResourceModel_fetch::otherKindForgetsTheChoice()
{
    HeldAnswer held;
    hold(13, held);
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    QVERIFY(model.apply(guid(13)));
    QVERIFY(held.hasArrived());
    model.setKind(ResourceModel::Theme);
    model.setKind(ResourceModel::Filter);
    held.release();
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 13 complete")});
}

void tst_ResourceModel_fetch::lastChoiceWins_data()
{
    QTest::addColumn<bool>("lastWins");
    QTest::addColumn<QStringList>("applied");
    QTest::newRow("last choice wins") << true << QStringList{text("applied 11")};
    QTest::newRow("each applies") << false << QStringList{text("applied 11"), text("applied 13")};
}

void tst_ResourceModel_fetch::lastChoiceWins()
{
    QFETCH(bool, lastWins);
    QFETCH(QStringList, applied);
    hostSettings().lastChoiceWins = lastWins;
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    HeldAnswer held;
    hold(13, held);
    QVERIFY(model.apply(guid(13)));
    QVERIFY(held.hasArrived());
    QVERIFY(model.apply(guid(11)));
    QTRY_VERIFY(watch.ends().contains(text("applied 11")));
    held.release();
    QTRY_VERIFY(watch.ends().contains(text("fetched 13 complete")));
    QCOMPARE(watch.ends().filter(text("applied")), applied);
}

void tst_ResourceModel_fetch::receiverMayReloadTheCatalogue()
{
    ResourceModel model;
    const ModelWatch watch(model);
    int reloads = 0;
    const auto reload = [&reloads] { reloads += MVThemeMgr::init()->tryReload() ? 1 : 0; };
    connect(&model, &ResourceModel::fetchEnded, &model, reload);
    connect(&model, &ResourceModel::applied, &model, reload);
    QVERIFY(model.apply(guid(1)));
    QTRY_COMPARE(watch.ends(), (QStringList{text("fetched 1 complete"), text("applied 1")}));
    QCOMPARE(reloads, 2);
    EXAMINED(model);
    QCOMPARE(watch.state(1), int(ResourceModel::Ready));
}

void tst_ResourceModel_fetch::receiverMayDestroyTheModel()
{
    auto model = std::make_unique<ResourceModel>();
    connect(model.get(), &ResourceModel::fetchEnded, this, [&model] { model.reset(); });
    QVERIFY(model->apply(guid(1)));
    QTRY_VERIFY(!model);
    QCOMPARE(CatalogueUse::count(), 0);
}

void tst_ResourceModel_fetch::destroyedModelEndsItsDownload()
{
    stall(13);
    auto model = std::make_unique<ResourceModel>(ResourceModel::Filter);
    QVERIFY(model->fetch(guid(13)));
    QTRY_VERIFY(m_world.targets().contains(archiveTarget(13)));
    model.reset();
    QCOMPARE(CatalogueUse::count(), 0);
    QVERIFY(MVThemeMgr::init()->tryReload());
}

MV_TEST_MAIN(tst_ResourceModel_fetch)
#include "tst_ResourceModel_fetch.moc"
