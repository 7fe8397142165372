// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

#include <thread>
#include <vector>

using Files = CatalogueFiles;

/// Tests theme configs that a second program or a copy adds after the catalogue was loaded.
class tst_MVThemeMgr_ensureParsed : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void parsesWhatIsOnDisk();
    void leavesAParsedThemeAlone();
    void waitsForTheFile();
    void keepsWhatCannotBeParsed();
    void respectsTheProductParameter_data();
    void respectsTheProductParameter();
    void leavesOtherKindsAlone();
    void neededFilesFollow();
    void manyThreadsAtATime();

private:
    QString configPath() const
    {
        return m_fixture.downloaded("config", "Themes", QStringLiteral("t.xml"));
    }
    void bringConfig() const
    {
        Files::write(configPath(),
                     Files::document("<Item><Filter><GUID>" + Files::guid(filter).toUtf8()
                                     + "</GUID></Filter></Item>"));
    }
    static SCfg_Item& theme() { return CatalogueFixture::manager().getThemes_Display().first(); }

    static constexpr int filter = 1;
    static constexpr int themeNumber = 2;
    CatalogueFixture m_fixture;
};

void tst_MVThemeMgr_ensureParsed::init()
{
    m_fixture.fresh();
    CatalogueFixture::setParam("hasMV", "1");
    const QString guid = Files::guid(themeNumber);
    Files::write(m_fixture.configXml(),
                 Files::document(Files::cfgGroup(QStringLiteral("Filter"),
                                                 {{Files::guid(filter),
                                                   QString(),
                                                   {QStringLiteral("/VideoFilters/f.zip")}}})
                                 + Files::cfgGroup(QStringLiteral("Theme"),
                                                   {{guid, QStringLiteral("/Themes/t.xml"), {}}})));
    Files::write(m_fixture.displayXml(),
                 Files::document(
                     Files::displayThemes({{QStringLiteral("others"),
                                            {{guid, QStringLiteral("Sea"), QStringLiteral("t.jpg"),
                                              QStringLiteral("t.gif")}}}})));
    for (const char* name : {"t.jpg", "t.gif"})
        Files::write(m_fixture.downloaded("display", "Themes", QString::fromLatin1(name)), "x");
    CatalogueFixture::manager().load(true);
    QVERIFY(!theme().m_pThemes_a);
}

void tst_MVThemeMgr_ensureParsed::parsesWhatIsOnDisk()
{
    bringConfig();
    CatalogueFixture::manager().ensureThemeParsed(theme());
    QVERIFY(theme().m_pThemes_a);
    QCOMPARE(theme().m_pThemes_a->m_vecItems.size(), 1);
    QCOMPARE(theme().m_info_CfgXML.m_qsFile, configPath());
}

void tst_MVThemeMgr_ensureParsed::leavesAParsedThemeAlone()
{
    bringConfig();
    CatalogueFixture::manager().ensureThemeParsed(theme());
    const SThemes_a* const parsed = theme().m_pThemes_a;
    const LogCapture log;
    CatalogueFixture::manager().ensureThemeParsed(theme());
    QCOMPARE(theme().m_pThemes_a, parsed);
    QVERIFY(log.lines().isEmpty());
}

void tst_MVThemeMgr_ensureParsed::waitsForTheFile()
{
    const LogCapture log;
    CatalogueFixture::manager().ensureThemeParsed(theme());
    QVERIFY(!theme().m_pThemes_a);
    QVERIFY(log.lines().isEmpty());
}

void tst_MVThemeMgr_ensureParsed::keepsWhatCannotBeParsed()
{
    Files::write(configPath(), "<T>");
    CatalogueFixture::manager().ensureThemeParsed(theme());
    QVERIFY(!theme().m_pThemes_a);
    bringConfig();
    CatalogueFixture::manager().ensureThemeParsed(theme());
    QVERIFY(theme().m_pThemes_a);
}

void tst_MVThemeMgr_ensureParsed::respectsTheProductParameter_data()
{
    QTest::addColumn<QByteArray>("hasMV");
    QTest::addColumn<bool>("parsed");
    QTest::newRow("off") << QByteArray("0") << false;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("no number") << QByteArray("yes") << false;
    QTest::newRow("on") << QByteArray("2") << true;
}

void tst_MVThemeMgr_ensureParsed::respectsTheProductParameter()
{
    QFETCH(QByteArray, hasMV);
    QFETCH(bool, parsed);
    CatalogueFixture::setParam("hasMV", hasMV.constData());
    bringConfig();
    CatalogueFixture::manager().ensureThemeParsed(theme());
    QCOMPARE(theme().m_pThemes_a != nullptr, parsed);
}

void tst_MVThemeMgr_ensureParsed::leavesOtherKindsAlone()
{
    bringConfig();
    SCfg_Item other = theme();
    other.m_eType = eCfgItem_Filter;
    other.m_info_CfgXML.m_qsFile = configPath();
    CatalogueFixture::manager().ensureThemeParsed(other);
    QVERIFY(!other.m_pThemes_a);
}

void tst_MVThemeMgr_ensureParsed::neededFilesFollow()
{
    bringConfig();
    QVector<SFileInfo*> needed;
    CatalogueFixture::manager().getNeedDownLoadFiles(&theme(), needed);
    QCOMPARE(needed.size(), 0);
    CatalogueFixture::manager().ensureThemeParsed(theme());
    CatalogueFixture::manager().getNeedDownLoadFiles(&theme(), needed);
    QCOMPARE(needed.size(), 1);
    QCOMPARE(needed.first()->m_qsUrl, QStringLiteral("/VideoFilters/f.zip"));
}

/// A cell and the download thread ask at the same time.
void tst_MVThemeMgr_ensureParsed::manyThreadsAtATime()
{
    bringConfig();
    SCfg_Item& item = theme();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&item] {
            CatalogueFixture::manager().ensureThemeParsed(item);
            const SThemes_a* const parsed = item.parsedTheme();
            if (!parsed || parsed->m_vecItems.size() != 1)
                qFatal("a thread saw no parsed theme, or half of one");
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

MV_TEST_MAIN(tst_MVThemeMgr_ensureParsed)
#include "tst_MVThemeMgr_ensureParsed.moc"
