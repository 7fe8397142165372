// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadFixture.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/TransfersSideBySide.h"

/// Tests what a downloader reports about its first failure.
class tst_MVThemeDownLoader_errorText : public QObject
{
    Q_OBJECT

private slots:
    void emptyBeforeAndAfterSuccess();
    void themeConfigFails();
    void firstOfSeveralFilesThatFail();
    void fileWithoutAPlace();
    void forgottenByTheNextDownload();
    void cancelled();
    void cancelledAfterAFailure();
};

namespace {

const QString missing = QStringLiteral("/VideoFilters/missing.zip");
const QString alsoMissing = QStringLiteral("/VideoFilters/also.zip");

} // namespace

void tst_MVThemeDownLoader_errorText::emptyBeforeAndAfterSuccess()
{
    DownloadWorld world;
    SCfg_Item item = world.filterWithTwoFiles();
    MVThemeDownLoader downloader(nullptr);
    QCOMPARE(downloader.errorText(), QString());
    QVERIFY(DownloadWorld::run(downloader, item));
    QCOMPARE(downloader.errorText(), QString());
}

void tst_MVThemeDownLoader_errorText::themeConfigFails()
{
    DownloadWorld world;
    SCfg_Item item = world.themeWithConfig();
    world.route(QString::fromUtf8(QByteArray("/config") + item.m_info_CfgXML.m_qsUrl.toUtf8()),
                [](HttpExchange& exchange) { exchange.answer(HttpAnswer(500).body("no")); });
    MVThemeDownLoader downloader(nullptr);
    QVERIFY(DownloadWorld::run(downloader, item));
    const QString text = downloader.errorText();
    QVERIFY2(text.contains(item.m_info_CfgXML.m_qsUrl), qPrintable(text));
    QVERIFY2(text.contains(QLatin1String("500")), qPrintable(text));
}

void tst_MVThemeDownLoader_errorText::firstOfSeveralFilesThatFail()
{
    DownloadWorld world;
    SCfg_Item item = DownloadWorld::item(eCfgItem_Filter, 1, {missing, alsoMissing});
    MVThemeDownLoader downloader(nullptr);
    QVERIFY(DownloadWorld::run(downloader, item));
    const QString text = downloader.errorText();
    // Side by side, either may be the first to fail.
    QVERIFY2(text.contains(missing) != text.contains(alsoMissing), qPrintable(text));
    QVERIFY2(text.contains(missing) || TransfersSideBySide::isOn(), qPrintable(text));
    QVERIFY2(text.contains(QLatin1String("404")), qPrintable(text));
    QVERIFY2(text.contains(world.root()), qPrintable(text));
}

void tst_MVThemeDownLoader_errorText::fileWithoutAPlace()
{
    DownloadWorld world;
    SCfg_Item item =
        DownloadWorld::item(eCfgItem_Filter, 1, {QStringLiteral("/../../../../../outside.zip")});
    MVThemeDownLoader downloader(nullptr);
    QVERIFY(DownloadWorld::run(downloader, item));
    const QString text = downloader.errorText();
    QVERIFY2(text.contains(QLatin1String("no place below the download root")), qPrintable(text));
    QVERIFY2(text.contains(QLatin1String("outside.zip")), qPrintable(text));
}

void tst_MVThemeDownLoader_errorText::forgottenByTheNextDownload()
{
    DownloadWorld world;
    SCfg_Item broken = DownloadWorld::item(eCfgItem_Filter, 1, {missing});
    SCfg_Item whole = world.filterWithTwoFiles();
    MVThemeDownLoader downloader(nullptr);
    QVERIFY(DownloadWorld::run(downloader, broken));
    QVERIFY(!downloader.errorText().isEmpty());
    QVERIFY(DownloadWorld::run(downloader, whole));
    QCOMPARE(downloader.errorText(), QString());
}

void tst_MVThemeDownLoader_errorText::cancelled()
{
    DownloadWorld world;
    SCfg_Item item = DownloadWorld::item(eCfgItem_Filter, 1, {missing});
    world.route(QStringLiteral("/config") + missing,
                [](HttpExchange& exchange) { exchange.stall(); });
    MVThemeDownLoader downloader(nullptr);
    downloader.download(&item);
    QTRY_COMPARE(world.requests(QStringLiteral("/config") + missing), 1);
    downloader.cancel();
    QVERIFY(DownloadWorld::ends(downloader));
    QCOMPARE(downloader.errorText(), QString());
}

void tst_MVThemeDownLoader_errorText::cancelledAfterAFailure()
{
    DownloadWorld world;
    SCfg_Item item = DownloadWorld::item(eCfgItem_Filter, 1, {missing, alsoMissing});
    world.route(QStringLiteral("/config") + alsoMissing,
                [](HttpExchange& exchange) { exchange.stall(); });
    MVThemeDownLoader downloader(nullptr);
    downloader.download(&item);
    QTRY_COMPARE(world.requests(QStringLiteral("/config") + alsoMissing), 1);
    QTRY_VERIFY(downloader.errorText().contains(missing)); // side by side, the other may come first
    downloader.cancel();
    QVERIFY(DownloadWorld::ends(downloader));
    QCOMPARE(downloader.errorText(), QString());
}

MV_TEST_MAIN(tst_MVThemeDownLoader_errorText)
#include "tst_MVThemeDownLoader_errorText.moc"
