// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "download/CheckFixture.h"
#include "download/CheckLines.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace CheckLines;

/// Tests the locations of catalogue files on the server and on disk. This program must be the first
/// to ask for the server's root here, so the test has a program of its own.
class tst_CheckWorker_CfgAndDisplayXML_places : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rootIsAskedForUntilThereIsOne();
    void names_data();
    void names();
    void addressesOfTheStandardEdition_data();
    void addressesOfTheStandardEdition();
    void addressesOfPartnerEditions_data();
    void addressesOfPartnerEditions();
    void temporaryFolders();
    void temporaryFiles();
    void downloadedFiles();
    void fileInsteadOfAFolder();
    void nothingOutsideTheDownloadRoot();

private:
    QString m_base;
    int m_run = 0;
};

namespace {

const QString server = QStringLiteral("http://server/root");

EType_XML type(int number)
{
    return static_cast<EType_XML>(number);
}

} // namespace

void tst_CheckWorker_CfgAndDisplayXML_places::init()
{
    m_base = TestHome::path() + QStringLiteral("/run%1").arg(++m_run);
    hostSettings() = HostSettings();
    hostSettings().appDataPath = m_base + QStringLiteral("/appdata");
    MVThemeMgr::init()->setResourceSaveRootPath(m_base + QStringLiteral("/root"));
}

void tst_CheckWorker_CfgAndDisplayXML_places::rootIsAskedForUntilThereIsOne()
{
    const QString key = QStringLiteral("url_themeRootDir");
    QVERIFY(CheckWorker_CfgAndDisplayXML::getSerThemeRootDir().isEmpty());
    CheckWorker_CfgAndDisplayXML worker;
    QCOMPARE(worker.getSerThemeXMLPath(EType_XML_resource_config_xml),
             QStringLiteral("/ResourceConfig/resource_config.xml"));
    hostSettings().productParams.insert(key, server);
    QCOMPARE(CheckWorker_CfgAndDisplayXML::getSerThemeRootDir(), server);
    hostSettings().productParams.insert(key, QStringLiteral("http://other"));
    QCOMPARE(CheckWorker_CfgAndDisplayXML::getSerThemeRootDir(), server);
}

void tst_CheckWorker_CfgAndDisplayXML_places::names_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    const char* const all[] = {"resource_version.xml", "resource_display.xml",
                               "resource_config.xml",  "VideoFilters.xml",
                               "Transitions.xml",      "Motions.xml"};
    for (int i = 0; i < 6; ++i)
        QTest::newRow(all[i]) << i << QString::fromLatin1(all[i]);
    QTest::newRow("above") << 6 << QString();
    QTest::newRow("below") << -1 << QString();
}

void tst_CheckWorker_CfgAndDisplayXML_places::names()
{
    QFETCH(int, number);
    QTEST(CheckWorker_CfgAndDisplayXML::EType_XML2Str(type(number)), "name");
}

void tst_CheckWorker_CfgAndDisplayXML_places::addressesOfTheStandardEdition_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("address");
    const char* const all[] = {
        "/ResourceConfig/resource_version_v3.xml", "/ResourceConfig/resource_display.xml",
        "/ResourceConfig/resource_config.xml",     "/config/VideoFilters/VideoFilters.xml",
        "/config/Transitions/Transitions.xml",     "/config/Motions/Motions.xml"};
    for (int i = 0; i < 6; ++i)
        QTest::newRow(all[i]) << i << QString::fromLatin1(all[i]);
    QTest::newRow("unknown") << 6 << QString();
}

void tst_CheckWorker_CfgAndDisplayXML_places::addressesOfTheStandardEdition()
{
    QFETCH(int, number);
    QFETCH(QString, address);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    QCOMPARE(worker.getSerThemeXMLPath(type(number)), server + address);
    QCOMPARE(trace.entries(),
             number == 0 ? QStringList(versionUrl(server + address)) : QStringList());
}

void tst_CheckWorker_CfgAndDisplayXML_places::addressesOfPartnerEditions_data()
{
    QTest::addColumn<QVector<int>>("editions");
    QTest::addColumn<int>("wins");

    const int order[] = {4, 1, 3, 5, 2};
    const auto place = [&](int edition) { return std::find(order, order + 5, edition) - order; };
    for (int a = 1; a <= 5; ++a) {
        QTest::addRow("%d", a) << QVector<int>{a} << a;
        for (int b = a + 1; b <= 5; ++b)
            QTest::addRow("%d and %d", a, b) << QVector<int>{a, b} << (place(a) < place(b) ? a : b);
    }
    QTest::newRow("all") << QVector<int>{1, 2, 3, 4, 5} << 4;
    QTest::newRow("all but 4") << QVector<int>{1, 2, 3, 5} << 1;
    QTest::newRow("2, 3 and 5") << QVector<int>{2, 3, 5} << 3;
}

void tst_CheckWorker_CfgAndDisplayXML_places::addressesOfPartnerEditions()
{
    QFETCH(QVector<int>, editions);
    QFETCH(int, wins);
    const bool german = wins == 4 || wins == 3;
    const QString folder = server + QStringLiteral("/ResourceConfig/");
    const QString version = folder
        + (wins == 2    ? QStringLiteral("resource_version_v2.xml")
               : german ? QStringLiteral("resource_version_aff_de_v2.xml")
                        : QStringLiteral("resource_version_aff_v2.xml"));
    const QString display = folder
        + (wins == 2    ? QStringLiteral("resource_display.xml")
               : german ? QStringLiteral("resource_display_aff_de.xml")
                        : QStringLiteral("resource_display_aff.xml"));
    for (const int edition : std::as_const(editions))
        hostSettings().partnerEditions.insert(edition);
    DownloadTrace trace;
    CheckWorker_CfgAndDisplayXML worker;
    QCOMPARE(worker.getSerThemeXMLPath(EType_XML_resource_version_xml), version);
    QCOMPARE(worker.getSerThemeXMLPath(EType_XML_resource_display_xml), display);
    QCOMPARE(worker.getSerThemeXMLPath(EType_XML_resource_config_xml),
             folder + QStringLiteral("resource_config.xml"));
    QCOMPARE(worker.getSerThemeXMLPath(EType_XML_Motions_xml),
             server + QStringLiteral("/config/Motions/Motions.xml"));
    QCOMPARE(trace.entries(),
             (QStringList{line("CheckWorker_CfgAndDisplayXML", 1,
                               QStringLiteral(" is Cus, url_path = [%1]").arg(version)),
                          line("CheckWorker_CfgAndDisplayXML", 1,
                               QStringLiteral("is Cus, url_path = [%1]").arg(display))}));
}

void tst_CheckWorker_CfgAndDisplayXML_places::temporaryFolders()
{
    CheckWorker_CfgAndDisplayXML worker;
    const QString temp = m_base + QStringLiteral("/appdata/MVTheme/DownloadTemp/");
    QCOMPARE(worker.getDownLoadTemp(), temp);
    QVERIFY(!QFileInfo::exists(temp));
    QCOMPARE(worker.getSerDownLoadTemp_ThemeImgGif(), temp + QStringLiteral("ThemeImgGif/"));
    QVERIFY(QFileInfo(temp + QStringLiteral("ThemeImgGif")).isDir());
}

void tst_CheckWorker_CfgAndDisplayXML_places::temporaryFiles()
{
    CheckWorker_CfgAndDisplayXML worker;
    const QString temp = m_base + QStringLiteral("/appdata/MVTheme/DownloadTemp/");
    QCOMPARE(worker.getDownLoad_XML_Temp(EType_XML_Motions_xml, true),
             temp + QStringLiteral("/Motions.xml"));
    QVERIFY(QFileInfo(temp).isDir());
    QCOMPARE(worker.getDownLoad_XML_Temp(type(6), true), temp + QLatin1Char('/'));
}

void tst_CheckWorker_CfgAndDisplayXML_places::downloadedFiles()
{
    CheckWorker_CfgAndDisplayXML worker;
    const QString folder = m_base + QStringLiteral("/root/Themes/ResourceConfig/");
    QVERIFY(!QFileInfo::exists(folder));
    QCOMPARE(worker.getDownLoad_XML_Temp(EType_XML_resource_version_xml, false),
             folder + QStringLiteral("/resource_version.xml"));
    QVERIFY(QFileInfo(folder).isDir());
}

void tst_CheckWorker_CfgAndDisplayXML_places::fileInsteadOfAFolder()
{
    CatalogueFiles::write(m_base + QStringLiteral("/appdata/MVTheme/DownloadTemp"), "a file");
    CatalogueFiles::write(m_base + QStringLiteral("/root/Themes/ResourceConfig"), "a file");
    CheckWorker_CfgAndDisplayXML worker;
    QVERIFY(worker.getDownLoad_XML_Temp(EType_XML_resource_version_xml, true).isEmpty());
    QVERIFY(worker.getDownLoad_XML_Temp(EType_XML_resource_version_xml, false).isEmpty());
}

void tst_CheckWorker_CfgAndDisplayXML_places::nothingOutsideTheDownloadRoot()
{
    const QString outside = m_base + QStringLiteral("/outside");
    QDir().mkpath(outside);
    QVERIFY(QDir(m_base + QStringLiteral("/root/Themes")).removeRecursively());
    MV_LINK(outside, m_base + QStringLiteral("/root/Themes"));
    CheckWorker_CfgAndDisplayXML worker;
    QVERIFY(worker.getDownLoad_XML_Temp(EType_XML_resource_version_xml, false).isEmpty());
    QVERIFY(QDir(outside).isEmpty());
}

MV_TEST_MAIN(tst_CheckWorker_CfgAndDisplayXML_places)

#include "tst_CheckWorker_CfgAndDisplayXML_places.moc"
