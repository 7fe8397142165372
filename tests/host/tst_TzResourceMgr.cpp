// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "host/TzResourceMgr.h"
#include "support/TestMain.h"

#include <QCoreApplication>

class tst_TzResourceMgr : public QObject
{
    Q_OBJECT

private slots:
    void isOneObject();
    void followsTheSettings();
};

void tst_TzResourceMgr::isOneObject()
{
    QVERIFY(TzResourceMgr::instance());
    QCOMPARE(TzResourceMgr::instance(), TzResourceMgr::instance());
}

void tst_TzResourceMgr::followsTheSettings()
{
    const TzResourceMgr* manager = TzResourceMgr::instance();
    QCOMPARE(TzResourceMgr::getZoomDPI(), 1.0);

    hostSettings().resourcesPath = QStringLiteral("/resources");
    hostSettings().currentSkin = QStringLiteral("Simplicity");
    hostSettings().testOutputDir = QStringLiteral("/output");
    hostSettings().zoomDPI = 1.5;
    QCOMPARE(manager->resourcesPath(), QStringLiteral("/resources"));
    QCOMPARE(manager->currentSkin(), QStringLiteral("Simplicity"));
    QCOMPARE(manager->testOutputDir(), QStringLiteral("/output"));
    QCOMPARE(TzResourceMgr::getZoomDPI(), 1.5);
}

MV_TEST_MAIN(tst_TzResourceMgr)
#include "tst_TzResourceMgr.moc"
