// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueUse.h"
#include "catalogue/MVThemeMgr.h"
#include "download/DownloadFixture.h"
#include "download/HeldAnswer.h"
#include "records/FileView.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"

#include <memory>

/// Tests that the catalogue keeps its items while downloads work on them.
class tst_catalogueInUse : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void refusesToMoveItems_data();
    void refusesToMoveItems();
    void firstLoadIsRefusedAsWell();
    void obeysOnceTheEndIsTold();
    void everythingIsGivenBackBeforeTheEndIsTold();
    void destroyedDownloaderLeavesNoUse();

private:
    static MVThemeMgr& manager() { return *MVThemeMgr::init(); }
    SCfg_Item* heldItem();

    std::unique_ptr<HeldAnswer> m_held; // used by the server's threads, so it outlives the world
    std::unique_ptr<DownloadWorld> m_world;
};

void tst_catalogueInUse::init()
{
    manager().clear();
    m_world = std::make_unique<DownloadWorld>();
    m_held = std::make_unique<HeldAnswer>();
    QCOMPARE(CatalogueUse::count(), 0);
}

void tst_catalogueInUse::cleanup()
{
    m_held->release(); // the server waits for its threads
    m_world.reset();
    m_held.reset();
}

/// Returns an item of the catalogue whose file the server holds back.
SCfg_Item* tst_catalogueInUse::heldItem()
{
    const QString name = QStringLiteral("/VideoFilters/held.zip");
    m_world->route(QStringLiteral("/config") + name,
                   m_held->handler(HttpAnswer(200).body("archive")));
    return m_world->catalogueFilter(1, {name});
}

void tst_catalogueInUse::refusesToMoveItems_data()
{
    QTest::addColumn<bool>("clears");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("load") << false << QByteArray("load does nothing: the catalogue is in use (1)");
    QTest::newRow("clear") << true << QByteArray("clear does nothing: the catalogue is in use (1)");
}

void tst_catalogueInUse::refusesToMoveItems()
{
    QFETCH(bool, clears);
    QFETCH(QByteArray, line);
    SCfg_Item* const item = heldItem();
    QVERIFY(item);
    const QString guid = item->m_qsGUID;
    MVThemeDownLoader downloader(nullptr);
    downloader.download(item);
    QVERIFY(m_held->hasArrived());
    QCOMPARE(CatalogueUse::count(), 1);

    const LogCapture log;
    QVERIFY(clears ? !manager().tryClear() : !manager().tryReload());
    if (clears)
        manager().clear();
    else
        manager().load(true);
    QCOMPARE(log.count(line), 2);
    QVERIFY(log.contains("MVThemeMgr", 3, line));
    QCOMPARE(manager().findItemByIDFromConfig(eCfgItem_Filter, guid), item);

    m_held->release();
    QVERIFY(DownloadWorld::ends(downloader));
    QCOMPARE(downloader.outcome().m_eEnd, eItemDownload_Complete);
}

void tst_catalogueInUse::firstLoadIsRefusedAsWell()
{
    const CatalogueUse use;
    const LogCapture log;
    manager().load(false);
    QCOMPARE(log.texts(), QByteArrayList{"load does nothing: the catalogue is in use (1)"});
}

/// A host loads the catalogue in the slot connected to the end signal.
void tst_catalogueInUse::obeysOnceTheEndIsTold()
{
    SCfg_Item* const item = heldItem();
    MVThemeDownLoader downloader(nullptr);
    bool isLoaded = false;
    QEventLoop loop;
    connect(&downloader, &MVThemeDownLoader::sigDownloadFinish, &loop, [&] {
        isLoaded = manager().tryReload();
        loop.quit();
    });
    downloader.download(item);
    QVERIFY(m_held->hasArrived());
    m_held->release();
    loop.exec();
    QVERIFY(isLoaded);
    QCOMPARE(CatalogueUse::count(), 0);
    QVERIFY(manager().tryClear());
}

/// The receiver of the end signal may load the catalogue while the thread does its last steps.
void tst_catalogueInUse::everythingIsGivenBackBeforeTheEndIsTold()
{
    SCfg_Item theme = m_world->themeWithConfig();
    m_world->route(QStringLiteral("/config/Themes/t.xml"), [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("not here"));
    });
    MVThemeDownLoader downloader(nullptr);
    bool isTaken = true;
    int uses = -1;
    connect(
        &downloader, &MVThemeDownLoader::sigDownloadFinish, this,
        [&] {
            isTaken = FileView(theme.m_info_CfgXML).isTaken();
            uses = CatalogueUse::count();
        },
        Qt::DirectConnection);
    QVERIFY(DownloadWorld::run(downloader, theme));
    QVERIFY(!isTaken);
    QCOMPARE(uses, 0);
}

void tst_catalogueInUse::destroyedDownloaderLeavesNoUse()
{
    {
        MVThemeDownLoader downloader(nullptr);
        downloader.download(heldItem());
        QVERIFY(m_held->hasArrived());
    }
    QCOMPARE(CatalogueUse::count(), 0);
    QVERIFY(manager().tryReload());
}

MV_TEST_MAIN(tst_catalogueInUse)
#include "tst_catalogueInUse.moc"
