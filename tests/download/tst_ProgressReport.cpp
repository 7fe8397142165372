// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ProgressReport.h"
#include "support/TestMain.h"

#include <QThread>
#include <QVector>

/// Tests what a worker reports of its progress, and how often.
class tst_ProgressReport : public QObject
{
    Q_OBJECT

private slots:
    void beginningAndEndAreReported();
    void bytesNeverDecrease();
    void quickFilesAreReportedTogether();
    void slowFilesAreReportedSeparately();
    void everyRunStartsFromZero();
    void worksWithoutACallback();
};

void tst_ProgressReport::beginningAndEndAreReported()
{
    QVector<int> done;
    ProgressReport report;
    report.setCallback(
        [&](const SUpdateProgress& progress) { done.append(progress.m_nFilesDone); });
    report.begin(3);
    QCOMPARE(done, QVector<int>{0});
    report.countFiles(2);
    report.countFiles(1);
    QCOMPARE(done.last(), 3);
}

void tst_ProgressReport::bytesNeverDecrease()
{
    SUpdateProgress last;
    ProgressReport report;
    report.setCallback([&](const SUpdateProgress& progress) { last = progress; });
    report.begin(2);
    report.noteReceived(100);
    report.noteReceived(10); // a retry
    report.endTransfer();
    report.countFiles(1);
    report.noteReceived(50);
    report.endTransfer();
    report.countFiles(1);
    QCOMPARE(last.m_nBytes, qint64(150));
    QCOMPARE(last.m_nFiles, 2);
}

void tst_ProgressReport::quickFilesAreReportedTogether()
{
    constexpr int files = 100000;
    int told = 0;
    ProgressReport report;
    report.setCallback([&](const SUpdateProgress&) { ++told; });
    report.begin(files);
    for (int i = 0; i < files; ++i)
        report.countFiles(1);
    QVERIFY2(told < files / 100, qPrintable(QString::number(told)));
}

void tst_ProgressReport::slowFilesAreReportedSeparately()
{
    QVector<int> done;
    ProgressReport report;
    report.setCallback(
        [&](const SUpdateProgress& progress) { done.append(progress.m_nFilesDone); });
    report.begin(10);
    for (int i = 0; i < 2; ++i) {
        QThread::msleep(51);
        report.countFiles(1);
    }
    QCOMPARE(done, (QVector<int>{0, 1, 2}));
}

void tst_ProgressReport::everyRunStartsFromZero()
{
    SUpdateProgress last;
    ProgressReport report;
    report.setCallback([&](const SUpdateProgress& progress) { last = progress; });
    report.begin(1);
    report.noteReceived(7);
    report.endTransfer();
    report.countFiles(1);
    report.begin(4);
    QCOMPARE(last.m_nFilesDone, 0);
    QCOMPARE(last.m_nFiles, 4);
    QCOMPARE(last.m_nBytes, qint64(0));
}

void tst_ProgressReport::worksWithoutACallback()
{
    ProgressReport report;
    report.begin(1);
    report.noteReceived(1);
    report.endTransfer();
    report.countFiles(1);
}

MV_TEST_MAIN(tst_ProgressReport)

#include "tst_ProgressReport.moc"
