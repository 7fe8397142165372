// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/FileRecord.h"
#include "records/SFileInfo.h"
#include "support/TestMain.h"

#include <memory>
#include <utility>

/// Tests that one thread at a time fetches a file, and what others read of it meanwhile.
class tst_FileRecord : public QObject
{
    Q_OBJECT

private slots:
    void oneTakesTheFile();
    void takenFileCountsFromZero();
    void movedClaimIsReleasedOnce();
    void fieldsAreSet();
};

void tst_FileRecord::oneTakesTheFile()
{
    SFileInfo info;
    FileRecord record(info);
    QVERIFY(!record.isTaken());
    {
        const FileRecord::Taken first = record.take();
        QVERIFY(bool(first));
        QVERIFY(record.isTaken());
        const FileRecord::Taken second = record.take();
        QVERIFY(!second);
    }
    QVERIFY(!record.isTaken());
    QVERIFY(bool(record.take()));
}

void tst_FileRecord::takenFileCountsFromZero()
{
    SFileInfo info;
    FileRecord record(info);
    record.setCounts({70, 100});
    QCOMPARE(record.counts().receivedBytes, qint64(70));
    QCOMPARE(record.counts().totalBytes, qint64(100));
    const FileRecord::Taken taken = record.take();
    QCOMPARE(record.counts().receivedBytes, qint64(0));
    QCOMPARE(record.counts().totalBytes, qint64(0));
    record.setCounts({5, 10});
    QVERIFY(!record.take());
    QCOMPARE(record.counts().receivedBytes, qint64(5)); // a refused claim resets nothing
}

void tst_FileRecord::movedClaimIsReleasedOnce()
{
    SFileInfo info;
    FileRecord record(info);
    auto first = std::make_unique<FileRecord::Taken>(record.take());
    auto second = std::make_unique<FileRecord::Taken>(std::move(*first));
    first.reset();
    QVERIFY(record.isTaken());
    second.reset();
    QVERIFY(!record.isTaken());
}

void tst_FileRecord::fieldsAreSet()
{
    SFileInfo info;
    FileRecord record(info);
    record.setKind(eCfgItem_Theme, true);
    record.setName(QStringLiteral("/Themes/1.zip"));
    record.setFile(QStringLiteral("/root/Themes/1.zip"));
    QCOMPARE(record.kind(), eCfgItem_Theme);
    QVERIFY(record.isDisplayHalf());
    QCOMPARE(record.name(), QStringLiteral("/Themes/1.zip"));
    QCOMPARE(record.file(), QStringLiteral("/root/Themes/1.zip"));
}

MV_TEST_MAIN(tst_FileRecord)
#include "tst_FileRecord.moc"
