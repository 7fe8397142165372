// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/FiterItemWdg.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDynamicPropertyChangeEvent>
#include <QLabel>
#include <QLayout>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QToolButton>

#include <memory>

/// Tests a single cell: its form, its selection, what it applies and which events it handles.
class tst_MVThemeItemWdg : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void form();
    void filterCellDiffersByItsNameOnly();
    void showsItsItem();
    void nothingDoesNothing();
    void selectingMovesTheMark();
    void selectingTwiceUnsetsAndSets();
    void selectsWithoutASlot();
    void selectsNothingWithoutAnItem();
    void selectsNoWidget();
    void markRestyles();
    void appliesWhatIsOnDisk();
    void appliesNothingWhileInvisible_data();
    void appliesNothingWhileInvisible();
    void collectingDoesNothing();
    void takenEvents_data();
    void takenEvents();
    void eventsOfOthersPass();
    void eventsPassWithoutAnItem();
    void endOfADownload_data();
    void endOfADownload();
    void endWithMissingFiles();
    void endReplacesTheProgressPage();

private:
    MVThemeItemWdg* addCell(SCfg_Item* item);

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<QWidget> m_window;
    QWidget* m_slot = nullptr; // the list's selected cell
};

namespace {

/// Records the values assigned to "IsChecked".
class MarkTrace : public QObject
{
public:
    explicit MarkTrace(QWidget* widget) { widget->installEventFilter(this); }

    QVector<bool> marks;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange
            && static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == "IsChecked")
            marks.append(watched->property("IsChecked").toBool());
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void tst_MVThemeItemWdg::init()
{
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("One"));
    m_world->addTheme(2, QStringLiteral("Two"));
    m_world->addTheme(3, QStringLiteral("Three"), BrowserWorld::OnServer);
    m_world->load();
    m_window = std::make_unique<QWidget>();
    m_window->resize(400, 300);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCursor::setPos(m_window->mapToGlobal(m_window->rect().bottomRight())); // on no cell
    m_slot = nullptr;
}

void tst_MVThemeItemWdg::cleanup()
{
    m_window.reset();
    qApp->setStyleSheet(QString());
}

MVThemeItemWdg* tst_MVThemeItemWdg::addCell(SCfg_Item* item)
{
    auto* const cell = new MVThemeItemWdg(m_window.get());
    cell->setListviewCurSel(&m_slot);
    cell->setItem(item);
    cell->show();
    return cell;
}

void tst_MVThemeItemWdg::form()
{
    const MVThemeItemWdg cell(nullptr);
    QCOMPARE(cell.objectName(), QStringLiteral("MVThemeItemWdg"));
    QCOMPARE(cell.size(), QSize(153, 116));
    const auto holds = [](const QWidget* widget, const char* layout, const char* child) {
        const QLayout* const found = widget->layout();
        return found && found->objectName() == QLatin1String(layout) && found->count() == 1
            && found->spacing() == 0 && found->contentsMargins().isNull()
            && found->itemAt(0)->widget()
            && found->itemAt(0)->widget()->objectName() == QLatin1String(child);
    };
    QVERIFY(holds(&cell, "verticalLayout", "MVThemeItemWdgBg"));
    QVERIFY(holds(frameOf(&cell), "verticalLayout_4", "stackedWidget"));
    const auto* const pages =
        qobject_cast<QStackedWidget*>(frameOf(&cell)->layout()->itemAt(0)->widget());
    QVERIFY(pages);
    QCOMPARE(pages->count(), 1);
    QCOMPARE(pages->widget(0)->objectName(), QStringLiteral("pageShow"));
    QVERIFY(holds(pages->widget(0), "verticalLayout_3", "frmShow"));
    QVERIFY(
        qobject_cast<MVThemeItemSubwdgt_Preview*>(pages->widget(0)->layout()->itemAt(0)->widget()));
}

void tst_MVThemeItemWdg::filterCellDiffersByItsNameOnly()
{
    auto* const cell = new FiterItemWdg(m_window.get());
    QVERIFY(qobject_cast<MVThemeItemWdg*>(cell));
    QCOMPARE(QByteArray(cell->metaObject()->className()), QByteArray("FiterItemWdg"));
    QCOMPARE(FiterItemWdg::staticMetaObject.methodCount(),
             MVThemeItemWdg::staticMetaObject.methodCount());
    cell->setListviewCurSel(&m_slot);
    cell->setItem(BrowserWorld::theme(1));
    cell->show();
    cell->doApplyTheme();
    QVERIFY(isMarked(cell));
}

void tst_MVThemeItemWdg::showsItsItem()
{
    const MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(2));
    QCOMPARE(cell->getItem(), BrowserWorld::theme(2));
    QCOMPARE(labelOf(cell, "lblName")->text(), QStringLiteral("Two"));
    QVERIFY(!isMarked(cell));
    QVERIFY(!cell->isDownloading());
}

void tst_MVThemeItemWdg::nothingDoesNothing()
{
    const HostTrace trace;
    MVThemeItemWdg* const cell = addCell(nullptr);
    const QSignalSpy applied(cell, &MVThemeItemWdg::sigThemeItemClicked);
    QCOMPARE(pageOf(cell), QStringLiteral("pageMore"));
    cell->doApplyTheme();
    cell->onDownLoad(nullptr);
    cell->onDownloadFinish(eDownLoadError_None);
    cell->tryStopDownloadThread();
    cell->adjustItem();
    cell->resetItemData();
    QVERIFY(!cell->isDownloading());
    QCOMPARE(applied.size(), 0);
    QCOMPARE(trace.entries(), QStringList());
    QVERIFY(!m_slot);
}

void tst_MVThemeItemWdg::selectingMovesTheMark()
{
    MVThemeItemWdg* const first = addCell(BrowserWorld::theme(1));
    MVThemeItemWdg* const second = addCell(BrowserWorld::theme(2));
    first->setSel(first);
    QVERIFY(isMarked(first));
    QCOMPARE(m_slot, first);
    second->setSel(second);
    QVERIFY(!isMarked(first));
    QVERIFY(isMarked(second));
    QCOMPARE(m_slot, second);
    QCOMPARE(first->property("IsChecked"), QVariant(false));
    QCOMPARE(second->property("IsChecked"), QVariant(true));
    QVERIFY(!first->isChecked());
    QVERIFY(second->isChecked());
    second->setSel(first); // any cell may move the selection
    QVERIFY(isMarked(first));
    QVERIFY(!isMarked(second));
}

void tst_MVThemeItemWdg::selectingTwiceUnsetsAndSets()
{
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    cell->setSel(cell);
    const MarkTrace trace(cell);
    cell->setSel(cell);
    QCOMPARE(trace.marks, (QVector<bool>{false, true}));
    QVERIFY(isMarked(cell));
}

void tst_MVThemeItemWdg::selectsWithoutASlot()
{
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    cell->setListviewCurSel(nullptr);
    cell->setSel(cell);
    QVERIFY(isMarked(cell));
}

void tst_MVThemeItemWdg::selectsNothingWithoutAnItem()
{
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    MVThemeItemWdg* const more = addCell(nullptr);
    cell->setSel(cell);
    more->setSel(more);
    QVERIFY(isMarked(cell));
    QVERIFY(!isMarked(more));
    QCOMPARE(m_slot, cell);
}

void tst_MVThemeItemWdg::selectsNoWidget()
{
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    cell->setSel(cell);
    cell->setSel(nullptr);
    QVERIFY(!isMarked(cell));
    QVERIFY(!m_slot);
}

void tst_MVThemeItemWdg::markRestyles()
{
    qApp->setStyleSheet(QStringLiteral("MVThemeItemWdg { min-width: 10px; }"
                                       "MVThemeItemWdg[IsChecked=\"true\"] { min-width: 77px; }"));
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    QCOMPARE(cell->minimumWidth(), 10);
    cell->setSel(cell);
    QCOMPARE(cell->minimumWidth(), 77);
    cell->setSel(nullptr);
    QCOMPARE(cell->minimumWidth(), 10);
}

void tst_MVThemeItemWdg::appliesWhatIsOnDisk()
{
    HostTrace trace;
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    SCfg_Item* told = nullptr;
    connect(cell, &MVThemeItemWdg::sigThemeItemClicked, this,
            [cell, tell = &told, note = &trace](SCfg_Item* item) {
                *tell = item;
                note->note(isMarked(cell) ? QStringLiteral("signal, marked")
                                          : QStringLiteral("signal"));
            });
    cell->doApplyTheme();
    QCOMPARE(trace.entries(),
             (QStringList{QStringLiteral("signal, marked"), QStringLiteral("clicked One")}));
    QCOMPARE(told, BrowserWorld::theme(1));
    QCOMPARE(m_slot, cell);
    QCOMPARE(m_world->requests(), 0);
}

void tst_MVThemeItemWdg::appliesNothingWhileInvisible_data()
{
    QTest::addColumn<bool>("hidesTheWindow");
    QTest::newRow("the cell is hidden") << false;
    QTest::newRow("its window is hidden") << true;
}

void tst_MVThemeItemWdg::appliesNothingWhileInvisible()
{
    QFETCH(bool, hidesTheWindow);
    const HostTrace trace;
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    const QSignalSpy applied(cell, &MVThemeItemWdg::sigThemeItemClicked);
    QWidget* const hidden = hidesTheWindow ? m_window.get() : cell;
    hidden->hide();
    cell->doApplyTheme();
    QTest::mouseRelease(frameOf(cell), Qt::LeftButton);
    QVERIFY(!isMarked(cell));
    QCOMPARE(applied.size(), 0);
    QCOMPARE(trace.entries(), QStringList());
    hidden->show();
    cell->doApplyTheme();
    QCOMPARE(applied.size(), 1);
}

void tst_MVThemeItemWdg::collectingDoesNothing()
{
    const HostTrace trace;
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    cell->onCollect(BrowserWorld::theme(1));
    cell->onCollect(nullptr);
    QVERIFY(!BrowserWorld::theme(1)->m_bCollected);
    QCOMPARE(trace.entries(), QStringList());
}

void tst_MVThemeItemWdg::takenEvents_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("taken");
    QTest::newRow("release") << static_cast<int>(QEvent::MouseButtonRelease) << true;
    QTest::newRow("enter") << static_cast<int>(QEvent::Enter) << true;
    QTest::newRow("leave") << static_cast<int>(QEvent::Leave) << true;
    QTest::newRow("press") << static_cast<int>(QEvent::MouseButtonPress) << false;
    QTest::newRow("double click") << static_cast<int>(QEvent::MouseButtonDblClick) << false;
    QTest::newRow("move") << static_cast<int>(QEvent::MouseMove) << false;
    QTest::newRow("show") << static_cast<int>(QEvent::Show) << false;
    QTest::newRow("hover") << static_cast<int>(QEvent::HoverEnter) << false;
}

void tst_MVThemeItemWdg::takenEvents()
{
    QFETCH(int, type);
    QFETCH(bool, taken);
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    QEvent event(static_cast<QEvent::Type>(type));
    QCOMPARE(cell->eventFilter(frameOf(cell), &event), taken);
}

void tst_MVThemeItemWdg::eventsOfOthersPass()
{
    const HostTrace trace;
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    for (const QEvent::Type type : {QEvent::MouseButtonRelease, QEvent::Enter, QEvent::Leave}) {
        QEvent event(type);
        QVERIFY(!cell->eventFilter(cell, &event));
        QVERIFY(!cell->eventFilter(faceOf(cell), &event));
        QVERIFY(!cell->eventFilter(m_window.get(), &event));
    }
    QCOMPARE(trace.entries(), QStringList());
    QVERIFY(!playsAnimation(cell));
}

void tst_MVThemeItemWdg::eventsPassWithoutAnItem()
{
    const HostTrace trace;
    MVThemeItemWdg* const cell = addCell(nullptr);
    for (const QEvent::Type type : {QEvent::MouseButtonRelease, QEvent::Enter, QEvent::Leave}) {
        QEvent event(type);
        QVERIFY(!cell->eventFilter(frameOf(cell), &event));
    }
    QCOMPARE(trace.entries(), QStringList());
    QCOMPARE(pageOf(cell), QStringLiteral("pageMore"));
}

void tst_MVThemeItemWdg::endOfADownload_data()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("error");
    const QString unknown = QStringLiteral("Unknown error!");
    QTest::newRow("network") << 0 << QStringLiteral("Internet error!");
    QTest::newRow("path") << 1 << QStringLiteral("Path error!");
    QTest::newRow("element") << 2 << QStringLiteral("Element error!");
    QTest::newRow("unknown") << 3 << unknown;
    QTest::newRow("cancelled") << 4 << unknown;
    QTest::newRow("success") << 5 << QString();
}

/// Whatever the result, an item that is now complete is applied.
void tst_MVThemeItemWdg::endOfADownload()
{
    QFETCH(int, result);
    QFETCH(QString, error);
    const HostTrace trace;
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(1));
    const QSignalSpy applied(cell, &MVThemeItemWdg::sigThemeItemClicked);
    cell->onDownloadFinish(static_cast<EMVThemeDownLoadError>(result));
    QCOMPARE(errorOf(cell), error);
    QCOMPARE(applied.size(), 1);
    QVERIFY(isMarked(cell));
    QCOMPARE(trace.entries(),
             (QStringList{QStringLiteral("clicked One"), QStringLiteral("downloaded One")}));
}

void tst_MVThemeItemWdg::endWithMissingFiles()
{
    const HostTrace trace;
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(3));
    const QSignalSpy applied(cell, &MVThemeItemWdg::sigThemeItemClicked);
    cell->onDownloadFinish(eDownLoadError_None);
    QCOMPARE(errorOf(cell), QString());
    QCOMPARE(applied.size(), 0);
    QVERIFY(!isMarked(cell));
    QVERIFY(!cell->isDownloading());
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("downloaded Three")});
    QVERIFY(!buttonOf(cell, "btnDownload")->isHidden());
}

void tst_MVThemeItemWdg::endReplacesTheProgressPage()
{
    MVThemeItemWdg* const cell = addCell(BrowserWorld::theme(3));
    disconnect(faceOf(cell), &MVThemeItemSubwdgt_Preview::sigDownLoad, cell, nullptr);
    cell->doApplyTheme();
    QCOMPARE(pageOf(cell), QStringLiteral("pageDownload"));
    cell->onDownloadFinish(eDownLoadError_Element);
    QCOMPARE(pageOf(cell), QStringLiteral("pageShow"));
    QCOMPARE(errorOf(cell), QStringLiteral("Element error!"));
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemWdg)

#include "tst_MVThemeItemWdg.moc"
