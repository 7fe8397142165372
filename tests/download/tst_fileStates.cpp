// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/FileStates.h"
#include "download/ResourceStorage.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace tst_fileStates {

/// Tests the states of files and items, and the ledger of digests behind them.
class tst_fileStates : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.freshStorage(); }

    void missingItem();
    void fetchedItemIsCurrent();
    void changedReleaseMakesItOutdated();
    void changedFileIsDamaged();
    void deepReadingFindsWhatTimesHide();
    void deepReadingReadsAFileOnce();
    void changedFileOfAnUnknownPastIsOutdated();
    void fileThatCannotBeReadIsDamaged();
    void unlistedFile();
    void nothingIsListedWithoutAReleasePolicy();
    void ledgerSavesReading();
    void longLedgerSavesReading();
    void unusableLedgerMeansReadingAgain_data();
    void unusableLedgerMeansReadingAgain();
    void ledgerBeyondItsLimitIsNotReadAndCleanedUp();
    void forgedLedgerIsNotBelievedByAVerification();
    void unreadableDefinitionIsDamaged();
    void filesOfTheApplicationAreCurrent();
    void cancelledReadingKnowsNothing();
    void worstStateCounts();
    void usedItemCountsToo();
    void ofManyAsOneByOne();
    void printed();

private:
    static EFileState stateOf(SCfg_Item& item, FileStates::Depth depth = FileStates::Depth::Quick)
    {
        return FileStates(depth).of(item).m_eState;
    }
    /// Changes a file on disk but neither its size nor its time.
    void changeSecretly(const char* name) const;
    /// Returns the state of the filter and adds the bytes that were read for it.
    SItemState quickState(qint64& read) const;
    /// Tests that the first question reads the filter and the second does not.
    void stateIsReadAndNoted() const;
    QString ledger() const { return m_world.downloadedFile("ledger.txt"); }

    StorageWorld m_world;
};

namespace {

SCfg_Item& filter()
{
    return StorageWorld::filter(13);
}

} // namespace

void tst_fileStates::changeSecretly(const char* name) const
{
    QFile file(m_world.file(name));
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime time = file.fileTime(QFileDevice::FileModificationTime);
    file.write("!");
    file.flush();
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

void tst_fileStates::missingItem()
{
    const SItemState state = FileStates(FileStates::Depth::Quick).of(filter());
    QCOMPARE(state.m_eState, eFile_Missing);
    QCOMPARE(state.m_nBytesOnDisk, qint64(0));
    const SItemState theme = FileStates(FileStates::Depth::Quick).of(StorageWorld::theme(1));
    QCOMPARE(theme.m_eState, eFile_Missing);
    QVERIFY(!theme.m_bBytesKnown); // its definition would tell what else it needs
}

void tst_fileStates::fetchedItemIsCurrent()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    const SItemState state = FileStates(FileStates::Depth::Deep).of(filter());
    QCOMPARE(state.m_eState, eFile_Current);
    QCOMPARE(
        state.m_nBytesOnDisk,
        qint64(StorageWorld::archive(13).size() + m_world.content("VideoFilters/13.xml").size()));
}

void tst_fileStates::changedReleaseMakesItOutdated()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    m_world.change("VideoFilters/13.zip", "PK changed");
    m_world.publishAndCheck(11);
    const SItemState state = FileStates(FileStates::Depth::Quick).of(filter());
    QCOMPARE(state.m_eState, eFile_Outdated);
    QCOMPARE(state.m_nToFetch, 1);
    QCOMPARE(state.m_nBytesToFetch, qint64(10));
    QVERIFY(state.m_bBytesKnown);
    QCOMPARE(stateOf(filter(), FileStates::Depth::Deep), eFile_Outdated);
}

void tst_fileStates::changedFileIsDamaged()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    CatalogueFiles::write(m_world.file("VideoFilters/13.zip"), "short");
    QCOMPARE(stateOf(filter()), eFile_Damaged);
    QCOMPARE(stateOf(filter()), eFile_Damaged); // reading it has not made it any better
}

void tst_fileStates::deepReadingFindsWhatTimesHide()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    changeSecretly("VideoFilters/13.zip");
    QCOMPARE(stateOf(filter()), eFile_Current);
    QCOMPARE(stateOf(filter(), FileStates::Depth::Deep), eFile_Damaged);
    QCOMPARE(stateOf(filter()), eFile_Damaged); // now known, so that an update repairs it
    QVERIFY(StorageWorld::fetch({&filter()}));
    QCOMPARE(m_world.content("VideoFilters/13.zip"), StorageWorld::archive(13));
    QCOMPARE(stateOf(filter(), FileStates::Depth::Deep), eFile_Current);
}

void tst_fileStates::deepReadingReadsAFileOnce()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
    qint64 bytes = 0;
    const FileStates states(FileStates::Depth::Deep, [&](qint64 bytesRead) {
        bytes += bytesRead;
        return true;
    });
    const SItemState one = states.of(StorageWorld::theme(1));
    QCOMPARE(bytes, one.m_nBytesOnDisk);
    states.of(StorageWorld::theme(2)); // both use filter 12
    QCOMPARE(bytes,
             one.m_nBytesOnDisk
                 + qint64(m_world.content("Themes/2.xml").size()
                          + m_world.content("Themes/2.zip").size()));
}

void tst_fileStates::changedFileOfAnUnknownPastIsOutdated()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    QVERIFY(QFile::remove(ledger()));
    CatalogueFiles::write(m_world.file("VideoFilters/13.zip"), "of an earlier release");
    QCOMPARE(stateOf(filter()), eFile_Outdated);
}

void tst_fileStates::fileThatCannotBeReadIsDamaged()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    const QString path = m_world.file("VideoFilters/13.zip");
    QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    QCOMPARE(stateOf(filter()), eFile_Damaged);
}

void tst_fileStates::unlistedFile()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    m_world.unlist(text("config/VideoFilters/13.zip"));
    m_world.publishAndCheck(11);
    const SItemState state = FileStates(FileStates::Depth::Quick).of(filter());
    QCOMPARE(state.m_eState, eFile_Unlisted);
}

void tst_fileStates::nothingIsListedWithoutAReleasePolicy()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    hostSettings().releasePolicy = eRelease_Ignore;
    QCOMPARE(stateOf(filter()), eFile_Unlisted);
    QCOMPARE(stateOf(StorageWorld::theme(2)), eFile_Missing);
}

SItemState tst_fileStates::quickState(qint64& read) const
{
    const auto count = [&read](qint64 bytesRead) {
        read += bytesRead;
        return true;
    };
    return FileStates(FileStates::Depth::Quick, count).of(filter());
}

void tst_fileStates::stateIsReadAndNoted() const
{
    qint64 read = 0;
    const SItemState state = quickState(read);
    QCOMPARE(state.m_eState, eFile_Current);
    QCOMPARE(read, state.m_nBytesOnDisk);
    read = 0;
    quickState(read);
    QCOMPARE(read, qint64(0));
}

void tst_fileStates::ledgerSavesReading()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    qint64 read = 0;
    const auto count = [&](qint64 bytesRead) {
        read += bytesRead;
        return true;
    };
    FileStates(FileStates::Depth::Quick, count).of(filter());
    QCOMPARE(read, qint64(0));
    const SItemState state = FileStates(FileStates::Depth::Deep, count).of(filter());
    QCOMPARE(read, state.m_nBytesOnDisk);
}

/// That of a large shop has megabytes.
void tst_fileStates::longLedgerSavesReading()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    const QByteArray genuine = CatalogueFiles::read(ledger());
    const QByteArray other = QByteArray(64, '0') + "\t1\t1\tThemes/config/Themes/none.zip\n";
    QVERIFY(QFile::remove(ledger()));
    FileStates(FileStates::Depth::Quick, [](qint64) { return false; }).of(filter()); // forgets it
    CatalogueFiles::write(ledger(), other.repeated(40000) + genuine);
    qint64 read = 0;
    QCOMPARE(quickState(read).m_eState, eFile_Current);
    QCOMPARE(read, qint64(0));
}

void tst_fileStates::unusableLedgerMeansReadingAgain_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("lost") << QByteArray();
    QTest::newRow("cut off") << QByteArray("0123");
    QTest::newRow("not a ledger") << QByteArray("\n\t\t\t\n\0\n");
    QTest::newRow("short digest") << QByteArray("abc\t1\t1\tThemes\n");
}

void tst_fileStates::unusableLedgerMeansReadingAgain()
{
    QFETCH(QByteArray, content);
    QVERIFY(StorageWorld::fetch({&filter()}));
    QVERIFY(QFile::remove(ledger()));
    if (!content.isEmpty())
        CatalogueFiles::write(ledger(), content);
    stateIsReadAndNoted();
}

void tst_fileStates::ledgerBeyondItsLimitIsNotReadAndCleanedUp()
{
    constexpr qint64 limitBytes = 256 * 1024 * 1024;
    QVERIFY(StorageWorld::fetch({&filter()}));
    const QByteArray genuine = CatalogueFiles::read(ledger());
    QVERIFY(QFile::remove(ledger()));
    FileStates(FileStates::Depth::Quick, [](qint64) { return false; }).of(filter()); // forgets it
    CatalogueFiles::write(ledger(), genuine);
    QVERIFY(QFile::resize(ledger(), limitBytes + 1)); // with a hole, which takes no room
    stateIsReadAndNoted();                            // lines that are appended count
    if (QTest::currentTestFailed())
        return;
    ResourceStorage().clean();
    QVERIFY(QFileInfo(ledger()).size() < limitBytes);
    qint64 read = 0;
    quickState(read);
    QCOMPARE(read, qint64(0));
}

void tst_fileStates::forgedLedgerIsNotBelievedByAVerification()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    const QByteArray genuine = CatalogueFiles::read(ledger());
    changeSecretly("VideoFilters/13.zip");
    CatalogueFiles::write(ledger(), genuine); // claims the published digest
    QCOMPARE(stateOf(filter(), FileStates::Depth::Deep), eFile_Damaged);
    CatalogueFiles::write(m_world.file("VideoFilters/13.zip"), "another size");
    QCOMPARE(stateOf(filter()), eFile_Damaged);
}

void tst_fileStates::unreadableDefinitionIsDamaged()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    hostSettings().releasePolicy = eRelease_Ignore;
    CatalogueFiles::write(m_world.file("Themes/1.xml"), "<broken");
    MVThemeMgr::init()->load(true);
    QCOMPARE(stateOf(StorageWorld::theme(1)), eFile_Unlisted);
    hostSettings().checkContent = true;
    QCOMPARE(stateOf(StorageWorld::theme(1)), eFile_Damaged);
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    QCOMPARE(m_world.content("Themes/1.xml"), StorageWorld::themeConfig({11, 12}));
    QCOMPARE(stateOf(StorageWorld::theme(1)), eFile_Unlisted);
}

void tst_fileStates::filesOfTheApplicationAreCurrent()
{
    for (const char* const name : {"VideoFilters/13.xml", "VideoFilters/13.zip"})
        CatalogueFiles::write(StorageWorld::installed(name), "own");
    QCOMPARE(stateOf(filter(), FileStates::Depth::Deep), eFile_Current);
}

void tst_fileStates::cancelledReadingKnowsNothing()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    const FileStates states(FileStates::Depth::Deep, [](qint64) { return false; });
    QCOMPARE(states.of(filter()).m_eState, eFile_Unlisted);
}

void tst_fileStates::worstStateCounts()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    m_world.change("VideoFilters/13.zip", "PK changed");
    m_world.publishAndCheck(11);
    CatalogueFiles::write(m_world.file("VideoFilters/13.xml"), "damaged");
    QCOMPARE(stateOf(filter()), eFile_Damaged);
    QVERIFY(QFile::remove(m_world.file("VideoFilters/13.zip")));
    QCOMPARE(stateOf(filter()), eFile_Missing);
}

void tst_fileStates::usedItemCountsToo()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    m_world.change("VideoFilters/12.zip", "PK changed");
    m_world.publishAndCheck(11);
    QCOMPARE(stateOf(StorageWorld::theme(1)), eFile_Outdated);
    QCOMPARE(stateOf(StorageWorld::filter(11)), eFile_Current);
}

void tst_fileStates::ofManyAsOneByOne()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(2), &StorageWorld::filter(11)}));
    QVERIFY(QFile::remove(m_world.file("VideoFilters/11.zip")));
    CatalogueFiles::write(m_world.file("Themes/2.xml"), "<broken");
    const QVector<SCfg_Item*> items{&StorageWorld::theme(1), &StorageWorld::theme(2),
                                    &StorageWorld::filter(11), &StorageWorld::filter(13)};
    const FileStates states(FileStates::Depth::Quick);
    const QVector<SItemState> many = states.of(items);
    QCOMPARE(many.size(), items.size());
    for (int number = 0; number < items.size(); ++number) {
        const SItemState one = states.of(*items.at(number));
        QCOMPARE(many.at(number).m_eState, one.m_eState);
        QCOMPARE(many.at(number).m_nBytesToFetch, one.m_nBytesToFetch);
        QCOMPARE(many.at(number).m_nBytesOnDisk, one.m_nBytesOnDisk);
        QCOMPARE(many.at(number).m_nNeeded, ItemFiles::countNeeded(*items.at(number)));
        QVERIFY(many.at(number).m_nNeeded <= 2);
    }
    QCOMPARE(many.at(2).m_nNeeded, 1);
    QVERIFY(states.of(QVector<SCfg_Item*>()).isEmpty());
}

void tst_fileStates::printed()
{
    QString out;
    QDebug(&out) << SItemState{eFile_Outdated, 2, 10, false, 30};
    QCOMPARE(out.trimmed(), text("SItemState(2, 2 to fetch, 10 or more bytes, 30 on disk)"));
}

MV_TEST_MAIN(tst_fileStates)

} // namespace tst_fileStates

#include "tst_fileStates.moc"
