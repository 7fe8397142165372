// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "support/ThisProcess.h"

namespace tst_reloadMemory {

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true; // freed memory stays in quarantine
#else
constexpr bool sanitized = false;
#endif

/// Tests that a host that rereads the catalogue for days does not grow.
class tst_reloadMemory : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void reloadingDoesNotGrowMemory();

private:
    CatalogueFixture m_fixture;
};

namespace {

constexpr int items = 8;
constexpr qint64 tolerated = 4 * 1024 * 1024;

void reload(int times)
{
    for (int i = 0; i < times; ++i)
        CatalogueFixture::manager().load(true);
}

} // namespace

void tst_reloadMemory::init()
{
    m_fixture.fresh();
    QVector<Files::CfgItem> filters;
    QVector<Files::CfgItem> themes;
    QVector<Files::DisplayItem> shownFilters;
    QVector<Files::DisplayItem> shownThemes;
    QByteArray elements;
    for (int i = 0; i < items; ++i) {
        const QStringList urls{QStringLiteral("a.zip"), QStringLiteral("b.zip")};
        filters.append({Files::guid(i), QString(), urls});
        themes.append({Files::guid(i), QStringLiteral("/theme.xml"), urls});
        shownFilters.append({Files::guid(i), QStringLiteral("Filter"), QString()});
        shownThemes.append({Files::guid(i), QStringLiteral("Theme"), QString()});
        elements += "<Item><Filter><GUID start=\"0\" end=\"1\">" + Files::guid(i).toLatin1()
            + "</GUID></Filter></Item>";
    }
    Files::write(m_fixture.configXml(),
                 Files::document(Files::cfgGroup(QStringLiteral("Filter"), filters)
                                 + Files::cfgGroup(QStringLiteral("Theme"), themes)));
    Files::write(
        m_fixture.displayXml(),
        Files::document(Files::displayCategory(QStringLiteral("Filter"), shownFilters)
                        + Files::displayThemes({{QStringLiteral("travel"), shownThemes}})));
    Files::write(m_fixture.root() + QStringLiteral("/Themes/config/PQD/Download/theme.xml"),
                 "<Theme>" + elements + "</Theme>");
    CatalogueFixture::setParam("hasMV", "1");
}

void tst_reloadMemory::reloadingDoesNotGrowMemory()
{
    if (sanitized)
        QSKIP("Memory is not given back under a sanitizer");
    reload(100);
    Mgr& mgr = CatalogueFixture::manager();
    QCOMPARE(mgr.getThemes_Display().size(), items);
    QCOMPARE(mgr.getThemes_Display().last().m_pThemes_a->m_vecItems.size(), items);
    const qint64 before = ThisProcess::residentBytes();
    QVERIFY(before > 0);
    reload(900);
    const qint64 grown = ThisProcess::residentBytes() - before;
    QVERIFY2(grown < tolerated, qPrintable(QStringLiteral("%1 bytes more").arg(grown)));
}

MV_TEST_MAIN(tst_reloadMemory)

} // namespace tst_reloadMemory

#include "tst_reloadMemory.moc"
