// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QSignalSpy>
#include <QToolButton>

#include <memory>

/// Tests which actions apply an item, and that others only make it the current one.
class tst_MVThemeItemWdg_applyOn : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void singleClickAppliesAtFirst();
    void singleClickPreviews();
    void doubleClickAppliesOnce();
    void doubleClickDownloads();
    void doubleClickWithAnotherButton_data();
    void doubleClickWithAnotherButton();
    void enterApplies();
    void hostsButtonApplies();
    void downloadButtonDownloads();
    void laterCellsBehaveAlike();
    void canBeChangedBack();
    void buttonsWithoutMeaning_data();
    void buttonsWithoutMeaning();

private:
    void clickTwice(const QWidget* frame, Qt::MouseButton button = Qt::LeftButton);
    MVThemeItemWdg* ready() const { return m_list->cell(1); }
    MVThemeItemWdg* missing() const { return m_list->cell(2); }

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

const QString filesOfMissing = QStringLiteral("/config/Themes/3.zip");

QStringList applied()
{
    return {QStringLiteral("clicked Ready")};
}

} // namespace

void tst_MVThemeItemWdg_applyOn::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("First"));
    m_world->addTheme(2, QStringLiteral("Ready"));
    m_world->addTheme(3, QStringLiteral("Missing"), BrowserWorld::OnServer);
    m_world->load();
    m_world->stall(filesOfMissing);
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    m_list->view()->setApplyOn(EApplyOn::DoubleClickOrEnter);
}

/// Sends what the window system sends: the second press counts as a double click.
void tst_MVThemeItemWdg_applyOn::clickTwice(const QWidget* frame, Qt::MouseButton button)
{
    m_list->moveTo(frame);
    QWindow* const window = m_list->window().windowHandle();
    const QPoint centre = frame->mapTo(&m_list->window(), frame->rect().center());
    QTest::mouseDClick(window, button, Qt::NoModifier, centre);
}

void tst_MVThemeItemWdg_applyOn::singleClickAppliesAtFirst()
{
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    QCOMPARE(m_list->view()->applyOn(), EApplyOn::SingleClick);
    const QSignalSpy preview(m_list->view(), &mvThemelistview::sigPreviewRequested);
    const HostTrace trace;
    m_list->click(frameOf(ready()));
    QCOMPARE(trace.entries(), applied());
    QCOMPARE(preview.size(), 0);
}

void tst_MVThemeItemWdg_applyOn::singleClickPreviews()
{
    const QSignalSpy preview(m_list->view(), &mvThemelistview::sigPreviewRequested);
    const HostTrace trace;
    m_list->click(frameOf(ready()));
    QCOMPARE(trace.entries(), QStringList());
    QVERIFY(!isMarked(ready()));
    QCOMPARE(preview.size(), 1);
    QCOMPARE(preview.first().first().toString(), CatalogueFiles::guid(2));
    QCOMPARE(m_list->view()->currentIndex().row(), 1);
    m_list->click(frameOf(missing()));
    QVERIFY(!missing()->isDownloading());
    QCOMPARE(preview.size(), 2);
}

void tst_MVThemeItemWdg_applyOn::doubleClickAppliesOnce()
{
    const QSignalSpy preview(m_list->view(), &mvThemelistview::sigPreviewRequested);
    const HostTrace trace;
    clickTwice(frameOf(ready()));
    QCOMPARE(trace.entries(), applied());
    QCOMPARE(preview.size(), 1); // of its first click
    QVERIFY(isMarked(ready()));
    m_list->click(frameOf(ready()));
    QCOMPARE(preview.size(), 2);
}

void tst_MVThemeItemWdg_applyOn::doubleClickDownloads()
{
    clickTwice(frameOf(missing()));
    QVERIFY(missing()->isDownloading());
    QTRY_COMPARE(m_world->requests(filesOfMissing), 1);
    QVERIFY(missing()->isDownloading()); // its second release did not cancel
}

void tst_MVThemeItemWdg_applyOn::doubleClickWithAnotherButton_data()
{
    QTest::addColumn<bool>("leftOnly");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("applies");
    QTest::newRow("right, any button acts") << false << Qt::RightButton << true;
    QTest::newRow("right, left button only") << true << Qt::RightButton << false;
    QTest::newRow("middle, left button only") << true << Qt::MiddleButton << false;
}

void tst_MVThemeItemWdg_applyOn::doubleClickWithAnotherButton()
{
    QFETCH(bool, leftOnly);
    QFETCH(Qt::MouseButton, button);
    QFETCH(bool, applies);
    hostSettings().leftButtonOnly = leftOnly;
    const HostTrace trace;
    clickTwice(frameOf(ready()), button);
    QCOMPARE(trace.entries(), applies ? applied() : QStringList());
}

void tst_MVThemeItemWdg_applyOn::enterApplies()
{
    const HostTrace trace;
    m_list->click(frameOf(ready()));
    QTest::keyClick(m_list->view(), Qt::Key_Return);
    QCOMPARE(trace.entries(), applied());
}

void tst_MVThemeItemWdg_applyOn::hostsButtonApplies()
{
    const HostTrace trace;
    m_list->view()->setCurrentIndex(QModelIndex());
    m_list->view()->applyCurrent();
    QCOMPARE(trace.entries(), QStringList());
    m_list->click(frameOf(ready()));
    m_list->view()->applyCurrent();
    QCOMPARE(trace.entries(), applied());
}

void tst_MVThemeItemWdg_applyOn::downloadButtonDownloads()
{
    m_list->moveTo(frameOf(missing()));
    m_list->click(buttonOf(missing(), "btnDownload"));
    QVERIFY(missing()->isDownloading());
}

void tst_MVThemeItemWdg_applyOn::laterCellsBehaveAlike()
{
    m_list->view()->clear();
    m_list->fill();
    const HostTrace trace;
    m_list->click(frameOf(ready()));
    QCOMPARE(trace.entries(), QStringList());
    clickTwice(frameOf(ready()));
    QCOMPARE(trace.entries(), applied());
}

void tst_MVThemeItemWdg_applyOn::canBeChangedBack()
{
    m_list->view()->setApplyOn(EApplyOn::SingleClick);
    const HostTrace trace;
    m_list->click(frameOf(ready()));
    QCOMPARE(trace.entries(), applied());
}

void tst_MVThemeItemWdg_applyOn::buttonsWithoutMeaning_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void tst_MVThemeItemWdg_applyOn::buttonsWithoutMeaning()
{
    QFETCH(Qt::MouseButton, button);
    hostSettings().leftButtonOnly = true;
    for (const EApplyOn action : {EApplyOn::SingleClick, EApplyOn::DoubleClickOrEnter}) {
        m_list->view()->setApplyOn(action);
        m_list->view()->setCurrentIndex(m_list->view()->model()->index(0, 0));
        const QSignalSpy preview(m_list->view(), &mvThemelistview::sigPreviewRequested);
        const QSignalSpy menu(m_list->view(), &mvThemelistview::sigContextMenuRequested);
        const HostTrace trace;
        m_list->click(frameOf(ready()), button);
        QCOMPARE(m_list->view()->currentIndex().row(), 0);
        QCOMPARE(trace.entries(), QStringList());
        QCOMPARE(preview.size(), 0);
        QCOMPARE(menu.size(), 0);
    }
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemWdg_applyOn)

#include "tst_MVThemeItemWdg_applyOn.moc"
