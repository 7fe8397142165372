// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

#include <QDomDocument>

#include <set>

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests reading the config catalogue.
class tst_MVThemeMgr_config : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void itemFields();
    void resourceRecords();
    void everyRecordHasAMutexOfItsOwn();
    void groupsFillTheirVectors();
    void orderOfGroupsInTheFileDoesNotMatter();
    void onlyTheFirstGroupOfANameIsRead();
    void namesAreCaseSensitive();
    void unknownElementsAreIgnored();
    void missingElementsAreEmpty();
    void onlyTheFirstElementOfANameCounts();
    void textIsTakenAsWritten();
    void nothingIsValidated();
    void itemsAreAppended();
    void oneGroupIntoAnyVector();

    void downloadedFileWins();
    void missingDownloadFallsBack();
    void malformedDownloadFallsBack();
    void emptyCatalogueIsNotReplacedByTheInstalledOne();
    void bothBadLeavesTheCatalogue();

private:
    void readDownloaded(const QByteArray& content)
    {
        Files::write(m_fixture.configXml(), Files::document(content));
        mgr().read_resource_config_xml();
    }
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    static const Mgr::SResourceXML& cfg() { return mgr().getCfgXML(); }

    CatalogueFixture m_fixture;
};

namespace {

QByteArray group(const char* name, int number)
{
    return Files::cfgGroup(QString::fromLatin1(name), {{Files::guid(number), QString(), {}}});
}

QStringList urlsOf(const SCfg_Item& item)
{
    QStringList urls;
    for (const SFileInfo& info : item.m_vecResource)
        urls.append(info.m_qsUrl);
    return urls;
}

} // namespace

void tst_MVThemeMgr_config::itemFields()
{
    readDownloaded(Files::cfgGroup(
        QStringLiteral("Theme"),
        {{Files::guid(1), QStringLiteral("/Themes/a.xml"), {QStringLiteral("/Themes/a.zip")}}}));
    QCOMPARE(cfg().vecTheme.size(), 1);
    const SCfg_Item& item = cfg().vecTheme.first();
    QCOMPARE(item.m_eType, eCfgItem_Theme);
    QCOMPARE(item.m_qsGUID, Files::guid(1));
    QCOMPARE(item.m_info_CfgXML.m_qsUrl, QStringLiteral("/Themes/a.xml"));
    QCOMPARE(item.m_info_CfgXML.m_qsFile, QString());
    QCOMPARE(item.m_qsName, QString());
    QCOMPARE(item.m_info_Thumb.m_qsUrl, QString());
    QCOMPARE(item.m_info_Gif.m_qsUrl, QString());
    QVERIFY(!item.m_pThemes_a);
    QVERIFY(!item.m_bIsText && !item.m_bCollected && item.m_nThemeType == 0);
}

void tst_MVThemeMgr_config::resourceRecords()
{
    const QStringList urls{QStringLiteral("/b.zip"), QStringLiteral("/a.zip"),
                           QStringLiteral("/b.zip"), QStringLiteral("c")};
    readDownloaded(Files::cfgGroup(QStringLiteral("Motion"), {{Files::guid(1), QString(), urls}}));
    const SCfg_Item& item = cfg().vecMotion.first();
    QCOMPARE(urlsOf(item), urls);
    for (const SFileInfo& info : item.m_vecResource) {
        QCOMPARE(info.m_eType, eCfgItem_Resource);
        QCOMPARE(info.m_bThumbDir, false);
        QCOMPARE(info.m_qsFile, QString());
        QCOMPARE(info.m_bDownloaded, false);
        QCOMPARE(info.m_nReceived, Q_INT64_C(0));
        QCOMPARE(info.m_nTotal, Q_INT64_C(0));
    }
}

void tst_MVThemeMgr_config::everyRecordHasAMutexOfItsOwn()
{
    const QStringList urls{QStringLiteral("/a.zip"), QStringLiteral("/a.zip")};
    readDownloaded(
        Files::cfgGroup(QStringLiteral("Filter"),
                        {{Files::guid(1), QString(), urls}, {Files::guid(1), QString(), urls}}));
    std::set<const QMutex*> mutexes;
    for (const SCfg_Item& item : cfg().vecFilter) {
        mutexes.insert(item.m_info_CfgXML.m_pMutex.get());
        for (const SFileInfo& info : item.m_vecResource)
            mutexes.insert(info.m_pMutex.get());
    }
    QCOMPARE(mutexes.size(), std::size_t(6));
    QCOMPARE(mutexes.count(nullptr), std::size_t(0));
}

void tst_MVThemeMgr_config::groupsFillTheirVectors()
{
    readDownloaded(group("Filter", 0) + group("Transition", 1) + group("Motion", 2)
                   + group("Theme", 3) + group("BgMaterial", 4));
    const QVector<SCfg_Item>* const vectors[] = {&cfg().vecFilter, &cfg().vecTransition,
                                                 &cfg().vecMotion, &cfg().vecTheme,
                                                 &cfg().vecBgMaterial};
    for (int kind = 0; kind < 5; ++kind) {
        QCOMPARE(guidsOf(*vectors[kind]), QStringList{Files::guid(kind)});
        QCOMPARE(int(vectors[kind]->first().m_eType), kind);
    }
}

void tst_MVThemeMgr_config::orderOfGroupsInTheFileDoesNotMatter()
{
    readDownloaded(group("BgMaterial", 4) + group("Theme", 3) + group("Filter", 0));
    QCOMPARE(guidsOf(cfg().vecFilter), QStringList{Files::guid(0)});
    QCOMPARE(guidsOf(cfg().vecTheme), QStringList{Files::guid(3)});
    QCOMPARE(guidsOf(cfg().vecBgMaterial), QStringList{Files::guid(4)});
    QVERIFY(cfg().vecTransition.isEmpty() && cfg().vecMotion.isEmpty());
}

void tst_MVThemeMgr_config::onlyTheFirstGroupOfANameIsRead()
{
    readDownloaded(group("Theme", 1) + group("Filter", 2) + group("Theme", 3));
    QCOMPARE(guidsOf(cfg().vecTheme), QStringList{Files::guid(1)});
}

void tst_MVThemeMgr_config::namesAreCaseSensitive()
{
    readDownloaded("<filter><Item><GUID>a</GUID></Item></filter>"
                   "<Theme><item><GUID>b</GUID></item>"
                   "<Item><Guid>c</Guid><urlcnf>d</urlcnf></Item></Theme>");
    QVERIFY(cfg().vecFilter.isEmpty());
    QCOMPARE(cfg().vecTheme.size(), 1);
    QCOMPARE(cfg().vecTheme.first().m_qsGUID, QString());
    QCOMPARE(cfg().vecTheme.first().m_info_CfgXML.m_qsUrl, QString());
}

void tst_MVThemeMgr_config::unknownElementsAreIgnored()
{
    Files::write(m_fixture.configXml(),
                 "<Anything x=\"1\"><Other><Item/></Other><Theme y=\"2\">"
                 "<Note/><Item z=\"3\"><Extra>e</Extra><GUID>{1}</GUID><Name>no</Name>"
                 "<UrlThumb>no</UrlThumb><IsText>1</IsText>"
                 "<UrlResource><File>f</File><Url>/u</Url></UrlResource><Url>/loose</Url></Item>"
                 "<Group><Item><GUID>{deep}</GUID></Item></Group>"
                 "<!-- <Item/> --><Item><GUID>{2}</GUID></Item></Theme>"
                 "<Item><GUID>{3}</GUID></Item></Anything>");
    mgr().read_resource_config_xml();
    QCOMPARE(guidsOf(cfg().vecTheme), (QStringList{QStringLiteral("{1}"), QStringLiteral("{2}")}));
    const SCfg_Item& item = cfg().vecTheme.first();
    QCOMPARE(item.m_qsName, QString());
    QCOMPARE(item.m_info_Thumb.m_qsUrl, QString());
    QCOMPARE(item.m_bIsText, false);
    QCOMPARE(urlsOf(item), QStringList{QStringLiteral("/u")});
}

void tst_MVThemeMgr_config::missingElementsAreEmpty()
{
    readDownloaded("<Filter><Item/><Item><UrlResource/></Item></Filter><Theme/>");
    QCOMPARE(cfg().vecFilter.size(), 2);
    for (const SCfg_Item& item : cfg().vecFilter) {
        QCOMPARE(item.m_qsGUID, QString());
        QCOMPARE(item.m_info_CfgXML.m_qsUrl, QString());
        QVERIFY(item.m_vecResource.isEmpty());
    }
    QVERIFY(cfg().vecTheme.isEmpty());
}

void tst_MVThemeMgr_config::onlyTheFirstElementOfANameCounts()
{
    readDownloaded("<Filter><Item><GUID>{1}</GUID><GUID>{2}</GUID>"
                   "<UrlCnf>/1</UrlCnf><UrlCnf>/2</UrlCnf>"
                   "<UrlResource><Url>/1</Url></UrlResource>"
                   "<UrlResource><Url>/2</Url></UrlResource></Item></Filter>");
    const SCfg_Item& item = cfg().vecFilter.first();
    QCOMPARE(item.m_qsGUID, QStringLiteral("{1}"));
    QCOMPARE(item.m_info_CfgXML.m_qsUrl, QStringLiteral("/1"));
    QCOMPARE(urlsOf(item), QStringList{QStringLiteral("/1")});
}

void tst_MVThemeMgr_config::textIsTakenAsWritten()
{
    readDownloaded("<Filter><Item><GUID> {ab} </GUID><UrlCnf>/a&amp;b &#x6d77;<![CDATA[<c>]]>"
                   "</UrlCnf><UrlResource><Url>/\xc3\xa9%20x</Url><Url/></UrlResource>"
                   "</Item></Filter>");
    const SCfg_Item& item = cfg().vecFilter.first();
    QCOMPARE(item.m_qsGUID, QStringLiteral(" {ab} "));
    QCOMPARE(item.m_info_CfgXML.m_qsUrl, QString::fromUtf8("/a&b \xe6\xb5\xb7<c>"));
    QCOMPARE(urlsOf(item), (QStringList{QString::fromUtf8("/\xc3\xa9%20x"), QString()}));
}

void tst_MVThemeMgr_config::nothingIsValidated()
{
    const QString same = Files::guid(1);
    readDownloaded(Files::cfgGroup(QStringLiteral("Filter"),
                                   {{same, QStringLiteral("/first"), {}},
                                    {QString(), QString(), {}},
                                    {same, QStringLiteral("/second"), {}},
                                    {QStringLiteral("no guid"), QString(), {}},
                                    {QString(), QString(), {}}}));
    QCOMPARE(guidsOf(cfg().vecFilter),
             (QStringList{same, QString(), same, QStringLiteral("no guid"), QString()}));
    QCOMPARE(mgr().findItemByIDFromConfig(eCfgItem_Filter, same)->m_info_CfgXML.m_qsUrl,
             QStringLiteral("/first"));
}

void tst_MVThemeMgr_config::itemsAreAppended()
{
    readDownloaded(group("Filter", 1));
    readDownloaded(group("Filter", 2));
    QCOMPARE(guidsOf(cfg().vecFilter), (QStringList{Files::guid(1), Files::guid(2)}));
}

void tst_MVThemeMgr_config::oneGroupIntoAnyVector()
{
    QDomDocument doc;
    QVERIFY(doc.setContent(Files::document(group("Special", 1) + group("Theme", 2))));
    QVector<SCfg_Item> items(1);
    mgr().read_resource_config_xml_a(doc.documentElement(), eCfgItem_Motion,
                                     QStringLiteral("Special"), items);
    mgr().read_resource_config_xml_a(doc.documentElement(), eCfgItem_Theme,
                                     QStringLiteral("missing"), items);
    QCOMPARE(guidsOf(items), (QStringList{QString(), Files::guid(1)}));
    QCOMPARE(items.last().m_eType, eCfgItem_Motion);
    QVERIFY(cfg().vecMotion.isEmpty());
}

void tst_MVThemeMgr_config::downloadedFileWins()
{
    Files::write(m_fixture.configXml(Mgr::eLoadDir_Local), Files::document(group("Filter", 1)));
    Files::write(m_fixture.configXml(), Files::document(group("Filter", 2)));
    const LogCapture log;
    mgr().read_resource_config_xml();
    QCOMPARE(guidsOf(cfg().vecFilter), QStringList{Files::guid(2)});
    QCOMPARE(m_fixture.described(log), QByteArrayList{m_fixture.checked(m_fixture.configXml(), 1)});
}

void tst_MVThemeMgr_config::missingDownloadFallsBack()
{
    const QString installed = m_fixture.configXml(Mgr::eLoadDir_Local);
    Files::write(installed, Files::document(group("Filter", 1)));
    const LogCapture log;
    mgr().read_resource_config_xml();
    QCOMPARE(guidsOf(cfg().vecFilter), QStringList{Files::guid(1)});
    QCOMPARE(m_fixture.described(log),
             (QByteArrayList{m_fixture.checked(m_fixture.configXml(), 0),
                             m_fixture.checked(installed, 1)}));
}

void tst_MVThemeMgr_config::malformedDownloadFallsBack()
{
    Files::write(m_fixture.configXml(Mgr::eLoadDir_Local), Files::document(group("Filter", 1)));
    Files::write(m_fixture.configXml(), "<Resource>" + group("Filter", 2));
    mgr().read_resource_config_xml();
    QCOMPARE(guidsOf(cfg().vecFilter), QStringList{Files::guid(1)});
}

void tst_MVThemeMgr_config::emptyCatalogueIsNotReplacedByTheInstalledOne()
{
    Files::write(m_fixture.configXml(Mgr::eLoadDir_Local), Files::document(group("Filter", 1)));
    readDownloaded(QByteArray());
    QVERIFY(cfg().vecFilter.isEmpty());
}

void tst_MVThemeMgr_config::bothBadLeavesTheCatalogue()
{
    readDownloaded(group("Filter", 1));
    Files::write(m_fixture.configXml(), "<");
    const LogCapture log;
    mgr().read_resource_config_xml();
    QCOMPARE(m_fixture.described(log),
             (QByteArrayList{m_fixture.checked(m_fixture.configXml(), 0),
                             m_fixture.checked(m_fixture.configXml(Mgr::eLoadDir_Local), 0),
                             m_fixture.line(1, "read_resource_config_xml is error!")}));
    QCOMPARE(guidsOf(cfg().vecFilter), QStringList{Files::guid(1)});
}

MV_TEST_MAIN(tst_MVThemeMgr_config)
#include "tst_MVThemeMgr_config.moc"
