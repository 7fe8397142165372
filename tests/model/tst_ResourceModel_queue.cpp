// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueUse.h"
#include "download/HeldAnswer.h"
#include "download/StorageWorld.h"
#include "host/HostSettings.h"
#include "ModelWatch.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <memory>

namespace tst_ResourceModel_queue {

/// Tests downloads that wait for others to end, as only four run at a time.
class tst_ResourceModel_queue : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void fourRunAtATime();
    void waitingOneIsCancelledAtOnce();
    void reloadKeepsThemAll();
    void cancelledOneIsNotResumedByAReload();

private:
    static QString guid(int number) { return CatalogueFiles::guid(number); }
    static QByteArray target(int number)
    {
        return ReleaseWorld::contentTarget(StorageWorld::archive(number));
    }
    void fetchAll();

    StorageWorld m_world;
    std::unique_ptr<ResourceModel> m_model;
    std::unique_ptr<ModelWatch> m_watch;
    std::shared_ptr<HeldAnswer> m_held;
};

namespace {

constexpr int first = 21; // the filters' numbers
constexpr int last = 26;
constexpr int maxDownloads = 4;

} // namespace

/// Provides six filters whose archives the server holds back.
void tst_ResourceModel_queue::init()
{
    m_world.freshStorage();
    hostSettings().downloadStepMs = 0;
    hostSettings().downloadRetries = 0;
    m_held = std::make_shared<HeldAnswer>();
    QVector<CatalogueFiles::CfgItem> config;
    QVector<CatalogueFiles::DisplayItem> display;
    for (int number = first; number <= last; ++number) {
        const QString name = QStringLiteral("/VideoFilters/%1.zip").arg(number);
        config.append({guid(number), QString(), {name}});
        display.append({guid(number), QString::number(number), QString()});
        m_world.put(QStringLiteral("config") + name, StorageWorld::archive(number));
    }
    m_world.putCatalogue(
        CatalogueFiles::document(
            CatalogueFiles::displayCategory(QStringLiteral("Filter"), display)),
        CatalogueFiles::document(CatalogueFiles::cfgGroup(QStringLiteral("Filter"), config)));
    m_world.publishAndCheck(11);
    for (int number = first; number <= last; ++number) {
        // The server's thread may still be in the handler when the test is over.
        m_world.route(target(number),
                      [held = m_held,
                       handler = m_held->handler(HttpAnswer(200).body(StorageWorld::archive(
                           number)))](HttpExchange& exchange) { handler(exchange); });
    }
    m_model = std::make_unique<ResourceModel>(ResourceModel::Filter);
    m_watch = std::make_unique<ModelWatch>(*m_model);
    QCOMPARE(m_model->count(), last - first + 1);
}

void tst_ResourceModel_queue::cleanup()
{
    m_held->release();
    m_watch.reset();
    m_model.reset();
}

void tst_ResourceModel_queue::fetchAll()
{
    for (int number = first; number <= last; ++number)
        QVERIFY(m_model->fetch(guid(number)));
    for (int running = 0; running < maxDownloads; ++running)
        QVERIFY(m_held->hasArrived());
}

void tst_ResourceModel_queue::fourRunAtATime()
{
    fetchAll();
    QCOMPARE(CatalogueUse::count(), maxDownloads);
    for (int number = first; number <= last; ++number) {
        QCOMPARE(m_watch->state(number), int(ResourceModel::Downloading));
        QCOMPARE(m_world.targets().contains(target(number)), number < first + maxDownloads);
    }
    m_held->release();
    QTRY_COMPARE(m_watch->ends().size(), m_model->count());
    for (int number = first; number <= last; ++number)
        QCOMPARE(m_watch->state(number), int(ResourceModel::Ready));
    QCOMPARE(CatalogueUse::count(), 0);
}

void tst_ResourceModel_queue::waitingOneIsCancelledAtOnce()
{
    fetchAll();
    m_model->cancel(guid(last));
    QTRY_COMPARE(m_watch->ends(), QStringList{text("fetched 26 cancelled")});
    QCOMPARE(m_watch->state(last), int(ResourceModel::Missing));
    QCOMPARE(CatalogueUse::count(), maxDownloads); // the others go on
    m_held->release();
    QTRY_COMPARE(m_watch->ends().size(), m_model->count());
    QVERIFY(m_watch->ends().contains(text("fetched 25 complete")));
    QVERIFY(!m_world.targets().contains(target(last)));
}

void tst_ResourceModel_queue::reloadKeepsThemAll()
{
    fetchAll();
    QVERIFY(MVThemeMgr::init()->tryReload());
    m_held->release();
    QTRY_COMPARE(m_watch->ends().size(), m_model->count());
    QCOMPARE(m_watch->ends().filter(text("complete")).size(), m_model->count());
}

void tst_ResourceModel_queue::cancelledOneIsNotResumedByAReload()
{
    QVERIFY(m_model->fetch(guid(first)));
    QVERIFY(m_held->hasArrived());
    m_model->cancel(guid(first));
    QVERIFY(MVThemeMgr::init()->tryReload());
    QTRY_COMPARE(m_watch->ends(), QStringList{text("fetched 21 cancelled")});
    QCOMPARE(m_watch->state(first), int(ResourceModel::Missing));
    QCOMPARE(m_world.targets().count(target(first)), 1);
}

MV_TEST_MAIN(tst_ResourceModel_queue)

} // namespace tst_ResourceModel_queue

#include "tst_ResourceModel_queue.moc"
