// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"

#include <QLayout>

#include <functional>

Q_DECLARE_METATYPE(QMargins)

using FaceChange = std::function<void(MVThemeItemSubwdgt_Preview&, SCfg_Item&)>;
using FacePart = QWidget* (*)(const FaceParts&);
Q_DECLARE_METATYPE(FaceChange)
Q_DECLARE_METATYPE(FacePart)

/// Tests the placement of buttons, error and "Current" mark over the picture.
class tst_MVThemeItemSubwdgt_Preview_overlay : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void floatsAtItsMargins_data();
    void floatsAtItsMargins();
    void followsEachResize();
    void partsAreAsHighAsTheyNeed();
    void partsFitWithoutSpaceBetweenThem();
    void theErrorHasRoomWhenItComes();
    void buttonsHaveRoomWhenTheyCome();
    void eachPartHasItsHeightAtOnce_data();
    void eachPartHasItsHeightAtOnce();
    void marginsApplyAtOnce();
    void changesWhileHiddenShowWhenItIsShown();
    void thePictureFillsItsPage();

private:
    static bool hasFixedWidth(const QWidget* widget, int width)
    {
        return widget->minimumWidth() == width && widget->maximumWidth() == width
            && widget->width() == width;
    }

    FaceFixture m_world;
};

void tst_MVThemeItemSubwdgt_Preview_overlay::floatsAtItsMargins_data()
{
    QTest::addColumn<QMargins>("margins");
    QTest::addColumn<int>("topCur");
    QTest::addColumn<int>("topError");
    QTest::newRow("none") << QMargins() << 0 << 0;
    QTest::newRow("offsets") << QMargins() << 61 << 23;
    QTest::newRow("margins") << QMargins(5, 7, 9, 11) << 0 << 0;
    QTest::newRow("both") << QMargins(5, 7, 9, 11) << 61 << 23;
    QTest::newRow("above") << QMargins(1, 2, 0, 0) << -4 << -8;
}

void tst_MVThemeItemSubwdgt_Preview_overlay::floatsAtItsMargins()
{
    QFETCH(QMargins, margins);
    QFETCH(int, topCur);
    QFETCH(int, topError);
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.layout()->setContentsMargins(margins);
    face.setProperty("nMarginTop_lblCur", topCur);
    face.setProperty("nMarginTop_frmNetError", topError);
    face.setItem(&item);
    face.setCurText(true);
    face.setDownLoadErrorText(eDownLoadError_Path);
    face.doEvent_Enter();
    QVERIFY(stage.show({160, 120}));
    face.resize(153, 116);

    const FaceParts parts(face);
    QTRY_VERIFY(hasFixedWidth(parts.frmBtns, 153));
    QCOMPARE(parts.stack->pos(), QPoint(margins.left(), margins.top()));
    QVERIFY(hasFixedWidth(parts.lblCur, 153));
    QVERIFY(hasFixedWidth(parts.frmNetError, 153));
    QCOMPARE(parts.frmBtns->pos(), parts.stack->pos());
    QCOMPARE(parts.lblCur->pos(), QPoint(margins.left(), topCur));
    QCOMPARE(parts.frmNetError->pos(), QPoint(margins.left(), topError));
}

void tst_MVThemeItemSubwdgt_Preview_overlay::followsEachResize()
{
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QVERIFY(stage.show({160, 120}));
    const FaceParts parts(face);
    const QVector<int> widths{153, 300, 80, 81};
    for (const int width : widths) {
        face.resize(width, 120);
        QTRY_VERIFY(hasFixedWidth(parts.frmBtns, width));
        QVERIFY(hasFixedWidth(parts.lblCur, width));
        QVERIFY(hasFixedWidth(parts.frmNetError, width));
        QCOMPARE(face.width(), width);
    }
}

void tst_MVThemeItemSubwdgt_Preview_overlay::partsAreAsHighAsTheyNeed()
{
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    face.setCurText(true);
    face.setDownLoadErrorText(eDownLoadError_Path);
    face.doEvent_Enter();
    QVERIFY(stage.show({153, 316}));
    const FaceParts parts(face);
    QCOMPARE(parts.frmBtns->height(), parts.frmBtns->sizeHint().height());
    QCOMPARE(parts.lblCur->height(), parts.lblCur->sizeHint().height());
    QCOMPARE(parts.frmNetError->height(), parts.frmNetError->sizeHint().height());
}

void tst_MVThemeItemSubwdgt_Preview_overlay::partsFitWithoutSpaceBetweenThem()
{
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    face.setCurText(true);
    face.setDownLoadErrorText(eDownLoadError_Path);
    face.doEvent_Enter();
    QVERIFY(stage.show({153, 316}));
    const FaceParts parts(face);
    const QVector<QWidget*> all{parts.frmBtns, parts.frmNetError, parts.lblCur};
    QVector<int> heights;
    int needed = 0;
    for (const QWidget* const one : all) {
        heights.append(one->height());
        needed += one->height();
    }
    face.resize(153, face.height() - parts.stack->height() + needed);
    QTRY_COMPARE(parts.stack->height(), needed);
    for (int i = 0; i < all.size(); ++i)
        QCOMPARE(all.at(i)->height(), heights.at(i));
}

void tst_MVThemeItemSubwdgt_Preview_overlay::eachPartHasItsHeightAtOnce_data()
{
    QTest::addColumn<FaceChange>("change");
    QTest::addColumn<FacePart>("part");
    const FacePart buttons = [](const FaceParts& parts) -> QWidget* { return parts.frmBtns; };
    const FacePart current = [](const FaceParts& parts) -> QWidget* { return parts.lblCur; };
    const FacePart error = [](const FaceParts& parts) -> QWidget* { return parts.frmNetError; };
    using Face = MVThemeItemSubwdgt_Preview;
    QTest::newRow("buttons under the mouse")
        << FaceChange([](Face& face, SCfg_Item&) { face.doEvent_Enter(); }) << buttons;
    QTest::newRow("download button")
        << FaceChange([](Face& face, SCfg_Item& item) { face.setItemDownload(&item); }) << buttons;
    QTest::newRow("mark of the current item")
        << FaceChange([](Face& face, SCfg_Item&) { face.setCurText(true); }) << current;
    QTest::newRow("error") << FaceChange([](Face& face, SCfg_Item&) {
        face.setDownLoadErrorText(eDownLoadError_Path);
    }) << error;
}

void tst_MVThemeItemSubwdgt_Preview_overlay::eachPartHasItsHeightAtOnce()
{
    QFETCH(FaceChange, change);
    QFETCH(FacePart, part);
    SCfg_Item item = FaceFixture::item();
    Stage stage;
    stage.face.setItem(&item);
    QVERIFY(stage.show({153, 316}));
    const FaceParts parts(stage.face);
    change(stage.face, item);
    QVERIFY(part(parts)->isVisible());
    QCOMPARE(part(parts)->height(), part(parts)->sizeHint().height());
}

void tst_MVThemeItemSubwdgt_Preview_overlay::marginsApplyAtOnce()
{
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    stage.face.setItem(&item);
    QVERIFY(stage.show({153, 316}));
    const FaceParts parts(stage.face);
    stage.face.setProperty("nMarginTop_lblCur", 61);
    QCOMPARE(parts.lblCur->y(), 61);
    stage.face.setProperty("nMarginTop_frmNetError", 23);
    QCOMPARE(parts.frmNetError->y(), 23);
}

void tst_MVThemeItemSubwdgt_Preview_overlay::theErrorHasRoomWhenItComes()
{
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QVERIFY(stage.show({153, 116}));
    face.setDownLoadErrorText(eDownLoadError_Internet);
    const FaceParts parts(face);
    QTRY_VERIFY(parts.lblNetError->height() >= parts.lblNetError->sizeHint().height());
    QVERIFY(parts.lblNetErrorTitle->height() >= parts.lblNetErrorTitle->sizeHint().height());
    QCOMPARE(parts.frmNetError->width(), 153);
    QVERIFY(parts.frmShow->rect().contains(parts.frmNetError->geometry()));
}

void tst_MVThemeItemSubwdgt_Preview_overlay::buttonsHaveRoomWhenTheyCome()
{
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QVERIFY(stage.show({153, 116}));
    face.doEvent_Enter();
    const FaceParts parts(face);
    QTRY_VERIFY(parts.btnCollectNo->height() >= parts.btnCollectNo->sizeHint().height());
    QCOMPARE(parts.btnCollectNo->geometry().right(), 152);
    QVERIFY(parts.btnCollectNo->visibleRegion().boundingRect() == parts.btnCollectNo->rect());
}

void tst_MVThemeItemSubwdgt_Preview_overlay::changesWhileHiddenShowWhenItIsShown()
{
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QVERIFY(stage.show({153, 316}));
    face.hide();
    face.setProperty("nMarginTop_lblCur", 61);
    face.setProperty("nMarginTop_frmNetError", 23);
    face.setDownLoadErrorText(eDownLoadError_Path);
    face.show();
    const FaceParts parts(face);
    QCOMPARE(parts.lblCur->y(), 61);
    QCOMPARE(parts.frmNetError->y(), 23);
    QCOMPARE(parts.frmNetError->height(), parts.frmNetError->sizeHint().height());
}

void tst_MVThemeItemSubwdgt_Preview_overlay::thePictureFillsItsPage()
{
    SCfg_Item item = m_world.completeItem();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    face.setCurText(true);
    face.setDownLoadErrorText(eDownLoadError_Internet);
    QVERIFY(stage.show({153, 116}));
    const FaceParts parts(face);
    const auto* picture = part<QWidget>(*parts.frmShow, "stackedWidget/pageNormal/frmPic");
    QCOMPARE(picture->size(), parts.stack->size());
    QCOMPARE(picture->mapTo(&face, QPoint()), parts.stack->pos());
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemSubwdgt_Preview_overlay)
#include "tst_MVThemeItemSubwdgt_Preview_overlay.moc"
