// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckFixture.h"
#include "host/HostSettings.h"
#include "ModelWatch.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QSignalSpy>

/// Tests that the rows follow the catalogue one by one.
class tst_ResourceModel_rows : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.fresh();
        hostSettings().showWithoutPreviews = true;
    }

    void loadedCatalogueIsShown();
    void loadFollows_data();
    void loadFollows();
    void clearRemovesAllRows();
    void refusedLoadChangesNothing();
    void renamedItemChangesItsRowOnly();
    void itemThatOccursTwiceHasOneRow();
    void kindCanBeChanged();
    void favouritesFollow();
    void favouriteOfAnUnknownItemIsRefused();
    void favouritesOfFiltersAndThemesDiffer();
    void severalModelsFollow();
    void hostsCallbackGoesOn();
    void shownRowsAreExaminedFirst();
    void largeCatalogueNeedsFewSignals();

private:
    void load(const QVector<int>& themes, const QVector<int>& filters = {})
    {
        m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, themes, filters);
        MVThemeMgr::init()->load(true);
    }

    CheckWorld m_world;
};

namespace {

using Numbers = QVector<int>;

/// Returns the numbers in another order. Their count must not be a multiple of 7.
Numbers shuffled(const Numbers& numbers)
{
    Numbers result;
    for (int i = 0; i < numbers.size(); ++i)
        result.append(numbers.at(7 * i % numbers.size()));
    return result;
}

} // namespace

void tst_ResourceModel_rows::loadedCatalogueIsShown()
{
    load({1, 2}, {7});
    ResourceModel themes;
    const ModelWatch watch(themes);
    QCOMPARE(themes.count(), 2);
    QCOMPARE(watch.value(2, Qt::DisplayRole).toString(), text("Theme 2"));
    QCOMPARE(watch.value(2, ResourceModel::KindRole).toInt(), int(ResourceModel::Theme));
    ResourceModel filters(ResourceModel::Filter);
    QCOMPARE(filters.count(), 1);
    QVERIFY(!themes.index(2).isValid());
    QVERIFY(!themes.data({}, ResourceModel::GuidRole).isValid());
    EXAMINED(themes);
    EXAMINED(filters);
}

void tst_ResourceModel_rows::loadFollows_data()
{
    QTest::addColumn<Numbers>("before");
    QTest::addColumn<Numbers>("after");
    QTest::addColumn<int>("moves");
    const Numbers many = CheckWorld::numbers(300);
    QTest::newRow("first") << Numbers{} << Numbers{1, 2, 3} << 0;
    QTest::newRow("same") << Numbers{1, 2, 3} << Numbers{1, 2, 3} << 0;
    QTest::newRow("appended") << Numbers{1, 2} << Numbers{1, 2, 3, 4} << 0;
    QTest::newRow("inserted") << Numbers{1, 4, 7} << Numbers{0, 1, 2, 3, 4, 5, 7} << 0;
    QTest::newRow("withdrawn") << Numbers{1, 2, 3, 4, 5} << Numbers{2, 5} << 0;
    QTest::newRow("all withdrawn") << Numbers{1, 2, 3} << Numbers{9} << 0;
    QTest::newRow("first moved to the end") << Numbers{1, 2, 3, 4} << Numbers{2, 3, 4, 1} << 1;
    QTest::newRow("last moved to the front") << Numbers{1, 2, 3, 4} << Numbers{4, 1, 2, 3} << 1;
    QTest::newRow("reversed") << Numbers{1, 2, 3, 4, 5} << Numbers{5, 4, 3, 2, 1} << 4;
    QTest::newRow("everything") << Numbers{1, 2, 3, 4, 5} << Numbers{6, 5, 2, 7, 1, 8} << 2;
    QTest::newRow("many shuffled") << many << shuffled(many) << 0;
    QTest::newRow("many of others") << shuffled(many).mid(100) << shuffled(many).mid(0, 200) << 0;
}

void tst_ResourceModel_rows::loadFollows()
{
    QFETCH(Numbers, before);
    QFETCH(Numbers, after);
    QFETCH(int, moves);
    load(before);
    ResourceModel model;
    ModelWatch watch(model);
    QSignalSpy counted(&model, &ResourceModel::countChanged);
    QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
    int misplaced = 0;
    const auto findAll = [&] {
        for (int row = 0; row < model.count(); ++row)
            misplaced +=
                model.rowOf(model.data(model.index(row), ResourceModel::GuidRole).toString()) == row
                ? 0
                : 1;
    };
    connect(&model, &QAbstractItemModel::rowsRemoved, &model, findAll);
    connect(&model, &QAbstractItemModel::rowsInserted, &model, findAll);
    connect(&model, &QAbstractItemModel::rowsMoved, &model, findAll);
    connect(&model, &QAbstractItemModel::layoutChanged, &model, findAll);
    findAll();
    watch.keep();
    load(after);
    QCOMPARE(watch.numbers(), after);
    QVERIFY(watch.haveRowsKeptTheirItems());
    QCOMPARE(watch.resets(), 0);
    QCOMPARE(misplaced, 0);         // at any time
    QCOMPARE(moved.count(), moves); // the fewest, or the whole layout at once
    QCOMPARE(counted.count(), before.size() == after.size() ? 0 : 1);
    EXAMINED(model);
}

void tst_ResourceModel_rows::clearRemovesAllRows()
{
    load({1, 2, 3});
    ResourceModel model;
    const ModelWatch watch(model);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    MVThemeMgr::init()->clear();
    QCOMPARE(model.count(), 0);
    QCOMPARE(removed.count(), 1);
    EXAMINED(model);
}

void tst_ResourceModel_rows::refusedLoadChangesNothing()
{
    load({1, 2});
    ResourceModel model;
    const ModelWatch watch(model);
    m_world.writeCatalogue(MVThemeMgr::eLoadDir_Download, {3}, {});
    {
        const CatalogueUse use;
        QVERIFY(!MVThemeMgr::init()->tryReload());
        QCOMPARE(watch.numbers(), (Numbers{1, 2}));
        EXAMINED(model); // goes on
        QCOMPARE(watch.state(1), int(ResourceModel::Ready));
    }
    QVERIFY(MVThemeMgr::init()->tryReload());
    QCOMPARE(watch.numbers(), Numbers{3});
}

void tst_ResourceModel_rows::renamedItemChangesItsRowOnly()
{
    load({1, 2, 3});
    ResourceModel model;
    const ModelWatch watch(model);
    EXAMINED(model);
    const QString path = MVThemeMgr::init()->Path_resource_xml(MVThemeMgr::eLoadDir_Download,
                                                               MVThemeMgr::eDirTag_Display);
    CatalogueFiles::write(path, CatalogueFiles::read(path).replace("Theme 2", "Renamed"));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    MVThemeMgr::init()->load(true);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toModelIndex().row(), 1);
    QCOMPARE(changed.first().at(1).toModelIndex().row(), 1);
    QCOMPARE(watch.value(2, ResourceModel::NameRole).toString(), text("Renamed"));
}

void tst_ResourceModel_rows::itemThatOccursTwiceHasOneRow()
{
    load({1, 2, 1, 3, 2});
    ResourceModel model;
    const ModelWatch watch(model);
    QCOMPARE(watch.numbers(), (Numbers{1, 2, 3}));
}

void tst_ResourceModel_rows::kindCanBeChanged()
{
    load({1, 2}, {7});
    ResourceModel model;
    const ModelWatch watch(model);
    QSignalSpy changed(&model, &ResourceModel::kindChanged);
    QSignalSpy counted(&model, &ResourceModel::countChanged);
    QSignalSpy examining(&model, &ResourceModel::examiningChanged);
    EXAMINED(model);
    QCOMPARE(model.rowOf(CatalogueFiles::guid(2)), 1);
    examining.clear();
    model.setKind(ResourceModel::Filter);
    QCOMPARE(model.rowOf(CatalogueFiles::guid(7)), 0);
    QCOMPARE(model.rowOf(CatalogueFiles::guid(2)), -1);
    QCOMPARE(counted.count(), 1);
    QVERIFY(model.isExamining());
    QVERIFY(!examining.isEmpty());
    QCOMPARE(watch.numbers(), Numbers{7});
    QCOMPARE(changed.count(), 1);
    QCOMPARE(watch.resets(), 1);
    EXAMINED(model);
    QCOMPARE(watch.state(7), int(ResourceModel::Ready));
    model.setKind(static_cast<ResourceModel::Kind>(99));
    QCOMPARE(model.kind(), ResourceModel::Filter);
}

void tst_ResourceModel_rows::favouritesFollow()
{
    load({1, 2});
    ResourceModel model;
    const ModelWatch watch(model);
    EXAMINED(model);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QVERIFY(model.setFavourite(CatalogueFiles::guid(2), true));
    QVERIFY(watch.value(2, ResourceModel::FavouriteRole).toBool());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(2).value<QVector<int>>(),
             QVector<int>{ResourceModel::FavouriteRole});
    // By whomever.
    SCfg_Item* const item =
        MVThemeMgr::init()->findItemByIDFromDisplay(eCfgItem_Theme, CatalogueFiles::guid(2));
    item->m_bCollected = false;
    MVThemeMgr::init()->setItemCollected(item);
    QVERIFY(!watch.value(2, ResourceModel::FavouriteRole).toBool());
    QVERIFY(model.setFavourite(CatalogueFiles::guid(1), true));
    QVERIFY(watch.value(1, ResourceModel::FavouriteRole).toBool());
    QVERIFY(MVThemeMgr::init()->saveFavourites(nullptr));
    load({2, 1});
    QVERIFY(watch.value(1, ResourceModel::FavouriteRole).toBool());
    model.setFavourite(CatalogueFiles::guid(1), false);
    MVThemeMgr::init()->saveFavourites(nullptr);
}

void tst_ResourceModel_rows::favouriteOfAnUnknownItemIsRefused()
{
    load({1});
    ResourceModel model;
    QVERIFY(!model.setFavourite(CatalogueFiles::guid(5), true));
    ResourceModel motions(ResourceModel::Motion);
    QVERIFY(!motions.setFavourite(CatalogueFiles::guid(1), true));
}

void tst_ResourceModel_rows::favouritesOfFiltersAndThemesDiffer()
{
    load({1}, {1});
    ResourceModel themes;
    ResourceModel filters(ResourceModel::Filter);
    const ModelWatch themeWatch(themes);
    const ModelWatch filterWatch(filters);
    QVERIFY(filters.setFavourite(CatalogueFiles::guid(1), true));
    QVERIFY(filterWatch.value(1, ResourceModel::FavouriteRole).toBool());
    QVERIFY(!themeWatch.value(1, ResourceModel::FavouriteRole).toBool());
    filters.setFavourite(CatalogueFiles::guid(1), false);
}

void tst_ResourceModel_rows::severalModelsFollow()
{
    load({1, 2});
    ResourceModel first;
    auto second = std::make_unique<ResourceModel>();
    const ModelWatch watch(first);
    second.reset();
    ResourceModel third;
    load({1, 2, 3});
    QCOMPARE(first.count(), 3);
    QCOMPARE(third.count(), 3);
    EXAMINED(first);
    QCOMPARE(watch.state(3), int(ResourceModel::Ready));
}

/// The model connects itself; a host that does the same is not disturbed.
void tst_ResourceModel_rows::hostsCallbackGoesOn()
{
    load({1});
    QSignalSpy collected(MVThemeMgr::init(), &MVThemeMgr::sigThemesCollected);
    ResourceModel model;
    model.setFavourite(CatalogueFiles::guid(1), true);
    model.setFavourite(CatalogueFiles::guid(1), false);
    QCOMPARE(collected.count(), 2);
}

void tst_ResourceModel_rows::shownRowsAreExaminedFirst()
{
    load(CheckWorld::numbers(1000));
    ResourceModel model;
    const auto stateOf = [&model](int row) {
        return model.index(row).data(ResourceModel::StateRole).toInt();
    };
    int ofHidden = -1; // when that of the shown row is known
    connect(&model, &QAbstractItemModel::dataChanged, &model, [&] {
        if (ofHidden < 0 && stateOf(990) != ResourceModel::Unknown)
            ofHidden = stateOf(800);
    });
    model.showRows(990, 5);
    QTRY_VERIFY_WITH_TIMEOUT(!model.isExamining(), 90000);
    QCOMPARE(ofHidden, int(ResourceModel::Unknown));
    QCOMPARE(stateOf(800), int(ResourceModel::Ready));
}

/// A view does as much work as there are signals.
void tst_ResourceModel_rows::largeCatalogueNeedsFewSignals()
{
    const Numbers many = CheckWorld::numbers(3000);
    load(many);
    ResourceModel model;
    int changedRows = 0;
    int changes = 0;
    connect(&model, &QAbstractItemModel::dataChanged, &model,
            [&](const QModelIndex& first, const QModelIndex& last) {
                changedRows += last.row() - first.row() + 1;
                ++changes;
            });
    QTRY_VERIFY_WITH_TIMEOUT(!model.isExamining(), 90000);
    QVERIFY(changedRows <= 2 * many.size()); // pictures, then states
    QVERIFY2(changes < many.size() / 2, qPrintable(QString::number(changes)));
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    Numbers next = many.mid(10);
    next.append(20000);
    load(next);
    QCOMPARE(model.count(), 2991);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(inserted.count(), 1);
}

MV_TEST_MAIN(tst_ResourceModel_rows)
#include "tst_ResourceModel_rows.moc"
