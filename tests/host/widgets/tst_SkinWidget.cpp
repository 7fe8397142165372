// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/SkinWidget.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QPointer>

namespace {

const QSize unsetSize(-1, -1);

const QString everything = QStringLiteral("SkinWidget {"
                                          "    qproperty-themeItemSize: 160px 120px;"
                                          "    qproperty-themeItemPadding: rect(1 2 3 4);"
                                          "    qproperty-filterItemSize: 90px 70px;"
                                          "    qproperty-filterItemPadding: rect(5 6 7 8);"
                                          "}");

void compareEverything()
{
    const SkinWidget* skin = SkinWidget::instance();
    QCOMPARE(skin->themeItemSize(), QSize(160, 120));
    QCOMPARE(skin->themeItemPadding(), QRect(1, 2, 3, 4));
    QCOMPARE(skin->filterItemSize(), QSize(90, 70));
    QCOMPARE(skin->filterItemPadding(), QRect(5, 6, 7, 8));
}

} // namespace

/// The tests run in this order: the first ones need the time before any widget is set.
class tst_SkinWidget : public QObject
{
    Q_OBJECT

private slots:
    void isUnsetAtFirst();
    void isOneHiddenWidget();
    void settersSetOneValueEach();
    void hasFourProperties_data();
    void hasFourProperties();
    void aStyleSheetSetAfterwardsCounts();
    void aLaterStyleSheetReplacesTheValues();
    void aStyleSheetLeavesWhatItDoesNotName();
    void theStyleSheetMayNameOtherWidgets();
    void readsSizes_data();
    void readsSizes();
    void readsPaddings_data();
    void readsPaddings();
};

void tst_SkinWidget::isUnsetAtFirst()
{
    const SkinWidget* skin = SkinWidget::instance();
    QCOMPARE(skin->themeItemSize(), unsetSize);
    QCOMPARE(skin->filterItemSize(), unsetSize);
    QVERIFY(skin->themeItemPadding().isNull());
    QVERIFY(skin->filterItemPadding().isNull());
}

void tst_SkinWidget::isOneHiddenWidget()
{
    QCOMPARE(SkinWidget::instance(), SkinWidget::instance());
    QVERIFY(!SkinWidget::instance()->isVisible());
    QVERIFY(!SkinWidget::instance()->parentWidget());
}

void tst_SkinWidget::settersSetOneValueEach()
{
    SkinWidget* skin = SkinWidget::instance();
    skin->setThemeItemSize(QSize(1, 2));
    QCOMPARE(skin->filterItemSize(), unsetSize);
    skin->setFilterItemSize(QSize(3, 4));
    skin->setThemeItemPadding(QRect(5, 6, 7, 8));
    QVERIFY(skin->filterItemPadding().isNull());
    skin->setFilterItemPadding(QRect(9, 10, 11, 12));
    QCOMPARE(skin->themeItemSize(), QSize(1, 2));
    QCOMPARE(skin->filterItemSize(), QSize(3, 4));
    QCOMPARE(skin->themeItemPadding(), QRect(5, 6, 7, 8));
    QCOMPARE(skin->filterItemPadding(), QRect(9, 10, 11, 12));
}

void tst_SkinWidget::hasFourProperties_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("theme size") << QByteArray("themeItemSize") << QVariant(QSize(11, 12));
    QTest::newRow("theme padding") << QByteArray("themeItemPadding") << QVariant(QRect(1, 3, 5, 7));
    QTest::newRow("filter size") << QByteArray("filterItemSize") << QVariant(QSize(13, 14));
    QTest::newRow("filter padding")
        << QByteArray("filterItemPadding") << QVariant(QRect(2, 4, 6, 8));
}

void tst_SkinWidget::hasFourProperties()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    SkinWidget* skin = SkinWidget::instance();
    QVERIFY(skin->setProperty(name.constData(), value));
    QCOMPARE(skin->property(name.constData()), value);
}

void tst_SkinWidget::aStyleSheetSetAfterwardsCounts()
{
    const QPointer<SkinWidget> before = SkinWidget::instance();
    qApp->setStyleSheet(everything);
    compareEverything();
    QCOMPARE(SkinWidget::instance(), before.data());
}

void tst_SkinWidget::aLaterStyleSheetReplacesTheValues()
{
    qApp->setStyleSheet(everything);
    SkinWidget::instance();
    qApp->setStyleSheet(QStringLiteral("SkinWidget { qproperty-themeItemSize: 10px 20px;"
                                       " qproperty-themeItemPadding: rect(9 9 9 9);"
                                       " qproperty-filterItemSize: 30px 40px;"
                                       " qproperty-filterItemPadding: rect(0 0 0 0); }"));
    const SkinWidget* skin = SkinWidget::instance();
    QCOMPARE(skin->themeItemSize(), QSize(10, 20));
    QCOMPARE(skin->themeItemPadding(), QRect(9, 9, 9, 9));
    QCOMPARE(skin->filterItemSize(), QSize(30, 40));
    QVERIFY(skin->filterItemPadding().isNull());
    qApp->setStyleSheet(everything);
    compareEverything();
}

void tst_SkinWidget::aStyleSheetLeavesWhatItDoesNotName()
{
    qApp->setStyleSheet(QString());
    SkinWidget* skin = SkinWidget::instance();
    skin->setThemeItemSize(QSize(1, 2));
    skin->setFilterItemSize(QSize(3, 4));
    qApp->setStyleSheet(QStringLiteral("SkinWidget { qproperty-filterItemSize: 5px 6px; }"));
    QCOMPARE(SkinWidget::instance()->themeItemSize(), QSize(1, 2));
    QCOMPARE(SkinWidget::instance()->filterItemSize(), QSize(5, 6));
}

void tst_SkinWidget::theStyleSheetMayNameOtherWidgets()
{
    SkinWidget* skin = SkinWidget::instance();
    skin->setThemeItemSize(QSize(1, 2));
    qApp->setStyleSheet(QStringLiteral("QFrame { border: 1px solid red; }"
                                       "#other { padding: 3px; }"));
    QCOMPARE(SkinWidget::instance()->themeItemSize(), QSize(1, 2));
}

void tst_SkinWidget::readsSizes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSize>("size");
    QTest::newRow("width and height") << QStringLiteral("160px 120px") << QSize(160, 120);
    QTest::newRow("one for both") << QStringLiteral("50px") << QSize(50, 50);
    QTest::newRow("zero") << QStringLiteral("0px 0px") << QSize(0, 0);
    QTest::newRow("no unit") << QStringLiteral("160 120") << QSize(0, 0);
    QTest::newRow("with a comma") << QStringLiteral("160px, 120px") << QSize(160, 0);
}

void tst_SkinWidget::readsSizes()
{
    QFETCH(QString, text);
    QFETCH(QSize, size);
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (text.contains(QLatin1Char(','))) {
        for (int property = 0; property < 2; ++property)
            QTest::ignoreMessage(QtWarningMsg, "QCssParser::sizeValue: Too many values provided");
    }
#endif
    qApp->setStyleSheet(QStringLiteral("SkinWidget { qproperty-themeItemSize: %1;"
                                       " qproperty-filterItemSize: %1; }")
                            .arg(text));
    QCOMPARE(SkinWidget::instance()->themeItemSize(), size);
    QCOMPARE(SkinWidget::instance()->filterItemSize(), size);
}

void tst_SkinWidget::readsPaddings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QRect>("padding");
    QTest::newRow("top, right, bottom, left")
        << QStringLiteral("rect(4 6 5 7)") << QRect(4, 6, 5, 7);
    QTest::newRow("all but the top unset")
        << QStringLiteral("rect(4 -1 -1 -1)") << QRect(4, -1, -1, -1);
    QTest::newRow("zero") << QStringLiteral("rect(0 0 0 0)") << QRect(0, 0, 0, 0);
    QTest::newRow("commas") << QStringLiteral("rect(4, 6, 5, 7)") << QRect(0, 0, 0, 7);
    QTest::newRow("units") << QStringLiteral("rect(4px 6px 5px 7px)") << QRect(0, 0, 0, 0);
}

void tst_SkinWidget::readsPaddings()
{
    QFETCH(QString, text);
    QFETCH(QRect, padding);
    qApp->setStyleSheet(QStringLiteral("SkinWidget { qproperty-themeItemPadding: %1;"
                                       " qproperty-filterItemPadding: %1; }")
                            .arg(text));
    QCOMPARE(SkinWidget::instance()->themeItemPadding(), padding);
    QCOMPARE(SkinWidget::instance()->filterItemPadding(), padding);
}

MV_WIDGET_TEST_MAIN(tst_SkinWidget)
#include "tst_SkinWidget.moc"
