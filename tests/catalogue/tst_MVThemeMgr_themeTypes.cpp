// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "FavouriteSignals.h"

#include <QJsonDocument>

namespace tst_MVThemeMgr_themeTypes {

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests favourites by an item's kind, and the theme types.
class tst_MVThemeMgr_themeTypes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void markingGoesByTheKind_data();
    void markingGoesByTheKind();
    void askingGoesByTheKind_data();
    void askingGoesByTheKind();

    void codes_data();
    void codes();
    void listsAreReadFromTheDownload();
    void installedFileIsTheFallback();
    void withoutAFileTheListsStay();
    void missingDownloadIsCreatedEmpty();
    void missingKeysAndNoArraysAreEmptyLists();
    void readingOneFile();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    QJsonObject saved(const char* name) const
    {
        mgr().saveThemeCollect();
        mgr().saveFilterCollect();
        mgr().saveBgMaterialCollect();
        return QJsonDocument::fromJson(Files::read(m_fixture.collectFile(name))).object();
    }

    CatalogueFixture m_fixture;
};

namespace {

/// The favourites file of each kind; null for kinds without favourites.
const char* const fileOfKind[] = {"FilterCollect", nullptr, nullptr, "ThemeCollect",
                                  "FilterCollect", nullptr, nullptr};

void addKinds()
{
    QTest::addColumn<int>("kind");
    const char* const names[] = {"Filter",     "Transition",    "Motion", "Theme",
                                 "BgMaterial", "resource file", "6"};
    for (int kind = 0; kind < 7; ++kind)
        QTest::newRow(names[kind]) << kind;
}

SCfg_Item item(int kind, bool collected)
{
    SCfg_Item result;
    result.m_eType = ECfgItemType(kind);
    result.m_qsGUID = Files::guid(1);
    result.m_bCollected = collected;
    return result;
}

} // namespace

void tst_MVThemeMgr_themeTypes::init()
{
    m_fixture.fresh();
    Files::write(m_fixture.themeTypeFile(), "{}");
    mgr().readThemeType();
    QVERIFY(QFile::remove(m_fixture.themeTypeFile()));
}

void tst_MVThemeMgr_themeTypes::markingGoesByTheKind_data()
{
    addKinds();
}

void tst_MVThemeMgr_themeTypes::markingGoesByTheKind()
{
    QFETCH(int, kind);
    const QByteArray file = fileOfKind[kind];
    const FavouriteSignals signalled;
    const SCfg_Item marked = item(kind, true);
    mgr().setItemCollected(&marked);
    const QVector<const SCfg_Item*> once{&marked};
    const QVector<const SCfg_Item*> never;
    QCOMPARE(signalled.of(0), file == "ThemeCollect" ? once : never);
    QCOMPARE(signalled.of(1), file == "FilterCollect" ? once : never);
    QCOMPARE(signalled.of(2), never);
    for (const char* name : {"ThemeCollect", "FilterCollect", "BgMaterialCollect"})
        QCOMPARE(saved(name), file == name ? QJsonObject({{Files::guid(1), true}}) : QJsonObject());
    QCOMPARE(mgr().isItemCollect(&marked), !file.isEmpty());
}

void tst_MVThemeMgr_themeTypes::askingGoesByTheKind_data()
{
    addKinds();
}

void tst_MVThemeMgr_themeTypes::askingGoesByTheKind()
{
    QFETCH(int, kind);
    const QByteArray file = fileOfKind[kind];
    const SCfg_Item asked = item(kind, true);
    QVERIFY(!mgr().isItemCollect(&asked));
    for (const char* name : {"ThemeCollect", "FilterCollect", "BgMaterialCollect"})
        QCOMPARE(saved(name),
                 file == name ? QJsonObject({{Files::guid(1), false}}) : QJsonObject());
}

void tst_MVThemeMgr_themeTypes::codes_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("expected");
    const auto row = [](const char* key, int expected) {
        QTest::addRow("\"%s\"", key) << QString::fromLatin1(key) << expected;
    };
    row("festivals", 2);
    row("travel", 3);
    row("banquets", 4);
    row("others", 0);
    row("Travel", 0);
    row("TRAVEL", 0);
    row(" travel", 0);
    row("travels", 0);
    row("", 0);
    row("2", 0);
}

void tst_MVThemeMgr_themeTypes::codes()
{
    QFETCH(QString, key);
    QFETCH(int, expected);
    QCOMPARE(mgr().Themetype(key), expected);
}

void tst_MVThemeMgr_themeTypes::listsAreReadFromTheDownload()
{
    Files::write(m_fixture.themeTypeFile(),
                 "{\"festivals\": [\"a\", 1, true, [2], {\"k\": null}], \"travel\": [\"b\"],"
                 " \"banquets\": [], \"others\": [\"no\"]}");
    Files::write(m_fixture.themeTypeFile(Mgr::eLoadDir_Local), "{\"travel\": [\"installed\"]}");
    const LogCapture log;
    mgr().readThemeType();
    QVERIFY(log.lines().isEmpty());
    QCOMPARE(mgr().festivals(),
             (QVariantList{QStringLiteral("a"), 1.0, true, QVariantList{2.0},
                           QVariantMap{{QStringLiteral("k"), QVariant::fromValue(nullptr)}}}));
    QCOMPARE(mgr().travel(), QVariantList{QStringLiteral("b")});
    QCOMPARE(mgr().banquets(), QVariantList());

    Files::write(m_fixture.themeTypeFile(), "{\"banquets\": [3]}");
    mgr().readThemeType();
    QCOMPARE(mgr().festivals(), QVariantList());
    QCOMPARE(mgr().travel(), QVariantList());
    QCOMPARE(mgr().banquets(), QVariantList{3.0});
}

void tst_MVThemeMgr_themeTypes::installedFileIsTheFallback()
{
    Files::write(m_fixture.themeTypeFile(), "{\"travel\": [");
    Files::write(m_fixture.themeTypeFile(Mgr::eLoadDir_Local), "{\"travel\": [\"installed\"]}");
    const LogCapture log;
    mgr().readThemeType();
    QCOMPARE(m_fixture.described(log),
             QByteArrayList{m_fixture.line(1, "readThemeType_a parseJson file[%1] error!")});
    QCOMPARE(mgr().travel(), QVariantList{QStringLiteral("installed")});
}

void tst_MVThemeMgr_themeTypes::withoutAFileTheListsStay()
{
    Files::write(m_fixture.themeTypeFile(),
                 "{\"festivals\": [1], \"travel\": [2], \"banquets\": [3]}");
    mgr().readThemeType();
    QVERIFY(QDir(QFileInfo(m_fixture.themeTypeFile()).path()).removeRecursively());
    const LogCapture log;
    mgr().readThemeType();
    const QByteArray openError = m_fixture.line(1, "readThemeType open file[%1] error!");
    QCOMPARE(m_fixture.described(log), (QByteArrayList{openError, openError}));
    QCOMPARE(mgr().festivals(), QVariantList{1.0});
    QCOMPARE(mgr().travel(), QVariantList{2.0});
    QCOMPARE(mgr().banquets(), QVariantList{3.0});
}

void tst_MVThemeMgr_themeTypes::missingDownloadIsCreatedEmpty()
{
    QVERIFY(QDir().exists(QFileInfo(m_fixture.themeTypeFile()).path()));
    Files::write(m_fixture.themeTypeFile(Mgr::eLoadDir_Local), "{\"travel\": [\"installed\"]}");
    const LogCapture log;
    mgr().readThemeType();
    QCOMPARE(m_fixture.described(log),
             QByteArrayList{m_fixture.line(1, "readThemeType_a parseJson file[%1] error!")});
    QCOMPARE(mgr().travel(), QVariantList{QStringLiteral("installed")});
    QVERIFY(QFile::exists(m_fixture.themeTypeFile()));
    QCOMPARE(QFileInfo(m_fixture.themeTypeFile()).size(), Q_INT64_C(0));
}

void tst_MVThemeMgr_themeTypes::missingKeysAndNoArraysAreEmptyLists()
{
    Files::write(m_fixture.themeTypeFile(),
                 "{\"festivals\": [1], \"travel\": [2], \"banquets\": [3]}");
    mgr().readThemeType();
    Files::write(m_fixture.themeTypeFile(), "{\"festivals\": {\"0\": 1}, \"travel\": \"text\"}");
    mgr().readThemeType();
    QCOMPARE(mgr().festivals(), QVariantList());
    QCOMPARE(mgr().travel(), QVariantList());
    QCOMPARE(mgr().banquets(), QVariantList());
}

void tst_MVThemeMgr_themeTypes::readingOneFile()
{
    const QString path = m_fixture.base() + QStringLiteral("/types.json");
    QJsonObject types{{QStringLiteral("kept"), true}};
    QVERIFY(!mgr().readThemeType_a(m_fixture.base() + QStringLiteral("/no/types.json"), types));
    QVERIFY(!mgr().readThemeType_a(path, types));
    QCOMPARE(types, QJsonObject({{QStringLiteral("kept"), true}}));
    Files::write(path, "{\"a\": 1}");
    QVERIFY(mgr().readThemeType_a(path, types));
    QCOMPARE(types, QJsonObject({{QStringLiteral("a"), 1}}));
    Files::write(path, "[]");
    QVERIFY(mgr().readThemeType_a(path, types));
    QCOMPARE(types, QJsonObject());
}

MV_TEST_MAIN(tst_MVThemeMgr_themeTypes)

} // namespace tst_MVThemeMgr_themeTypes

#include "tst_MVThemeMgr_themeTypes.moc"
