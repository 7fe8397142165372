// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueFixture.h"
#include "ItemFacts.h"

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests the details of an item: its kind, the items it uses, its files.
class tst_ItemFacts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void kinds_data();
    void kinds();
    void themeTypes_data();
    void themeTypes();
    void filesInOrder();
    void sizesAreThoseOnDisk();
    void aFileIsListedOnce();
    void pathsAreClean();
    void previewsCountOnlyOnDisk();
    void anItemWithoutAGuidHasNoFiles();
    void usedItems();
    void filesOfUsedItemsFollow();
    void withoutThemesNothingIsUsed();
    void aConfigThatArrivesIsRead();
    void aDamagedConfigUsesNothing();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    static SCfg_Item& theme()
    {
        return *mgr().findItemByIDFromDisplay(eCfgItem_Theme, Files::guid(1));
    }
    void writeFile(const char* half, const char* kind, const char* name, int size) const;
    void writeThemeConfig() const;
    static QStringList namesOf(const ItemFacts& facts);
    static QStringList usedBy(const ItemFacts& facts);

    CatalogueFixture m_fixture;
};

namespace {

QByteArray slot(const char* name, int number)
{
    return QByteArray("<") + name + "><GUID>" + Files::guid(number).toLatin1() + "</GUID></" + name
        + '>';
}

} // namespace

/// Provides theme 1 of the group "travel" with a thumbnail and an animation but no config on disk,
/// and the items it may use: filter 2 "Sepia", filter 5, which is not shown, transition 3 and
/// motion 4.
void tst_ItemFacts::init()
{
    m_fixture.fresh();
    CatalogueFixture::setParam("hasMV", "1");
    const auto group = [](const char* kind, const QVector<Files::CfgItem>& items) {
        return Files::cfgGroup(QString::fromLatin1(kind), items);
    };
    const auto item = [](int number, const char* resource) {
        return Files::CfgItem{Files::guid(number), QString(), {QString::fromLatin1(resource)}};
    };
    Files::write(
        m_fixture.configXml(),
        Files::document(
            group("Filter", {item(2, "/VideoFilters/2.zip"), item(5, "/VideoFilters/5.zip")})
            + group("Transition", {item(3, "/Transitions/3.zip")})
            + group("Motion", {item(4, "/Motions/4.zip")})
            + group("Theme",
                    {{Files::guid(1),
                      QStringLiteral("/Themes/1.xml"),
                      {QStringLiteral("/Themes/a.zip"), QStringLiteral("/Themes/b.zip")}}})));
    Files::write(m_fixture.displayXml(),
                 Files::document(
                     Files::displayCategory(QStringLiteral("Filter"),
                                            {{Files::guid(2), QStringLiteral("Sepia"), QString()}})
                     + Files::displayThemes(
                         {{QStringLiteral("travel"),
                           {{Files::guid(1), QStringLiteral("Journey"), QStringLiteral("1.png"),
                             QStringLiteral("1.gif"), QString()}}}})));
    writeFile("display", "Themes", "1.png", 10);
    writeFile("display", "Themes", "1.gif", 200);
    mgr().load(true);
    QCOMPARE(mgr().getThemes_Display().size(), 1);
}

void tst_ItemFacts::writeFile(const char* half, const char* kind, const char* name, int size) const
{
    Files::write(m_fixture.downloaded(half, kind, QString::fromLatin1(name)),
                 QByteArray(size, 'x'));
}

/// Writes a config that uses every item, some of them several times.
void tst_ItemFacts::writeThemeConfig() const
{
    Files::write(m_fixture.downloaded("config", "Themes", QStringLiteral("1.xml")),
                 Files::document("<Item>" + slot("Transition", 3) + slot("Filter", 2) + "</Item>"
                                 + "<Item>" + slot("Filter", 2) + slot("ImageMotion", 4) + "</Item>"
                                 + "<Item_start>" + slot("Text", 2) + "</Item_start>"
                                 + "<Item_Mask>" + slot("Filter", 5) + "</Item_Mask>"));
}

QStringList tst_ItemFacts::namesOf(const ItemFacts& facts)
{
    QStringList names;
    for (const ItemFacts::File& file : facts.files())
        names.append(file.name);
    return names;
}

QStringList tst_ItemFacts::usedBy(const ItemFacts& facts)
{
    QStringList used;
    for (const ItemFacts::Used& item : facts.used())
        used.append(item.name + QStringLiteral(": ") + item.kind);
    return used;
}

void tst_ItemFacts::kinds_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    const auto row = [](ECfgItemType kind, const char* text) {
        QTest::newRow(text) << int(kind) << QString::fromLatin1(text);
    };
    row(eCfgItem_Filter, "Video filter");
    row(eCfgItem_Transition, "Transition");
    row(eCfgItem_Motion, "Motion");
    row(eCfgItem_BgMaterial, "Background");
    row(eCfgItem_Resource, "");
}

void tst_ItemFacts::kinds()
{
    QFETCH(int, kind);
    SCfg_Item item;
    item.m_eType = static_cast<ECfgItemType>(kind);
    item.m_qsGUID = Files::guid(9);
    item.m_qsName = QStringLiteral("<b>R&B</b>");
    const ItemFacts facts(item);
    QCOMPARE(facts.name(), item.m_qsName);
    QTEST(facts.kind(), "text");
}

void tst_ItemFacts::themeTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    const auto row = [](int type, const char* text) {
        QTest::newRow(text) << type << QString::fromUtf8(text);
    };
    row(mgr().Themetype(QStringLiteral("festivals")), "Theme \xc2\xb7 Festivals");
    row(mgr().Themetype(QStringLiteral("travel")), "Theme \xc2\xb7 Travel");
    row(mgr().Themetype(QStringLiteral("banquets")), "Theme \xc2\xb7 Banquets");
    row(mgr().Themetype(QStringLiteral("others")), "Theme \xc2\xb7 Others");
    QTest::newRow("unknown") << 77 << QString::fromUtf8("Theme \xc2\xb7 Others");
}

void tst_ItemFacts::themeTypes()
{
    QFETCH(int, type);
    SCfg_Item item;
    item.m_eType = eCfgItem_Theme;
    item.m_nThemeType = type;
    QTEST(ItemFacts(item).kind(), "text");
}

void tst_ItemFacts::filesInOrder()
{
    const ItemFacts facts(theme());
    QCOMPARE(namesOf(facts),
             (QStringList{QStringLiteral("1.xml"), QStringLiteral("a.zip"), QStringLiteral("b.zip"),
                          QStringLiteral("1.png"), QStringLiteral("1.gif")}));
    QCOMPARE(facts.files().at(1).path,
             m_fixture.downloaded("config", "Themes", QStringLiteral("a.zip")));
    QCOMPARE(facts.name(), QStringLiteral("Journey"));
    QVERIFY(facts.used().isEmpty());
    QStringList labels;
    for (const ItemFacts::File& file : facts.files())
        labels.append(file.label);
    QCOMPARE(labels,
             (QStringList{QStringLiteral("Definition"), QStringLiteral("Package: a"),
                          QStringLiteral("Package: b"), QStringLiteral("Picture"),
                          QStringLiteral("Animated preview")}));
}

void tst_ItemFacts::sizesAreThoseOnDisk()
{
    writeFile("config", "Themes", "b.zip", 3000);
    const ItemFacts facts(theme());
    QVector<qint64> sizes;
    QVector<bool> present;
    for (const ItemFacts::File& file : facts.files()) {
        sizes.append(file.size);
        present.append(file.present);
    }
    QCOMPARE(sizes, (QVector<qint64>{0, 0, 3000, 10, 200}));
    QCOMPARE(present, (QVector<bool>{false, false, true, true, true}));
    QCOMPARE(facts.totalSize(), qint64{3210});
}

void tst_ItemFacts::aFileIsListedOnce()
{
    SCfg_Item& item = theme();
    SFileInfo again;
    for (const char* name : {"/Themes/a.zip", "/Themes//b.zip", "/Themes/%61.zip"}) {
        again = SFileInfo();
        again.m_qsUrl = QString::fromLatin1(name);
        item.m_vecResource.append(again);
    }
    const ItemFacts facts(item);
    QCOMPARE(namesOf(facts).count(QStringLiteral("a.zip")), 1);
    QCOMPARE(namesOf(facts).count(QStringLiteral("b.zip")), 1);
}

/// Paths in the installed tree have two slashes where the config folder's name would be.
void tst_ItemFacts::pathsAreClean()
{
    const QString installed = m_fixture.installedFile("config", "Themes", QStringLiteral("a.zip"));
    QVERIFY(installed.contains(QLatin1String("//")));
    Files::write(installed, "abc");
    SCfg_Item item;
    item.m_eType = eCfgItem_Theme;
    item.m_qsGUID = Files::guid(8);
    SFileInfo resource;
    resource.m_qsUrl = QStringLiteral("a.zip");
    item.m_vecResource = {resource};
    Files::write(
        m_fixture.installedFile("config", "Themes", Files::guid(8) + QStringLiteral("/a.zip")),
        "abcd");
    const ItemFacts facts(item);
    QCOMPARE(facts.files().size(), 1);
    QCOMPARE(facts.files().at(0).path,
             QDir::cleanPath(m_fixture.installedFile("config", "Themes",
                                                     Files::guid(8) + QStringLiteral("/a.zip"))));
    QCOMPARE(facts.totalSize(), qint64{4});
}

void tst_ItemFacts::previewsCountOnlyOnDisk()
{
    const QString thumbnail = m_fixture.downloaded("display", "Themes", QStringLiteral("1.png"));
    const QString animation = m_fixture.downloaded("display", "Themes", QStringLiteral("1.gif"));
    {
        const ItemFacts facts(theme());
        QCOMPARE(facts.thumbnail(), thumbnail);
        QCOMPARE(facts.animation(), animation);
    }
    QVERIFY(QFile::remove(thumbnail) && QFile::remove(animation));
    QVERIFY(QDir().mkpath(animation)); // nor does a folder count as a preview
    const ItemFacts facts(theme());
    QCOMPARE(facts.thumbnail(), QString());
    QCOMPARE(facts.animation(), QString());
    QVERIFY(!facts.files().at(3).present);
}

void tst_ItemFacts::anItemWithoutAGuidHasNoFiles()
{
    SCfg_Item item = theme();
    item.m_qsGUID.clear();
    const ItemFacts facts(item);
    QCOMPARE(namesOf(facts), QStringList());
    QCOMPARE(facts.totalSize(), qint64{0});
    QCOMPARE(facts.thumbnail(), QString());
}

/// Expects each used item once, in the order of the theme's config, under its display name.
void tst_ItemFacts::usedItems()
{
    writeThemeConfig();
    QCOMPARE(usedBy(ItemFacts(theme())),
             (QStringList{QStringLiteral("Sepia: Video filter"),
                          Files::guid(3) + QStringLiteral(": Transition"),
                          Files::guid(4) + QStringLiteral(": Motion"),
                          Files::guid(5) + QStringLiteral(": Video filter")}));
}

void tst_ItemFacts::filesOfUsedItemsFollow()
{
    writeThemeConfig();
    writeFile("config", "Motions", "4.zip", 7000);
    const ItemFacts facts(theme());
    QCOMPARE(namesOf(facts).mid(5),
             (QStringList{QStringLiteral("2.zip"), QStringLiteral("3.zip"), QStringLiteral("4.zip"),
                          QStringLiteral("5.zip")}));
    QCOMPARE(facts.files().at(7).size, qint64{7000});
    QVERIFY(facts.totalSize() > 7210); // the config included
}

void tst_ItemFacts::withoutThemesNothingIsUsed()
{
    CatalogueFixture::setParam("hasMV", "0");
    writeThemeConfig();
    QCOMPARE(usedBy(ItemFacts(theme())), QStringList());
}

void tst_ItemFacts::aConfigThatArrivesIsRead()
{
    QCOMPARE(usedBy(ItemFacts(theme())), QStringList());
    writeThemeConfig();
    QCOMPARE(usedBy(ItemFacts(theme())).size(), 4);
}

void tst_ItemFacts::aDamagedConfigUsesNothing()
{
    Files::write(m_fixture.downloaded("config", "Themes", QStringLiteral("1.xml")), "<html><br>");
    const ItemFacts facts(theme());
    QCOMPARE(usedBy(facts), QStringList());
    QVERIFY(facts.files().at(0).present);
    QCOMPARE(facts.files().at(0).size, qint64{10});
}

MV_TEST_MAIN(tst_ItemFacts)
#include "tst_ItemFacts.moc"
