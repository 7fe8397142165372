// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserSkin.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "host/widgets/SkinWidget.h"
#include "SampleWorld.h"
#include "SkinLook.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QScrollBar>
#include <QSet>

#include <memory>

namespace {

QColor captionOf(SampleList& list, int row)
{
    return mainColour(seenPart(list.window(), *partOf(list.cell(row), "frmInfo")));
}

/// Returns the colour of the cell's corner, outside its frame.
QColor cornerOf(SampleList& list, int row)
{
    const QPoint corner = list.cell(row)->mapTo(&list.window(), QPoint(1, 1));
    return list.window().grab(QRect(corner, QSize(1, 1))).toImage().pixelColor(0, 0);
}

QColor groundOf(SampleList& list)
{
    return list.view().viewport()->grab().toImage().pixelColor(list.view().viewport()->width() - 1,
                                                               0);
}

} // namespace

/// Tests skinned lists beyond what their pictures show.
class tst_skinnedLists : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_world = std::make_unique<SampleWorld>(); }
    void cleanup() { qApp->setStyleSheet({}); }
    void cleanupTestCase() { m_world.reset(); }

    void allSkinsHaveTheSameMetrics_data() { skins(); }
    void allSkinsHaveTheSameMetrics();
    void filterCellsHaveTheirOwnRules_data() { skins(); }
    void filterCellsHaveTheirOwnRules();
    void scrollBarsAreStyled_data() { skins(); }
    void scrollBarsAreStyled();
    void theViewsOwnMarksStayHidden_data() { skins(); }
    void theViewsOwnMarksStayHidden();
    void aCellOfAnUnknownItemLooksEmpty_data() { skins(); }
    void aCellOfAnUnknownItemLooksEmpty();
    void aRowWithoutItsCellLooksEmpty_data() { skins(); }
    void aRowWithoutItsCellLooksEmpty();
    void changesWhileListsAreShown();
    void changesWhileAnAnimationPlays();

private:
    static void skins();

    std::unique_ptr<SampleWorld> m_world;
};

void tst_skinnedLists::skins()
{
    QTest::addColumn<QString>("skin");
    const QStringList names = BrowserSkin::names();
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_skinnedLists::allSkinsHaveTheSameMetrics()
{
    QFETCH(QString, skin);
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    const SkinWidget* const metrics = SkinWidget::instance();
    QCOMPARE(metrics->themeItemSize(), QSize(160, 124));
    QCOMPARE(metrics->themeItemPadding(), QRect(6, 6, 6, 6));
    QCOMPARE(metrics->filterItemSize(), QSize(112, 92));
    QCOMPARE(metrics->filterItemPadding(), QRect(5, 5, 5, 5));
}

void tst_skinnedLists::filterCellsHaveTheirOwnRules()
{
    QFETCH(QString, skin);
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    SampleList themes(UIItem_Themes, {400, 300});
    SampleList filters(UIItem_Filters, {400, 300});
    const auto face = [](const SampleList& list) {
        return list.cell(0)->findChild<MVThemeItemSubwdgt_Preview*>();
    };
    QCOMPARE(face(themes)->progressFontSize(), 9);
    QCOMPARE(face(filters)->progressFontSize(), 8);
    QVERIFY(face(themes)->marginTopCur() > face(filters)->marginTopCur());
    QVERIFY(face(themes)->marginTopNetError() > face(filters)->marginTopNetError());
    QCOMPARE(partOf(themes.cell(0), "lblIcon")->maximumSize(), QSize(56, 56));
    QCOMPARE(partOf(filters.cell(0), "lblIcon")->maximumSize(), QSize(46, 46));
    // The picture is 16:9 in both skins.
    QCOMPARE(partOf(themes.cell(0), "stackedWidget")->size(), QSize(160, 124));
    QCOMPARE(partOf(themes.cell(0), "frmInfo")->height(), 124 - 90);
    QCOMPARE(partOf(filters.cell(0), "stackedWidget")->size(), QSize(112, 92));
    QCOMPARE(partOf(filters.cell(0), "frmInfo")->height(), 92 - 63);
    QVERIFY(partOf(filters.cell(0), "lblName")->contentsRect().width() >= 84);
}

void tst_skinnedLists::scrollBarsAreStyled()
{
    QFETCH(QString, skin);
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    SampleList list(UIItem_Themes, {400, 300});
    QScrollBar* const bar = list.view().verticalScrollBar();
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->width(), 12);
    QCOMPARE(bar->grab().toImage().pixelColor(0, 0), groundOf(list));
    bar->setValue(bar->maximum());
    QVERIFY(list.view().viewport()->rect().bottom()
            >= list.cell(list.count() - 1)->geometry().bottom());
}

void tst_skinnedLists::theViewsOwnMarksStayHidden()
{
    QFETCH(QString, skin);
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    SampleList list(UIItem_Filters, {400, 300});
    SampleList::hover(list.cell(1));
    QTRY_VERIFY(list.cell(1)->underMouse());
    list.view().setCurrentIndex(list.view().model()->index(2, 0));
    list.view().selectAll();
    for (const int row : {0, 1, 2})
        QCOMPARE(cornerOf(list, row), groundOf(list));
}

void tst_skinnedLists::aCellOfAnUnknownItemLooksEmpty()
{
    QFETCH(QString, skin);
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    SampleList list(UIItem_BgMaterial, {400, 500});
    SCfg_Item unknown;
    unknown.m_qsGUID = QStringLiteral("{00000000-0000-0000-0000-00000000ABCD}");
    unknown.m_qsName = QStringLiteral("Unknown");
    list.view().addItem(unknown);
    QCoreApplication::processEvents();
    const QModelIndex last = list.view().model()->index(list.count() - 1, 0);
    QVERIFY(!list.cell(list.count() - 1));
    QWidget* const editor = list.view().viewport()->childAt(list.view().visualRect(last).center());
    QVERIFY(editor);
    QCOMPARE(editor->metaObject()->superClass()->className(), "QLineEdit");
    editor->setFocus();
    const QColor ground = groundOf(list);
    const QImage picture = seenPart(list.window(), *editor);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(picture.pixelColor(x, y), ground);
    }
}

/// Tests the look of a row that has no cell yet.
void tst_skinnedLists::aRowWithoutItsCellLooksEmpty()
{
    QFETCH(QString, skin);
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    SampleList list(UIItem_Themes, {400, 300});
    const QModelIndex row = list.view().model()->index(0, 0);
    list.view().setCurrentIndex(row);
    list.view().selectAll();
    const QRect place = list.view().visualRect(row);
    delete list.cell(0);
    const QColor ground = groundOf(list);
    const QImage picture = list.view().viewport()->grab(place).toImage();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(picture.pixelColor(x, y), ground);
    }
}

void tst_skinnedLists::changesWhileListsAreShown()
{
    const QStringList names = BrowserSkin::names();
    qApp->setStyleSheet(BrowserSkin::styleSheet(names.constFirst()));
    SampleList themes(UIItem_Themes, {400, 300});
    SampleList filters(UIItem_Filters, {400, 300});
    QTest::mouseClick(partOf(themes.cell(1), "MVThemeItemWdgBg"), Qt::LeftButton);
    QSet<QRgb> seen;
    for (const QString& name : names) {
        qApp->setStyleSheet(BrowserSkin::styleSheet(name));
        QCoreApplication::processEvents();
        QCOMPARE(captionOf(themes, 0), captionOf(filters, 0));
        seen.insert(captionOf(themes, 0).rgb());
        QVERIFY(partOf(themes.cell(1), "lblCur")->isVisible());
        QCOMPARE(partOf(themes.cell(0), "MVThemeItemWdgBg")->geometry(), QRect(6, 6, 160, 124));
        QCOMPARE(partOf(filters.cell(0), "MVThemeItemWdgBg")->geometry(), QRect(5, 5, 112, 92));
    }
    // Two of the four skins have white cells.
    QCOMPARE(seen.size(), names.size() - 1);
    const QColor dark = captionOf(themes, 0);
    qApp->setStyleSheet({});
    QCoreApplication::processEvents();
    QVERIFY(captionOf(themes, 0) != dark);
    QVERIFY(themes.cell(1)->isVisible());
    QVERIFY(partOf(themes.cell(1), "lblCur")->isVisible());
}

void tst_skinnedLists::changesWhileAnAnimationPlays()
{
    qApp->setStyleSheet(BrowserSkin::styleSheet(QStringLiteral("Calm")));
    auto list = std::make_unique<SampleList>(UIItem_Themes, QSize(400, 300));
    SampleList::hover(list->cell(0));
    QTRY_VERIFY(partOf(list->cell(0), "lblGif")->isVisible());
    qApp->setStyleSheet(BrowserSkin::styleSheet(QStringLiteral("Classical")));
    QCoreApplication::processEvents();
    QVERIFY(partOf(list->cell(0), "lblGif")->isVisible());
    list.reset();
    qApp->setStyleSheet({});
}

MV_WIDGET_TEST_MAIN(tst_skinnedLists)
#include "tst_skinnedLists.moc"
