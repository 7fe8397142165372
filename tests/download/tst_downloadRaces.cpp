// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "download/DownloadFixture.h"
#include "download/DownloadPacing.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TransfersSideBySide.h"

#include <QFile>
#include <QMutexLocker>
#include <QThread>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int rounds = 8;
constexpr int downloadsAtOnce = 4;

/// Repeats an action on a thread of its own until destroyed.
class Busy : public QThread
{
    Q_OBJECT

public:
    explicit Busy(std::function<void()> work)
        : m_work(std::move(work))
    {
        start();
    }
    ~Busy() override
    {
        m_stop = true;
        wait();
    }
    Q_DISABLE_COPY_MOVE(Busy)

protected:
    void run() override
    {
        while (!m_stop) {
            m_work();
            yieldCurrentThread();
        }
    }

private:
    std::function<void()> m_work;
    std::atomic<bool> m_stop{false};
};

int missingFiles(SCfg_Item& item)
{
    QVector<SFileInfo*> files;
    MVThemeMgr::init()->getNeedDownLoadFiles(&item, files);
    return files.size();
}

} // namespace

/// Tests other threads' use of an item while it downloads. The test synchronizes the threads no
/// more than the library does, so that ThreadSanitizer sees what a host's threads would meet.
class tst_downloadRaces : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void hovering();
    void hoveringOverADependency();
    void twoLooksAtAFreshItem();
    void pathChangesWhileOneWaits();
    void copying();
    void downloadsOfOneTheme();
    void downloadsOfThemesThatShareFiles();
    void cancelling_data();
    void cancelling();
    void accessors();
    void coreContextIsReplaced();
    void objectIsReused();

private:
    SCfg_Item theme(int number) const;
    void forgetFiles() const;

    std::unique_ptr<DownloadWorld> m_world;
};

void tst_downloadRaces::init()
{
    m_world.reset();
    m_world = std::make_unique<DownloadWorld>();
    QVERIFY(m_world->catalogueFilter(
        7, {QStringLiteral("/VideoFilters/f.zip"), QStringLiteral("/VideoFilters/f.xml")}));
    m_world->serve(QStringLiteral("/config/VideoFilters/f.zip"), QByteArray(50000, 'f'));
    m_world->serve(QStringLiteral("/config/VideoFilters/f.xml"), "<f/>");
    m_world->serve(QStringLiteral("/display/Themes/t.png"), "thumbnail");
    m_world->serve(QStringLiteral("/display/Themes/g.gif"), "animation");
    for (int number = 0; number < downloadsAtOnce; ++number) {
        m_world->serve(QStringLiteral("/config/Themes/%1.xml").arg(number),
                       DownloadWorld::themeConfig({7, 7}));
        m_world->serve(QStringLiteral("/config/Themes/%1.zip").arg(number), "resource");
    }
}

SCfg_Item tst_downloadRaces::theme(int number) const
{
    SCfg_Item item =
        DownloadWorld::item(eCfgItem_Theme, number, {QStringLiteral("/Themes/%1.zip").arg(number)});
    item.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/%1.xml").arg(number);
    item.m_info_Thumb.m_qsUrl = QStringLiteral("t.png");
    item.m_info_Gif.m_qsUrl = QStringLiteral("g.gif");
    return item;
}

/// Makes the next round fetch everything again.
void tst_downloadRaces::forgetFiles() const
{
    const QString tree = m_world->root() + QStringLiteral("/Themes/");
    const QStringList files = CatalogueFiles::filesBelow(tree);
    for (const QString& file : files) {
        if (!file.startsWith(QLatin1String("ResourceConfig/")))
            QVERIFY(QFile::remove(tree + file));
    }
}

/// The mouse over a cell asks what the item lacks while its config arrives and is parsed.
void tst_downloadRaces::hovering()
{
    for (int round = 0; round < rounds; ++round) {
        forgetFiles();
        SCfg_Item item = theme(0);
        MVThemeDownLoader downloader(nullptr);
        const Busy mouse([&item] { missingFiles(item); });
        QVERIFY(DownloadWorld::run(downloader, item));
        QCOMPARE(missingFiles(item), 0);
    }
}

void tst_downloadRaces::hoveringOverADependency()
{
    SCfg_Item* const filter =
        MVThemeMgr::init()->findItemByIDFromConfig(eCfgItem_Filter, CatalogueFiles::guid(7));
    for (int round = 0; round < rounds; ++round) {
        forgetFiles();
        SCfg_Item item = theme(0);
        MVThemeDownLoader downloader(nullptr);
        const Busy mouse([filter] { missingFiles(*filter); });
        QVERIFY(DownloadWorld::run(downloader, item));
    }
}

void tst_downloadRaces::twoLooksAtAFreshItem()
{
    for (int round = 0; round < rounds; ++round) {
        SCfg_Item item = theme(0);
        const std::unique_ptr<QThread> one(QThread::create([&item] { missingFiles(item); }));
        const std::unique_ptr<QThread> two(QThread::create([&item] { missingFiles(item); }));
        one->start();
        two->start();
        QVERIFY(one->wait());
        QVERIFY(two->wait());
        QVERIFY(!item.m_info_CfgXML.m_qsFile.isEmpty());
    }
}

/// The file comes and goes in the installed tree while a download waits for another one.
void tst_downloadRaces::pathChangesWhileOneWaits()
{
    const QString name = QStringLiteral("/VideoFilters/other.zip");
    const QString installed = MVThemeMgr::init()->Path_resource_Dir(MVThemeMgr::eLoadDir_Local,
                                                                    MVThemeMgr::eDirTag_Config)
        + name;
    SCfg_Item item = DownloadWorld::item(eCfgItem_Filter, 1, {name});
    SFileInfo& info = item.m_vecResource.first();
    info.m_bDownloaded = true;
    MVThemeDownLoader downloader(nullptr);
    downloader.download(&item);
    std::atomic<int> changes{0};
    const Busy installer([&] {
        CatalogueFiles::write(installed, "installed");
        missingFiles(item);
        QFile::remove(installed);
        missingFiles(item);
        changes.fetch_add(1, std::memory_order_relaxed);
    });
    QTRY_VERIFY(changes.load(std::memory_order_relaxed) >= 50);
    {
        const QMutexLocker lock(info.m_pMutex.get());
        info.m_bDownloaded = false;
    }
    QVERIFY(DownloadWorld::ends(downloader));
}

void tst_downloadRaces::copying()
{
    for (int round = 0; round < rounds; ++round) {
        forgetFiles();
        SCfg_Item item = theme(0);
        MVThemeDownLoader downloader(nullptr);
        const Busy copier([&item] {
            SCfg_Item copy(item);
            missingFiles(copy);
        });
        QVERIFY(DownloadWorld::run(downloader, item));
        QVERIFY(item.m_pThemes_a);
        QCOMPARE(SCfg_Item(item).m_pThemes_a, item.m_pThemes_a);
    }
}

void tst_downloadRaces::downloadsOfOneTheme()
{
    for (int round = 0; round < rounds; ++round) {
        forgetFiles();
        SCfg_Item item = theme(0);
        std::vector<std::unique_ptr<MVThemeDownLoader>> downloaders;
        downloaders.reserve(downloadsAtOnce);
        for (int i = 0; i < downloadsAtOnce; ++i)
            downloaders.push_back(std::make_unique<MVThemeDownLoader>(nullptr));
        for (const auto& downloader : downloaders)
            downloader->download(&item);
        for (const auto& downloader : downloaders)
            QVERIFY(DownloadWorld::ends(*downloader));
        QCOMPARE(missingFiles(item), 0);
        QCOMPARE(m_world->requests(QStringLiteral("/config/Themes/0.xml")), round + 1);
        QCOMPARE(m_world->requests(QStringLiteral("/config/Themes/0.zip")), round + 1);
        QCOMPARE(m_world->requests(QStringLiteral("/config/VideoFilters/f.zip")), round + 1);
    }
}

void tst_downloadRaces::downloadsOfThemesThatShareFiles()
{
    for (int round = 0; round < rounds; ++round) {
        forgetFiles();
        std::vector<SCfg_Item> items;
        std::vector<std::unique_ptr<MVThemeDownLoader>> downloaders;
        items.reserve(downloadsAtOnce);
        downloaders.reserve(downloadsAtOnce);
        for (int i = 0; i < downloadsAtOnce; ++i) {
            items.push_back(theme(i));
            downloaders.push_back(std::make_unique<MVThemeDownLoader>(nullptr));
        }
        for (std::size_t i = 0; i < items.size(); ++i)
            downloaders.at(i)->download(&items.at(i));
        for (const auto& downloader : downloaders)
            QVERIFY(DownloadWorld::ends(*downloader));
        for (SCfg_Item& item : items)
            QCOMPARE(missingFiles(item), 0);
        QCOMPARE(m_world->requests(QStringLiteral("/config/VideoFilters/f.zip")), round + 1);
        QCOMPARE(m_world->requests(QStringLiteral("/config/VideoFilters/f.xml")), round + 1);
    }
}

void tst_downloadRaces::cancelling_data()
{
    QTest::addColumn<int>("spins");
    for (const int spins : {0, 1000, 100000, 1000000, 10000000})
        QTest::addRow("after %d spins", spins) << spins;
}

/// Cancels at arbitrary times; tst_MVThemeDownLoader_cancel covers each cancellation point.
void tst_downloadRaces::cancelling()
{
    QFETCH(int, spins);
    for (int round = 0; round < rounds; ++round) {
        forgetFiles();
        SCfg_Item item = theme(0);
        MVThemeDownLoader downloader(nullptr);
        downloader.download(&item);
        for (volatile int i = 0; i < spins; i = i + 1) { }
        downloader.cancel();
        QVERIFY(DownloadWorld::ends(downloader));
        QVERIFY(!item.m_info_CfgXML.m_bDownloaded);
        for (const SFileInfo& info : qAsConst(item.m_vecResource))
            QVERIFY(!info.m_bDownloaded);
    }
}

void tst_downloadRaces::accessors()
{
    for (int round = 0; round < rounds; ++round) {
        forgetFiles();
        SCfg_Item item = theme(0);
        MVThemeDownLoader downloader(nullptr);
        downloader.setUserData(this);
        downloader.download(&item);
        while (downloader.isRunning()) {
            const bool begun = !downloader.downloadedUrl().isEmpty();
            QVERIFY(!begun || !downloader.downloadedFile().isEmpty());
            QCOMPARE(downloader.userData(), static_cast<void*>(this));
        }
        // Side by side, a file that is needed twice may begin last.
        if (!TransfersSideBySide::isOn())
            QVERIFY(downloader.downloadedUrl().endsWith(QStringLiteral("f.xml")));
    }
}

void tst_downloadRaces::coreContextIsReplaced()
{
    for (int round = 0; round < rounds; ++round) {
        forgetFiles();
        SCfg_Item item = theme(0);
        MVThemeDownLoader downloader(nullptr);
        const Busy host([] { MVThemeDownLoader::setCoreContextPtr(nullptr); });
        QVERIFY(DownloadWorld::run(downloader, item));
    }
}

/// The next download begins while the previous one's thread ends.
void tst_downloadRaces::objectIsReused()
{
    std::vector<SCfg_Item> items;
    items.reserve(downloadsAtOnce);
    for (int i = 0; i < downloadsAtOnce; ++i)
        items.push_back(theme(i));
    MVThemeDownLoader downloader(nullptr);
    int ends = 0;
    connect(&downloader, &MVThemeDownLoader::sigDownloadFinish, this,
            [&](EMVThemeDownLoadError result) {
                QCOMPARE(result, eDownLoadError_None);
                if (++ends < downloadsAtOnce)
                    downloader.download(&items.at(static_cast<std::size_t>(ends)));
            });
    downloader.download(&items.front());
    QTRY_COMPARE_WITH_TIMEOUT(ends, downloadsAtOnce, 30000);
}

MV_TEST_MAIN(tst_downloadRaces)

#include "tst_downloadRaces.moc"
