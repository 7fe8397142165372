// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/SCellState.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QFile>
#include <QLabel>

#include <atomic>
#include <chrono>
#include <memory>

namespace tst_mvThemelistview_marks {

/// Tests the marks on cells, by the texts that they show to the mouse, and the states behind them.
class tst_mvThemelistview_marks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void noneAtFirst();
    void showTheState_data();
    void showTheState();
    void noneEntryHasNone();
    void canBeTurnedOff();
    void followADownload();
    void followTheHost();
    void laterCellsHaveThem();
    void clicksGoThrough();
    void failureStaysAfterAFilter();
    void failureOfAHiddenCellIsShown();
    void failureStaysWhenTheCellIsGivenBack();
    void nextAttemptForgetsTheFailure();
    void reloadForgetsTheFailure();
    void clearForgetsTheHiddenAppliedItem();
    void crossUnderTheMouse_data();
    void crossUnderTheMouse();

private:
    static QWidget* marksOf(const MVThemeItemWdg* cell);
    QStringList shown(int row) const;
    void fail();
    SCellState::Files filesOf(int number) const;

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

constexpr int missing = 1; // row
const QString filesOfMissing = QStringLiteral("/config/Themes/2.zip");
const QString failed = QStringLiteral("Download failed");

QString textAt(QWidget* marks, const QPoint& point)
{
    QString text;
    if (!QMetaObject::invokeMethod(marks, "textAt", Q_RETURN_ARG(QString, text),
                                   Q_ARG(QPoint, point)))
        QTest::qFail("the marks have no texts", __FILE__, __LINE__);
    return text;
}

} // namespace

void tst_mvThemelistview_marks::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Ready"));
    m_world->addTheme(2, QStringLiteral("Missing"), BrowserWorld::OnServer);
    m_world->addTheme(3, QStringLiteral("Old"), BrowserWorld::OnDisk, QStringLiteral("travel"));
    for (int number = 4; number < 40; ++number)
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->view()->setMarksShown(true);
    m_list->view()->setUpdatable({CatalogueFiles::guid(2), CatalogueFiles::guid(3)});
    m_list->view()->setNew({CatalogueFiles::guid(3)});
    m_list->fill();
}

QWidget* tst_mvThemelistview_marks::marksOf(const MVThemeItemWdg* cell)
{
    return cell->findChild<QWidget*>(QStringLiteral("marks"));
}

/// Returns the texts of a row's marks, from left to right.
QStringList tst_mvThemelistview_marks::shown(int row) const
{
    QWidget* const marks = marksOf(m_list->cell(row));
    if (!marks || !marks->isVisible())
        return {};
    const int y = marks->height() / 2;
    QStringList texts = {textAt(marks, {y, y}), textAt(marks, {marks->width() - y, y})};
    texts.removeAll(QString());
    return texts;
}

void tst_mvThemelistview_marks::fail()
{
    m_world->route(filesOfMissing,
                   [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    m_list->click(frameOf(m_list->cell(missing)));
}

SCellState::Files tst_mvThemelistview_marks::filesOf(int number) const
{
    return m_list->view()->stateOf(CatalogueFiles::guid(number)).files;
}

void tst_mvThemelistview_marks::noneAtFirst()
{
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    QVERIFY(!m_list->view()->areMarksShown());
    QVERIFY(!marksOf(m_list->cell(0)));
}

void tst_mvThemelistview_marks::showTheState_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("on disk") << 0 << QStringList{QStringLiteral("On disk")};
    QTest::newRow("missing, whatever the host says")
        << missing << QStringList{QStringLiteral("Not downloaded")};
    QTest::newRow("outdated and new")
        << 2 << QStringList{QStringLiteral("Update available"), QStringLiteral("New")};
}

void tst_mvThemelistview_marks::showTheState()
{
    QFETCH(int, row);
    QFETCH(QStringList, texts);
    QCOMPARE(shown(row), texts);
}

void tst_mvThemelistview_marks::noneEntryHasNone()
{
    m_world->addFilter(50, QStringLiteral("Sepia"));
    m_world->addNoneFilter();
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Filters);
    m_list->view()->setMarksShown(true);
    m_list->fill();
    QVERIFY(marksOf(m_list->cell(QStringLiteral("Sepia"))));
    QVERIFY(!marksOf(m_list->cell(QStringLiteral("None"))));
}

void tst_mvThemelistview_marks::canBeTurnedOff()
{
    QVERIFY(marksOf(m_list->cell(0)));
    m_list->view()->setMarksShown(false);
    QVERIFY(!marksOf(m_list->cell(0)));
    m_list->view()->setMarksShown(true);
    QCOMPARE(shown(0), QStringList{QStringLiteral("On disk")});
}

void tst_mvThemelistview_marks::followADownload()
{
    m_list->view()->setUpdatable({});
    m_world->hold(filesOfMissing);
    m_list->click(frameOf(m_list->cell(missing)));
    QTRY_COMPARE(m_world->requests(filesOfMissing), 1);
    QCOMPARE(shown(missing), QStringList()); // the ring says it
    m_world->release();
    QTRY_COMPARE(shown(missing), QStringList{QStringLiteral("On disk")});
}

void tst_mvThemelistview_marks::followTheHost()
{
    m_list->view()->setNew({CatalogueFiles::guid(1)});
    m_list->view()->setUpdatable({});
    QCOMPARE(shown(0), (QStringList{QStringLiteral("On disk"), QStringLiteral("New")}));
    QCOMPARE(shown(2), QStringList{QStringLiteral("On disk")});
    QVERIFY(QFile::remove(BrowserWorld::theme(1)->m_vecResource.first().m_qsFile));
    m_list->view()->updateMarks();
    QCOMPARE(shown(0), (QStringList{QStringLiteral("Not downloaded"), QStringLiteral("New")}));
}

void tst_mvThemelistview_marks::laterCellsHaveThem()
{
    m_list->view()->reapplyFilter(2, QString());
    m_list->view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QCOMPARE(shown(2), (QStringList{QStringLiteral("Update available"), QStringLiteral("New")}));
    QCOMPARE(shown(39 - 1), QStringList{QStringLiteral("On disk")});
}

void tst_mvThemelistview_marks::clicksGoThrough()
{
    const HostTrace trace;
    m_list->click(marksOf(m_list->cell(0)));
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("clicked Ready")});
}

void tst_mvThemelistview_marks::failureStaysAfterAFilter()
{
    fail();
    QTRY_COMPARE(shown(missing), QStringList{failed});
    m_list->view()->reapplyFilter(3, QString());
    QCOMPARE(filesOf(2), SCellState::Files::Failed); // without a cell
    m_list->view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QCOMPARE(shown(missing), QStringList{failed});
    QVERIFY(!errorOf(m_list->cell(missing)).isEmpty());
}

void tst_mvThemelistview_marks::failureOfAHiddenCellIsShown()
{
    std::atomic<bool> isHidden{false};
    m_world->route(filesOfMissing, [&isHidden](HttpExchange& exchange) {
        while (!isHidden)
            exchange.pause(std::chrono::milliseconds(1));
        exchange.answer(HttpAnswer(404).body("no"));
    });
    m_list->click(frameOf(m_list->cell(missing)));
    const QPointer<MVThemeItemWdg> cell(m_list->cell(missing));
    m_list->view()->reapplyFilter(3, QString());
    isHidden = true;
    QTRY_VERIFY(!cell);
    QCOMPARE(filesOf(2), SCellState::Files::Failed);
    m_list->view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QCOMPARE(shown(missing), QStringList{failed});
    m_world->route(filesOfMissing, nullptr); // it refers to this function
}

void tst_mvThemelistview_marks::failureStaysWhenTheCellIsGivenBack()
{
    m_list->view()->setCellsOnDemand(true);
    fail();
    QTRY_COMPARE(shown(missing), QStringList{failed});
    const QPointer<MVThemeItemWdg> cell(m_list->cell(missing));
    m_list->view()->setCurrentIndex(m_list->view()->model()->index(38, 0));
    m_list->view()->scrollToBottom();
    QTRY_VERIFY(!cell);
    QCOMPARE(filesOf(2), SCellState::Files::Failed);
    m_list->view()->scrollToTop();
    QTRY_COMPARE(shown(missing), QStringList{failed});
}

void tst_mvThemelistview_marks::nextAttemptForgetsTheFailure()
{
    fail();
    QTRY_COMPARE(shown(missing), QStringList{failed});
    m_world->stall(filesOfMissing);
    m_list->click(frameOf(m_list->cell(missing)));
    QCOMPARE(filesOf(2), SCellState::Files::Downloading);
    m_list->view()->cancelDownload(CatalogueFiles::guid(2));
    QTRY_COMPARE(shown(missing), QStringList{QStringLiteral("Not downloaded")});
}

void tst_mvThemelistview_marks::reloadForgetsTheFailure()
{
    fail();
    QTRY_COMPARE(shown(missing), QStringList{failed});
    m_list->view()->release();
    m_world->load();
    m_list->view()->refill();
    QCOMPARE(shown(missing), QStringList{QStringLiteral("Not downloaded")});
}

void tst_mvThemelistview_marks::clearForgetsTheHiddenAppliedItem()
{
    m_list->click(frameOf(m_list->cell(0)));
    m_list->view()->reapplyFilter(3, QString());
    QCOMPARE(m_list->view()->appliedItem(), CatalogueFiles::guid(1));
    m_list->view()->clear();
    QCOMPARE(m_list->view()->appliedItem(), QString());
}

void tst_mvThemelistview_marks::crossUnderTheMouse_data()
{
    QTest::addColumn<bool>("marks");
    QTest::newRow("with marks") << true;
    QTest::newRow("without") << false;
}

void tst_mvThemelistview_marks::crossUnderTheMouse()
{
    QFETCH(bool, marks);
    m_list->view()->setMarksShown(marks);
    m_world->stall(filesOfMissing);
    const MVThemeItemWdg* const cell = m_list->cell(missing);
    m_list->click(frameOf(cell));
    QTRY_COMPARE(m_world->requests(filesOfMissing), 1);
    QLabel* const ring = labelOf(cell, "lblIcon");
    const auto picture = [ring] { return ring->grab().toImage(); };
    m_list->moveAway();
    const QImage away = picture();
    m_list->moveTo(labelOf(cell, "lblName")); // anywhere in the cell
    QCOMPARE(picture() != away, marks);
    m_list->moveAway();
    QCOMPARE(picture(), away);
    m_list->click(ring);
    QTRY_VERIFY(!cell->isDownloading());
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_marks)

} // namespace tst_mvThemelistview_marks

#include "tst_mvThemelistview_marks.moc"
