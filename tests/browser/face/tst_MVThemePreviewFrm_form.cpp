// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemePreviewFrm.h"
#include "FaceFixture.h"
#include "host/widgets/ThumbFrame.h"

#include <QVBoxLayout>

/// Tests the structure of a cell's picture.
class tst_MVThemePreviewFrm_form : public QObject
{
    Q_OBJECT

private slots:
    void hasItsParts_data();
    void hasItsParts();
    void hasItsLayouts_data();
    void hasItsLayouts();
    void isAFrameOfItsParent();
    void keepsItsOwnNameWhereItHasNone();
    void startsOnTheThumbnail();
    void hasTwoPages();
    void eachPageFillsTheFrame_data();
    void eachPageFillsTheFrame();
    void takesItsLooksAtOnce();
    void hasNoMovieBeforeItHasAPath();

private:
    FaceFixture m_world;
};

void tst_MVThemePreviewFrm_form::hasItsParts_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("className");
    const auto row = [](const char* path, const char* className) {
        QTest::newRow(path) << QByteArray(path) << QByteArray(className);
    };
    row("stackedWidget", "QStackedWidget");
    row("stackedWidget/pageNormal", "QWidget");
    row("stackedWidget/pageNormal/frmPic", "ThumbFrame");
    row("stackedWidget/pagePreview", "QWidget");
    row("stackedWidget/pagePreview/lblGif", "QLabel");
}

void tst_MVThemePreviewFrm_form::hasItsParts()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, className);
    const MVThemePreviewFrm frame(nullptr);
    QVERIFY(part<QWidget>(frame, path.constData())->inherits(className.constData()));
}

void tst_MVThemePreviewFrm_form::hasItsLayouts_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("content");
    QTest::newRow("frame") << QByteArray() << QStringLiteral("verticalLayout")
                           << QStringLiteral("stackedWidget");
    QTest::newRow("pageNormal") << QByteArray("stackedWidget/pageNormal")
                                << QStringLiteral("verticalLayout_2") << QStringLiteral("frmPic");
    QTest::newRow("pagePreview") << QByteArray("stackedWidget/pagePreview")
                                 << QStringLiteral("verticalLayout_3") << QStringLiteral("lblGif");
}

void tst_MVThemePreviewFrm_form::hasItsLayouts()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, name);
    QFETCH(QString, content);
    const MVThemePreviewFrm frame(nullptr);
    const auto* layout =
        qobject_cast<QVBoxLayout*>(part<QWidget>(frame, path.constData())->layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), name);
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget()->objectName(), content);
}

void tst_MVThemePreviewFrm_form::isAFrameOfItsParent()
{
    QWidget parent;
    const auto* frame = new MVThemePreviewFrm(&parent);
    QCOMPARE(frame->parentWidget(), &parent);
    QCOMPARE(QByteArray(frame->metaObject()->superClass()->className()), QByteArray("QFrame"));
    QCOMPARE(frame->frameShape(), QFrame::NoFrame);
}

void tst_MVThemePreviewFrm_form::keepsItsOwnNameWhereItHasNone()
{
    const MVThemePreviewFrm frame(nullptr);
    QCOMPARE(frame.objectName(), QStringLiteral("MVThemePreviewFrm"));
}

void tst_MVThemePreviewFrm_form::startsOnTheThumbnail()
{
    const MVThemePreviewFrm frame(nullptr);
    QCOMPARE(part<QStackedWidget>(frame, "stackedWidget")->currentWidget()->objectName(),
             QStringLiteral("pageNormal"));
    QCOMPARE(part<ThumbFrame>(frame, "stackedWidget/pageNormal/frmPic")->imagePath(), QString());
}

void tst_MVThemePreviewFrm_form::hasTwoPages()
{
    const MVThemePreviewFrm frame(nullptr);
    const auto* stack = part<QStackedWidget>(frame, "stackedWidget");
    QCOMPARE(stack->count(), 2);
    QCOMPARE(stack->widget(0)->objectName(), QStringLiteral("pageNormal"));
    QCOMPARE(stack->widget(1)->objectName(), QStringLiteral("pagePreview"));
}

void tst_MVThemePreviewFrm_form::eachPageFillsTheFrame_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("thumbnail") << 0 << QByteArray("stackedWidget/pageNormal/frmPic");
    QTest::newRow("animation") << 1 << QByteArray("stackedWidget/pagePreview/lblGif");
}

void tst_MVThemePreviewFrm_form::eachPageFillsTheFrame()
{
    QFETCH(int, page);
    QFETCH(QByteArray, path);
    MVThemePreviewFrm frame(nullptr);
    frame.resize(153, 86);
    part<QStackedWidget>(frame, "stackedWidget")->setCurrentIndex(page);
    frame.grab();
    const auto* shown = part<QWidget>(frame, path.constData());
    QCOMPARE(shown->size(), QSize(153, 86));
    QCOMPARE(shown->mapTo(&frame, QPoint()), QPoint());
}

void tst_MVThemePreviewFrm_form::takesItsLooksAtOnce()
{
    m_world.fresh();
    qApp->setStyleSheet(QStringLiteral("MVThemePreviewFrm { qproperty-lineWidth: 7; }"));
    const MVThemePreviewFrm frame(nullptr);
    QCOMPARE(frame.lineWidth(), 7);
    qApp->setStyleSheet(QString());
}

void tst_MVThemePreviewFrm_form::hasNoMovieBeforeItHasAPath()
{
    const MVThemePreviewFrm frame(nullptr);
    QVERIFY(!part<QLabel>(frame, "stackedWidget/pagePreview/lblGif")->movie());
}

MV_WIDGET_TEST_MAIN(tst_MVThemePreviewFrm_form)
#include "tst_MVThemePreviewFrm_form.moc"
