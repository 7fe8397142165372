// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ItemSurvey.h"
#include "download/ItemUpdate.h"
#include "download/StorageWorld.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>

namespace tst_itemSurvey {

/// Tests verifying items, and what sets of items need.
class tst_itemSurvey : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void itemIsVerified();
    void allAreThoseOnDisk();
    void deepVerificationFindsWhatTimesHide();
    void cancelLeavesTheRestOut();
    void setTellsUnknownReadyAndToFetch();
    void guidsNeedNeitherBracesNorCapitals();
    void outdatedItemIsReadyAndDamagedIsNot();
    void sharedFilesCountOnce();
    void sizeOfAnUnreadThemeIsNotKnown();
    void whatASetLacksIsOneDownload();

private:
    StorageWorld m_world;
};

namespace {

constexpr auto deep = FileStates::Depth::Deep;
const QByteArray changed = "PK changed";
const QByteArray definition = "<Filter>13</Filter>";

SCfg_Item& filter()
{
    return StorageWorld::filter(13);
}

QStringList guidsOf(const QVector<SCfg_Item*>& items)
{
    QStringList guids;
    for (const SCfg_Item* const item : items)
        guids.append(item->m_qsGUID);
    return guids;
}

QStringList guids(const QVector<int>& numbers)
{
    QStringList guids;
    for (const int number : numbers)
        guids.append(CatalogueFiles::guid(number));
    return guids;
}

} // namespace

void tst_itemSurvey::init()
{
    m_world.setFault({});
    m_world.freshStorage();
}

void tst_itemSurvey::itemIsVerified()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    m_world.change("VideoFilters/13.zip", changed);
    m_world.publishAndCheck(11);
    const ItemSurvey survey = ItemSurvey::verify({&filter()});
    QCOMPARE(survey.rows().size(), 1);
    QCOMPARE(survey.rows().constFirst().state.m_eState, eFile_Outdated);
    QCOMPARE(survey.count(eFile_Outdated), 1);
    QCOMPARE(survey.fileCount(), 1);
    QCOMPARE(survey.bytes(), qint64(changed.size()));
    QCOMPARE(survey.rows().constFirst().files.constFirst().entry.path,
             m_world.file("VideoFilters/13.zip"));
}

void tst_itemSurvey::allAreThoseOnDisk()
{
    QCOMPARE(ItemSurvey::verifyAll().rows().size(), 0);
    QVERIFY(StorageWorld::fetch({&StorageWorld::theme(2), &StorageWorld::filter(11)}));
    QStringList found = guidsOf(ItemSurvey::verifyAll().items());
    found.sort();
    QCOMPARE(found, guids({2, 11}));
}

void tst_itemSurvey::deepVerificationFindsWhatTimesHide()
{
    QVERIFY(StorageWorld::fetch({&filter(), &StorageWorld::filter(11)}));
    QFile file(m_world.file("VideoFilters/13.zip"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime time = file.fileTime(QFileDevice::FileModificationTime);
    file.write("!");
    file.flush();
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();

    QCOMPARE(ItemSurvey::verifyAll().count(eFile_Damaged), 0);
    const ItemSurvey survey = ItemSurvey::verifyAll(deep);
    QCOMPARE(guidsOf(survey.toFetch()), guids({13}));
    QCOMPARE(ItemUpdate().updateItems(survey.toFetch()).m_nStored, 1);
    QCOMPARE(ItemSurvey::verifyAll(deep).count(eFile_Damaged), 0);
}

void tst_itemSurvey::cancelLeavesTheRestOut()
{
    QVERIFY(StorageWorld::fetch({&filter(), &StorageWorld::filter(11), &StorageWorld::theme(2)}));
    int items = 0;
    const auto afterOne = [&items](qint64 bytesRead) {
        items += bytesRead == 0 ? 1 : 0;
        return items < 2;
    };
    QCOMPARE(ItemSurvey::verifyAll(deep, afterOne).rows().size(), 1);
    // In the middle of a file, whose state is then unknown.
    QCOMPARE(ItemSurvey::verifyAll(deep, [](qint64) { return false; }).rows().size(), 0);
}

void tst_itemSurvey::setTellsUnknownReadyAndToFetch()
{
    QVERIFY(StorageWorld::fetch({&StorageWorld::filter(11)}));
    const QByteArray picture = "a picture"; // of all filters, which can be used without it
    m_world.put(text("display/VideoFilters/t.jpg"), picture);
    m_world.publishAndCheck(11);
    const ItemSurvey survey = ItemSurvey::verifyGuids(guids({99, 13, 11, 13, 98}));
    QCOMPARE(survey.unknown(), guids({99, 98}));
    QCOMPARE(guidsOf(survey.ready()), guids({11}));
    QCOMPARE(guidsOf(survey.toFetch()), guids({13}));
    QCOMPARE(survey.fileCount(), 3);
    QCOMPARE(survey.bytes(),
             qint64(StorageWorld::archive(13).size() + definition.size() + picture.size()));
    QVERIFY(survey.areBytesKnown());
}

void tst_itemSurvey::guidsNeedNeitherBracesNorCapitals()
{
    const QString guid = CatalogueFiles::guid(13);
    const QString bare = guid.mid(1, guid.size() - 2).toLower();
    QCOMPARE(guidsOf(ItemSurvey::verifyGuids({bare, guid, text("13")}).items()), guids({13}));
}

void tst_itemSurvey::outdatedItemIsReadyAndDamagedIsNot()
{
    QVERIFY(StorageWorld::fetch({&filter()}));
    m_world.change("VideoFilters/13.zip", changed);
    m_world.publishAndCheck(11);
    QCOMPARE(ItemSurvey::verify({&filter()}).toFetch().size(), 0);
    CatalogueFiles::write(m_world.file("VideoFilters/13.zip"), "damaged");
    QCOMPARE(guidsOf(ItemSurvey::verify({&filter()}).toFetch()), guids({13}));
}

void tst_itemSurvey::sharedFilesCountOnce()
{
    const QVector<SCfg_Item*> themes{&StorageWorld::theme(1), &StorageWorld::theme(2)};
    QVERIFY(StorageWorld::fetch(themes));
    QVERIFY(QFile::remove(m_world.file("VideoFilters/12.zip")));
    const ItemSurvey survey = ItemSurvey::verify(themes);
    QCOMPARE(survey.toFetch().size(), 2);
    QCOMPARE(survey.fileCount(), 1);
    QCOMPARE(survey.bytes(), qint64(StorageWorld::archive(12).size()));
}

void tst_itemSurvey::sizeOfAnUnreadThemeIsNotKnown()
{
    const ItemSurvey survey = ItemSurvey::verifyGuids(guids({1}));
    QVERIFY(survey.bytes() > 0);
    QVERIFY(!survey.areBytesKnown());
}

/// With progress, and until a cancel; see tst_itemUpdate.
void tst_itemSurvey::whatASetLacksIsOneDownload()
{
    const int before = m_world.targets().size();
    const ItemSurvey survey = ItemSurvey::verifyGuids(guids({1, 2, 13, 99}));
    ItemUpdate update;
    qint64 last = 0;
    update.setProgress([&last](qint64 fetchedBytes, qint64) { last = fetchedBytes; });
    const SUpdateOutcome outcome = update.updateItems(survey.toFetch());
    QCOMPARE(outcome.m_eEnd, eItemUpdate_Complete);
    QCOMPARE(last, outcome.m_nFetchedBytes);
    const QByteArrayList targets = m_world.targets().mid(before);
    QCOMPARE(targets.count(ReleaseWorld::contentTarget(StorageWorld::archive(12))), 1);
    const ItemSurvey after = ItemSurvey::verifyGuids(guids({1, 2, 13, 99}));
    QCOMPARE(after.ready().size(), 3);
    QCOMPARE(after.fileCount(), 0);
}

MV_TEST_MAIN(tst_itemSurvey)

} // namespace tst_itemSurvey

#include "tst_itemSurvey.moc"
