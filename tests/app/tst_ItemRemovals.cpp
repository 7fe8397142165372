// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueUse.h"
#include "download/StorageWorld.h"
#include "ItemRemovals.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "WorkQueue.h"

#include <QFileInfo>
#include <QSignalSpy>

/// Tests removing items and bringing them back.
class tst_ItemRemovals : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void removedItemCanBeBroughtBack();
    void lastRemovalIsUndoneFirst();
    void nothingIsRemovedWhileADownloadWorks();
    void itemThatIsNotOnDiskLeavesNothingToUndo();
    void filesThatCameBackAreTold();
    void purgeForgetsEarlierStarts();

private:
    static ItemKey theme(int number) { return {eCfgItem_Theme, CatalogueFiles::guid(number)}; }
    void remove(const ItemKey& item);
    void undo();

    StorageWorld m_world;
    std::unique_ptr<WorkQueue> m_queue;
    std::unique_ptr<ItemRemovals> m_removals;
};

void tst_ItemRemovals::init()
{
    m_world.freshStorage();
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
    m_removals.reset();
    m_queue = std::make_unique<WorkQueue>(nullptr);
    m_removals = std::make_unique<ItemRemovals>(*m_queue, nullptr);
}

void tst_ItemRemovals::remove(const ItemKey& item)
{
    QSignalSpy spy(m_removals.get(), &ItemRemovals::removed);
    m_removals->remove(item);
    QVERIFY(!spy.isEmpty() || spy.wait());
}

void tst_ItemRemovals::undo()
{
    QSignalSpy spy(m_removals.get(), &ItemRemovals::undone);
    m_removals->undo();
    QVERIFY(spy.wait());
}

void tst_ItemRemovals::removedItemCanBeBroughtBack()
{
    const QStringList before = m_world.files();
    const qint64 bytes = m_world.content("Themes/1.xml").size() + StorageWorld::archive(1).size();
    remove(theme(1));
    QVERIFY(!m_world.files().contains(text("Themes/1.xml")));
    QVERIFY(m_removals->canUndo());
    QCOMPARE(m_removals->undoName(), text("1"));
    QCOMPARE(m_removals->undoBytes(), bytes);
    undo();
    QCOMPARE(m_world.files(), before);
    QVERIFY(!m_removals->canUndo());
}

void tst_ItemRemovals::lastRemovalIsUndoneFirst()
{
    remove(theme(1));
    remove(theme(2));
    QCOMPARE(m_removals->undoName(), text("2"));
    undo();
    QVERIFY(m_world.files().contains(text("Themes/2.xml")));
    QCOMPARE(m_removals->undoName(), text("1"));
    undo();
    QVERIFY(m_world.files().contains(text("Themes/1.xml")));
}

void tst_ItemRemovals::nothingIsRemovedWhileADownloadWorks()
{
    const QStringList before = m_world.files();
    const CatalogueUse download;
    QSignalSpy spy(m_removals.get(), &ItemRemovals::failed);
    m_removals->remove(theme(1));
    QVERIFY(spy.wait());
    QCOMPARE(spy.first().first().toString(), text("1"));
    QVERIFY(!m_removals->canUndo());
    QCOMPARE(m_world.files(), before);
}

void tst_ItemRemovals::itemThatIsNotOnDiskLeavesNothingToUndo()
{
    remove({eCfgItem_Filter, CatalogueFiles::guid(13)});
    QVERIFY(!m_removals->canUndo());
    remove(theme(99));
    QVERIFY(!m_removals->canUndo());
}

void tst_ItemRemovals::filesThatCameBackAreTold()
{
    remove(theme(1));
    CatalogueFiles::write(m_world.file("Themes/1.zip"), "newer");
    QSignalSpy spy(m_removals.get(), &ItemRemovals::undone);
    m_removals->undo();
    QVERIFY(spy.wait());
    QCOMPARE(spy.first().at(0).toString(), text("1"));
    QCOMPARE(spy.first().at(1).toBool(), false);
    QCOMPARE(m_world.content("Themes/1.zip"), QByteArray("newer"));
}

void tst_ItemRemovals::purgeForgetsEarlierStarts()
{
    remove(theme(1));
    const QString aside = m_world.downloadedFile("removed");
    QVERIFY(QFileInfo::exists(aside));
    m_removals->purge();
    QTRY_VERIFY(!QFileInfo::exists(aside));
}

MV_TEST_MAIN(tst_ItemRemovals)
#include "tst_ItemRemovals.moc"
