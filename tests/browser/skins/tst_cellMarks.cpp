// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserSkin.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "SampleWorld.h"
#include "SkinLook.h"
#include "support/TestMain.h"
#include "support/TestPictures.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QSet>

#include <memory>

/// Tests the look of the marks on cells in every skin, and saves pictures of them.
class tst_cellMarks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_world = std::make_unique<SampleWorld>(); }
    void cleanup();
    void cleanupTestCase() { m_world.reset(); }

    void lookInEverySkin_data();
    void lookInEverySkin();

private:
    void bringAbout(SampleList& list);
    static void marksAreLegible(SampleList& list);
    static void marksKeepClearOfTheRest(SampleList& list);
    static QImage markOf(SampleList& list, int row);

    std::unique_ptr<SampleWorld> m_world;
};

namespace {

// The rows, by the state in which the picture shows them.
constexpr int applied = 1;
constexpr int outdated = 2;
constexpr int newAndReady = 3;

/// Rows whose files can be lost: missing, failed, downloading, missing and new.
struct Lost
{
    int missing = -1;
    int failed = -1;
    int downloading = -1;
    int newAndMissing = -1;
};

Lost lost; // of the running test

const QVector<SCfg_Item>& itemsOf(EUIItemType type)
{
    const auto& catalogue = MVThemeMgr::init()->getDisplayXML();
    return type == UIItem_Themes ? catalogue.vecTheme : catalogue.vecFilter;
}

Lost chooseLost(EUIItemType type)
{
    Lost rows;
    const QVector<SCfg_Item>& items = itemsOf(type);
    for (int row = newAndReady + 1; row < items.size(); ++row) {
        if (SampleWorld::isBuiltIn(&items.at(row)))
            continue;
        for (int* const one :
             {&rows.missing, &rows.failed, &rows.downloading, &rows.newAndMissing}) {
            if (*one >= 0)
                continue;
            *one = row;
            break;
        }
    }
    return rows;
}

/// Returns null for the cells of "None" and "More>>".
QWidget* marksOf(const MVThemeItemWdg* cell)
{
    return cell->findChild<QWidget*>(QStringLiteral("marks"));
}

QColor colour(const QWidget* marks, const char* name)
{
    return marks->property(name).value<QColor>();
}

} // namespace

void tst_cellMarks::cleanup()
{
    qApp->setStyleSheet({});
    m_world->restore();
}

void tst_cellMarks::lookInEverySkin_data()
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<EUIItemType>("type");
    const QStringList skins = BrowserSkin::names();
    for (const QString& skin : skins) {
        QTest::addRow("%s-themes", qPrintable(skin)) << skin << UIItem_Themes;
        QTest::addRow("%s-filters", qPrintable(skin)) << skin << UIItem_Filters;
    }
}

void tst_cellMarks::bringAbout(SampleList& list)
{
    mvThemelistview& view = list.view();
    const auto guid = [&](int row) {
        return view.model()->index(row, 0).data(Qt::UserRole).toString();
    };
    view.setMarksShown(true);
    view.setUpdatable({guid(outdated)});
    view.setNew({guid(newAndReady), guid(lost.newAndMissing)});
    m_world->setAnswer(SampleWorld::NotFound);
    list.cell(lost.failed)->doApplyTheme();
    QTRY_VERIFY(partOf(list.cell(lost.failed), "frmNetError")->isVisible());
    m_world->setAnswer(SampleWorld::Stalls);
    list.cell(lost.downloading)->doApplyTheme();
    QTRY_COMPARE(list.cell(lost.downloading)->percent(), SampleWorld::stalledPercent);
    list.cell(applied)->doApplyTheme();
    SampleList::hover(list.cell(lost.downloading));
    QTRY_VERIFY(list.cell(lost.downloading)->underMouse());
    QCoreApplication::processEvents();
}

void tst_cellMarks::lookInEverySkin()
{
    QFETCH(QString, skin);
    QFETCH(EUIItemType, type);
    lost = chooseLost(type);
    QVERIFY(lost.newAndMissing > 0);
    for (const int row : {lost.missing, lost.failed, lost.downloading, lost.newAndMissing})
        m_world->lose(MVThemeMgr::init()->findItemByIDFromDisplay(itemsOf(type).at(row).m_eType,
                                                                  itemsOf(type).at(row).m_qsGUID));
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    SampleList list(type, type == UIItem_Themes ? QSize(712, 546) : QSize(764, 356));
    bringAbout(list);
    if (QTest::currentTestFailed())
        return;
    if (TestPictures::areWanted()) {
        QVERIFY(QDir().mkpath(QStringLiteral(MV_SCREENSHOTS)));
        const QString tag = QString::fromLatin1(QTest::currentDataTag());
        QVERIFY(list.window().grab().save(QStringLiteral(MV_SCREENSHOTS "/%1-marks.png").arg(tag)));
    }
    marksAreLegible(list);
    marksKeepClearOfTheRest(list);
    m_world->setAnswer(SampleWorld::NotFound); // cancelling takes time
    QTRY_VERIFY(!list.cell(lost.downloading)->isDownloading());
}

QImage tst_cellMarks::markOf(SampleList& list, int row)
{
    const QWidget* const marks = marksOf(list.cell(row));
    const QImage both = seenPart(list.window(), *marks);
    const int diameter = marks->property("diameter").toInt();
    return both.copy(0, 0, diameter, diameter);
}

void tst_cellMarks::marksAreLegible(SampleList& list)
{
    const QWidget* const marks = marksOf(list.cell(applied));
    for (const auto& [plate, sign] : {std::pair("plate", "sign"), std::pair("accent", "onAccent"),
                                      std::pair("alarm", "onAlarm")})
        QVERIFY2(contrast(colour(marks, plate), colour(marks, sign)) >= legible, plate);
    QSet<QRgb> centres; // of the discs, above the signs
    for (const int row : {applied, outdated, lost.failed}) {
        const QImage mark = markOf(list, row);
        centres.insert(mark.pixel(mark.width() / 2, 1));
    }
    QCOMPARE(centres.size(), 3); // calm, asking and alarming ones differ by colour, too
    QVERIFY(markOf(list, applied) != markOf(list, lost.missing));
}

void tst_cellMarks::marksKeepClearOfTheRest(SampleList& list)
{
    for (int row = 0; row < list.count(); ++row) {
        const MVThemeItemWdg* const cell = list.cell(row);
        const QWidget* const marks = marksOf(cell);
        if (!marks)
            continue;
        const QRect place = placeOf(marks);
        QVERIFY(placeOf(partOf(cell, "stackedWidget")).contains(place));
        for (const char* other : {"btnCollect", "btnCollect_No", "btnDownload", "frmNetError",
                                  "lblCur", "lblName", "lblIcon"}) {
            const QWidget* const part = partOf(cell, other);
            QVERIFY2(!part->isVisible() || !placeOf(part).intersects(place), other);
        }
    }
}

MV_WIDGET_TEST_MAIN(tst_cellMarks)

#include "tst_cellMarks.moc"
