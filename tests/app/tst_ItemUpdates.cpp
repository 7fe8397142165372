// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueUse.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "ItemUpdates.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QFile>
#include <QPair>
#include <QSignalSpy>
#include <QVector>

#include <atomic>

/// Tests the states that the editor tells, and updates, on a server with releases.
class tst_ItemUpdates : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void nothingIsKnownBeforeTheFirstLook();
    void currentItemsHaveTheirSizes();
    void outdatedAndDamagedItemsCanBeUpdated();
    void itemThatIsNotOnDiskIsReportedWhileWatched();
    void watchedItemThatDoesNotExistHasNoReport();
    void filesAreReadOnAnotherThread();
    void updateFetchesWhatChanged();
    void oneUpdateAtATime();
    void cancelledUpdateReplacesNothing();
    void failureIsTold();
    void progressEndsAtTheTotal();
    void catalogueIsReloadedAfterTheUpdateOnly();
    void lookGivesWayToAReload();
    void lackCountsSharedFilesOnce();
    void lackTellsItemsApart();
    void sizeOfAnUnreadThemeIsNotKnown();
    void shutDownEndsAnUpdate();

private:
    static ItemKey theme(int number) { return {eCfgItem_Theme, CatalogueFiles::guid(number)}; }
    static ItemKey filter(int number) { return {eCfgItem_Filter, CatalogueFiles::guid(number)}; }
    void look();
    /// Returns the report of an item; without one its state is none.
    ItemUpdates::Report reported(const ItemKey& item) const;
    SUpdateOutcome update(const QVector<ItemKey>& items);
    ItemUpdates::Lack lack(const QVector<ItemKey>& items);
    void stallContent(const QByteArray& content);

    StorageWorld m_world;
    std::unique_ptr<ItemUpdates> m_updates;
    SUpdateOutcome m_outcome; // the last one
    ItemUpdates::Lack m_lack;
    int m_endings = 0; // of updates and examinations
    QVector<QPair<qint64, qint64>> m_progress;
};

namespace {

const QByteArray changed = "PK another archive";

} // namespace

void tst_ItemUpdates::init()
{
    m_world.freshStorage();
    m_updates = std::make_unique<ItemUpdates>();
    m_outcome = SUpdateOutcome();
    m_lack = ItemUpdates::Lack();
    m_endings = 0;
    m_progress.clear();
    connect(m_updates.get(), &ItemUpdates::updateEnded, this,
            [this](const SUpdateOutcome& outcome) {
                m_outcome = outcome;
                ++m_endings;
            });
    connect(m_updates.get(), &ItemUpdates::examined, this, [this](const ItemUpdates::Lack& lack) {
        m_lack = lack;
        ++m_endings;
    });
    connect(m_updates.get(), &ItemUpdates::progressed, this, [this](qint64 fetched, qint64 total) {
        m_progress.append({fetched, total});
    });
}

void tst_ItemUpdates::cleanup()
{
    m_updates.reset();
    m_world.setFault({});
}

void tst_ItemUpdates::look()
{
    QSignalSpy spy(m_updates.get(), &ItemUpdates::reportsChanged);
    m_updates->refresh();
    QVERIFY(spy.wait());
}

ItemUpdates::Report tst_ItemUpdates::reported(const ItemKey& item) const
{
    ItemUpdates::Report none;
    none.state.m_eState = static_cast<EFileState>(-1);
    return m_updates->report(item).value_or(none);
}

SUpdateOutcome tst_ItemUpdates::update(const QVector<ItemKey>& items)
{
    m_endings = 0;
    if (!m_updates->update(items) || !QTest::qWaitFor([this] { return m_endings > 0; }))
        qFatal("no update");
    return m_outcome;
}

ItemUpdates::Lack tst_ItemUpdates::lack(const QVector<ItemKey>& items)
{
    m_endings = 0;
    m_updates->examine(items);
    if (!QTest::qWaitFor([this] { return m_endings > 0; }))
        qFatal("not examined");
    return m_lack;
}

/// Lets the request for a content stall.
void tst_ItemUpdates::stallContent(const QByteArray& content)
{
    m_world.setFault([content](HttpExchange& exchange, int) {
        if (exchange.request().target != ReleaseWorld::contentTarget(content))
            return false;
        exchange.stall();
        return true;
    });
}

void tst_ItemUpdates::nothingIsKnownBeforeTheFirstLook()
{
    QVERIFY(!m_updates->report(theme(1)));
    QVERIFY(m_updates->updatable().isEmpty());
}

void tst_ItemUpdates::currentItemsHaveTheirSizes()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
    look();
    const ItemUpdates::Report report = reported(theme(1));
    QCOMPARE(report.state.m_eState, eFile_Current);
    QCOMPARE(report.ownBytes,
             qint64(m_world.content("Themes/1.xml").size() + StorageWorld::archive(1).size()));
    QVERIFY(report.sharedBytes > 0);
    QVERIFY(!m_updates->report(filter(13)));
    QVERIFY(m_updates->updatable().isEmpty());
}

void tst_ItemUpdates::outdatedAndDamagedItemsCanBeUpdated()
{
    QVERIFY(StorageWorld::fetch(
        {&StorageWorld::theme(1), &StorageWorld::theme(2), &StorageWorld::filter(13)}));
    m_world.change("Themes/1.zip", changed);
    m_world.publishAndCheck(11);
    CatalogueFiles::write(m_world.file("VideoFilters/13.zip"), "PK something else");
    look();
    QCOMPARE(m_updates->updatable(), (QVector<ItemKey>{filter(13), theme(1)}));
    QCOMPARE(reported(theme(1)).state.m_eState, eFile_Outdated);
    QCOMPARE(reported(theme(1)).state.m_nBytesToFetch, qint64(changed.size()));
    QCOMPARE(reported(filter(13)).state.m_eState, eFile_Damaged);
    QCOMPARE(reported(theme(2)).state.m_eState, eFile_Current);
}

void tst_ItemUpdates::itemThatIsNotOnDiskIsReportedWhileWatched()
{
    const QSignalSpy spy(m_updates.get(), &ItemUpdates::reportsChanged);
    m_updates->watch(filter(13));
    QTRY_VERIFY(m_updates->report(filter(13)));
    QCOMPARE(reported(filter(13)).state.m_eState, eFile_Missing);
    QCOMPARE(spy.count(), 1);
    look();
    QVERIFY(m_updates->report(filter(13)));
    m_updates->watch({});
    look();
    QVERIFY(!m_updates->report(filter(13)));
}

void tst_ItemUpdates::watchedItemThatDoesNotExistHasNoReport()
{
    m_updates->watch(theme(99));
    look();
    QVERIFY(!m_updates->report(theme(99)));
}

void tst_ItemUpdates::filesAreReadOnAnotherThread()
{
    m_updates->refresh();
    QCOMPARE(CatalogueUse::count(), 1);
    QVERIFY(m_updates->updatable().isEmpty()); // nothing changes before the event loop runs
    QTRY_COMPARE(CatalogueUse::count(), 0);
}

void tst_ItemUpdates::updateFetchesWhatChanged()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    m_world.change("Themes/1.zip", changed);
    m_world.publishAndCheck(11);
    look();
    const SUpdateOutcome outcome = update(m_updates->updatable());
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Complete);
    QCOMPARE(outcome.m_nStored, 1);
    QCOMPARE(m_world.content("Themes/1.zip"), changed);
    QTRY_VERIFY(m_updates->updatable().isEmpty()); // it looks again by itself
}

void tst_ItemUpdates::oneUpdateAtATime()
{
    QVERIFY(!m_updates->update({theme(99)}));
    stallContent(StorageWorld::archive(13));
    QVERIFY(m_updates->update({filter(13)}));
    QVERIFY(m_updates->isUpdating());
    QVERIFY(!m_updates->update({theme(1)}));
    QCOMPARE(m_updates->updatedItems(), QVector<ItemKey>{filter(13)});
    m_updates->cancel();
    QTRY_VERIFY(!m_updates->isUpdating());
}

void tst_ItemUpdates::cancelledUpdateReplacesNothing()
{
    std::atomic<bool> isStalled{false};
    m_world.setFault([&](HttpExchange& exchange, int) {
        if (exchange.request().target != ReleaseWorld::contentTarget(StorageWorld::archive(13)))
            return false;
        isStalled = true;
        exchange.stall();
        return true;
    });
    QVERIFY(m_updates->update({filter(13)}));
    QTRY_VERIFY(isStalled);
    m_updates->cancel();
    QTRY_COMPARE(m_endings, 1);
    QCOMPARE(m_outcome.m_eEnd, eItemUpdate_Cancelled);
    QCOMPARE(m_world.files(), QStringList());
}

void tst_ItemUpdates::failureIsTold()
{
    m_world.route(ReleaseWorld::contentTarget(StorageWorld::archive(13)),
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(500).body("no")); });
    const SUpdateOutcome outcome = update({filter(13)});
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Failed);
    QCOMPARE(outcome.m_vecFailures.first().m_eCause, eFailure_ServerError);
}

void tst_ItemUpdates::progressEndsAtTheTotal()
{
    const SUpdateOutcome outcome = update({theme(1)});
    QVERIFY(!m_progress.isEmpty());
    for (const auto& step : qAsConst(m_progress))
        QVERIFY(step.first <= step.second);
    QCOMPARE(m_progress.last().first, outcome.m_nFetchedBytes);
    QCOMPARE(m_progress.last().second, outcome.m_nFetchedBytes);
}

void tst_ItemUpdates::catalogueIsReloadedAfterTheUpdateOnly()
{
    stallContent(StorageWorld::archive(13));
    QVERIFY(m_updates->update({filter(13)}));
    bool isReloaded = false;
    m_updates->queue().runAlone([&] { isReloaded = MVThemeMgr::init()->tryReload(); });
    QVERIFY(!isReloaded);
    QVERIFY(!MVThemeMgr::init()->tryReload());
    m_updates->cancel();
    QTRY_VERIFY(isReloaded);
}

void tst_ItemUpdates::lookGivesWayToAReload()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    m_updates->refresh();
    bool isReloaded = false;
    m_updates->queue().runAlone([&] { isReloaded = MVThemeMgr::init()->tryReload(); });
    QVERIFY(!isReloaded);
    QTRY_VERIFY(isReloaded);
    QTRY_VERIFY(m_updates->report(theme(1))); // and is made up for
}

void tst_ItemUpdates::lackCountsSharedFilesOnce()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
    QVERIFY(QFile::remove(m_world.file("VideoFilters/12.zip"))); // of both themes
    const ItemUpdates::Lack found = lack({theme(1), theme(2)});
    QCOMPARE(found.missing.size(), 2);
    QCOMPARE(found.bytes, qint64(StorageWorld::archive(12).size()));
}

void tst_ItemUpdates::lackTellsItemsApart()
{
    const QByteArray picture = "a picture";
    m_world.put(text("display/VideoFilters/t.jpg"), picture);
    m_world.publishAndCheck(11);
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
    const ItemUpdates::Lack found = lack({theme(2), filter(13), theme(99), theme(1)});
    QCOMPARE(found.ready, (QVector<ItemKey>{theme(2), theme(1)}));
    QCOMPARE(found.missing, QVector<ItemKey>{filter(13)});
    QVERIFY(found.areBytesKnown);
    const QByteArray definition = "<Filter>13</Filter>";
    QCOMPARE(found.bytes,
             qint64(StorageWorld::archive(13).size() + definition.size() + picture.size()));
}

void tst_ItemUpdates::sizeOfAnUnreadThemeIsNotKnown()
{
    const ItemUpdates::Lack found = lack({theme(1)});
    QCOMPARE(found.missing, QVector<ItemKey>{theme(1)});
    QVERIFY(found.bytes > 0);
    QVERIFY(!found.areBytesKnown);
}

void tst_ItemUpdates::shutDownEndsAnUpdate()
{
    stallContent(StorageWorld::archive(13));
    QVERIFY(m_updates->update({filter(13)}));
    QCOMPARE(CatalogueUse::count(), 1);
    m_updates->shutDown();
    QCOMPARE(CatalogueUse::count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(m_endings, 0);
    m_updates->refresh();
    QCOMPARE(CatalogueUse::count(), 0);
}

MV_TEST_MAIN(tst_ItemUpdates)
#include "tst_ItemUpdates.moc"
