// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "UndoAction.h"

#include "download/StorageWorld.h"
#include "ItemRemovals.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "WorkQueue.h"

#include <QSignalSpy>

#include <memory>

/// Tests that the last change is undone first, whether of the favorites or a removal.
class tst_UndoAction : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void lastChangeIsUndoneFirst();
    void favouriteIsRestoredAndNotToggled();
    void removalOfNothingIsNotUndone();
    void forgottenRemovalsAreNotUndone();

private:
    static ItemKey theme(int number) { return {eCfgItem_Theme, CatalogueFiles::guid(number)}; }
    static ItemKey missing() { return theme(99); }
    void remove(const ItemKey& item);

    StorageWorld m_world;
    std::unique_ptr<WorkQueue> m_queue;
    std::unique_ptr<ItemRemovals> m_removals;
    std::unique_ptr<UndoAction> m_action;
};

void tst_UndoAction::init()
{
    m_world.freshStorage();
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
    m_action.reset();
    m_removals.reset();
    m_queue = std::make_unique<WorkQueue>(nullptr);
    m_removals = std::make_unique<ItemRemovals>(*m_queue, nullptr);
    m_action = std::make_unique<UndoAction>(*m_removals, nullptr);
    QVERIFY(!m_action->isEnabled());
}

void tst_UndoAction::remove(const ItemKey& item)
{
    QSignalSpy spy(m_removals.get(), &ItemRemovals::removed);
    m_removals->remove(item);
    QVERIFY(!spy.isEmpty() || spy.wait());
}

/// Also by a key that is pressed again before the files of a removal are back.
void tst_UndoAction::lastChangeIsUndoneFirst()
{
    QSignalSpy favourites(m_action.get(), &UndoAction::favouriteWanted);
    QSignalSpy undone(m_removals.get(), &ItemRemovals::undone);
    remove(theme(1));
    m_action->noteFavourite(theme(3), false);
    remove(theme(2));
    m_action->trigger();
    QCOMPARE(favourites.size(), 0);
    m_action->trigger();
    QCOMPARE(favourites.size(), 1);
    QVERIFY(m_action->isEnabled());
    QVERIFY(!undone.isEmpty() || undone.wait());
    QCOMPARE(undone.first().first().toString(), text("2"));
    QVERIFY(!m_world.files().contains(text("Themes/1.xml")));
    m_action->trigger();
    QVERIFY(!m_action->isEnabled());
    QTRY_COMPARE(undone.size(), 2);
    QVERIFY(m_world.files().contains(text("Themes/1.xml")));
}

void tst_UndoAction::favouriteIsRestoredAndNotToggled()
{
    QSignalSpy favourites(m_action.get(), &UndoAction::favouriteWanted);
    m_action->noteFavourite(theme(1), true);
    m_action->noteFavourite(theme(1), false);
    m_action->trigger();
    m_action->trigger();
    QCOMPARE(favourites.size(), 2);
    QCOMPARE(favourites.at(0).at(0).value<ItemKey>(), theme(1));
    QCOMPARE(favourites.at(0).at(1).toBool(), false);
    QCOMPARE(favourites.at(1).at(1).toBool(), true);
}

void tst_UndoAction::removalOfNothingIsNotUndone()
{
    QSignalSpy favourites(m_action.get(), &UndoAction::favouriteWanted);
    remove(missing());
    QVERIFY(!m_action->isEnabled());
    m_action->noteFavourite(theme(1), false);
    remove(missing());
    m_action->trigger();
    QCOMPARE(favourites.size(), 1);
}

void tst_UndoAction::forgottenRemovalsAreNotUndone()
{
    QSignalSpy favourites(m_action.get(), &UndoAction::favouriteWanted);
    m_action->noteFavourite(theme(3), false);
    remove(theme(1));
    remove(theme(2));
    m_removals->forget();
    QVERIFY(!m_removals->canUndo());
    m_action->trigger();
    QCOMPARE(favourites.size(), 1);
    QVERIFY(!m_action->isEnabled());
    QVERIFY(!m_world.files().contains(text("Themes/1.xml")));
}

MV_WIDGET_TEST_MAIN(tst_UndoAction)
#include "tst_UndoAction.moc"
