// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"
#include "host/widgets/ThumbFrame.h"

#include <QMovie>

namespace {

/// Returns which of the three hover buttons are shown.
QString buttons(const MVThemeItemSubwdgt_Preview& face)
{
    const FaceParts parts(face);
    QStringList on;
    for (const QToolButton* button : {parts.btnCollect, parts.btnCollectNo, parts.btnDownload}) {
        if (isOn(button))
            on.append(button->objectName());
    }
    return on.join(QLatin1Char(' '));
}

const QString heart = QStringLiteral("btnCollect");
const QString noHeart = QStringLiteral("btnCollect_No");
const QString download = QStringLiteral("btnDownload");

} // namespace

/// Tests how a face shows its item: page, name, picture and hover buttons.
class tst_MVThemeItemSubwdgt_Preview_item : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void showsTheItem();
    void noItemIsTheMoreCell_data();
    void noItemIsTheMoreCell();
    void anItemAfterNoneShowsIt();
    void aCompleteFavouriteHasItsHeart_data();
    void aCompleteFavouriteHasItsHeart();
    void settingAnotherItemTurnsNoButtonOff();
    void afterADownloadTheButtonsFollowTheFiles_data();
    void afterADownloadTheButtonsFollowTheFiles();
    void afterADownloadThePageIsTheNormalOne_data();
    void afterADownloadThePageIsTheNormalOne();
    void hoveringShowsWhatApplies_data();
    void hoveringShowsWhatApplies();
    void leavingKeepsTheHeartOfAnItemThatNowLacksFiles();
    void hoveringLooksAtTheDiskEachTime();
    void aMissingResourceCounts();
    void hoveringTheMoreCellShowsNothing();
    void passesThePictureOn();
    void playsAndStopsThePreview();
    void getsItsDownloadButton();

private:
    SCfg_Item make(int kind, bool needed, bool favourite) const;

    FaceFixture m_world;
};

SCfg_Item tst_MVThemeItemSubwdgt_Preview_item::make(int kind, bool needed, bool favourite) const
{
    SCfg_Item item = m_world.completeItem(static_cast<ECfgItemType>(kind));
    if (needed)
        m_world.removeThumb(item);
    FaceFixture::setFavourite(item, favourite);
    return item;
}

void tst_MVThemeItemSubwdgt_Preview_item::showsTheItem()
{
    SCfg_Item item = m_world.completeItem();
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    const FaceParts parts(face);
    QCOMPARE(parts.page(), QStringLiteral("pageShow"));
    QCOMPARE(parts.lblName->text(), QStringLiteral("Item 1"));
    QCOMPARE(part<ThumbFrame>(*parts.frmShow, "stackedWidget/pageNormal/frmPic")->imagePath(),
             m_world.thumbFile(item));
    QCOMPARE(part<QLabel>(*parts.frmShow, "stackedWidget/pagePreview/lblGif")->movie()->fileName(),
             m_world.gifFile(item));
}

void tst_MVThemeItemSubwdgt_Preview_item::noItemIsTheMoreCell_data()
{
    QTest::addColumn<bool>("afterDownload");
    QTest::newRow("set") << false;
    QTest::newRow("after a download") << true;
}

void tst_MVThemeItemSubwdgt_Preview_item::noItemIsTheMoreCell()
{
    QFETCH(bool, afterDownload);
    MVThemeItemSubwdgt_Preview face(nullptr);
    if (afterDownload)
        face.setItemDownload(nullptr);
    else
        face.setItem(nullptr);
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageMore"));
    QCOMPARE(FaceParts(face).lblName->text(), QString());
    QCOMPARE(buttons(face), QString());
}

void tst_MVThemeItemSubwdgt_Preview_item::anItemAfterNoneShowsIt()
{
    SCfg_Item item = m_world.completeItem();
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(nullptr);
    face.setItem(&item);
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageShow"));
}

void tst_MVThemeItemSubwdgt_Preview_item::aCompleteFavouriteHasItsHeart_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("needed");
    QTest::addColumn<bool>("favourite");
    QTest::addColumn<QString>("on");
    QTest::newRow("theme") << 3 << false << true << heart;
    QTest::newRow("filter") << 0 << false << true << heart;
    QTest::newRow("background material") << 4 << false << true << heart;
    QTest::newRow("lacks files") << 3 << true << true << QString();
    QTest::newRow("no favourite") << 3 << false << false << QString();
    QTest::newRow("neither") << 3 << true << false << QString();
}

void tst_MVThemeItemSubwdgt_Preview_item::aCompleteFavouriteHasItsHeart()
{
    QFETCH(int, kind);
    QFETCH(bool, needed);
    QFETCH(bool, favourite);
    QFETCH(QString, on);
    SCfg_Item item = make(kind, needed, favourite);
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    QCOMPARE(buttons(face), on);
}

void tst_MVThemeItemSubwdgt_Preview_item::settingAnotherItemTurnsNoButtonOff()
{
    SCfg_Item item = make(eCfgItem_Theme, false, false);
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), noHeart);
    face.setItem(&item);
    QCOMPARE(buttons(face), noHeart);
    FaceFixture::setFavourite(item, true);
    face.setItem(&item);
    QCOMPARE(buttons(face), heart);
}

void tst_MVThemeItemSubwdgt_Preview_item::afterADownloadTheButtonsFollowTheFiles_data()
{
    QTest::addColumn<bool>("needed");
    QTest::addColumn<bool>("favourite");
    QTest::addColumn<QString>("on");
    QTest::newRow("still lacks files") << true << false << download;
    QTest::newRow("favourite that lacks files") << true << true << download;
    QTest::newRow("complete") << false << false << QString();
    QTest::newRow("complete favourite") << false << true << heart;
}

void tst_MVThemeItemSubwdgt_Preview_item::afterADownloadTheButtonsFollowTheFiles()
{
    QFETCH(bool, needed);
    QFETCH(bool, favourite);
    QFETCH(QString, on);
    SCfg_Item item = make(eCfgItem_Theme, true, favourite);
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), download);
    if (!needed)
        m_world.complete(item);
    face.setItemDownload(&item);
    QCOMPARE(buttons(face), on);
    QCOMPARE(FaceParts(face).lblName->text(), item.m_qsName);
}

void tst_MVThemeItemSubwdgt_Preview_item::afterADownloadThePageIsTheNormalOne_data()
{
    QTest::addColumn<bool>("needed");
    QTest::newRow("complete") << false;
    QTest::newRow("lacks files") << true;
}

void tst_MVThemeItemSubwdgt_Preview_item::afterADownloadThePageIsTheNormalOne()
{
    QFETCH(bool, needed);
    SCfg_Item item = make(eCfgItem_Theme, needed, false);
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    face.startDownLoad();
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageDownload"));
    face.setItemDownload(&item);
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageShow"));
}

void tst_MVThemeItemSubwdgt_Preview_item::hoveringShowsWhatApplies_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("needed");
    QTest::addColumn<bool>("favourite");
    QTest::addColumn<QString>("entered");
    QTest::addColumn<QString>("left");
    QTest::newRow("lacks files") << 3 << true << false << download << QString();
    QTest::newRow("favourite that lacks files") << 3 << true << true << download << QString();
    QTest::newRow("complete") << 3 << false << false << noHeart << QString();
    QTest::newRow("complete favourite") << 3 << false << true << heart << heart;
    QTest::newRow("filter") << 0 << false << false << noHeart << QString();
    QTest::newRow("favourite filter") << 0 << false << true << heart << heart;
    QTest::newRow("background material") << 4 << false << false << noHeart << QString();
    QTest::newRow("favourite background material") << 4 << false << true << heart << heart;
    QTest::newRow("filter that lacks files") << 0 << true << false << download << QString();
}

void tst_MVThemeItemSubwdgt_Preview_item::hoveringShowsWhatApplies()
{
    QFETCH(int, kind);
    QFETCH(bool, needed);
    QFETCH(bool, favourite);
    QFETCH(QString, entered);
    QFETCH(QString, left);
    SCfg_Item item = make(kind, needed, favourite);
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), entered);
    face.doEvent_Leave();
    QCOMPARE(buttons(face), left);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), entered);
}

void tst_MVThemeItemSubwdgt_Preview_item::leavingKeepsTheHeartOfAnItemThatNowLacksFiles()
{
    SCfg_Item item = make(eCfgItem_Theme, false, true);
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    face.doEvent_Enter();
    m_world.removeThumb(item);
    face.doEvent_Leave();
    QCOMPARE(buttons(face), heart);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), download);
}

void tst_MVThemeItemSubwdgt_Preview_item::hoveringLooksAtTheDiskEachTime()
{
    SCfg_Item item = FaceFixture::item();
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), download);
    face.doEvent_Leave();
    m_world.complete(item);
    FaceFixture::setFavourite(item, true);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), heart);
    FaceFixture::setFavourite(item, false);
    face.doEvent_Leave();
    QCOMPARE(buttons(face), QString());
}

void tst_MVThemeItemSubwdgt_Preview_item::aMissingResourceCounts()
{
    SCfg_Item item = m_world.completeItem();
    SFileInfo resource;
    resource.m_qsUrl = QStringLiteral("archive.zip");
    item.m_vecResource.append(resource);
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), download);
    CatalogueFiles::write(
        m_world.downloaded("config", "Themes", item.m_qsGUID + QStringLiteral("/archive.zip")),
        "archive");
    face.doEvent_Enter();
    QCOMPARE(buttons(face), noHeart);
}

void tst_MVThemeItemSubwdgt_Preview_item::hoveringTheMoreCellShowsNothing()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(nullptr);
    face.doEvent_Enter();
    QCOMPARE(buttons(face), QString());
    face.doEvent_Leave();
    QCOMPARE(buttons(face), QString());
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageMore"));
}

void tst_MVThemeItemSubwdgt_Preview_item::passesThePictureOn()
{
    SCfg_Item item = FaceFixture::item();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QVERIFY(stage.show({80, 80}));
    const auto* thumb =
        part<ThumbFrame>(*FaceParts(face).frmShow, "stackedWidget/pageNormal/frmPic");
    QVERIFY(thumb->isEmpty());
    m_world.complete(item);
    face.adjustItem();
    QVERIFY(!thumb->isEmpty());

    item.m_info_Thumb.m_qsUrl = QStringLiteral("other.png");
    face.resetItemData();
    QCOMPARE(thumb->imagePath(), m_world.thumbFile(item));
    QVERIFY(thumb->isEmpty());
}

void tst_MVThemeItemSubwdgt_Preview_item::playsAndStopsThePreview()
{
    SCfg_Item item = m_world.completeItem();
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    const auto* pages = part<QStackedWidget>(*FaceParts(face).frmShow, "stackedWidget");
    face.startPlayGif();
    QCOMPARE(pages->currentIndex(), 1);
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageShow"));
    face.stopPlayGif();
    QCOMPARE(pages->currentIndex(), 0);
}

void tst_MVThemeItemSubwdgt_Preview_item::getsItsDownloadButton()
{
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(face.getBtnDownload(), FaceParts(face).btnDownload);
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemSubwdgt_Preview_item)
#include "tst_MVThemeItemSubwdgt_Preview_item.moc"
