// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/BuiltinThemes.h"
#include "CatalogueFixture.h"

using Files = CatalogueFiles;

/// Tests extracting the items that ship with the application from a full resource tree.
class tst_MVThemeMgr_builtin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void wholeTree();
    void slotsDecideTheFolder_data();
    void slotsDecideTheFolder();
    void onlyTheFirstTwoThemesCount();
    void edgesOfAThemeDoNotCount();
    void missingFilesAreLeftOut();
    void definitionListsComeWithoutItems();
    void oldTreeIsRemovedFirst();
    void sourceStaysAsItIs();
    void malformedGuidIsSkipped();
    void guidThatLeadsElsewhereIsSkipped();
    void refusals_data();
    void refusals();
    void themesWithoutConfig_data();
    void themesWithoutConfig();

private:
    QString dev() const { return m_fixture.base() + QStringLiteral("/Resource"); }
    void put(const QString& name) const
    {
        Files::write(dev() + QStringLiteral("/config/") + name, name.toUtf8());
    }
    /// Creates the folder and definition of an item in the full tree.
    void putItem(const char* kind, const QString& guid) const;
    /// Makes the catalogue show these filters, and themes with these configs.
    void show(const QStringList& filters, const QVector<QByteArray>& themeConfigs) const;
    QStringList local() const { return Files::filesBelow(dev() + QStringLiteral("/config_local")); }
    static QStringList itemFiles(const char* kind, const QString& guid);

    CatalogueFixture m_fixture;
};

namespace {

constexpr int firstTheme = 100;

QByteArray dependency(const char* slot, const QString& guid)
{
    return QByteArray("<") + slot + "><GUID>" + guid.toUtf8() + "</GUID></" + slot + '>';
}

QByteArray theme(const QByteArray& slot)
{
    return Files::document("<Item>" + slot + "</Item>");
}

} // namespace

void tst_MVThemeMgr_builtin::init()
{
    m_fixture.fresh();
    CatalogueFixture::setParam("hasMV", "1");
    hostSettings().developerResourceRoot = dev();
    for (const char* name : {"VideoFilters/VideoFilters.xml", "Transitions/Transitions.xml",
                             "Motions/Motions.xml", "Themes/any.xml", "Motions/any/motion.zip"})
        put(QString::fromLatin1(name));
}

void tst_MVThemeMgr_builtin::putItem(const char* kind, const QString& guid) const
{
    const QStringList names = itemFiles(kind, guid);
    for (const QString& name : names)
        put(name);
}

QStringList tst_MVThemeMgr_builtin::itemFiles(const char* kind, const QString& guid)
{
    const QString name = QString::fromLatin1(kind) + QLatin1Char('/') + guid;
    return {name + QStringLiteral(".xml"), name + QStringLiteral("/deep/inner.png"),
            name + QStringLiteral("/item.zip")};
}

void tst_MVThemeMgr_builtin::show(const QStringList& filters,
                                  const QVector<QByteArray>& themeConfigs) const
{
    QVector<Files::CfgItem> cfgFilters;
    QVector<Files::DisplayItem> shownFilters;
    for (const QString& guid : filters) {
        cfgFilters.append({guid, QString(), {}});
        shownFilters.append({guid, QStringLiteral("f"), QStringLiteral("thumb.jpg")});
    }
    QVector<Files::CfgItem> cfgThemes;
    QVector<Files::DisplayItem> shownThemes;
    for (int i = 0; i < themeConfigs.size(); ++i) {
        const QString guid = Files::guid(firstTheme + i);
        const QString name = QStringLiteral("t%1.xml").arg(i);
        cfgThemes.append({guid, QStringLiteral("/Themes/") + name, {}});
        shownThemes.append({guid, name, QStringLiteral("thumb.jpg"), QStringLiteral("p.gif"), {}});
        Files::write(m_fixture.downloaded("config", "Themes", name), themeConfigs.at(i));
    }
    Files::write(m_fixture.configXml(),
                 Files::document(Files::cfgGroup(QStringLiteral("Filter"), cfgFilters)
                                 + Files::cfgGroup(QStringLiteral("Theme"), cfgThemes)));
    Files::write(
        m_fixture.displayXml(),
        Files::document(Files::displayCategory(QStringLiteral("Filter"), shownFilters)
                        + Files::displayThemes({{QStringLiteral("others"), shownThemes}})));
    Files::write(m_fixture.downloaded("display", "VideoFilters", QStringLiteral("thumb.jpg")), "x");
    Files::write(m_fixture.downloaded("display", "Themes", QStringLiteral("thumb.jpg")), "x");
    Files::write(m_fixture.downloaded("display", "Themes", QStringLiteral("p.gif")), "x");
    CatalogueFixture::manager().load(true);
}

void tst_MVThemeMgr_builtin::wholeTree()
{
    const QString shown = Files::guid(1);
    const QString used = Files::guid(2);
    const QString transition = Files::guid(3);
    const QString unused = Files::guid(4);
    for (const QString& guid : {shown, used, unused})
        putItem("VideoFilters", guid);
    putItem("Transitions", transition);
    putItem("Transitions", unused);
    putItem("Motions", unused);
    putItem("Themes", unused);
    show({shown},
         {theme(dependency("Filter", used) + dependency("Transition", transition)),
          theme(dependency("Filter", used) + dependency("Text", shown))});

    QString error;
    QVERIFY2(BuiltinThemes::create(&error), qPrintable(error));
    QVERIFY(error.isEmpty());
    QStringList expected{
        QStringLiteral("Motions/Motions.xml"),
        QStringLiteral("Motions/any/motion.zip"),
        QStringLiteral("Themes/any.xml"),
        QStringLiteral("Transitions/Transitions.xml"),
        QStringLiteral("VideoFilters/VideoFilters.xml"),
    };
    expected << itemFiles("VideoFilters", shown) << itemFiles("VideoFilters", used)
             << itemFiles("Transitions", transition) << itemFiles("Motions", unused)
             << itemFiles("Themes", unused);
    expected.sort();
    QCOMPARE(local(), expected);
    for (const QString& name : std::as_const(expected))
        QCOMPARE(Files::read(dev() + QStringLiteral("/config_local/") + name), name.toUtf8());
}

void tst_MVThemeMgr_builtin::slotsDecideTheFolder_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("kind"); // empty: no files of its own
    QTest::newRow("Text") << QByteArray("Text") << QByteArray("VideoFilters");
    QTest::newRow("Filter") << QByteArray("Filter") << QByteArray("VideoFilters");
    QTest::newRow("Element") << QByteArray("Element") << QByteArray("VideoFilters");
    QTest::newRow("Transition") << QByteArray("Transition") << QByteArray("Transitions");
    QTest::newRow("ImageMotion") << QByteArray("ImageMotion") << QByteArray();
}

void tst_MVThemeMgr_builtin::slotsDecideTheFolder()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, kind);
    const QString guid = Files::guid(1);
    for (const char* every : {"VideoFilters", "Transitions"})
        putItem(every, guid);
    show({}, {theme(dependency(slot.constData(), guid)), theme(QByteArray())});
    QVERIFY(BuiltinThemes::create(nullptr));
    const QStringList copied = local().filter(guid);
    QCOMPARE(copied, kind.isEmpty() ? QStringList() : itemFiles(kind.constData(), guid));
}

void tst_MVThemeMgr_builtin::onlyTheFirstTwoThemesCount()
{
    QVector<QByteArray> themes;
    for (int number = 1; number <= 3; ++number) {
        putItem("VideoFilters", Files::guid(number));
        themes.append(theme(dependency("Element", Files::guid(number))));
    }
    show({}, themes);
    QVERIFY(BuiltinThemes::create(nullptr));
    QCOMPARE(local().filter(Files::guid(1)).size(), 3);
    QCOMPARE(local().filter(Files::guid(2)).size(), 3);
    QCOMPARE(local().filter(Files::guid(3)).size(), 0);
}

void tst_MVThemeMgr_builtin::edgesOfAThemeDoNotCount()
{
    const QString guid = Files::guid(1);
    putItem("VideoFilters", guid);
    show({},
         {Files::document("<Item_start>" + dependency("Text", guid) + "</Item_start><Item_Mask>"
                          + dependency("Filter", guid) + "</Item_Mask>"),
          theme(QByteArray())});
    QVERIFY(BuiltinThemes::create(nullptr));
    QCOMPARE(local().filter(guid), QStringList());
}

void tst_MVThemeMgr_builtin::missingFilesAreLeftOut()
{
    QVERIFY(QFile::remove(dev() + QStringLiteral("/config/Transitions/Transitions.xml")));
    show({Files::guid(1), Files::guid(2)}, {theme(QByteArray()), theme(QByteArray())});
    putItem("VideoFilters", Files::guid(2));
    QVERIFY(BuiltinThemes::create(nullptr));
    QCOMPARE(local().filter(Files::guid(1)), QStringList());
    QCOMPARE(local().filter(Files::guid(2)).size(), 3);
    QVERIFY(!local().contains(QStringLiteral("Transitions/Transitions.xml")));
    QVERIFY(local().contains(QStringLiteral("VideoFilters/VideoFilters.xml")));
}

void tst_MVThemeMgr_builtin::definitionListsComeWithoutItems()
{
    show({}, {theme(QByteArray()), theme(QByteArray())});
    QVERIFY(BuiltinThemes::create(nullptr));
    QCOMPARE(local(),
             (QStringList{
                 QStringLiteral("Motions/Motions.xml"), QStringLiteral("Motions/any/motion.zip"),
                 QStringLiteral("Themes/any.xml"), QStringLiteral("Transitions/Transitions.xml"),
                 QStringLiteral("VideoFilters/VideoFilters.xml")}));
}

void tst_MVThemeMgr_builtin::oldTreeIsRemovedFirst()
{
    Files::write(dev() + QStringLiteral("/config_local/VideoFilters/old/item.zip"), "old");
    Files::write(dev() + QStringLiteral("/config_local/Motions/Motions.xml"), "old");
    show({}, {theme(QByteArray()), theme(QByteArray())});
    QVERIFY(BuiltinThemes::create(nullptr));
    QCOMPARE(local().filter(QStringLiteral("old")), QStringList());
    QCOMPARE(Files::read(dev() + QStringLiteral("/config_local/Motions/Motions.xml")),
             QByteArray("Motions/Motions.xml"));
}

void tst_MVThemeMgr_builtin::sourceStaysAsItIs()
{
    const QStringList before = Files::filesBelow(dev());
    show({Files::guid(1)}, {theme(QByteArray()), theme(QByteArray())});
    QVERIFY(BuiltinThemes::create(nullptr));
    QVERIFY(QDir(dev() + QStringLiteral("/config_local")).removeRecursively());
    QCOMPARE(Files::filesBelow(dev()), before);
}

void tst_MVThemeMgr_builtin::malformedGuidIsSkipped()
{
    const QString name = QStringLiteral("no GUID");
    putItem("VideoFilters", name);
    show({name}, {theme(dependency("Filter", name)), theme(QByteArray())});
    QCOMPARE(CatalogueFixture::manager().getFilters_Display().size(), 1);
    QVERIFY(BuiltinThemes::create(nullptr));
    QCOMPARE(local().filter(name), QStringList());
}

void tst_MVThemeMgr_builtin::guidThatLeadsElsewhereIsSkipped()
{
    const QString tail = Files::guid(1) + QStringLiteral("/../../../../secret");
    Files::write(m_fixture.base() + QStringLiteral("/secret/file"), "secret");
    putItem("VideoFilters", Files::guid(1));
    show({}, {theme(dependency("Filter", tail)), theme(QByteArray())});
    const QStringList before = Files::filesBelow(m_fixture.base());
    QVERIFY(BuiltinThemes::create(nullptr));
    QStringList after = Files::filesBelow(m_fixture.base());
    for (const QString& file : before)
        after.removeOne(file);
    for (const QString& file : std::as_const(after)) {
        QVERIFY2(file.startsWith(QStringLiteral("Resource/config_local/")), qPrintable(file));
        QVERIFY2(!file.contains(QStringLiteral("secret")), qPrintable(file));
    }
}

void tst_MVThemeMgr_builtin::refusals_data()
{
    QTest::addColumn<QString>("root"); // below the test's folder; null: not set
    QTest::addColumn<int>("themes");
    QTest::addColumn<QString>("reason"); // %1: the root
    QTest::newRow("no root") << QString() << 2
                             << QStringLiteral("no developer resource root is set");
    QTest::newRow("missing") << QStringLiteral("/nowhere") << 2
                             << QStringLiteral("no such folder: %1/config");
    QTest::newRow("config in the path")
        << QStringLiteral("/my config/Resource") << 2
        << QStringLiteral("the path of the developer resource root contains \"config\": %1");
    QTest::newRow("no theme") << QStringLiteral("/Resource") << 0
                              << QStringLiteral("the catalogue shows fewer than two themes");
    QTest::newRow("one theme") << QStringLiteral("/Resource") << 1
                               << QStringLiteral("the catalogue shows fewer than two themes");
}

void tst_MVThemeMgr_builtin::refusals()
{
    QFETCH(QString, root);
    QFETCH(int, themes);
    QFETCH(QString, reason);
    const QString own = root.isNull() ? QString() : m_fixture.base() + root;
    hostSettings().developerResourceRoot = own;
    Files::write(m_fixture.base() + QStringLiteral("/my config/Resource/config/Themes/x"), "x");
    show({}, QVector<QByteArray>(themes, theme(QByteArray())));
    const QStringList before = Files::filesBelow(m_fixture.base());
    QString error;
    QVERIFY(!BuiltinThemes::create(&error));
    QCOMPARE(error,
             own.isEmpty()                              ? reason
                 : reason.contains(QLatin1String("%1")) ? reason.arg(own)
                                                        : reason);
    QVERIFY(!BuiltinThemes::create(nullptr));
    QCOMPARE(Files::filesBelow(m_fixture.base()), before);
}

void tst_MVThemeMgr_builtin::themesWithoutConfig_data()
{
    QTest::addColumn<QByteArray>("hasMV");
    QTest::addColumn<QByteArray>("first"); // the themes' configs
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<bool>("created");
    const QByteArray whole = theme(QByteArray());
    QTest::newRow("no themes wanted") << QByteArray("0") << whole << whole << false;
    QTest::newRow("both malformed") << QByteArray("1") << QByteArray("<") << QByteArray() << false;
    QTest::newRow("one malformed") << QByteArray("1") << QByteArray("<") << whole << true;
}

/// Without a parsed config the built-in items are unknown, so the existing tree is kept.
void tst_MVThemeMgr_builtin::themesWithoutConfig()
{
    QFETCH(QByteArray, hasMV);
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(bool, created);
    CatalogueFixture::setParam("hasMV", hasMV.constData());
    const QString good = dev() + QStringLiteral("/config_local/Themes/good.xml");
    Files::write(good, "good");
    show({}, {first, second});
    QString error;
    QCOMPARE(BuiltinThemes::create(&error), created);
    QCOMPARE(error.contains(QStringLiteral("neither of the first two themes")), !created);
    QCOMPARE(Files::read(good), created ? QByteArray() : QByteArray("good"));
}

MV_TEST_MAIN(tst_MVThemeMgr_builtin)

#include "tst_MVThemeMgr_builtin.moc"
