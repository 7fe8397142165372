// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/SListFilter.h"
#include "catalogue/MVThemeMgr.h"
#include "download/ResourceEvents.h"
#include "download/ResourceStorage.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QFile>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

namespace tst_mvThemelistview_files {

/// Tests that a filter and an order by files do not wait for the disk, and follow it.
class tst_mvThemelistview_files : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_list.reset(); }
    void rowsStayUntilFilesHaveBeenLookedAt();
    void whatIsKnownIsShownAtOnce();
    void sizesOrderWhenAllAreKnown();
    void rowFollowsADownload();
    void rowFollowsARemovalAndItsUndo();
    void sizeFollowsAFile();
    void othersStayWhereTheyAre();
    void topStaysTheTop();
    void reloadInterruptsTheScan();
    void listMayEndDuringTheScan_data();
    void listMayEndDuringTheScan();
    void twoListsLookAtOnce();
    void otherDownloadRootHasOtherFiles();
    void givenFilterIgnoresFiles();

private:
    static SListFilter onDisk();
    static SListFilter bySize();
    mvThemelistview* view() const { return m_list->view(); }
    QString shown() const { return m_list->shownNames().join(QLatin1Char(',')); }
    QString settled(const SListFilter& filter);

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

constexpr int themes = 40; // those with even numbers are on the server

QString nameOf(int number)
{
    return QStringLiteral("Theme %1").arg(number, 2, 10, QLatin1Char('0'));
}

QString namesOf(int first, int step)
{
    QStringList names;
    for (int number = first; number <= themes; number += step)
        names.append(nameOf(number));
    return names.join(QLatin1Char(','));
}

const QString all = namesOf(1, 1);
const QString present = namesOf(1, 2);

QString fileOf(int number)
{
    return BrowserWorld::theme(number)->m_vecResource.first().m_qsFile;
}

void write(int number, const QByteArray& content)
{
    CatalogueFiles::write(fileOf(number), content);
    ResourceEvents::instance()->tellFilesChanged({QDir::cleanPath(fileOf(number))});
}

} // namespace

void tst_mvThemelistview_files::init()
{
    m_world = std::make_unique<BrowserWorld>();
    for (int number = 1; number <= themes; ++number)
        m_world->addTheme(number, nameOf(number),
                          number % 2 == 0 ? BrowserWorld::OnServer : BrowserWorld::OnDisk);
    m_world->release();
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

SListFilter tst_mvThemelistview_files::onDisk()
{
    SListFilter filter;
    filter.onlyOnDisk = true;
    return filter;
}

SListFilter tst_mvThemelistview_files::bySize()
{
    SListFilter filter;
    filter.order = EListOrder::Size;
    return filter;
}

QString tst_mvThemelistview_files::settled(const SListFilter& filter)
{
    view()->applyFilter(filter);
    return QTest::qWaitFor([this] { return !view()->isLookingAtFiles(); })
        ? shown()
        : QStringLiteral("still looking");
}

void tst_mvThemelistview_files::rowsStayUntilFilesHaveBeenLookedAt()
{
    view()->applyFilter(onDisk());
    QVERIFY(view()->isLookingAtFiles());
    QCOMPARE(shown(), all);
    QTRY_VERIFY(!view()->isLookingAtFiles());
    QCOMPARE(shown(), present);
    const QStringList names = m_list->shownNames();
    for (const QString& name : names)
        QVERIFY(m_list->cell(name)->isVisible());
}

void tst_mvThemelistview_files::whatIsKnownIsShownAtOnce()
{
    QCOMPARE(settled(onDisk()), present);
    view()->applyFilter(SListFilter());
    QCOMPARE(shown(), all);
    QVERIFY(!view()->isLookingAtFiles());
    view()->applyFilter(onDisk());
    QCOMPARE(shown(), present);
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QCOMPARE(shown(), all);
}

void tst_mvThemelistview_files::sizesOrderWhenAllAreKnown()
{
    CatalogueFiles::write(fileOf(31), QByteArray(9000, 'x'));
    view()->applyFilter(bySize());
    QCOMPARE(shown(), all);
    QSignalSpy followed(view(), &mvThemelistview::filesFollowed);
    QTRY_COMPARE(m_list->shownNames().constFirst(), nameOf(31));
    QCOMPARE(followed.count(), 1);
    view()->applyFilter(SListFilter());
    QCOMPARE(shown(), all);
}

void tst_mvThemelistview_files::rowFollowsADownload()
{
    ListWindow other(UIItem_Themes);
    other.fill();
    QCOMPARE(settled(onDisk()), present);
    other.cell(nameOf(2))->doApplyTheme();
    QTRY_VERIFY(m_list->shownNames().contains(nameOf(2)));
    QCOMPARE(m_list->shownNames().mid(0, 3), (QStringList{nameOf(1), nameOf(2), nameOf(3)}));
    QVERIFY(m_list->cell(nameOf(2))->isVisible());
}

void tst_mvThemelistview_files::rowFollowsARemovalAndItsUndo()
{
    QCOMPARE(settled(onDisk()), present);
    const ResourceStorage::Removal removal = ResourceStorage().removeItem(*BrowserWorld::theme(5));
    QTRY_VERIFY(!m_list->shownNames().contains(nameOf(5)));
    QCOMPARE(m_list->shownNames().size(), themes / 2 - 1);
    QVERIFY(ResourceStorage::undo(removal));
    QTRY_COMPARE(shown(), present);
}

void tst_mvThemelistview_files::sizeFollowsAFile()
{
    settled(bySize());
    write(24, QByteArray(20000, 'x'));
    QTRY_COMPARE(m_list->shownNames().constFirst(), nameOf(24));
}

/// Those in view, and the current one, although rows above them come and go.
void tst_mvThemelistview_files::othersStayWhereTheyAre()
{
    m_list = std::make_unique<ListWindow>(UIItem_Themes, QSize(520, 200));
    m_list->fill();
    QCOMPARE(settled(onDisk()), present);
    QScrollBar* const bar = view()->verticalScrollBar();
    view()->setCurrentIndex(view()->shownRow(CatalogueFiles::guid(25)));
    bar->setValue(view()->visualRect(view()->shownRow(CatalogueFiles::guid(25))).top()
                  + bar->value());
    const int top = view()->visualRect(view()->currentIndex()).top();
    QVERIFY(bar->value() > 0 && bar->value() < bar->maximum());
    for (const int number : {2, 4, 6, 8, 10, 12})
        write(number, "x");
    for (const int number : {2, 4, 6, 8, 10, 12}) {
        CatalogueFiles::write(BrowserWorld::theme(number)->m_info_CfgXML.m_qsFile,
                              CatalogueFiles::read(BrowserWorld::theme(1)->m_info_CfgXML.m_qsFile));
        write(number, "y");
    }
    QTRY_COMPARE(m_list->shownNames().size(), themes / 2 + 6);
    QCOMPARE(view()->currentIndex(), view()->shownRow(CatalogueFiles::guid(25)));
    QCOMPARE(view()->visualRect(view()->currentIndex()).top(), top);
}

void tst_mvThemelistview_files::topStaysTheTop()
{
    QCOMPARE(settled(onDisk()), present);
    const ResourceStorage::Removal removal = ResourceStorage().removeItem(*BrowserWorld::theme(1));
    QTRY_COMPARE(m_list->shownNames().constFirst(), nameOf(3));
    QVERIFY(ResourceStorage::undo(removal));
    QTRY_COMPARE(m_list->shownNames().constFirst(), nameOf(1));
    QCOMPARE(view()->verticalScrollBar()->value(), 0);
}

void tst_mvThemelistview_files::reloadInterruptsTheScan()
{
    view()->applyFilter(onDisk());
    view()->release();
    m_world->load();
    QVERIFY(QFile::remove(fileOf(7)));
    view()->refill();
    QVERIFY(view()->isLookingAtFiles());
    QTRY_VERIFY(!view()->isLookingAtFiles());
    QCOMPARE(m_list->shownNames().size(), themes / 2 - 1);
    QVERIFY(!m_list->shownNames().contains(nameOf(7)));
}

void tst_mvThemelistview_files::listMayEndDuringTheScan_data()
{
    QTest::addColumn<bool>("hasReported");
    QTest::newRow("before the first report") << false;
    QTest::newRow("while a report waits") << true;
}

void tst_mvThemelistview_files::listMayEndDuringTheScan()
{
    QFETCH(bool, hasReported);
    view()->applyFilter(onDisk());
    if (hasReported)
        QTest::qSleep(20); // the thread reports to the event loop, which does not run
    m_list.reset();
    QCoreApplication::processEvents();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    QCOMPARE(settled(onDisk()), present);
}

void tst_mvThemelistview_files::twoListsLookAtOnce()
{
    auto other = std::make_unique<ListWindow>(UIItem_Themes);
    other->fill();
    ListWindow filters(UIItem_Filters);
    filters.fill();
    filters.view()->applyFilter(onDisk());
    other->view()->applyFilter(bySize());
    view()->applyFilter(onDisk());
    other.reset();
    QTRY_VERIFY(!view()->isLookingAtFiles() && !filters.view()->isLookingAtFiles());
    QCOMPARE(shown(), present);
}

void tst_mvThemelistview_files::otherDownloadRootHasOtherFiles()
{
    const QString root = m_world->root();
    QTemporaryDir empty;
    QCOMPARE(settled(onDisk()), present);
    MVThemeMgr::init()->setResourceSaveRootPath(empty.path());
    QTRY_COMPARE(shown(), QString());
    MVThemeMgr::init()->setResourceSaveRootPath(root);
    QTRY_COMPARE(shown(), present);
}

/// No thread looks at files for a list that does not ask for them any more.
void tst_mvThemelistview_files::givenFilterIgnoresFiles()
{
    QCOMPARE(settled(onDisk()), present);
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QSignalSpy followed(view(), &mvThemelistview::filesFollowed);
    ListWindow other(UIItem_Themes);
    other.fill();
    other.view()->applyFilter(onDisk());
    QTRY_COMPARE(other.shownNames().join(QLatin1Char(',')), present);
    write(2, "x");
    QCOMPARE(followed.count(), 0);
    QCOMPARE(shown(), all);
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_files)

} // namespace tst_mvThemelistview_files

#include "tst_mvThemelistview_files.moc"
