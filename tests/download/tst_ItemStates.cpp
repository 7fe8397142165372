// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ItemStates.h"

#include "catalogue/CatalogueUse.h"
#include "catalogue/MVThemeMgr.h"
#include "download/ResourceEvents.h"
#include "download/StorageWorld.h"
#include "support/TestMain.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>

/// Tests that states follow the files, also while a thread looks at them.
class tst_ItemStates : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.freshStorage(); }
    void fileThatChangesDuringTheFirstScanIsLookedAtAgain();
    void refusedLoadDoesNotEndTheScan();

private:
    bool hasBeenRead(const char* name) const;

    StorageWorld m_world;
};

/// The ledger tells that a file of unknown content has been read.
bool tst_ItemStates::hasBeenRead(const char* name) const
{
    return CatalogueFiles::read(m_world.downloadedFile("ledger.txt")).contains(name);
}

/// Which items use the file is unknown until the scan has reported.
void tst_ItemStates::fileThatChangesDuringTheFirstScanIsLookedAtAgain()
{
    const SCfg_Item& filter = StorageWorld::filter(13);
    const ResourceKey key{eCfgItem_Filter, filter.m_qsGUID};
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    QVERIFY(QFile::remove(m_world.downloadedFile("ledger.txt")));
    ItemStates states;
    states.watch(eCfgItem_Filter);
    // The event loop does not run meanwhile, so the report waits.
    const QDeadlineTimer limit(30000);
    while (!hasBeenRead("VideoFilters/13.zip") || !hasBeenRead("VideoFilters/13.xml")) {
        QVERIFY(!limit.hasExpired());
        QThread::msleep(1);
    }
    QVERIFY(!states.find(key));
    const QString changed = m_world.file("VideoFilters/13.zip");
    CatalogueFiles::write(changed, "short");
    ResourceEvents::instance()->tellFilesChanged({QDir::cleanPath(changed)});
    QTRY_VERIFY(!states.isExamining(eCfgItem_Filter));
    QVERIFY(states.find(key));
    QCOMPARE(states.find(key)->state.m_eState, eFile_Damaged);
    states.unwatch(eCfgItem_Filter);
}

/// It only interrupts it, and nothing has changed that would begin another one.
void tst_ItemStates::refusedLoadDoesNotEndTheScan()
{
    ItemStates states;
    states.watch(eCfgItem_Filter);
    {
        const CatalogueUse use; // as a download has
        MVThemeMgr::init()->load(true);
    }
    QTRY_VERIFY(!states.isExamining(eCfgItem_Filter));
    QVERIFY(states.find({eCfgItem_Filter, StorageWorld::filter(13).m_qsGUID}));
    states.unwatch(eCfgItem_Filter);
}

MV_TEST_MAIN(tst_ItemStates)

#include "tst_ItemStates.moc"
