// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "records/ECfgItemType.h"
#include "records/EDependType.h"
#include "records/SCfg_Item.h"
#include "records/SFileInfo.h"
#include "records/SThemes_a.h"
#include "support/TestMain.h"

#include <QMutexLocker>
#include <QScopeGuard>

#include <algorithm>
#include <initializer_list>
#include <type_traits>

/// Tests what a new record holds, what copies share with their source, and what is their own.
class tst_records : public QObject
{
    Q_OBJECT

private slots:
    void enumeratorsHaveFixedValues_data();
    void enumeratorsHaveFixedValues();
    void enumerationsAreAsLargeAsInt();
    void fieldsStandInTheirOrder();

    void newFileRecordIsAnUnresolvedResource();
    void everyNewFileRecordHasItsOwnPlainMutex();
    void copiedFileRecordCarriesEveryField_data();
    void copiedFileRecordCarriesEveryField();
    void copiedFileRecordLocksTheSameMutex_data();
    void copiedFileRecordLocksTheSameMutex();
    void fileRecordWithoutMutexCanBeCopied();
    void fileRecordAssignedToItselfStays();

    void newItemIsEmpty();
    void copiedItemCarriesEveryField_data();
    void copiedItemCarriesEveryField();
    void copiedItemSharesMutexes();
    void destroyingTheCopyLeavesTheParsedTheme();
    void copiedItemHasResourceRecordsOfItsOwn();
    void recordsOfTheSourceStayWhenTheCopyIsWritten();
    void itemAssignedToItselfStays();
    void movedItemKeepsItsResourceRecords();
    void itemsLiveInVectors();
    void itemsTravelInVariants();

    void newThemeIsEmpty();
    void copiedThemeIsIndependent();
};

namespace {

SFileInfo filledFile()
{
    SFileInfo info;
    info.m_eType = eCfgItem_Theme;
    info.m_bThumbDir = true;
    info.m_qsUrl = QStringLiteral("/Themes/a.zip");
    info.m_qsFile = QStringLiteral("/r/a.zip");
    info.m_bDownloaded = true;
    info.m_nReceived = Q_INT64_C(5000000000);
    info.m_nTotal = Q_INT64_C(6000000000);
    return info;
}

SFileInfo namedFile(const char* url)
{
    SFileInfo info;
    info.m_qsUrl = QString::fromLatin1(url);
    return info;
}

SCfg_Item filledItem(SThemes_a* theme)
{
    SCfg_Item item;
    item.m_eType = eCfgItem_Theme;
    item.m_qsGUID = QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");
    item.m_qsName = QStringLiteral("Sea");
    item.m_info_Thumb.m_qsUrl = QStringLiteral("thumb.png");
    item.m_info_CfgXML.m_qsUrl = QStringLiteral("/Themes/sea.xml");
    item.m_info_Gif.m_qsUrl = QStringLiteral("sea.gif");
    item.m_vecResource = {namedFile("/first.zip"), namedFile("/second.zip")};
    item.m_bCollected = true;
    item.m_bIsText = true;
    item.m_pThemes_a = theme;
    item.m_nThemeType = 3;
    return item;
}

using Addresses = std::initializer_list<const volatile void*>;

bool ascending(Addresses addresses)
{
    return std::is_sorted(addresses.begin(), addresses.end());
}

/// The ways to copy a record; the tests that hold for each have a row for each.
enum Way { copyConstructed, copyAssigned };

void addWays()
{
    QTest::addColumn<int>("way");
    QTest::newRow("copy construction") << int(copyConstructed);
    QTest::newRow("assignment") << int(copyAssigned);
}

template <class T>
T another(int way, const T& source)
{
    if (way == copyConstructed)
        return T(source);
    T target;
    target = source;
    return target;
}

} // namespace

void tst_records::enumeratorsHaveFixedValues_data()
{
    QTest::addColumn<int>("enumerator");
    QTest::addColumn<int>("value");
    QTest::newRow("Filter") << int(eCfgItem_Filter) << 0;
    QTest::newRow("Transition") << int(eCfgItem_Transition) << 1;
    QTest::newRow("Motion") << int(eCfgItem_Motion) << 2;
    QTest::newRow("Theme") << int(eCfgItem_Theme) << 3;
    QTest::newRow("BgMaterial") << int(eCfgItem_BgMaterial) << 4;
    QTest::newRow("Resource") << int(eCfgItem_Resource) << 5;
    QTest::newRow("Local") << int(MVThemeMgr::eLoadDir_Local) << 0;
    QTest::newRow("Download") << int(MVThemeMgr::eLoadDir_Download) << 1;
    QTest::newRow("Config") << int(MVThemeMgr::eDirTag_Config) << 0;
    QTest::newRow("Display") << int(MVThemeMgr::eDirTag_Display) << 1;
    QTest::newRow("slot Text") << int(eDependType_Text) << 0;
    QTest::newRow("slot Filter") << int(eDependType_Filter) << 1;
    QTest::newRow("slot Element") << int(eDependType_Element) << 2;
    QTest::newRow("slot Transition") << int(eDependType_Transition) << 3;
    QTest::newRow("slot ImageMotion") << int(eDependType_ImageMotion) << 4;
}

void tst_records::enumeratorsHaveFixedValues()
{
    QFETCH(int, enumerator);
    QFETCH(int, value);
    QCOMPARE(enumerator, value);
}

void tst_records::enumerationsAreAsLargeAsInt()
{
    static_assert(sizeof(ECfgItemType) == sizeof(int));
    static_assert(sizeof(EDependType) == sizeof(int));
    static_assert(sizeof(MVThemeMgr::ELoadDir) == sizeof(int));
    static_assert(sizeof(MVThemeMgr::EDirTag) == sizeof(int));
    static_assert(std::is_same_v<decltype(SFileInfo::m_nReceived), qint64>);
    static_assert(std::is_same_v<decltype(SFileInfo::m_nTotal), qint64>);
}

void tst_records::fieldsStandInTheirOrder()
{
    const SFileInfo f;
    QVERIFY(ascending({&f.m_eType, &f.m_bThumbDir, &f.m_qsUrl, &f.m_qsFile, &f.m_bDownloaded,
                       &f.m_nReceived, &f.m_nTotal, &f.m_pMutex}));
    const SCfg_Item i;
    QVERIFY(ascending({&i.m_eType, &i.m_qsGUID, &i.m_qsName, &i.m_info_Thumb, &i.m_info_CfgXML,
                       &i.m_info_Gif, &i.m_vecResource, &i.m_bCollected, &i.m_bIsText,
                       &i.m_pThemes_a, &i.m_nThemeType}));
    const SThemes_a t;
    QVERIFY(
        ascending({&t.m_qsGUID, &t.m_qsName, &t.m_vecItems, &t.m_aStart, &t.m_aEnd, &t.m_aMask}));
    const SThemes_a::SDependInfo d;
    QVERIFY(ascending({&d.m_qsGUID, &d.m_pItem, &d.m_mapAttr}));
    const MVThemeMgr::SResourceXML x;
    QVERIFY(
        ascending({&x.vecFilter, &x.vecTransition, &x.vecMotion, &x.vecTheme, &x.vecBgMaterial}));
}

void tst_records::newFileRecordIsAnUnresolvedResource()
{
    const SFileInfo info;
    QCOMPARE(info.m_eType, eCfgItem_Resource);
    QCOMPARE(info.m_bThumbDir, false);
    QCOMPARE(info.m_qsUrl, QString());
    QCOMPARE(info.m_qsFile, QString());
    QCOMPARE(info.m_bDownloaded, false);
    QCOMPARE(info.m_nReceived, Q_INT64_C(0));
    QCOMPARE(info.m_nTotal, Q_INT64_C(0));
}

void tst_records::everyNewFileRecordHasItsOwnPlainMutex()
{
    const SFileInfo first;
    const SFileInfo second;
    QVERIFY(first.m_pMutex && second.m_pMutex);
    QVERIFY(first.m_pMutex.get() != second.m_pMutex.get());
    const QMutexLocker lock(first.m_pMutex.get());
    QVERIFY2(!first.m_pMutex->tryLock(), "a record is taken once");
}

void tst_records::copiedFileRecordCarriesEveryField_data()
{
    addWays();
}

void tst_records::copiedFileRecordCarriesEveryField()
{
    QFETCH(int, way);
    const SFileInfo copy = another(way, filledFile());
    QCOMPARE(copy.m_eType, eCfgItem_Theme);
    QCOMPARE(copy.m_bThumbDir, true);
    QCOMPARE(copy.m_qsUrl, QStringLiteral("/Themes/a.zip"));
    QCOMPARE(copy.m_qsFile, QStringLiteral("/r/a.zip"));
    QCOMPARE(copy.m_bDownloaded, true);
    QCOMPARE(copy.m_nReceived, Q_INT64_C(5000000000));
    QCOMPARE(copy.m_nTotal, Q_INT64_C(6000000000));
}

void tst_records::copiedFileRecordLocksTheSameMutex_data()
{
    addWays();
}

void tst_records::copiedFileRecordLocksTheSameMutex()
{
    QFETCH(int, way);
    const SFileInfo source;
    const SFileInfo copy = another(way, source);
    QCOMPARE(copy.m_pMutex.get(), source.m_pMutex.get());
    QVERIFY2(source.m_pMutex->tryLock(), "copying leaves the mutex locked");
    const auto unlock = qScopeGuard([&] { source.m_pMutex->unlock(); });
    QVERIFY(!copy.m_pMutex->tryLock());
}

void tst_records::fileRecordWithoutMutexCanBeCopied()
{
    SFileInfo source = filledFile();
    source.m_pMutex.reset();
    const SFileInfo copy(source);
    QVERIFY(!copy.m_pMutex);
    QCOMPARE(copy.m_qsUrl, source.m_qsUrl);
    SFileInfo assigned;
    assigned = source;
    QVERIFY(!assigned.m_pMutex);
    QCOMPARE(assigned.m_qsFile, source.m_qsFile);
}

void tst_records::fileRecordAssignedToItselfStays()
{
    SFileInfo info = filledFile();
    const SFileInfo& same = info;
    info = same;
    QCOMPARE(info.m_qsUrl, QStringLiteral("/Themes/a.zip"));
    QVERIFY(info.m_pMutex->tryLock());
    info.m_pMutex->unlock();
}

void tst_records::newItemIsEmpty()
{
    const SCfg_Item item;
    QVERIFY(!item.m_pThemes_a);
    QVERIFY(item.m_vecResource.isEmpty());
    QCOMPARE(item.m_qsGUID, QString());
    QCOMPARE(item.m_qsName, QString());
    QCOMPARE(item.m_eType, eCfgItem_Filter);
    QCOMPARE(item.m_bCollected, false);
    QCOMPARE(item.m_bIsText, false);
    QCOMPARE(item.m_nThemeType, 0);
    for (const SFileInfo* info : {&item.m_info_Thumb, &item.m_info_CfgXML, &item.m_info_Gif}) {
        QCOMPARE(info->m_qsUrl, QString());
        QCOMPARE(info->m_qsFile, QString());
        QVERIFY(info->m_pMutex);
    }
}

void tst_records::copiedItemCarriesEveryField_data()
{
    addWays();
}

void tst_records::copiedItemCarriesEveryField()
{
    QFETCH(int, way);
    SThemes_a theme;
    const SCfg_Item copy = another(way, filledItem(&theme));
    QCOMPARE(copy.m_eType, eCfgItem_Theme);
    QCOMPARE(copy.m_qsGUID, QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}"));
    QCOMPARE(copy.m_qsName, QStringLiteral("Sea"));
    QCOMPARE(copy.m_info_Thumb.m_qsUrl, QStringLiteral("thumb.png"));
    QCOMPARE(copy.m_info_CfgXML.m_qsUrl, QStringLiteral("/Themes/sea.xml"));
    QCOMPARE(copy.m_info_Gif.m_qsUrl, QStringLiteral("sea.gif"));
    QCOMPARE(copy.m_vecResource.size(), 2);
    QCOMPARE(copy.m_vecResource.at(0).m_qsUrl, QStringLiteral("/first.zip"));
    QCOMPARE(copy.m_vecResource.at(1).m_qsUrl, QStringLiteral("/second.zip"));
    QCOMPARE(copy.m_bCollected, true);
    QCOMPARE(copy.m_bIsText, true);
    QCOMPARE(copy.m_pThemes_a, &theme);
    QCOMPARE(copy.m_nThemeType, 3);
}

void tst_records::copiedItemSharesMutexes()
{
    const SCfg_Item source = filledItem(nullptr);
    const SCfg_Item copy(source);
    QCOMPARE(copy.m_info_Thumb.m_pMutex.get(), source.m_info_Thumb.m_pMutex.get());
    QCOMPARE(copy.m_info_CfgXML.m_pMutex.get(), source.m_info_CfgXML.m_pMutex.get());
    QCOMPARE(copy.m_info_Gif.m_pMutex.get(), source.m_info_Gif.m_pMutex.get());
    for (int i = 0; i < source.m_vecResource.size(); ++i)
        QCOMPARE(copy.m_vecResource.at(i).m_pMutex.get(),
                 source.m_vecResource.at(i).m_pMutex.get());
    QVERIFY2(source.m_info_CfgXML.m_pMutex->tryLock(), "copying leaves the mutex locked");
    source.m_info_CfgXML.m_pMutex->unlock();
}

void tst_records::destroyingTheCopyLeavesTheParsedTheme()
{
    SThemes_a theme;
    theme.m_qsGUID = QStringLiteral("{T}");
    const SCfg_Item source = filledItem(&theme);
    {
        const SCfg_Item copy(source);
        QCOMPARE(copy.m_pThemes_a, source.m_pThemes_a);
    }
    QCOMPARE(source.m_pThemes_a->m_qsGUID, QStringLiteral("{T}"));
}

void tst_records::copiedItemHasResourceRecordsOfItsOwn()
{
    const SCfg_Item source = filledItem(nullptr);
    const SCfg_Item constructed(source);
    SCfg_Item assigned;
    assigned = source;
    QVERIFY(constructed.m_vecResource.constData() != source.m_vecResource.constData());
    QVERIFY(assigned.m_vecResource.constData() != source.m_vecResource.constData());
}

void tst_records::recordsOfTheSourceStayWhenTheCopyIsWritten()
{
    SCfg_Item source = filledItem(nullptr);
    const SFileInfo* const held = &source.m_vecResource[0];
    SCfg_Item copy(source);
    copy.m_vecResource[0].m_qsFile = QStringLiteral("/r/copy");
    source.m_vecResource[0].m_qsFile = QStringLiteral("/r/source");
    QCOMPARE(held, source.m_vecResource.constData());
    QCOMPARE(held->m_qsFile, QStringLiteral("/r/source"));
    QCOMPARE(copy.m_vecResource.at(0).m_qsFile, QStringLiteral("/r/copy"));
}

void tst_records::itemAssignedToItselfStays()
{
    SCfg_Item item = filledItem(nullptr);
    const SFileInfo* const held = item.m_vecResource.constData();
    const SCfg_Item& same = item;
    item = same;
    QCOMPARE(item.m_qsName, QStringLiteral("Sea"));
    QCOMPARE(item.m_vecResource.constData(), held);
}

void tst_records::movedItemKeepsItsResourceRecords()
{
    SCfg_Item source = filledItem(nullptr);
    const SFileInfo* const held = source.m_vecResource.constData();
    const QMutex* const mutex = source.m_info_Thumb.m_pMutex.get();
    const SCfg_Item moved(std::move(source));
    QCOMPARE(moved.m_vecResource.constData(), held);
    QCOMPARE(moved.m_info_Thumb.m_pMutex.get(), mutex);
}

void tst_records::itemsLiveInVectors()
{
    QVector<SCfg_Item> items(1);
    for (int i = 0; i < 100; ++i)
        items.append(filledItem(nullptr));
    QVector<SCfg_Item> shared = items;
    shared[0].m_qsName = QStringLiteral("changed");
    items.removeFirst();
    QCOMPARE(items.size(), 100);
    QCOMPARE(items.last().m_vecResource.at(1).m_qsUrl, QStringLiteral("/second.zip"));
    QCOMPARE(shared.size(), 101);
    QCOMPARE(shared.at(0).m_qsName, QStringLiteral("changed"));
}

void tst_records::itemsTravelInVariants()
{
    const QVariant variant = QVariant::fromValue(filledItem(nullptr));
    QCOMPARE(variant.value<SCfg_Item>().m_qsName, QStringLiteral("Sea"));
}

void tst_records::newThemeIsEmpty()
{
    const SThemes_a theme;
    QCOMPARE(theme.m_qsGUID, QString());
    QCOMPARE(theme.m_qsName, QString());
    QVERIFY(theme.m_vecItems.isEmpty());
    for (const SThemes_a::SDependArray* edge : {&theme.m_aStart, &theme.m_aEnd, &theme.m_aMask}) {
        QCOMPARE(edge->size(), std::size_t(5));
        for (const SThemes_a::SDependInfo& slot : *edge) {
            QCOMPARE(slot.m_qsGUID, QString());
            QVERIFY(!slot.m_pItem);
            QVERIFY(slot.m_mapAttr.isEmpty());
        }
    }
}

void tst_records::copiedThemeIsIndependent()
{
    SCfg_Item item;
    SThemes_a theme;
    theme.m_aMask[eDependType_Filter].m_pItem = &item;
    theme.m_aMask[eDependType_Filter].m_mapAttr.insert(QStringLiteral("a"), QStringLiteral("1"));
    SThemes_a copy(theme);
    copy.m_aMask[eDependType_Filter].m_mapAttr.clear();
    QCOMPARE(copy.m_aMask[eDependType_Filter].m_pItem, &item);
    QCOMPARE(theme.m_aMask[eDependType_Filter].m_mapAttr.size(), 1);
}

MV_TEST_MAIN(tst_records)
#include "tst_records.moc"
