// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "host/HostSettings.h"
#include "records/KindTable.h"
#include "SourceItem.h"
#include "support/TestMain.h"
#include "tree/Editions.h"
#include "tree/Kinds.h"

#include <QDir>

/// Tests that mvpublish writes exactly the names that the library asks for.
class TestMvpublishNames : public QObject
{
    Q_OBJECT

private slots:
    void kindsAreTheLibrarys();
    void themeTypesAreTheLibrarys();
    void editionsAskForTheirFiles();
    void standardFilesAreNamedLikeTheLibrarys();
    void kindListsAreWhereTheLibraryExpectsThem();
};

void TestMvpublishNames::kindsAreTheLibrarys()
{
    MVThemeMgr& library = *MVThemeMgr::init();
    QCOMPARE(int(KindTable::count), int(eCfgItem_Resource));
    for (int i = 0; i < int(KindTable::count); ++i) {
        const SKindInfo& kind = KindTable::all().at(i);
        QCOMPARE(int(kind.type), i);
        QCOMPARE(kind.name, library.getCfgItemTypeStr(kind.type));
        for (const MVThemeMgr::EDirTag half :
             {MVThemeMgr::eDirTag_Config, MVThemeMgr::eDirTag_Display}) {
            const QString folder =
                library.Path_resource_Dir(MVThemeMgr::eLoadDir_Download, half, kind.type);
            QCOMPARE(kind.folder, QDir(folder).dirName());
        }
        SCfg_Item item;
        item.m_eType = kind.type;
        item.m_qsGUID = QStringLiteral("{ABCDEF01-2345-4789-ABCD-000000000001}");
        item.m_info_Thumb.m_qsUrl = QStringLiteral("a.png");
        item.m_info_Gif.m_qsUrl = QStringLiteral("a.gif");
        QCOMPARE(KindTable::of(kind.type).hasThumbnail, !library.doItem_Info_Thumb(item));
        QCOMPARE(KindTable::of(kind.type).hasPreview, !library.doItem_Info_Gif(item));
    }
}

void TestMvpublishNames::themeTypesAreTheLibrarys()
{
    MVThemeMgr& library = *MVThemeMgr::init();
    QVector<int> codes;
    const QStringList types = Kinds::themeTypes();
    for (const QString& type : types)
        codes.append(library.Themetype(type));
    QCOMPARE(codes, (QVector<int>{2, 3, 4, 0}));
    QCOMPARE(types.constLast(), Kinds::otherThemes());
}

void TestMvpublishNames::editionsAskForTheirFiles()
{
    hostSettings().productParams.insert(QStringLiteral("url_themeRootDir"),
                                        QStringLiteral("http://server"));
    CheckWorker_CfgAndDisplayXML worker;
    const QString folder =
        QStringLiteral("http://server/") + Editions::catalogueFolder + QLatin1Char('/');
    for (const Edition& edition : Editions::all()) {
        const int number = edition.name.toInt();
        hostSettings().partnerEditions = number == 0 ? QSet<int>() : QSet<int>{number};
        QCOMPARE(worker.getSerThemeXMLPath(EType_XML_resource_version_xml),
                 folder + edition.versionFile);
        QCOMPARE(worker.getSerThemeXMLPath(EType_XML_resource_display_xml),
                 folder + edition.displayFile);
        QCOMPARE(worker.getSerThemeXMLPath(EType_XML_resource_config_xml),
                 folder + Editions::configFile);
    }
    QCOMPARE(Editions::all().size(), 6);
    QCOMPARE(Editions::all().constFirst().name, QStringLiteral("standard"));
}

void TestMvpublishNames::standardFilesAreNamedLikeTheLibrarys()
{
    MVThemeMgr& library = *MVThemeMgr::init();
    const MVThemeMgr::ELoadDir installed = MVThemeMgr::eLoadDir_Local;
    const QString folder = library.Path_resource_RootDir(installed) + QLatin1Char('/')
        + Editions::catalogueFolder + QLatin1Char('/');
    QCOMPARE(library.Path_resource_version_xml(installed), folder + Editions::installedVersionFile);
    QCOMPARE(library.Path_resource_xml(installed, MVThemeMgr::eDirTag_Config),
             folder + Editions::configFile);
    QCOMPARE(library.Path_resource_xml(installed, MVThemeMgr::eDirTag_Display),
             folder + Editions::installedDisplayFile);
}

void TestMvpublishNames::kindListsAreWhereTheLibraryExpectsThem()
{
    CheckWorker_CfgAndDisplayXML worker;
    const QVector<QPair<ECfgItemType, EType_XML>> lists{
        {eCfgItem_Filter, EType_XML_VideoFilters_xml},
        {eCfgItem_Transition, EType_XML_Transitions_xml},
        {eCfgItem_Motion, EType_XML_Motions_xml}};
    for (const auto& list : lists) {
        const SKindInfo& kind = KindTable::of(list.first);
        QVERIFY(kind.hasDefinitionList);
        QVERIFY(worker.getSerThemeXMLPath(list.second)
                    .endsWith(QStringLiteral("/config/%1/%1.xml").arg(kind.folder)));
    }
    QVERIFY(!KindTable::of(eCfgItem_Theme).hasDefinitionList);
    QVERIFY(!KindTable::of(eCfgItem_BgMaterial).hasDefinitionList);
}

MV_TEST_MAIN(TestMvpublishNames)
#include "tst_mvpublish_names.moc"
