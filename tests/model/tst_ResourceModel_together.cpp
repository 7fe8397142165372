// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CatalogueUpdate.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "model/ResourceFilterModel.h"
#include "ModelWatch.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <random>

/// Tests that models obey the rules of models while everything happens at once, in many orders.
class tst_ResourceModel_together : public QObject
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

    void everythingAtOnce_data();
    void everythingAtOnce();

private:
    void act(int action, ResourceModel& model, const QString& guid);

    StorageWorld m_world;
};

void tst_ResourceModel_together::everythingAtOnce_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 8; ++seed)
        QTest::addRow("order %d", seed) << seed;
}

void tst_ResourceModel_together::act(int action, ResourceModel& model, const QString& guid)
{
    switch (action) {
    case 0:
    case 1:
        model.fetch(guid);
        break;
    case 2:
        model.cancel(guid);
        break;
    case 3:
        model.update(guid);
        break;
    case 4:
        model.remove(guid);
        break;
    case 5:
        model.undoRemove();
        break;
    case 6:
        model.apply(guid);
        break;
    case 7:
        MVThemeMgr::init()->load(true);
        break;
    case 8:
        model.setFavourite(guid, true);
        model.setFavourite(guid, false);
        break;
    default:
        QCoreApplication::processEvents();
    }
}

/// In the end every item can be fetched, and the models agree.
void tst_ResourceModel_together::everythingAtOnce()
{
    QFETCH(int, seed);
    std::mt19937 random(static_cast<unsigned>(seed));
    ResourceModel themes;
    ResourceModel filters(ResourceModel::Filter);
    ResourceModel others;
    ResourceFilterModel ready;
    const QAbstractItemModelTester tester(&ready,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    ready.setSourceModel(&themes);
    ready.setReadyOnly(true);
    ready.setOrder(ResourceFilterModel::Size);
    const ModelWatch watch(themes);
    const ModelWatch filterWatch(filters);
    const ModelWatch otherWatch(others);
    CatalogueUpdate update;
    connect(&update, &CatalogueUpdate::contentArrived, this,
            [] { MVThemeMgr::init()->load(true); });
    update.start();
    for (int step = 0; step < 60; ++step) {
        const int action = static_cast<int>(random() % 12);
        const bool isFilter = random() % 2 == 0;
        const int number =
            isFilter ? (random() % 2 == 0 ? 11 : 13) : 1 + static_cast<int>(random() % 2);
        act(action, isFilter ? filters : themes, CatalogueFiles::guid(number));
    }
    const auto isIdle = [](const ModelWatch& each, std::initializer_list<int> numbers) {
        return std::none_of(numbers.begin(), numbers.end(), [&each](int number) {
            return each.value(number, ResourceModel::BusyRole).toBool();
        });
    };
    QTRY_VERIFY_WITH_TIMEOUT(
        !update.isRunning() && isIdle(watch, {1, 2}) && isIdle(filterWatch, {11, 13}), 30000);
    QVERIFY(themes.fetch(CatalogueFiles::guid(1)));
    QVERIFY(themes.fetch(CatalogueFiles::guid(2)));
    for (const int number : {1, 2})
        QTRY_COMPARE_WITH_TIMEOUT(otherWatch.state(number), int(ResourceModel::Ready), 30000);
    QCOMPARE(ready.count(), 2);
    QCOMPARE(CatalogueUse::count(), 0);
    QCOMPARE(watch.resets() + filterWatch.resets() + otherWatch.resets(), 0);
}

MV_TEST_MAIN(tst_ResourceModel_together)
#include "tst_ResourceModel_together.moc"
