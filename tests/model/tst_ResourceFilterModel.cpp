// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/PreviewExchange.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "model/ResourceFilterModel.h"
#include "ModelWatch.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QLocale>
#include <QMetaProperty>
#include <QSignalSpy>

#include <memory>

/// Tests searching, filtering and sorting, and that the rows follow the source.
class tst_ResourceFilterModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsWithEverything();
    void searchFindsWords_data();
    void searchFindsWords();
    void themeTypeIsFiltered();
    void favouritesAreFiltered();
    void readyItemsAreFiltered();
    void outdatedItemsStayWhileTheyAreUpdated();
    void conditionsCombine();
    void order_data();
    void order();
    void orderFollowsTheCatalogue_data();
    void orderFollowsTheCatalogue();
    void sizeOrdersByBytes();
    void propertiesTellTheirChanges();
    void shownRowsAreThoseOfTheFilter();
    void worksWithoutASource();

private:
    struct Theme
    {
        int number;
        const char* name;
        const char* type = "others";
    };
    void load(const QVector<Theme>& themes);
    QStringList names() const;
    static QString guid(int number) { return CatalogueFiles::guid(number); }

    StorageWorld m_world;
    std::unique_ptr<ResourceModel> m_source;
    std::unique_ptr<ResourceFilterModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void tst_ResourceFilterModel::init()
{
    m_world.freshStorage();
    hostSettings().downloadStepMs = 0;
    m_source = std::make_unique<ResourceModel>();
    m_model = std::make_unique<ResourceFilterModel>();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    m_model->setSourceModel(m_source.get());
}

void tst_ResourceFilterModel::cleanup()
{
    m_tester.reset();
    m_model.reset();
    m_source.reset();
    QLocale::setDefault(QLocale::c());
}

/// Shows these themes, in the order of their groups.
void tst_ResourceFilterModel::load(const QVector<Theme>& themes)
{
    QVector<CatalogueFiles::CfgItem> items;
    QVector<CatalogueFiles::ThemeGroup> groups;
    for (const Theme& theme : themes) {
        items.append({guid(theme.number), QString(), {}});
        const QString type = QString::fromLatin1(theme.type);
        if (groups.isEmpty() || groups.constLast().type != type)
            groups.append({type, {}});
        groups.last().items.append({guid(theme.number), QString::fromUtf8(theme.name), QString()});
    }
    MVThemeMgr* const manager = MVThemeMgr::init();
    CatalogueFiles::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config),
        CatalogueFiles::document(CatalogueFiles::cfgGroup(QStringLiteral("Theme"), items)));
    CatalogueFiles::write(
        manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Display),
        CatalogueFiles::document(CatalogueFiles::displayThemes(groups)));
    manager->load(true);
}

QStringList tst_ResourceFilterModel::names() const
{
    QStringList names;
    for (int row = 0; row < m_model->rowCount(); ++row)
        names.append(m_model->index(row, 0).data(ResourceModel::NameRole).toString());
    return names;
}

void tst_ResourceFilterModel::startsWithEverything()
{
    load({{1, "One"}, {2, "Two", "travel"}});
    QCOMPARE(names(), (QStringList{text("One"), text("Two")}));
    QCOMPARE(m_model->rowOf(guid(2)), 1);
    QCOMPARE(m_model->rowOf(guid(9)), -1);
}

void tst_ResourceFilterModel::searchFindsWords_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("empty") << QString()
                           << QStringList{text("Noël sous la Neige"), text("Winter Night")};
    QTest::newRow("words in any order, no accents")
        << text("neige NOEL") << QStringList{text("Noël sous la Neige")};
    QTest::newRow("part of a word") << text("nigh") << QStringList{text("Winter Night")};
    QTest::newRow("one word is missing") << text("winter noel") << QStringList{};
}

void tst_ResourceFilterModel::searchFindsWords()
{
    QFETCH(QString, search);
    QFETCH(QStringList, found);
    load({{1, "Noël sous la Neige"}, {2, "Winter Night"}});
    m_model->setSearchText(search);
    QCOMPARE(names(), found);
    m_model->setSearchText(QString());
    QCOMPARE(m_model->count(), 2);
}

void tst_ResourceFilterModel::themeTypeIsFiltered()
{
    load({{1, "One"}, {2, "Two", "travel"}, {3, "Three", "festivals"}});
    m_model->setThemeType(3);
    QCOMPARE(names(), QStringList{text("Two")});
    m_model->setThemeType(0);
    QCOMPARE(names(), QStringList{text("One")});
    load({{2, "Two"}, {1, "One"}}); // the type of an item may change
    QCOMPARE(names(), (QStringList{text("Two"), text("One")}));
    m_model->setThemeType(ResourceFilterModel::AllThemeTypes);
    QCOMPARE(m_model->count(), 2);
}

void tst_ResourceFilterModel::favouritesAreFiltered()
{
    load({{1, "One"}, {2, "Two"}});
    m_model->setFavouritesOnly(true);
    QCOMPARE(names(), QStringList());
    m_source->setFavourite(guid(2), true);
    QCOMPARE(names(), QStringList{text("Two")});
    m_source->setFavourite(guid(2), false);
    QCOMPARE(names(), QStringList());
}

void tst_ResourceFilterModel::readyItemsAreFiltered()
{
    m_model->setReadyOnly(true);
    EXAMINED(*m_source);
    QCOMPARE(m_model->count(), 0);
    QVERIFY(m_source->fetch(guid(2)));
    QTRY_COMPARE(m_model->rowOf(guid(2)), 0);
    QVERIFY(m_source->remove(guid(2)));
    QTRY_COMPARE(m_model->count(), 0);
}

void tst_ResourceFilterModel::outdatedItemsStayWhileTheyAreUpdated()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
    m_model->setOutdatedOnly(true);
    m_world.change("Themes/2.zip", "PK changed");
    m_world.publishAndCheck(11);
    QTRY_COMPARE(m_model->count(), 1);
    QCOMPARE(m_model->rowOf(guid(2)), 0);
    QVERIFY(m_source->update(guid(2)));
    QCOMPARE(m_model->rowOf(guid(2)), 0);
    QCOMPARE(m_model->index(0, 0).data(ResourceModel::StateRole).toInt(),
             int(ResourceModel::Updating));
    QTRY_COMPARE(m_model->count(), 0);
}

void tst_ResourceFilterModel::conditionsCombine()
{
    load({{1, "Winter", "travel"}, {2, "Winter night"}, {3, "Summer night"}});
    m_model->setSearchText(text("winter"));
    m_model->setThemeType(0);
    QCOMPARE(names(), QStringList{text("Winter night")});
    m_model->setFavouritesOnly(true);
    QCOMPARE(names(), QStringList());
}

void tst_ResourceFilterModel::order_data()
{
    using Model = ResourceFilterModel;
    QTest::addColumn<Model::Order>("order");
    QTest::addColumn<QStringList>("expected");
    const QStringList published{text("Zoo 10"), text("Zoo 9"), text("Über"), text("apple"),
                                text("Uhr")};
    QTest::newRow("published") << Model::Published << published;
    QTest::newRow("name") << Model::Name
                          << QStringList{text("apple"), text("Über"), text("Uhr"), text("Zoo 9"),
                                         text("Zoo 10")};
    QTest::newRow("newest") << Model::Newest
                            << QStringList{text("Uhr"), text("apple"), text("Über"), text("Zoo 9"),
                                           text("Zoo 10")};
}

void tst_ResourceFilterModel::order()
{
    QFETCH(ResourceFilterModel::Order, order);
    QFETCH(QStringList, expected);
    QLocale::setDefault(QLocale(QLocale::German));
    load({{1, "Zoo 10"}, {2, "Zoo 9"}, {3, "Über"}, {4, "apple"}, {5, "Uhr"}});
    for (const auto before : {ResourceFilterModel::Published, ResourceFilterModel::Name,
                              ResourceFilterModel::Newest, ResourceFilterModel::Size}) {
        m_model->setOrder(before);
        m_model->setOrder(order);
        QCOMPARE(names(), expected);
    }
}

void tst_ResourceFilterModel::orderFollowsTheCatalogue_data()
{
    using Model = ResourceFilterModel;
    QTest::addColumn<Model::Order>("order");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("published") << Model::Published
                               << QStringList{text("d"), text("c"), text("x"), text("b")};
    QTest::newRow("name") << Model::Name << QStringList{text("b"), text("c"), text("d"), text("x")};
    QTest::newRow("newest") << Model::Newest
                            << QStringList{text("b"), text("x"), text("c"), text("d")};
}

/// Items come, go and move, and one is renamed.
void tst_ResourceFilterModel::orderFollowsTheCatalogue()
{
    QFETCH(ResourceFilterModel::Order, order);
    QFETCH(QStringList, expected);
    load({{1, "a"}, {2, "b"}, {3, "c"}, {4, "0"}});
    m_model->setOrder(order);
    load({{4, "d"}, {3, "c"}, {5, "x"}, {2, "b"}});
    QCOMPARE(names(), expected);
}

void tst_ResourceFilterModel::sizeOrdersByBytes()
{
    m_world.change("Themes/1.zip", "PK" + QByteArray(1000, '.'));
    m_world.publishAndCheck(11);
    EXAMINED(*m_source);
    m_model->setOrder(ResourceFilterModel::Size);
    QCOMPARE(m_model->rowOf(guid(1)), 1);
    m_world.change("Themes/2.zip", "PK" + QByteArray(100000, '.'));
    m_world.publishAndCheck(12);
    QTRY_COMPARE(m_model->rowOf(guid(1)), 0);
}

void tst_ResourceFilterModel::propertiesTellTheirChanges()
{
    for (const char* name :
         {"searchText", "themeType", "favouritesOnly", "readyOnly", "outdatedOnly", "order"}) {
        const QMetaProperty property =
            m_model->metaObject()->property(m_model->metaObject()->indexOfProperty(name));
        QVERIFY2(property.hasNotifySignal(), name);
        QSignalSpy changed(m_model.get(), property.notifySignal());
        const QVariant next =
            property.userType() == QMetaType::QString ? QVariant(text("x")) : QVariant(1);
        QVERIFY2(m_model->setProperty(name, next), name);
        QVERIFY2(m_model->setProperty(name, next), name);
        QCOMPARE(changed.count(), 1);
    }
    QSignalSpy counted(m_model.get(), &ResourceFilterModel::countChanged);
    load({{7, "xenon", "travel"}});
    QCOMPARE(counted.count(), 0); // filtered out
    for (const char* name : {"favouritesOnly", "readyOnly", "outdatedOnly"})
        QVERIFY(m_model->setProperty(name, false));
    m_model->setThemeType(3);
    QCOMPARE(counted.count(), 1);
    QCOMPARE(m_model->count(), 1);
}

void tst_ResourceFilterModel::shownRowsAreThoseOfTheFilter()
{
    load({{1, "a"}, {2, "b"}, {3, "c"}});
    m_model->setOrder(ResourceFilterModel::Newest);
    m_model->showRows(0, 2);
    quint64 generation = 0;
    QCOMPARE(PreviewExchange::instance()->shown(generation), (QStringList{guid(3), guid(2)}));
    m_model->showRows(1, 99);
    QCOMPARE(PreviewExchange::instance()->shown(generation), (QStringList{guid(2), guid(1)}));
    m_model->showRows(-1, 2);
    QCOMPARE(PreviewExchange::instance()->shown(generation), QStringList{guid(3)});
}

void tst_ResourceFilterModel::worksWithoutASource()
{
    ResourceFilterModel model;
    model.setSearchText(text("x"));
    model.setOrder(ResourceFilterModel::Name);
    model.showRows(0, 1);
    QCOMPARE(model.rowOf(guid(1)), -1);
    QCOMPARE(model.count(), 0);
}

MV_TEST_MAIN(tst_ResourceFilterModel)
#include "tst_ResourceFilterModel.moc"
