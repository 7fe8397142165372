// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/EUIItemRole.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QSignalSpy>
#include <QStandardItemModel>

#include <memory>

/// Tests the effect of filters on a list's cells.
class tst_mvThemelistview_filter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void appliesTypeAndName_data();
    void appliesTypeAndName();
    void setsUpTheProxy();
    void filtersBackgroundsByName();
    void rowsThatAppearGetCells();
    void rowsThatGoLoseTheirCells();
    void cellsThatStayAreTheSame();
    void favouritesFollowTheMarks();
    void filteredOutCellAppliesNothing();
    void rowThatStopsMatchingStaysUntilAsked();
    void markComesBack();
    void markComesBackAtOnce();
    void clearedMarkDoesNotComeBack();
    void otherSelectionTakesTheMark();

private:
    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

constexpr int allThemes = 999;

} // namespace

void tst_mvThemelistview_filter::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Zebra"), BrowserWorld::OnDisk, QStringLiteral("travel"));
    m_world->addTheme(2, QStringLiteral("Ape"), BrowserWorld::OnDisk, QStringLiteral("festivals"));
    m_world->addTheme(3, QStringLiteral("Bear"), BrowserWorld::OnDisk, QStringLiteral("travel"));
    m_world->addTheme(4, QStringLiteral("Lion"));
    m_world->addBackground(21, QStringLiteral("Wood"));
    m_world->addBackground(22, QStringLiteral("Stone"));
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

void tst_mvThemelistview_filter::appliesTypeAndName_data()
{
    QTest::addColumn<int>("themeType");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("everything") << allThemes << QString() << QStringLiteral("Zebra,Ape,Bear,Lion,");
    QTest::newRow("a type") << 3 << QString() << QStringLiteral("Zebra,Bear");
    QTest::newRow("a name in other case")
        << allThemes << QStringLiteral("aR") << QStringLiteral("Bear");
    QTest::newRow("type and name") << 3 << QStringLiteral("z") << QStringLiteral("Zebra");
    QTest::newRow("a pattern") << allThemes << QStringLiteral("^(ape|l.*)$")
                               << QStringLiteral("Ape,Lion");
    QTest::newRow("others with the more cell") << 0 << QString() << QStringLiteral("Lion,");
}

void tst_mvThemelistview_filter::appliesTypeAndName()
{
    QFETCH(int, themeType);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    m_list->view()->reapplyFilter(themeType, text);
    QCOMPARE(m_list->shownNames().join(QLatin1Char(',')), expected);
    for (int row = 0; row < m_list->proxy()->rowCount(); ++row) {
        const QVariant widget = m_list->proxy()->index(row, 0).data(UIItemRole_Widget);
        QVERIFY(qobject_cast<MVThemeItemWdg*>(widget.value<QObject*>()));
    }
}

void tst_mvThemelistview_filter::setsUpTheProxy()
{
    m_list->view()->reapplyFilter(allThemes, QStringLiteral("a.b"));
    QCOMPARE(m_list->proxy()->filterRole(), 258);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCOMPARE(m_list->proxy()->filterRegExp(),
             QRegExp(QStringLiteral("a.b"), Qt::CaseInsensitive, QRegExp::RegExp));
#else
    QCOMPARE(m_list->proxy()->filterRegularExpression(),
             QRegularExpression(QStringLiteral("a.b"),
                                QRegularExpression::CaseInsensitiveOption
                                    | QRegularExpression::UseUnicodePropertiesOption));
#endif
}

void tst_mvThemelistview_filter::filtersBackgroundsByName()
{
    ListWindow backgrounds(UIItem_BgMaterial);
    backgrounds.fill();
    backgrounds.view()->reapplyFilter(0, QStringLiteral("sto"));
    QCOMPARE(backgrounds.shownNames(), QStringList{QStringLiteral("Stone")});
}

void tst_mvThemelistview_filter::rowsThatAppearGetCells()
{
    ListWindow list(UIItem_Themes);
    list.view()->reapplyFilter(2, QString());
    list.fill();
    QCOMPARE(list.cellCount(), 1);
    QVERIFY(!list.cell(QStringLiteral("Zebra")));
    list.view()->reapplyFilter(3, QString());
    QVERIFY(list.cell(QStringLiteral("Zebra")));
    QVERIFY(list.cell(QStringLiteral("Zebra"))->isVisible());
    QVERIFY(list.cell(QStringLiteral("Bear")));
}

void tst_mvThemelistview_filter::rowsThatGoLoseTheirCells()
{
    const QPointer<MVThemeItemWdg> ape(m_list->cell(QStringLiteral("Ape")));
    m_list->view()->reapplyFilter(3, QString());
    QVERIFY(!ape || !ape->isVisible());
    QTRY_VERIFY(!ape);
    QCOMPARE(m_list->cellCount(), 2);
    QVERIFY(!m_list->rows()->index(1, 0).data(UIItemRole_Widget).value<QObject*>());
}

void tst_mvThemelistview_filter::cellsThatStayAreTheSame()
{
    const QPointer<MVThemeItemWdg> zebra(m_list->cell(QStringLiteral("Zebra")));
    m_list->view()->reapplyFilter(3, QString());
    QTRY_COMPARE(m_list->cellCount(), 2);
    m_list->view()->reapplyFilter(allThemes, QString());
    QCOMPARE(m_list->cellCount(), 5);
    QVERIFY(zebra);
    QCOMPARE(m_list->cell(QStringLiteral("Zebra")), zebra.data());
}

void tst_mvThemelistview_filter::favouritesFollowTheMarks()
{
    m_list->view()->reapplyFilter(1, QString());
    QCOMPARE(m_list->shownNames(), QStringList());
    BrowserWorld::setFavourite(BrowserWorld::theme(2), true);
    m_list->view()->reapplyFilter(1, QString());
    QCOMPARE(m_list->shownNames(), QStringList{QStringLiteral("Ape")});
    QVERIFY(m_list->cell(QStringLiteral("Ape")));
    BrowserWorld::setFavourite(BrowserWorld::theme(2), false);
    m_list->view()->reapplyFilter(1, QString());
    QCOMPARE(m_list->shownNames(), QStringList());
}

void tst_mvThemelistview_filter::filteredOutCellAppliesNothing()
{
    const HostTrace trace;
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    const QPointer<MVThemeItemWdg> ape(m_list->cell(QStringLiteral("Ape")));
    m_list->view()->reapplyFilter(3, QString());
    QVERIFY(ape); // it is deleted after the current event
    QTest::mouseClick(frameOf(ape), Qt::LeftButton);
    ape->doApplyTheme();
    QVERIFY(!isMarked(ape));
    QCOMPARE(applied.size(), 0);
    QCOMPARE(trace.entries(), QStringList());
}

/// An item that ceases to be a favourite stays visible while the user looks at it.
void tst_mvThemelistview_filter::rowThatStopsMatchingStaysUntilAsked()
{
    BrowserWorld::setFavourite(BrowserWorld::theme(2), true);
    m_list->view()->reapplyFilter(1, QString());
    BrowserWorld::setFavourite(BrowserWorld::theme(2), false);
    m_list->rows()->setData(m_list->rows()->index(1, 0), QStringLiteral("Ape2"), UIItemRole_Name);
    QCOMPARE(m_list->shownNames(), QStringList{QStringLiteral("Ape2")});
    m_list->view()->reapplyFilter(1, QString());
    QCOMPARE(m_list->shownNames(), QStringList());
}

void tst_mvThemelistview_filter::markComesBack()
{
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    m_list->click(frameOf(m_list->cell(QStringLiteral("Ape"))));
    m_list->view()->reapplyFilter(3, QString());
    QTRY_COMPARE(m_list->cellCount(), 2);
    m_list->view()->reapplyFilter(allThemes, QString());
    QVERIFY(isMarked(m_list->cell(QStringLiteral("Ape"))));
    for (const char* name : {"Zebra", "Bear", "Lion"})
        QVERIFY(!isMarked(m_list->cell(QString::fromLatin1(name))));
    QCOMPARE(applied.size(), 1);
    m_list->click(frameOf(m_list->cell(QStringLiteral("Lion"))));
    QVERIFY(!isMarked(m_list->cell(QStringLiteral("Ape"))));
}

void tst_mvThemelistview_filter::markComesBackAtOnce()
{
    m_list->click(frameOf(m_list->cell(QStringLiteral("Ape"))));
    m_list->view()->reapplyFilter(3, QString());
    m_list->view()->reapplyFilter(allThemes, QString());
    QVERIFY(isMarked(m_list->cell(QStringLiteral("Ape"))));
    QTRY_COMPARE(m_list->cellCount(), 5);
    QVERIFY(isMarked(m_list->cell(QStringLiteral("Ape"))));
    m_list->view()->onClearSelect();
    QVERIFY(!isMarked(m_list->cell(QStringLiteral("Ape"))));
}

void tst_mvThemelistview_filter::clearedMarkDoesNotComeBack()
{
    m_list->click(frameOf(m_list->cell(QStringLiteral("Ape"))));
    m_list->view()->onClearSelect();
    m_list->view()->reapplyFilter(3, QString());
    QTRY_COMPARE(m_list->cellCount(), 2);
    m_list->view()->reapplyFilter(allThemes, QString());
    QVERIFY(!isMarked(m_list->cell(QStringLiteral("Ape"))));

    m_list->click(frameOf(m_list->cell(QStringLiteral("Ape"))));
    m_list->view()->reapplyFilter(3, QString());
    QTRY_COMPARE(m_list->cellCount(), 2);
    m_list->view()->onClearSelect();
    m_list->view()->reapplyFilter(allThemes, QString());
    QVERIFY(!isMarked(m_list->cell(QStringLiteral("Ape"))));
}

void tst_mvThemelistview_filter::otherSelectionTakesTheMark()
{
    m_list->click(frameOf(m_list->cell(QStringLiteral("Ape"))));
    m_list->view()->reapplyFilter(3, QString());
    QTRY_COMPARE(m_list->cellCount(), 2);
    m_list->click(frameOf(m_list->cell(QStringLiteral("Bear"))));
    m_list->view()->reapplyFilter(allThemes, QString());
    QVERIFY(!isMarked(m_list->cell(QStringLiteral("Ape"))));
    QVERIFY(isMarked(m_list->cell(QStringLiteral("Bear"))));
    m_list->view()->reapplyFilter(2, QString());
    QTRY_COMPARE(m_list->cellCount(), 1);
    m_list->view()->reapplyFilter(allThemes, QString());
    QVERIFY(!isMarked(m_list->cell(QStringLiteral("Ape"))));
    QVERIFY(isMarked(m_list->cell(QStringLiteral("Bear"))));
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_filter)

#include "tst_mvThemelistview_filter.moc"
