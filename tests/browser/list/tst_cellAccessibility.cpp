// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/SListFilter.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QApplication>
#include <QLocale>
#include <QSignalSpy>
#include <QStandardItemModel>

#include <memory>

/// Tests what assistive technology reads of a list and does with it.
class tst_cellAccessibility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void readsTheList();
    void readsRows_data();
    void readsRows();
    void readsRowsWithoutACell();
    void readsWhatChanges();
    void positionsFollowTheFilter();
    void rowsAreWhereTheyAreShown();
    void tellsCurrentAndFocus();
    void tellsWhatIsScrolledAway();
    void offersActions();
    void tellsKeysAndNamesOfActions_data();
    void tellsKeysAndNamesOfActions();
    void downloadsByActionsAlone();
    void cancelsByActionAlone();
    void cancelsByTheProgressBar();
    void progressBarIsReadOnly();
    void failureIsRead();
    void togglesAFavourite();
    void asksForDetails();
    void opensMore();
    void actionOnARowThatHasGone();
    void survivesAReload();

private:
    QAccessibleInterface* list() const;
    QAccessibleInterface* row(int index) const { return list()->child(index); }
    QString spoken(int index) const { return row(index)->text(QAccessible::Name); }
    void act(int index, const QString& action) const;

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

const QString filesOfLake = QStringLiteral("/config/Themes/2.zip");
const QString press = QAccessibleActionInterface::pressAction();

} // namespace

void tst_cellAccessibility::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void tst_cellAccessibility::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Sea"), BrowserWorld::OnDisk, QStringLiteral("festivals"));
    m_world->addTheme(2, QStringLiteral("Lake"), BrowserWorld::OnServer, QStringLiteral("travel"));
    m_world->addTheme(3, QStringLiteral("Road"));
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    m_world->load();
    BrowserWorld::setFavourite(BrowserWorld::theme(1), true);
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->view()->setAccessibleName(QStringLiteral("Themes"));
    m_list->fill();
}

QAccessibleInterface* tst_cellAccessibility::list() const
{
    return QAccessible::queryAccessibleInterface(m_list->view());
}

void tst_cellAccessibility::act(int index, const QString& action) const
{
    QVERIFY2(row(index)->actionInterface()->actionNames().contains(action), qPrintable(action));
    row(index)->actionInterface()->doAction(action);
}

void tst_cellAccessibility::readsTheList()
{
    QCOMPARE(list()->role(), QAccessible::List);
    QCOMPARE(list()->text(QAccessible::Name), QStringLiteral("Themes"));
    QCOMPARE(list()->childCount(), 4);
    QVERIFY(!list()->child(-1));
    QVERIFY(!list()->child(4));
    for (int index = 0; index < 4; ++index) {
        QCOMPARE(row(index)->role(), QAccessible::ListItem);
        QCOMPARE(row(index)->parent(), list());
        QCOMPARE(list()->indexOfChild(row(index)), index);
        QCOMPARE(row(index), list()->child(index)); // the same object each time
        QCOMPARE(row(index)->window(), m_list->window().windowHandle());
    }
    QCOMPARE(list()->indexOfChild(list()), -1);
}

void tst_cellAccessibility::readsRows_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a favourite on disk")
        << 0 << QStringLiteral("Sea, festivals, favourite, on disk, 1 of 3");
    QTest::newRow("not on disk, of unknown size")
        << 1 << QStringLiteral("Lake, travel, not downloaded, 2 of 3");
    QTest::newRow("of no type") << 2 << QStringLiteral("Road, on disk, 3 of 3");
    QTest::newRow("more") << 3 << QStringLiteral("More>>");
}

void tst_cellAccessibility::readsRows()
{
    QFETCH(int, index);
    QFETCH(QString, expected);
    QCOMPARE(spoken(index), expected);
}

void tst_cellAccessibility::readsRowsWithoutACell()
{
    m_list->view()->setCellsOnDemand(true);
    m_list->window().hide();
    m_list->view()->clear();
    m_list->fill();
    QTRY_COMPARE(m_list->cellCount(), 0);
    QCOMPARE(spoken(1), QStringLiteral("Lake, travel, not downloaded, 2 of 3"));
    QVERIFY(row(1)->state().invisible);
}

void tst_cellAccessibility::readsWhatChanges()
{
    m_list->view()->setUpdatable({CatalogueFiles::guid(1)});
    m_list->view()->setNew({CatalogueFiles::guid(3)});
    QCOMPARE(spoken(0), QStringLiteral("Sea, festivals, favourite, update available, 1 of 3"));
    QVERIFY(row(0)->actionInterface()->actionNames().contains(QStringLiteral("Favourite")));
    QCOMPARE(spoken(2), QStringLiteral("Road, new, on disk, 3 of 3"));
    act(2, press);
    QTRY_COMPARE(spoken(2), QStringLiteral("Road, new, on disk, current, 3 of 3"));
    act(0, press);
    QTRY_COMPARE(spoken(2), QStringLiteral("Road, new, on disk, 3 of 3"));
    QCOMPARE(spoken(0),
             QStringLiteral("Sea, festivals, favourite, update available, current, 1 of 3"));
}

void tst_cellAccessibility::positionsFollowTheFilter()
{
    QAccessibleInterface* const sea = row(0);
    QAccessibleInterface* const road = row(2);
    SListFilter filter;
    filter.words = SearchWords(QStringLiteral("a"));
    filter.order = EListOrder::Name;
    m_list->view()->applyFilter(filter);
    QCOMPARE(list()->childCount(), 3);
    QCOMPARE(spoken(0), QStringLiteral("Lake, travel, not downloaded, 1 of 3"));
    QCOMPARE(road, row(1)); // it has kept its object
    filter.words = SearchWords(QStringLiteral("road"));
    m_list->view()->applyFilter(filter);
    QCOMPARE(spoken(0), QStringLiteral("Road, on disk, 1 of 1"));
    QVERIFY(road->isValid());
    QVERIFY(!sea->isValid());
    QVERIFY(sea->state().invalid);
    QCOMPARE(sea->text(QAccessible::Name), QString());
    QCOMPARE(list()->indexOfChild(sea), -1);
}

void tst_cellAccessibility::rowsAreWhereTheyAreShown()
{
    const QRect place = m_list->view()->visualRect(m_list->view()->model()->index(1, 0));
    const QPoint origin = m_list->view()->viewport()->mapToGlobal(place.topLeft());
    QCOMPARE(row(1)->rect(), QRect(origin, place.size()));
    QCOMPARE(list()->childAt(origin.x() + 5, origin.y() + 5), row(1));
    QVERIFY(!list()->childAt(origin.x() - 5000, origin.y()));
    QVERIFY(!row(1)->state().offscreen);
    QVERIFY(!row(1)->state().invisible);
    QVERIFY(!row(1)->childAt(origin.x() + 5, origin.y() + 5)); // nothing is being downloaded
}

void tst_cellAccessibility::tellsCurrentAndFocus()
{
    m_list->window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_list->window()));
    QVERIFY(row(1)->state().focusable);
    QVERIFY(!row(1)->state().focused);
    QVERIFY(row(1)->state().selectable);
    QVERIFY(!row(1)->state().selected);
    act(1, QAccessibleActionInterface::setFocusAction());
    QTRY_VERIFY(row(1)->state().focused);
    QVERIFY(row(1)->state().selected);
    QCOMPARE(list()->focusChild(), row(1));
    QTest::keyClick(m_list->view(), Qt::Key_Left);
    QVERIFY(row(0)->state().focused);
    QVERIFY(!row(1)->state().focused);
}

void tst_cellAccessibility::tellsWhatIsScrolledAway()
{
    m_list = std::make_unique<ListWindow>(UIItem_Themes, QSize(200, 150));
    m_list->fill();
    QVERIFY(!row(0)->state().offscreen);
    QVERIFY(row(3)->state().offscreen);
    m_list->view()->scrollToBottom();
    QVERIFY(row(0)->state().offscreen);
    QVERIFY(!row(3)->state().offscreen);
}

void tst_cellAccessibility::tellsKeysAndNamesOfActions_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("name");
    QTest::newRow("press") << press << QStringList{QStringLiteral("Return")}
                           << QStringLiteral("Download and apply");
    QTest::newRow("favourite") << QStringLiteral("Favourite") << QStringList{QStringLiteral("F")}
                               << QStringLiteral("Add to Favorites");
    QTest::newRow("details") << QStringLiteral("Details") << QStringList()
                             << QStringLiteral("Show details");
    QTest::newRow("cancel") << QStringLiteral("Cancel") << QStringList{QStringLiteral("Escape")}
                            << QStringLiteral("Cancel the download");
}

void tst_cellAccessibility::tellsKeysAndNamesOfActions()
{
    QFETCH(QString, action);
    QAccessibleActionInterface* const actions = row(1)->actionInterface();
    QTEST(actions->keyBindingsForAction(action), "keys");
    QTEST(actions->localizedActionName(action), "name");
    QTEST(actions->localizedActionDescription(action), "name");
}

void tst_cellAccessibility::offersActions()
{
    const QString focus = QAccessibleActionInterface::setFocusAction();
    const QString details = QStringLiteral("Details");
    QCOMPARE(row(0)->actionInterface()->actionNames(),
             (QStringList{press, QStringLiteral("Favourite"), details, focus}));
    QCOMPARE(row(1)->actionInterface()->actionNames(), (QStringList{press, details, focus}));
    QCOMPARE(row(3)->actionInterface()->actionNames(), (QStringList{press, focus}));
    QCOMPARE(row(0)->actionInterface()->localizedActionName(press), QStringLiteral("Apply"));
    QCOMPARE(row(1)->actionInterface()->localizedActionName(press),
             QStringLiteral("Download and apply"));
    QCOMPARE(row(0)->actionInterface()->localizedActionName(QStringLiteral("Favourite")),
             QStringLiteral("Remove from Favorites"));
    QCOMPARE(row(2)->actionInterface()->localizedActionName(QStringLiteral("Favourite")),
             QStringLiteral("Add to Favorites"));
    QCOMPARE(row(0)->actionInterface()->keyBindingsForAction(press),
             QStringList{QStringLiteral("Return")});
}

void tst_cellAccessibility::downloadsByActionsAlone()
{
    m_world->hold(filesOfLake);
    const HostTrace trace;
    act(1, press);
    QTRY_COMPARE(m_world->requests(filesOfLake), 1);
    QVERIFY(spoken(1).startsWith(QLatin1String("Lake, travel, downloading, ")));
    QVERIFY(row(1)->state().busy);
    QCOMPARE(row(1)->childCount(), 1);
    QAccessibleInterface* const progress = row(1)->child(0);
    QCOMPARE(progress->role(), QAccessible::ProgressBar);
    QCOMPARE(progress->parent(), row(1));
    QCOMPARE(row(1)->indexOfChild(progress), 0);
    QCOMPARE(row(1)->indexOfChild(row(0)), -1);
    QVERIFY(!row(1)->child(1));
    QCOMPARE(progress->text(QAccessible::Value), progress->text(QAccessible::Name));
    QCOMPARE(progress->text(QAccessible::Description), QString());
    QCOMPARE(progress->valueInterface()->maximumValue(), QVariant(100));
    const int percent = progress->valueInterface()->currentValue().toInt();
    QVERIFY(percent >= 0 && percent < 100);
    m_world->release();
    QTRY_COMPARE(spoken(1), QStringLiteral("Lake, travel, on disk, current, 2 of 3"));
    QCOMPARE(row(1)->childCount(), 0);
    QVERIFY(!progress->isValid());
    QVERIFY(!row(1)->state().busy);
    QVERIFY(trace.entries().contains(QStringLiteral("clicked Lake")));
}

void tst_cellAccessibility::cancelsByActionAlone()
{
    m_world->stall(filesOfLake);
    act(1, press);
    QTRY_COMPARE(m_world->requests(filesOfLake), 1);
    QVERIFY(!row(1)->actionInterface()->actionNames().contains(press));
    act(1, QStringLiteral("Cancel"));
    QTRY_COMPARE(spoken(1), QStringLiteral("Lake, travel, not downloaded, 2 of 3"));
    QVERIFY(row(1)->actionInterface()->actionNames().contains(press));
}

void tst_cellAccessibility::cancelsByTheProgressBar()
{
    m_world->stall(filesOfLake);
    act(1, press);
    QTRY_COMPARE(m_world->requests(filesOfLake), 1);
    QAccessibleActionInterface* const actions = row(1)->child(0)->actionInterface();
    QCOMPARE(actions->actionNames(), QStringList{QStringLiteral("Cancel")});
    QCOMPARE(actions->localizedActionName(QStringLiteral("Cancel")),
             QStringLiteral("Cancel the download"));
    actions->doAction(QStringLiteral("Cancel"));
    QTRY_COMPARE(spoken(1), QStringLiteral("Lake, travel, not downloaded, 2 of 3"));
}

void tst_cellAccessibility::progressBarIsReadOnly()
{
    m_world->stall(filesOfLake);
    act(1, press);
    QTRY_COMPARE(m_world->requests(filesOfLake), 1);
    QAccessibleInterface* const progress = row(1)->child(0);
    QVERIFY(progress->isValid());
    QVERIFY(progress->state().readOnly);
    QVERIFY(progress->state().busy);
    QVERIFY(!progress->state().selectable && !progress->state().selected);
    QVERIFY(!progress->state().focusable && !progress->state().focused);
    QCOMPARE(progress->rect(), row(1)->rect());
    QCOMPARE(row(1)->childAt(row(1)->rect().x() + 5, row(1)->rect().y() + 5), progress);
    QVERIFY(!row(1)->childAt(row(1)->rect().x() - 5, row(1)->rect().y()));
    progress->actionInterface()->doAction(press); // of the row alone
    QCoreApplication::processEvents();
    QVERIFY(row(1)->state().busy);
    QCOMPARE(m_world->requests(filesOfLake), 1);
}

void tst_cellAccessibility::failureIsRead()
{
    m_world->route(filesOfLake, [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("not here"));
    });
    act(1, press);
    const QString failed = QStringLiteral("Lake, travel, download failed, 2 of 3");
    QTRY_COMPARE(spoken(1), failed);
    QCOMPARE(row(1)->actionInterface()->localizedActionName(press),
             QStringLiteral("Download and apply"));
    m_list->view()->reapplyFilter(0, QString());
    m_list->view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QCOMPARE(spoken(1), failed);
}

void tst_cellAccessibility::togglesAFavourite()
{
    act(2, QStringLiteral("Favourite"));
    QTRY_COMPARE(spoken(2), QStringLiteral("Road, favourite, on disk, 3 of 3"));
    act(2, QStringLiteral("Favourite"));
    QTRY_COMPARE(spoken(2), QStringLiteral("Road, on disk, 3 of 3"));
}

void tst_cellAccessibility::asksForDetails()
{
    const QSignalSpy asked(m_list->view(), &mvThemelistview::detailsRequested);
    act(1, QStringLiteral("Details"));
    QTRY_COMPARE(asked.size(), 1);
    QCOMPARE(asked.first().first().toString(), CatalogueFiles::guid(2));
}

void tst_cellAccessibility::opensMore()
{
    int opened = 0;
    MVThemeItemSubwdgt_Preview::setCbBtnMore([&opened](SCfg_Item*) { ++opened; });
    act(3, press);
    QTRY_COMPARE(opened, 1);
}

void tst_cellAccessibility::actionOnARowThatHasGone()
{
    const HostTrace trace;
    act(2, press);
    m_list->view()->reapplyFilter(3, QString()); // hides it before it can act
    act(0, press);
    QTRY_VERIFY(!trace.entries().isEmpty() || spoken(0).contains(QLatin1String("downloading")));
    QVERIFY(!trace.entries().contains(QStringLiteral("clicked Road")));
}

void tst_cellAccessibility::survivesAReload()
{
    const QAccessible::Id before = QAccessible::uniqueId(row(0));
    m_list->view()->release();
    QVERIFY(!QAccessible::accessibleInterface(before));
    m_world->load();
    m_list->view()->refill();
    QCOMPARE(list()->childCount(), 4);
    QCOMPARE(spoken(0), QStringLiteral("Sea, festivals, on disk, 1 of 3"));
    m_list->close();
}

MV_WIDGET_TEST_MAIN(tst_cellAccessibility)

#include "tst_cellAccessibility.moc"
