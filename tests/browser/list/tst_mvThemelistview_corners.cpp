// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "catalogue/MVThemeMgr.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QLabel>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QToolButton>
#include <QVBoxLayout>

#include <optional>

/// Tests what hosts and users may do at awkward moments.
class tst_mvThemelistview_corners : public QObject
{
    Q_OBJECT

private slots:
    void adding_behind_a_filter_that_shows_nothing_opens_nothing();
    void escape_on_a_cells_button_closes_the_dialog_around_the_list();
    void a_host_may_destroy_the_list_when_a_favourite_changes_data();
    void a_host_may_destroy_the_list_when_a_favourite_changes();
    void the_preview_plays_on_under_a_mouse_that_stayed_during_the_download();
    void layouts_of_the_host_follow_what_changes_around_a_filled_list_data();
    void layouts_of_the_host_follow_what_changes_around_a_filled_list();
};

namespace {

/// Gives a label a text when the list gets its first cell.
class Teller : public QObject
{
public:
    Teller(const mvThemelistview& list, QLabel& label)
        : m_label(label)
    {
        list.viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ChildAdded)
            m_label.setText(QStringLiteral("there are cells"));
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel& m_label;
};

} // namespace

void tst_mvThemelistview_corners::adding_behind_a_filter_that_shows_nothing_opens_nothing()
{
    BrowserWorld world;
    world.addTheme(1, QStringLiteral("Alpha"));
    world.load();
    ListWindow list(UIItem_Themes);
    list.view()->reapplyFilter(MVThemeSortFilterProxyModel::favouriteThemes, QString());
    list.view()->addItem(*BrowserWorld::theme(1));
    QCOMPARE(list.rows()->rowCount(), 1);
    QCOMPARE(list.cellCount(), 0);
    list.view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QVERIFY(list.cell(0));
}

void tst_mvThemelistview_corners::escape_on_a_cells_button_closes_the_dialog_around_the_list()
{
    BrowserWorld world;
    world.addTheme(1, QStringLiteral("Alpha"));
    world.load();
    QDialog dialog;
    dialog.resize(400, 300);
    auto* const view = new mvThemelistview(&dialog);
    view->resize(dialog.size());
    view->setUIItemType(UIItem_Themes);
    view->initData({}, false);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto* const cell = view->findChild<MVThemeItemWdg*>();
    QToolButton* const heart = buttonOf(cell, "btnCollect_No");
    heart->show();
    heart->setFocus();
    QSignalSpy finished(&dialog, &QDialog::finished);
    QTest::keyClick(heart, Qt::Key_Escape);
    QCOMPARE(finished.count(), 1);
}

void tst_mvThemelistview_corners::a_host_may_destroy_the_list_when_a_favourite_changes_data()
{
    QTest::addColumn<bool>("bySignal");
    QTest::newRow("in the button's callback") << false;
    QTest::newRow("on the catalogue's signal") << true;
}

void tst_mvThemelistview_corners::a_host_may_destroy_the_list_when_a_favourite_changes()
{
    QFETCH(bool, bySignal);
    BrowserWorld world;
    world.addTheme(1, QStringLiteral("Alpha"));
    world.load();
    ListWindow list(UIItem_Themes);
    list.fill();
    const SCfg_Item* told = nullptr;
    QObject context;
    if (bySignal)
        connect(MVThemeMgr::init(), &MVThemeMgr::sigThemesCollected, &context,
                [&list](const SCfg_Item*) { delete list.view(); });
    MVThemeItemSubwdgt_Preview::setCbBtnCollect([&](SCfg_Item* item) {
        told = item;
        delete list.view();
    });
    // Not by mouse: Qt itself still uses a button after its click.
    faceOf(list.cell(0))->onBtnCollect();
    MVThemeItemSubwdgt_Preview::setCbBtnCollect({});
    QVERIFY(!list.view());
    QCOMPARE(told, BrowserWorld::theme(1));
}

void tst_mvThemelistview_corners::
    the_preview_plays_on_under_a_mouse_that_stayed_during_the_download()
{
    BrowserWorld world;
    world.addTheme(1, QStringLiteral("Alpha"), BrowserWorld::OnServer);
    world.load();
    ListWindow list(UIItem_Themes);
    list.fill();
    HostTrace host;
    list.moveTo(frameOf(list.cell(0)));
    QVERIFY(playsAnimation(list.cell(0)));
    list.click(frameOf(list.cell(0)));
    QTRY_COMPARE(host.count(QStringLiteral("downloaded Alpha")), 1);
    QVERIFY(playsAnimation(list.cell(0)));
    QVERIFY(buttonOf(list.cell(0), "btnCollect_No")->isVisible());
}

void tst_mvThemelistview_corners::
    layouts_of_the_host_follow_what_changes_around_a_filled_list_data()
{
    QTest::addColumn<bool>("isMeanwhile");
    QTest::newRow("elsewhere, before it is filled") << false;
    QTest::newRow("above it, while it is filled") << true;
}

/// Many new cells get their layout at once, without the requests that other widgets rely on.
void tst_mvThemelistview_corners::layouts_of_the_host_follow_what_changes_around_a_filled_list()
{
    QFETCH(bool, isMeanwhile);
    constexpr int manyThemes = 20;
    BrowserWorld world;
    for (int number = 1; number <= manyThemes; ++number)
        world.addTheme(number, QStringLiteral("Theme %1").arg(number));
    world.load();
    QWidget window;
    auto* const pane = new QWidget(&window);
    auto* const view = new mvThemelistview(pane);
    (new QVBoxLayout(pane))->addWidget(view);
    auto* const box = new QWidget(isMeanwhile ? pane : &window);
    auto* const label = new QLabel(box);
    (new QVBoxLayout(box))->addWidget(label, 0, Qt::AlignLeft);
    if (isMeanwhile)
        pane->layout()->addWidget(box);
    box->resize(200, 50);
    view->setUIItemType(UIItem_Themes);
    view->setCellsOnDemand(false);
    pane->resize(400, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    std::optional<Teller> teller;
    if (isMeanwhile)
        teller.emplace(*view, *label);
    else
        label->setText(QStringLiteral("there will be cells"));
    view->initData({}, false);
    QVERIFY(!label->text().isEmpty());
    QTRY_COMPARE(label->width(), label->sizeHint().width());
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_corners)
#include "tst_mvThemelistview_corners.moc"
