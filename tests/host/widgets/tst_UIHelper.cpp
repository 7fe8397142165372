// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "host/widgets/UIHelper.h"
#include "support/TestMain.h"

#include <QApplication>

class tst_UIHelper : public QObject
{
    Q_OBJECT

private slots:
    void scalesFontSizes_data();
    void scalesFontSizes();
};

void tst_UIHelper::scalesFontSizes_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("pointSize");
    QTest::addColumn<float>("expected");
    QTest::newRow("unscaled") << 1.0 << 9 << 9.0F;
    QTest::newRow("twice") << 2.0 << 9 << 18.0F;
    QTest::newRow("not rounded") << 1.25 << 9 << 11.25F;
    QTest::newRow("smaller") << 0.5 << 9 << 4.5F;
    QTest::newRow("nothing") << 1.5 << 0 << 0.0F;
    QTest::newRow("negative") << 1.5 << -2 << -3.0F;
}

void tst_UIHelper::scalesFontSizes()
{
    QFETCH(double, zoom);
    QFETCH(int, pointSize);
    QFETCH(float, expected);
    hostSettings().zoomDPI = zoom;
    QCOMPARE(UIHelper::changFontSize(pointSize), expected);
}

MV_WIDGET_TEST_MAIN(tst_UIHelper)
#include "tst_UIHelper.moc"
