// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

using Files = CatalogueFiles;

/// Tests a theme whose config file on disk is invalid: a host that checks content fetches it again,
/// any other keeps the file.
class tst_damagedThemeConfig : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { hostSettings() = m_settings; }
    void isFetchedAgain_data() { addDamages(); }
    void isFetchedAgain();
    void isKeptWhereContentIsNotChecked_data() { addDamages(); }
    void isKeptWhereContentIsNotChecked();
    void aConfigThatIsWellIsNotFetched();
    void damagedDownloadIsNotAConfigEither();
    void theInstallationIsLeftAlone();

private:
    static void addDamages();
    SCfg_Item theme(DownloadWorld& world, const QByteArray& config) const;
    static QString configFile(const DownloadWorld& world)
    {
        return world.folder(eCfgItem_Theme) + QStringLiteral("/t.xml");
    }
    static int download(SCfg_Item& theme);

    const HostSettings m_settings = hostSettings();
};

namespace {

const QString configTarget = QStringLiteral("/config/Themes/t.xml");
const QByteArray archive = "PK\x03\x04 content";

} // namespace

void tst_damagedThemeConfig::addDamages()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray whole = DownloadWorld::themeConfig({1});
    QTest::newRow("web page") << QByteArray("<!DOCTYPE html><html><body>Log in<br></body></html>");
    QTest::newRow("cut off") << whole.left(whole.size() / 2);
    QTest::newRow("without its last byte") << whole.trimmed().chopped(1);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("zeros") << QByteArray(whole.size(), '\0');
}

/// Returns a theme that lacks one resource; the server has it and a config.
SCfg_Item tst_damagedThemeConfig::theme(DownloadWorld& world, const QByteArray& config) const
{
    hostSettings().productParams.insert(QStringLiteral("hasMV"), QStringLiteral("1"));
    Files::write(configFile(world), config);
    world.serve(QStringLiteral("/config/Themes/r.zip"), archive);
    return world.themeWithConfig();
}

/// Downloads the theme and returns the result code.
int tst_damagedThemeConfig::download(SCfg_Item& theme)
{
    DownloadTrace trace;
    MVThemeDownLoader downloader(nullptr);
    trace.watch(downloader);
    return DownloadWorld::run(downloader, theme) ? trace.results().value(0, -1) : -1;
}

void tst_damagedThemeConfig::isFetchedAgain()
{
    QFETCH(QByteArray, content);
    DownloadWorld world;
    SCfg_Item item = theme(world, content);
    hostSettings().checkContent = true;
    QCOMPARE(download(item), int(eDownLoadError_None));
    QCOMPARE(Files::read(configFile(world)), DownloadWorld::themeConfig({}));
    QCOMPARE(world.requests(configTarget), 1);
    QVERIFY(item.parsedTheme());
    QCOMPARE(Files::filesBelow(world.folder(eCfgItem_Theme)),
             (QStringList{QStringLiteral("r.zip"), QStringLiteral("t.xml")}));
}

void tst_damagedThemeConfig::isKeptWhereContentIsNotChecked()
{
    QFETCH(QByteArray, content);
    DownloadWorld world;
    SCfg_Item item = theme(world, content);
    QVERIFY(!hostSettings().checkContent);
    QCOMPARE(download(item), int(eDownLoadError_None));
    QCOMPARE(Files::read(configFile(world)), content);
    QCOMPARE(world.requests(configTarget), 0);
    QCOMPARE(world.server().requestCount(), 1); // the resource
}

void tst_damagedThemeConfig::aConfigThatIsWellIsNotFetched()
{
    DownloadWorld world;
    const QByteArray config = DownloadWorld::themeConfig({1});
    SCfg_Item item = theme(world, config);
    hostSettings().checkContent = true;
    QCOMPARE(download(item), int(eDownLoadError_None));
    QCOMPARE(Files::read(configFile(world)), config);
    QCOMPARE(world.requests(configTarget), 0);
}

/// Nothing else is fetched: without a valid config the theme's needs are unknown.
void tst_damagedThemeConfig::damagedDownloadIsNotAConfigEither()
{
    DownloadWorld world;
    SCfg_Item item = theme(world, "<cut");
    world.serve(configTarget, "<cut again");
    hostSettings().checkContent = true;
    QCOMPARE(download(item), int(eDownLoadError_Unknown));
    QVERIFY(!item.parsedTheme());
    QCOMPARE(world.server().requestCount(), 1);
}

/// The theme's needs are unknown, so it does not count as complete.
void tst_damagedThemeConfig::theInstallationIsLeftAlone()
{
    DownloadWorld world;
    SCfg_Item item = theme(world, {});
    QVERIFY(QFile::remove(configFile(world)));
    const QString installed =
        hostSettings().resourcesPath + QStringLiteral("/Resource/Themes/t.xml");
    Files::write(installed, "<cut");
    hostSettings().checkContent = true;
    QCOMPARE(download(item), int(eDownLoadError_Element));
    QCOMPARE(Files::read(installed), QByteArray("<cut"));
    QCOMPARE(world.requests(configTarget), 0);
    QVERIFY(!QFile::exists(configFile(world)));
    QVERIFY(QFile::remove(installed));
}

MV_TEST_MAIN(tst_damagedThemeConfig)

#include "tst_damagedThemeConfig.moc"
