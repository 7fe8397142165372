// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/HeldAnswer.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "model/ResourceCatalogue.h"
#include "ModelWatch.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>

#include <algorithm>

using Mark = void (MVThemeMgr::*)(const SCfg_Item*);
using FilePath = QString (MVThemeMgr::*)();
Q_DECLARE_METATYPE(Mark)
Q_DECLARE_METATYPE(FilePath)

/// Tests opening, checking and reloading with signals alone.
class tst_ResourceCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.freshStorage();
        hostSettings().downloadStepMs = 0;
        hostSettings().transfersSideBySide = 6;
        hostSettings().downloadRetries = 0;
    }

    void openShowsWhatIsOnDisk();
    void checkLoadsNewContent();
    void progressIsTheShareOfTheFiles();
    void failedCheckTellsTheReason();
    void cancelEndsTheCheck();
    void spreadCheckWaitsUntilItIsCancelled();
    void reloadWaitsForTheDownloadOfAnother();
    void favouritesAreSaved();
    void favouritesOfEveryKindAreSaved_data();
    void favouritesOfEveryKindAreSaved();
    void favouritesThatCannotBeSavedAreTold();
    void favouritesSurviveAReload();

private:
    static QString guid(int number) { return CatalogueFiles::guid(number); }
    StorageWorld m_world;
};

void tst_ResourceCatalogue::openShowsWhatIsOnDisk()
{
    MVThemeMgr::init()->clear();
    ResourceCatalogue catalogue;
    const ResourceModel model;
    QVERIFY(catalogue.open(m_world.root()));
    QCOMPARE(model.count(), 2);
    QVERIFY(!catalogue.isBusy());
    QCOMPARE(catalogue.progress(), -1);
    QVERIFY(!catalogue.open(home("empty")));
    QCOMPARE(model.count(), 0);
}

void tst_ResourceCatalogue::checkLoadsNewContent()
{
    ResourceCatalogue catalogue;
    QVERIFY(!catalogue.open(home("fresh")));
    ResourceModel model;
    const ModelWatch watch(model);
    QSignalSpy reloaded(&catalogue, &ResourceCatalogue::reloaded);
    QVector<int> phases;
    connect(&catalogue, &ResourceCatalogue::phaseChanged, this,
            [&] { phases.append(catalogue.phase()); });
    QString reason;
    int outcome = -1;
    int shown = 0;
    connect(&catalogue, &ResourceCatalogue::checkEnded, this,
            [&](ResourceCatalogue::Outcome end, const QString& why) {
                outcome = end;
                reason = why;
                shown = model.count();
            });
    QVERIFY(catalogue.check());
    QVERIFY(!catalogue.check());
    QTRY_VERIFY(outcome >= 0);
    QCOMPARE(shown, 2);
    QCOMPARE(reloaded.count(), 1);
    QCOMPARE(outcome, int(ResourceCatalogue::PreviewsMissing)); // the server has none
    QVERIFY(!reason.isEmpty());
    QCOMPARE(phases,
             (QVector<int>{ResourceCatalogue::Checking, ResourceCatalogue::FetchingPreviews,
                           ResourceCatalogue::Idle}));
    // And from there a theme, with signals alone.
    QVERIFY(model.fetch(guid(1)));
    QTRY_COMPARE(watch.ends(), QStringList{text("fetched 1 complete")});
}

/// Themes 1 and 2 and filters 11 and 13 share one picture and one preview by folder.
void tst_ResourceCatalogue::progressIsTheShareOfTheFiles()
{
    for (const char* target : {"/display/Themes/t.jpg", "/display/Themes/p.gif",
                               "/display/VideoFilters/t.jpg", "/display/VideoFilters/p.gif"})
        m_world.serve(target, "picture");
    ResourceCatalogue catalogue;
    ResourceCatalogue::Outcome outcome = ResourceCatalogue::Failed;
    QVector<int> percents;
    int last = -1;
    bool isOver = false;
    connect(&catalogue, &ResourceCatalogue::progressChanged, this, [&] {
        if (catalogue.progress() >= 0)
            percents.append(catalogue.progress());
        last = catalogue.progress();
    });
    connect(&catalogue, &ResourceCatalogue::checkEnded, this,
            [&](ResourceCatalogue::Outcome end, const QString& reason) {
                outcome = end;
                isOver = reason.isEmpty();
            });
    QVERIFY(catalogue.check());
    QTRY_VERIFY(isOver);
    QCOMPARE(outcome, ResourceCatalogue::Complete);
    QVERIFY(!percents.isEmpty());
    QVERIFY(std::is_sorted(percents.cbegin(), percents.cend()));
    QCOMPARE(percents.constLast(), 100);
    QCOMPARE(last, -1); // no file is being fetched any more
}

void tst_ResourceCatalogue::failedCheckTellsTheReason()
{
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.answer(HttpAnswer(500).body("no"));
        return true;
    });
    ResourceCatalogue catalogue;
    QSignalSpy ended(&catalogue, &ResourceCatalogue::checkEnded);
    QVERIFY(catalogue.checkSpread());
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.first().first().value<ResourceCatalogue::Outcome>(), ResourceCatalogue::Failed);
    QVERIFY(!ended.first().at(1).toString().isEmpty());
}

void tst_ResourceCatalogue::cancelEndsTheCheck()
{
    m_world.setFault([](HttpExchange& exchange, int) {
        exchange.stall();
        return true;
    });
    ResourceCatalogue catalogue;
    QSignalSpy ended(&catalogue, &ResourceCatalogue::checkEnded);
    QVERIFY(catalogue.check());
    QVERIFY(catalogue.isBusy());
    catalogue.cancel();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.first().first().value<ResourceCatalogue::Outcome>(),
             ResourceCatalogue::Cancelled);
}

void tst_ResourceCatalogue::spreadCheckWaitsUntilItIsCancelled()
{
    hostSettings().checkSpreadSeconds = 36000;
    const int before = m_world.targets().size();
    ResourceCatalogue catalogue;
    QSignalSpy ended(&catalogue, &ResourceCatalogue::checkEnded);
    QVERIFY(catalogue.checkSpread());
    QCOMPARE(catalogue.phase(), ResourceCatalogue::Waiting);
    QVERIFY(catalogue.isBusy());
    catalogue.cancel();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.first().first().value<ResourceCatalogue::Outcome>(),
             ResourceCatalogue::Cancelled);
    QCOMPARE(catalogue.phase(), ResourceCatalogue::Idle);
    QCOMPARE(m_world.targets().size(), before);
}

void tst_ResourceCatalogue::reloadWaitsForTheDownloadOfAnother()
{
    HeldAnswer held;
    m_world.route(ReleaseWorld::contentTarget(StorageWorld::archive(13)),
                  held.handler(HttpAnswer(200).body(StorageWorld::archive(13))));
    ResourceCatalogue catalogue;
    QSignalSpy reloaded(&catalogue, &ResourceCatalogue::reloaded);
    MVThemeDownLoader other(nullptr);
    other.download(&StorageWorld::filter(13));
    QVERIFY(held.hasArrived());
    QVERIFY(!catalogue.reload());
    QCOMPARE(reloaded.count(), 0);
    held.release();
    QTRY_COMPARE(reloaded.count(), 1);
    QVERIFY(catalogue.reload());
}

void tst_ResourceCatalogue::favouritesAreSaved()
{
    ResourceModel model;
    const QString path = MVThemeMgr::init()->Path_ThemeCollect();
    {
        const ResourceCatalogue catalogue;
        QVERIFY(model.setFavourite(guid(2), true));
        QTRY_VERIFY(CatalogueFiles::read(path).contains(guid(2).toUtf8()));
        QVERIFY(model.setFavourite(guid(1), true));
    }
    QVERIFY(CatalogueFiles::read(path).contains(guid(1).toUtf8()));
    for (const int number : {1, 2})
        model.setFavourite(guid(number), false);
}

void tst_ResourceCatalogue::favouritesOfEveryKindAreSaved_data()
{
    QTest::addColumn<Mark>("mark");
    QTest::addColumn<FilePath>("path");
    QTest::newRow("theme") << Mark(&MVThemeMgr::setThemesCollected)
                           << FilePath(&MVThemeMgr::Path_ThemeCollect);
    QTest::newRow("filter") << Mark(&MVThemeMgr::setFilterCollected)
                            << FilePath(&MVThemeMgr::Path_FilterCollect);
    QTest::newRow("background") << Mark(&MVThemeMgr::setBgMaterialCollected)
                                << FilePath(&MVThemeMgr::Path_BgMaterialCollect);
}

/// Whoever sets them.
void tst_ResourceCatalogue::favouritesOfEveryKindAreSaved()
{
    QFETCH(Mark, mark);
    QFETCH(FilePath, path);
    MVThemeMgr* const manager = MVThemeMgr::init();
    const ResourceCatalogue catalogue;
    SCfg_Item item;
    item.m_qsGUID = guid(77);
    item.m_bCollected = true;
    (manager->*mark)(&item);
    QTRY_VERIFY(CatalogueFiles::read((manager->*path)()).contains(item.m_qsGUID.toUtf8()));
    item.m_bCollected = false;
    (manager->*mark)(&item);
}

void tst_ResourceCatalogue::favouritesThatCannotBeSavedAreTold()
{
    const QString path = MVThemeMgr::init()->Path_ThemeCollect();
    QFile::remove(path);
    QVERIFY(QDir().mkpath(path)); // a folder of that name
    ResourceCatalogue catalogue;
    QSignalSpy refused(&catalogue, &ResourceCatalogue::favouritesNotSaved);
    ResourceModel model;
    QVERIFY(model.setFavourite(guid(2), true));
    QTRY_COMPARE(refused.count(), 1);
    QVERIFY(!refused.first().first().toString().isEmpty());
    QVERIFY(QDir().rmdir(path));
    model.setFavourite(guid(2), false);
}

void tst_ResourceCatalogue::favouritesSurviveAReload()
{
    ResourceCatalogue catalogue;
    ResourceModel model;
    const ModelWatch watch(model);
    QVERIFY(model.setFavourite(guid(2), true));
    QVERIFY(catalogue.reload());
    QVERIFY(watch.value(2, ResourceModel::FavouriteRole).toBool());
    model.setFavourite(guid(2), false);
}

MV_TEST_MAIN(tst_ResourceCatalogue)
#include "tst_ResourceCatalogue.moc"
