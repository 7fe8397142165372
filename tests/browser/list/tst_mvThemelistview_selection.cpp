// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "catalogue/NoneEntry.h"
#include "host/widgets/ThumbFrame.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDynamicPropertyChangeEvent>
#include <QFile>
#include <QSignalSpy>
#include <QUuid>

#include <memory>

/// Tests the host's selection and the operations that address all cells.
class tst_mvThemelistview_selection : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void selectsByGuidInAnyCase();
    void selectsTheNoneEntry();
    void selectsTheFirstOfEqualGuids();
    void selectsNothingUnknown_data();
    void selectsNothingUnknown();
    void selectsAThemeExactly();
    void selectingMovesTheMark();
    void filteredOutItemIsNotFound();
    void clearsTheSelection();
    void clearedCellStaysTheSelectedOne();
    void clearsASelectionAfterTheRowsAreGone();
    void refreshesTheFirstCellOnly();
    void redrawsTheFirstCellOnly();
    void refreshesTheFirstCellThatIsShown();

private:
    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_themes;
};

namespace {

/// Counts the assignments of "IsChecked" to a widget.
class CheckedWrites : public QObject
{
public:
    explicit CheckedWrites(QWidget* widget) { widget->installEventFilter(this); }
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange
            && static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == "IsChecked")
            ++m_count;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_count = 0;
};

ThumbFrame* pictureOf(const MVThemeItemWdg* cell)
{
    return cell->findChild<ThumbFrame*>();
}

} // namespace

void tst_mvThemelistview_selection::init()
{
    m_themes.reset();
    m_world = std::make_unique<BrowserWorld>();
    for (int number = 1; number <= 3; ++number)
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number));
    m_world->addFilter(11, QStringLiteral("Warm"));
    m_world->addFilter(12, QStringLiteral("Cold"), BrowserWorld::OnServer);
    m_world->addNoneFilter();
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    m_world->load();
    m_themes = std::make_unique<ListWindow>(UIItem_Themes);
    m_themes->fill();
}

void tst_mvThemelistview_selection::selectsByGuidInAnyCase()
{
    const HostTrace trace;
    ListWindow filters(UIItem_Filters);
    filters.fill();
    const QSignalSpy applied(filters.view(), &mvThemelistview::sigThemeItemClicked);
    const QUuid uuid(CatalogueFiles::guid(12));
    QVERIFY(uuid.toString() != CatalogueFiles::guid(12)); // lower-case letters
    filters.view()->selFilterItemByGUID(uuid);
    QVERIFY(isMarked(filters.cell(1)));
    QVERIFY(!isMarked(filters.cell(0)));
    QCOMPARE(applied.size(), 1);
    QCOMPARE(applied.first().first().value<SCfg_Item*>(), BrowserWorld::filter(12));
    QCOMPARE(trace.entries(), QStringList()); // nobody has clicked
    QCOMPARE(m_world->requests(), 0);
}

void tst_mvThemelistview_selection::selectsTheNoneEntry()
{
    ListWindow filters(UIItem_FiltersLarge);
    filters.fill();
    filters.view()->selFilterItemByGUID(QUuid(QString(noneEntryGuid)));
    QVERIFY(isMarked(filters.cell(QStringLiteral("None"))));
}

void tst_mvThemelistview_selection::selectsTheFirstOfEqualGuids()
{
    m_themes->view()->addItem(*BrowserWorld::theme(1));
    const QSignalSpy applied(m_themes->view(), &mvThemelistview::sigThemeItemClicked);
    m_themes->view()->selFilterItemByGUID(QUuid(CatalogueFiles::guid(1)));
    QVERIFY(isMarked(m_themes->cell(0)));
    QVERIFY(!isMarked(m_themes->cell(4)));
    QCOMPARE(applied.size(), 1);
}

void tst_mvThemelistview_selection::selectsNothingUnknown_data()
{
    QTest::addColumn<QUuid>("uuid");
    QTest::newRow("unknown") << QUuid(CatalogueFiles::guid(99));
    QTest::newRow("of another list") << QUuid(CatalogueFiles::guid(11));
    QTest::newRow("null, also not the more cell") << QUuid();
}

void tst_mvThemelistview_selection::selectsNothingUnknown()
{
    QFETCH(QUuid, uuid);
    m_themes->view()->selThemeItem(BrowserWorld::theme(2));
    const QSignalSpy applied(m_themes->view(), &mvThemelistview::sigThemeItemClicked);
    m_themes->view()->selFilterItemByGUID(uuid);
    QVERIFY(isMarked(m_themes->cell(1)));
    QCOMPARE(applied.size(), 0);
}

void tst_mvThemelistview_selection::selectsAThemeExactly()
{
    const QSignalSpy applied(m_themes->view(), &mvThemelistview::sigThemeItemClicked);
    m_themes->view()->selThemeItem(nullptr);
    SCfg_Item other;
    other.m_qsGUID = CatalogueFiles::guid(2).toLower();
    m_themes->view()->selThemeItem(&other);
    other.m_qsGUID = QString();
    m_themes->view()->selThemeItem(&other);
    QCOMPARE(applied.size(), 0);
    for (int row = 0; row < 4; ++row)
        QVERIFY(!isMarked(m_themes->cell(row)));

    other.m_qsGUID = CatalogueFiles::guid(2);
    m_themes->view()->selThemeItem(&other);
    QVERIFY(isMarked(m_themes->cell(1)));
    QCOMPARE(applied.size(), 1);
    QCOMPARE(applied.first().first().value<SCfg_Item*>(), BrowserWorld::theme(2));
}

void tst_mvThemelistview_selection::selectingMovesTheMark()
{
    m_themes->click(frameOf(m_themes->cell(0)));
    m_themes->view()->selThemeItem(BrowserWorld::theme(3));
    QVERIFY(!isMarked(m_themes->cell(0)));
    QVERIFY(isMarked(m_themes->cell(2)));
    m_themes->view()->selThemeItem(BrowserWorld::theme(3));
    QVERIFY(isMarked(m_themes->cell(2)));
}

void tst_mvThemelistview_selection::filteredOutItemIsNotFound()
{
    m_themes->view()->reapplyFilter(999, QStringLiteral("Theme 1"));
    QTRY_COMPARE(m_themes->cellCount(), 1);
    const QSignalSpy applied(m_themes->view(), &mvThemelistview::sigThemeItemClicked);
    m_themes->view()->selThemeItem(BrowserWorld::theme(2));
    m_themes->view()->selFilterItemByGUID(QUuid(CatalogueFiles::guid(3)));
    QCOMPARE(applied.size(), 0);
}

void tst_mvThemelistview_selection::clearsTheSelection()
{
    m_themes->view()->onClearSelect();
    m_themes->view()->selThemeItem(BrowserWorld::theme(2));
    const QSignalSpy applied(m_themes->view(), &mvThemelistview::sigThemeItemClicked);
    m_themes->view()->onClearSelect();
    QVERIFY(!isMarked(m_themes->cell(1)));
    m_themes->view()->onClearSelect();
    QVERIFY(!isMarked(m_themes->cell(1)));
    QCOMPARE(applied.size(), 0);
}

void tst_mvThemelistview_selection::clearedCellStaysTheSelectedOne()
{
    m_themes->view()->selThemeItem(BrowserWorld::theme(2));
    m_themes->view()->onClearSelect();
    const CheckedWrites writes(m_themes->cell(1));
    m_themes->cell(1)->setProperty("IsChecked", true);
    m_themes->view()->selThemeItem(BrowserWorld::theme(1));
    QCOMPARE(writes.count(), 2); // once by this test, once by the next selection
    QVERIFY(!isMarked(m_themes->cell(1)));
    QVERIFY(isMarked(m_themes->cell(0)));
}

void tst_mvThemelistview_selection::clearsASelectionAfterTheRowsAreGone()
{
    m_themes->view()->selThemeItem(BrowserWorld::theme(2));
    m_themes->view()->clear();
    m_themes->view()->onClearSelect();
    QTRY_COMPARE(m_themes->cellCount(), 0);
    m_themes->view()->onClearSelect();
    m_themes->fill();
    for (int row = 0; row < 3; ++row)
        QVERIFY(!isMarked(m_themes->cell(row)));
    m_themes->view()->selThemeItem(BrowserWorld::theme(1));
    QVERIFY(isMarked(m_themes->cell(0)));
}

void tst_mvThemelistview_selection::refreshesTheFirstCellOnly()
{
    const QString downloaded = pictureOf(m_themes->cell(0))->imagePath();
    QVERIFY(QFile::exists(downloaded));
    for (int number = 1; number <= 3; ++number)
        BrowserWorld::theme(number)->m_info_Thumb.m_qsUrl = QStringLiteral("new.png");
    m_themes->view()->resetItemData();
    QVERIFY(pictureOf(m_themes->cell(0))->imagePath().endsWith(QStringLiteral("/new.png")));
    QCOMPARE(pictureOf(m_themes->cell(1))->imagePath(), downloaded);
    QCOMPARE(pictureOf(m_themes->cell(2))->imagePath(), downloaded);
}

void tst_mvThemelistview_selection::redrawsTheFirstCellOnly()
{
    for (int row = 0; row < 3; ++row)
        QTRY_VERIFY(!pictureOf(m_themes->cell(row))->isEmpty());
    const QString picture = pictureOf(m_themes->cell(0))->imagePath();
    QVERIFY(QFile::remove(picture));
    m_themes->view()->adjustItem();
    QVERIFY(pictureOf(m_themes->cell(0))->isEmpty()); // read again, and the file is gone
    QVERIFY(!pictureOf(m_themes->cell(1))->isEmpty());
    QVERIFY(!pictureOf(m_themes->cell(2))->isEmpty());
}

void tst_mvThemelistview_selection::refreshesTheFirstCellThatIsShown()
{
    m_themes->view()->reapplyFilter(999, QStringLiteral("[23]"));
    QTRY_COMPARE(m_themes->cellCount(), 2);
    for (int number = 1; number <= 3; ++number)
        BrowserWorld::theme(number)->m_info_Thumb.m_qsUrl = QStringLiteral("new.png");
    m_themes->view()->resetItemData();
    QVERIFY(pictureOf(m_themes->cell(1))->imagePath().endsWith(QStringLiteral("/new.png")));
    QVERIFY(!pictureOf(m_themes->cell(2))->imagePath().endsWith(QStringLiteral("/new.png")));
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_selection)

#include "tst_mvThemelistview_selection.moc"
