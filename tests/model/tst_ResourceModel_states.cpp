// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CatalogueUpdate.h"
#include "download/HeldAnswer.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "download/PreviewExchange.h"
#include "download/ResourceStorage.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "ModelWatch.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QUrl>

#include <atomic>
#include <chrono>

/// Tests the states of items over checks, updates and removals, and the pictures that arrive.
class tst_ResourceModel_states : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.freshStorage();
        hostSettings().transfersSideBySide = 6;
        hostSettings().downloadStepMs = 0;
    }

    void statesAreUnknownAtFirst();
    void examiningIsTold();
    void checkTellsOutdatedItems();
    void updateFetchesTheNewContent();
    void updatesBegunTogetherFollowEachOther();
    void cancelledUpdateChangesNothing();
    void updateTellsItsProgress();
    void failedUpdateIsTold();
    void reloadRestartsTheUpdate();
    void updateOfAnotherIsFollowed();
    void damagedItemIsTold();
    void removeAndUndo();
    void removalDuringADownloadFails();
    void removedFilesAreDeletedWithTheLastModel();
    void removalOfAnotherIsFollowed();
    void arrivedPictureIsShown();
    void replacedPictureHasANewAddress_data();
    void replacedPictureHasANewAddress();
    void shownRowsAreTold();

private:
    static QString guid(int number) { return CatalogueFiles::guid(number); }
    QString asideFolder() const { return m_world.downloadedFile("removed"); }
    void publishChanged(const char* name)
    {
        m_world.change(name, "PK changed");
        m_world.publishRelease(11);
    }
    static void check()
    {
        CatalogueUpdate update;
        bool isFinished = false;
        connect(&update, &CatalogueUpdate::finished, &update, [&isFinished] { isFinished = true; });
        QVERIFY(update.start());
        QTRY_VERIFY(isFinished);
    }

    StorageWorld m_world;
};

void tst_ResourceModel_states::statesAreUnknownAtFirst()
{
    const ResourceModel model;
    QCOMPARE(model.valueOf(guid(1), text("state")).toInt(), int(ResourceModel::Unknown));
    QCOMPARE(model.valueOf(guid(1), text("size")).toLongLong(), qint64(-1));
    QVERIFY(model.isExamining());
    EXAMINED(model);
    QCOMPARE(model.valueOf(guid(1), text("state")).toInt(), int(ResourceModel::Missing));
    QVERIFY(model.valueOf(guid(1), text("size")).toLongLong() > 0);
}

void tst_ResourceModel_states::examiningIsTold()
{
    ResourceModel model;
    EXAMINED(model);
    QVector<bool> told;
    connect(&model, &ResourceModel::examiningChanged, this,
            [&] { told.append(model.isExamining()); });
    PreviewExchange::instance()->tellArrived(guid(1));
    QTRY_COMPARE(told, (QVector<bool>{true, false}));
}

/// Without a reload: the catalogue has not changed, only the release.
void tst_ResourceModel_states::checkTellsOutdatedItems()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(1), &StorageWorld::filter(13)}));
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QCOMPARE(watch.state(13), int(ResourceModel::Ready));
    publishChanged("VideoFilters/13.zip");
    check();
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Outdated));
    QVERIFY(watch.value(13, ResourceModel::UsableRole).toBool());
    QCOMPARE(watch.value(13, ResourceModel::BytesToFetchRole).toLongLong(), qint64(10));
    QCOMPARE(watch.state(11), int(ResourceModel::Ready));
}

void tst_ResourceModel_states::updateFetchesTheNewContent()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    publishChanged("VideoFilters/13.zip");
    m_world.publishAndCheck(12);
    ResourceModel model(ResourceModel::Filter);
    ModelWatch watch(model);
    EXAMINED(model);
    watch.watchStates(13);
    QVERIFY(model.update(guid(13)));
    QVERIFY(!model.fetch(guid(13)));
    QTRY_COMPARE(watch.ends(), QStringList{text("updated 13 complete")});
    QCOMPARE(
        watch.states(),
        (QVector<int>{ResourceModel::Outdated, ResourceModel::Updating, ResourceModel::Ready}));
    QCOMPARE(m_world.content("VideoFilters/13.zip"), QByteArray("PK changed"));
}

void tst_ResourceModel_states::updatesBegunTogetherFollowEachOther()
{
    ResourceModel model;
    const ModelWatch watch(model);
    QVERIFY(model.update(guid(1)));
    QVERIFY(model.update(guid(2)));
    QTRY_COMPARE(watch.ends().size(), 2);
    for (const char* end : {"updated 1 complete", "updated 2 complete"})
        QVERIFY2(watch.ends().contains(text(end)), end);
    QCOMPARE(watch.state(1), int(ResourceModel::Ready));
    QCOMPARE(watch.state(2), int(ResourceModel::Ready));
}

void tst_ResourceModel_states::cancelledUpdateChangesNothing()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    publishChanged("VideoFilters/13.zip");
    m_world.publishAndCheck(12);
    const QByteArray target = ReleaseWorld::contentTarget("PK changed");
    m_world.route(target, [](HttpExchange& exchange) { exchange.stall(); });
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(model.update(guid(13)));
    QVERIFY(model.update(guid(11))); // waits
    QTRY_VERIFY(m_world.targets().contains(target));
    model.cancel(guid(11));
    QTRY_COMPARE(watch.ends(), QStringList{text("updated 11 cancelled")});
    model.cancel(guid(13));
    QTRY_COMPARE(watch.ends().size(), 2);
    QCOMPARE(watch.ends().constLast(), text("updated 13 cancelled"));
    QCOMPARE(watch.state(13), int(ResourceModel::Outdated));
    QCOMPARE(m_world.content("VideoFilters/13.zip"), StorageWorld::archive(13));
}

void tst_ResourceModel_states::updateTellsItsProgress()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    publishChanged("VideoFilters/13.zip");
    m_world.publishAndCheck(12);
    std::atomic<bool> isHalfTold{false};
    m_world.route(ReleaseWorld::contentTarget("PK changed"), [&](HttpExchange& exchange) {
        exchange.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nPK ch");
        while (!isHalfTold)
            exchange.pause(std::chrono::milliseconds(1));
        exchange.send("anged");
    });
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QCOMPARE(watch.value(13, ResourceModel::ProgressRole).toInt(), 0);
    QVERIFY(model.update(guid(13)));
    QTRY_COMPARE(watch.value(13, ResourceModel::ProgressRole).toInt(), 50);
    isHalfTold = true;
    QTRY_COMPARE(watch.ends(), QStringList{text("updated 13 complete")});
    QCOMPARE(m_world.content("VideoFilters/13.zip"), QByteArray("PK changed"));
}

void tst_ResourceModel_states::failedUpdateIsTold()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    publishChanged("VideoFilters/13.zip");
    m_world.publishAndCheck(12);
    m_world.route(ReleaseWorld::contentTarget("PK changed"),
                  [](HttpExchange& exchange) { exchange.answer(HttpAnswer(500).body("no")); });
    hostSettings().downloadRetries = 0;
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(model.update(guid(13)));
    QTRY_COMPARE(watch.ends(), QStringList{text("updated 13 failed")});
    QCOMPARE(watch.state(13), int(ResourceModel::Outdated)); // still usable
    QCOMPARE(watch.value(13, ResourceModel::ErrorTextRole).toString(),
             STransferFailure::causeText(eFailure_ServerError));
}

void tst_ResourceModel_states::reloadRestartsTheUpdate()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    publishChanged("VideoFilters/13.zip");
    m_world.publishAndCheck(12);
    HeldAnswer held;
    m_world.route(ReleaseWorld::contentTarget("PK changed"),
                  held.handler(HttpAnswer(200).body("PK changed")));
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(model.update(guid(13)));
    QVERIFY(held.hasArrived());
    QVERIFY(MVThemeMgr::init()->tryReload());
    QVERIFY(held.hasArrived()); // requested again
    held.release();
    QTRY_COMPARE(watch.ends(), QStringList{text("updated 13 complete")});
    QCOMPARE(m_world.content("VideoFilters/13.zip"), QByteArray("PK changed"));
}

void tst_ResourceModel_states::updateOfAnotherIsFollowed()
{
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Ready));
}

void tst_ResourceModel_states::damagedItemIsTold()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    CatalogueFiles::write(m_world.file("VideoFilters/13.zip"), "damaged");
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QCOMPARE(watch.state(13), int(ResourceModel::Damaged));
    QVERIFY(model.update(guid(13)));
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Ready));
}

void tst_ResourceModel_states::removeAndUndo()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13), &StorageWorld::theme(1)}));
    const QStringList before = m_world.files();
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(!model.canUndoRemove());
    QSignalSpy undoable(&model, &ResourceModel::canUndoRemoveChanged);
    QVERIFY(model.remove(guid(13)));
    QTRY_COMPARE(watch.ends(), QStringList{text("removed 13 complete")});
    QCOMPARE(watch.state(13), int(ResourceModel::Missing));
    QCOMPARE(watch.state(11), int(ResourceModel::Ready));
    QCOMPARE(undoable.count(), 1);
    QVERIFY(model.undoRemove());
    QVERIFY(!model.undoRemove());
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Ready));
    QCOMPARE(m_world.files(), before);
    QCOMPARE(undoable.count(), 2);
}

void tst_ResourceModel_states::removalDuringADownloadFails()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    HeldAnswer held;
    m_world.route(ReleaseWorld::contentTarget(StorageWorld::archive(11)),
                  held.handler(HttpAnswer(200).body(StorageWorld::archive(11))));
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(model.fetch(guid(11)));
    QVERIFY(held.hasArrived());
    QVERIFY(model.remove(guid(13)));
    QTRY_COMPARE(watch.ends(), QStringList{text("removed 13 failed")});
    QCOMPARE(watch.state(13), int(ResourceModel::Ready));
    QVERIFY(!watch.value(13, ResourceModel::ErrorDetailsRole).toString().isEmpty());
    held.release();
    QTRY_COMPARE(watch.state(11), int(ResourceModel::Ready));
}

void tst_ResourceModel_states::removedFilesAreDeletedWithTheLastModel()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    auto model = std::make_unique<ResourceModel>(ResourceModel::Filter);
    QSignalSpy removed(model.get(), &ResourceModel::removeEnded);
    QVERIFY(model->remove(guid(13)));
    QTRY_COMPARE(removed.count(), 1);
    QVERIFY(!ResourceStorage().remains().isEmpty());
    model.reset();
    QCOMPARE(ResourceStorage().remains(), QStringList());
    QVERIFY(QDir(asideFolder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
}

void tst_ResourceModel_states::removalOfAnotherIsFollowed()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(13)}));
    ResourceModel model(ResourceModel::Filter);
    const ModelWatch watch(model);
    EXAMINED(model);
    const ResourceStorage::Removal removal = ResourceStorage().removeItem(StorageWorld::filter(13));
    QVERIFY(removal.isComplete());
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Missing));
    QVERIFY(ResourceStorage::undo(removal));
    QTRY_COMPARE(watch.state(13), int(ResourceModel::Ready));
}

void tst_ResourceModel_states::arrivedPictureIsShown()
{
    ResourceModel model;
    const ModelWatch watch(model);
    EXAMINED(model);
    QVERIFY(watch.value(1, ResourceModel::ThumbnailRole).toUrl().isEmpty());
    m_world.serve("/display/Themes/t.jpg", "thumbnail");
    m_world.serve("/display/Themes/p.gif", "preview");
    check();
    QTRY_COMPARE(watch.value(1, ResourceModel::ThumbnailRole).toUrl(),
                 QUrl::fromLocalFile(m_world.preview("Themes", "t.jpg")));
    QTRY_COMPARE(watch.value(1, ResourceModel::PreviewRole).toUrl().toLocalFile(),
                 m_world.preview("Themes", "p.gif"));
}

void tst_ResourceModel_states::replacedPictureHasANewAddress_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("secondsLater");
    QTest::newRow("larger, later") << QByteArray("another") << 10;
    QTest::newRow("larger, at the same time") << QByteArray("another") << 0;
    QTest::newRow("as large, later") << QByteArray("new") << 10;
}

void tst_ResourceModel_states::replacedPictureHasANewAddress()
{
    QFETCH(QByteArray, content);
    QFETCH(int, secondsLater);
    const QString path = m_world.preview("Themes", "t.jpg");
    CatalogueFiles::write(path, "old");
    ResourceModel model;
    const ModelWatch watch(model);
    EXAMINED(model);
    const QUrl old = watch.value(1, ResourceModel::ThumbnailRole).toUrl();
    QCOMPARE(old.toLocalFile(), path);
    const QDateTime time = QFileInfo(path).lastModified().addSecs(secondsLater);
    CatalogueFiles::write(path, content);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    PreviewExchange::instance()->tellArrived(guid(1));
    QTRY_VERIFY(watch.value(1, ResourceModel::ThumbnailRole).toUrl() != old);
    QCOMPARE(watch.value(1, ResourceModel::ThumbnailRole).toUrl().toLocalFile(), path);
}

void tst_ResourceModel_states::shownRowsAreTold()
{
    quint64 generation = 0;
    {
        ResourceModel model;
        model.showRows(-1, 2);
        QCOMPARE(PreviewExchange::instance()->shown(generation), QStringList{guid(1)});
        model.showRows(0, 99);
        QCOMPARE(PreviewExchange::instance()->shown(generation), (QStringList{guid(1), guid(2)}));
    }
    QCOMPARE(PreviewExchange::instance()->shown(generation), QStringList());
}

MV_TEST_MAIN(tst_ResourceModel_states)
#include "tst_ResourceModel_states.moc"
