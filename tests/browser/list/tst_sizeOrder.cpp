// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/mvThemelistview.h"
#include "browser/SListFilter.h"
#include "download/StorageWorld.h"
#include "support/TestMain.h"

#include <QByteArray>

/// Tests which sizes order a list, as the release lists the files.
class tst_sizeOrder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyFileCountsOnce();

private:
    StorageWorld m_world;
};

void tst_sizeOrder::init()
{
    m_world.freshStorage();
    CatalogueFiles::write(m_world.preview("VideoFilters", "t.jpg"), BrowserWorld::thumbnail());
    CatalogueFiles::write(m_world.preview("VideoFilters", "p.gif"), BrowserWorld::animation());
}

/// Filter 13 has an outdated file and a missing one.
void tst_sizeOrder::everyFileCountsOnce()
{
    m_world.change("VideoFilters/11.zip", "PK" + QByteArray(8000, '.'));
    m_world.change("VideoFilters/13.xml", "<Filter>" + QByteArray(5000, '.') + "</Filter>");
    m_world.publishAndCheck(11);
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(11)}));
    CatalogueFiles::write(m_world.file("VideoFilters/13.xml"), QByteArray(5000, 'x'));
    ListWindow list(UIItem_Filters);
    list.fill();
    SListFilter bySize;
    bySize.order = EListOrder::Size;
    list.view()->applyFilter(bySize);
    QTRY_VERIFY(!list.view()->isLookingAtFiles());
    QCOMPARE(list.shownNames(), (QStringList{QStringLiteral("11"), QStringLiteral("13")}));
}

MV_WIDGET_TEST_MAIN(tst_sizeOrder)

#include "tst_sizeOrder.moc"
