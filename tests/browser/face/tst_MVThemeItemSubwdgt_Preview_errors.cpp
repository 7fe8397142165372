// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"

/// Tests the error text of a failed download.
class tst_MVThemeItemSubwdgt_Preview_errors : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void tellsTheError_data();
    void tellsTheError();
    void successTakesTheTextAway();
    void anotherErrorReplacesTheFirst();
    void theErrorStaysOverTheNormalPage();
    void aLanguageChangeKeepsTheError_data() { tellsTheError_data(); }
    void aLanguageChangeKeepsTheError();
    void aLanguageChangeSetsTheTextsAgain();
    void aLanguageChangeTakesTheItemsNameAgain();
    void aLanguageChangeLeavesTheMoreCellWithoutAName();
    void anotherChangeSetsNoText();

private:
    static void changeLanguage(QWidget* widget)
    {
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(widget, &change);
    }

    FaceFixture m_world;
};

void tst_MVThemeItemSubwdgt_Preview_errors::tellsTheError_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("text");
    QTest::newRow("-1") << -1 << QStringLiteral("Unknown error!");
    QTest::newRow("0 internet") << 0 << QStringLiteral("Internet error!");
    QTest::newRow("1 path") << 1 << QStringLiteral("Path error!");
    QTest::newRow("2 element") << 2 << QStringLiteral("Element error!");
    QTest::newRow("3 unknown") << 3 << QStringLiteral("Unknown error!");
    QTest::newRow("4 cancelled") << 4 << QStringLiteral("Unknown error!");
    QTest::newRow("5 success") << 5 << QString();
    QTest::newRow("6") << 6 << QStringLiteral("Unknown error!");
}

void tst_MVThemeItemSubwdgt_Preview_errors::tellsTheError()
{
    QFETCH(int, error);
    QFETCH(QString, text);
    MVThemeItemSubwdgt_Preview face(nullptr);
    const FaceParts parts(face);
    face.setDownLoadErrorText(static_cast<EMVThemeDownLoadError>(error));
    QCOMPARE(parts.lblNetError->text(), text);
    QCOMPARE(isOn(parts.frmNetError), !text.isEmpty());
    QCOMPARE(parts.lblNetErrorTitle->text(), QStringLiteral("Download failed!"));
}

void tst_MVThemeItemSubwdgt_Preview_errors::successTakesTheTextAway()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    const FaceParts parts(face);
    face.setDownLoadErrorText(eDownLoadError_Path);
    QVERIFY(isOn(parts.frmNetError));
    face.setDownLoadErrorText(eDownLoadError_None);
    QVERIFY(!isOn(parts.frmNetError));
    QCOMPARE(parts.lblNetError->text(), QString());
    face.setDownLoadErrorText(eDownLoadError_Path);
    QVERIFY(isOn(parts.frmNetError));
}

void tst_MVThemeItemSubwdgt_Preview_errors::anotherErrorReplacesTheFirst()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setDownLoadErrorText(eDownLoadError_Path);
    face.setDownLoadErrorText(eDownLoadError_Internet);
    QCOMPARE(FaceParts(face).lblNetError->text(), QStringLiteral("Internet error!"));
    QVERIFY(isOn(FaceParts(face).frmNetError));
}

void tst_MVThemeItemSubwdgt_Preview_errors::theErrorStaysOverTheNormalPage()
{
    SCfg_Item item = FaceFixture::item();
    Stage stage;
    MVThemeItemSubwdgt_Preview& face = stage.face;
    face.setItem(&item);
    QVERIFY(stage.show());
    const FaceParts parts(face);
    face.startDownLoad();
    face.setDownLoadErrorText(eDownLoadError_Element);
    face.setItemDownload(&item);
    QVERIFY(parts.lblNetError->isVisible());
    QVERIFY(parts.frmShow->isVisible());
    face.doEvent_Enter();
    face.doEvent_Leave();
    QVERIFY(parts.lblNetError->isVisible());
    QCOMPARE(parts.lblNetError->text(), QStringLiteral("Element error!"));
}

void tst_MVThemeItemSubwdgt_Preview_errors::aLanguageChangeKeepsTheError()
{
    QFETCH(int, error);
    QFETCH(QString, text);
    MVThemeItemSubwdgt_Preview face(nullptr);
    const FaceParts parts(face);
    face.setDownLoadErrorText(static_cast<EMVThemeDownLoadError>(error));
    parts.lblNetError->setText(QStringLiteral("another language"));
    parts.frmNetError->setVisible(text.isEmpty());
    changeLanguage(&face);
    QCOMPARE(parts.lblNetError->text(), text);
    QCOMPARE(isOn(parts.frmNetError), !text.isEmpty());
}

void tst_MVThemeItemSubwdgt_Preview_errors::aLanguageChangeSetsTheTextsAgain()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    const FaceParts parts(face);
    const QString other = QStringLiteral("another language");
    for (QToolButton* button : {parts.btnCollect, parts.btnCollectNo, parts.btnDownload})
        button->setToolTip(other);
    for (QLabel* label : {parts.lblNetErrorTitle, parts.lblCur, parts.lblMore})
        label->setText(other);
    changeLanguage(&face);
    QCOMPARE(parts.btnCollect->toolTip(), QStringLiteral("Remove from Favorites"));
    QCOMPARE(parts.btnCollectNo->toolTip(), QStringLiteral("Add to Favorites"));
    QCOMPARE(parts.btnDownload->toolTip(), QStringLiteral("Download"));
    QCOMPARE(parts.lblNetErrorTitle->text(), QStringLiteral("Download failed!"));
    QCOMPARE(parts.lblCur->text(), QStringLiteral("Current"));
    QCOMPARE(parts.lblMore->text(), QStringLiteral("More>>"));
}

void tst_MVThemeItemSubwdgt_Preview_errors::aLanguageChangeTakesTheItemsNameAgain()
{
    SCfg_Item item = m_world.completeItem();
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(&item);
    changeLanguage(&face);
    QCOMPARE(FaceParts(face).lblName->text(), QStringLiteral("Item 1"));
    item.m_qsName = QStringLiteral("Renamed");
    QCOMPARE(FaceParts(face).lblName->text(), QStringLiteral("Item 1"));
    changeLanguage(&face);
    QCOMPARE(FaceParts(face).lblName->text(), QStringLiteral("Renamed"));
}

void tst_MVThemeItemSubwdgt_Preview_errors::aLanguageChangeLeavesTheMoreCellWithoutAName()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    face.setItem(nullptr);
    changeLanguage(&face);
    QCOMPARE(FaceParts(face).lblName->text(), QString());
    QCOMPARE(FaceParts(face).page(), QStringLiteral("pageMore"));
}

void tst_MVThemeItemSubwdgt_Preview_errors::anotherChangeSetsNoText()
{
    MVThemeItemSubwdgt_Preview face(nullptr);
    const FaceParts parts(face);
    parts.lblCur->setText(QStringLiteral("mine"));
    face.setFont(QFont(QStringLiteral("DejaVu Serif")));
    face.setEnabled(false);
    QCOMPARE(parts.lblCur->text(), QStringLiteral("mine"));
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemSubwdgt_Preview_errors)
#include "tst_MVThemeItemSubwdgt_Preview_errors.moc"
