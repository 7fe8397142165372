// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"

#include <QStyle>
#include <QStyleFactory>
#include <QVariant>

/// Tests the "Current" mark of the applied item.
class tst_MVThemeItemSubwdgt_Preview_current : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void startsUnmarked();
    void marksAndUnmarks_data();
    void marksAndUnmarks();
    void theStyleSheetFollowsTheMark();
    void theNameHasTheStyleOfTheApplication();
    void aLaterStyleSheetReachesTheName();
    void theMarkSurvivesAnItem();

private:
    FaceFixture m_world;
};

void tst_MVThemeItemSubwdgt_Preview_current::startsUnmarked()
{
    const MVThemeItemSubwdgt_Preview face(nullptr);
    const FaceParts parts(face);
    QCOMPARE(parts.lblName->property("IsChecked"), QVariant(false));
    QVERIFY(!isOn(parts.lblCur));
    QVERIFY(!isOn(parts.lblImg));
    QVERIFY(isOn(parts.lblImgTemp));
}

void tst_MVThemeItemSubwdgt_Preview_current::marksAndUnmarks_data()
{
    QTest::addColumn<QVector<bool>>("marks");
    QTest::newRow("once") << QVector<bool>{true};
    QTest::newRow("twice") << QVector<bool>{true, true};
    QTest::newRow("and back") << QVector<bool>{true, false};
    QTest::newRow("and again") << QVector<bool>{true, false, true};
    QTest::newRow("not") << QVector<bool>{false};
}

void tst_MVThemeItemSubwdgt_Preview_current::marksAndUnmarks()
{
    QFETCH(QVector<bool>, marks);
    MVThemeItemSubwdgt_Preview face(nullptr);
    const FaceParts parts(face);
    for (const bool mark : std::as_const(marks)) {
        face.setCurText(mark);
        QCOMPARE(isOn(parts.lblCur), mark);
        QCOMPARE(isOn(parts.lblImg), mark);
        QCOMPARE(isOn(parts.lblImgTemp), !mark);
        QCOMPARE(parts.lblName->property("IsChecked"), QVariant(mark));
    }
}

void tst_MVThemeItemSubwdgt_Preview_current::theStyleSheetFollowsTheMark()
{
    qApp->setStyleSheet(QStringLiteral("#lblName[IsChecked=\"true\"] { background: #ff0000; }"
                                       "#lblName[IsChecked=\"false\"] { background: #0000ff; }"));
    SCfg_Item item = m_world.completeItem();
    item.m_qsName.clear();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QLabel* name = FaceParts(face).lblName;
    name->setMinimumSize(20, 20);
    QVERIFY(stage.show());
    const auto colour = [name] { return name->grab().toImage().pixelColor(10, 10); };
    QCOMPARE(colour(), QColor(Qt::blue));
    face.setCurText(true);
    QCOMPARE(colour(), QColor(Qt::red));
    face.setCurText(false);
    QCOMPARE(colour(), QColor(Qt::blue));
}

void tst_MVThemeItemSubwdgt_Preview_current::theNameHasTheStyleOfTheApplication()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    QLabel* name = FaceParts(face).lblName;
    const std::unique_ptr<QStyle> other(QStyleFactory::create(QStringLiteral("windows")));
    QVERIFY(other);
    name->setStyle(other.get());
    face.setCurText(true);
    QCOMPARE(name->style(), QApplication::style());
}

void tst_MVThemeItemSubwdgt_Preview_current::aLaterStyleSheetReachesTheName()
{
    Stage stage;
    QLabel* name = FaceParts(stage.face).lblName;
    name->setMinimumSize(20, 20);
    QVERIFY(stage.show());
    for (const char* colour : {"#ff0000", "#0000ff"}) {
        const QString text = QString::fromLatin1(colour);
        qApp->setStyleSheet(QStringLiteral("#lblName { background: %1; }").arg(text));
        QCOMPARE(name->grab().toImage().pixelColor(10, 10), QColor(text));
        QCOMPARE(name->style(), QApplication::style());
    }
}

void tst_MVThemeItemSubwdgt_Preview_current::theMarkSurvivesAnItem()
{
    SCfg_Item item = m_world.completeItem();
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setCurText(true);
    face.setItem(&item);
    QVERIFY(isOn(FaceParts(face).lblCur));
    face.doEvent_Enter();
    face.doEvent_Leave();
    QVERIFY(isOn(FaceParts(face).lblCur));
    QCOMPARE(FaceParts(face).lblName->property("IsChecked"), QVariant(true));
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemSubwdgt_Preview_current)
#include "tst_MVThemeItemSubwdgt_Preview_current.moc"
