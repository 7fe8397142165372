// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVResourceItemDelegate.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemePreviewFrm.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QToolButton>

#include <memory>

namespace tst_MVThemeItemWdg_mouse {

/// Tests a user's mouse actions on a list.
class tst_MVThemeItemWdg_mouse : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void clickApplies_data();
    void clickApplies();
    void orderOfAClick();
    void everyReceiverIsNotifiedOnce();
    void clickMovesTheMark();
    void clickOnTheSameAgain();
    void clickAnywhereInTheCell_data();
    void clickAnywhereInTheCell();
    void pressAppliesNothing();
    void buttonsOfTheCellApplyNothing();
    void favouriteByMouse();
    void hoverShowsTheButtons();
    void hoverOverWhatIsMissing();
    void hoverBringsPathsUpToDate();
    void hoverPlaysOneAnimation();
    void filtersPlayNothing();
    void moreCellIgnoresTheMouse();
    void moreCellByItsButton();
    void moreButtonWithoutACallback();

private:
    MVThemeItemWdg* cell(const char* name) const { return m_list->cell(QString::fromLatin1(name)); }

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

void tst_MVThemeItemWdg_mouse::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("One"));
    m_world->addTheme(2, QStringLiteral("Two"));
    m_world->addTheme(3, QStringLiteral("Missing"), BrowserWorld::OnServer);
    m_world->addFilter(11, QStringLiteral("Warm"));
    m_world->addBackground(21, QStringLiteral("Wood"));
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

void tst_MVThemeItemWdg_mouse::clickApplies_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void tst_MVThemeItemWdg_mouse::clickApplies()
{
    QFETCH(Qt::MouseButton, button);
    const HostTrace trace;
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    m_list->click(frameOf(cell("One")), button);
    QVERIFY(isMarked(cell("One")));
    QCOMPARE(applied.size(), 1);
    QCOMPARE(applied.first().first().value<SCfg_Item*>(), BrowserWorld::theme(1));
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("clicked One")});
}

void tst_MVThemeItemWdg_mouse::orderOfAClick()
{
    HostTrace trace;
    connect(m_list->view(), &mvThemelistview::sigThemeItemClicked, this, [&](SCfg_Item* item) {
        trace.note(QStringLiteral("signal ") + item->m_qsName
                   + (isMarked(cell("One")) ? QStringLiteral(", marked") : QString()));
    });
    m_list->click(frameOf(cell("One")));
    QCOMPARE(trace.entries(),
             (QStringList{QStringLiteral("signal One, marked"), QStringLiteral("clicked One")}));
}

void tst_MVThemeItemWdg_mouse::everyReceiverIsNotifiedOnce()
{
    const HostTrace trace;
    const QSignalSpy byItem(cell("One"), &MVThemeItemWdg::sigThemeItemClicked);
    const QSignalSpy byDelegate(m_list->delegate(), &MVResourceItemDelegate::sigThemeItemClicked);
    const QSignalSpy byView(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    const QSignalSpy byOther(cell("Two"), &MVThemeItemWdg::sigThemeItemClicked);
    m_list->click(frameOf(cell("One")));
    QCOMPARE(byItem.size(), 1);
    QCOMPARE(byDelegate.size(), 1);
    QCOMPARE(byView.size(), 1);
    QCOMPARE(byOther.size(), 0);
    QCOMPARE(trace.entries().size(), 1);
}

void tst_MVThemeItemWdg_mouse::clickMovesTheMark()
{
    m_list->click(frameOf(cell("One")));
    m_list->click(frameOf(cell("Two")));
    QVERIFY(!isMarked(cell("One")));
    QVERIFY(isMarked(cell("Two")));
}

void tst_MVThemeItemWdg_mouse::clickOnTheSameAgain()
{
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    m_list->click(frameOf(cell("One")));
    QVERIFY(isMarked(cell("One")));
    QCOMPARE(trace.count(QStringLiteral("clicked One")), 2);
}

void tst_MVThemeItemWdg_mouse::clickAnywhereInTheCell_data()
{
    QTest::addColumn<QString>("child");
    for (const char* name : {"frmPic", "lblGif", "lblName", "frmInfo"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_MVThemeItemWdg_mouse::clickAnywhereInTheCell()
{
    QFETCH(QString, child);
    const HostTrace trace;
    const QList<QWidget*> found = cell("One")->findChildren<QWidget*>(child);
    QVERIFY(!found.isEmpty());
    m_list->click(found.first());
    QVERIFY(isMarked(cell("One")));
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("clicked One")});
}

void tst_MVThemeItemWdg_mouse::pressAppliesNothing()
{
    const HostTrace trace;
    m_list->press(frameOf(cell("One")));
    QVERIFY(!isMarked(cell("One")));
    QCOMPARE(trace.entries(), QStringList());
    m_list->release(frameOf(cell("One")));
    QVERIFY(isMarked(cell("One")));
}

void tst_MVThemeItemWdg_mouse::buttonsOfTheCellApplyNothing()
{
    const HostTrace trace;
    m_list->moveTo(frameOf(cell("One")));
    const QToolButton* const heart = buttonOf(cell("One"), "btnCollect_No");
    QVERIFY(heart->isVisible());
    m_list->click(heart);
    QVERIFY(!isMarked(cell("One")));
    QCOMPARE(trace.entries(), QStringList());
}

void tst_MVThemeItemWdg_mouse::favouriteByMouse()
{
    HostTrace trace;
    MVThemeItemSubwdgt_Preview::setCbBtnCollect([&](SCfg_Item* item) {
        trace.note(
            QStringLiteral("collect %1 %2").arg(item->m_qsName).arg(item->m_bCollected ? 1 : 0));
    });
    const MVThemeItemWdg* const one = cell("One");
    m_list->moveTo(frameOf(one));
    m_list->click(buttonOf(one, "btnCollect_No"));
    QVERIFY(buttonOf(one, "btnCollect")->isVisible());
    QVERIFY(!buttonOf(one, "btnCollect_No")->isVisible());
    m_list->moveAway();
    QVERIFY(buttonOf(one, "btnCollect")->isVisible());
    m_list->view()->reapplyFilter(1, QString());
    QCOMPARE(m_list->shownNames(), QStringList{QStringLiteral("One")});
    m_list->moveTo(frameOf(one));
    m_list->click(buttonOf(one, "btnCollect"));
    QVERIFY(buttonOf(one, "btnCollect_No")->isVisible());
    QCOMPARE(trace.entries(),
             (QStringList{QStringLiteral("collect One 1"), QStringLiteral("collect One 0")}));
    m_list->view()->reapplyFilter(1, QString());
    QCOMPARE(m_list->shownNames(), QStringList());
}

void tst_MVThemeItemWdg_mouse::hoverShowsTheButtons()
{
    const MVThemeItemWdg* const one = cell("One");
    QVERIFY(!buttonOf(one, "btnCollect_No")->isVisible());
    m_list->moveTo(frameOf(one));
    QVERIFY(buttonOf(one, "btnCollect_No")->isVisible());
    QVERIFY(!buttonOf(one, "btnCollect")->isVisible());
    QVERIFY(!buttonOf(one, "btnDownload")->isVisible());
    QVERIFY(playsAnimation(one));
    m_list->moveAway();
    QVERIFY(!buttonOf(one, "btnCollect_No")->isVisible());
    QVERIFY(!playsAnimation(one));
}

void tst_MVThemeItemWdg_mouse::hoverOverWhatIsMissing()
{
    const MVThemeItemWdg* const missing = cell("Missing");
    m_list->moveTo(frameOf(missing));
    QVERIFY(buttonOf(missing, "btnDownload")->isVisible());
    QVERIFY(!buttonOf(missing, "btnCollect_No")->isVisible());
    QVERIFY(playsAnimation(missing));
    m_list->moveAway();
    QVERIFY(!buttonOf(missing, "btnDownload")->isVisible());
    QCOMPARE(m_world->requests(), 0);
}

void tst_MVThemeItemWdg_mouse::hoverBringsPathsUpToDate()
{
    SFileInfo& thumb = BrowserWorld::theme(1)->m_info_Thumb;
    thumb.m_qsFile.clear();
    m_list->moveTo(frameOf(cell("One")));
    QVERIFY(thumb.m_qsFile.endsWith(QStringLiteral("/thumb.png")));
}

void tst_MVThemeItemWdg_mouse::hoverPlaysOneAnimation()
{
    const LogCapture log;
    m_list->moveTo(frameOf(cell("One")));
    QVERIFY(playsAnimation(cell("One")));
    QCOMPARE(log.count("s_pMovie will stop!"), 0);
    m_list->moveTo(frameOf(cell("Two")));
    QVERIFY(!playsAnimation(cell("One")));
    QVERIFY(playsAnimation(cell("Two")));
    QVERIFY(log.contains("MVThemePreviewFrm", 1, "s_pMovie will stop!"));
}

void tst_MVThemeItemWdg_mouse::filtersPlayNothing()
{
    for (const EUIItemType type : {UIItem_Filters, UIItem_FiltersLarge, UIItem_BgMaterial}) {
        ListWindow list(type);
        list.fill();
        list.moveTo(frameOf(list.cell(0)));
        QVERIFY(!playsAnimation(list.cell(0)));
        QVERIFY(buttonOf(list.cell(0), "btnCollect_No")->isVisible());
        list.moveAway();
        QVERIFY(!buttonOf(list.cell(0), "btnCollect_No")->isVisible());
    }
}

void tst_MVThemeItemWdg_mouse::moreCellIgnoresTheMouse()
{
    const HostTrace trace;
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    const MVThemeItemWdg* const more = m_list->cell(3);
    QCOMPARE(pageOf(more), QStringLiteral("pageMore"));
    m_list->moveTo(frameOf(more));
    m_list->click(labelOf(more, "lblMore"));
    m_list->click(labelOf(more, "lblMore"), Qt::RightButton);
    QVERIFY(!isMarked(more));
    QCOMPARE(pageOf(more), QStringLiteral("pageMore"));
    for (const char* button : {"btnDownload", "btnCollect", "btnCollect_No"})
        QVERIFY(!buttonOf(more, button)->isVisible());
    QCOMPARE(applied.size(), 0);
    QCOMPARE(trace.entries(), QStringList());
}

void tst_MVThemeItemWdg_mouse::moreCellByItsButton()
{
    QVector<SCfg_Item*> told;
    MVThemeItemSubwdgt_Preview::setCbBtnMore([&](SCfg_Item* item) { told.append(item); });
    m_list->click(buttonOf(m_list->cell(3), "btnMore"));
    QCOMPARE(told, QVector<SCfg_Item*>{nullptr});
}

void tst_MVThemeItemWdg_mouse::moreButtonWithoutACallback()
{
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    m_list->click(buttonOf(m_list->cell(3), "btnMore"));
    QCOMPARE(applied.size(), 0);
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemWdg_mouse)

} // namespace tst_MVThemeItemWdg_mouse

#include "tst_MVThemeItemWdg_mouse.moc"
