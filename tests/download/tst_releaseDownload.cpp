// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "download/FileStates.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

/// Tests item downloads and preview runs by the accepted release.
class tst_releaseDownload : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void itemFilesComeByDigest();
    void previewsComeByDigest();
    void otherContentIsNotStored_data();
    void otherContentIsNotStored();
    void otherPreviewIsNotStored();
    void unlistedFileComesByName();
    void requiredReleaseRefusesUnlistedFiles_data();
    void requiredReleaseRefusesUnlistedFiles();
    void requiredReleaseRefusesUnlistedPreviews();
    void presentFileIsNotFetchedAgain();
    void nothingIsAskedForByDefault();

private:
    static SItemDownloadResult download(SCfg_Item& item);
    static SPreviewRunResult fetchPreviews();

    StorageWorld m_world;
};

namespace {

const QByteArray picture = QByteArray::fromHex("89504e470d0a1a0a") + "picture";

} // namespace

void tst_releaseDownload::init()
{
    m_world.freshStorage();
    hostSettings().downloadStepMs = 0;
}

SItemDownloadResult tst_releaseDownload::download(SCfg_Item& item)
{
    MVThemeDownLoader downloader(nullptr);
    if (!DownloadWorld::run(downloader, item))
        qFatal("the download does not end");
    return downloader.outcome();
}

SPreviewRunResult tst_releaseDownload::fetchPreviews()
{
    SPreviewRunResult result;
    CheckWorker_ThumbAndGif worker;
    worker.setResultCallback([&](const SPreviewRunResult& ended) { result = ended; });
    worker.onStartDownload_ThumbAndGif();
    return result;
}

void tst_releaseDownload::itemFilesComeByDigest()
{
    QCOMPARE(download(StorageWorld::theme(1)).m_eEnd, eItemDownload_Complete);
    const QByteArrayList targets = m_world.targets();
    for (const QByteArray& target : targets)
        QVERIFY2(!target.startsWith("/config/"), target.constData());
    QVERIFY(m_world.targets().contains(ReleaseWorld::contentTarget(StorageWorld::archive(12))));
    qint64 read = 0;
    const FileStates states(FileStates::Depth::Quick, [&](qint64 bytes) {
        read += bytes;
        return true;
    });
    QCOMPARE(states.of(StorageWorld::theme(1)).m_eState, eFile_Current);
    QCOMPARE(read, qint64(0)); // the ledger knows every file
}

void tst_releaseDownload::previewsComeByDigest()
{
    m_world.put(text("display/Themes/t.jpg"), picture);
    m_world.publishAndCheck(11);
    const SPreviewRunResult result = fetchPreviews();
    QCOMPARE(result.m_nFetched, 1);
    QCOMPARE(CatalogueFiles::read(m_world.preview("Themes", "t.jpg")), picture);
    QVERIFY(m_world.targets().contains(ReleaseWorld::contentTarget(picture)));
    QVERIFY(!m_world.targets().contains("/display/Themes/t.jpg"));
    qint64 read = 0;
    const FileStates states(FileStates::Depth::Quick, [&](qint64 bytes) {
        read += bytes;
        return true;
    });
    states.of(StorageWorld::theme(1));
    QCOMPARE(read, qint64(0)); // the ledger knows the picture
}

void tst_releaseDownload::otherContentIsNotStored_data()
{
    QTest::addColumn<QByteArray>("published");
    QTest::addColumn<QString>("file");
    QTest::newRow("definition") << StorageWorld::themeConfig({11, 12}) << text("Themes/1.xml");
    QTest::newRow("archive") << StorageWorld::archive(12) << text("VideoFilters/12.zip");
}

void tst_releaseDownload::otherContentIsNotStored()
{
    QFETCH(QByteArray, published);
    QFETCH(QString, file);
    m_world.serve(ReleaseWorld::contentTarget(published), "<Resource>other</Resource>");
    const SItemDownloadResult result = download(StorageWorld::theme(1));
    QCOMPARE(result.m_eEnd, eItemDownload_Failed);
    QCOMPARE(result.m_failure.m_eCause, eFailure_Damaged);
    QVERIFY(!m_world.files().contains(file));
    QCOMPARE(m_world.targets().count(ReleaseWorld::contentTarget(published)), 2); // past caches

    m_world.serve(ReleaseWorld::contentTarget(published), published);
    QCOMPARE(download(StorageWorld::theme(1)).m_eEnd, eItemDownload_Complete);
}

void tst_releaseDownload::otherPreviewIsNotStored()
{
    m_world.put(text("display/Themes/t.jpg"), picture);
    m_world.publishAndCheck(11);
    m_world.serve(ReleaseWorld::contentTarget(picture), picture + "changed");
    QCOMPARE(fetchPreviews().m_nFetched, 0);
    QVERIFY(!QFile::exists(m_world.preview("Themes", "t.jpg")));
}

void tst_releaseDownload::unlistedFileComesByName()
{
    m_world.unlist(text("config/Themes/1.zip"));
    m_world.publishAndCheck(11);
    QCOMPARE(download(StorageWorld::theme(1)).m_eEnd, eItemDownload_Complete);
    QVERIFY(m_world.targets().contains("/config/Themes/1.zip"));
}

void tst_releaseDownload::requiredReleaseRefusesUnlistedFiles_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("definition") << text("Themes/1.xml");
    QTest::newRow("archive") << text("Themes/1.zip");
}

void tst_releaseDownload::requiredReleaseRefusesUnlistedFiles()
{
    QFETCH(QString, file);
    m_world.unlist(text("config/") + file);
    m_world.publishAndCheck(11);
    hostSettings().releasePolicy = eRelease_Require;
    const SItemDownloadResult result = download(StorageWorld::theme(1));
    QCOMPARE(result.m_eEnd, eItemDownload_Failed);
    QVERIFY2(result.m_failure.m_qsDetails.contains(text("no release that is accepted lists it")),
             qPrintable(result.m_failure.m_qsDetails));
    QVERIFY(!m_world.targets().contains("/config/" + file.toUtf8()));
    QVERIFY(!m_world.files().contains(file));
}

void tst_releaseDownload::requiredReleaseRefusesUnlistedPreviews()
{
    m_world.serve("/display/Themes/t.jpg", picture);
    hostSettings().releasePolicy = eRelease_Require;
    const SPreviewRunResult result = fetchPreviews();
    QCOMPARE(result.m_nFetched, 0);
    QVERIFY(result.m_nFailed > 0);
    QVERIFY(!m_world.targets().contains("/display/Themes/t.jpg"));
}

/// An item download completes an item; it does not update it.
void tst_releaseDownload::presentFileIsNotFetchedAgain()
{
    QCOMPARE(download(StorageWorld::theme(1)).m_eEnd, eItemDownload_Complete);
    m_world.change("Themes/1.zip", "PK changed");
    m_world.publishAndCheck(11);
    QCOMPARE(download(StorageWorld::theme(1)).m_eEnd, eItemDownload_Complete);
    QCOMPARE(m_world.content("Themes/1.zip"), StorageWorld::archive(1));
}

void tst_releaseDownload::nothingIsAskedForByDefault()
{
    hostSettings().releasePolicy = HostSettings().releasePolicy;
    const int before = m_world.targets().size();
    QCOMPARE(download(StorageWorld::theme(1)).m_eEnd, eItemDownload_Complete);
    const QByteArrayList targets = m_world.targets().mid(before);
    for (const QByteArray& target : targets)
        QVERIFY2(!target.startsWith("/content/"), target.constData());
}

MV_TEST_MAIN(tst_releaseDownload)
#include "tst_releaseDownload.moc"
