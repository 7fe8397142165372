// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "download/DownloadPacing.h"
#include "download/MVThemeDownLoader.h"
#include "host/HostSettings.h"
#include "Mvpublish.h"
#include "server/TreeServer.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

#include <algorithm>

namespace {

const QString samples = QStringLiteral(MV_SAMPLES);
const QString noneOfSamples = QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");

MVThemeMgr& manager()
{
    return *MVThemeMgr::init();
}

QVector<qsizetype> countsOf(const MVThemeMgr::SResourceXML& catalogue)
{
    return {catalogue.vecFilter.size(), catalogue.vecTransition.size(), catalogue.vecMotion.size(),
            catalogue.vecTheme.size(), catalogue.vecBgMaterial.size()};
}

QVector<int> themeTypesOf(const QVector<SCfg_Item>& themes)
{
    QVector<int> types;
    for (const SCfg_Item& theme : themes) {
        if (!types.contains(theme.m_nThemeType))
            types.append(theme.m_nThemeType);
    }
    std::sort(types.begin(), types.end());
    return types;
}

/// Returns the names of the items that lack files.
QStringList incomplete(const QVector<SCfg_Item>& items)
{
    QStringList names;
    for (const SCfg_Item& item : items) {
        QVector<SFileInfo*> missing;
        manager().getNeedDownLoadFiles(const_cast<SCfg_Item*>(&item), missing);
        if (!missing.isEmpty())
            names.append(item.m_qsName);
    }
    return names;
}

} // namespace

/// Tests the sample trees as the library reads and fetches them.
class TestSamples : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void installationIsReadAsItStands();
    void installationHasBuiltInItems();
    void settingsLeadToTheTrees();
    void placeholderAnimationIsThere();
    void serversCatalogueCanBeFetchedCompletely();
    void checkerFindsNothing();
    void treesAreBuiltFromTheSource_data();
    void treesAreBuiltFromTheSource();

private:
    static void useRoot(const QString& name);
    static void installServersCatalogue();
    static QVector<SCfg_Item> serversItems(ECfgItemType kind);
    static int fetch(SCfg_Item& item);
};

void TestSamples::init()
{
    hostSettings().resourcesPath = samples + QStringLiteral("/installed");
    hostSettings().productParams.insert(QStringLiteral("hasMV"), QStringLiteral("1"));
    manager().clear();
    useRoot(QString::fromLatin1(QTest::currentTestFunction()));
}

void TestSamples::useRoot(const QString& name)
{
    manager().setResourceSaveRootPath(TestHome::path() + QLatin1Char('/') + name);
}

void TestSamples::installationIsReadAsItStands()
{
    manager().load(false);
    QCOMPARE(countsOf(manager().getDisplayXML()), (QVector<qsizetype>{13, 6, 4, 6, 5}));
    const MVThemeMgr::SResourceXML& display = manager().getDisplayXML();
    QCOMPARE(display.vecFilter.constFirst().m_qsGUID, noneOfSamples);
    QCOMPARE(display.vecBgMaterial.constFirst().m_qsGUID, noneOfSamples);
    QCOMPARE(themeTypesOf(display.vecTheme), (QVector<int>{0, 2, 3, 4}));
}

/// Expects 7 filters, 4 transitions, 3 motions, 2 themes and 2 backgrounds without any download.
void TestSamples::installationHasBuiltInItems()
{
    manager().load(false);
    const MVThemeMgr::SResourceXML& display = manager().getDisplayXML();
    const auto ready = [](const QVector<SCfg_Item>& items) {
        return items.size() - incomplete(items).size();
    };
    QCOMPARE(ready(display.vecFilter), 1 + 7);
    QCOMPARE(ready(display.vecTransition), 4);
    QCOMPARE(ready(display.vecMotion), 3);
    QCOMPARE(ready(display.vecTheme), 2);
    QCOMPARE(ready(display.vecBgMaterial), 1 + 2);
    for (int i = 0; i < display.vecTheme.size(); ++i) {
        QCOMPARE(manager().isLocal_Theme(display.vecTheme.at(i)),
                 i < 2 ? MVThemeMgr::eLoadDir_Local : MVThemeMgr::eLoadDir_Download);
    }
}

void TestSamples::settingsLeadToTheTrees()
{
    const HostSettings before = hostSettings();
    QString error;
    QVERIFY2(loadHostSettings(samples + QStringLiteral("/settings.ini"), &error),
             qPrintable(error));
    QCOMPARE(hostSettings().resourcesPath, samples + QStringLiteral("/installed"));
    QCOMPARE(hostSettings().testOutputDir, samples + QStringLiteral("/testoutput"));
    QCOMPARE(hostSettings().productParams.value(QStringLiteral("hasMV")), QStringLiteral("1"));
    hostSettings() = before;
}

void TestSamples::placeholderAnimationIsThere()
{
    const QByteArray gif =
        CatalogueFiles::read(samples + QStringLiteral("/testoutput/testskin/Simple.gif"));
    QVERIFY(gif.startsWith("GIF89a"));
    QVERIFY(gif.contains("NETSCAPE2.0")); // the animation loops
}

/// Stores the server's catalogue where a check would store it.
void TestSamples::installServersCatalogue()
{
    for (const MVThemeMgr::EDirTag tag :
         {MVThemeMgr::eDirTag_Config, MVThemeMgr::eDirTag_Display}) {
        const QString target = manager().Path_resource_xml(MVThemeMgr::eLoadDir_Download, tag);
        CatalogueFiles::write(target,
                              CatalogueFiles::read(samples
                                                   + QStringLiteral("/server/ResourceConfig/")
                                                   + QFileInfo(target).fileName()));
    }
}

/// Returns all items of a kind in the server's display catalogue, even without previews on disk.
QVector<SCfg_Item> TestSamples::serversItems(ECfgItemType kind)
{
    QDomDocument doc;
    manager().checkXml(
        manager().Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Display),
        doc);
    const MVThemeMgr::SResourceXML config = manager().getCfgXML();
    const QVector<SCfg_Item> all[] = {config.vecFilter, config.vecTransition, config.vecMotion,
                                      config.vecTheme, config.vecBgMaterial};
    QVector<SCfg_Item> configured = all[kind];
    QVector<SCfg_Item> items;
    const QString name = manager().getCfgItemTypeStr(kind);
    if (kind == eCfgItem_Theme)
        manager().read_resource_display_xml_a_theme(doc.documentElement(), kind, name, configured,
                                                    items, true);
    else
        manager().read_resource_display_xml_a(doc.documentElement(), kind, name, configured, items,
                                              true);
    return items;
}

int TestSamples::fetch(SCfg_Item& item)
{
    MVThemeDownLoader loader(nullptr);
    QSignalSpy spy(&loader, &MVThemeDownLoader::sigDownloadFinish);
    loader.download(&item);
    if (spy.isEmpty() && !spy.wait(20000))
        return -1;
    return spy.constFirst().constFirst().value<EMVThemeDownLoadError>();
}

/// Every item that the server shows can be fetched, with its dependencies and previews.
void TestSamples::serversCatalogueCanBeFetchedCompletely()
{
    TreeServer server;
    QVERIFY2(server.start(samples + QStringLiteral("/server")), qPrintable(server.errorText()));
    hostSettings().productParams.insert(QStringLiteral("url_themeRootDir"), server.url());
    DownloadPacing::setStep(std::chrono::milliseconds(1));
    installServersCatalogue();
    manager().load(false);
    QCOMPARE(countsOf(manager().getCfgXML()), (QVector<qsizetype>{27, 12, 9, 15, 9}));

    for (const ECfgItemType kind : {eCfgItem_Theme, eCfgItem_Filter, eCfgItem_Transition,
                                    eCfgItem_Motion, eCfgItem_BgMaterial}) {
        QVector<SCfg_Item> items = serversItems(kind);
        for (SCfg_Item& item : items) {
            QVERIFY2(item.m_qsGUID == noneOfSamples || fetch(item) == eDownLoadError_None,
                     qPrintable(item.m_qsName));
        }
        QCOMPARE(incomplete(items), QStringList());
    }

    // Now everything is shown, and the fetched files equal the published ones.
    manager().load(true);
    const MVThemeMgr::SResourceXML& display = manager().getDisplayXML();
    QCOMPARE(countsOf(display), (QVector<qsizetype>{1 + 27, 12, 9, 15, 1 + 9}));
    QCOMPARE(display.vecFilter.constFirst().m_qsGUID, noneOfSamples);
    QCOMPARE(display.vecBgMaterial.constFirst().m_qsGUID, noneOfSamples);
    QCOMPARE(themeTypesOf(display.vecTheme), (QVector<int>{0, 2, 3, 4}));
    const QPair<MVThemeMgr::EDirTag, QString> halves[] = {
        {MVThemeMgr::eDirTag_Config, QStringLiteral("/server/config/")},
        {MVThemeMgr::eDirTag_Display, QStringLiteral("/server/display/")}};
    for (const auto& half : halves) {
        const QString tree = manager().Path_resource_Dir(MVThemeMgr::eLoadDir_Download, half.first);
        const QStringList files = CatalogueFiles::filesBelow(tree);
        QVERIFY(!files.isEmpty());
        for (const QString& file : files) {
            QVERIFY2(CatalogueFiles::read(tree + QLatin1Char('/') + file)
                         == CatalogueFiles::read(samples + half.second + file),
                     qPrintable(file));
        }
    }
}

void TestSamples::checkerFindsNothing()
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        QSKIP("no python3");
    QProcess process;
    process.start(python, {samples + QStringLiteral("/check-samples")});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.readAllStandardOutput() + process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
}

void TestSamples::treesAreBuiltFromTheSource_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("server") << samples + QStringLiteral("/server")
                            << QStringList{QStringLiteral("--no-release")};
    QTest::newRow("installation") << samples + QStringLiteral("/installed/Resource")
                                  << QStringList{QStringLiteral("--installed")};
}

void TestSamples::treesAreBuiltFromTheSource()
{
    QFETCH(QString, tree);
    QFETCH(QStringList, options);
    const QString built = TestHome::path() + QStringLiteral("/built/") + QFileInfo(tree).fileName();
    QDir().mkpath(QFileInfo(built).path());
    QCOMPARE(Mvpublish::build(samples + QStringLiteral("/source"), built, options), QString());
    const QStringList files = CatalogueFiles::filesBelow(built);
    QCOMPARE(CatalogueFiles::filesBelow(tree), files);
    for (const QString& file : files) {
        QVERIFY2(CatalogueFiles::read(built + QLatin1Char('/') + file)
                     == CatalogueFiles::read(tree + QLatin1Char('/') + file),
                 qPrintable(file));
    }
}

MV_TEST_MAIN(TestSamples)
#include "tst_samples.moc"
