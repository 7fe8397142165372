// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "support/ProcessorTime.h"

namespace tst_MVThemeMgr_needed {

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests which files an item and its dependencies still lack.
class tst_MVThemeMgr_needed : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void filesOfOneItemInTheirOrder();
    void presentFilesAreLeftOut();
    void listIsAppendedTo();
    void dependenciesFollowElementBySlot();
    void onlyOneSlotOfEachEdgeIsFollowed();
    void filesUsedTwiceStandThereTwice();
    void dependenciesOfDependencies();
    void noneEntryNeedsNothing_data();
    void noneEntryNeedsNothing();
    void noneDependencyDiscardsWhatWasGathered();
    void unparsedThemeHasNoDependencies();
    void itemThatCannotBeResolvedIsListed();
    void nothingIsLogged();
    void moreFilesThanTheLimitMakeItUnusable_data();
    void moreFilesThanTheLimitMakeItUnusable();
    void itemUsedOftenIsLookedForOnce();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    static QVector<SFileInfo*> needed(SCfg_Item& item)
    {
        QVector<SFileInfo*> files;
        mgr().getNeedDownLoadFiles(&item, files);
        return files;
    }

    /// Makes the theme use the first filter `uses` times; the filter has `files` files of this
    /// name.
    void useOften(int uses, int files, const QString& url);

    CatalogueFixture m_fixture;
    SCfg_Item m_theme;
    SThemes_a m_parsed;
    SCfg_Item m_filters[6]; // each lacks one file, its resource
};

namespace {

#ifdef Q_OS_WIN
constexpr double longestSeconds = 5; // wine looks a file up in ten times the time
#else
constexpr double longestSeconds = 1;
#endif

const QString noneGuid = QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");

SFileInfo resource(const QString& url)
{
    SFileInfo info;
    info.m_qsUrl = url;
    return info;
}

} // namespace

void tst_MVThemeMgr_needed::init()
{
    m_fixture.fresh();
    m_theme = SCfg_Item();
    m_theme.m_eType = eCfgItem_Theme;
    m_theme.m_qsGUID = Files::guid(100);
    m_theme.m_info_Thumb.m_qsUrl = QStringLiteral("a.png");
    m_theme.m_info_Gif.m_qsUrl = QStringLiteral("a.gif");
    m_theme.m_info_CfgXML.m_qsUrl = QStringLiteral("/a.xml");
    m_theme.m_vecResource = {resource(QStringLiteral("1")), resource(QStringLiteral("2"))};
    m_parsed = SThemes_a();
    int number = 0;
    for (SCfg_Item& filter : m_filters) {
        filter = SCfg_Item();
        filter.m_eType = eCfgItem_Filter;
        filter.m_qsGUID = Files::guid(number++);
        filter.m_vecResource = {resource(QStringLiteral("f"))};
    }
}

void tst_MVThemeMgr_needed::filesOfOneItemInTheirOrder()
{
    QCOMPARE(
        needed(m_theme),
        (QVector<SFileInfo*>{&m_theme.m_info_Thumb, &m_theme.m_info_Gif, &m_theme.m_vecResource[0],
                             &m_theme.m_vecResource[1], &m_theme.m_info_CfgXML}));
    QCOMPARE(m_theme.m_info_CfgXML.m_qsFile,
             m_fixture.root() + QStringLiteral("/Themes/config/PQD/Download/a.xml"));
}

void tst_MVThemeMgr_needed::presentFilesAreLeftOut()
{
    Files::write(m_fixture.downloaded("display", "Themes", QStringLiteral("a.gif")), "x");
    Files::write(
        m_fixture.installedFile("config", "Themes", Files::guid(100) + QStringLiteral("/1")), "x");
    QCOMPARE(needed(m_theme),
             (QVector<SFileInfo*>{&m_theme.m_info_Thumb, &m_theme.m_vecResource[1],
                                  &m_theme.m_info_CfgXML}));
}

void tst_MVThemeMgr_needed::listIsAppendedTo()
{
    SFileInfo other;
    QVector<SFileInfo*> files{&other};
    mgr().getNeedDownLoadFiles(&m_filters[0], files);
    QCOMPARE(files, (QVector<SFileInfo*>{&other, &m_filters[0].m_vecResource[0]}));
}

void tst_MVThemeMgr_needed::dependenciesFollowElementBySlot()
{
    SCfg_Item transition;
    transition.m_eType = eCfgItem_Transition;
    transition.m_qsGUID = Files::guid(50);
    transition.m_info_Thumb.m_qsUrl = QStringLiteral("none.png");
    transition.m_info_CfgXML.m_qsUrl = QStringLiteral("/t.xml");
    m_parsed.m_vecItems.resize(2);
    m_parsed.m_vecItems[1][0].m_pItem = &m_filters[3];
    m_parsed.m_vecItems[0][4].m_pItem = &m_filters[2];
    m_parsed.m_vecItems[0][3].m_pItem = &transition;
    m_parsed.m_vecItems[0][1].m_pItem = &m_filters[1];
    m_parsed.m_vecItems[0][0].m_pItem = &m_filters[0];
    m_parsed.m_aMask[1].m_pItem = &m_filters[1];
    m_parsed.m_aEnd[0].m_pItem = &m_filters[5];
    m_parsed.m_aStart[0].m_pItem = &m_filters[4];
    m_theme.m_pThemes_a = &m_parsed;
    const auto file = [this](int number) { return &m_filters[number].m_vecResource[0]; };
    QCOMPARE(needed(m_theme),
             (QVector<SFileInfo*>{
                 &m_theme.m_info_Thumb, &m_theme.m_info_Gif, &m_theme.m_vecResource[0],
                 &m_theme.m_vecResource[1], &m_theme.m_info_CfgXML, file(0), file(1),
                 &transition.m_info_CfgXML, file(2), file(3), file(4), file(5), file(1)}));
}

void tst_MVThemeMgr_needed::onlyOneSlotOfEachEdgeIsFollowed()
{
    for (int slot = 0; slot < 5; ++slot) {
        if (slot != eDependType_Text)
            m_parsed.m_aStart.at(std::size_t(slot)).m_pItem = &m_filters[0];
        if (slot != eDependType_Text)
            m_parsed.m_aEnd.at(std::size_t(slot)).m_pItem = &m_filters[0];
        if (slot != eDependType_Filter)
            m_parsed.m_aMask.at(std::size_t(slot)).m_pItem = &m_filters[0];
    }
    m_theme.m_pThemes_a = &m_parsed;
    QVERIFY(!needed(m_theme).contains(&m_filters[0].m_vecResource[0]));
}

void tst_MVThemeMgr_needed::filesUsedTwiceStandThereTwice()
{
    m_parsed.m_vecItems.resize(3);
    for (SThemes_a::SDependArray& element : m_parsed.m_vecItems)
        element[1].m_pItem = &m_filters[0];
    m_theme.m_pThemes_a = &m_parsed;
    QCOMPARE(needed(m_theme).count(&m_filters[0].m_vecResource[0]), 3);
}

void tst_MVThemeMgr_needed::dependenciesOfDependencies()
{
    SThemes_a inner;
    inner.m_aStart[0].m_pItem = &m_filters[1];
    m_filters[0].m_pThemes_a = &inner;
    m_parsed.m_vecItems.resize(1);
    m_parsed.m_vecItems[0][0].m_pItem = &m_filters[0];
    m_parsed.m_vecItems[0][1].m_pItem = &m_filters[2];
    m_theme.m_pThemes_a = &m_parsed;
    QCOMPARE(needed(m_theme).mid(5),
             (QVector<SFileInfo*>{&m_filters[0].m_vecResource[0], &m_filters[1].m_vecResource[0],
                                  &m_filters[2].m_vecResource[0]}));
}

void tst_MVThemeMgr_needed::noneEntryNeedsNothing_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("guid");
    QTest::addColumn<bool>("none");
    QTest::newRow("Filter") << int(eCfgItem_Filter) << noneGuid << true;
    QTest::newRow("BgMaterial") << int(eCfgItem_BgMaterial) << noneGuid << true;
    QTest::newRow("Theme") << int(eCfgItem_Theme) << noneGuid << false;
    QTest::newRow("Transition") << int(eCfgItem_Transition) << noneGuid << false;
    QTest::newRow("other case") << int(eCfgItem_Filter) << noneGuid.toLower() << false;
}

void tst_MVThemeMgr_needed::noneEntryNeedsNothing()
{
    QFETCH(int, kind);
    QFETCH(QString, guid);
    QFETCH(bool, none);
    hostSettings().currentSkin = QStringLiteral("Calm");
    SCfg_Item item;
    item.m_eType = ECfgItemType(kind);
    item.m_qsGUID = guid;
    item.m_info_CfgXML.m_qsUrl = QStringLiteral("/a.xml");
    item.m_vecResource = {resource(QStringLiteral("a"))};
    SFileInfo other;
    QVector<SFileInfo*> files{&other};
    mgr().getNeedDownLoadFiles(&item, files);
    QCOMPARE(files.isEmpty(), none);
    QCOMPARE(files.contains(&other), !none);
    QCOMPARE(item.m_info_Thumb.m_qsUrl, none ? QStringLiteral("Calm.png") : QString());
    QCOMPARE(item.m_vecResource.first().m_qsFile.isEmpty(), none);
}

void tst_MVThemeMgr_needed::noneDependencyDiscardsWhatWasGathered()
{
    SCfg_Item none;
    none.m_eType = eCfgItem_Filter;
    none.m_qsGUID = noneGuid;
    m_parsed.m_vecItems.resize(1);
    m_parsed.m_vecItems[0][0].m_pItem = &m_filters[0];
    m_parsed.m_vecItems[0][1].m_pItem = &none;
    m_parsed.m_vecItems[0][2].m_pItem = &m_filters[1];
    m_parsed.m_aMask[1].m_pItem = &m_filters[2];
    m_theme.m_pThemes_a = &m_parsed;
    QCOMPARE(needed(m_theme),
             (QVector<SFileInfo*>{&m_filters[1].m_vecResource[0], &m_filters[2].m_vecResource[0]}));
}

void tst_MVThemeMgr_needed::unparsedThemeHasNoDependencies()
{
    QVERIFY(!m_theme.m_pThemes_a);
    QCOMPARE(needed(m_theme).size(), 5);
    m_theme.m_pThemes_a = &m_parsed; // parsed but empty
    QCOMPARE(needed(m_theme).size(), 5);
}

void tst_MVThemeMgr_needed::itemThatCannotBeResolvedIsListed()
{
    m_theme.m_info_Thumb.m_qsUrl = QStringLiteral("../../../../../../outside/a.png");
    const QVector<SFileInfo*> files = needed(m_theme);
    QCOMPARE(files.first(), &m_theme.m_info_Thumb);
    QVERIFY(!mgr().isDownloadPath(m_theme.m_info_Thumb.m_qsFile));
}

void tst_MVThemeMgr_needed::nothingIsLogged()
{
    const LogCapture log;
    needed(m_theme);
    QVERIFY(log.lines().isEmpty());
}

void tst_MVThemeMgr_needed::useOften(int uses, int files, const QString& url)
{
    m_theme.m_info_Thumb.m_qsUrl = QString(); // leaves no files of the theme's own
    m_theme.m_info_Gif.m_qsUrl = QString();
    m_theme.m_info_CfgXML.m_qsUrl = QString();
    m_theme.m_vecResource.clear();
    m_filters[0].m_vecResource.clear();
    for (int file = 0; file < files; ++file)
        m_filters[0].m_vecResource.append(resource(url));
    m_parsed.m_vecItems.resize(uses);
    for (SThemes_a::SDependArray& element : m_parsed.m_vecItems)
        element[eDependType_Filter].m_pItem = &m_filters[0];
    m_theme.m_pThemes_a = &m_parsed;
}

void tst_MVThemeMgr_needed::moreFilesThanTheLimitMakeItUnusable_data()
{
    QTest::addColumn<int>("uses");
    QTest::addColumn<int>("files");
    QTest::addColumn<int>("listed");
    QTest::newRow("as many as allowed") << 5 << 2000 << 10000;
    QTest::newRow("one more, of one item") << 1 << 10001 << 0;
    QTest::newRow("one more, of the last use") << 3334 << 3 << 9999;
    QTest::newRow("far more") << 2000 << 2000 << 10000;
}

void tst_MVThemeMgr_needed::moreFilesThanTheLimitMakeItUnusable()
{
    QFETCH(int, uses);
    QFETCH(int, files);
    QFETCH(int, listed);
    useOften(uses, files, QStringLiteral("/missing"));
    const bool isUsable = uses * files <= Mgr::maxNeededFiles;
    QVector<SFileInfo*> out;
    LogCapture log;
    const ProcessorTime time;
    QCOMPARE(mgr().listNeededFiles(&m_theme, out), isUsable);
    QVERIFY2(time.seconds() < longestSeconds, qPrintable(QString::number(time.seconds())));
    QCOMPARE(out.size(), listed);
    const QByteArray line = CatalogueFixture::line(
        3,
        "item [" + m_theme.m_qsGUID.toUtf8() + "] needs more than 10000 files and cannot be used");
    QCOMPARE(CatalogueFixture::described(log), isUsable ? QByteArrayList() : QByteArrayList{line});
    QCOMPARE(needed(m_theme), out);
}

void tst_MVThemeMgr_needed::itemUsedOftenIsLookedForOnce()
{
    Files::write(m_fixture.root() + QStringLiteral("/Themes/config/PQD/Download/file"), "x");
    useOften(2000, 2000, QStringLiteral("/file"));
    const ProcessorTime time;
    QVERIFY(needed(m_theme).isEmpty());
    // Looking for all four million files would take many times as long.
    QVERIFY2(time.seconds() < 1, qPrintable(QString::number(time.seconds())));
}

MV_TEST_MAIN(tst_MVThemeMgr_needed)

} // namespace tst_MVThemeMgr_needed

#include "tst_MVThemeMgr_needed.moc"
