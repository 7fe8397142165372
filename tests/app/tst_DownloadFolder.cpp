// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadFolder.h"

#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QScopeGuard>
#include <QTemporaryDir>

/// Tests the facts about a folder for downloads.
class tst_DownloadFolder : public QObject
{
    Q_OBJECT

private slots:
    void writableFolderIsCreatedAndLeftEmpty();
    void unwritableFolders_data();
    void unwritableFolders();
    void sizesAddUp();
    void cancelledMeasuringEnds();
    void freeSpaceIsKnown();
};

void tst_DownloadFolder::writableFolderIsCreatedAndLeftEmpty()
{
    const QTemporaryDir home;
    const QString folder = home.filePath(QStringLiteral("a/b"));
    QVERIFY(DownloadFolder::isWritable(folder));
    QVERIFY(QDir(folder).exists());
    QVERIFY(QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void tst_DownloadFolder::unwritableFolders_data()
{
#ifdef Q_OS_WIN
    QSKIP("This system has no folder in which nobody can write.");
#endif
    QTest::addColumn<QString>("folder");
    // Not even the superuser can write there.
    QTest::newRow("cannot be created") << QStringLiteral("/proc/none/folder");
    QTest::newRow("takes no files") << QStringLiteral("/proc/self/fd");
    QTest::newRow("a file") << QStringLiteral("/proc/self/status");
}

void tst_DownloadFolder::unwritableFolders()
{
    QFETCH(QString, folder);
    QVERIFY(!DownloadFolder::isWritable(folder));
}

void tst_DownloadFolder::sizesAddUp()
{
    const QTemporaryDir home;
    CatalogueFiles::write(home.filePath(QStringLiteral("one")), QByteArray(1000, 'x'));
    CatalogueFiles::write(home.filePath(QStringLiteral("sub/.hidden")), QByteArray(234, 'x'));
    const QTemporaryDir elsewhere; // nothing that a removal through the link would miss
    CatalogueFiles::write(elsewhere.filePath(QStringLiteral("other")), QByteArray(5000, 'x'));
    const QString link = home.filePath(QStringLiteral("link"));
    MV_LINK(elsewhere.path(), link);
    const auto unlinked = qScopeGuard([&] { UnusualFiles::unlink(link); });
    QCOMPARE(DownloadFolder::usedBytes(home.path(), CancelToken()), qint64(1234));
}

void tst_DownloadFolder::cancelledMeasuringEnds()
{
    CancelToken cancel;
    cancel.cancel();
    QCOMPARE(DownloadFolder::usedBytes(QStringLiteral("/"), cancel), qint64(0));
}

void tst_DownloadFolder::freeSpaceIsKnown()
{
    const QTemporaryDir home;
    QVERIFY(DownloadFolder::freeBytes(home.path()) >= 0);
    QCOMPARE(DownloadFolder::freeBytes(QStringLiteral("/none/at/all")), qint64(-1));
}

MV_TEST_MAIN(tst_DownloadFolder)
#include "tst_DownloadFolder.moc"
