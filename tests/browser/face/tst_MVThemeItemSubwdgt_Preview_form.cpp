// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"

#include <QBoxLayout>

/// Tests the structure of a cell's face.
class tst_MVThemeItemSubwdgt_Preview_form : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void hasItsParts_data();
    void hasItsParts();
    void hasItsLayouts_data();
    void hasItsLayouts();
    void pushesTheButtonsToTheRight();
    void pagesStandInOrder();
    void alignsItsLabels_data();
    void alignsItsLabels();
    void theRingIsCentred();
    void framesHaveNoShape();
    void isAFrameOfItsParent();
    void hasItsTexts_data();
    void hasItsTexts();
    void hasItsToolTips_data();
    void hasItsToolTips();
    void startsOnTheNormalPage();
    void startsWithTheseParts_data();
    void startsWithTheseParts();
    void theNameFillsTheLine();
    void theMoreButtonFillsItsPage();
    void takesItsLooksAtOnce();

private:
    FaceFixture m_world;
};

void tst_MVThemeItemSubwdgt_Preview_form::hasItsParts_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("className");
    const auto row = [](const char* path, const char* className) {
        QTest::newRow(path) << QByteArray(path) << QByteArray(className);
    };
    row("stackedWidget", "QStackedWidget");
    row("stackedWidget/pageShow", "QWidget");
    row("stackedWidget/pageShow/frmShow", "MVThemePreviewFrm");
    row("stackedWidget/pageShow/frmShow/frmBtns_theme", "QFrame");
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnCollect", "QToolButton");
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnCollect_No", "QToolButton");
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnDownload", "QToolButton");
    row("stackedWidget/pageShow/frmShow/frmNetError", "QFrame");
    row("stackedWidget/pageShow/frmShow/frmNetError/lblNetErrorTitle", "QLabel");
    row("stackedWidget/pageShow/frmShow/frmNetError/lblNetError", "QLabel");
    row("stackedWidget/pageShow/frmShow/lblCur", "QLabel");
    row("stackedWidget/pageDownload", "QWidget");
    row("stackedWidget/pageDownload/frmBg", "QFrame");
    row("stackedWidget/pageDownload/frmBg/frmPic", "QFrame");
    row("stackedWidget/pageDownload/frmBg/frmPic/lblIcon", "QLabel");
    row("stackedWidget/pageMore", "QWidget");
    row("stackedWidget/pageMore/btnMore", "QToolButton");
    row("stackedWidget/pageMore/lblMore", "QLabel");
    row("frmInfo", "QFrame");
    row("frmInfo/lblImg", "QLabel");
    row("frmInfo/lblImgTemp", "QLabel");
    row("frmInfo/lblName", "ElidedLabel");
}

void tst_MVThemeItemSubwdgt_Preview_form::hasItsParts()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, className);
    const MVThemeItemSubwdgt_Preview face(nullptr);
    const auto* found = part<QWidget>(face, path.constData());
    QCOMPARE(QByteArray(found->metaObject()->className()), className);
    if (path.contains("lbl"))
        QVERIFY(qobject_cast<const QLabel*>(found));
}

void tst_MVThemeItemSubwdgt_Preview_form::hasItsLayouts_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<QString>("content");
    const auto row = [](const char* path, const char* name, bool vertical, int spacing,
                        const char* content) {
        QTest::newRow(name) << QByteArray(path) << QString::fromLatin1(name) << vertical << spacing
                            << QString::fromLatin1(content);
    };
    row("", "verticalLayout_4", true, 0, "stackedWidget frmInfo");
    row("stackedWidget/pageShow", "verticalLayout_5", true, 0, "frmShow");
    row("stackedWidget/pageShow/frmShow/frmBtns_theme", "horizontalLayout", false, 0,
        "- btnCollect btnCollect_No btnDownload");
    row("stackedWidget/pageShow/frmShow/frmNetError", "verticalLayout_8", true, 0,
        "lblNetErrorTitle lblNetError");
    row("stackedWidget/pageDownload", "verticalLayout_3", true, 0, "frmBg");
    row("stackedWidget/pageDownload/frmBg", "verticalLayout", true, 0, "frmPic");
    row("stackedWidget/pageDownload/frmBg/frmPic", "verticalLayout_7", true, 0, "lblIcon");
    row("stackedWidget/pageMore", "verticalLayout_6", true, 6, "btnMore lblMore");
    row("frmInfo", "horizontalLayout_2", false, 0, "lblImg lblImgTemp lblName");
}

void tst_MVThemeItemSubwdgt_Preview_form::hasItsLayouts()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, name);
    QFETCH(bool, vertical);
    QFETCH(int, spacing);
    QFETCH(QString, content);
    const MVThemeItemSubwdgt_Preview face(nullptr);
    const auto* layout = qobject_cast<QBoxLayout*>(part<QWidget>(face, path.constData())->layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), name);
    QCOMPARE(layout->direction(), vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    QCOMPARE(layout->spacing(), spacing);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QStringList items;
    for (int i = 0; i < layout->count(); ++i) {
        const QWidget* widget = layout->itemAt(i)->widget();
        items.append(widget ? widget->objectName() : QStringLiteral("-"));
    }
    QCOMPARE(items.join(QLatin1Char(' ')), content);
}

void tst_MVThemeItemSubwdgt_Preview_form::pushesTheButtonsToTheRight()
{
    const MVThemeItemSubwdgt_Preview face(nullptr);
    auto* spacer = FaceParts(face).frmBtns->layout()->itemAt(0)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(0, 20));
    QCOMPARE(spacer->expandingDirections(), Qt::Orientations(Qt::Horizontal));
}

void tst_MVThemeItemSubwdgt_Preview_form::pagesStandInOrder()
{
    const MVThemeItemSubwdgt_Preview face(nullptr);
    const auto* stack = FaceParts(face).stack;
    QCOMPARE(stack->count(), 3);
    QCOMPARE(stack->widget(0)->objectName(), QStringLiteral("pageShow"));
    QCOMPARE(stack->widget(1)->objectName(), QStringLiteral("pageDownload"));
    QCOMPARE(stack->widget(2)->objectName(), QStringLiteral("pageMore"));
}

void tst_MVThemeItemSubwdgt_Preview_form::alignsItsLabels_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<int>("alignment");
    const auto row = [](const char* path, int alignment) {
        QTest::newRow(path) << QByteArray(path) << alignment;
    };
    row("stackedWidget/pageShow/frmShow/frmNetError/lblNetErrorTitle", Qt::AlignCenter);
    row("stackedWidget/pageShow/frmShow/frmNetError/lblNetError", Qt::AlignCenter);
    row("stackedWidget/pageShow/frmShow/lblCur", int(Qt::AlignHCenter) | int(Qt::AlignBottom));
    row("stackedWidget/pageMore/lblMore", Qt::AlignCenter);
    row("frmInfo/lblName", Qt::AlignCenter);
}

void tst_MVThemeItemSubwdgt_Preview_form::alignsItsLabels()
{
    QFETCH(QByteArray, path);
    QFETCH(int, alignment);
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(int(part<QLabel>(face, path.constData())->alignment()), alignment);
}

void tst_MVThemeItemSubwdgt_Preview_form::theRingIsCentred()
{
    const MVThemeItemSubwdgt_Preview face(nullptr);
    const QLabel* icon = FaceParts(face).lblIcon;
    QCOMPARE(icon->parentWidget()->layout()->itemAt(0)->alignment(),
             Qt::Alignment(Qt::AlignHCenter));
}

void tst_MVThemeItemSubwdgt_Preview_form::framesHaveNoShape()
{
    const MVThemeItemSubwdgt_Preview face(nullptr);
    const QList<QFrame*> frames = face.findChildren<QFrame*>();
    QVERIFY(frames.size() > 10);
    for (const QFrame* frame : frames)
        QVERIFY2(frame->frameShape() == QFrame::NoFrame, qPrintable(frame->objectName()));
    QCOMPARE(face.frameShape(), QFrame::NoFrame);
}

void tst_MVThemeItemSubwdgt_Preview_form::isAFrameOfItsParent()
{
    QWidget parent;
    const auto* face = new MVThemeItemSubwdgt_Preview(&parent);
    QCOMPARE(face->parentWidget(), &parent);
    QCOMPARE(QByteArray(face->metaObject()->superClass()->className()), QByteArray("QFrame"));
    QCOMPARE(face->objectName(), QStringLiteral("MVThemeItemSubwdgt_Preview"));
}

void tst_MVThemeItemSubwdgt_Preview_form::hasItsTexts_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* path, const char* text) {
        QTest::newRow(path) << QByteArray(path) << QString::fromLatin1(text);
    };
    row("stackedWidget/pageShow/frmShow/frmNetError/lblNetErrorTitle", "Download failed!");
    row("stackedWidget/pageShow/frmShow/frmNetError/lblNetError", "");
    row("stackedWidget/pageShow/frmShow/lblCur", "Current");
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnCollect", "");
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnCollect_No", "");
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnDownload", "");
    row("stackedWidget/pageDownload/frmBg/frmPic/lblIcon", "");
    row("stackedWidget/pageMore/btnMore", "");
    row("stackedWidget/pageMore/lblMore", "More>>");
    row("frmInfo/lblImg", "");
    row("frmInfo/lblImgTemp", "");
    row("frmInfo/lblName", "");
}

void tst_MVThemeItemSubwdgt_Preview_form::hasItsTexts()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, text);
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(part<QWidget>(face, path.constData())->property("text").toString(), text);
}

void tst_MVThemeItemSubwdgt_Preview_form::hasItsToolTips_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("remove") << QByteArray("btnCollect") << QStringLiteral("Remove from Favorites");
    QTest::newRow("add") << QByteArray("btnCollect_No") << QStringLiteral("Add to Favorites");
    QTest::newRow("download") << QByteArray("btnDownload") << QStringLiteral("Download");
}

void tst_MVThemeItemSubwdgt_Preview_form::hasItsToolTips()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, toolTip);
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(part<QToolButton>(*FaceParts(face).frmBtns, button.constData())->toolTip(), toolTip);
}

void tst_MVThemeItemSubwdgt_Preview_form::startsOnTheNormalPage()
{
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageShow"));
}

void tst_MVThemeItemSubwdgt_Preview_form::startsWithTheseParts_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("on");
    const auto row = [](const char* path, bool on) {
        QTest::newRow(path) << QByteArray(path) << on;
    };
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnCollect", false);
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnCollect_No", false);
    row("stackedWidget/pageShow/frmShow/frmBtns_theme/btnDownload", false);
    row("stackedWidget/pageShow/frmShow/frmNetError", false);
    row("stackedWidget/pageShow/frmShow/lblCur", false);
    row("stackedWidget/pageShow/frmShow/frmBtns_theme", true);
    row("frmInfo", true);
    row("frmInfo/lblImg", false);
    row("frmInfo/lblImgTemp", true);
    row("frmInfo/lblName", true);
}

void tst_MVThemeItemSubwdgt_Preview_form::startsWithTheseParts()
{
    QFETCH(QByteArray, path);
    QFETCH(bool, on);
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    const auto* widget = part<QWidget>(face, path.constData());
    QCOMPARE(isOn(widget), on);
    QVERIFY(stage.show());
    QCOMPARE(widget->isVisible(), on);
}

void tst_MVThemeItemSubwdgt_Preview_form::theNameFillsTheLine()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.resize(153, 116);
    face.grab();
    const QLabel* name = FaceParts(face).lblName;
    QCOMPARE(name->geometry().right(), name->parentWidget()->rect().right());
    QVERIFY(name->width() >= 153 - FaceParts(face).lblImgTemp->width());
}

void tst_MVThemeItemSubwdgt_Preview_form::theMoreButtonFillsItsPage()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(nullptr);
    face.resize(153, 116);
    face.grab();
    const FaceParts parts(face);
    QCOMPARE(parts.btnMore->width(), 153);
    QCOMPARE(parts.lblMore->y() - (parts.btnMore->y() + parts.btnMore->height()), 6);
    QVERIFY(parts.btnMore->height() > parts.lblMore->height());
}

void tst_MVThemeItemSubwdgt_Preview_form::takesItsLooksAtOnce()
{
    qApp->setStyleSheet(
        QStringLiteral("MVThemeItemSubwdgt_Preview { qproperty-progressFontSize: 31; }"));
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(face.progressFontSize(), 31);
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemSubwdgt_Preview_form)
#include "tst_MVThemeItemSubwdgt_Preview_form.moc"
