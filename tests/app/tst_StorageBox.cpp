// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "StorageBox.h"

#include "support/TestMain.h"

#include <QLabel>
#include <QPushButton>

/// Tests that a lack of space is told before a download, with the way out.
class tst_StorageBox : public QObject
{
    Q_OBJECT

private slots:
    void lackOfSpaceIsTold_data();
    void lackOfSpaceIsTold();
};

void tst_StorageBox::lackOfSpaceIsTold_data()
{
    QTest::addColumn<qint64>("freeBytes");
    QTest::addColumn<bool>("isEnough");
    QTest::newRow("too little") << qint64(999) << false;
    QTest::newRow("just enough") << qint64(1000) << true;
    QTest::newRow("nothing") << qint64(0) << false;
    QTest::newRow("unknown") << qint64(-1) << true;
}

void tst_StorageBox::lackOfSpaceIsTold()
{
    QFETCH(qint64, freeBytes);
    QFETCH(bool, isEnough);
    ItemUpdates::Report report;
    report.state.m_eState = eFile_Missing;
    report.state.m_nToFetch = 1;
    report.state.m_nBytesToFetch = 1000;
    report.freeBytes = freeBytes;
    QWidget window;
    StorageBox box(&window);
    box.showReport(report, false);
    const auto* const told = box.findChild<QLabel*>(QStringLiteral("itemNoSpace"));
    const auto* const download = box.findChild<QPushButton*>(QStringLiteral("updateItem"));
    QCOMPARE(told->isHidden(), isEnough);
    QCOMPARE(download->isEnabled(), isEnough);
    QVERIFY(told->text().contains(QStringLiteral("settings")));
}

MV_WIDGET_TEST_MAIN(tst_StorageBox)
#include "tst_StorageBox.moc"
