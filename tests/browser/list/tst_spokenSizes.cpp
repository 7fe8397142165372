// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/mvThemelistview.h"
#include "download/StorageWorld.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QApplication>
#include <QLocale>

#include <memory>

/// Tests that assistive technology reads how much a download fetches, as the release lists it.
class tst_spokenSizes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void init();
    void readsTheSize_data();
    void readsTheSize();
    void readsTheLeastOfAnUnreadTheme();
    void readsWhatOneFileFetches();

private:
    static QString spoken(EUIItemType type, int row);

    StorageWorld m_world;
};

void tst_spokenSizes::init()
{
    m_world.freshStorage();
    for (const char* const kind : {"Themes", "VideoFilters"}) {
        CatalogueFiles::write(m_world.preview(kind, "t.jpg"), BrowserWorld::thumbnail());
        CatalogueFiles::write(m_world.preview(kind, "p.gif"), BrowserWorld::animation());
    }
}

QString tst_spokenSizes::spoken(EUIItemType type, int row)
{
    ListWindow list(type);
    list.fill();
    return QAccessible::queryAccessibleInterface(list.view())->child(row)->text(QAccessible::Name);
}

void tst_spokenSizes::readsTheSize_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("size");
    QTest::newRow("bytes") << 999 << QStringLiteral("999 bytes");
    QTest::newRow("one unit") << 1000 << QStringLiteral("1.0 kB");
    QTest::newRow("few units have a decimal") << 9940 << QStringLiteral("9.9 kB");
    QTest::newRow("many units have none") << 10400 << QStringLiteral("10 kB");
    QTest::newRow("larger units") << 1'234'000 << QStringLiteral("1.2 MB");
}

void tst_spokenSizes::readsTheSize()
{
    QFETCH(int, bytes);
    QFETCH(QString, size);
    const int definition = int(QByteArray("<Filter>13</Filter>").size());
    m_world.change("VideoFilters/13.zip", "PK" + QByteArray(bytes - definition - 2, '.'));
    m_world.publishAndCheck(11);
    QCOMPARE(spoken(UIItem_Filters, 1), QStringLiteral("13, not downloaded, %1, 2 of 2").arg(size));
}

/// Its definition tells what else it uses.
void tst_spokenSizes::readsTheLeastOfAnUnreadTheme()
{
    const auto bytes = StorageWorld::themeConfig({12}).size() + StorageWorld::archive(2).size();
    QCOMPARE(spoken(UIItem_Themes, 1),
             QStringLiteral("2, not downloaded, at least %1 bytes, 2 of 2").arg(bytes));
}

void tst_spokenSizes::readsWhatOneFileFetches()
{
    CatalogueFiles::write(m_world.file("VideoFilters/13.xml"), "<Filter>13</Filter>");
    QCOMPARE(spoken(UIItem_Filters, 1),
             QStringLiteral("13, not downloaded, %1 bytes, 2 of 2")
                 .arg(StorageWorld::archive(13).size()));
}

MV_WIDGET_TEST_MAIN(tst_spokenSizes)

#include "tst_spokenSizes.moc"
