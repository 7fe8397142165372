// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"

#include <QSignalSpy>

namespace {

/// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return QObject::eventFilter(watched, event);
    }

    int count = 0;
};

} // namespace

/// Tests the start and the progress of a download.
class tst_MVThemeItemSubwdgt_Preview_download : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void turnsToTheDownloadPage_data();
    void turnsToTheDownloadPage();
    void tellsItsOwnerThenTheHost();
    void aSecondPressStartsNothing();
    void canStartAgainAfterTheEnd();
    void startsWithoutACallback();
    void theLastCallbackCounts();
    void tellsTheOwnerThatMayEndItAtOnce();
    void progressStartsAtZero();
    void progressIsPaintedAtOnce();
    void theStartIsPaintedAtOnce();
    void hoveringWhileItRunsKeepsThePage();

private:
    using Preview = MVThemeItemSubwdgt_Preview;

    FaceFixture m_world;
};

void tst_MVThemeItemSubwdgt_Preview_download::turnsToTheDownloadPage_data()
{
    QTest::addColumn<bool>("slot");
    QTest::newRow("startDownLoad") << false;
    QTest::newRow("onBtnDownload") << true;
}

void tst_MVThemeItemSubwdgt_Preview_download::turnsToTheDownloadPage()
{
    QFETCH(bool, slot);
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    const QSignalSpy started(&face, &Preview::sigDownLoad);
    if (slot)
        face.onBtnDownload();
    else
        face.startDownLoad();
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageDownload"));
    QCOMPARE(started.count(), 1);
    QCOMPARE(started.first().first().value<SCfg_Item*>(), &item);
}

void tst_MVThemeItemSubwdgt_Preview_download::tellsItsOwnerThenTheHost()
{
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    const FaceParts parts(face);
    QStringList events;
    connect(&face, &Preview::sigDownLoad, &face, [&](SCfg_Item* wanted) {
        QCOMPARE(wanted, &item);
        events.append(QStringLiteral("owner on ") + parts.page());
    });
    Preview::setCbBtnDownload([&](SCfg_Item* wanted) {
        QCOMPARE(wanted, &item);
        events.append(QStringLiteral("host on ") + parts.page());
    });
    face.startDownLoad();
    QCOMPARE(events,
             QStringList({QStringLiteral("owner on pageDownload"),
                          QStringLiteral("host on pageDownload")}));
}

void tst_MVThemeItemSubwdgt_Preview_download::aSecondPressStartsNothing()
{
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    int told = 0;
    Preview::setCbBtnDownload([&](SCfg_Item*) { ++told; });
    const QSignalSpy started(&face, &Preview::sigDownLoad);
    face.resize(80, 80);
    face.startDownLoad();
    face.onProgress(40);
    const QImage before = FaceParts(face).lblIcon->grab().toImage();
    face.startDownLoad();
    face.onBtnDownload();
    QCOMPARE(started.count(), 1);
    QCOMPARE(told, 1);
    QCOMPARE(FaceParts(face).lblIcon->grab().toImage(), before);
}

void tst_MVThemeItemSubwdgt_Preview_download::canStartAgainAfterTheEnd()
{
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    const QSignalSpy started(&face, &Preview::sigDownLoad);
    face.startDownLoad();
    face.setDownLoadErrorText(eDownLoadError_Internet);
    face.setItemDownload(&item);
    face.startDownLoad();
    QCOMPARE(started.count(), 2);
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageDownload"));
}

void tst_MVThemeItemSubwdgt_Preview_download::startsWithoutACallback()
{
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    Preview::setCbBtnDownload([](SCfg_Item*) { QFAIL("unset"); });
    Preview::setCbBtnDownload({});
    const QSignalSpy started(&face, &Preview::sigDownLoad);
    face.startDownLoad();
    QCOMPARE(started.count(), 1);
}

void tst_MVThemeItemSubwdgt_Preview_download::theLastCallbackCounts()
{
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    QStringList told;
    Preview::setCbBtnDownload([&](SCfg_Item*) { told.append(QStringLiteral("former")); });
    Preview::setCbBtnDownload([&](SCfg_Item*) { told.append(QStringLiteral("latter")); });
    face.startDownLoad();
    QCOMPARE(told, QStringList({QStringLiteral("latter")}));
}

void tst_MVThemeItemSubwdgt_Preview_download::tellsTheOwnerThatMayEndItAtOnce()
{
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    connect(&face, &Preview::sigDownLoad, &face, [&](SCfg_Item* wanted) {
        face.setDownLoadErrorText(eDownLoadError_Path);
        face.setItemDownload(wanted);
    });
    int told = 0;
    Preview::setCbBtnDownload([&](SCfg_Item*) { ++told; });
    face.startDownLoad();
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageShow"));
    QVERIFY(isOn(FaceParts(face).frmNetError));
    QCOMPARE(told, 1);
}

void tst_MVThemeItemSubwdgt_Preview_download::progressStartsAtZero()
{
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    QLabel* icon = FaceParts(face).lblIcon;
    icon->setFixedSize(60, 60);
    face.onProgress(0);
    const QImage zero = icon->grab().toImage();
    face.onProgress(70);
    QVERIFY(icon->grab().toImage() != zero);
    face.startDownLoad();
    QCOMPARE(icon->grab().toImage(), zero);
}

void tst_MVThemeItemSubwdgt_Preview_download::progressIsPaintedAtOnce()
{
    SCfg_Item item = FaceFixture::item();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QLabel* icon = FaceParts(face).lblIcon;
    icon->setFixedSize(60, 60);
    face.startDownLoad();
    QVERIFY(stage.show());
    PaintCount paints(icon);
    face.onProgress(10);
    QCOMPARE(paints.count, 1);
    face.onProgress(20);
    QCOMPARE(paints.count, 2);
}

void tst_MVThemeItemSubwdgt_Preview_download::theStartIsPaintedAtOnce()
{
    SCfg_Item item = FaceFixture::item();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QLabel* icon = FaceParts(face).lblIcon;
    icon->setFixedSize(60, 60);
    QVERIFY(stage.show());
    PaintCount paints(icon);
    int paintedBeforeTheSignal = 0;
    connect(&face, &Preview::sigDownLoad, &face, [&] { paintedBeforeTheSignal = paints.count; });
    face.startDownLoad();
    QVERIFY(paintedBeforeTheSignal > 0);
}

void tst_MVThemeItemSubwdgt_Preview_download::hoveringWhileItRunsKeepsThePage()
{
    SCfg_Item item = FaceFixture::item();
    Preview face(nullptr);
    face.setItem(&item);
    face.startDownLoad();
    face.doEvent_Enter();
    face.onProgress(50);
    face.doEvent_Leave();
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageDownload"));
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemSubwdgt_Preview_download)
#include "tst_MVThemeItemSubwdgt_Preview_download.moc"
