// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ItemUpdate.h"
#include "download/MVThemeDownLoader.h"
#include "download/StorageWorld.h"
#include "host/CancelToken.h"
#include "host/CoreContext.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFileInfo>

#include <memory>
#include <string>
#include <utility>

namespace tst_itemUpdate {

/// Tests fetching what is not the published content: updates of items and downloads of sets.
class tst_itemUpdate : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.freshStorage(); }

    void missingThemeComesWithAllItUses();
    void currentItemNeedsNoRequest();
    void changedFileIsReplaced();
    void unchangedFilesAreNotFetched();
    void newDefinitionBringsWhatItUses();
    void definitionThatIsNoneLeavesTheOldItem();
    void damagedFileIsRepaired();
    void failedFileLeavesTheOldItem();
    void otherItemsOfTheSetAreUpdatedAllTheSame();
    void otherContentIsNotStored();
    void publishedPicturesComeAlong();
    void missingPictureIsNoFailure();
    void cancelReplacesNothingAndKeepsWhatHasArrived();
    void cancelWhileStoringLeavesTheRest();
    void cancelBeforeTheRunBeginsNothing();
    void progressNeverDecreasesAndEndsAtTheTotal();
    void sharedFileIsFetchedOnce();
    void unlistedFilesAreFetchedAsBefore();
    void withoutReleaseMissingFilesAreFetched();
    void requiredReleaseRefusesUnlistedFiles();
    void catalogueStaysMeanwhile();
    void installedFilesAreNotTouched();
    void leftoversAreRemoved();

private:
    int requestsSince(int before) const { return m_world.targets().size() - before; }
    QString arrivals() const { return m_world.downloadedFile("updates"); }

    StorageWorld m_world;
};

namespace {

const QByteArray changed("PK changed");

/// Cancels as soon as a filter's definition has been stored.
class CancellingContext : public CoreContext
{
public:
    explicit CancellingContext(CancelToken token)
        : m_token(std::move(token))
    {
    }
    void addVideoFilter(const std::wstring&) override { m_token.cancel(); }
    void addTransition(const std::wstring&) override { }
    void addMotion(const std::wstring&) override { }

private:
    CancelToken m_token;
};

} // namespace

void tst_itemUpdate::missingThemeComesWithAllItUses()
{
    SUpdateOutcome outcome = ItemUpdate().updateItem(StorageWorld::theme(1));
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Complete);
    QCOMPARE(m_world.files(),
             (QStringList{text("Themes/1.xml"), text("Themes/1.zip"), text("VideoFilters/11.xml"),
                          text("VideoFilters/11.zip"), text("VideoFilters/12.xml"),
                          text("VideoFilters/12.zip")}));
    QCOMPARE(outcome.m_nStored, 6);
    QVERIFY(StorageWorld::theme(1).parsedTheme());
    QVERIFY(!QFileInfo::exists(arrivals()));
}

void tst_itemUpdate::currentItemNeedsNoRequest()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    const int before = m_world.targets().size();
    const SUpdateOutcome outcome = ItemUpdate().updateItem(StorageWorld::theme(1));
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Complete);
    QCOMPARE(outcome.m_nStored, 0);
    // The picture of a theme that has none on the server is asked for again.
    const QByteArrayList targets = m_world.targets().mid(before);
    for (const QByteArray& target : targets)
        QVERIFY2(target.contains("display/"), target.constData());
}

void tst_itemUpdate::changedFileIsReplaced()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    m_world.change("VideoFilters/12.zip", changed);
    m_world.publishAndCheck(11);
    QCOMPARE(m_world.content("VideoFilters/12.zip"), StorageWorld::archive(12));
    const SUpdateOutcome outcome = ItemUpdate().updateItem(StorageWorld::theme(1));
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Complete);
    QCOMPARE(outcome.m_nStored, 1);
    QCOMPARE(outcome.m_nFetchedBytes, qint64(changed.size()));
    QCOMPARE(m_world.content("VideoFilters/12.zip"), changed);
}

void tst_itemUpdate::unchangedFilesAreNotFetched()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    m_world.change("VideoFilters/13.zip", changed);
    m_world.publishAndCheck(11);
    const int before = m_world.targets().size();
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    QCOMPARE(m_world.targets().mid(before), QByteArrayList{ReleaseWorld::contentTarget(changed)});
}

void tst_itemUpdate::newDefinitionBringsWhatItUses()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(2)}));
    QVERIFY(!m_world.files().contains(text("VideoFilters/13.zip")));
    m_world.change("Themes/2.xml", StorageWorld::themeConfig({12, 13}));
    m_world.publishAndCheck(11);
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(2)}));
    QVERIFY(m_world.files().contains(text("VideoFilters/13.zip")));
    QCOMPARE(m_world.content("Themes/2.xml"), StorageWorld::themeConfig({12, 13}));
    QCOMPARE(StorageWorld::theme(2).parsedTheme()->m_vecItems.size(), 2);
}

void tst_itemUpdate::definitionThatIsNoneLeavesTheOldItem()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(2)}));
    m_world.change("Themes/2.xml", "<Resource>");
    m_world.change("Themes/2.zip", changed);
    m_world.publishAndCheck(11);
    const SUpdateOutcome outcome = ItemUpdate().updateItem(StorageWorld::theme(2));
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Failed);
    QCOMPARE(outcome.m_vecFailures.first().m_eCause, eFailure_Damaged);
    QCOMPARE(m_world.content("Themes/2.xml"), StorageWorld::themeConfig({12}));
    QCOMPARE(m_world.content("Themes/2.zip"), StorageWorld::archive(2));
}

void tst_itemUpdate::damagedFileIsRepaired()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    CatalogueFiles::write(m_world.file("VideoFilters/13.zip"), "damaged");
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    QCOMPARE(m_world.content("VideoFilters/13.zip"), StorageWorld::archive(13));
}

void tst_itemUpdate::failedFileLeavesTheOldItem()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    const QByteArray config = StorageWorld::themeConfig({11});
    m_world.change("Themes/1.xml", config);
    m_world.change("Themes/1.zip", changed);
    m_world.publishAndCheck(11);
    m_world.route(ReleaseWorld::contentTarget(changed),
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(500).body("no")); });
    const SUpdateOutcome outcome = ItemUpdate().updateItem(StorageWorld::theme(1));
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Failed);
    QCOMPARE(outcome.m_vecFailures.size(), 1);
    QVERIFY(outcome.m_vecFailures.first().m_qsUrl.endsWith(text("Themes/1.zip")));
    QCOMPARE(m_world.content("Themes/1.zip"), StorageWorld::archive(1));
    QCOMPARE(m_world.content("Themes/1.xml"), StorageWorld::themeConfig({11, 12}));

    m_world.serve(ReleaseWorld::contentTarget(changed), changed);
    const int before = m_world.targets().size();
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    QVERIFY(!m_world.targets().mid(before).contains(ReleaseWorld::contentTarget(config)));
    QCOMPARE(m_world.content("Themes/1.xml"), config);
}

void tst_itemUpdate::otherItemsOfTheSetAreUpdatedAllTheSame()
{
    m_world.route(ReleaseWorld::contentTarget(StorageWorld::archive(1)),
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(500).body("no")); });
    const SUpdateOutcome outcome =
        ItemUpdate().updateItems({&StorageWorld::theme(1), nullptr, &StorageWorld::filter(13)});
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Failed);
    QCOMPARE(m_world.files(),
             (QStringList{text("VideoFilters/13.xml"), text("VideoFilters/13.zip")}));
}

void tst_itemUpdate::otherContentIsNotStored()
{
    m_world.serve(ReleaseWorld::contentTarget(StorageWorld::archive(13)), changed);
    const SUpdateOutcome outcome = ItemUpdate().updateItem(StorageWorld::filter(13));
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Failed);
    QCOMPARE(outcome.m_vecFailures.first().m_eCause, eFailure_Damaged);
    QCOMPARE(m_world.files(), QStringList());
}

void tst_itemUpdate::publishedPicturesComeAlong()
{
    m_world.put(text("display/Themes/t.jpg"), "a thumbnail");
    m_world.put(text("display/Themes/p.gif"), "a preview");
    m_world.publishAndCheck(11);
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    QCOMPARE(CatalogueFiles::read(m_world.preview("Themes", "t.jpg")), QByteArray("a thumbnail"));
    QCOMPARE(CatalogueFiles::read(m_world.preview("Themes", "p.gif")), QByteArray("a preview"));
}

void tst_itemUpdate::missingPictureIsNoFailure()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)})); // its pictures are not on the server
    hostSettings().showWithoutPreviews = false;
    QVERIFY(!StorageWorld::fetch({&StorageWorld::theme(1)}));
}

void tst_itemUpdate::cancelReplacesNothingAndKeepsWhatHasArrived()
{
    CancelToken token;
    m_world.setFault([&](HttpExchange& exchange, int) {
        if (exchange.request().target != ReleaseWorld::contentTarget(StorageWorld::archive(12)))
            return false;
        token.cancel();
        exchange.stall();
        return true;
    });
    ItemUpdate update(token);
    QCOMPARE(update.updateItem(StorageWorld::theme(1)).m_eEnd, eItemUpdate_Cancelled);
    QCOMPARE(m_world.files(), QStringList());
    QVERIFY(QFileInfo::exists(arrivals()));

    m_world.setFault({});
    const int before = m_world.targets().size();
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    QVERIFY(!m_world.targets().mid(before).contains(
        ReleaseWorld::contentTarget(StorageWorld::themeConfig({11, 12}))));
    QCOMPARE(m_world.files().size(), 6);
}

void tst_itemUpdate::cancelWhileStoringLeavesTheRest()
{
    CancelToken token;
    MVThemeDownLoader::setCoreContextPtr(std::make_shared<CancellingContext>(token));
    const SUpdateOutcome outcome = ItemUpdate(token).updateItem(StorageWorld::theme(1));
    MVThemeDownLoader::setCoreContextPtr(nullptr);
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Cancelled);
    QCOMPARE(outcome.m_nStored, 4); // the archives and a definition
    QVERIFY(!QFileInfo::exists(m_world.file("Themes/1.xml")));
}

void tst_itemUpdate::cancelBeforeTheRunBeginsNothing()
{
    CancelToken token;
    token.cancel();
    const int before = m_world.targets().size();
    ItemUpdate update(token);
    QCOMPARE(update.updateItem(StorageWorld::theme(1)).m_eEnd, eItemUpdate_Cancelled);
    QCOMPARE(requestsSince(before), 0);
}

void tst_itemUpdate::progressNeverDecreasesAndEndsAtTheTotal()
{
    qint64 last = 0;
    qint64 lastTotal = 0;
    bool grows = true;
    ItemUpdate update;
    update.setProgress([&](qint64 fetchedBytes, qint64 totalBytes) {
        grows = grows && fetchedBytes >= last && fetchedBytes <= totalBytes;
        last = fetchedBytes;
        lastTotal = totalBytes;
    });
    const SUpdateOutcome outcome = update.updateItem(StorageWorld::theme(1));
    QVERIFY(grows);
    QCOMPARE(last, outcome.m_nFetchedBytes);
    QCOMPARE(lastTotal, outcome.m_nFetchedBytes);
}

void tst_itemUpdate::sharedFileIsFetchedOnce()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::theme(2)}));
    const QByteArray target = ReleaseWorld::contentTarget(StorageWorld::archive(12));
    QCOMPARE(m_world.targets().count(target), 1);
}

void tst_itemUpdate::unlistedFilesAreFetchedAsBefore()
{
    m_world.unlist(text("config/VideoFilters/13.zip"));
    m_world.publishAndCheck(11);
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    QCOMPARE(m_world.content("VideoFilters/13.zip"), StorageWorld::archive(13));
    QVERIFY(m_world.targets().contains("/config/VideoFilters/13.zip"));
}

void tst_itemUpdate::withoutReleaseMissingFilesAreFetched()
{
    hostSettings().releasePolicy = eRelease_Ignore;
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    QCOMPARE(m_world.files().size(), 6);
    const int before = m_world.targets().size();
    m_world.change("Themes/1.zip", changed);
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1)}));
    QVERIFY(!m_world.targets().mid(before).contains("/config/Themes/1.zip"));
}

void tst_itemUpdate::requiredReleaseRefusesUnlistedFiles()
{
    m_world.unlist(text("config/VideoFilters/13.zip"));
    m_world.publishAndCheck(11);
    hostSettings().releasePolicy = eRelease_Require;
    const SUpdateOutcome outcome = ItemUpdate().updateItem(StorageWorld::filter(13));
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Failed);
    QVERIFY(!m_world.targets().contains("/config/VideoFilters/13.zip"));
    QCOMPARE(m_world.files(), QStringList());
}

void tst_itemUpdate::catalogueStaysMeanwhile()
{
    const ItemUpdate update;
    QVERIFY(!MVThemeMgr::init()->tryReload());
}

void tst_itemUpdate::installedFilesAreNotTouched()
{
    const QString installed = StorageWorld::installed("VideoFilters/13.zip");
    CatalogueFiles::write(installed, "the application's");
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    QCOMPARE(CatalogueFiles::read(installed), QByteArray("the application's"));
    QCOMPARE(m_world.files(), QStringList{text("VideoFilters/13.xml")});
}

void tst_itemUpdate::leftoversAreRemoved()
{
    CatalogueFiles::write(arrivals() + text("/left"), "x");
    ItemUpdate::removeLeftovers();
    QVERIFY(!QFileInfo::exists(arrivals()));
}

MV_TEST_MAIN(tst_itemUpdate)

} // namespace tst_itemUpdate

#include "tst_itemUpdate.moc"
