// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/SListFilter.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLocale>
#include <QStandardItemModel>

#include <memory>

/// Tests which rows an SListFilter shows, in which order, and what becomes of their cells.
class tst_mvThemelistview_listFilter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void shows_data();
    void shows();
    void sorts_data();
    void sorts();
    void equalRowsAreAsPublishedWhateverTheOrderWas();
    void showsFavouriteFilters();
    void rowsStayUntilAskedAgain();
    void sizesAreMeasuredAnew();
    void givenFilterTakesOver();
    void cellsFollowTheOrder();
    void addedItemTakesItsPlace();
    void marksOutliveAReload();
    void filterOutlivesAReload();
    void keyboardFindsARowAfterAFilter();

private:
    SListFilter filter(const char* words = "") const;
    QString shown(const SListFilter& filter);

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

enum Set { Any = 0, Favourites = 1, OnDisk = 2, Outdated = 4 };

constexpr int festivals = 2;
constexpr int travel = 3;

void writeBytes(const SCfg_Item& item, int size)
{
    CatalogueFiles::write(item.m_vecResource.first().m_qsFile, QByteArray(size, 'x'));
}

} // namespace

void tst_mvThemelistview_listFilter::init()
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Zebra"), BrowserWorld::OnDisk, QStringLiteral("travel"));
    m_world->addTheme(2, QStringLiteral("ape 10"), BrowserWorld::OnServer,
                      QStringLiteral("festivals"));
    m_world->addTheme(3, QStringLiteral("Élan des Alpes"), BrowserWorld::OnDisk,
                      QStringLiteral("travel"));
    m_world->addTheme(4, QStringLiteral("Ape 9"));
    m_world->addFilter(11, QStringLiteral("Soft"));
    m_world->addFilter(12, QStringLiteral("Hard"));
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    m_world->load();
    writeBytes(*BrowserWorld::theme(3), 3000);
    writeBytes(*BrowserWorld::theme(4), 2000);
    BrowserWorld::setFavourite(BrowserWorld::theme(2), true);
    BrowserWorld::setFavourite(BrowserWorld::theme(3), true);
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    m_list->view()->setUpdatable({CatalogueFiles::guid(1), CatalogueFiles::guid(3)});
    m_list->view()->setNew({CatalogueFiles::guid(4), CatalogueFiles::guid(2)});
}

SListFilter tst_mvThemelistview_listFilter::filter(const char* words) const
{
    SListFilter filter;
    filter.words = SearchWords(QString::fromUtf8(words));
    return filter;
}

QString tst_mvThemelistview_listFilter::shown(const SListFilter& filter)
{
    m_list->view()->applyFilter(filter);
    if (!QTest::qWaitFor([this] { return !m_list->view()->isLookingAtFiles(); }))
        return QStringLiteral("still looking at files");
    return m_list->shownNames().join(QLatin1Char(','));
}

void tst_mvThemelistview_listFilter::shows_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("sets");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* title, const char* words, int type, int sets,
                        const char* expected) {
        QTest::newRow(title) << QString::fromUtf8(words) << type << sets
                             << QString::fromUtf8(expected);
    };
    const int all = MVThemeSortFilterProxyModel::allThemes;
    const int favourites = MVThemeSortFilterProxyModel::favouriteThemes;
    row("everything, with the more cell", "", all, Any, "Zebra,ape 10,Élan des Alpes,Ape 9,");
    row("words in any order, without accents", "alpes elan", all, Any, "Élan des Alpes");
    row("part of a word in other case", "APE", all, Any, "ape 10,Ape 9");
    row("a character that patterns use", "a.e", all, Any, "");
    row("a type", "", travel, Any, "Zebra,Élan des Alpes");
    row("a type and a word", "e", festivals, Any, "ape 10");
    row("others, without the more cell", "", 0, Any, "Ape 9");
    row("favourites", "", all, Favourites, "ape 10,Élan des Alpes");
    row("favourites as a type", "", favourites, Any, "ape 10,Élan des Alpes");
    row("on disk", "", all, OnDisk, "Zebra,Élan des Alpes,Ape 9");
    row("outdated", "", all, Outdated, "Zebra,Élan des Alpes");
    row("favourites on disk", "", all, Favourites | OnDisk, "Élan des Alpes");
    row("everything at once", "elan", travel, Favourites | OnDisk | Outdated, "Élan des Alpes");
    row("no item meets all", "zebra", travel, Favourites | OnDisk | Outdated, "");
}

void tst_mvThemelistview_listFilter::shows()
{
    QFETCH(QString, words);
    QFETCH(int, type);
    QFETCH(int, sets);
    QFETCH(QString, expected);
    SListFilter asked = filter(words.toUtf8().constData());
    asked.themeType = type;
    asked.onlyFavourites = (sets & Favourites) != 0;
    asked.onlyOnDisk = (sets & OnDisk) != 0;
    asked.onlyOutdated = (sets & Outdated) != 0;
    QCOMPARE(shown(asked), expected);
    QCOMPARE(m_list->proxy()->listFilter(), asked);
    const QStringList names = m_list->shownNames();
    for (const QString& name : names)
        QVERIFY(name.isEmpty() || m_list->cell(name)->isVisible());
}

void tst_mvThemelistview_listFilter::sorts_data()
{
    QTest::addColumn<EListOrder>("order");
    QTest::addColumn<QString>("expected");
    QTest::newRow("published") << EListOrder::Published
                               << QStringLiteral("Zebra,ape 10,Élan des Alpes,Ape 9,");
    QTest::newRow("name, digits as numbers")
        << EListOrder::Name << QStringLiteral("Ape 9,ape 10,Élan des Alpes,Zebra,");
    QTest::newRow("newest") << EListOrder::Newest
                            << QStringLiteral("ape 10,Ape 9,Zebra,Élan des Alpes,");
    QTest::newRow("size") << EListOrder::Size
                          << QStringLiteral("Élan des Alpes,Ape 9,Zebra,ape 10,");
}

void tst_mvThemelistview_listFilter::sorts()
{
    QFETCH(EListOrder, order);
    QFETCH(QString, expected);
    SListFilter asked;
    asked.order = order;
    QCOMPARE(shown(asked), expected);
    asked.order = EListOrder::Published;
    QCOMPARE(shown(asked), QStringLiteral("Zebra,ape 10,Élan des Alpes,Ape 9,"));
}

void tst_mvThemelistview_listFilter::equalRowsAreAsPublishedWhateverTheOrderWas()
{
    SListFilter asked;
    asked.order = EListOrder::Name;
    shown(asked);
    asked.order = EListOrder::Newest;
    QCOMPARE(shown(asked), QStringLiteral("ape 10,Ape 9,Zebra,Élan des Alpes,"));
}

void tst_mvThemelistview_listFilter::showsFavouriteFilters()
{
    BrowserWorld::setFavourite(BrowserWorld::filter(12), true);
    m_list = std::make_unique<ListWindow>(UIItem_Filters);
    m_list->fill();
    SListFilter asked;
    asked.onlyFavourites = true;
    asked.onlyOnDisk = true;
    QCOMPARE(shown(asked), QStringLiteral("Hard"));
}

void tst_mvThemelistview_listFilter::rowsStayUntilAskedAgain()
{
    SListFilter asked;
    asked.onlyOutdated = true;
    asked.order = EListOrder::Newest;
    QCOMPARE(shown(asked), QStringLiteral("Zebra,Élan des Alpes"));
    m_list->view()->setUpdatable({CatalogueFiles::guid(1), CatalogueFiles::guid(2)});
    m_list->view()->setNew({});
    QCOMPARE(m_list->shownNames().join(QLatin1Char(',')), QStringLiteral("Zebra,Élan des Alpes"));
    QCOMPARE(shown(asked), QStringLiteral("Zebra,ape 10"));
}

void tst_mvThemelistview_listFilter::sizesAreMeasuredAnew()
{
    SListFilter asked = filter("ape");
    asked.order = EListOrder::Size;
    QCOMPARE(shown(asked), QStringLiteral("Ape 9,ape 10"));
    writeBytes(*BrowserWorld::theme(2), 5000);
    QCOMPARE(shown(asked), QStringLiteral("ape 10,Ape 9"));
}

void tst_mvThemelistview_listFilter::givenFilterTakesOver()
{
    SListFilter asked = filter("ape");
    asked.order = EListOrder::Name;
    QCOMPARE(shown(asked), QStringLiteral("Ape 9,ape 10"));
    m_list->view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QCOMPARE(m_list->shownNames().join(QLatin1Char(',')),
             QStringLiteral("Zebra,ape 10,Élan des Alpes,Ape 9,"));
    QVERIFY(!m_list->proxy()->hasListFilter());
}

/// The cells must be where their rows are, whatever the order was before.
void tst_mvThemelistview_listFilter::cellsFollowTheOrder()
{
    SListFilter asked;
    asked.order = EListOrder::Size;
    shown(asked);
    QCoreApplication::processEvents();
    for (int row = 0; row < m_list->proxy()->rowCount(); ++row) {
        const QModelIndex index = m_list->proxy()->index(row, 0);
        const QRect place = m_list->view()->visualRect(index);
        const QWidget* const cell = m_list->view()->indexWidget(index);
        QVERIFY(cell && cell->isVisible());
        QCOMPARE(cell->geometry().topLeft(), place.topLeft());
    }
}

void tst_mvThemelistview_listFilter::addedItemTakesItsPlace()
{
    m_list->view()->clear();
    SListFilter asked;
    asked.order = EListOrder::Name;
    m_list->view()->applyFilter(asked);
    for (const int number : {1, 3, 4})
        m_list->view()->addItem(*BrowserWorld::theme(number));
    QCoreApplication::processEvents();
    QCOMPARE(m_list->shownNames().join(QLatin1Char(',')),
             QStringLiteral("Ape 9,Élan des Alpes,Zebra"));
    const QStringList names = m_list->shownNames();
    for (const QString& name : names)
        QVERIFY(m_list->cell(name)->isVisible());
}

void tst_mvThemelistview_listFilter::marksOutliveAReload()
{
    SListFilter asked;
    asked.onlyOutdated = true;
    m_list->view()->release();
    m_world->load();
    m_list->view()->refill();
    QCOMPARE(shown(asked), QStringLiteral("Zebra,Élan des Alpes"));
}

void tst_mvThemelistview_listFilter::filterOutlivesAReload()
{
    SListFilter asked = filter("ape");
    asked.order = EListOrder::Newest;
    m_list->view()->setNew({CatalogueFiles::guid(4)});
    QCOMPARE(shown(asked), QStringLiteral("Ape 9,ape 10"));
    m_list->view()->release();
    m_world->load();
    m_list->view()->refill();
    QCOMPARE(m_list->proxy()->listFilter(), asked);
    QCOMPARE(m_list->shownNames().join(QLatin1Char(',')), QStringLiteral("Ape 9,ape 10"));
}

/// A filter has hidden all rows meanwhile: the list must not have the focus without showing where.
void tst_mvThemelistview_listFilter::keyboardFindsARowAfterAFilter()
{
    mvThemelistview* const view = m_list->view();
    m_list->window().activateWindow();
    view->setCurrentIndex(view->shownRow(CatalogueFiles::guid(1)));
    view->clearFocus();
    QCOMPARE(shown(filter("nothing")), QString());
    view->setAppliedItem(CatalogueFiles::guid(4));
    shown(SListFilter());
    QVERIFY(!view->currentIndex().isValid());
    view->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(view->hasFocus());
    QCOMPARE(view->currentIndex(), view->shownRow(CatalogueFiles::guid(4)));
    const auto* const mark = view->viewport()->findChild<QWidget*>(QStringLiteral("focusMark"));
    QVERIFY(mark && mark->isVisible());
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_listFilter)

#include "tst_mvThemelistview_listFilter.moc"
