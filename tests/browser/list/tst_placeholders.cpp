// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/EUIItemRole.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "download/PreviewExchange.h"
#include "host/HostSettings.h"
#include "host/widgets/ThumbFrame.h"
#include "records/FileView.h"
#include "support/HttpAnswer.h"
#include "support/HttpExchange.h"
#include "support/TestMain.h"

#include <QFile>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QToolButton>

#include <memory>

namespace tst_placeholders {

using Files = CatalogueFiles;

/// Tests items that are shown before their pictures are on disk.
class tst_placeholders : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void itemsWithoutPicturesAreHiddenByDefault();
    void itemsWithoutPicturesAreShown();
    void placeholderIsPainted();
    void arrivingPictureReplacesIt();
    void itemThatLacksOnlyPicturesIsUsable();
    void missingPictureDoesNotFailTheDownload();
    void failedDownloadKeepsItsButton();
    void arrivingPreviewIsPlayed();
    void arrivalsOfOthersChangeNothing_data();
    void arrivalsOfOthersChangeNothing();
    void pictureThatArrivesBeforeTheCell();
    void visibleItemsAreTold();
    void hiddenListsTellNothing();

private:
    void removePictures();
    void fill(const QSize& size = {520, 420});
    static ThumbFrame* picture(const MVThemeItemWdg* cell)
    {
        return cell->findChild<ThumbFrame*>();
    }
    static QString thumbnailOf(int theme)
    {
        return FileView(BrowserWorld::theme(theme)->m_info_Thumb).file();
    }
    static QStringList shown()
    {
        quint64 generation = 0;
        return PreviewExchange::instance()->shown(generation);
    }

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
    HostSettings m_settings;
};

namespace {

constexpr int themes = 60;

} // namespace

void tst_placeholders::init()
{
    m_settings = hostSettings();
    m_world = std::make_unique<BrowserWorld>();
    for (int number = 1; number <= themes; ++number)
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number));
    m_world->load();
    hostSettings().showWithoutPreviews = true;
}

void tst_placeholders::cleanup()
{
    m_list.reset();
    m_world.reset();
    hostSettings() = m_settings;
}

void tst_placeholders::removePictures()
{
    QStringList files;
    for (const SCfg_Item& theme : MVThemeMgr::init()->getDisplayXML().vecTheme)
        files << FileView(theme.m_info_Thumb).file() << FileView(theme.m_info_Gif).file();
    files.removeDuplicates();
    for (const QString& file : std::as_const(files))
        QVERIFY2(QFile::remove(file), qPrintable(file));
    MVThemeMgr::init()->load(true);
}

void tst_placeholders::fill(const QSize& size)
{
    m_list = std::make_unique<ListWindow>(UIItem_Themes, size);
    m_list->fill();
    m_list->moveAway();
}

void tst_placeholders::itemsWithoutPicturesAreHiddenByDefault()
{
    hostSettings().showWithoutPreviews = HostSettings().showWithoutPreviews;
    removePictures();
    fill();
    QCOMPARE(m_list->rows()->rowCount(), 0);
}

void tst_placeholders::itemsWithoutPicturesAreShown()
{
    removePictures();
    fill();
    QCOMPARE(m_list->rows()->rowCount(), themes);
    QVERIFY(picture(m_list->cell(0))->isEmpty());
    QCOMPARE(picture(m_list->cell(0))->imagePath(), thumbnailOf(1));
    QVERIFY(thumbnailOf(1).startsWith(m_world->root()));
}

void tst_placeholders::placeholderIsPainted()
{
    ThumbFrame frame;
    frame.resize(160, 120);
    frame.setImagePath(m_world->root() + QStringLiteral("/missing.png"));
    const QImage blank = frame.grab().toImage();
    frame.setPlaceholderShown(true);
    const QImage drawn = frame.grab().toImage();
    QVERIFY(drawn != blank);
    frame.setPlaceholderShown(false);
    QCOMPARE(frame.grab().toImage(), blank);
    frame.setImagePath(thumbnailOf(1));
    const QImage loaded = frame.grab().toImage();
    frame.setPlaceholderShown(true);
    QCOMPARE(frame.grab().toImage(), loaded);
}

void tst_placeholders::arrivingPictureReplacesIt()
{
    removePictures();
    fill();
    Files::write(thumbnailOf(1), BrowserWorld::thumbnail());
    PreviewExchange::instance()->tellArrived(Files::guid(1));
    QTRY_VERIFY(!picture(m_list->cell(0))->isEmpty());
    QCOMPARE(m_list->rows()->rowCount(), themes);
    QVERIFY(picture(m_list->cell(1))->isEmpty() || thumbnailOf(2) == thumbnailOf(1));
}

/// They may never arrive.
void tst_placeholders::itemThatLacksOnlyPicturesIsUsable()
{
    removePictures();
    fill();
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    MVThemeItemWdg* const cell = m_list->cell(0);
    m_list->moveTo(cell);
    QVERIFY(!buttonOf(cell, "btnDownload")->isVisible());
    QTRY_VERIFY(buttonOf(cell, "btnCollect_No")->isVisible());
    m_list->click(frameOf(cell));
    QCOMPARE(applied.size(), 1);
    QCOMPARE(m_world->requests(), 0);
}

/// The picture is fetched with the other files, but may be missing on the server.
void tst_placeholders::missingPictureDoesNotFailTheDownload()
{
    const QString archive = QStringLiteral("/config/Themes/90.zip");
    m_world->addTheme(90, QStringLiteral("Late"), BrowserWorld::OnServer);
    m_world->load();
    removePictures();
    for (const char* picture : {"/display/Themes/90.png", "/display/Themes/90.gif"}) {
        m_world->route(QString::fromLatin1(picture), [](HttpExchange& exchange) {
            exchange.answer(HttpAnswer(404).body("no picture"));
        });
    }
    fill();
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    MVThemeItemWdg* const cell = m_list->view()->cell(Files::guid(90));
    QVERIFY(cell);
    cell->activate();
    QTRY_COMPARE(applied.size(), 1);
    QCOMPARE(m_world->requests(archive), 1);
    QVERIFY(m_world->requests() > 1);
    QCOMPARE(errorOf(cell), QString());
}

/// Also when its picture arrives afterwards.
void tst_placeholders::failedDownloadKeepsItsButton()
{
    m_world->addTheme(90, QStringLiteral("Late"), BrowserWorld::OnServer);
    m_world->load();
    m_world->route(QStringLiteral("/config/Themes/90.zip"), [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("no archive"));
    });
    fill();
    MVThemeItemWdg* const cell = m_list->view()->cell(Files::guid(90));
    m_list->view()->scrollTo(m_list->view()->shownRow(Files::guid(90)));
    cell->activate();
    QTRY_VERIFY(!errorOf(cell).isEmpty());
    QVERIFY(buttonOf(cell, "btnDownload")->isVisible());
    PreviewExchange::instance()->tellArrived(Files::guid(90));
    QCoreApplication::processEvents();
    QVERIFY(buttonOf(cell, "btnDownload")->isVisible());
}

void tst_placeholders::arrivingPreviewIsPlayed()
{
    removePictures();
    fill();
    MVThemeItemWdg* const cell = m_list->cell(0);
    Files::write(FileView(BrowserWorld::theme(1)->m_info_Gif).file(), BrowserWorld::animation());
    PreviewExchange::instance()->tellArrived(Files::guid(1));
    QCoreApplication::processEvents();
    m_list->moveTo(cell);
    QTRY_VERIFY(playsAnimation(cell));
}

void tst_placeholders::arrivalsOfOthersChangeNothing_data()
{
    QTest::addColumn<QString>("guid");
    QTest::newRow("no GUID") << QString();
    QTest::newRow("not a GUID") << QStringLiteral("theme");
    QTest::newRow("of no item") << Files::guid(themes + 1);
}

void tst_placeholders::arrivalsOfOthersChangeNothing()
{
    QFETCH(QString, guid);
    removePictures();
    fill();
    PreviewExchange::instance()->tellArrived(guid);
    QCoreApplication::processEvents();
    QVERIFY(picture(m_list->cell(0))->isEmpty());
    m_list->view()->clear();
    PreviewExchange::instance()->tellArrived(Files::guid(1));
    QCoreApplication::processEvents();
}

void tst_placeholders::pictureThatArrivesBeforeTheCell()
{
    removePictures();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->view()->setCellsOnDemand(true);
    m_list->fill();
    const int last = themes - 1;
    QVERIFY(m_list->view()->cells().size() < themes);
    Files::write(thumbnailOf(themes), BrowserWorld::thumbnail());
    PreviewExchange::instance()->tellArrived(Files::guid(themes));
    QCoreApplication::processEvents();
    m_list->view()->scrollToBottom();
    QTRY_VERIFY(m_list->cell(last) && !picture(m_list->cell(last))->isEmpty());
}

void tst_placeholders::visibleItemsAreTold()
{
    fill();
    QTRY_VERIFY(!shown().isEmpty());
    const QStringList first = shown();
    QCOMPARE(first.constFirst(), Files::guid(1));
    QVERIFY(first.size() < themes / 2);
    for (int row = 0; row < first.size(); ++row)
        QCOMPARE(first.at(row), m_list->rows()->index(row, 0).data(UIItemRole_GUID).toString());
    m_list->view()->resize(m_list->view()->width(), m_list->view()->height() / 2);
    QTRY_VERIFY(shown().size() < first.size());
    QCOMPARE(shown(), first.mid(0, shown().size()));
    m_list->view()->verticalScrollBar()->setValue(m_list->view()->verticalScrollBar()->maximum());
    QTRY_COMPARE(shown().constLast(), Files::guid(themes));
    QVERIFY(!shown().contains(Files::guid(1)));
    m_list->view()->reapplyFilter(999, QStringLiteral("Theme 30"));
    QTRY_COMPARE(shown(), QStringList{Files::guid(30)});
}

void tst_placeholders::hiddenListsTellNothing()
{
    fill();
    QTRY_VERIFY(!shown().isEmpty());
    m_list->view()->hide();
    QTRY_VERIFY(shown().isEmpty());
    m_list->view()->show();
    QTRY_VERIFY(!shown().isEmpty());
    m_list.reset();
    QVERIFY(shown().isEmpty());
}

MV_WIDGET_TEST_MAIN(tst_placeholders)

} // namespace tst_placeholders

#include "tst_placeholders.moc"
