// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QToolButton>

#include <memory>

namespace tst_MVThemeItemWdg_cancel {

/// Tests that the user can cancel a cell's download.
class tst_MVThemeItemWdg_cancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void clickOnTheRing();
    void escape();
    void escapeWithoutADownload();
    void ringTellsThatItCanBeClicked();
    void doubleClickStartsTheDownload();
    void clickBesideTheRing();
    void clickWithAnotherButton_data();
    void clickWithAnotherButton();
    void pressThatEndsElsewhere();
    void outcomeIsReported();
    void clickAgainStartsAnew();

private:
    void startDownload();
    MVThemeItemWdg* cell() const { return m_list->cell(0); }
    const QLabel* ring() const { return labelOf(cell(), "lblIcon"); }

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

const QString files = QStringLiteral("/config/Themes/1.zip");

QStringList onlyEnded()
{
    return {QStringLiteral("downloaded One")};
}

} // namespace

void tst_MVThemeItemWdg_cancel::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("One"), BrowserWorld::OnServer);
    m_world->load();
    m_world->stall(files);
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

void tst_MVThemeItemWdg_cancel::startDownload()
{
    m_list->click(frameOf(cell()));
    QTRY_COMPARE(m_world->requests(files), 1);
    QCOMPARE(pageOf(cell()), QStringLiteral("pageDownload"));
}

void tst_MVThemeItemWdg_cancel::clickOnTheRing()
{
    const HostTrace trace;
    startDownload();
    m_list->click(ring());
    QTRY_COMPARE(trace.entries(), onlyEnded());
    QCOMPARE(pageOf(cell()), QStringLiteral("pageShow"));
    QCOMPARE(errorOf(cell()), QString());
    QVERIFY(!cell()->isDownloading());
    QVERIFY(!isMarked(cell()));
    QVERIFY(buttonOf(cell(), "btnDownload")->isVisible()); // the download is offered again
}

void tst_MVThemeItemWdg_cancel::escape()
{
    const HostTrace trace;
    startDownload();
    m_list->view()->setFocus();
    m_list->view()->setCurrentIndex(m_list->view()->model()->index(0, 0));
    QTest::keyClick(m_list->view(), Qt::Key_Escape);
    QTRY_COMPARE(trace.entries(), onlyEnded());
    QCOMPARE(errorOf(cell()), QString());
}

/// Without a download the window receives Escape, for example to close a dialog.
void tst_MVThemeItemWdg_cancel::escapeWithoutADownload()
{
    m_list->view()->setFocus();
    m_list->view()->setCurrentIndex(m_list->view()->model()->index(0, 0));
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    event.setAccepted(true);
    QApplication::sendEvent(m_list->view(), &event);
    QVERIFY(!event.isAccepted());
}

void tst_MVThemeItemWdg_cancel::ringTellsThatItCanBeClicked()
{
    QVERIFY(!ring()->toolTip().isEmpty());
}

/// The second click hits the ring, which the first click has just shown.
void tst_MVThemeItemWdg_cancel::doubleClickStartsTheDownload()
{
    const HostTrace trace;
    const QPoint spot = frameOf(cell())->mapTo(&m_list->window(), frameOf(cell())->rect().center());
    m_list->moveTo(frameOf(cell()));
    QTest::mouseDClick(m_list->window().windowHandle(), Qt::LeftButton, Qt::NoModifier, spot);
    QTRY_COMPARE(m_world->requests(files), 1);
    QVERIFY(cell()->isDownloading());
    QCOMPARE(trace.entries(), QStringList());
}

void tst_MVThemeItemWdg_cancel::clickBesideTheRing()
{
    startDownload();
    m_list->click(labelOf(cell(), "lblName"));
    QVERIFY(cell()->isDownloading());
    QCOMPARE(pageOf(cell()), QStringLiteral("pageDownload"));
    QCOMPARE(m_world->requests(files), 1);
}

void tst_MVThemeItemWdg_cancel::clickWithAnotherButton_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void tst_MVThemeItemWdg_cancel::clickWithAnotherButton()
{
    QFETCH(Qt::MouseButton, button);
    const HostTrace trace;
    startDownload();
    m_list->click(ring(), button);
    QVERIFY(cell()->isDownloading());
    QCOMPARE(trace.entries(), QStringList());
}

void tst_MVThemeItemWdg_cancel::pressThatEndsElsewhere()
{
    const HostTrace trace;
    startDownload();
    m_list->press(ring());
    m_list->moveAway();
    m_list->release(&m_list->window());
    QCoreApplication::processEvents();
    QVERIFY(cell()->isDownloading());
    QCOMPARE(trace.entries(), QStringList());
}

void tst_MVThemeItemWdg_cancel::outcomeIsReported()
{
    HostTrace trace;
    MVThemeItemWdg::setCbItemEnded([&](SCfg_Item* item, const SItemDownloadResult& result) {
        trace.note(QStringLiteral("ended %1 %2 %3")
                       .arg(item->m_qsName)
                       .arg(int(result.m_eEnd))
                       .arg(int(result.m_failure.m_eCause)));
    });
    MVThemeItemWdg::setCbItemFailed(
        [&](SCfg_Item*, const QString&) { trace.note(QStringLiteral("failed")); });
    startDownload();
    m_list->click(ring());
    QTRY_COMPARE(trace.entries(), QStringList{QStringLiteral("ended One 2 0")} + onlyEnded());
    MVThemeItemWdg::setCbItemEnded({});
    MVThemeItemWdg::setCbItemFailed({});
}

void tst_MVThemeItemWdg_cancel::clickAgainStartsAnew()
{
    const HostTrace trace;
    startDownload();
    m_list->click(ring());
    QTRY_COMPARE(trace.entries(), onlyEnded());
    m_world->route(files, nullptr);
    m_list->click(frameOf(cell()));
    QTRY_COMPARE(trace.count(QStringLiteral("clicked One")), 1);
    QVERIFY(isMarked(cell()));
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemWdg_cancel)

} // namespace tst_MVThemeItemWdg_cancel

#include "tst_MVThemeItemWdg_cancel.moc"
