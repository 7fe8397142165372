// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"

#include <QSignalSpy>

/// Tests the favourite buttons, the "More>>" button and their callbacks.
class tst_MVThemeItemSubwdgt_Preview_buttons : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void aClickMakesAFavouriteAndAnotherNoLonger_data();
    void aClickMakesAFavouriteAndAnotherNoLonger();
    void believesTheCatalogueNotTheItem_data();
    void believesTheCatalogueNotTheItem();
    void tellsTheHostWhenItIsStored();
    void tellsTheHostOnce();
    void theLastCallbackCounts();
    void withoutACallbackItStillStores();
    void withoutAnItemNothingIsCollected();
    void moreTellsTheHostWithoutAnItem();
    void moreWorksWithoutACallback();
    void callbacksDoNotMix();
    void allCellsShareTheCallbacks();
    void aCallbackMayDestroyTheCell_data();
    void aCallbackMayDestroyTheCell();
    void hostSignalsAreNeverEmitted();

private:
    using Preview = MVThemeItemSubwdgt_Preview;

    FaceFixture m_world;
};

void tst_MVThemeItemSubwdgt_Preview_buttons::aClickMakesAFavouriteAndAnotherNoLonger_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("theme") << int(eCfgItem_Theme);
    QTest::newRow("filter") << int(eCfgItem_Filter);
    QTest::newRow("background material") << int(eCfgItem_BgMaterial);
}

void tst_MVThemeItemSubwdgt_Preview_buttons::aClickMakesAFavouriteAndAnotherNoLonger()
{
    QFETCH(int, kind);
    SCfg_Item item = m_world.completeItem(static_cast<ECfgItemType>(kind));
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QVERIFY(stage.show());
    face.doEvent_Enter();
    const FaceParts parts(face);

    QTest::mouseClick(parts.btnCollectNo, Qt::LeftButton);
    QVERIFY(item.m_bCollected);
    QVERIFY(FaceFixture::manager().isItemCollect(&item));
    QVERIFY(parts.btnCollect->isVisible());
    QVERIFY(!parts.btnCollectNo->isVisible());

    QTest::mouseClick(parts.btnCollect, Qt::LeftButton);
    QVERIFY(!item.m_bCollected);
    QVERIFY(!FaceFixture::manager().isItemCollect(&item));
    QVERIFY(!parts.btnCollect->isVisible());
    QVERIFY(parts.btnCollectNo->isVisible());
}

void tst_MVThemeItemSubwdgt_Preview_buttons::believesTheCatalogueNotTheItem_data()
{
    QTest::addColumn<bool>("favourite");
    QTest::newRow("is one") << true;
    QTest::newRow("is none") << false;
}

void tst_MVThemeItemSubwdgt_Preview_buttons::believesTheCatalogueNotTheItem()
{
    QFETCH(bool, favourite);
    SCfg_Item item = m_world.completeItem();
    FaceFixture::setFavourite(item, favourite);
    item.m_bCollected = !favourite;
    Preview face(nullptr);
    face.setItem(&item);
    face.onBtnCollect();
    QCOMPARE(item.m_bCollected, !favourite);
    QCOMPARE(FaceFixture::manager().isItemCollect(&item), !favourite);
    QCOMPARE(isOn(FaceParts(face).btnCollect), !favourite);
    QCOMPARE(isOn(FaceParts(face).btnCollectNo), favourite);
}

void tst_MVThemeItemSubwdgt_Preview_buttons::tellsTheHostWhenItIsStored()
{
    SCfg_Item item = m_world.completeItem();
    Preview face(nullptr);
    face.setItem(&item);
    QStringList events;
    connect(&FaceFixture::manager(), &MVThemeMgr::sigThemesCollected, &face,
            [&](const SCfg_Item* changed) {
                events.append(changed == &item ? QStringLiteral("stored") : QString());
            });
    Preview::setCbBtnCollect([&](SCfg_Item* changed) {
        events.append(changed == &item ? QStringLiteral("told") : QString());
        QVERIFY(item.m_bCollected);
        QVERIFY(FaceFixture::manager().isItemCollect(&item));
        QVERIFY(isOn(FaceParts(face).btnCollect));
    });
    face.onBtnCollect();
    QCOMPARE(events, QStringList({QStringLiteral("stored"), QStringLiteral("told")}));
}

void tst_MVThemeItemSubwdgt_Preview_buttons::tellsTheHostOnce()
{
    SCfg_Item item = m_world.completeItem();
    Preview face(nullptr);
    face.setItem(&item);
    QVector<SCfg_Item*> told;
    Preview::setCbBtnCollect([&](SCfg_Item* changed) { told.append(changed); });
    FaceParts(face).btnCollect->click();
    QCOMPARE(told, QVector<SCfg_Item*>({&item}));
    FaceParts(face).btnCollectNo->click();
    QCOMPARE(told, QVector<SCfg_Item*>({&item, &item}));
}

void tst_MVThemeItemSubwdgt_Preview_buttons::theLastCallbackCounts()
{
    SCfg_Item item = m_world.completeItem();
    Preview face(nullptr);
    face.setItem(&item);
    int former = 0;
    int latter = 0;
    Preview::setCbBtnCollect([&](SCfg_Item*) { ++former; });
    Preview::setCbBtnCollect([&](SCfg_Item*) { ++latter; });
    Preview::setCbBtnMore([&](SCfg_Item*) { ++former; });
    Preview::setCbBtnMore([&](SCfg_Item*) { ++latter; });
    face.onBtnCollect();
    face.onBtnMore();
    QCOMPARE(former, 0);
    QCOMPARE(latter, 2);
}

void tst_MVThemeItemSubwdgt_Preview_buttons::withoutACallbackItStillStores()
{
    SCfg_Item item = m_world.completeItem();
    Preview face(nullptr);
    face.setItem(&item);
    Preview::setCbBtnCollect([](SCfg_Item*) { QFAIL("unset"); });
    Preview::setCbBtnCollect(nullptr);
    face.onBtnCollect();
    QVERIFY(FaceFixture::manager().isItemCollect(&item));
}

void tst_MVThemeItemSubwdgt_Preview_buttons::withoutAnItemNothingIsCollected()
{
    Preview face(nullptr);
    face.setItem(nullptr);
    Preview::setCbBtnCollect([](SCfg_Item*) { QFAIL("no item"); });
    face.onBtnCollect();
    QVERIFY(!isOn(FaceParts(face).btnCollect));
    QVERIFY(!isOn(FaceParts(face).btnCollectNo));
}

void tst_MVThemeItemSubwdgt_Preview_buttons::moreTellsTheHostWithoutAnItem()
{
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(nullptr);
    QVERIFY(stage.show());
    QVector<SCfg_Item*> told;
    Preview::setCbBtnMore([&](SCfg_Item* item) { told.append(item); });
    QTest::mouseClick(FaceParts(face).btnMore, Qt::LeftButton);
    QCOMPARE(told, QVector<SCfg_Item*>({nullptr}));
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageMore"));
}

void tst_MVThemeItemSubwdgt_Preview_buttons::moreWorksWithoutACallback()
{
    Preview face(nullptr);
    face.setItem(nullptr);
    face.onBtnMore();
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageMore"));
}

void tst_MVThemeItemSubwdgt_Preview_buttons::callbacksDoNotMix()
{
    SCfg_Item item = m_world.completeItem();
    Preview face(nullptr);
    face.setItem(&item);
    QStringList told;
    Preview::setCbBtnCollect([&](SCfg_Item*) { told.append(QStringLiteral("collect")); });
    Preview::setCbBtnDownload([&](SCfg_Item*) { told.append(QStringLiteral("download")); });
    Preview::setCbBtnMore([&](SCfg_Item*) { told.append(QStringLiteral("more")); });
    face.onBtnMore();
    face.onBtnCollect();
    face.onBtnDownload();
    QCOMPARE(told,
             QStringList(
                 {QStringLiteral("more"), QStringLiteral("collect"), QStringLiteral("download")}));
}

void tst_MVThemeItemSubwdgt_Preview_buttons::allCellsShareTheCallbacks()
{
    SCfg_Item first = m_world.completeItem(eCfgItem_Theme, 1);
    SCfg_Item second = m_world.completeItem(eCfgItem_Theme, 2);
    QVector<SCfg_Item*> told;
    Preview a(nullptr);
    Preview::setCbBtnCollect([&](SCfg_Item* item) { told.append(item); });
    Preview b(nullptr);
    a.setItem(&first);
    b.setItem(&second);
    b.onBtnCollect();
    a.onBtnCollect();
    QCOMPARE(told, QVector<SCfg_Item*>({&second, &first}));
}

void tst_MVThemeItemSubwdgt_Preview_buttons::aCallbackMayDestroyTheCell_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("collect") << 0;
    QTest::newRow("download") << 1;
    QTest::newRow("more") << 2;
}

void tst_MVThemeItemSubwdgt_Preview_buttons::aCallbackMayDestroyTheCell()
{
    QFETCH(int, button);
    SCfg_Item item = m_world.completeItem();
    auto face = std::make_unique<Preview>(nullptr);
    face->setItem(&item);
    int calls = 0;
    const auto destroy = [&](SCfg_Item*) {
        ++calls;
        Preview::setCbBtnCollect({});
        Preview::setCbBtnDownload({});
        Preview::setCbBtnMore({});
        face.reset();
    };
    Preview::setCbBtnCollect(destroy);
    Preview::setCbBtnDownload(destroy);
    Preview::setCbBtnMore(destroy);
    switch (button) {
    case 0:
        face->onBtnCollect();
        break;
    case 1:
        face->onBtnDownload();
        break;
    default:
        face->onBtnMore();
    }
    QVERIFY(!face);
    QCOMPARE(calls, 1);
}

void tst_MVThemeItemSubwdgt_Preview_buttons::hostSignalsAreNeverEmitted()
{
    SCfg_Item item = m_world.completeItem();
    Preview face(nullptr);
    const QSignalSpy collect(&face, &Preview::sigCollect);
    const QSignalSpy more(&face, &Preview::sigBtnMore);
    const QSignalSpy apply(&face, &Preview::sigApplyTheme);
    const QSignalSpy download(&face, &Preview::sigDownLoad);
    face.setItem(nullptr);
    FaceParts(face).btnMore->click();
    face.setItem(&item);
    face.doEvent_Enter();
    FaceParts(face).btnCollectNo->click();
    FaceParts(face).btnCollect->click();
    face.setCurText(true);
    QCOMPARE(download.count(), 0);
    face.startDownLoad();
    face.onProgress(100);
    face.setDownLoadErrorText(eDownLoadError_None);
    face.setItemDownload(&item);
    face.doEvent_Leave();
    QCOMPARE(collect.count(), 0);
    QCOMPARE(more.count(), 0);
    QCOMPARE(apply.count(), 0);
    QCOMPARE(download.count(), 1);
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemSubwdgt_Preview_buttons)
#include "tst_MVThemeItemSubwdgt_Preview_buttons.moc"
