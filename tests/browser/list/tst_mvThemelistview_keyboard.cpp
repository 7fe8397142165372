// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserLanguage.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "host/widgets/SkinWidget.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QToolButton>

#include <memory>

/// Tests the list without a mouse: keys, keyboard focus, and what a screen reader is told.
class tst_mvThemelistview_keyboard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void arrowsMoveBetweenCells();
    void enterApplies_data();
    void enterApplies();
    void enterDownloads();
    void enterOpensMore();
    void letterTogglesTheFavourite();
    void letterDoesNothingWhileFilesAreMissing();
    void spacePlaysAndStops();
    void keysWithModifiersAreNotTheCells();
    void heldKeysActOnce_data();
    void heldKeysActOnce();
    void heldArrowsGoOn();
    void outlineShowsWhereTheKeyboardIs();
    void outlineIsPaintedAboveTheCells();
    void outlineFollowsTheScrolling();
    void mouseHidesTheOutline();
    void tabLeavesTheListAtOnce();
    void rowsHaveNames();
    void onlyRowHasItsName();
    void lastItemKeepsItsName();
    void buttonsHaveNames();
    void hoverCanBeKeptFromPlaying();
    void newMetricsResizeTheCells();

private:
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_list->view(), Qt::Key(key), modifiers);
    }
    /// Sends the auto-repeat presses of a held key.
    void repeat(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(m_list->view(), &event);
    }
    QWidget* outline() const;
    QString spokenRow(int row) const;

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

class PaintCounter : public QObject
{
public:
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_count = 0;
};

bool plays(const MVThemeItemWdg* cell)
{
    return cell->findChild<MVThemeItemSubwdgt_Preview*>()->isPlaying();
}

} // namespace

void tst_mvThemelistview_keyboard::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    for (int number = 1; number <= 12; ++number)
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number),
                          number == 2 ? BrowserWorld::OnServer : BrowserWorld::OnDisk);
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    m_list->moveAway();
    m_list->window().activateWindow();
    m_list->view()->clearFocus(); // it received the focus while it had no rows
    m_list->view()->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(m_list->view()->hasFocus());
}

void tst_mvThemelistview_keyboard::cleanup()
{
    MVThemeItemWdg::setPlayedByHover(true);
    MVThemeItemSubwdgt_Preview::setCbBtnMore({});
    BrowserLanguage::install(QStringLiteral("en"));
}

QWidget* tst_mvThemelistview_keyboard::outline() const
{
    const QWidgetList parts = m_list->view()->viewport()->findChildren<QWidget*>();
    for (QWidget* part : parts) {
        if (qstrcmp(part->metaObject()->className(), "CellFocusMark") == 0)
            return part;
    }
    return nullptr;
}

QString tst_mvThemelistview_keyboard::spokenRow(int row) const
{
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(m_list->view());
    return list->child(row)->text(QAccessible::Name);
}

void tst_mvThemelistview_keyboard::arrowsMoveBetweenCells()
{
    QCOMPARE(m_list->view()->currentIndex().row(), 0);
    press(Qt::Key_Right);
    QCOMPARE(m_list->view()->currentIndex().row(), 1);
    press(Qt::Key_Down);
    QVERIFY(m_list->view()->currentIndex().row() > 2);
    press(Qt::Key_End);
    QCOMPARE(m_list->view()->currentIndex().row(), 12);
    press(Qt::Key_Home);
    QCOMPARE(m_list->view()->currentIndex().row(), 0);
}

void tst_mvThemelistview_keyboard::enterApplies_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("return") << int(Qt::Key_Return) << int(Qt::NoModifier);
    QTest::newRow("enter of the keypad") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
}

void tst_mvThemelistview_keyboard::enterApplies()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    const HostTrace trace;
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    press(key, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(applied.size(), 1);
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("clicked Theme 1")});
    QVERIFY(m_list->cell(0)->property("IsChecked").toBool());
}

void tst_mvThemelistview_keyboard::enterDownloads()
{
    const HostTrace trace;
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    QVERIFY(m_list->cell(1)->isDownloading());
    QTRY_COMPARE(trace.count(QStringLiteral("downloaded Theme 2")), 1);
    QCOMPARE(trace.count(QStringLiteral("clicked Theme 2")), 1);
}

void tst_mvThemelistview_keyboard::enterOpensMore()
{
    int opened = 0;
    MVThemeItemSubwdgt_Preview::setCbBtnMore([&opened](SCfg_Item* item) {
        QVERIFY(!item);
        ++opened;
    });
    press(Qt::Key_End);
    for (const int key : {Qt::Key_F, Qt::Key_Space})
        press(key);
    QCOMPARE(opened, 0);
    press(Qt::Key_Return);
    QCOMPARE(opened, 1);
}

void tst_mvThemelistview_keyboard::letterTogglesTheFavourite()
{
    SCfg_Item* const item = BrowserWorld::theme(1);
    press(Qt::Key_F);
    QVERIFY(MVThemeMgr::init()->isItemCollect(item));
    QVERIFY(m_list->cell(0)->findChild<QToolButton*>(QStringLiteral("btnCollect"))->isVisible());
    press(Qt::Key_F);
    QVERIFY(!MVThemeMgr::init()->isItemCollect(item));
}

void tst_mvThemelistview_keyboard::letterDoesNothingWhileFilesAreMissing()
{
    press(Qt::Key_Right);
    press(Qt::Key_F);
    QVERIFY(!MVThemeMgr::init()->isItemCollect(BrowserWorld::theme(2)));
}

void tst_mvThemelistview_keyboard::spacePlaysAndStops()
{
    press(Qt::Key_Space);
    QVERIFY(plays(m_list->cell(0)));
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    QVERIFY(plays(m_list->cell(1)));
    QVERIFY(!plays(m_list->cell(0)));
    press(Qt::Key_Space);
    QVERIFY(!plays(m_list->cell(1)));
}

void tst_mvThemelistview_keyboard::keysWithModifiersAreNotTheCells()
{
    const HostTrace trace;
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_Return, Qt::AltModifier);
    QVERIFY(!MVThemeMgr::init()->isItemCollect(BrowserWorld::theme(1)));
    QCOMPARE(trace.entries(), QStringList());
}

void tst_mvThemelistview_keyboard::heldKeysActOnce_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("applied");
    QTest::addColumn<bool>("favourite");
    QTest::addColumn<bool>("playing");
    QTest::newRow("return") << int(Qt::Key_Return) << 1 << false << false;
    QTest::newRow("enter") << int(Qt::Key_Enter) << 1 << false << false;
    QTest::newRow("letter") << int(Qt::Key_F) << 0 << true << false;
    QTest::newRow("space") << int(Qt::Key_Space) << 0 << false << true;
}

void tst_mvThemelistview_keyboard::heldKeysActOnce()
{
    QFETCH(int, key);
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    press(key);
    repeat(key);
    QTEST(int(applied.size()), "applied");
    QTEST(MVThemeMgr::init()->isItemCollect(BrowserWorld::theme(1)), "favourite");
    QTEST(plays(m_list->cell(0)), "playing");
    QCOMPARE(m_list->view()->currentIndex().row(), 0);
}

void tst_mvThemelistview_keyboard::heldArrowsGoOn()
{
    press(Qt::Key_Right);
    repeat(Qt::Key_Right);
    QCOMPARE(m_list->view()->currentIndex().row(), 2);
}

void tst_mvThemelistview_keyboard::outlineShowsWhereTheKeyboardIs()
{
    QVERIFY(outline()->isVisible());
    QCOMPARE(outline()->geometry(),
             m_list->view()->visualRect(m_list->view()->model()->index(0, 0)));
    press(Qt::Key_Right);
    QCOMPARE(outline()->geometry(),
             m_list->view()->visualRect(m_list->view()->model()->index(1, 0)));
    m_list->view()->clearFocus();
    QVERIFY(!outline()->isVisible());
}

void tst_mvThemelistview_keyboard::outlineIsPaintedAboveTheCells()
{
    const QRect cell = m_list->view()->visualRect(m_list->view()->currentIndex());
    const auto painted = [this](const QPoint& at) {
        return m_list->view()->viewport()->grab().toImage().pixelColor(at);
    };
    const QPoint inLine(cell.center().x(), cell.top() + 1);
    QCOMPARE(painted(inLine), outline()->palette().highlight().color());
    QCoreApplication::processEvents();
    PaintCounter paints;
    outline()->installEventFilter(&paints);
    QVERIFY(outline()->setProperty("color", QColor(Qt::magenta)));
    QTRY_VERIFY(paints.count() > 0);
    QCOMPARE(painted({inLine.x(), cell.top()}), QColor(Qt::magenta));
    QCOMPARE(painted(inLine), QColor(Qt::magenta));
    QCOMPARE(painted({inLine.x(), cell.bottom() - 1}), QColor(Qt::magenta));
    QCOMPARE(painted({cell.left() + 1, cell.center().y()}), QColor(Qt::magenta));
    QCOMPARE(painted({cell.right() - 1, cell.center().y()}), QColor(Qt::magenta));
    QVERIFY(painted(cell.topLeft()) != QColor(Qt::magenta)); // a rounded corner
    QVERIFY(painted(cell.center()) != QColor(Qt::magenta));
}

void tst_mvThemelistview_keyboard::outlineFollowsTheScrolling()
{
    press(Qt::Key_End);
    QCOMPARE(outline()->geometry(), m_list->view()->visualRect(m_list->view()->currentIndex()));
    QVERIFY(m_list->view()->viewport()->rect().contains(outline()->geometry().center()));
    press(Qt::Key_Home);
    QCOMPARE(outline()->geometry(), m_list->view()->visualRect(m_list->view()->currentIndex()));
}

void tst_mvThemelistview_keyboard::mouseHidesTheOutline()
{
    m_list->click(m_list->cell(0));
    QVERIFY(!outline()->isVisible());
    QVERIFY(isMarked(m_list->cell(0))); // the click went through it
    press(Qt::Key_Right);
    QVERIFY(outline()->isVisible());
}

void tst_mvThemelistview_keyboard::tabLeavesTheListAtOnce()
{
    const QList<QToolButton*> buttons = m_list->view()->findChildren<QToolButton*>();
    QVERIFY(!buttons.isEmpty());
    for (const QToolButton* button : buttons)
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
}

void tst_mvThemelistview_keyboard::rowsHaveNames()
{
    QVERIFY(spokenRow(0).startsWith(QLatin1String("Theme 1, ")));
    QCOMPARE(spokenRow(12), QStringLiteral("More>>"));
    QCOMPARE(m_list->cell(0)->accessibleName(), QStringLiteral("Theme 1"));
    BrowserLanguage::install(QStringLiteral("ja"));
    QCoreApplication::processEvents();
    QCOMPARE(spokenRow(12), MVThemeItemSubwdgt_Preview::tr("More>>"));
    QVERIFY(spokenRow(12) != QLatin1String("More>>"));
}

void tst_mvThemelistview_keyboard::onlyRowHasItsName()
{
    m_list.reset();
    m_world.reset();
    m_world = std::make_unique<BrowserWorld>();
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    QCOMPARE(m_list->rows()->rowCount(), 1);
    QCOMPARE(spokenRow(0), QStringLiteral("More>>"));
}

void tst_mvThemelistview_keyboard::lastItemKeepsItsName()
{
    m_world->addFilter(1, QStringLiteral("Sepia"));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Filters);
    m_list->fill();
    QVERIFY(spokenRow(m_list->rows()->rowCount() - 1).startsWith(QLatin1String("Sepia, ")));
}

void tst_mvThemelistview_keyboard::buttonsHaveNames()
{
    const auto spoken = [this](const char* button) {
        auto* const found = m_list->cell(0)->findChild<QToolButton*>(QLatin1String(button));
        return QAccessible::queryAccessibleInterface(found)->text(QAccessible::Name);
    };
    QCOMPARE(spoken("btnCollect"), QStringLiteral("Remove from Favorites"));
    QCOMPARE(spoken("btnCollect_No"), QStringLiteral("Add to Favorites"));
    QCOMPARE(spoken("btnDownload"), QStringLiteral("Download"));
    QCOMPARE(spoken("btnMore"), QStringLiteral("More>>"));
    BrowserLanguage::install(QStringLiteral("de"));
    QCoreApplication::processEvents();
    QCOMPARE(spoken("btnCollect"), MVThemeItemSubwdgt_Preview::tr("Remove from Favorites"));
    QVERIFY(spoken("btnCollect") != QLatin1String("Remove from Favorites"));
}

void tst_mvThemelistview_keyboard::hoverCanBeKeptFromPlaying()
{
    MVThemeItemWdg::setPlayedByHover(false);
    QVERIFY(!MVThemeItemWdg::isPlayedByHover());
    m_list->moveTo(m_list->cell(0));
    QVERIFY(!plays(m_list->cell(0)));
    QVERIFY(m_list->cell(0)->findChild<QWidget*>(QStringLiteral("btnCollect_No"))->isVisible());
    m_list->moveAway();
    MVThemeItemWdg::setPlayedByHover(true);
    m_list->moveTo(m_list->cell(0));
    QVERIFY(plays(m_list->cell(0)));
}

void tst_mvThemelistview_keyboard::newMetricsResizeTheCells()
{
    SkinWidget::instance()->setThemeItemSize({90, 70});
    SkinWidget::instance()->setThemeItemPadding({1, 2, 3, 4});
    m_list->view()->updateItemSize();
    QTRY_COMPARE(m_list->cell(0)->size(), QSize(96, 74));
    mvThemelistview untyped;
    untyped.updateItemSize(); // nothing to resize yet
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_keyboard)
#include "tst_mvThemelistview_keyboard.moc"
